#include "pictures.h"

#include <QDebug>
#include <QStringList>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int mentionedPixels = 10;

QImage indexed_page(QSize size)
{
    QImage page(size, QImage::Format_Indexed8);
    QList<QRgb> table;
    for (int i = 0; i < 256; ++i)
        table.append(qRgb((i * 37 + 11) % 256, (i * 91 + 5) % 256, (i * 151 + 3) % 256));
    page.setColorTable(table);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            page.setPixel(x, y, static_cast<uint>((3 * x + 7 * y + x * y) % 256));
    }
    return page;
}

QImage mono_page(QSize size)
{
    QImage page(size, QImage::Format_Mono);
    page.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            page.setPixel(x, y, (x * x + 3 * y) % 5 < 2 ? 1 : 0);
    }
    return page;
}

QImage position_page(QSize size)
{
    QImage page(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            page.setPixel(x, y, position_color({x, y}));
    }
    return page;
}

QImage with_pixels(QImage page, const QList<uint> &values)
{
    for (int i = 0; i < values.size(); ++i)
        page.setPixel(i % page.width(), i / page.width(), values.at(i));
    return page;
}

/// What a comparison sees of a pixel: its index below depth 32, so that equal colours under two
/// indices differ, and its colour otherwise.
uint value_at(const QImage &image, int x, int y)
{
    return image.depth() <= 8 && image.colorCount() > 0 ? static_cast<uint>(image.pixelIndex(x, y)) : image.pixel(x, y);
}

QStringList pixel_differences(const QImage &actual, const QImage &expected)
{
    QStringList lines;
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            const uint left = value_at(actual, x, y);
            const uint right = value_at(expected, x, y);
            if (left == right)
                continue;
            lines.append(QString::asprintf("(%d,%d) is %08x, expected %08x", x, y, left, right));
            if (lines.size() == mentionedPixels)
                return lines;
        }
    }
    return lines;
}

QString outline(const QImage &image)
{
    return QString::asprintf("%dx%d, format %d, %d colours", image.width(), image.height(),
                             static_cast<int>(image.format()), image.colorCount());
}

} // namespace

QImage solid_page(QSize size, QRgb color, QImage::Format format)
{
    QImage page(size, format);
    if (page.depth() == 1)
        page.setColorTable({color, color});
    else if (format == QImage::Format_Indexed8)
        page.setColorTable({color});
    if (page.depth() <= 8 && page.colorCount() > 0)
        page.fill(0U);
    else
        page.fill(QColor::fromRgba(color));
    return page;
}

QImage colored(const QList<QRgb> &colors, QImage::Format format, int rows)
{
    return with_pixels(QImage(static_cast<int>(colors.size()) / rows, rows, format), colors);
}

QImage indexed(const QList<QRgb> &table, const QList<uint> &indices, QImage::Format format, int rows)
{
    QImage page(static_cast<int>(indices.size()) / rows, rows, format);
    page.setColorTable(table);
    return with_pixels(std::move(page), indices);
}

QImage patterned_page(QSize size, int depth)
{
    switch (depth) {
    case 1:
        return mono_page(size);
    case 8:
        return indexed_page(size);
    case 32:
        return position_page(size);
    default:
        return {};
    }
}

QRgb position_color(QPoint point)
{
    const int high = (point.x() >> 8 & 15) << 4 | (point.y() >> 8 & 15);
    return qRgb(point.x() & 255, point.y() & 255, high);
}

QPoint position_of(QRgb color)
{
    return {qRed(color) | (qBlue(color) >> 4) << 8, qGreen(color) | (qBlue(color) & 15) << 8};
}

QString picture_differences(const QImage &actual, const QImage &expected)
{
    if (actual.isNull() && expected.isNull())
        return {};
    if (actual.size() != expected.size() || actual.format() != expected.format())
        return outline(actual) + " instead of "_L1 + outline(expected);
    QStringList lines;
    if (actual.colorTable() != expected.colorTable())
        lines.append("the colour tables differ"_L1);
    lines.append(pixel_differences(actual, expected));
    return lines.join(u'\n');
}

bool compare_pictures(const QImage &actual, const QImage &expected)
{
    const QString differences = picture_differences(actual, expected);
    if (!differences.isEmpty())
        qInfo().noquote() << differences;
    return differences.isEmpty();
}
