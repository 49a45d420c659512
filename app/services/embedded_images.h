#pragma once

#include <QImage>

/// The pictures that are part of the program: constant tables of packed raw pixels, made at build time from
/// the drawings in share/icons.
///
/// Units:     sizes in pixels, lengths in bytes.
/// Errors:    a row that cannot be unpacked gives a null image.
/// Ownership: the tables are constant and live as long as the program.
/// Threads:   any.

/// One picture. A row with null data closes a table.
struct EmbeddedImage
{
    int width = 0;
    int height = 0;
    int depth = 0; ///< bits a pixel
    const unsigned char *data = nullptr; ///< what qUncompress() takes; unpacked, rows without padding
    int compressedSize = 0;
    int colorCount = 0; ///< entries of colorTable
    const QRgb *colorTable = nullptr; ///< null at depth 32
    bool alpha = false;
    const char *name = nullptr; ///< UTF-8
};

/// The tool pictures, 24 by 24: by command in alphabetical order, each as color, disable and gray.
[[nodiscard]] const EmbeddedImage *embedded_tool_pictures();

/// The picture of the program itself, from small to large.
[[nodiscard]] const EmbeddedImage *embedded_application_pictures();

/// The pixels of @p row in an image of their own: 32 bits in the host's byte order, or 8 with a colour table.
[[nodiscard]] QImage unpack_embedded_image(const EmbeddedImage &row);
