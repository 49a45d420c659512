#include "Q3ScrollView.h"

#include "CachedScrollBar.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

constexpr int LineStep = 20; // pixels

/// Pixels of the screen from which on it is cheaper to take them along than to paint them again.
constexpr qint64 LargeArea = 3LL << 18;

/// Asks a view to bring its bars up to date.
QEvent::Type bars_event()
{
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

/// The start of a visible part of @p visible pixels, now at @p origin, that shows @p point.
int origin_showing(int point, int margin, int origin, int visible, int contents)
{
    margin = std::min(margin, visible / 2);
    if (contents <= visible) {
        margin = 0;
        origin = 0;
    }
    if (point < origin + margin)
        origin = point - margin;
    else if (point >= origin + visible - margin)
        origin = point - visible + margin;
    return std::max(0, std::min(origin, contents - visible));
}

bool may_change_least_size(QEvent::Type type)
{
    switch (type) {
    case QEvent::FontChange:
    case QEvent::LayoutRequest:
    case QEvent::Polish:
    case QEvent::ScreenChangeInternal:
    case QEvent::StyleChange:
        return true;
    default:
        return false;
    }
}

} // namespace

Q3ScrollView::Q3ScrollView(QWidget *parent, const char *name, Qt::WindowFlags flags) : QAbstractScrollArea(parent)
{
    setObjectName(QLatin1StringView(name));
    if (flags != Qt::WindowFlags())
        setWindowFlags(flags);
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setLineWidth(style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFocusPolicy(Qt::NoFocus);

    setHorizontalScrollBar(new CachedScrollBar(Qt::Horizontal));
    setVerticalScrollBar(new CachedScrollBar(Qt::Vertical));
    // Each bar fills the widget that holds it, so nothing has to be painted beneath.
    for (const QScrollBar *const bar : {horizontalScrollBar(), verticalScrollBar()})
        bar->parentWidget()->setAttribute(Qt::WA_OpaquePaintEvent);
    horizontalScrollBar()->setSingleStep(LineStep);
    horizontalScrollBar()->setAccessibleName(tr("Horizontal scroll bar"));
    verticalScrollBar()->setSingleStep(LineStep);
    verticalScrollBar()->setAccessibleName(tr("Vertical scroll bar"));
}

void Q3ScrollView::resizeContents(int width, int height)
{
    m_contents = QSize(width, height);
    if (m_bBarsDue)
        return;
    m_bBarsDue = true;
    // Showing or hiding a bar paints all contents again, so that comes before they are painted; else they come first.
    const bool fits = visibleSizeWithBars() == viewport()->size();
    QCoreApplication::postEvent(this, new QEvent(bars_event()),
                                fits ? Qt::LowEventPriority - 1 : Qt::NormalEventPriority);
}

void Q3ScrollView::setContentsPos(int x, int y)
{
    moveContents(std::max(0, x), std::max(0, y));
    showPositionInBars();
}

void Q3ScrollView::scrollBy(int dx, int dy)
{
    moveContents(std::max(0, contentsX() + dx), std::max(0, contentsY() + dy), Painting::WhatComesIntoView);
    showPositionInBars();
}

void Q3ScrollView::ensureVisible(int x, int y, int xMargin, int yMargin)
{
    setContentsPos(origin_showing(x, xMargin, contentsX(), visibleWidth(), contentsWidth()),
                   origin_showing(y, yMargin, contentsY(), visibleHeight(), contentsHeight()));
}

void Q3ScrollView::contentsMousePressEvent(QMouseEvent * /*event*/) { }

void Q3ScrollView::contentsMouseReleaseEvent(QMouseEvent * /*event*/) { }

void Q3ScrollView::contentsMouseDoubleClickEvent(QMouseEvent *event)
{
    contentsMousePressEvent(event);
}

void Q3ScrollView::contentsMouseMoveEvent(QMouseEvent * /*event*/) { }

void Q3ScrollView::contentsContextMenuEvent(QContextMenuEvent *event)
{
    event->ignore();
}

void Q3ScrollView::contentsWheelEvent(QWheelEvent *event)
{
    event->ignore();
}

QSize Q3ScrollView::minimumSizeHint() const
{
    if (!m_leastSize.isValid() || m_frameOfLeastSize != frameWidth()) {
        m_leastSize = QAbstractScrollArea::minimumSizeHint();
        m_frameOfLeastSize = frameWidth();
    }
    return m_leastSize;
}

bool Q3ScrollView::event(QEvent *event)
{
    if (may_change_least_size(event->type()))
        m_leastSize = {};
    if (event->type() != bars_event())
        return QAbstractScrollArea::event(event);
    if (m_bBarsDue)
        updateScrollBars();
    return true;
}

bool Q3ScrollView::viewportEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return forwardMouseEvent(static_cast<QMouseEvent *>(event));
    case QEvent::ContextMenu:
        return forwardContextMenuEvent(static_cast<QContextMenuEvent *>(event));
    case QEvent::Wheel:
        return forwardWheelEvent(static_cast<QWheelEvent *>(event)) || QAbstractScrollArea::viewportEvent(event);
    default:
        return QAbstractScrollArea::viewportEvent(event);
    }
}

void Q3ScrollView::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBars();
}

void Q3ScrollView::scrollContentsBy(int /*dx*/, int /*dy*/)
{
    if (!m_bUpdatingBars)
        moveContents(horizontalScrollBar()->value(), verticalScrollBar()->value());
}

void Q3ScrollView::keyPressEvent(QKeyEvent *event)
{
    event->ignore();
}

void Q3ScrollView::updateScrollBars()
{
    if (m_bUpdatingBars)
        return; // showing a bar resizes the viewport, which comes back here
    m_bBarsDue = false;
    {
        const QScopedValueRollback updating(m_bUpdatingBars, true);
        const QSize visible = visibleSizeWithBars();
        horizontalScrollBar()->setPageStep(visible.width());
        verticalScrollBar()->setPageStep(visible.height());
        horizontalScrollBar()->setRange(0, std::max(0, contentsWidth() - visible.width()));
        verticalScrollBar()->setRange(0, std::max(0, contentsHeight() - visible.height()));
        // Shows and hides the bars now; the base class itself would wait until the contents have been painted.
        setVerticalScrollBarPolicy(verticalScrollBarPolicy());
    }
    moveContents(contentsX(), contentsY());
    showPositionInBars();
}

void Q3ScrollView::moveContents(int x, int y, Painting painting)
{
    const QPoint target(std::max(0, std::min(x, contentsWidth() - visibleWidth())),
                        std::max(0, std::min(y, contentsHeight() - visibleHeight())));
    if (target == m_offset)
        return;
    emit contentsMoving(target.x(), target.y());
    const QPoint by = m_offset - target;
    m_offset = target;
    if (painting == Painting::WhatComesIntoView && mostCanBeTakenAlong(by))
        viewport()->scroll(by.x(), by.y());
    else
        viewport()->update();
}

/// Whether what stays in view is large, and falls on whole pixels of the screen again.
bool Q3ScrollView::mostCanBeTakenAlong(QPoint by) const
{
    const qreal ratio = viewport()->devicePixelRatioF();
    const qint64 width = std::max(0, visibleWidth() - std::abs(by.x()));
    const qint64 height = std::max(0, visibleHeight() - std::abs(by.y()));
    return ratio == std::floor(ratio) && static_cast<qreal>(width * height) * ratio * ratio >= LargeArea;
}

void Q3ScrollView::showPositionInBars()
{
    const QSignalBlocker horizontal(horizontalScrollBar());
    const QSignalBlocker vertical(verticalScrollBar());
    horizontalScrollBar()->setValue(contentsX());
    verticalScrollBar()->setValue(contentsY());
}

/// The size of the viewport once the bars are there that the contents need. The base class shows a bar
/// exactly if its range is not empty.
QSize Q3ScrollView::visibleSizeWithBars() const
{
    const QSize inside = maximumViewportSize();
    const int barHeight = horizontalScrollBar()->sizeHint().height();
    const int barWidth = verticalScrollBar()->sizeHint().width();

    bool needsHorizontal = contentsWidth() > inside.width();
    const bool needsVertical = contentsHeight() > inside.height() - (needsHorizontal ? barHeight : 0);
    if (needsVertical && !needsHorizontal)
        needsHorizontal = contentsWidth() > inside.width() - barWidth;
    const bool needsVerticalToo = needsVertical || (needsHorizontal && contentsHeight() > inside.height() - barHeight);

    return inside - QSize(needsVerticalToo ? barWidth : 0, needsHorizontal ? barHeight : 0);
}

bool Q3ScrollView::forwardMouseEvent(QMouseEvent *event)
{
    if (!viewport()->isEnabled())
        return false;

    QMouseEvent moved(event->type(), event->position() + m_offset, event->scenePosition(), event->globalPosition(),
                      event->button(), event->buttons(), event->modifiers(), event->pointingDevice());
    moved.setTimestamp(event->timestamp());
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        contentsMousePressEvent(&moved);
        break;
    case QEvent::MouseButtonRelease:
        contentsMouseReleaseEvent(&moved);
        break;
    case QEvent::MouseButtonDblClick:
        contentsMouseDoubleClickEvent(&moved);
        break;
    default:
        contentsMouseMoveEvent(&moved);
        break;
    }
    event->setAccepted(moved.isAccepted());
    return moved.isAccepted();
}

bool Q3ScrollView::forwardContextMenuEvent(QContextMenuEvent *event)
{
    if (!viewport()->isEnabled())
        return false;

    QContextMenuEvent moved(event->reason(), event->pos() + m_offset, event->globalPos(), event->modifiers());
    contentsContextMenuEvent(&moved);
    event->setAccepted(moved.isAccepted());
    return moved.isAccepted();
}

bool Q3ScrollView::forwardWheelEvent(QWheelEvent *event)
{
    if (!viewport()->isEnabled())
        return true;

    QWheelEvent moved(event->position() + m_offset, event->globalPosition(), event->pixelDelta(), event->angleDelta(),
                      event->buttons(), event->modifiers(), event->phase(), event->inverted(), event->source(),
                      event->pointingDevice());
    moved.setTimestamp(event->timestamp());
    contentsWheelEvent(&moved);
    event->setAccepted(moved.isAccepted());
    return moved.isAccepted();
}
