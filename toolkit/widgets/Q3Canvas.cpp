#include "Q3Canvas.h"

#include "Q3CanvasView.h"

#include <QLatin1StringView>

#include <algorithm>
#include <utility>

namespace {

// Canvas pixels around a mark. At small zooms a screen pixel shows 16 canvas pixels, and rounding may take
// any of them for its own.
constexpr int MarkMargin = 16;

} // namespace

Q3Canvas::Q3Canvas(QObject *parent, const char *name) : QObject(parent)
{
    setObjectName(QLatin1StringView(name));
}

Q3Canvas::~Q3Canvas()
{
    for (Q3CanvasView *view : std::exchange(m_views, {}))
        view->canvasDestroyed();
    for (Q3CanvasItem *item : std::exchange(m_items, {})) {
        item->m_canvas = nullptr;
        delete item;
    }
}

void Q3Canvas::resize(int width, int height)
{
    const QSize size(width, height);
    if (size == m_size)
        return;
    m_size = size;
    setAllChanged();
    emit resized();
}

void Q3Canvas::setBackgroundColor(const QColor &color)
{
    if (color == m_backgroundColor)
        return;
    m_backgroundColor = color;
    for (Q3CanvasView *view : std::as_const(m_views))
        view->setViewportColor(color);
    setAllChanged();
}

Q3CanvasItemList Q3Canvas::collisions(const QPoint &point) const
{
    // The probe is two pixels wide and high; that is where the reach of a hit comes from.
    const QRect probe(point, QSize(2, 2));
    if (!probe.intersects(rect()))
        return {};

    Q3CanvasItemList hits;
    for (Q3CanvasItem *item : std::as_const(m_items)) {
        if (item->isVisible() && item->boundingRect().intersects(probe))
            hits.append(item);
    }
    std::stable_sort(hits.begin(), hits.end(),
                     [](const Q3CanvasItem *a, const Q3CanvasItem *b) { return a->z() > b->z(); });
    return hits;
}

void Q3Canvas::setChanged(const QRect &area)
{
    if (!area.isEmpty())
        m_changed += area.adjusted(-MarkMargin, -MarkMargin, MarkMargin, MarkMargin) & rect();
}

void Q3Canvas::setUnchanged(const QRect &area)
{
    m_changed -= area;
}

void Q3Canvas::setAllChanged()
{
    m_changed = rect();
}

void Q3Canvas::drawItems(QPainter &painter) const
{
    const Q3CanvasItemList items = visibleItems();
    for (Q3CanvasItem *item : items)
        item->draw(painter);
}

QList<QRect> Q3Canvas::opaqueRects() const
{
    QList<QRect> rects;
    const Q3CanvasItemList items = visibleItems();
    for (const Q3CanvasItem *item : items)
        rects.append(item->opaqueRect());
    return rects;
}

void Q3Canvas::update()
{
    QRegion shown;
    for (Q3CanvasView *view : std::as_const(m_views)) {
        const QRegion marks = m_changed & view->visibleCanvasRect();
        if (marks.isEmpty())
            continue;
        view->updateCanvasRect(marks.boundingRect());
        shown += marks;
    }
    m_changed -= shown;
}

Q3CanvasItemList Q3Canvas::visibleItems() const
{
    Q3CanvasItemList items = m_items;
    items.removeIf([](const Q3CanvasItem *item) { return !item->isVisible(); });
    std::stable_sort(items.begin(), items.end(),
                     [](const Q3CanvasItem *a, const Q3CanvasItem *b) { return a->z() < b->z(); });
    return items;
}
