#pragma once

#include <QByteArray>
#include <QSize>

/// JPEG files of a random picture, written by the library with all the choices that it gives.
struct PlainJpeg
{
    enum class Colors { YCbCr, Rgb, Grey, Cmyk };

    QSize size{40, 30};
    Colors colors = Colors::YCbCr;
    QSize luma{2, 2}; ///< samples of the first component in a block of the scan; the others have one, or chroma
    QSize chroma{1, 1};
    int quality = 75; ///< 0 to 100
    int restartRows = 0; ///< restart markers, none for 0
    bool isProgressive = false;
    bool isArithmetic = false;
    bool isInScans = false; ///< a scan for each component, one after the other
    int densityUnit = 0; ///< 0 none, 1 dots per inch, 2 dots per centimeter
    int densityX = 1;
    int densityY = 1;
    int marker = 0; ///< of a segment behind the header, none for 0
    QByteArray content{}; ///< of that segment
    quint32 seed = 1;

    [[nodiscard]] QByteArray file() const;
};
