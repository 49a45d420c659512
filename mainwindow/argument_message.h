#pragma once

#include <QString>
#include <QStringList>

// The argument list of a start as one message, so that it travels alike to this process and to another.

/// All arguments, the program path first, joined by ":" without quoting: a path that holds a ":" comes
/// back as two. ASCII stands as it is, other bytes are read as UTF-8.
[[nodiscard]] QString joinArgv(int argc, const char *const *argv);

/// The arguments of a message; empty ones are gone.
[[nodiscard]] QStringList splitArgs(const QString &message);

/// The arguments with paths that hold a ":" put together again: an entry behind the first that names nothing on disk is
/// joined with as many of those behind it as give the name of a file. What gives none stays as it is.
[[nodiscard]] QStringList join_paths_with_colons(const QStringList &arguments);
