#pragma once

#include "tiff_codec.h"

class TargetFile;

/// Begins a TIFF file on a file that is being saved, which stays open when the handle is gone and has to outlive it.
/// What the disk refuses is remembered by the file.
/// @param mode  as of TIFFOpen(): "w", and what kind of file it shall be
/// @return null on failure
[[nodiscard]] TiffHandle begin_tiff(TargetFile &file, const char *mode);
