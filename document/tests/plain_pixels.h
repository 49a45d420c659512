#pragma once

#include "contrast.h"

#include <QImage>
#include <QList>
#include <QRgb>

/// The rules of the pixel operations, one word or pixel after the other.

/// @param percent  -100 to 100, not 0
[[nodiscard]] QRgb plain_brightness(QRgb word, int percent);

[[nodiscard]] ChannelBounds plain_bounds(const QList<QRgb> &words, int shift);
/// The arithmetic of one channel, written out.
[[nodiscard]] QRgb plain_value(QRgb word, int shift, ChannelBounds bounds, int percent);
[[nodiscard]] QList<QRgb> plain_contrast(const QList<QRgb> &words, int percent);

/// Black and white pixel by pixel, as it is defined.
[[nodiscard]] QImage plain_mono(const QImage &page);
