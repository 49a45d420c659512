#pragma once

#include <QIODevice>
#include <QString>

/// What the toolkit calls the format of a file, told by its content; empty if no reader knows it.
///
/// PNG files of that name are known by their first bytes. To find that out the toolkit would load every image plug-in
/// there is, which takes some milliseconds of a start.
[[nodiscard]] QString picture_word(const QString &filePath);

/// The word of a format whose files hold one picture each, if the next bytes are the first of such a file; or empty.
[[nodiscard]] QString single_picture_word(QIODevice &file);
