#include "Q3CanvasPixmap.h"

#include "page_image.h"
#include "pixel_fetch.h"

#include <QPainter>
#include <QRect>
#include <QRegion>
#include <QtMath>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace {

constexpr int BandPixels = 64 * 1024; // a band of this many colours stays in the processor's cache
constexpr int PainterLimit = 32767; // longest side of a picture that the painter scales fast and exactly
constexpr int SmallestExponent = -12; // of a reduction, as a power of two
constexpr int LargestExponent = 12; // of a magnification

/// Whether @p device only moves by whole pixels and scales both ways by one power of two.
bool is_plain_zoom(const QTransform &device)
{
    int exponent = 0;
    return device.type() <= QTransform::TxScale && device.m11() == device.m22()
        && std::frexp(device.m11(), &exponent) == 0.5 && exponent - 1 >= SmallestExponent
        && exponent - 1 <= LargestExponent && std::floor(device.dx()) == device.dx()
        && std::floor(device.dy()) == device.dy();
}

/// The part of the painter's own coordinates that can show.
QRectF exposed_part(const QPainter &painter)
{
    const QRectF window = painter.worldTransform().inverted().mapRect(QRectF(painter.window()));
    return painter.hasClipping() ? window & painter.clipBoundingRect() : window;
}

/// Neighbouring colours along one axis of a target, each a sample of the page.
struct Samples
{
    int first = 0; ///< target coordinate of the first sample
    int count = 0;
    int source = 0; ///< page pixel of the first sample; the next ones follow in steps
};

int floor_divide(int dividend, int divisor)
{
    return static_cast<int>(std::floor(static_cast<double>(dividend) / divisor));
}

/// The device pixels from @p first to @p last that show a page on an axis.
/// @param zero  device pixel at which the axis starts
/// @param at    where on the axis the page starts, in page pixels
Samples reduced_samples(int first, int last, int zero, int at, int length, int step)
{
    // A device pixel shows the last page pixel before its middle: the toolkit's own choice.
    const int lead = step / 2 - 1 - at;
    first = std::max(first, zero - floor_divide(lead, step));
    last = std::min(last, zero + floor_divide(length - 1 - lead, step));
    return {.first = first, .count = std::max(0, last - first + 1), .source = step * (first - zero) + lead};
}

/// The painter would premultiply word by word.
QImage ready_to_blend(const QImage &band)
{
    return band.format() == QImage::Format_ARGB32 ? band.convertToFormat(QImage::Format_ARGB32_Premultiplied) : band;
}

/// Reads @p across by @p down colours of @p page, band by band, and hands each band and its first row to
/// @p drawBand.
template <typename DrawBand>
void for_each_band(const QImage &page, const Samples &across, const Samples &down, int step, const DrawBand &drawBand)
{
    if (across.count == 0 || down.count == 0)
        return;
    const PixelFetch fetch(page);
    const int bandHeight = std::clamp(BandPixels / across.count, 1, down.count);
    QImage band(across.count, bandHeight, fetch.format());
    if (band.isNull())
        return;
    uchar *const bits = band.bits();
    const qsizetype bytesPerLine = band.bytesPerLine();

    for (int row = 0; row < down.count; row += bandHeight) {
        const int height = std::min(bandHeight, down.count - row);
        for (int y = 0; y < height; ++y)
            fetch.readRow(reinterpret_cast<QRgb *>(bits + y * bytesPerLine), across.count, across.source,
                          down.source + (row + y) * step, step);
        drawBand(ready_to_blend(QImage(bits, across.count, height, bytesPerLine, band.format())), row);
    }
}

/// Draws @p part of an RGB32 page straight from its bytes.
void draw_in_place(QPainter &painter, const QImage &page, const QPoint &at, const QRect &part)
{
    if (part.isEmpty())
        return;
    // The same bytes under a smaller size: the painter's coordinates are 16 bits wide, a page is not.
    const auto *const bits = reinterpret_cast<const QRgb *>(page.constScanLine(part.top())) + part.left();
    painter.drawImage(
        at + part.topLeft(),
        QImage(reinterpret_cast<const uchar *>(bits), part.width(), part.height(), page.bytesPerLine(), page.format()));
}

/// Draws the device pixels of @p shown, one sample of the page each.
void draw_reduced(QPainter &painter, const QImage &page, const QPoint &at, const QRect &shown)
{
    const QTransform device = painter.deviceTransform();
    const int step = qRound(1.0 / device.m11());
    const Samples across =
        reduced_samples(shown.left(), shown.right(), qRound(device.dx()), at.x(), page.width(), step);
    const Samples down = reduced_samples(shown.top(), shown.bottom(), qRound(device.dy()), at.y(), page.height(), step);

    const QTransform world = painter.worldTransform();
    painter.setWorldTransform(device.inverted() * world); // one unit is now one device pixel
    for_each_band(page, across, down, step, [&](const QImage &band, int row) {
        painter.drawImage(QPoint(across.first, down.first + row), band);
    });
    painter.setWorldTransform(world);
}

/// Draws @p part of a page that is not reduced.
void draw_magnified(QPainter &painter, const QImage &page, const QPoint &at, const QRect &part)
{
    if (page.format() == QImage::Format_RGB32) {
        draw_in_place(painter, page, at, part);
        return;
    }
    const QPoint corner = at + part.topLeft();
    const Samples across{.first = corner.x(), .count = part.width(), .source = part.left()};
    const Samples down{.first = corner.y(), .count = part.height(), .source = part.top()};
    for_each_band(page, across, down, 1, [&](const QImage &band, int row) {
        painter.drawImage(QPoint(across.first, down.first + row), band);
    });
}

/// The device pixels that lie wholly in @p area.
QRect whole_pixels(const QRectF &area)
{
    const QPoint first(qCeil(area.left()), qCeil(area.top()));
    const QPoint end(qFloor(area.right()), qFloor(area.bottom()));
    return {first, end - QPoint(1, 1)};
}

} // namespace

Q3CanvasPixmap::Q3CanvasPixmap(const QImage &image) : m_image(to_page_format(image)) { }

void Q3CanvasPixmap::draw(QPainter &painter, const QPoint &at) const
{
    if (isNull())
        return;
    const QTransform device = painter.deviceTransform();
    if (!is_plain_zoom(device) || painter.testRenderHint(QPainter::SmoothPixmapTransform)) {
        painter.drawImage(at, m_image);
        return;
    }
    const QRectF target = device.mapRect(QRectF(at, m_image.size()));
    const QRect shown = device.mapRect(exposed_part(painter)).toAlignedRect() & target.toRect();
    const QRect whole = shown & whole_pixels(target);
    const QRect part = device.inverted().mapRect(QRectF(whole)).toAlignedRect().translated(-at) & m_image.rect();

    if (device.m11() >= 1.0) {
        draw_magnified(painter, m_image, at, part);
    } else if (m_image.format() == QImage::Format_RGB32 && std::max(part.width(), part.height()) <= PainterLimit) {
        // The painter is quick with these, but would round the edges of the part, not those of the page.
        draw_in_place(painter, m_image, at, part);
        for (const QRect &rim : QRegion(shown) - whole)
            draw_reduced(painter, m_image, at, rim);
    } else {
        draw_reduced(painter, m_image, at, shown);
    }
}
