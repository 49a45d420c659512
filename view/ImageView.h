#pragma once

#include "FactorTableMixIn.h"
#include "Q3CanvasView.h"

#include <QPoint>
#include <QRect>
#include <QString>

#include <memory>

class ImageItem;
class Q3Canvas;
class QImage;
class RubberItem;

/// The scrolling canvas that shows one page: eight zoom steps, scrolling by hand, and a selection that is
/// drawn, moved and resized with the mouse. It is handed images and knows no documents.
///
/// Units:     canvas points are image pixels; contents points are screen pixels of the zoomed picture.
/// Zoom:      index 0 is the largest picture (8:1), 3 is 1:1, 7 the smallest (1:16).
/// Ownership: owns its canvas and the two items on it.
/// Threads:   GUI thread only.
class ImageView : public Q3CanvasView, public FactorTableMixIn
{
    Q_OBJECT

public:
    explicit ImageView(QWidget *parent);
    ~ImageView() override;

    Q_DISABLE_COPY_MOVE(ImageView)

    /// Shows one image pixel as @p factor screen pixels. Always true.
    bool setScale(double factor);

    /// @param index  0 to 7; not tested
    bool setZoomIndex(int index);

    [[nodiscard]] int zoomIndex() const { return m_factorIndex; }

    [[nodiscard]] ImageItem *imageItem() const { return m_imageItem.get(); }

    /// Gives the item a picture and shows it. The canvas keeps its size.
    [[nodiscard]] bool setImage(const QImage &image);

    /// Stores the page number, counted from 1; changes no picture.
    void setCurrentPage(uint page);

    [[nodiscard]] uint currentPage() const { return m_currentPage; }

    /// Puts a changed picture in place, fits the canvas to it and ends the selection.
    /// @param page  not used: there is one picture, not one a page
    void replaceImage(uint page, const QImage &image);

    [[nodiscard]] bool hasSelection() const;

    /// The selected rectangle in image pixels, the null QRect without one. A rectangle drawn towards the
    /// top left may have a negative width or height.
    [[nodiscard]] QRect selection() const;

    /// What the status bar says of the canvas point @p point.
    [[nodiscard]] QString statusText(const QPoint &point) const;

    /// Brings the contents point @p position into view, again and again while the pointer stays outside.
    void autoScroll(const QPoint &position);

public slots:
    /// Switches free-hand scrolling, in which a drag moves the picture instead of selecting.
    void OnToggleScroll(bool bEnabled);

    /// One step larger; false if the picture is at its largest already.
    bool zoomIn();

    /// One step smaller; false if the picture is at its smallest already.
    bool zoomOut();

    /// The lowest zoom index that may be offered: every size is offered always.
    int zoomIndexLimit() { return 0; }

signals:
    void statusChanged(QString text);

    /// The selection has appeared or disappeared.
    void selectionChanged();

protected:
    bool event(QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void contentsMousePressEvent(QMouseEvent *event) override;
    void contentsMouseReleaseEvent(QMouseEvent *event) override;
    void contentsMouseMoveEvent(QMouseEvent *event) override;

    /// The part of the contents that is in view.
    [[nodiscard]] QRect visibleContents() const;

    /// Repaints the visible part of the canvas and nothing else.
    void repaintVisible();

    uint m_currentPage = 0;

private:
    [[nodiscard]] QPoint canvasPoint(const QPoint &contentsPoint) const;
    [[nodiscard]] bool rubberIsTopMostAt(const QPoint &point) const;
    void hideSelection();
    void stopScrollTimer();
    void endGesture(const QPoint &contentsPoint);
    [[nodiscard]] bool isGestureUnderWay() const;
    [[nodiscard]] bool isHandScrolling() const { return m_bFreeHandScrollingOn && m_bDragging; }
    void startSelection(const QPoint &point);
    void scrollByHand(const QPoint &contentsPoint);
    bool showBegunSelection(const QPoint &point);
    bool reshapeSelection(const QPoint &contentsPoint, const QPoint &point);
    bool showHoverCursor(const QPoint &point);

    std::unique_ptr<Q3Canvas> m_canvas;
    std::unique_ptr<ImageItem> m_imageItem;
    std::unique_ptr<RubberItem> m_rubber;
    bool m_bSelecting = false; ///< a left press on the image has begun a new selection
    QPoint m_selectionStart; ///< canvas point of that press
    QPoint m_dragStart; ///< contents point of the press that began a free-hand drag
    bool m_bFreeHandScrollingOn = false;
    bool m_bDragging = false; ///< a free-hand drag is under way
    int m_scrollTimer = 0; ///< id of the auto-scroll timer, 0 when none runs
};
