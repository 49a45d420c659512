#include "page_scale.h"

#include "page_buffers.h"
#include "page_depth.h"

#include <limits>
#include <utility>

namespace {

std::optional<int> multiplied_side(int side, double factor)
{
    const double lastPixel = (side - 1) * factor;
    constexpr double Largest = std::numeric_limits<int>::max();
    // Written so that "not a number" fails as well.
    if (!(lastPixel > -Largest && lastPixel < Largest))
        return std::nullopt;
    return static_cast<int>(lastPixel) + 1;
}

QImage with_words(const QImage &page)
{
    if (page.depth() == 32)
        return page;
    return page.hasAlphaChannel() ? page.convertToFormat(QImage::Format_ARGB32) : converted_to_depth(page, 32);
}

} // namespace

std::optional<QSize> multiplied_size(QSize size, double x, double y)
{
    const std::optional<int> width = multiplied_side(size.width(), x);
    const std::optional<int> height = multiplied_side(size.height(), y);
    if (!width || !height)
        return std::nullopt;
    return QSize(*width, *height);
}

QImage smoothly_scaled(const QImage &page, QSize size)
{
    if (size == page.size())
        return page;
    // Intended: indexed pages come out with words. The mixed colours would not fit into their table.
    const QImage words = with_words(page);
    if (words.isNull() || size.isEmpty())
        return {};
    return adopt_page(words.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}
