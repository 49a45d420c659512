#pragma once

#include <QImage>

#include <array>

/// A page in another depth.

/// Depth 1, 8 or 32. The depth that it has already leaves a page as it is, in its own format. Depth 1 is
/// MonoLSB with white 0 and black 1, by error diffusion; depth 8 is Indexed8 with a table of the colours, or of
/// a cube of 216 with error diffusion where there are more than 256; depth 32 is RGB32.
/// @return null for any other depth, and if there is no memory for the result
[[nodiscard]] QImage converted_to_depth(const QImage &page, int depth);

/// Black and white by brightness alone: a pixel whose red, green and blue add up to less than 387 becomes black.
/// The result is Mono, its colour 0 being white and colour 1 black, with resolution and texts of the page.
/// @param page  of depth 32 or 1
/// @return null if there is no memory for the result
[[nodiscard]] QImage toMono(const QImage &page);

/// The two colours of a 1-bit page; missing ones are black and white, as the toolkit takes them.
[[nodiscard]] std::array<QRgb, 2> two_colors(const QImage &page);
