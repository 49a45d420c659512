#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QSize>
#include <QtGlobal>

#include <optional>

/// The chunks of plain PNG files (ISO/IEC 15948): those of which nothing but the pixels needs a decoder of our own.

/// What the header tells. Rows are stored without interlacing, each behind the number of its filter.
struct PngShape
{
    enum class Kind : quint8 { Grey = 0, Color = 2, Indexed = 3, ColorAlpha = 6 }; ///< as the header writes it

    QSize size;
    int bits = 0; ///< of a sample
    Kind kind = Kind::Grey;

    [[nodiscard]] int samples() const;
    /// Bytes of a row without the number of its filter.
    [[nodiscard]] qsizetype rowBytes() const;
    /// Bytes of all rows with the numbers of their filters.
    [[nodiscard]] qsizetype storedBytes() const { return (rowBytes() + 1) * size.height(); }
};

/// Bytes of a file up to the end of its header.
inline constexpr qsizetype PngHeaderBytes = 33;

/// @param start  at least PngHeaderBytes
/// @return nothing if this is no plain picture of 8 bits a sample, or 1 bit grey or indexed
[[nodiscard]] std::optional<PngShape> plain_png_shape(QByteArrayView start);

struct PngParts
{
    QByteArrayView deflated; ///< all pixels as one stream, within the bytes of the file
    /// A file of one pixel with all other chunks, which tells what the whole one does: colour table, texts, resolution
    /// and colour space.
    QByteArray tale;
    int colorCount = 0; ///< of the colour table; 0 without one
};

/// Puts the parts of the pixels together, in place.
/// @return nothing if a check sum is wrong or something is unusual: an unknown chunk, a wrong order, a file without end
[[nodiscard]] std::optional<PngParts> png_parts(QByteArray &file, const PngShape &shape);
