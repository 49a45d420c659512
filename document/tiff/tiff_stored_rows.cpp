#include "tiff_stored_rows.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <span>
#include <tiffio.h>
#include <unistd.h>

namespace {

quint16 tag_or_default(TIFF *tif, ttag_t tag)
{
    quint16 value = 0;
    return TIFFGetFieldDefaulted(tif, tag, &value) == 1 ? value : quint16{0};
}

bool is_stored(TIFF *tif)
{
    return tag_or_default(tif, TIFFTAG_COMPRESSION) == COMPRESSION_NONE
        && tag_or_default(tif, TIFFTAG_PLANARCONFIG) == PLANARCONFIG_CONTIG
        && tag_or_default(tif, TIFFTAG_FILLORDER) == FILLORDER_MSB2LSB && TIFFIsTiled(tif) == 0;
}

bool read_at(int file, std::span<uchar> bytes, qint64 position)
{
    while (!bytes.empty()) {
        const ssize_t count = ::pread(file, bytes.data(), bytes.size(), position);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        bytes = bytes.subspan(static_cast<std::size_t>(count));
        position += count;
    }
    return true;
}

/// Moves rows apart that lie without gaps at the end of @p lines, so that each begins its line.
void spread_rows(std::span<uchar> lines, std::size_t lineBytes, std::size_t rowBytes)
{
    const std::size_t count = lines.size() / lineBytes;
    const uchar *from = lines.data() + count * (lineBytes - rowBytes);
    // From the top, and never onto a row that has still to move.
    for (uchar *to = lines.data(); to != from; to += lineBytes, from += rowBytes)
        std::memmove(to, from, rowBytes);
}

} // namespace

std::optional<qint64> start_of_stored_rows(TIFF *tif, int rowCount, qint64 rowBytes)
{
    quint32 rowsOfStrip = 0;
    if (!is_stored(tif) || TIFFGetFieldDefaulted(tif, TIFFTAG_ROWSPERSTRIP, &rowsOfStrip) != 1 || rowsOfStrip == 0)
        return std::nullopt;
    const auto start = static_cast<qint64>(TIFFGetStrileOffset(tif, 0));
    qint64 wantedOffset = start;
    auto rowsLeft = static_cast<quint32>(rowCount);
    for (quint32 strip = 0; rowsLeft > 0; ++strip) {
        const quint32 rows = std::min(rowsOfStrip, rowsLeft);
        const qint64 bytes = rows * rowBytes;
        const bool follows = static_cast<qint64>(TIFFGetStrileOffset(tif, strip)) == wantedOffset;
        if (!follows || static_cast<qint64>(TIFFGetStrileByteCount(tif, strip)) < bytes)
            return std::nullopt;
        wantedOffset += bytes;
        rowsLeft -= rows;
    }
    return start > 0 ? std::optional(start) : std::nullopt;
}

bool read_stored_rows(int fileDescriptor, qint64 start, qint64 rowBytes, QImage &image)
{
    constexpr qsizetype blockBytes = qsizetype{1024} * 1024; // stays in the cache until its rows have moved
    const qsizetype lineBytes = image.bytesPerLine();
    const auto rowsOfBlock = static_cast<int>(std::max<qsizetype>(1, blockBytes / lineBytes));
    uchar *line = image.bits();
    for (int y = 0; y < image.height(); y += rowsOfBlock) {
        const int rows = std::min(rowsOfBlock, image.height() - y);
        const std::span<uchar> lines(line, static_cast<std::size_t>(rows * lineBytes));
        if (!read_at(fileDescriptor, lines.last(static_cast<std::size_t>(rows * rowBytes)), start + y * rowBytes))
            return false;
        spread_rows(lines, static_cast<std::size_t>(lineBytes), static_cast<std::size_t>(rowBytes));
        line += lines.size();
    }
    return true;
}
