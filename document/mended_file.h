#pragma once

#include <QByteArray>

class QIODevice;

/// A file that the toolkit's readers show as the given one is meant: for kinds of files that they would show wrongly,
/// or with pixels that they never wrote.
///
/// @param file  complete, open for reading and not sequential; its position is 0 afterwards
/// @return nothing if the file is shown rightly as it stands
[[nodiscard]] QByteArray mended_file(QIODevice &file);
