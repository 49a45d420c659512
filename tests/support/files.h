#pragma once

#include <QByteArray>
#include <QString>

#include <sys/stat.h>

/// Whole files. What cannot be read or written ends the test program.

/// Makes the directories on the way too.
void write_file(const QString &path, const QByteArray &bytes);
/// Writes a script that its owner may run.
void write_program(const QString &path, const QByteArray &text);
[[nodiscard]] QByteArray file_bytes(const QString &path);
/// @return nothing if there is no such file
[[nodiscard]] QByteArray file_bytes_if_any(const QString &path);

/// What lstat() tells of a file.
using FileStatus = struct stat;
[[nodiscard]] FileStatus file_status(const QString &path);
