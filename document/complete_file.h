#pragma once

class QIODevice;

/// Whether all of a picture is there. Some decoders make a picture of a file that was cut short, with
/// grey or black where pixels are missing; such a file must count as damaged before its page is saved
/// over it.
///
/// Looked at are JPEG, BMP, GIF, XBM and TIFF with a palette, told by their first bytes. The decoders of
/// the other formats find out themselves. The file is judged by its structure alone, nothing is decoded,
/// and a file that is damaged in another way may pass.
///
/// @param file  open for reading and not sequential; its position is 0 afterwards
/// @return false if the picture is known to be cut short
[[nodiscard]] bool is_complete_image(QIODevice &file);
