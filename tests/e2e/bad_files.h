#pragma once

#include <QString>

/// Files that no program should trust. Each function makes one under @p path; what cannot be made ends the test program.

/// The first bytes of what a 100 by 80 page looks like in the format.
/// @param share  how much of the file is kept, above 0 and below 1
void write_truncated(const QString &path, const char *format, double share);
void make_named_pipe(const QString &path);
void make_unreadable_file(const QString &path);
/// A PNG whose header is right and promises this size, with hardly any pixels behind it.
void write_png_promising(const QString &path, quint32 width, quint32 height);
/// A good 2 by 2 BMP that goes on with nothing up to @p bytes; it takes up next to no room on disk.
void write_sparse_bmp(const QString &path, qint64 bytes);
