#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

/// What the rows compare our work with: the same jobs by the toolkit's own calls and plain loops, as one writes them
/// without a thought for speed. They use none of our libraries.

/// Every pixel through QColor; 1 to 100 percent lighter.
[[nodiscard]] QImage brightened_plainly(const QImage &page, int percent);

/// Two passes over the words, 1 to 100 percent more contrast.
[[nodiscard]] QImage contrasted_plainly(const QImage &page, int percent);

/// Black and white, pixel by pixel.
[[nodiscard]] QImage mono_plainly(const QImage &page);

/// A 1-bit page turned by 90 degrees or scaled, by way of a copy of 32 bits.
[[nodiscard]] QImage turned_mono_plainly(const QImage &page);
[[nodiscard]] QImage scaled_mono_plainly(const QImage &page, double factor);

/// Opens a new file, gives it the bytes by one write(2) after the other, flushes it where flushes.h lets it, and closes
/// it.
[[nodiscard]] bool write_bytes(const QString &path, const QByteArray &bytes);

/// Copies a file in blocks of 64 KiB, and flushes the copy as far as the row asks for it.
[[nodiscard]] bool copy_file(const QString &from, const QString &to);

/// A TIFF file of one page of 32 bits, by a loop over its scan lines and with the library's own buffers.
[[nodiscard]] bool save_tiff_plainly(const QString &path, const QImage &page);
