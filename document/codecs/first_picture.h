#pragma once

#include <QImage>
#include <QString>

/// Files that are larger are not loaded.
inline constexpr qint64 LargestFileBytes = 0x20000000;

/// The first picture of a file as a page, decoded as the word says or, without a word that is known, by content.
///
/// @return null if the file cannot be read or shown rightly, lacks pixels, claims more than the machine affords, or
/// changed while it was read
[[nodiscard]] QImage read_first_picture(const QString &filePath, const QString &imgFormat);

/// The same beside the GUI thread, which has called limit_image_readers() before and does not do so meanwhile. Null also
/// for a PNG file that only the toolkit's reader can judge: the library of that one writes to standard error by itself.
[[nodiscard]] QImage read_first_picture_apart(const QString &filePath, const QString &imgFormat);
