#pragma once

#include "reduced_axis.h"

#include <QRgb>

#include <cstddef>
#include <span>

/// Fills a row of averages: the columns of @p even in one go, those before and behind them one by one.
///
/// @param single  QRgb(PixelSpan)
/// @param evenly  void(int, std::span<QRgb>): from the page pixel where the first of these columns begins
template <class Single, class Evenly>
void average_parts(std::span<const PixelSpan> spans, PixelSpan even, std::span<QRgb> target, Single single,
                   Evenly evenly)
{
    const auto from = static_cast<std::size_t>(even.first);
    const auto end = static_cast<std::size_t>(even.end);

    for (std::size_t i = 0; i < from; ++i)
        target[i] = single(spans[i]);
    if (end > from)
        evenly(spans[from].first, target.subspan(from, end - from));
    for (std::size_t i = end; i < spans.size(); ++i)
        target[i] = single(spans[i]);
}
