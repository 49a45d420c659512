#pragma once

#include "Q3CanvasItem.h"

#include <QColor>
#include <QList>
#include <QObject>
#include <QRegion>
#include <QSize>

class Q3CanvasView;

/// A plane with a size and a background colour, the items on it, and the views that show it.
///
/// Changes are only marked; update() asks the views to repaint what is marked.
///
/// Units:     canvas coordinates, from (0,0) to the size.
/// Ownership: deletes the items that are still on it when it is destroyed, and leaves its views.
class Q3Canvas : public QObject
{
    Q_OBJECT

public:
    explicit Q3Canvas(QObject *parent = nullptr, const char *name = nullptr);
    Q_DISABLE_COPY_MOVE(Q3Canvas)
    ~Q3Canvas() override;

    [[nodiscard]] int width() const { return m_size.width(); }
    [[nodiscard]] int height() const { return m_size.height(); }
    [[nodiscard]] QSize size() const { return m_size; }
    [[nodiscard]] QRect rect() const { return {QPoint(0, 0), m_size}; }

    /// Changes the size, marks everything and emits resized(). The present size does nothing.
    void resize(int width, int height);

    [[nodiscard]] QColor backgroundColor() const { return m_backgroundColor; }

    /// Also becomes the background of the views' viewports, and marks everything. White at first.
    void setBackgroundColor(const QColor &color);

    /// All items, also the hidden ones, in no useful order.
    [[nodiscard]] Q3CanvasItemList allItems() const { return m_items; }

    /// The visible items at @p point, highest z first. Rectangles count with their insides and reach two
    /// pixels further, sprites one.
    [[nodiscard]] Q3CanvasItemList collisions(const QPoint &point) const;

    /// Marks @p area and a margin around it, cut to the canvas.
    void setChanged(const QRect &area);

    /// Takes the marks off @p area exactly.
    void setUnchanged(const QRect &area);

    void setAllChanged();

    /// Draws the visible items, lowest z first. The painter is in canvas coordinates.
    void drawItems(QPainter &painter) const;

    /// The areas that drawItems() covers wholly and opaquely.
    [[nodiscard]] QList<QRect> opaqueRects() const;

public slots:
    /// Asks each view to repaint the marked area in its visible part, if there is any, and takes these
    /// marks off.
    void update();

signals:
    void resized();

private:
    friend class Q3CanvasItem; // joins and leaves
    friend class Q3CanvasView; // joins and leaves

    void addItem(Q3CanvasItem *item) { m_items.append(item); }
    void removeItem(Q3CanvasItem *item) { m_items.removeOne(item); }
    void addView(Q3CanvasView *view) { m_views.append(view); }
    void removeView(Q3CanvasView *view) { m_views.removeOne(view); }
    [[nodiscard]] Q3CanvasItemList visibleItems() const;

    Q3CanvasItemList m_items;
    QList<Q3CanvasView *> m_views;
    QRegion m_changed;
    QSize m_size{0, 0};
    QColor m_backgroundColor{Qt::white};
};
