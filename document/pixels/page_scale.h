#pragma once

#include <QImage>
#include <QSize>

#include <optional>

/// Size of a page whose sides are multiplied: the factors are taken of the last pixel's index, cut to whole
/// numbers, so side 1 stays 1 and 100 times 2 is 199.
/// @return empty if a side would not fit into an int
[[nodiscard]] std::optional<QSize> multiplied_size(QSize size, double x, double y);

/// A page brought smoothly to another size, without keeping its proportions. Depth 32 keeps its format; depth 8
/// and 1 become RGB32, or ARGB32 if the colour table has alpha. The own size leaves a page as it is.
/// @return null if @p size is empty or there is no memory for the result
[[nodiscard]] QImage smoothly_scaled(const QImage &page, QSize size);

/// The same for a page of one bit, brought back to Mono by toMono().
[[nodiscard]] QImage smoothly_scaled_to_mono(const QImage &page, QSize size);
