#pragma once

#include <QImage>

#include <array>

/// What the toolkit shows for the indices of a page of depth 1 or 8: opaque words, or premultiplied ones if the page has
/// an alpha channel. Where the table is too short these are greys, or black and white, if it is empty, and nothing for
/// an index beyond it.
[[nodiscard]] std::array<QRgb, 256> shown_colors(const QImage &page);
