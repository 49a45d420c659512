#include "contrast.h"

#include <QtGlobal>

#include <algorithm>
#include <csignal>
#include <cstdlib>

namespace {

constexpr int Red = 16;
constexpr int Green = 8;
constexpr int Blue = 0;

int channel_value(QRgb word, int shift)
{
    return static_cast<int>(word >> shift & 0xff);
}

/// The rule itself, word by word.
void extend_singly(ChannelBounds &bounds, std::span<const QRgb> words, int shift)
{
    for (const QRgb word : words) {
        const int value = channel_value(word, shift);
        // Intended: not min and max. A value that lowers the minimum is not offered to the maximum,
        // so falling values leave it at 0; page and preview must agree on that to the bit.
        if (value < bounds.minimum)
            bounds.minimum = value;
        else if (value > bounds.maximum)
            bounds.maximum = value;
    }
}

/// The same by blocks. As long as no value of a block lowers the minimum, every one of them is offered to
/// the maximum, and plain minimum and maximum do. The minimum can fall 255 times at most.
void extend_bounds(ChannelBounds &bounds, std::span<const QRgb> words, int shift)
{
    int lowest = 255;
    int highest = 0;
    for (const QRgb word : words) {
        const int value = channel_value(word, shift);
        lowest = std::min(lowest, value);
        highest = std::max(highest, value);
    }
    if (lowest < bounds.minimum)
        extend_singly(bounds, words, shift);
    else
        bounds.maximum = std::max(bounds.maximum, highest);
}

/// Calls @p visit with one block of words after the other, each small enough for the nearest cache.
void for_each_block(std::span<const QRgb> words, auto visit)
{
    constexpr std::size_t BlockWords = 2048;
    while (!words.empty()) {
        const std::size_t length = std::min(BlockWords, words.size());
        visit(words.first(length));
        words = words.subspan(length);
    }
}

/// Intended: a range of 0, which a single word of value 1 leaves, ends the process like the division by
/// zero that it leads to. An integer division would do the same on some processors only, and compilers may
/// leave it out.
[[noreturn]] void trap_division_by_zero()
{
    (void)std::raise(SIGFPE);
    std::abort();
}

} // namespace

ChannelBounds channel_bounds(std::span<const QRgb> words, int shift)
{
    ChannelBounds bounds;
    for_each_block(words, [&](std::span<const QRgb> block) { extend_bounds(bounds, block, shift); });
    return bounds;
}

ChannelMap contrast_map(ChannelBounds bounds, int percent)
{
    const int range = bounds.range();
    if (range == 0)
        trap_division_by_zero();
    const int factor = 100 + std::abs(percent);
    const int numerator = percent > 0 ? factor * 256 : 25600;
    const int divisor = percent > 0 ? range * 100 : factor * range;

    ChannelMap map{};
    for (int value = 0; value < 256; ++value)
        map[static_cast<std::size_t>(value)] =
            static_cast<uchar>(std::clamp((value - bounds.minimum) * numerator / divisor, 0, 255));
    return map;
}

void contrast_words(std::span<const QRgb> words, std::span<QRgb> result, int percent)
{
    ChannelBounds red;
    ChannelBounds green;
    ChannelBounds blue;
    // All three channels of a block at once, so that the words come from memory once.
    for_each_block(words, [&](std::span<const QRgb> block) {
        extend_bounds(red, block, Red);
        extend_bounds(green, block, Green);
        extend_bounds(blue, block, Blue);
    });
    const ChannelMap newRed = contrast_map(red, percent);
    const ChannelMap newGreen = contrast_map(green, percent);
    const ChannelMap newBlue = contrast_map(blue, percent);
    std::ranges::transform(words, result.begin(), [&](QRgb word) {
        return (word & 0xff000000) | QRgb{newRed[word >> Red & 0xff]} << Red
            | QRgb{newGreen[word >> Green & 0xff]} << Green | QRgb{newBlue[word & 0xff]};
    });
}
