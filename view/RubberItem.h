#pragma once

#include "Q3CanvasRectangle.h"

#include <QPoint>
#include <QRect>
#include <QString>

/// The selection rectangle of an ImageView, with eight grips on its edges and corners.
///
/// Units:  canvas coordinates, which are image pixels. Width and height may be negative: a rectangle
///         drawn towards the top left stays backwards, see setMode().
/// Ownership: the view's; taken off its canvas before it is destroyed.
class RubberItem : public Q3CanvasRectangle
{
public:
    enum Mode : int {
        RubberIdle = 0,
        RubberNew = 1, ///< set by the construction and by nothing else
        RubberOverHandle = 2,
        RubberResizing = 3,
        RubberMoving = 5,
    };

    /// The grips, clockwise from the top left.
    enum Handle : unsigned int {
        FreeCorner = 0, ///< no grip: the bottom right corner of a new rectangle
        TopLeft = 1,
        Top = 2,
        TopRight = 3,
        Right = 4,
        BottomRight = 5,
        Bottom = 6,
        BottomLeft = 7,
        Left = 8,
    };

    static constexpr int Rtti = 984380;

    /// A rectangle without width and height at (0,0), hidden.
    explicit RubberItem(Q3Canvas *canvas);

    [[nodiscard]] int rtti() const override { return rubberRtti(); }
    [[nodiscard]] virtual int rubberRtti() const { return Rtti; }

    [[nodiscard]] int mode() const { return m_mode; }

    /// Stores @p mode. The first call in the life of the item turns a backwards rectangle the right way
    /// round; no later call does.
    void setMode(int mode);

    /// Begins a move of the whole rectangle that is held at @p point.
    void startMove(const QPoint &point);

    void setRect(const QRect &rect);

    /// The corners: left and top, and the last column and row of the rectangle.
    void coords(int *x1, int *y1, int *x2, int *y2) const;

    /// Finds the part of the rectangle under @p point and remembers it as mode and handle.
    /// @param inverseScale  image pixels per screen pixel; keeps the grips three screen pixels wide
    /// @return a Qt::CursorShape; Qt::BitmapCursor stands for the open hand
    [[nodiscard]] int hitTest(const QPoint &point, double inverseScale);

    /// Drags the current handle to @p point. Held by a grip the rectangle stays on the canvas and at
    /// least 4 pixels wide and high; the free corner may cross the start.
    void resizeTo(const QPoint &point);

    /// Moves the rectangle by the way from the point it is held at to @p point, within the canvas.
    void moveTo(const QPoint &point);

    /// One line of state for a log, which nobody writes so far.
    [[nodiscard]] QString dump() const;

private:
    [[nodiscard]] QRect rectangle() const;
    [[nodiscard]] int left() const;
    [[nodiscard]] int top() const;
    [[nodiscard]] int clampLeft(int value) const;
    [[nodiscard]] int clampTop(int value) const;
    [[nodiscard]] int clampRight(int value) const;
    [[nodiscard]] int clampBottom(int value) const;

    unsigned int m_handle = FreeCorner;
    int m_mode = RubberNew;
    QPoint m_anchor; ///< canvas point that a move is measured from
};
