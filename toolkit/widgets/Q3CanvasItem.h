#pragma once

#include <QList>
#include <QRect>

class Q3Canvas;
class QPainter;

/// A thing that is drawn on a Q3Canvas: hidden at first, at (0,0) with z 0.
///
/// Every change marks the areas it concerns on the canvas and paints nothing: that waits for
/// Q3Canvas::update(). A hidden item, and one without a canvas, marks nothing.
///
/// Units:     canvas coordinates; where a position is used as a pixel it is truncated towards zero.
/// Ownership: the caller's, but a canvas that is destroyed deletes the items that are still on it.
class Q3CanvasItem
{
public:
    static constexpr int Rtti = 0;

    /// @param canvas  may be null
    explicit Q3CanvasItem(Q3Canvas *canvas);
    Q_DISABLE_COPY_MOVE(Q3CanvasItem)
    virtual ~Q3CanvasItem();

    /// Kind of the item: 0 to 5 for the classes of this folder, own kinds above 1000.
    [[nodiscard]] virtual int rtti() const { return Rtti; }

    [[nodiscard]] double x() const { return m_x; }
    [[nodiscard]] double y() const { return m_y; }
    [[nodiscard]] double z() const { return m_z; }

    void move(double x, double y) { moveBy(x - m_x, y - m_y); }
    void moveBy(double dx, double dy);

    /// Items with a higher z are drawn over those with a lower one.
    void setZ(double z);

    [[nodiscard]] Q3Canvas *canvas() const { return m_canvas; }

    /// Takes the item from its canvas to @p canvas, which may be null. isVisible() stays what it is.
    void setCanvas(Q3Canvas *canvas);

    /// The item's own flag, wherever it lies.
    [[nodiscard]] bool isVisible() const { return m_visible; }
    void setVisible(bool visible);
    void show() { setVisible(true); }
    void hide() { setVisible(false); }

    /// Draws the item in canvas coordinates. It need not restore pen and brush.
    virtual void draw(QPainter &painter) = 0;

    /// The area that collisions and change marks go by.
    [[nodiscard]] virtual QRect boundingRect() const = 0;

    /// An area that draw() covers wholly and opaquely. What lies beneath need not be painted.
    [[nodiscard]] virtual QRect opaqueRect() const { return {}; }

protected:
    /// Marks @p area changed on the canvas, if the item is on one and visible.
    void markChanged(const QRect &area) const;

    /// Marks the present area, unless the item is hidden.
    void markChanged() const;

private:
    friend class Q3Canvas; // lets go of its items when it is destroyed

    Q3Canvas *m_canvas = nullptr;
    double m_x = 0.0;
    double m_y = 0.0;
    double m_z = 0.0;
    bool m_visible = false;
};

using Q3CanvasItemList = QList<Q3CanvasItem *>;
