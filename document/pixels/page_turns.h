#pragma once

#include <QImage>

/// Quarter turns, mirror images and inverted copies of pages of depth 1, 8 and 32. Format, colour table,
/// resolution and texts are those of the source; a quarter turn exchanges the resolutions of columns and lines,
/// so that the picture keeps its size on paper. Each returns null if there is no memory for the result.

enum class QuarterTurn {
    CounterClockwise,
    Clockwise,
};

[[nodiscard]] QImage turned(const QImage &source, QuarterTurn turn);
[[nodiscard]] QImage mirrored(const QImage &source, bool horizontally, bool vertically);
/// As QImage::invertPixels() leaves a copy: indices below depth 32, colours at depth 32.
[[nodiscard]] QImage inverted(const QImage &source);
