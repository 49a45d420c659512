#pragma once

#include <QImage>

class QIODevice;

/// Writes a page as PNG for a program that reads it at once: all pixels, the colour table with its transparency and
/// the resolution, compressed just enough to be small in hardly more time than the pixels take to be read. Texts of
/// the image are left out.
///
/// Memory: a line of the page and blocks of 256 KiB.
///
/// @param device  open for writing
/// @return false for a null image, and unless the device took all bytes
[[nodiscard]] bool write_png(QIODevice &device, const QImage &image);
