#include "Q3CanvasItem.h"

#include "Q3Canvas.h"

Q3CanvasItem::Q3CanvasItem(Q3Canvas *canvas) : m_canvas(canvas)
{
    if (m_canvas)
        m_canvas->addItem(this);
}

Q3CanvasItem::~Q3CanvasItem()
{
    if (m_canvas)
        m_canvas->removeItem(this);
}

void Q3CanvasItem::moveBy(double dx, double dy)
{
    if (dx == 0.0 && dy == 0.0)
        return;
    markChanged();
    m_x += dx;
    m_y += dy;
    markChanged();
}

void Q3CanvasItem::setZ(double z)
{
    m_z = z;
    markChanged();
}

void Q3CanvasItem::setCanvas(Q3Canvas *canvas)
{
    const bool visible = m_visible;
    hide();
    if (m_canvas)
        m_canvas->removeItem(this);
    m_canvas = canvas;
    if (m_canvas)
        m_canvas->addItem(this);
    setVisible(visible);
}

void Q3CanvasItem::setVisible(bool visible)
{
    if (visible == m_visible)
        return;
    markChanged();
    m_visible = visible;
    markChanged();
}

void Q3CanvasItem::markChanged(const QRect &area) const
{
    if (m_visible && m_canvas)
        m_canvas->setChanged(area);
}

void Q3CanvasItem::markChanged() const
{
    if (m_visible && m_canvas)
        m_canvas->setChanged(boundingRect());
}
