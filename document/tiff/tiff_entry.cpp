#include "tiff_entry.h"

#include "tiff_structure.h"

#include <QByteArray>
#include <QtEndian>

#include <algorithm>
#include <tiffio.h>
#include <unistd.h>

namespace {

/// Some bytes of the file, or fewer at its end.
QByteArray bytes_at(TIFF *tif, qint64 position, qsizetype count)
{
    QByteArray bytes(count, '\0');
    const ssize_t present = ::pread(TIFFFileno(tif), bytes.data(), static_cast<std::size_t>(count), position);
    bytes.truncate(std::max<ssize_t>(present, 0));
    return bytes;
}

template <typename Number> Number number_at(TIFF *tif, const char *bytes)
{
    return TIFFIsBigEndian(tif) != 0 ? qFromBigEndian<Number>(bytes) : qFromLittleEndian<Number>(bytes);
}

/// A count or an offset: eight bytes in large files, else four.
quint64 long_at(TIFF *tif, const char *bytes)
{
    return TIFFIsBigTIFF(tif) != 0 ? number_at<quint64>(tif, bytes) : number_at<quint32>(tif, bytes);
}

bool has_numbers_within_file(TIFF *tif, const char *entry)
{
    const bool isLarge = TIFFIsBigTIFF(tif) != 0;
    const quint64 ownBytes = isLarge ? 8 : 4; // of the entry, for numbers that fit
    const auto type = number_at<quint16>(tif, entry + 2);
    const quint64 each = is_tiff_number_type(type) ? tiff_type_bytes(type) : 0;
    const quint64 count = long_at(tif, entry + 4);
    if (each == 0 || count == 0)
        return false;
    if (count <= ownBytes / each)
        return true;
    const auto fileBytes = static_cast<quint64>(TIFFGetSizeProc(tif)(TIFFClientdata(tif)));
    const quint64 offset = long_at(tif, entry + (isLarge ? 12 : 8));
    return offset <= fileBytes && count <= (fileBytes - offset) / each;
}

} // namespace

bool has_tiff_number(TIFF *tif, quint16 tag)
{
    // Large files count their entries in eight bytes; no more of them fit a directory than in the other kind.
    const bool isLarge = TIFFIsBigTIFF(tif) != 0;
    const qsizetype countBytes = isLarge ? 8 : 2;
    const qsizetype entryBytes = isLarge ? 20 : 12;
    const auto start = static_cast<qint64>(TIFFCurrentDirOffset(tif));
    const QByteArray count = bytes_at(tif, start, countBytes);
    if (count.size() < countBytes)
        return false;
    const quint64 entryCount = isLarge ? long_at(tif, count.constData()) : number_at<quint16>(tif, count.constData());
    constexpr quint64 mostEntries = 0xffff;
    const QByteArray entries =
        bytes_at(tif, start + countBytes, entryBytes * static_cast<qsizetype>(std::min(entryCount, mostEntries)));
    for (qsizetype at = 0; at + entryBytes <= entries.size(); at += entryBytes) {
        if (number_at<quint16>(tif, entries.constData() + at) == tag)
            return has_numbers_within_file(tif, entries.constData() + at);
    }
    return false;
}
