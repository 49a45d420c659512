#pragma once

#include <QRgb>
#include <QtGlobal>

/// The filters of rows in PNG files (ISO/IEC 15948, section 9), undone. Bytes are told by the pixel before, by the row
/// above, or by both.

inline constexpr int PngFilterCount = 5;
/// Bytes behind a row that vector code may read and write.
inline constexpr qsizetype PngRowSlack = 16;

/// @param filter      below PngFilterCount
/// @param stored      @p count bytes
/// @param above       the row above as undo_png_filter() made it, or zeros; with PngRowSlack bytes behind
/// @param row         of @p count bytes with PngRowSlack bytes behind, which are lost; apart from the others
/// @param pixelBytes  1, 3 or 4; 1 for rows whose pixels are less than a byte
void undo_png_filter(int filter, const uchar *stored, const uchar *above, uchar *row, qsizetype count, int pixelBytes);

/// Rows of four bytes a pixel, red first and alpha last, as the words of a page.
void pack_rgba_row(const uchar *rgba, QRgb *words, int width);

namespace plain_rows {
/// The same by plain loops, for processors without vectors and for tests.
void undo_png_filter(int filter, const uchar *stored, const uchar *above, uchar *row, qsizetype count, int pixelBytes);
} // namespace plain_rows
