#pragma once

class QIODevice;

/// Whether all of a picture is there. Some decoders make a picture of a file that was cut short, with
/// grey or black where pixels are missing; such a file must count as damaged before its page is saved
/// over it.
///
/// Looked at are JPEG, BMP, GIF, ICNS, XBM, TGA and TIFF with a palette, told by their bytes. The decoders of
/// the other formats find out themselves. Pictures of MNG must fit their canvas. What counts is whether the pixels are there: an end that is missing
/// behind them does no harm. A file that is damaged in another way may pass.
///
/// @param file  open for reading and not sequential; its position is 0 afterwards
/// @return false if the picture is known to be cut short
[[nodiscard]] bool is_complete_image(QIODevice &file);
