#include "Q3CanvasPixmap.h"

#include "magnified_row.h"
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

/// Reads @p part of @p page, band by band, and hands each band and its first row on the page to @p drawBand.
template <typename DrawBand> void for_each_band(const QImage &page, const QRect &part, const DrawBand &drawBand)
{
    if (part.isEmpty())
        return;
    const PixelFetch fetch(page);
    const int bandHeight = std::clamp(BandPixels / part.width(), 1, part.height());
    QImage band(part.width(), bandHeight, fetch.format());
    if (band.isNull())
        return;
    uchar *const bits = band.bits();
    const qsizetype bytesPerLine = band.bytesPerLine();

    for (int row = 0; row < part.height(); row += bandHeight) {
        const int height = std::min(bandHeight, part.height() - row);
        for (int y = 0; y < height; ++y)
            fetch.readRow(reinterpret_cast<QRgb *>(bits + y * bytesPerLine), part.width(), part.left(),
                          part.top() + row + y);
        drawBand(ready_to_blend(QImage(bits, part.width(), height, bytesPerLine, band.format())), part.top() + row);
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

/// Draws @p part of a page in its own size.
void draw_unscaled(QPainter &painter, const QImage &page, const QPoint &at, const QRect &part)
{
    if (page.format() == QImage::Format_RGB32) {
        draw_in_place(painter, page, at, part);
        return;
    }
    for_each_band(page, part,
                  [&](const QImage &band, int row) { painter.drawImage(at + QPoint(part.left(), row), band); });
}

/// A page that is magnified by a whole number, in pixels of the device.
struct Magnified
{
    QPoint origin; ///< where the page begins
    int factor = 1;
    QRect shown; ///< what is to be drawn, all of it on the page

    /// What @p shown shows, in pixels of the page.
    [[nodiscard]] QRect part() const
    {
        const QPoint first = shown.topLeft() - origin, last = shown.bottomRight() - origin;
        return {QPoint(first.x() / factor, first.y() / factor), QPoint(last.x() / factor, last.y() / factor)};
    }
};

/// Draws some rows of a page's part. The painter would look the page up for each pixel of the device; here a line of
/// squares is made once and copied as often as the squares are high.
/// @param rows  of the part, null if there was no memory for them; the first one is the page's row @p firstRow
void draw_squares(QPainter &painter, const Magnified &page, const QImage &rows, int firstRow)
{
    if (rows.isNull())
        return;
    const QRect lines(page.shown.left(), page.origin.y() + firstRow * page.factor, page.shown.width(),
                      rows.height() * page.factor);
    const QRect shown = page.shown & lines;
    const int bandHeight = std::clamp(BandPixels / shown.width(), 1, shown.height());
    QImage band(shown.width(), bandHeight, rows.format());
    if (band.isNull())
        return;
    uchar *const bits = band.bits();
    const qsizetype bytesPerLine = band.bytesPerLine();
    const int skipped = (shown.left() - page.origin.x()) % page.factor;

    for (int top = 0; top < shown.height(); top += bandHeight) {
        const int height = std::min(bandHeight, shown.height() - top);
        int rowBefore = -1;
        for (int y = 0; y < height; ++y) {
            const int row = (shown.top() + top + y - lines.top()) / page.factor;
            uchar *const line = bits + y * bytesPerLine;
            if (row == rowBefore)
                std::copy_n(line - bytesPerLine, bytesPerLine, line);
            else
                magnify_row(reinterpret_cast<const QRgb *>(rows.constScanLine(row)), page.factor, skipped,
                            reinterpret_cast<QRgb *>(line), shown.width());
            rowBefore = row;
        }
        painter.drawImage(shown.topLeft() + QPoint(0, top),
                          QImage(bits, shown.width(), height, bytesPerLine, band.format()));
    }
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
    if (smooth || painter.opacity() < 1 || !is_plain_zoom(device)) {
        painter.drawImage(at, m_image);
        return;
    }
    const QRect target = device.mapRect(QRectF(at, m_image.size())).toRect();
    const QRect shown = device.mapRect(exposed_part(painter)).toAlignedRect() & target;
    if (shown.isEmpty())
        return;
    const Magnified page{.origin = target.topLeft(), .factor = static_cast<int>(device.m11()), .shown = shown};
    if (page.factor == 1) {
        draw_unscaled(painter, m_image, at, page.part());
        return;
    }
    const QTransform world = painter.worldTransform();
    painter.setWorldTransform(device.inverted() * world); // one unit is now one device pixel
    for_each_band(m_image, page.part(),
                  [&](const QImage &rows, int firstRow) { draw_squares(painter, page, rows, firstRow); });
    painter.setWorldTransform(world);
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
