#pragma once

#include <QImage>
#include <QPoint>
#include <QSize>
#include <QString>

/// Pages for tests, and their comparison. Sizes are in pixels.

/// A page of one colour in @p format; indexed and one-bit formats get a table with that colour alone
/// or, for one bit, with it at both entries.
[[nodiscard]] QImage solid_page(QSize size, QRgb color, QImage::Format format = QImage::Format_RGB32);

/// A page of these colours or indices, row by row from the top.
[[nodiscard]] QImage colored(const QList<QRgb> &colors, QImage::Format format = QImage::Format_RGB32, int rows = 1);
[[nodiscard]] QImage indexed(const QList<QRgb> &table, const QList<uint> &indices,
                             QImage::Format format = QImage::Format_Indexed8, int rows = 1);

/// A page without symmetry, so that a turn, a flip or a shift by one pixel shows.
///
/// depth 32: RGB32, every pixel holds its own place as position_color() tells;
/// depth 8:  Indexed8 with a table of 256 colours in no order, index (3x + 7y + xy) mod 256;
/// depth 1:  Mono, white 0, black 1, the bit being set where (x² + 3y) mod 5 is below 2.
/// Other depths give a null image.
[[nodiscard]] QImage patterned_page(QSize size, int depth = 32);

/// The colour that tells its own place: red and green are the low bytes of x and y, blue their next
/// four bits. Every point from (0,0) to (4095,4095) has its own colour.
[[nodiscard]] QRgb position_color(QPoint point);
[[nodiscard]] QPoint position_of(QRgb color);

/// What differs: format, size, colour table, or the first ten differing pixels, a line each; empty
/// when the pictures are equal. Two null images are equal.
[[nodiscard]] QString picture_differences(const QImage &actual, const QImage &expected);

/// Whether the pictures are equal; if not, the differences are printed into the test's output.
[[nodiscard]] bool compare_pictures(const QImage &actual, const QImage &expected);
