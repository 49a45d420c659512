#pragma once

#include <vector>

/// Page pixels along one axis, from @p first up to, not including, @p end.
struct PixelSpan
{
    int first = 0;
    int end = 0;

    [[nodiscard]] constexpr int count() const { return end - first; }
    bool operator==(const PixelSpan &other) const = default;
};

/// How a page that is shown reduced lies under the pixels of the screen, along one axis.
///
/// Units: screen pixels count from the one that the page begins in.
struct ReducedAxis
{
    /// Smallest scale: what the sums of the averages have room for.
    static constexpr double SmallestScale = 1.0 / 128;

    double scale = 1.0; ///< screen pixels a page pixel, SmallestScale or more
    double phase = 0.0; ///< where in screen pixel 0 the page begins: 0 or more, below 1
    int length = 0; ///< page pixels

    /// The first screen pixel that shows the page: one whose middle the page reaches.
    [[nodiscard]] int first() const;
    /// The end of those that do.
    [[nodiscard]] int end() const;

    /// The page pixels under screen pixel @p index, also those under a part of it. At least one if it shows the page.
    [[nodiscard]] PixelSpan covered(int index) const;

    bool operator==(const ReducedAxis &other) const = default;
};

/// The page pixels under neighbouring screen pixels of a row, and which of them follow one another evenly.
class ReducedColumns
{
public:
    /// @param from, end  screen pixels that show the page
    ReducedColumns(const ReducedAxis &axis, int from, int end);

    [[nodiscard]] const std::vector<PixelSpan> &spans() const { return m_spans; }

    /// Page pixels a screen pixel, 2, 4, 8 or 16, if all but the first and the last column have just these: each
    /// begins where the one before it ends. Else 0.
    [[nodiscard]] int step() const { return m_step; }

    /// The columns that have step() pixels, by index. Empty without a step.
    [[nodiscard]] PixelSpan even() const { return m_even; }

private:
    std::vector<PixelSpan> m_spans;
    PixelSpan m_even;
    int m_step = 0;
};
