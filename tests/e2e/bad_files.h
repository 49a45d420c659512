#pragma once

#include <QByteArray>
#include <QString>

/// Files that no program should trust. Each function makes one under @p path and answers whether that
/// went well.

[[nodiscard]] bool write_bytes(const QString &path, const QByteArray &bytes);
/// The first bytes of what a 100 by 80 page looks like in the format.
/// @param share  how much of the file is kept, above 0 and below 1
[[nodiscard]] bool write_truncated(const QString &path, const char *format, double share);
[[nodiscard]] bool make_named_pipe(const QString &path);
[[nodiscard]] bool make_unreadable_file(const QString &path);
/// A PNG whose header is right and promises this size, with hardly any pixels behind it.
[[nodiscard]] bool write_png_promising(const QString &path, quint32 width, quint32 height);
/// A good 2 by 2 BMP that goes on with nothing up to @p bytes; it takes up next to no room on disk.
[[nodiscard]] bool write_sparse_bmp(const QString &path, qint64 bytes);
