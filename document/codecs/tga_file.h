#pragma once

#include <QByteArray>

class QIODevice;

/// TGA files with a signature, uncompressed and in true colours, which is what the toolkit's reader takes. It goes
/// too far behind a name or a colour table, mirrors nothing, shows 16 bits in dark colours, and believes an alpha
/// channel that no writer filled.
///
/// All functions leave the file at any position.

/// Whether the toolkit's reader would take the file.
[[nodiscard]] bool is_tga(QIODevice &file);

/// Whether every pixel of such a file is there.
[[nodiscard]] bool is_complete_tga(QIODevice &file);

/// A file that the toolkit shows as the given one is meant. Alpha counts if the header tells of it and if any pixel
/// is not quite transparent; without telling, all 32 bits do if so.
/// @param file  complete
/// @return nothing if the file is shown rightly as it stands
[[nodiscard]] QByteArray mended_tga(QIODevice &file);
