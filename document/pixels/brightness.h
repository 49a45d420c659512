#pragma once

#include <QRgb>

#include <span>

/// Makes each 0xAARRGGBB word lighter or darker exactly as QColor does; alpha stays.
/// @param percent      1 to 100 for QColor::lighter(100 + percent), -1 to -100 for darker(100 - percent)
/// @param[out] result  as many words; must not overlap @p words
void brighten_words(std::span<const QRgb> words, std::span<QRgb> result, int percent);

/// The road that many words take, see brightness.cpp; a few are done sooner by asking QColor for each.
void brighten_many_words(std::span<const QRgb> words, std::span<QRgb> result, int percent);
