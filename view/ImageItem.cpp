#include "ImageItem.h"

#include "Q3Canvas.h"

#include <QPainter>
#include <QPen>

#include <utility>

ImageItem::ImageItem(ImageView *view, Q3Canvas *canvas) :
    Q3CanvasSprite(nullptr, canvas),
    m_frames(std::make_unique<Q3CanvasPixmapArray>()),
    m_view(view)
{
    m_frames->setImage(0, std::make_unique<Q3CanvasPixmap>(QImage()));
    setSequence(m_frames.get());
}

bool ImageItem::setImage(const QImage &image)
{
    m_image = image;
    auto frame = std::make_unique<Q3CanvasPixmap>(image);
    qWarning("ImageItem::setImage:\n\timage: %dx%dx%d\n\tpixmap: %dx%dx%d", image.width(), image.height(),
             image.depth(), frame->width(), frame->height(), frame->depth());
    if (image.width() != frame->width())
        return false;

    m_frames->setImage(0, std::move(frame));
    return true;
}

void ImageItem::draw(QPainter &painter)
{
    // A frame around the picture in the colour of the ground.
    const QPen former = painter.pen();
    painter.setPen(QPen(canvas()->backgroundColor(), 0));
    painter.drawRect(QRect(QPoint(0, 0), QPoint(width(), height())));
    painter.setPen(former);

    image()->draw(painter, QPoint(leftEdge(), topEdge()));
}

QString ImageItem::dump() const
{
    return QString::asprintf("pos: (%f,%f,%f), visible: %d, pixmap: %dx%dx%d image: %dx%dx%d", x(), y(), z(),
                             int{isVisible()}, width(), height(), image()->depth(), m_image.width(), m_image.height(),
                             m_image.depth());
}
