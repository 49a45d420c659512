#pragma once

#include <QAbstractScrollArea>
#include <QPoint>
#include <QSize>

/// A framed window onto contents that may be larger than it, with scroll bars that show when needed.
///
/// It keeps the position of the contents itself and announces every move before it happens. Mouse,
/// context menu and wheel events of the viewport reach the contents...Event() functions with positions
/// in contents coordinates; in a drag beyond the viewport these run below 0 or past the size.
///
/// Units: pixels of the screen. Contents coordinates count from the top left of the contents, viewport
///        coordinates from the top left of the visible part.
/// It takes no focus and knows no keys. A disabled viewport passes no event on.
class Q3ScrollView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit Q3ScrollView(QWidget *parent = nullptr, const char *name = nullptr, Qt::WindowFlags flags = {});

    /// The contents point at the top left of the viewport.
    [[nodiscard]] int contentsX() const { return m_offset.x(); }
    [[nodiscard]] int contentsY() const { return m_offset.y(); }

    [[nodiscard]] int contentsWidth() const { return m_contents.width(); }
    [[nodiscard]] int contentsHeight() const { return m_contents.height(); }

    [[nodiscard]] int visibleWidth() const { return viewport()->width(); }
    [[nodiscard]] int visibleHeight() const { return viewport()->height(); }

    [[nodiscard]] QPoint viewportToContents(const QPoint &point) const { return point + m_offset; }
    [[nodiscard]] QPoint contentsToViewport(const QPoint &point) const { return point - m_offset; }

    /// That of the base class, kept: a window with many tabs asks each of them again and again.
    [[nodiscard]] QSize minimumSizeHint() const override;

public slots:
    /// Stores the size at once. Scroll bars and position follow from the event loop, or with the next
    /// resize of the view: contents that end inside the view then move until they fill it.
    void resizeContents(int width, int height);

    /// Moves the contents so that (x, y) lies at the top left, as far as their right and bottom edges
    /// do not leave the view.
    void setContentsPos(int x, int y);

    /// Moves the visible part by (dx, dy). What stays in view may be taken along as it is on the screen: changes of it
    /// have to be asked for by update().
    void scrollBy(int dx, int dy);

    /// Moves the contents by as little as shows the point (x, y).
    /// @param xMargin, yMargin  least distance of the point to the edges, at most half the visible size.
    ///                          With 0 a point right of or below the view ends one pixel outside it.
    void ensureVisible(int x, int y, int xMargin = 50, int yMargin = 50);

signals:
    /// The contents are about to move to (x, y): contentsX() and contentsY() still are the old ones.
    void contentsMoving(int x, int y);

protected:
    /// The press of a double click included, unless contentsMouseDoubleClickEvent() is overridden.
    virtual void contentsMousePressEvent(QMouseEvent *event);
    virtual void contentsMouseReleaseEvent(QMouseEvent *event);
    virtual void contentsMouseDoubleClickEvent(QMouseEvent *event);
    virtual void contentsMouseMoveEvent(QMouseEvent *event);
    virtual void contentsContextMenuEvent(QContextMenuEvent *event);

    /// Ignored by default; an ignored event goes to the scroll bar of its direction.
    virtual void contentsWheelEvent(QWheelEvent *event);

    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void updateScrollBars();
    enum class Painting { All, WhatComesIntoView };
    void moveContents(int x, int y, Painting painting = Painting::All);
    [[nodiscard]] bool mostCanBeTakenAlong(QPoint by) const;
    void showPositionInBars();
    [[nodiscard]] QSize visibleSizeWithBars() const;
    [[nodiscard]] bool forwardMouseEvent(QMouseEvent *event);
    [[nodiscard]] bool forwardContextMenuEvent(QContextMenuEvent *event);
    [[nodiscard]] bool forwardWheelEvent(QWheelEvent *event);

    bool m_bBarsDue = false; ///< the bars do not fit the contents yet
    QSize m_contents;
    QPoint m_offset;
    mutable QSize m_leastSize; ///< invalid until asked for
    mutable int m_frameOfLeastSize = 0;
    bool m_bUpdatingBars = false; ///< changes of the bars come from here, not from the user
};
