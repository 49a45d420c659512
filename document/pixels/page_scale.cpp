#include "page_scale.h"

#include "bit_scale.h"
#include "page_buffers.h"
#include "page_depth.h"
#include "smooth_scale.h"

#include <algorithm>
#include <array>
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

/// Levels of the two colours, where both are grey.
std::optional<std::array<int, 2>> grey_levels(const QImage &page)
{
    const std::array<QRgb, 2> colors = two_colors(page);
    if (!std::ranges::all_of(colors, [](QRgb color) { return qIsGray(color); }))
        return std::nullopt;
    return std::array{qBlue(colors[0]), qBlue(colors[1])};
}

/// With the attributes that the toolkit's scaling keeps.
QImage new_scaled_page(const QImage &page, QSize size, QImage::Format format)
{
    QImage result = new_page_like(page, size, format);
    result.setOffset({});
    return result;
}

bool has_room_for_words(QSize size)
{
    return !QImage(size, QImage::Format_RGB32).isNull();
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
    if (words.format() == QImage::Format_RGB32 && can_scale_words(words.size(), size)) {
        QImage result = new_scaled_page(words, size, words.format());
        if (!result.isNull())
            scale_words(words, result);
        return result;
    }
    return adopt_page(words.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

QImage smoothly_scaled_to_mono(const QImage &page, QSize size)
{
    if (size.isEmpty())
        return {};
    // Intended: where there is no room for a copy of 32 bits the page is scaled roughly, also without such a copy.
    if (!has_room_for_words(page.size()))
        return toMono(page.scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation));
    const std::optional<std::array<int, 2>> levels = grey_levels(page);
    if (!levels || !can_scale_words(page.size(), size))
        return toMono(smoothly_scaled(converted_to_depth(page, 32), size));
    QImage mono = new_scaled_page(page, size, QImage::Format_Mono);
    if (mono.isNull())
        return mono;
    mono.setColorTable({0xffffffff, 0xff000000});
    scale_bits(page, *levels, mono);
    return mono;
}
