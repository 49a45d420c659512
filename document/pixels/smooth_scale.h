#pragma once

#include <QImage>

/// Whether scale_words() can do it: pages that become larger, or smaller, on both sides. Others, and old processors, are
/// left to the toolkit.
[[nodiscard]] bool can_scale_words(QSize from, QSize to);

/// Scales a page smoothly, to the bit as `QImage::scaled` does it, on two threads and with less than half of its work.
///
/// Memory: some 40 bytes for each column of the larger page.
///
/// @param page    RGB32
/// @param result  RGB32, of the size that is wanted
void scale_words(const QImage &page, QImage &result);
