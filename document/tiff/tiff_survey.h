#pragma once

#include "tiff_structure.h"

#include <functional>
#include <unordered_set>

/// What the numbers of an entry stand for.
enum class TiffRole {
    Value, ///< nothing but themselves
    Data, ///< places of strips, tiles and tables
    Directories, ///< places of directories below this one
};
[[nodiscard]] TiffRole role_of(const TiffEntry &entry);

/// Whether directories below one are the first of a chain, as those of the tag SubIFDs may be.
[[nodiscard]] bool begins_chains(const TiffEntry &entry);

/// Whether a tag tells how pixels are stored or what they look like, and not what they are a picture of. The three
/// tags of the resolution are not among them.
[[nodiscard]] bool is_about_pixels(quint16 tag);

/// How many directories may hang below each other.
inline constexpr int DeepestTiffDirectory = 8;

/// The directories that an entry of that role names, as they stand there: 0 for none.
/// @param dropsDerived  without pictures that are smaller versions of the one they hang on, or masks for it
[[nodiscard]] std::optional<std::vector<quint64>> directories_below(const TiffStructure &structure,
                                                                    const TiffEntry &entry, bool dropsDerived);

/// Stretches of a file that come to stand elsewhere. What touches or overlaps stays together.
class MovedData
{
public:
    struct Run
    {
        quint64 start;
        quint64 end;
        quint64 newStart;
    };

    /// @return false if there are more stretches than any honest file has
    [[nodiscard]] bool add(quint64 start, quint64 bytes);
    /// Puts the runs into order; called once, after the last add().
    void settle();
    [[nodiscard]] std::vector<Run> &runs() { return runs_; }
    /// Of all runs, each beginning at an even place.
    [[nodiscard]] quint64 bytes() const;
    /// Where a byte has gone; one in no run stays where it was.
    [[nodiscard]] quint64 newPlace(quint64 offset) const;

private:
    std::vector<Run> runs_;
};

/// Goes over directories that are to be copied into another file, with all that hangs on them, and finds the data
/// that goes along. It takes no more memory than the list of data does.
///
/// Errors: a false for whatever cannot be copied whole: what leaves the file, comes back to itself, is nested or
///         cut up without end, or cannot be brought to the byte order of the other file without decoding.
class TiffSurvey
{
public:
    using EntryFilter = std::function<bool(const TiffEntry &)>;

    /// @param source  has to outlive the object
    TiffSurvey(const TiffStructure &source, TiffKind target);

    [[nodiscard]] bool addDirectory(quint64 position);
    /// Only some entries of it, and of the pictures below only those that are not derived from it.
    [[nodiscard]] bool addEntries(quint64 position, const EntryFilter &isWanted);

    [[nodiscard]] MovedData &data() { return data_; }
    /// Directories gone over, also those below.
    [[nodiscard]] std::size_t directoryCount() const { return met.size(); }
    /// What they and the values that hang on them take in a file of the same kind.
    [[nodiscard]] quint64 directoryBytes() const { return directoryBytes_; }

private:
    [[nodiscard]] bool addDirectory(quint64 position, int depth, quint64 *next);
    [[nodiscard]] bool addEntry(const TiffDirectory &directory, const TiffEntry &entry, int depth, bool dropsDerived);
    [[nodiscard]] bool addChain(quint64 position, int depth);
    [[nodiscard]] bool addData(const TiffDirectory &directory, const TiffEntry &offsets);
    [[nodiscard]] std::optional<quint64> bytesOfPart(quint16 tag, quint64 start, quint64 toldBytes,
                                                     quint64 leastBytes) const;
    [[nodiscard]] bool isConvertible(const TiffDirectory &directory) const;

    const TiffStructure &source;
    TiffKind target;
    MovedData data_;
    std::unordered_set<quint64> met; ///< positions of directories
    quint64 directoryBytes_ = 0;
    quint64 valueBytesLeft; ///< of all entries together; what is shared counts each time
    quint64 partsLeft; ///< strips and tiles of all directories together
};
