#include "Q3CanvasRectangle.h"

#include <QPainter>

#include <algorithm>

Q3CanvasRectangle::Q3CanvasRectangle(Q3Canvas *canvas) : Q3CanvasRectangle(QRect(0, 0, 32, 32), canvas) { }

Q3CanvasRectangle::Q3CanvasRectangle(const QRect &rect, Q3Canvas *canvas) : Q3CanvasItem(canvas), m_size(rect.size())
{
    move(rect.x(), rect.y());
}

Q3CanvasRectangle::~Q3CanvasRectangle()
{
    markChanged(Q3CanvasRectangle::boundingRect());
}

void Q3CanvasRectangle::setSize(int width, int height)
{
    const QSize size(width, height);
    if (size == m_size)
        return;
    markChanged();
    m_size = size;
    markChanged();
}

void Q3CanvasRectangle::setPen(const QPen &pen)
{
    if (pen == m_pen)
        return;
    markChanged();
    m_pen = pen;
    markChanged();
}

void Q3CanvasRectangle::setBrush(const QBrush &brush)
{
    m_brush = brush;
    markChanged();
}

void Q3CanvasRectangle::draw(QPainter &painter)
{
    painter.setPen(m_pen);
    painter.setBrush(m_brush);
    painter.drawRect(static_cast<int>(x()), static_cast<int>(y()), width(), height());
}

QRect Q3CanvasRectangle::boundingRect() const
{
    const int reach = m_pen.style() == Qt::NoPen ? 0 : std::max(1, (m_pen.width() + 1) / 2);
    const QPoint position(static_cast<int>(x()), static_cast<int>(y()));
    const auto [left, right] = std::minmax({position.x() - reach, position.x() + width() + reach});
    const auto [top, bottom] = std::minmax({position.y() - reach, position.y() + height() + reach});
    return {QPoint(left, top), QPoint(right, bottom)};
}
