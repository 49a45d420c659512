#pragma once

#include <QImage>

#include <array>

/// Scales a page of one bit in black, white and greys smoothly, and brings it back to black and white, without a copy
/// of 32 bits: all channels are the same, so the sums are those of one.
///
/// The result equals that of `scale_words()` on a copy, with each pixel black whose level is below 129.
/// Memory: 8 bytes for each column of the page and 16 for each of the result's.
///
/// @param page    Mono or MonoLSB
/// @param levels  of colour 0 and 1, 0 to 255
/// @param result  Mono, colour 1 being black, of the size that is wanted; can_scale_words() must say yes to it
void scale_bits(const QImage &page, std::array<int, 2> levels, QImage &result);
