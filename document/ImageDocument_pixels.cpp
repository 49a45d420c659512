// What changes the pixels of a page.
#include "ImageDocument.h"
#include "page_colors.h"
#include "page_operations.h"
#include "page_scale.h"

bool ImageDocument::change(uint pi, PageChange operation, int percent)
{
    const PageOperation &row = page_operation(operation);
    // Intended: 0 succeeds without a change, so the document does not count as modified.
    if (row.range && percent == 0)
        return true;
    if (!row.change(page(pi), percent))
        return false;
    setModified(true);
    return true;
}

bool ImageDocument::depth_1_bit(uint pi)
{
    return change(pi, PageChange::Depth1Bit);
}

bool ImageDocument::depth_8_bit(uint pi)
{
    return change(pi, PageChange::Depth8Bit);
}

bool ImageDocument::depth_32_bit(uint pi)
{
    return change(pi, PageChange::Depth32Bit);
}

bool ImageDocument::invert(uint pi)
{
    return change(pi, PageChange::Invert);
}

bool ImageDocument::contrast(uint pi, int percent)
{
    return change(pi, PageChange::Contrast, percent);
}

bool ImageDocument::brightness(uint pi, int percent)
{
    return change(pi, PageChange::Brightness, percent);
}

bool ImageDocument::rotate_90(uint pi)
{
    return change(pi, PageChange::Rotate90);
}

bool ImageDocument::rotate_180(uint pi)
{
    return change(pi, PageChange::Rotate180);
}

bool ImageDocument::rotate_270(uint pi)
{
    return change(pi, PageChange::Rotate270);
}

bool ImageDocument::flip_vertically(uint pi)
{
    return change(pi, PageChange::FlipVertically);
}

bool ImageDocument::flip_horizontally(uint pi)
{
    return change(pi, PageChange::FlipHorizontally);
}

bool ImageDocument::scale(uint pi, double x, double y)
{
    const QImage &source = page(pi);
    const std::optional<QSize> size = multiplied_size(source.size(), x, y);
    if (!size)
        return false;
    if (source.depth() == 1)
        return setPage(pi, smoothly_scaled_to_mono(source, *size));
    return setPage(pi, with_color_255_of(source, smoothly_scaled(source, *size)));
}

bool ImageDocument::resize(uint pi, int w, int h)
{
    return setPage(pi, smoothly_scaled(page(pi), QSize(w, h)));
}
