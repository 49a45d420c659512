#include "ShownAverages.h"

#include "PixelAverage.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace {

constexpr qint64 BytesPerPixel = 4;
constexpr qint64 LeastLimit = 8'000'000; // bytes

qint64 bytes_of(const QSize &size)
{
    return BytesPerPixel * size.width() * size.height();
}

qint64 byte_limit(const QSize &visible)
{
    return std::max(LeastLimit, bytes_of(visible) * 3 / 2);
}

/// The size that has the same room on all sides of the visible part, and no more than the page needs.
QSize store_size(const QSize &page, const QSize &visible)
{
    const qint64 pixels = byte_limit(visible) / BytesPerPixel;
    const double growth = std::sqrt(static_cast<double>(byte_limit(visible)) / static_cast<double>(bytes_of(visible)));
    const int width = std::min(page.width(), static_cast<int>(visible.width() * growth));
    const int height = static_cast<int>(std::min<qint64>(page.height(), pixels / width));
    return {static_cast<int>(std::min<qint64>(page.width(), pixels / height)), height};
}

/// Where a window of @p length on an axis, now at @p at, has to begin to show the pixels from @p first to @p last.
int moved(int at, int length, int first, int last)
{
    return std::clamp(at, std::max(0, last + 1 - length), first);
}

} // namespace

void ShownAverages::draw(QPainter &painter, const QPoint &origin, const QImage &page, const ReducedPlane &plane,
                         const QRect &exposed, const QSize &visible)
{
    if (exposed.isEmpty())
        return;
    if (plane != m_plane) {
        m_plane = plane;
        m_known = {};
    }
    fit(visible, PixelAverage::format(page));
    if (m_store.isNull())
        return;
    show(exposed);
    for (const QRect &missing : QRegion(exposed) - m_known)
        average(page, missing);
    m_known += exposed;

    forEachPart(exposed, [&](const QRect &part, const QPoint &stored) {
        painter.drawImage(
            origin + part.topLeft(),
            QImage(storedAt(stored), part.width(), part.height(), m_store.bytesPerLine(), m_store.format()));
    });
}

void ShownAverages::clear()
{
    *this = {};
}

/// Sees to a store that holds the visible part and stays within the limit. Has no window if there is no memory.
void ShownAverages::fit(const QSize &visible, QImage::Format format)
{
    const QSize page = m_plane.shown().size();
    const QSize size = m_store.size();
    if (size.width() >= visible.width() && size.height() >= visible.height() && m_store.format() == format
        && bytes_of(size) <= byte_limit(visible))
        return;
    const ShownAverages former = std::exchange(*this, {});
    m_plane = former.m_plane;
    m_store = QImage(store_size(page, visible), format);
    m_window = QRect(former.m_window.topLeft(), m_store.size());
    if (!m_store.isNull() && former.m_store.format() == format)
        takeOver(former);
}

/// Moves the window as little as needed.
void ShownAverages::show(const QRect &exposed)
{
    m_window.moveTo(moved(m_window.left(), m_window.width(), exposed.left(), exposed.right()),
                    moved(m_window.top(), m_window.height(), exposed.top(), exposed.bottom()));
    m_known &= m_window;
}

void ShownAverages::average(const QImage &page, const QRect &area)
{
    uchar *const bits = m_store.bits();
    const qsizetype bytesPerLine = m_store.bytesPerLine();
    forEachPart(area, [&](const QRect &part, const QPoint &stored) {
        PixelAverage averages(page, ReducedColumns(m_plane.across, part.left(), part.right() + 1));
        for (int y = 0; y < part.height(); ++y) {
            uchar *const line = bits + (stored.y() + y) * bytesPerLine + stored.x() * BytesPerPixel;
            averages.readRow(reinterpret_cast<QRgb *>(line), m_plane.down.covered(part.top() + y));
        }
    });
}

/// Copies what the store of @p former has for the window.
void ShownAverages::takeOver(const ShownAverages &former)
{
    m_known = former.m_known & m_window;
    uchar *const bits = m_store.bits();
    for (const QRect &area : std::as_const(m_known)) {
        former.forEachPart(area, [&](const QRect &from, const QPoint &source) {
            forEachPart(from, [&](const QRect &to, const QPoint &target) {
                const QPoint at = source + to.topLeft() - from.topLeft();
                for (int y = 0; y < to.height(); ++y)
                    std::memcpy(bits + (target.y() + y) * m_store.bytesPerLine() + target.x() * BytesPerPixel,
                                former.storedAt(at + QPoint(0, y)),
                                static_cast<std::size_t>(to.width()) * BytesPerPixel);
            });
        });
    }
}

/// Hands the parts of @p area to @p draw that lie in one piece in the store, with their places there.
void ShownAverages::forEachPart(const QRect &area, const Draw &draw) const
{
    const int width = m_store.width();
    const int height = m_store.height();
    for (int y = area.top(), yEnd = 0; y <= area.bottom(); y = yEnd) {
        yEnd = std::min(y - y % height + height, area.bottom() + 1);
        for (int x = area.left(), xEnd = 0; x <= area.right(); x = xEnd) {
            xEnd = std::min(x - x % width + width, area.right() + 1);
            draw(QRect(x, y, xEnd - x, yEnd - y), QPoint(x % width, y % height));
        }
    }
}

const uchar *ShownAverages::storedAt(const QPoint &stored) const
{
    return m_store.constScanLine(stored.y()) + stored.x() * BytesPerPixel;
}
