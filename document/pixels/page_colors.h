#pragma once

#include <QImage>

/// The page in Indexed8, to the bit as `QImage::convertToFormat` does it, in a third of its time.
///
/// A page of up to 256 colours keeps them, numbered as they come. One of more gets a cube of six values a
/// channel, by the error diffusion of Floyd and Steinberg.
///
/// @param page  RGB32
/// @return null if the memory is short
[[nodiscard]] QImage indexed_page(const QImage &page);

/// The result of a change of a page, with entry 255 of the page's colour table if both are indexed and have one.
[[nodiscard]] QImage with_color_255_of(const QImage &page, QImage result);
