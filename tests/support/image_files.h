#pragma once

#include "files.h"

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QString>

/// Files of pictures, made from scratch. What cannot be made ends the test program.

/// What the toolkit's writer makes of a picture.
/// @param quality  -1 for the writer's own
[[nodiscard]] QByteArray encoded(const QImage &image, const char *format, int quality = -1);

/// @p value in the byte order of most formats of this machine's world, the low byte first.
[[nodiscard]] QByteArray little16(int value);
[[nodiscard]] QByteArray little32(qint64 value);

/// A BMP file of any depth: header, table of 0x00RRGGBB words, and rows as they are stored, that is from
/// the bottom and padded to four bytes.
[[nodiscard]] QByteArray bmp_file(int width, int height, int bits, const QList<QRgb> &table, const QByteArray &rows);

/// A palette GIF of 2 by 1 pixels, red and blue.
[[nodiscard]] QByteArray small_gif();

/// Colour types of PNG files.
inline constexpr char PngGrey = 0;
inline constexpr char PngColor = 2;
inline constexpr char PngGreyAlpha = 4;

/// A PNG of one row.
/// @param bits  of a sample
/// @param row   the number of the filter, then the samples
/// @param chunk, content  what comes before the pixels; nothing without a name
[[nodiscard]] QByteArray png_file(qint64 width, char bits, char colorType, const QByteArray &row,
                                  const QByteArray &chunk = {}, const QByteArray &content = {});

/// A part of a PNG or MNG file, with its length and check sum.
[[nodiscard]] QByteArray png_chunk(const QByteArray &type, const QByteArray &content);
[[nodiscard]] QByteArray big32(qint64 value);

/// A part of a RIFF file, as WebP is one; one of odd length has a byte behind it.
[[nodiscard]] QByteArray riff_chunk(const QByteArray &name, const QByteArray &content);

/// A PNG with a header that promises this size in true colour, and hardly any pixels.
[[nodiscard]] QByteArray png_promising(qint64 width, qint64 height);

/// The most memory that this process held since the count was restarted.
[[nodiscard]] qint64 peak_memory_bytes();
void restart_peak_memory();

/// How much more time and memory a test may take: the address sanitizer marks all memory that is reserved,
/// also what the program never touches.
#ifdef __SANITIZE_ADDRESS__
inline constexpr qint64 MeasureAllowance = 200;
#else
inline constexpr qint64 MeasureAllowance = 1;
#endif
