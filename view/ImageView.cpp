#include "ImageView.h"

#include "hand_cursors.h"
#include "ImageItem.h"
#include "Q3Canvas.h"
#include "RubberItem.h"

#include <QPen>
#include <QTransform>

#include <array>

namespace {

// From the largest picture to the smallest, so that zooming in lowers the index.
constexpr std::array<double, 8> ZoomFactors = {8.0, 4.0, 2.0, 1.0, 0.5, 0.25, 0.125, 0.0625};
constexpr int NaturalSize = 3;

} // namespace

ImageView::ImageView(QWidget *parent) :
    Q3CanvasView(parent),
    FactorTableMixIn(ZoomFactors.data(), static_cast<int>(ZoomFactors.size()), NaturalSize),
    m_canvas(std::make_unique<Q3Canvas>(this)),
    m_imageItem(std::make_unique<ImageItem>(this, m_canvas.get())),
    m_rubber(std::make_unique<RubberItem>(m_canvas.get()))
{
    setCanvas(m_canvas.get());
    m_imageItem->hide();
    m_rubber->hide();
    m_rubber->setZ(m_imageItem->z() + 1.0);

    QPen pen = m_rubber->pen();
    pen.setStyle(Qt::DotLine);
    pen.setColor(Qt::black);
    pen.setWidth(0); // cosmetic: one screen pixel at every zoom
    m_rubber->setPen(pen);

    setAttribute(Qt::WA_MouseTracking);
    viewport()->setAttribute(Qt::WA_MouseTracking);

    // The surround of a small picture and the canvas behind it are of one colour: the view takes it over.
    m_canvas->setBackgroundColor(Qt::gray);

    setAccessibleName(tr("Page"));
    viewport()->setAccessibleName(tr("Page picture"));
}

ImageView::~ImageView()
{
    setCanvas(nullptr);
    m_imageItem->setCanvas(nullptr);
    m_rubber->setCanvas(nullptr);
    m_imageItem.reset();
    m_rubber.reset();
    m_canvas.reset();
}

bool ImageView::setScale(double factor)
{
    QTransform matrix;
    matrix.scale(factor, factor);
    setWorldMatrix(matrix);
    return true;
}

bool ImageView::setZoomIndex(int index)
{
    m_factorIndex = index;
    return setScale(currentFactor());
}

bool ImageView::zoomIn()
{
    return m_factorIndex < 1 ? false : setZoomIndex(m_factorIndex - 1);
}

bool ImageView::zoomOut()
{
    return m_factorIndex >= m_factorCount - 1 ? false : setZoomIndex(m_factorIndex + 1);
}

void ImageView::OnToggleScroll(bool bEnabled)
{
    m_bFreeHandScrollingOn = bEnabled;
    qDebug("m_bFreeHandScrollingOn");
    setCursor(bEnabled ? open_hand_cursor() : QCursor(Qt::ArrowCursor));
    m_bDragging = false;
}

bool ImageView::setImage(const QImage &image)
{
    if (!m_imageItem->setImage(image))
        return false;
    m_imageItem->show();
    return true;
}

void ImageView::setCurrentPage(uint page)
{
    if (page == m_currentPage)
        return;
    m_imageItem->setVisible(false);
    m_currentPage = page;
    m_imageItem->setVisible(true);
}

void ImageView::replaceImage(uint /*page*/, const QImage &image)
{
    hideSelection();
    (void)m_imageItem->setImage(image); // a refused picture leaves the former one on screen
    const QSize size = m_imageItem->pageImage().size();
    if (m_canvas->size() != size)
        m_canvas->resize(size.width(), size.height());
    viewport()->update();
}

bool ImageView::hasSelection() const
{
    return m_rubber && m_rubber->isVisible();
}

QRect ImageView::selection() const
{
    if (!hasSelection())
        return {};
    int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    m_rubber->coords(&x1, &y1, &x2, &y2);
    return {QPoint(x1, y1), QPoint(x2, y2)};
}

QString ImageView::statusText(const QPoint &point) const
{
    if (m_canvas->allItems().isEmpty())
        return tr("No image load");
    const QImage &image = m_imageItem->pageImage();
    QString text = tr("[%1x%2]").arg(m_imageItem->width()).arg(m_imageItem->height());
    if (image.valid(point))
        text += tr(" (%1,%2)").arg(point.x()).arg(point.y());
    return text;
}

QRect ImageView::visibleContents() const
{
    return {contentsX(), contentsY(), visibleWidth(), visibleHeight()};
}

void ImageView::repaintVisible()
{
    m_canvas->setChanged(inverseWorldMatrix().mapRect(visibleContents()));
    m_canvas->update();
}

void ImageView::hideSelection()
{
    m_rubber->hide();
    m_canvas->update(); // at once: the next move of the mouse drops the marks
    emit selectionChanged();
}
