#pragma once

#include <QByteArray>

class QIODevice;

/// BMP files as their writers meant them. The toolkit's reader believes every number of the header, drops a row that
/// lacks its padding, and leaves pixels that run lengths skip as its memory was.
///
/// Pixels begin behind header and colours, also where the header says earlier; and a table with fewer colours than the
/// header says is one if the pixels then fill the file to its end. Neither the size of the file nor that of the coded
/// pixels is asked of the header: many programs write wrong ones.
///
/// Both functions read the file from its start.

/// Whether every pixel is in the file. Those that run lengths skip count as there.
[[nodiscard]] bool is_complete_bmp(QIODevice &file);

/// A file that the toolkit shows as the given one is meant.
/// @param file  complete
/// @return nothing if the file is shown rightly as it stands
[[nodiscard]] QByteArray mended_bmp(QIODevice &file);
