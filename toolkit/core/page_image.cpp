#include "page_image.h"

#include <QList>

#include <algorithm>
#include <utility>

namespace {

constexpr int GreyCount = 256;

QList<QRgb> grey_table()
{
    QList<QRgb> table(GreyCount);
    for (int i = 0; i < GreyCount; ++i)
        table[i] = qRgb(i, i, i);
    return table;
}

QImage grey_to_indexed(QImage image)
{
    // Only the label changes: a grey byte is its own index into the table of greys.
    if (image.isNull() || !image.reinterpretAsFormat(QImage::Format_Indexed8))
        return {};
    image.setColorTable(grey_table());
    return image;
}

/// Grey words of 16 bits cut to their high bytes.
QImage cut_to_bytes(QImage image)
{
    constexpr int Twice = 257; // makes 0xabab of 0xab, which the conversion does not round
    uchar *const bits = image.bits();
    if (!bits)
        return {};
    for (int y = 0; y < image.height(); ++y) {
        auto *const words = reinterpret_cast<quint16 *>(bits + y * image.bytesPerLine());
        for (int x = 0; x < image.width(); ++x)
            words[x] = static_cast<quint16>((words[x] >> 8) * Twice);
    }
    return std::move(image).convertToFormat(QImage::Format_Grayscale8);
}

int largest_index(const QImage &image)
{
    if (image.depth() == 1)
        return 1;
    uchar largest = 0;
    for (int y = 0; y < image.height(); ++y) {
        const uchar *const line = image.constScanLine(y);
        largest = std::max(largest, *std::max_element(line, line + image.width()));
    }
    return largest;
}

/// Gives indices beyond a table a colour, black: what asks the table for theirs would read beyond its end.
QImage with_colors_for_all_indices(QImage image)
{
    constexpr QRgb Black = 0xff000000;
    const int count = image.colorCount();
    if (image.depth() > 8 || count == 0 || count >= 1 << image.depth())
        return image;
    const int last = largest_index(image);
    for (int i = count; i <= last; ++i)
        image.setColor(i, Black);
    return image;
}

} // namespace

QImage to_page_format(QImage image)
{
    switch (image.format()) {
    case QImage::Format_Mono:
    case QImage::Format_MonoLSB:
    case QImage::Format_Indexed8:
    case QImage::Format_Invalid:
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32:
        return image;
    case QImage::Format_Grayscale8:
        return grey_to_indexed(std::move(image));
    case QImage::Format_Grayscale16:
        return grey_to_indexed(cut_to_bytes(std::move(image)));
    default:
        break;
    }
    const QImage::Format format = image.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32;
    return std::move(image).convertToFormat(format);
}

QImage to_page_image(QImage image)
{
    return with_positive_resolution(with_colors_for_all_indices(to_page_format(std::move(image))));
}

QImage with_positive_resolution(QImage image)
{
    const QImage fresh(1, 1, QImage::Format_Mono);
    if (image.dotsPerMeterX() <= 0)
        image.setDotsPerMeterX(fresh.dotsPerMeterX());
    if (image.dotsPerMeterY() <= 0)
        image.setDotsPerMeterY(fresh.dotsPerMeterY());
    return image;
}
