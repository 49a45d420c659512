#pragma once

#include "Q3CanvasPixmap.h"

#include <memory>
#include <vector>

/// The frames of sprites, which borrow it. Empty at first.
class Q3CanvasPixmapArray
{
public:
    [[nodiscard]] int count() const { return static_cast<int>(m_frames.size()); }

    /// @return null outside the array and for a slot never set
    [[nodiscard]] Q3CanvasPixmap *image(int index) const;

    /// Puts @p pixmap into slot @p index in place of the former one, which is deleted. The array grows if
    /// it has to; a negative index deletes the pixmap. No sprite is told.
    void setImage(int index, std::unique_ptr<Q3CanvasPixmap> pixmap);

private:
    std::vector<std::unique_ptr<Q3CanvasPixmap>> m_frames;
};
