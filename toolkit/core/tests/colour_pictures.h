#pragma once

#include <QColor>
#include <QImage>

#include <utility>

inline constexpr int PictureWidth = 5;
inline constexpr int PictureHeight = 3;

/// Colours that every format of 5 bits a channel and more tells apart, opaque ones.
[[nodiscard]] inline QRgb colour_at(int x, int y)
{
    return qRgb(x * 63, y * 127, 255 - x * 50);
}

/// Such a picture in any format.
[[nodiscard]] inline QImage colour_picture(QImage::Format format)
{
    QImage image(PictureWidth, PictureHeight, QImage::Format_RGB32);
    for (int y = 0; y < PictureHeight; ++y) {
        for (int x = 0; x < PictureWidth; ++x)
            image.setPixel(x, y, colour_at(x, y));
    }
    return std::move(image).convertToFormat(format);
}
