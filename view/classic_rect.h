#pragma once

#include <QRect>

// Questions to rectangles that may be backwards (right < left or bottom < top), as a selection drawn
// towards the top left is. QRect's own functions of the same purpose answer differently for these.

/// @p rect with left and right, and top and bottom, swapped where they are backwards: left 10 to
/// right 4 becomes 4 to 10. A rectangle without width or height is returned as it is.
[[nodiscard]] QRect classic_normalized(const QRect &rect);

/// Whether @p point lies in @p rect taken the right way round.
/// @param proper  true leaves out the edges themselves
[[nodiscard]] bool classic_contains(const QRect &rect, const QPoint &point, bool proper);
