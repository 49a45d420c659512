#pragma once

#include <QImage>

using TIFF = struct tiff;

/// Colours of more than eight bits a sample that stand in planes, or that are fewer than three to a pixel. The
/// toolkit's reader takes any row of such samples for red, green and blue side by side, and shows noise and
/// whatever stood in its memory before.

/// Whether the current directory is such a page.
[[nodiscard]] bool has_odd_wide_samples(TIFF *tif);

/// Reads such a page by the library's own conversion to eight bits a sample, with its resolution.
/// @return null if the library cannot convert it, as with real numbers
[[nodiscard]] QImage read_odd_wide_samples(TIFF *tif);
