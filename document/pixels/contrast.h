#pragma once

#include <QRgb>

#include <array>
#include <span>

/// Lowest and highest value of one colour channel, as contrast sees them.
struct ChannelBounds
{
    int minimum = 255;
    int maximum = 0;

    [[nodiscard]] int range() const { return maximum - minimum + 1; }
    bool operator==(const ChannelBounds &) const = default;
};

/// New value of a channel for each old one.
using ChannelMap = std::array<uchar, 256>;

/// Lowest and highest value of one colour channel over a run of 0xAARRGGBB words.
/// contrast_words() finds all three at once; this one is for tests, which look at them one by one.
/// @param shift  lowest bit of the channel: 16 red, 8 green, 0 blue
[[nodiscard]] ChannelBounds channel_bounds(std::span<const QRgb> words, int shift);

/// How contrast changes a channel with these bounds. A range of 0 ends the process, see contrast.cpp.
/// @param percent  -100 to 100, not 0
[[nodiscard]] ChannelMap contrast_map(ChannelBounds bounds, int percent);

/// Stretches or narrows each colour channel on its own; alpha stays.
/// @param percent      -100 to 100, not 0
/// @param[out] result  as many words; may be the same as @p words
void contrast_words(std::span<const QRgb> words, std::span<QRgb> result, int percent);
