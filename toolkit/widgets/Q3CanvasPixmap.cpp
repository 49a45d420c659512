#include "Q3CanvasPixmap.h"

#include "page_image.h"
#include "pixel_fetch.h"

#include <QPainter>
#include <QRect>
#include <QtMath>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace {

constexpr int BandPixels = 64 * 1024; // a band of this many colours stays in the processor's cache
constexpr int LargestExponent = 12; // of a magnification

/// Whether @p device only moves by whole pixels and magnifies both ways by one power of two, or not at all.
bool is_plain_zoom(const QTransform &device)
{
    int exponent = 0;
    return device.type() <= QTransform::TxScale && device.m11() == device.m22()
        && std::frexp(device.m11(), &exponent) == 0.5 && exponent - 1 >= 0 && exponent - 1 <= LargestExponent
        && std::floor(device.dx()) == device.dx() && std::floor(device.dy()) == device.dy();
}

/// The part of the painter's own coordinates that can show.
QRectF exposed_part(const QPainter &painter)
{
    const QRectF window = painter.worldTransform().inverted().mapRect(QRectF(painter.window()));
    return painter.hasClipping() ? window & painter.clipBoundingRect() : window;
}

/// A side of the part that is read pixel by pixel.
struct Samples
{
    int first = 0; ///< target coordinate of the first pixel
    int count = 0;
    int source = 0; ///< page pixel of it
};

/// Whether @p painter shows a page smaller than it is, as averages can show it. On a screen of several pixels a point
/// a reduced page may still be magnified by them.
bool is_reduced(const QPainter &painter, const QTransform &device)
{
    return device.type() <= QTransform::TxScale && device.m11() == device.m22()
        && device.m11() >= ReducedAxis::SmallestScale && painter.worldTransform().m11() < 1.0;
}

/// How a page of @p length pixels lies that begins at screen coordinate @p begin.
/// @param[out] zero  the screen pixel that it begins in
ReducedAxis reduced_axis(double begin, double scale, int length, int *zero)
{
    constexpr double grid = 1 << 30; // scales such as 1.1 make one position differ in its last bits
    begin = std::round(begin * grid) / grid;
    *zero = qFloor(begin);
    return {.scale = scale, .phase = begin - *zero, .length = length};
}

/// The painter would premultiply word by word.
QImage ready_to_blend(const QImage &band)
{
    return band.format() == QImage::Format_ARGB32 ? band.convertToFormat(QImage::Format_ARGB32_Premultiplied) : band;
}

/// Reads @p across by @p down colours of @p page, band by band, and hands each band and its first row to
/// @p drawBand.
template <typename DrawBand>
void for_each_band(const QImage &page, const Samples &across, const Samples &down, const DrawBand &drawBand)
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
                          down.source + row + y);
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
    for_each_band(page, across, down, [&](const QImage &band, int row) {
        painter.drawImage(QPoint(across.first, down.first + row), band);
    });
}

} // namespace

Q3CanvasPixmap::Q3CanvasPixmap(const QImage &image) : m_image(to_page_format(image)) { }

void Q3CanvasPixmap::draw(QPainter &painter, const QPoint &at) const
{
    if (isNull())
        return;
    const QTransform device = painter.deviceTransform();
    const bool smooth = painter.testRenderHint(QPainter::SmoothPixmapTransform);
    if (!smooth && is_reduced(painter, device)) {
        drawAverages(painter, at);
        return;
    }
    m_averages.clear();
    if (smooth || !is_plain_zoom(device)) {
        painter.drawImage(at, m_image);
        return;
    }
    const QRect target = device.mapRect(QRectF(at, m_image.size())).toRect();
    const QRect shown = device.mapRect(exposed_part(painter)).toAlignedRect() & target;
    const QRect part = device.inverted().mapRect(QRectF(shown)).toAlignedRect().translated(-at) & m_image.rect();
    draw_magnified(painter, m_image, at, part);
}

void Q3CanvasPixmap::drawAverages(QPainter &painter, const QPoint &at) const
{
    const QTransform device = painter.deviceTransform();
    const QTransform world = painter.worldTransform();
    const QRectF window = world.inverted().mapRect(QRectF(painter.window()));
    const double scale = device.m11();
    QPoint origin;
    const ReducedPlane plane{.across = reduced_axis(device.dx() + at.x() * scale, scale, m_image.width(), &origin.rx()),
                             .down = reduced_axis(device.dy() + at.y() * scale, scale, m_image.height(), &origin.ry())};
    const QRect visible = device.mapRect(window).toAlignedRect().translated(-origin) & plane.shown();
    const QRect exposed = device.mapRect(exposed_part(painter)).toAlignedRect().translated(-origin) & visible;

    painter.setWorldTransform(device.inverted() * world); // one unit is now one device pixel
    m_averages.draw(painter, origin, m_image, plane, exposed, visible.size());
    painter.setWorldTransform(world);
}
