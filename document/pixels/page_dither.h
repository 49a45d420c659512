#pragma once

#include <QImage>

/// The page in black and white by the error diffusion of Floyd and Steinberg, to the bit as
/// `QImage::convertToFormat` does it, on two threads and with less than half of its work. Colour 0 is white and colour 1 black; resolution
/// and texts stay.
///
/// Memory: 140 bytes for each column of the page, beside the result.
///
/// @param page    RGB32 or ARGB32, whose alpha does not count
/// @param format  Mono or MonoLSB
/// @return null if the memory is short
[[nodiscard]] QImage dithered_page(const QImage &page, QImage::Format format);
