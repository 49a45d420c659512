#pragma once

#include <QByteArray>
#include <QImage>
#include <QRgba64>

#include <optional>

class QIODevice;

/// A file in place of one that the toolkit's readers would show wrongly, or with pixels that they never wrote.
struct MendedFile
{
    QByteArray bytes; ///< nothing if the file is shown rightly as it stands
    std::optional<QRgba64> clearColor; ///< pixels of this colour are transparent, which the bytes do not tell
};

/// @param file  complete, open for reading and not sequential; its position is 0 afterwards
[[nodiscard]] MendedFile mended_file(QIODevice &file);

/// A picture of opaque words of 64 bits whose pixels of one colour have become transparent.
/// @return null for a picture of another format, and if there is no memory for the result
[[nodiscard]] QImage with_clear_color(QImage image, QRgba64 color);
