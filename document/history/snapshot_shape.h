#pragma once

#include <QImage>

#include <array>
#include <optional>

/// The toolkit's word for the format of snapshot files.
inline constexpr const char *SnapshotFormatWord = "BMP";

/// What the header of a snapshot file tells: a BMP header in the one form that the toolkit writes, or a longer one,
/// known as BITMAPV4HEADER, for pixels with alpha.
struct SnapshotShape
{
    static constexpr qint64 LongestHeaderBytes = 122;
    static constexpr qint64 TableEntryBytes = 4; ///< blue, green, red, and 0 or the alpha

    int width = 0;
    int height = 0;
    int bits = 0; ///< of a pixel in the file: 1, 4, 8 or 24; 32 with alpha
    int colorCount = 0; ///< entries of the table between header and pixels
    int dotsPerMeterX = 0;
    int dotsPerMeterY = 0;
    bool hasTableAlpha = false; ///< told by a mark of ours in the header, as the toolkit does not look for alpha there

    [[nodiscard]] qint64 headerBytes() const { return bits == 32 ? LongestHeaderBytes : 54; }
    /// Rows lie bottom up and are padded to four bytes.
    [[nodiscard]] qint64 rowBytes() const { return (qint64{width} * bits + 31) / 32 * 4; }
    [[nodiscard]] qint64 pixelBytes() const { return rowBytes() * height; }
    [[nodiscard]] qint64 tableBytes() const { return TableEntryBytes * colorCount; }
    [[nodiscard]] qint64 fileBytes() const { return headerBytes() + tableBytes() + pixelBytes(); }
};

/// The first bytes of a file; those behind headerBytes() are no part of the header.
using SnapshotHeader = std::array<uchar, SnapshotShape::LongestHeaderBytes>;

/// The file that the toolkit makes of a page. Pages of up to 16 colours take half a byte a pixel.
/// @return nothing for an image that is no page, a null one too, or whose rows or size are unusual
[[nodiscard]] std::optional<SnapshotShape> bmp_shape(const QImage &page);

/// The same, but with the alpha of a page of which not all is opaque.
[[nodiscard]] std::optional<SnapshotShape> snapshot_shape(const QImage &page);

/// The shape that a header tells.
/// @return nothing unless the header is, to the byte, that of a file from which a page comes back as it is
[[nodiscard]] std::optional<SnapshotShape> snapshot_shape(const SnapshotHeader &header);

[[nodiscard]] SnapshotHeader snapshot_header(const SnapshotShape &shape);
