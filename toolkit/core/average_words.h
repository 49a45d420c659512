#pragma once

#include "page_rows.h"
#include "reduced_axis.h"

#include <QRgb>

#include <span>

enum class AlphaChannel : bool {
    Ignored, ///< the averages are opaque
    Multiplied, ///< each word is multiplied with its alpha first, as qPremultiply() does it; so are the averages
};

/// Writes an average for each of @p columns: of the 0xAARRGGBB words that lie in it and in @p rows, each channel
/// rounded to nearest, halves upwards.
/// @param rows    at most 130, as many as a column may have words
/// @param target  as long as the columns
void average_words(const PageRows &rows, const ReducedColumns &columns, AlphaChannel alpha, std::span<QRgb> target);
