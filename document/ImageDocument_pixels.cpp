// What changes the pixels of a page.
#include "ImageDocument.h"
#include "page_depth.h"
#include "page_scale.h"
#include "page_turns.h"
#include "pixel_operations.h"

namespace {

/// Entry 255 of an indexed page stays what it was.
QImage with_color_255_of(const QImage &source, QImage result)
{
    constexpr int Kept = 255;
    // The toolkit would make a shorter table longer.
    if (source.depth() == 8 && source.colorCount() > Kept && result.colorCount() > Kept)
        result.setColor(Kept, source.color(Kept));
    return result;
}

QImage quarter_turned(const QImage &page, QuarterTurn turn)
{
    // The same picture as a turn of a copy of 32 bits, at a 30th of the memory.
    if (page.depth() == 1)
        return toMono(turned(page, turn));
    return with_color_255_of(page, turned(page, turn));
}

QImage scaled_mono(const QImage &page, QSize size)
{
    const QImage wide = converted_to_depth(page, 32);
    if (wide.isNull())
        return toMono(page.scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation));
    return toMono(smoothly_scaled(wide, size));
}

} // namespace

bool ImageDocument::depth_1_bit(uint pi)
{
    return setPage(pi, converted_to_depth(page(pi), 1));
}

bool ImageDocument::depth_8_bit(uint pi)
{
    return setPage(pi, converted_to_depth(page(pi), 8));
}

bool ImageDocument::depth_32_bit(uint pi)
{
    return setPage(pi, converted_to_depth(page(pi), 32));
}

bool ImageDocument::invert(uint pi)
{
    QImage &image = page(pi);
    // Where the view shares the pixels they would be copied first, and into new memory.
    if (!image.isDetached())
        return setPage(pi, inverted(image));
    image.invertPixels(QImage::InvertRgb);
    setModified(true);
    return true;
}

bool ImageDocument::contrast(uint pi, int percent)
{
    // Intended: 0 succeeds without a change, so the document does not count as modified.
    return percent == 0 || setPage(pi, contrasted_page(page(pi), percent));
}

bool ImageDocument::brightness(uint pi, int percent)
{
    // Intended: as above.
    return percent == 0 || setPage(pi, brightened_page(page(pi), percent));
}

bool ImageDocument::rotate_90(uint pi)
{
    return setPage(pi, quarter_turned(page(pi), QuarterTurn::CounterClockwise));
}

bool ImageDocument::rotate_180(uint pi)
{
    return setPage(pi, mirrored(page(pi), true, true));
}

bool ImageDocument::rotate_270(uint pi)
{
    return setPage(pi, quarter_turned(page(pi), QuarterTurn::Clockwise));
}

bool ImageDocument::flip_vertically(uint pi)
{
    return setPage(pi, mirrored(page(pi), false, true));
}

bool ImageDocument::flip_horizontally(uint pi)
{
    return setPage(pi, mirrored(page(pi), true, false));
}

bool ImageDocument::scale(uint pi, double x, double y)
{
    const QImage &source = page(pi);
    const std::optional<QSize> size = multiplied_size(source.size(), x, y);
    if (!size)
        return false;
    if (source.depth() == 1)
        return setPage(pi, scaled_mono(source, *size));
    return setPage(pi, with_color_255_of(source, smoothly_scaled(source, *size)));
}

bool ImageDocument::resize(uint pi, int w, int h)
{
    return setPage(pi, smoothly_scaled(page(pi), QSize(w, h)));
}
