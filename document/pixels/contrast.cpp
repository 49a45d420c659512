#include "contrast.h"

#include "two_halves.h"

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <vector>

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

/// Plain minimum and maximum of a channel.
struct ChannelEnds
{
    uchar lowest;
    uchar highest;
};

ChannelEnds channel_ends(std::span<const QRgb> words, int shift)
{
    int lowest = 255;
    int highest = 0;
    for (const QRgb word : words) {
        const int value = channel_value(word, shift);
        lowest = std::min(lowest, value);
        highest = std::max(highest, value);
    }
    return {static_cast<uchar>(lowest), static_cast<uchar>(highest)};
}

/// The same as word by word for words whose ends are known. As long as no value lowers the minimum, every one of
/// them is offered to the maximum, and plain minimum and maximum do. The minimum can fall 255 times at most.
void extend_bounds(ChannelBounds &bounds, std::span<const QRgb> words, ChannelEnds ends, int shift)
{
    if (ends.lowest < bounds.minimum)
        extend_singly(bounds, words, shift);
    else
        bounds.maximum = std::max<int>(bounds.maximum, ends.highest);
}

/// Words in blocks, each small enough for the nearest cache.
class Blocks
{
public:
    static constexpr std::size_t Worthwhile = 64; ///< for a thread

    explicit Blocks(std::span<const QRgb> allWords) : words(allWords) { }

    [[nodiscard]] std::size_t count() const { return (words.size() + BlockWords - 1) / BlockWords; }
    [[nodiscard]] std::span<const QRgb> at(std::size_t i) const
    {
        const std::size_t from = i * BlockWords;
        return words.subspan(from, std::min(BlockWords, words.size() - from));
    }

private:
    static constexpr std::size_t BlockWords = 2048;

    std::span<const QRgb> words;
};

using Shifts = std::array<int, 3>;
constexpr Shifts AllShifts{Red, Green, Blue};

/// The bounds of all three channels at once, so that the words come from memory once.
std::array<ChannelBounds, 3> all_bounds(std::span<const QRgb> words)
{
    const Blocks blocks(words);
    std::vector<std::array<ChannelEnds, 3>> ends(blocks.count());
    in_two_halves(blocks.count(), Blocks::Worthwhile, [&](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i)
            std::ranges::transform(AllShifts, ends[i].begin(),
                                   [&](int shift) { return channel_ends(blocks.at(i), shift); });
    });
    // In the order of the words: what counts for the maximum depends on what came before.
    std::array<ChannelBounds, 3> bounds;
    for (std::size_t i = 0; i < blocks.count(); ++i) {
        for (std::size_t channel = 0; channel < bounds.size(); ++channel)
            extend_bounds(bounds[channel], blocks.at(i), ends[i][channel], AllShifts[channel]);
    }
    return bounds;
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
    const Blocks blocks(words);
    ChannelBounds bounds;
    for (std::size_t i = 0; i < blocks.count(); ++i)
        extend_bounds(bounds, blocks.at(i), channel_ends(blocks.at(i), shift), shift);
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
    const auto [red, green, blue] = all_bounds(words);
    const ChannelMap newRed = contrast_map(red, percent);
    const ChannelMap newGreen = contrast_map(green, percent);
    const ChannelMap newBlue = contrast_map(blue, percent);
    constexpr std::size_t worthwhileWords = 65536;
    in_two_halves(words.size(), worthwhileWords, [&](std::size_t begin, std::size_t end) {
        std::transform(words.data() + begin, words.data() + end, result.data() + begin, [&](QRgb word) {
            return (word & 0xff000000) | QRgb{newRed[word >> Red & 0xff]} << Red
                | QRgb{newGreen[word >> Green & 0xff]} << Green | QRgb{newBlue[word & 0xff]};
        });
    });
}
