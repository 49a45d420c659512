#pragma once

#include <QtGlobal>

#include <array>
#include <optional>

class QIODevice;

/// What the headers of a BMP file tell about its pixels.
struct BmpShape
{
    enum Compression : quint32 { Plain = 0, RunLengths8 = 1, RunLengths4 = 2, BitFields = 3 };
    static constexpr qint64 FileHeaderBytes = 14;
    static constexpr qint64 OldHeaderBytes = 12;
    static constexpr qint64 UsualHeaderBytes = 40;

    qint64 fileBytes = 0;
    qint64 dataStart = 0; ///< as the header says
    qint64 headerBytes = 0;
    qint64 width = 0;
    qint64 height = 0; ///< negative for rows from the top
    int bits = 0; ///< of a pixel
    quint32 compression = Plain;
    qint64 colors = 0; ///< as the header says; 0 for as many as the bits tell apart
    quint32 columnsPerMeter = 0;
    quint32 linesPerMeter = 0;
    std::array<quint32, 4> masks{}; ///< red, green, blue, alpha, of bit fields alone

    [[nodiscard]] qint64 rowCount() const { return height < 0 ? -height : height; }
    [[nodiscard]] bool hasRunLengths() const { return compression == RunLengths8 || compression == RunLengths4; }
    /// With padding to four bytes. As a real number: the sides that a header can claim are too large for whole ones.
    [[nodiscard]] double rowBytes() const;
    /// Bytes from the first row to the last pixel, padding between the rows included.
    [[nodiscard]] double pixelBytes() const;
    [[nodiscard]] qint64 colorBytes() const { return headerBytes == OldHeaderBytes ? 3 : 4; }
    [[nodiscard]] qint64 tableStart() const { return FileHeaderBytes + headerBytes; }
    /// Entries of the colour table; 0 for pixels that are colours themselves.
    [[nodiscard]] qint64 tableEntries() const;
    /// The first byte behind header, masks and table.
    [[nodiscard]] qint64 tableEnd() const;
};

/// Reads the headers from the start of the file.
/// @return nothing if the file ends within them, or if they are of no kind that is known
[[nodiscard]] std::optional<BmpShape> read_bmp_shape(QIODevice &file);
