#pragma once

#include <QImage>

/// Brings a decoded picture to one of the formats of a page: Mono, MonoLSB, Indexed8, RGB32 or ARGB32.
///
/// A picture that has one of these already is returned as it is, sharing its pixels and with its colour table untouched;
/// only indices beyond a table that is too short become black. Grey pictures become Indexed8 with the 256 greys as
/// table, 16-bit ones by their high bytes. All others become ARGB32 if their format has an alpha channel, else RGB32.
/// Resolution and texts are kept; a resolution of 0 or less becomes the toolkit's default.
///
/// The conversion is made in place where the pixels are not shared, so move the picture in.
/// @return null for a null picture, and if there is no memory for the result
[[nodiscard]] QImage to_page_image(QImage image);

/// Only the format of a page, as to_page_image() gives it: table and resolution stay what they are, so a picture that
/// has a page's format shares its pixels, however short its table is.
[[nodiscard]] QImage to_page_format(QImage image);

/// The same picture, with the toolkit's default for a resolution of 0 or less, which a header may claim.
[[nodiscard]] QImage with_positive_resolution(QImage image);
