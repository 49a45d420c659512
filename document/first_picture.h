#pragma once

#include <QImage>
#include <QString>

/// The first picture of a file as a page, decoded as the word says or, without a word that is known, by content.
///
/// @return null if the file cannot be read or shown rightly, lacks pixels, claims more than the machine affords, or
/// changed while it was read
[[nodiscard]] QImage read_first_picture(const QString &filePath, const QString &imgFormat);
