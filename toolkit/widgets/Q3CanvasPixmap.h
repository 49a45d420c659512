#pragma once

#include "ShownAverages.h"

#include <QImage>
#include <QPoint>

class QPainter;

/// A picture for a sprite: the page itself, sharing its pixels, with what a pixmap would tell of it.
///
/// No copy for the screen is kept. A page of 1 or 8 bits a pixel would need one of 32 bits; draw() takes
/// the few pixels that show straight from the page instead. Only what a reduced page looks like is kept, as far as
/// it has been shown: see ShownAverages.
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

    /// For tests; the program has its pages drawn.
    [[nodiscard]] const QImage &image() const { return m_image; }

    /// Draws the picture in its natural size with its top left corner at @p at, in the coordinates of
    /// @p painter. Where the world transform of the painter reduces, a pixel of the device shows the average of the
    /// picture's pixels that it covers, whole or in part, with their alpha multiplied in and each channel rounded to
    /// nearest; one whose middle the picture does not reach shows nothing of it. Else the pixels are those that an
    /// unsmoothed drawPixmap() would give on a device of 32 bits: squares where the painter magnifies.
    /// Work and memory go by the part within the painter's clip, or its device if it has none.
    void draw(QPainter &painter, const QPoint &at) const;

    /// Gives back what is kept of the reduced picture; draw() makes it anew when it is needed.
    void forgetAverages() { m_averages.clear(); }

private:
    void drawAverages(QPainter &painter, const QPoint &at) const;

    QImage m_image; ///< in a format of a page
    mutable ShownAverages m_averages; ///< what draw() would find again, so it changes nothing that is seen
};
