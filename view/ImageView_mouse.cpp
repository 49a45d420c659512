#include "classic_rect.h"
#include "hand_cursors.h"
#include "ImageItem.h"
#include "ImageView.h"
#include "Q3Canvas.h"
#include "RubberItem.h"

#include <QMouseEvent>
#include <QTimerEvent>
#include <QTransform>

namespace {

constexpr int AutoScrollIntervalMs = 50;

} // namespace

QPoint ImageView::canvasPoint(const QPoint &contentsPoint) const
{
    // Intended: to the nearest, so that in the right half of an enlarged pixel the next one is meant.
    return inverseWorldMatrix().map(contentsPoint);
}

bool ImageView::rubberIsTopMostAt(const QPoint &point) const
{
    const Q3CanvasItemList hit = m_canvas->collisions(point);
    return !hit.isEmpty() && hit.first()->rtti() == RubberItem::Rtti;
}

void ImageView::contentsMousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;

    if (m_bFreeHandScrollingOn) {
        setCursor(closed_hand_cursor());
        m_bDragging = true;
        m_dragStart = event->position().toPoint();
        return;
    }

    const QPoint point = canvasPoint(event->position().toPoint());
    if (rubberIsTopMostAt(point)) {
        if (m_rubber->mode() == RubberItem::RubberOverHandle) {
            m_rubber->setMode(RubberItem::RubberResizing);
        } else {
            setCursor(closed_hand_cursor());
            m_rubber->startMove(point);
        }
        return;
    }
    startSelection(point);
}

void ImageView::startSelection(const QPoint &point)
{
    setCursor(Qt::CrossCursor);
    hideSelection();

    // Intended: a press beside the picture ends the selection too, but begins none.
    if (m_canvas->collisions(point).isEmpty())
        return;
    m_bSelecting = true;
    m_selectionStart = point;
}

void ImageView::contentsMouseReleaseEvent(QMouseEvent *event)
{
    endGesture(event->position().toPoint());
}

void ImageView::endGesture(const QPoint &contentsPoint)
{
    if (m_bFreeHandScrollingOn) {
        setCursor(open_hand_cursor());
        m_bDragging = false;
        return;
    }

    stopScrollTimer();
    m_bSelecting = false;
    if (m_rubber->isVisible()) {
        m_rubber->setMode(RubberItem::RubberIdle);
        m_canvas->update(); // it may have been turned, and no move may follow
    }

    setCursor(rubberIsTopMostAt(canvasPoint(contentsPoint)) ? open_hand_cursor() : QCursor(Qt::ArrowCursor));
}

bool ImageView::isGestureUnderWay() const
{
    const int mode = m_rubber->mode();
    return m_bSelecting || m_bDragging || mode == RubberItem::RubberResizing || mode == RubberItem::RubberMoving;
}

bool ImageView::event(QEvent *event)
{
    // A box stands in front: the pointer is its own now, and the view would not hear of a release.
    if (event->type() == QEvent::WindowBlocked)
        stopScrollTimer();
    // Nothing is kept for tabs that do not show: there may be many of them.
    if (event->type() == QEvent::Hide)
        m_imageItem->image()->forgetAverages();
    return Q3CanvasView::event(event);
}

void ImageView::contentsMouseMoveEvent(QMouseEvent *event)
{
    if (isHandScrolling())
        m_canvas->update(); // the scrolling paints what comes into view alone
    m_canvas->setUnchanged(QRect(QPoint(0, 0), m_canvas->size()));

    const QPoint contentsPoint = event->position().toPoint();
    const QPoint point = canvasPoint(contentsPoint);
    if (isGestureUnderWay() && !event->buttons().testFlag(Qt::LeftButton))
        endGesture(contentsPoint); // the button was let go over a box
    // A selection that stretches or moves has marked what it left and what it covers now.
    const bool reshapes = reshapeSelection(contentsPoint, point);
    const bool scrolls = isHandScrolling();
    if (scrolls)
        scrollByHand(contentsPoint);
    const bool repaint = !scrolls && !reshapes && (showBegunSelection(point) || showHoverCursor(point));

    emit statusChanged(statusText(point));
    if (repaint)
        repaintVisible();
    else if (reshapes)
        m_canvas->update();
}

/// Takes the grabbed point to the pointer. Its start stays: positions are contents coordinates.
void ImageView::scrollByHand(const QPoint &contentsPoint)
{
    const QPoint by = m_dragStart - contentsPoint;
    if (m_rubber->isVisible()) // the dashes of its outline count from the edge of what is in view
        setContentsPos(contentsX() + by.x(), contentsY() + by.y());
    else
        scrollBy(by.x(), by.y());
}

/// Shows the selection that a press has begun. False if none waits to be shown.
bool ImageView::showBegunSelection(const QPoint &point)
{
    if (!m_bSelecting || m_rubber->isVisible())
        return false;
    m_rubber->setSize(point.x() - m_selectionStart.x() + 1, point.y() - m_selectionStart.y() + 1);
    m_rubber->move(m_selectionStart.x(), m_selectionStart.y());
    m_rubber->show();
    emit selectionChanged();
    setCursor(Qt::CrossCursor);
    return true;
}

/// Takes the shown selection along with the pointer. False if no gesture holds it.
bool ImageView::reshapeSelection(const QPoint &contentsPoint, const QPoint &point)
{
    if (!m_rubber->isVisible() || isHandScrolling())
        return false;
    if (m_bSelecting || m_rubber->mode() == RubberItem::RubberResizing) {
        autoScroll(contentsPoint);
        m_rubber->resizeTo(point);
        return true;
    }
    if (m_rubber->mode() == RubberItem::RubberMoving) {
        autoScroll(contentsPoint);
        m_rubber->moveTo(point);
        return true;
    }
    return false;
}

/// Shows what a press at @p point would do. False if nothing has changed, which saves the repaint of
/// every plain move over the picture.
bool ImageView::showHoverCursor(const QPoint &point)
{
    if (rubberIsTopMostAt(point)) {
        const int shape = m_rubber->hitTest(point, inverseWorldMatrix().m11());
        setCursor(shape == Qt::BitmapCursor ? open_hand_cursor() : QCursor(static_cast<Qt::CursorShape>(shape)));
        return true;
    }

    // Intended: this also takes the open hand of free-hand scrolling away until the next press.
    if (cursor().shape() == Qt::ArrowCursor)
        return false;
    setCursor(Qt::ArrowCursor);
    return true;
}

void ImageView::autoScroll(const QPoint &position)
{
    ensureVisible(position.x(), position.y(), 0, 0);

    const bool inside = classic_contains(visibleContents(), position, true);
    if (inside)
        stopScrollTimer();
    else if (m_scrollTimer == 0)
        m_scrollTimer = startTimer(AutoScrollIntervalMs);
}

void ImageView::stopScrollTimer()
{
    killTimer(m_scrollTimer); // nothing for 0
    m_scrollTimer = 0;
}

void ImageView::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_scrollTimer)
        return;

    // Intended: a frame counts in here, though not in the positions of events, so a framed view goes on further.
    const QPoint position = viewportToContents(mapFromGlobal(QCursor::pos()));
    ensureVisible(position.x(), position.y(), 0, 0);
    if (!m_rubber->isVisible())
        return;

    // Intended: while a new selection is drawn only the view moves; the rectangle follows at the next move.
    const QPoint point = canvasPoint(position);
    if (m_rubber->mode() == RubberItem::RubberResizing)
        m_rubber->resizeTo(point);
    else if (m_rubber->mode() == RubberItem::RubberMoving)
        m_rubber->moveTo(point);
    else
        return;
    repaintVisible();
}
