#pragma once

#include <QImage>
#include <QList>

/// The 6 x 6 x 6 colours that stand for all others where a page has too many for a table.

/// The cube's colours take the first places of the table; the rest stays as it was found.
/// @param colors  at least 216
[[nodiscard]] QList<QRgb> with_cube(QList<QRgb> colors);

/// Gives each pixel the number of a colour of the cube by the error diffusion of the toolkit, to the bit as
/// `QImage::convertToFormat` does it, in a fraction of its time.
///
/// Memory: 24 bytes for each column of the page.
///
/// @param page    RGB32
/// @param result  Indexed8, of the same size
void diffuse_to_cube(const QImage &page, QImage &result);
