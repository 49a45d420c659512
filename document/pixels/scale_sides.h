#pragma once

#include "two_halves.h"

#include <QImage>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

/// How the pixels along one side of a page come together when it is scaled smoothly, in the toolkit's own arithmetic.
///
/// Sides are in pixels, from 1 to LongestScaledSide; beyond it the toolkit's arithmetic is none that one can follow.

inline constexpr int LongestScaledSide = 32767;

/// A pixel of a side that is not made shorter lies between two of the former ones.
struct PlaceBetween
{
    int first; ///< of the two
    int share; ///< of the second one, in 256ths; 0 where there is none
};

[[nodiscard]] std::vector<PlaceBetween> places_between(int from, int to);

/// A pixel of a shorter side covers at least two of the former ones, whose shares make WholeShare.
struct CoveredSpan
{
    int first;
    int count;
    int firstShare;
    int lastShare;
};

struct CoveredSpans
{
    static constexpr int WholeShare = 1 << 14;

    std::vector<CoveredSpan> spans;
    int innerShare; ///< of each pixel between the first and the last one

    /// @param i  below the span's count
    [[nodiscard]] int share(const CoveredSpan &span, int i) const
    {
        return i == 0 ? span.firstShare : i == span.count - 1 ? span.lastShare : innerShare;
    }
};

/// @return none if rounding makes a span reach beyond the side
[[nodiscard]] std::optional<CoveredSpans> covered_spans(int from, int to);

/// Has @p scaling work on all lines of the result, from a first one to the one behind the last; on two threads where that
/// is worth it.
/// @param worthwhilePixels  of the larger page
template <typename Scaling>
void scale_in_halves(const QImage &page, const QImage &result, std::size_t worthwhilePixels, Scaling scaling)
{
    const qsizetype pixelsOfALine =
        std::max(qsizetype{page.width()} * page.height() / result.height(), qsizetype{result.width()});
    in_two_halves(static_cast<std::size_t>(result.height()), worthwhilePixels / static_cast<std::size_t>(pixelsOfALine),
                  [&scaling](std::size_t begin, std::size_t end) { scaling.work(begin, end); });
}
