#pragma once

#include <QtGlobal>

using TIFF = struct tiff;

/// Whether the current directory of a file has an entry for the tag whose numbers lie within the file, as the bytes of
/// the file tell. The library keeps one mark for some tags together, and answers for all of them if it has met one.
/// @return false also if the directory cannot be read
[[nodiscard]] bool has_tiff_number(TIFF *tif, quint16 tag);
