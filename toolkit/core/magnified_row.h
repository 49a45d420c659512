#pragma once

#include <qrgb.h>

/// Shows a row of pixels larger: each pixel @p factor times.
/// @param pixels   as many as are needed
/// @param factor   at least 1
/// @param skipped  of the first pixel's repetitions those that are left out, fewer than @p factor
/// @param target   where @p count repetitions go
void magnify_row(const QRgb *pixels, int factor, int skipped, QRgb *target, int count);
