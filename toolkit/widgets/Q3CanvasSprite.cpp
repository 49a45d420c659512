#include "Q3CanvasSprite.h"

Q3CanvasSprite::Q3CanvasSprite(Q3CanvasPixmapArray *array, Q3Canvas *canvas) : Q3CanvasItem(canvas), m_array(array) { }

Q3CanvasSprite::~Q3CanvasSprite()
{
    if (isVisible() && canvas())
        markChanged(Q3CanvasSprite::boundingRect());
}

void Q3CanvasSprite::setSequence(Q3CanvasPixmapArray *array)
{
    const bool visible = isVisible();
    hide();
    m_array = array;
    if (m_frame >= frameCount())
        m_frame = 0;
    setVisible(visible);
}

int Q3CanvasSprite::leftEdge() const
{
    const Q3CanvasPixmap *const pixmap = image();
    return static_cast<int>(x()) - (pixmap ? pixmap->offsetX() : 0);
}

int Q3CanvasSprite::topEdge() const
{
    const Q3CanvasPixmap *const pixmap = image();
    return static_cast<int>(y()) - (pixmap ? pixmap->offsetY() : 0);
}

int Q3CanvasSprite::width() const
{
    const Q3CanvasPixmap *const pixmap = image();
    return pixmap ? pixmap->width() : 0;
}

int Q3CanvasSprite::height() const
{
    const Q3CanvasPixmap *const pixmap = image();
    return pixmap ? pixmap->height() : 0;
}

void Q3CanvasSprite::draw(QPainter &painter)
{
    if (const Q3CanvasPixmap *const pixmap = image())
        pixmap->draw(painter, QPoint(leftEdge(), topEdge()));
}

QRect Q3CanvasSprite::boundingRect() const
{
    return {leftEdge(), topEdge(), width(), height()};
}

QRect Q3CanvasSprite::opaqueRect() const
{
    const Q3CanvasPixmap *const pixmap = image();
    return pixmap && pixmap->isOpaque() ? boundingRect() : QRect();
}
