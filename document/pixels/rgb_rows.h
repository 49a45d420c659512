#pragma once

#include <QRgb>
#include <QtGlobal>

/// Rows of three bytes a pixel, red first, as TIFF files hold them, from and to the words of a page. The
/// rows do not overlap.
/// @param width  pixels of the row

/// Makes opaque words.
void expand_rgb_row(const uchar *rgb, QRgb *words, int width);
/// Drops the alpha of the words.
void pack_rgb_row(const QRgb *words, uchar *rgb, int width);

/// The same by plain loops, for processors without byte shuffles and for tests.
namespace plain_rows {
void expand(const uchar *rgb, QRgb *words, int width);
void pack(const QRgb *words, uchar *rgb, int width);
} // namespace plain_rows
