#pragma once

#include <QImage>
#include <QString>

class QFile;

/// A page on disk, for a while: the BMP file that QImage::save() would write, byte for byte, and the
/// page that QImage::load() would read, but at a fraction of their time.
///
/// A page with transparency keeps it, which no file of the toolkit does: one of 32 bits as a BMP file of 32 bits, which
/// the toolkit reads as it is, one with a colour table in the fourth byte of the table's entries, which it does not.
///
/// The files are the user's alone. Nothing is written into a file, nor through a link, that is there already, and
/// nothing is read but a plain file of the user's own.
///
/// Memory:  two blocks of a mebibyte beside the page itself.
/// Threads: GUI thread only; a thread that packs rows ahead, or reads half of them, ends before the call does.

/// Writes @p image to the new file @p fileName.
/// @param[out] isTaken  whether there is something of that name already, which is left alone then; may be null
/// @return false for a null image, and unless all bytes have been handed to the system; what has been
///         written of the file stays
[[nodiscard]] bool write_snapshot(const QString &fileName, const QImage &image, bool *isTaken = nullptr);

/// Writes the bytes that QImage::save() would write, alpha dropped, for whatever reader, and closes @p file.
/// @param file  open for writing at its beginning, and unbuffered
/// @return false for a null image, and unless all bytes have been handed to the system
[[nodiscard]] bool write_bmp(QFile &file, const QImage &image);

/// Reads a snapshot back, as a page: Mono, Indexed8, RGB32 or, with transparency, ARGB32, with the table and resolution
/// of the file. A snapshot that another program has replaced by another BMP file is read as that.
/// @return null if the file is missing, no plain file of the user's own, cut short, no BMP file, or too large for the
///         memory that is free
[[nodiscard]] QImage read_snapshot(const QString &fileName);
