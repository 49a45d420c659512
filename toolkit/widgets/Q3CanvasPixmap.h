#pragma once

#include <QImage>
#include <QPoint>

class QPainter;

/// A picture for a sprite: the page itself, sharing its pixels, with what a pixmap would tell of it.
///
/// No copy for the screen is kept. A page of 1 or 8 bits a pixel would need one of 32 bits; draw() takes
/// the few pixels that show straight from the page instead.
class Q3CanvasPixmap
{
public:
    /// @param image  may be null; its offset is the hot spot
    explicit Q3CanvasPixmap(const QImage &image);

    [[nodiscard]] bool isNull() const { return m_image.isNull(); }
    [[nodiscard]] int width() const { return m_image.width(); }
    [[nodiscard]] int height() const { return m_image.height(); }

    /// Bits a pixel on the screen: 32, or 0 for a null picture.
    [[nodiscard]] int depth() const { return isNull() ? 0 : 32; }

    /// The hot spot: the point of the picture that lies at the position of its sprite.
    [[nodiscard]] int offsetX() const { return m_image.offset().x(); }
    [[nodiscard]] int offsetY() const { return m_image.offset().y(); }

    [[nodiscard]] bool isOpaque() const { return !isNull() && !m_image.hasAlphaChannel(); }

    [[nodiscard]] const QImage &image() const { return m_image; }

    /// Draws the picture in its natural size with its top left corner at @p at, in the coordinates of
    /// @p painter. The pixels are those that an unsmoothed drawPixmap() would give: squares where the
    /// painter magnifies, and where it reduces by a power of two the same sample whatever part shows.
    /// Work and memory go by the part within the painter's clip, or its device if it has none.
    void draw(QPainter &painter, const QPoint &at) const;

private:
    QImage m_image; ///< in a format of a page
};
