#pragma once

class QIODevice;

/// Whether every pixel of a JPEG file is there: the end marker comes behind a scan or, where that marker alone is
/// missing, the coded data suffice. The decoder makes grey, or the coarse picture of an earlier scan, of what is
/// missing. Read from where the file stands.
///
/// @return false also if the coefficients, which some files need all at once, are more than the machine affords
[[nodiscard]] bool is_complete_jpeg(QIODevice &file);
