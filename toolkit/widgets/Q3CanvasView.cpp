#include "Q3CanvasView.h"

#include "Q3Canvas.h"

#include <QPainter>
#include <QPaintEvent>
#include <QScreen>

namespace {

void fill_region(QPainter &painter, const QRegion &region, const QBrush &brush)
{
    for (const QRect &rect : region)
        painter.fillRect(rect, brush);
}

} // namespace

Q3CanvasView::Q3CanvasView(QWidget *parent, const char *name, Qt::WindowFlags flags) : Q3ScrollView(parent, name, flags)
{
    // paintEvent() fills the background itself, and only where no opaque item covers it.
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    updateContentsSize();
}

Q3CanvasView::~Q3CanvasView()
{
    if (m_canvas)
        m_canvas->removeView(this);
}

void Q3CanvasView::setCanvas(Q3Canvas *canvas)
{
    if (m_canvas) {
        m_canvas->removeView(this);
        disconnect(m_canvas, nullptr, this, nullptr);
    }
    m_canvas = canvas;
    if (m_canvas) {
        m_canvas->addView(this);
        connect(m_canvas, &Q3Canvas::resized, this, &Q3CanvasView::updateContentsSize);
        setViewportColor(m_canvas->backgroundColor());
    }
    updateContentsSize();
    viewport()->update();
}

bool Q3CanvasView::setWorldMatrix(const QTransform &matrix)
{
    bool invertible = false;
    const QTransform inverse = matrix.inverted(&invertible);
    if (!invertible)
        return false;
    m_world = matrix;
    m_inverseWorld = inverse;
    updateContentsSize();
    viewport()->update();
    return true;
}

QSize Q3CanvasView::sizeHint() const
{
    if (!m_canvas)
        return Q3ScrollView::sizeHint();
    const QSize whole = m_canvas->size() + 2 * QSize(frameWidth(), frameWidth());
    return whole.boundedTo(3 * screen()->virtualSize() / 4);
}

void Q3CanvasView::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    const QBrush background = viewport()->palette().brush(viewport()->backgroundRole());
    fill_region(painter, event->region() - mappedCanvasRect(), background);
    if (m_canvas)
        drawCanvas(painter, event->region());
}

void Q3CanvasView::canvasDestroyed()
{
    m_canvas = nullptr;
    updateContentsSize();
    viewport()->update();
}

void Q3CanvasView::setViewportColor(const QColor &color)
{
    QPalette palette = viewport()->palette();
    palette.setColor(viewport()->backgroundRole(), color);
    viewport()->setPalette(palette);
}

QRect Q3CanvasView::visibleCanvasRect() const
{
    const QRectF visible(contentsX(), contentsY(), visibleWidth(), visibleHeight());
    return m_inverseWorld.mapRect(visible).toAlignedRect();
}

void Q3CanvasView::updateCanvasRect(const QRect &area)
{
    const QRect contents = m_world.mapRect(QRectF(area)).toAlignedRect();
    // One column and row more: at 1:1 items may show there, see drawCanvas().
    viewport()->update(QRect(contentsToViewport(contents.topLeft()), contents.size() + QSize(1, 1)));
}

void Q3CanvasView::updateContentsSize()
{
    const QSize size = m_canvas ? m_world.mapRect(m_canvas->rect()).size() : QSize(1, 1);
    resizeContents(size.width(), size.height());
}

/// In viewport coordinates.
QRect Q3CanvasView::mappedCanvasRect() const
{
    if (!m_canvas)
        return {};
    const QRect contents = m_world.mapRect(m_canvas->rect());
    return {contentsToViewport(contents.topLeft()), contents.size()};
}

/// The viewport pixels that lie wholly under opaque items.
QRegion Q3CanvasView::opaqueRegion() const
{
    QRegion region;
    const QList<QRect> rects = m_canvas->opaqueRects();
    for (const QRect &rect : rects) {
        const QRect contents = m_world.mapRect(QRectF(rect)).toAlignedRect();
        // The rim may be a pixel that the item covers in part, and does not paint.
        region += QRect(contentsToViewport(contents.topLeft()), contents.size()).adjusted(1, 1, -1, -1);
    }
    return region;
}

void Q3CanvasView::drawCanvas(QPainter &painter, const QRegion &exposed)
{
    const QRect mapped = mappedCanvasRect();
    // Intended: at 1:1 items show one column and row beyond the canvas, so that the outline of a rectangle
    // that ends with it is seen. At other zooms they do not.
    const int reach = m_world.type() <= QTransform::TxTranslate ? 1 : 0;
    const QRect clip = exposed.boundingRect() & mapped.adjusted(0, 0, reach, reach);
    if (clip.isEmpty())
        return;

    fill_region(painter, (exposed & mapped) - opaqueRegion(), m_canvas->backgroundColor());
    painter.setClipRect(clip);
    painter.translate(-contentsX(), -contentsY());
    painter.setWorldTransform(m_world, true);
    painter.setPen(QPen(Qt::black, 0));
    m_canvas->drawItems(painter);
}
