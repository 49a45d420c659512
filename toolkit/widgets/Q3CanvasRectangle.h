#pragma once

#include "Q3CanvasItem.h"

#include <QBrush>
#include <QPen>
#include <QSize>

/// An outlined, perhaps filled, rectangle. It begins with a black pen of width 0, which is one screen
/// pixel at every zoom, and no brush.
///
/// Width and height may be negative: such a rectangle lies left of and above its position.
class Q3CanvasRectangle : public Q3CanvasItem
{
public:
    static constexpr int Rtti = 5;

    /// 32 by 32 at (0,0). The program makes its rectangles with a place and a size.
    explicit Q3CanvasRectangle(Q3Canvas *canvas);

    /// Position and size of @p rect; a null one is 0 by 0 at (0,0).
    Q3CanvasRectangle(const QRect &rect, Q3Canvas *canvas);
    Q_DISABLE_COPY_MOVE(Q3CanvasRectangle)
    ~Q3CanvasRectangle() override;

    [[nodiscard]] int rtti() const override { return Rtti; }

    [[nodiscard]] int width() const { return m_size.width(); }
    [[nodiscard]] int height() const { return m_size.height(); }
    [[nodiscard]] QSize size() const { return m_size; }
    void setSize(int width, int height);

    [[nodiscard]] QPen pen() const { return m_pen; }
    void setPen(const QPen &pen);

    /// For filled rectangles; the program has none so far.
    [[nodiscard]] QBrush brush() const { return m_brush; }
    void setBrush(const QBrush &brush);

    void draw(QPainter &painter) override;

    /// The rectangle grown by the pen: at least a pixel on each side, unless the pen has no style.
    [[nodiscard]] QRect boundingRect() const override;

private:
    QSize m_size;
    QPen m_pen{Qt::black, 0};
    QBrush m_brush{Qt::NoBrush};
};
