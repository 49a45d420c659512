#pragma once

#include <QImage>
#include <QString>

class QFile;

/// Pages as files for programs outside. A failure may leave a part of the file.
///
/// Errors:  answered by the bool; true only when all bytes have been handed to the system and the file was closed
///          without complaint. A null page is refused before anything is touched.
/// Threads: GUI thread only.

/// The BMP file that `QImage::save` writes, byte for byte, over whatever lies at @p path.
[[nodiscard]] bool write_editor_file(const QString &path, const QImage &page);

/// The PBM file that `QImage::save` writes, over whatever lies at @p path: colours become black and white by error
/// diffusion. The unused bits at the end of a line are 0.
[[nodiscard]] bool write_recogniser_file(const QString &path, const QImage &page);

/// A name for a print job as the C library makes names of temporary files, such as "/tmp/fileIk3xQz". No such file
/// exists at the moment.
/// @return empty if there is none
[[nodiscard]] QString print_file_name();

/// Makes a new file that its owner alone may read and write. Neither a file nor a link that lies at @p path is touched.
/// @param[out] file  open for writing, and unbuffered
[[nodiscard]] bool create_print_file(const QString &path, QFile &file);

/// Writes the page as PNG and closes @p file, which create_print_file() has made.
[[nodiscard]] bool write_print_file(QFile &file, const QImage &page);
