#include "tiff_structure.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>
#include <unordered_set>

namespace {

// Directories often stand between the strips of their pages: more would be read for nothing, at each of them.
constexpr std::size_t WindowBytes = std::size_t{4} * 1024;
constexpr std::size_t BytesBefore = std::size_t{1} * 1024; // at most: values tend to stand before their directory
constexpr std::size_t MostDirectories = 1U << 20; // as many as libtiff reads
constexpr quint64 MostEntries = 65535;

/// The number that stands in 2, 4 or 8 bytes.
quint64 number_in(const uchar *bytes, quint64 width, bool isBigEndian)
{
    switch (width) {
    case 2:
        return isBigEndian ? qFromBigEndian<quint16>(bytes) : qFromLittleEndian<quint16>(bytes);
    case 4:
        return isBigEndian ? qFromBigEndian<quint32>(bytes) : qFromLittleEndian<quint32>(bytes);
    default:
        return isBigEndian ? qFromBigEndian<quint64>(bytes) : qFromLittleEndian<quint64>(bytes);
    }
}

} // namespace

quint64 TiffKind::largestOffset() const
{
    return isBigTiff ? std::numeric_limits<qint64>::max() : std::numeric_limits<quint32>::max();
}

quint64 tiff_type_bytes(quint16 type)
{
    // By the type's number; 14 and 15 were never given.
    constexpr std::array<quint8, 19> bytes{0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4, 0, 0, 8, 8, 8};
    return type < bytes.size() ? bytes.at(type) : 0;
}

int tiff_number_bytes(quint16 type)
{
    constexpr std::array<quint8, 19> bytes{1, 1, 1, 2, 4, 4, 1, 1, 2, 4, 4, 4, 8, 4, 1, 1, 8, 8, 8};
    return type < bytes.size() ? bytes.at(type) : 1;
}

bool is_tiff_number_type(quint16 type)
{
    const bool isPlace = type == TiffIfd || type == TiffIfd8;
    return tiff_type_bytes(type) > 0 && type != TiffAscii && type != TiffUndefined && !isPlace;
}

bool is_tiff_offset_type(quint16 type)
{
    return type == TiffShort || type == TiffLong || type == TiffIfd || type == TiffLong8 || type == TiffIfd8;
}

const TiffEntry *TiffDirectory::find(quint16 tag) const
{
    const auto it = std::ranges::find(entries, tag, &TiffEntry::tag);
    return it == entries.cend() ? nullptr : &*it;
}

TiffStructure::TiffStructure(int file_) : file(file_)
{
    struct stat status = {};
    std::array<uchar, 8> header{};
    if (::fstat(file, &status) != 0 || status.st_size < 0)
        return;
    size_ = static_cast<quint64>(status.st_size);
    if (!read(0, header) || header[0] != header[1] || (header[0] != 'I' && header[0] != 'M'))
        return;
    kind_.isBigEndian = header[0] == 'M';
    const quint64 version = number_in(&header[2], 2, kind_.isBigEndian);
    if (version != 42 && version != 43)
        return;
    kind_.isBigTiff = version == 43;
    if (kind_.isBigTiff && number_in(&header[4], 2, kind_.isBigEndian) != 8)
        return;
    const quint64 width = kind_.offsetBytes();
    firstDirectory_ = numberAt(kind_.headerBytes() - width, width).value_or(0);
}

bool TiffStructure::readDirect(quint64 position, std::span<uchar> bytes) const
{
    while (!bytes.empty()) {
        const ssize_t count = ::pread(file, bytes.data(), bytes.size(), static_cast<off_t>(position));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        bytes = bytes.subspan(static_cast<std::size_t>(count));
        position += static_cast<quint64>(count);
    }
    return true;
}

bool TiffStructure::read(quint64 position, std::span<uchar> bytes) const
{
    if (!holds(position, bytes.size()))
        return false;
    if (bytes.size() > WindowBytes - BytesBefore)
        return readDirect(position, bytes);
    if (position < windowStart || position + bytes.size() > windowStart + window.size()) {
        windowStart = position - std::min<quint64>(position, BytesBefore);
        window.resize(std::min<quint64>(WindowBytes, size_ - windowStart));
        if (!readDirect(windowStart, window)) {
            window.clear();
            return false;
        }
    }
    std::ranges::copy_n(window.cbegin() + static_cast<qint64>(position - windowStart),
                        static_cast<qint64>(bytes.size()), bytes.begin());
    return true;
}

std::optional<quint64> TiffStructure::numberAt(quint64 position, quint64 bytes) const
{
    std::array<uchar, 8> buffer{};
    if (!read(position, std::span(buffer).first(bytes)))
        return std::nullopt;
    return number_in(buffer.data(), bytes, kind_.isBigEndian);
}

std::optional<quint64> TiffStructure::entryCount(quint64 position) const
{
    if (position < kind_.headerBytes())
        return std::nullopt;
    const std::optional<quint64> count = numberAt(position, kind_.countBytes());
    const bool fits = count && *count > 0 && *count <= MostEntries
        && holds(position + kind_.countBytes(), *count * kind_.entryBytes() + kind_.offsetBytes());
    return fits ? count : std::nullopt;
}

std::optional<TiffEntry> TiffStructure::entryAt(quint64 position) const
{
    const quint64 width = kind_.offsetBytes();
    std::array<uchar, 20> bytes{};
    if (!read(position, std::span(bytes).first(kind_.entryBytes())))
        return std::nullopt;
    TiffEntry entry{.tag = static_cast<quint16>(number_in(bytes.data(), 2, kind_.isBigEndian)),
                    .type = static_cast<quint16>(number_in(&bytes[2], 2, kind_.isBigEndian)),
                    .count = number_in(&bytes[4], width, kind_.isBigEndian),
                    .position = position + 4 + width};
    const quint64 typeBytes = tiff_type_bytes(entry.type);
    if (typeBytes == 0)
        return entry;
    if (entry.count > size_ / typeBytes)
        return std::nullopt;
    if (entry.bytes() > width)
        entry.position = number_in(&bytes[4 + width], width, kind_.isBigEndian);
    return holds(entry.position, entry.bytes()) ? std::optional(entry) : std::nullopt;
}

std::optional<TiffDirectory> TiffStructure::directory(quint64 position) const
{
    const std::optional<quint64> count = entryCount(position);
    if (!count)
        return std::nullopt;
    TiffDirectory directory;
    directory.entries.reserve(*count);
    for (quint64 i = 0; i < *count; ++i) {
        const auto entry = entryAt(position + kind_.countBytes() + i * kind_.entryBytes());
        if (!entry)
            return std::nullopt;
        directory.entries.push_back(*entry);
    }
    const auto next = nextOf(position);
    directory.next = next.value_or(0);
    return next ? std::optional(std::move(directory)) : std::nullopt;
}

std::optional<quint64> TiffStructure::nextOf(quint64 position) const
{
    const std::optional<quint64> count = entryCount(position);
    if (!count)
        return std::nullopt;
    return numberAt(position + kind_.countBytes() + *count * kind_.entryBytes(), kind_.offsetBytes());
}

bool TiffStructure::readNumbers(const TiffEntry &entry, quint64 first, std::span<quint64> numbers) const
{
    if (!is_tiff_offset_type(entry.type) || first > entry.count || numbers.size() > entry.count - first)
        return false;
    const quint64 width = tiff_type_bytes(entry.type);
    quint64 position = entry.position + first * width;
    for (quint64 &number : numbers) {
        const std::optional<quint64> value = numberAt(position, width);
        if (!value)
            return false;
        number = *value;
        position += width;
    }
    return true;
}

std::optional<quint64> TiffStructure::number(const TiffEntry &entry) const
{
    quint64 number = 0;
    return readNumbers(entry, 0, {&number, 1}) ? std::optional(number) : std::nullopt;
}

TiffChain tiff_chain(const TiffStructure &structure)
{
    TiffChain chain;
    std::unordered_set<quint64> met;
    quint64 position = structure.firstDirectory();
    while (position != 0) {
        const std::optional<quint64> next = structure.nextOf(position);
        if (!next || chain.positions.size() == MostDirectories || !met.insert(position).second)
            return chain;
        chain.positions.push_back(position);
        position = *next;
    }
    chain.isWhole = !chain.positions.empty();
    return chain;
}
