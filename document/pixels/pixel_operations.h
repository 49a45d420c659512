#pragma once

#include <QImage>

/// A change of a picture for a preview: fills the second image from the first.
/// @param parameter  a percentage for brightness and contrast; null for those without one
/// @return false if there is no result
using ImageTransform = bool (*)(const QImage &src, QImage &dst, const int *parameter);

// The previews in the table of page_operations.h by name, for tests and benchmarks: the window asks for rows.

[[nodiscard]] bool trans_invert(const QImage &src, QImage &dst, const int *parameter);
[[nodiscard]] bool trans_flip_vertically(const QImage &src, QImage &dst, const int *parameter);
[[nodiscard]] bool trans_flip_horizontally(const QImage &src, QImage &dst, const int *parameter);
[[nodiscard]] bool trans_rotate_180(const QImage &src, QImage &dst, const int *parameter);
/// Counter-clockwise.
[[nodiscard]] bool trans_rotate_90(const QImage &src, QImage &dst, const int *parameter);
/// Clockwise.
[[nodiscard]] bool trans_rotate_270(const QImage &src, QImage &dst, const int *parameter);
[[nodiscard]] bool trans_depth_1_bit(const QImage &src, QImage &dst, const int *parameter);
[[nodiscard]] bool trans_depth_8_bit(const QImage &src, QImage &dst, const int *parameter);
[[nodiscard]] bool trans_depth_32_bit(const QImage &src, QImage &dst, const int *parameter);
[[nodiscard]] bool trans_brightness(const QImage &src, QImage &dst, const int *percent);
[[nodiscard]] bool trans_contrast(const QImage &src, QImage &dst, const int *percent);

/// What the operation and its preview compute; @p percent beyond -100 and 100 counts as those, and is not 0.
/// Indexed pages come back as they are.
[[nodiscard]] QImage brightened_page(const QImage &page, int percent);
[[nodiscard]] QImage contrasted_page(const QImage &page, int percent);

/// Rearranges the colour table of an indexed preview: with opaque black and opaque white in it, white goes to
/// entry 0 and black to entry 1. Pixels are not touched.
void patch_palette(QImage &image);
