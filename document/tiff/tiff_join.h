#pragma once

#include "tiff_structure.h"

#include <memory>
#include <vector>

class QIODevice;
struct TiffJoinPart;

/// Puts a TIFF file together of directories of others. Strips, tiles and values are copied as they stand, with all
/// tags and all directories below, and come to stand without gaps; nothing is decoded. Numbers are brought to the
/// byte order of the file, and numbers that tell a place to its new place.
///
/// What an unknown tag means by a number cannot be known: it stays.
///
/// Units:     directories are counted from 0, in the order in which a reader meets them.
/// Errors:    a false; of the add functions for a file that cannot be walked safely or copied whole.
/// Ownership: file descriptors are the caller's, have to outlive the object, and are read at places of their own.
class TiffJoin
{
public:
    explicit TiffJoin(TiffKind kind);
    ~TiffJoin();
    Q_DISABLE_COPY_MOVE(TiffJoin)

    /// Adds @p count directories from the number @p first on.
    [[nodiscard]] bool add(int file, std::size_t first, std::size_t count);

    /// Adds the first directory of @p file in place of that of @p former, and with what that one tells about the
    /// page and not about its pixels. A former directory that cannot be walked safely tells nothing.
    /// @param keepsResolution  the resolution too is that of the former directory, if it has one
    [[nodiscard]] bool addInPlaceOf(int file, int former, bool keepsResolution);

    /// About the size of the file that write() makes.
    [[nodiscard]] quint64 bytes() const;
    /// Writes the file from its start on.
    /// @param file  open for writing and empty, and has the words for what the disk refused
    [[nodiscard]] bool write(QIODevice &file);
    /// Whether it was the kind of file that has no numbers for places so far behind its start.
    [[nodiscard]] bool isTooLarge() const { return tooLarge; }

private:
    TiffKind kind;
    std::vector<std::unique_ptr<TiffJoinPart>> parts;
    bool tooLarge = false;
};
