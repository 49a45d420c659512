#include "Q3CanvasPixmapArray.h"

#include <utility>

Q3CanvasPixmap *Q3CanvasPixmapArray::image(int index) const
{
    return index >= 0 && index < count() ? m_frames[static_cast<size_t>(index)].get() : nullptr;
}

void Q3CanvasPixmapArray::setImage(int index, std::unique_ptr<Q3CanvasPixmap> pixmap)
{
    if (index < 0)
        return;
    if (index >= count())
        m_frames.resize(static_cast<size_t>(index) + 1);
    m_frames[static_cast<size_t>(index)] = std::move(pixmap);
}
