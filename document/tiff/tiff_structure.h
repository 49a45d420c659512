#pragma once

#include <QtGlobal>

#include <optional>
#include <span>
#include <vector>

/// What makes TIFF files differ before any tag is read.
struct TiffKind
{
    bool isBigEndian = false; ///< "MM" instead of "II"
    bool isBigTiff = false; ///< offsets and counts of 64 bits

    bool operator==(const TiffKind &) const = default;

    [[nodiscard]] quint64 headerBytes() const { return isBigTiff ? 16 : 8; }
    [[nodiscard]] quint64 offsetBytes() const { return isBigTiff ? 8 : 4; } ///< also the room for a value in its entry
    [[nodiscard]] quint64 countBytes() const { return isBigTiff ? 8 : 2; } ///< of the number of a directory's entries
    [[nodiscard]] quint64 entryBytes() const { return isBigTiff ? 20 : 12; }
    [[nodiscard]] quint64 largestOffset() const;
};

/// Types of TIFF values, by the numbers that stand in files.
enum TiffType : quint16 {
    TiffByte = 1,
    TiffAscii = 2,
    TiffShort = 3,
    TiffLong = 4,
    TiffRational = 5,
    TiffUndefined = 7,
    TiffIfd = 13,
    TiffLong8 = 16,
    TiffIfd8 = 18,
};

/// Bytes of one value, 0 for a type that is not known.
[[nodiscard]] quint64 tiff_type_bytes(quint16 type);
/// Bytes of one number within a value: a rational is two of them, of 4 bytes each. 1 for what has no byte order.
[[nodiscard]] int tiff_number_bytes(quint16 type);
/// Whether values of the type are numbers: no text, no bytes without a meaning, no places in the file.
[[nodiscard]] bool is_tiff_number_type(quint16 type);
/// Whether values of a type count something or tell a place: 16, 32 or 64 bits without a sign.
[[nodiscard]] bool is_tiff_offset_type(quint16 type);

struct TiffEntry
{
    quint16 tag = 0;
    quint16 type = 0;
    quint64 count = 0;
    quint64 position = 0; ///< of the value's first byte in the file, also of one that stands in the entry

    [[nodiscard]] quint64 bytes() const { return count * tiff_type_bytes(type); }
};

struct TiffDirectory
{
    std::vector<TiffEntry> entries;
    quint64 next = 0; ///< position of the directory behind it, 0 for none

    [[nodiscard]] const TiffEntry *find(quint16 tag) const; ///< null if there is none
};

/// A TIFF file as a structure of bytes: classic or BigTIFF, of either byte order. Nothing is decoded, and nothing that
/// the file says is trusted: whatever is handed out lies within the file.
///
/// Errors:    nothing or a false for what lies outside the file or makes no sense.
/// Ownership: the file descriptor is the caller's and has to outlive the object; its position is not used.
class TiffStructure
{
public:
    /// Reads the header.
    explicit TiffStructure(int file);

    [[nodiscard]] bool isValid() const { return firstDirectory_ != 0; }
    [[nodiscard]] TiffKind kind() const { return kind_; }
    [[nodiscard]] quint64 size() const { return size_; }
    [[nodiscard]] quint64 firstDirectory() const { return firstDirectory_; }

    /// @return nothing if an entry, or a value of a known type, does not lie in the file
    [[nodiscard]] std::optional<TiffDirectory> directory(quint64 position) const;
    /// The position of the directory behind another one, whose entries are not looked at.
    [[nodiscard]] std::optional<quint64> nextOf(quint64 position) const;

    /// Fills @p numbers with values of an entry whose type is one for counts and offsets.
    [[nodiscard]] bool readNumbers(const TiffEntry &entry, quint64 first, std::span<quint64> numbers) const;
    /// The first of them.
    [[nodiscard]] std::optional<quint64> number(const TiffEntry &entry) const;

    [[nodiscard]] bool read(quint64 position, std::span<uchar> bytes) const;
    /// Whether so many bytes from here on lie in the file.
    [[nodiscard]] bool holds(quint64 position, quint64 bytes) const
    {
        return position <= size_ && bytes <= size_ - position;
    }

private:
    [[nodiscard]] bool readDirect(quint64 position, std::span<uchar> bytes) const;
    [[nodiscard]] std::optional<quint64> numberAt(quint64 position, quint64 bytes) const;
    [[nodiscard]] std::optional<quint64> entryCount(quint64 position) const;
    [[nodiscard]] std::optional<TiffEntry> entryAt(quint64 position) const;

    int file;
    quint64 size_ = 0;
    TiffKind kind_;
    quint64 firstDirectory_ = 0;
    mutable std::vector<uchar> window; ///< bytes around those read last
    mutable quint64 windowStart = 0;
};

/// The directories that a reader of the file meets one after the other.
struct TiffChain
{
    std::vector<quint64> positions;
    bool isWhole = false; ///< it has an end, and does not come back to a directory or leave the file before
};

[[nodiscard]] TiffChain tiff_chain(const TiffStructure &structure);
