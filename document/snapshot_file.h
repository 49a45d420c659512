#pragma once

#include <QImage>
#include <QString>

class QFile;

/// A page on disk, for a while: the BMP file that QImage::save() would write, byte for byte, and the
/// page that QImage::load() would read, but at a fraction of their time.
///
/// Memory:  two blocks of a mebibyte beside the page itself.
/// Threads: GUI thread only; a thread that packs rows ahead ends before the call does.

/// Writes @p image over @p fileName.
/// @return false for a null image, and unless all bytes have been handed to the system; what has been
///         written of the file stays
[[nodiscard]] bool write_snapshot(const QString &fileName, const QImage &image);

/// Writes the bytes that QImage::save() would write, for whatever reader, and closes @p file.
/// @param file  open for writing at its beginning, and unbuffered
/// @return false for a null image, and unless all bytes have been handed to the system
[[nodiscard]] bool write_bmp(QFile &file, const QImage &image);

/// Reads a snapshot back, as a page: Mono, Indexed8 or RGB32 with the table and resolution of the file.
/// A snapshot that another program has replaced by another BMP file is read as that.
/// @return null if the file is missing, cut short, no BMP file, or too large for the memory that is free
[[nodiscard]] QImage read_snapshot(const QString &fileName);
