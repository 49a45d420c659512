#pragma once

#include "average_words.h"
#include "page_rows.h"

#include <QRgb>

#include <span>

/// Whether average_blocks() knows blocks of @p step by @p step words and is the faster way for them.
[[nodiscard]] bool has_fast_blocks(int step, AlphaChannel alpha);

/// Writes the average of each block of @p rows.count by as many words, of those that follow one another from word
/// @p first on: what average_words() writes for them.
/// @param rows    as many as a block that has_fast_blocks() knows
/// @param target  as long as there are blocks
void average_blocks(const PageRows &rows, int first, AlphaChannel alpha, std::span<QRgb> target);
