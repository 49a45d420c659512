#include "tiff_survey.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <tiff.h>

namespace {

constexpr quint64 MostDirectoriesBelow = 65535;
constexpr std::size_t MostDirectories = 1U << 20;
constexpr quint64 MostParts = 4U << 20;
constexpr std::size_t MostRuns = 1U << 20;
constexpr quint64 MiB = quint64{1024} * 1024;

constexpr quint16 InteroperabilityTag = 40965;
constexpr quint16 GlobalParametersTag = 400;
constexpr quint16 ImageSourceDataTag = 37724; // layers of the former picture

/// With what brings the next bytes to an even place.
quint64 even(quint64 bytes)
{
    return bytes + bytes % 2;
}

/// The tag that tells the lengths of what another tag tells the places of; 0 if none does.
quint16 lengths_tag(quint16 offsetsTag)
{
    switch (offsetsTag) {
    case TIFFTAG_STRIPOFFSETS:
        return TIFFTAG_STRIPBYTECOUNTS;
    case TIFFTAG_TILEOFFSETS:
        return TIFFTAG_TILEBYTECOUNTS;
    case TIFFTAG_FREEOFFSETS:
        return TIFFTAG_FREEBYTECOUNTS;
    case TIFFTAG_JPEGIFOFFSET:
        return TIFFTAG_JPEGIFBYTECOUNT;
    default:
        return 0;
    }
}

quint64 number_of(const TiffStructure &source, const TiffDirectory &directory, quint16 tag, quint64 otherwise)
{
    const TiffEntry *const entry = directory.find(tag);
    return entry ? source.number(*entry).value_or(otherwise) : otherwise;
}

/// Bytes of a table of the old JPEG compression, whose directory tells only where it begins.
std::optional<quint64> table_bytes(const TiffStructure &source, quint16 tag, quint64 position)
{
    if (tag == TIFFTAG_JPEGQTABLES)
        return 64;
    std::array<uchar, 16> codesOfLengths{};
    if (!source.read(position, codesOfLengths))
        return std::nullopt;
    return std::reduce(codesOfLengths.cbegin(), codesOfLengths.cend(), quint64{codesOfLengths.size()});
}

/// What the rows of an uncompressed picture take, if they stand in a single strip. Readers go by that when the
/// length that is told is too small.
quint64 single_strip_bytes(const TiffStructure &source, const TiffDirectory &directory)
{
    if (number_of(source, directory, TIFFTAG_COMPRESSION, COMPRESSION_NONE) != COMPRESSION_NONE
        || number_of(source, directory, TIFFTAG_PHOTOMETRIC, 0) == PHOTOMETRIC_YCBCR) // has fewer samples than pixels
        return 0;
    const auto limited = [&](quint16 tag, quint64 otherwise) {
        return std::min<quint64>(number_of(source, directory, tag, otherwise), 0xffffffff);
    };
    const quint64 bits = std::min<quint64>(limited(TIFFTAG_BITSPERSAMPLE, 1), 64)
        * std::min<quint64>(limited(TIFFTAG_SAMPLESPERPIXEL, 1), 65535);
    const quint64 rowBytes = (limited(TIFFTAG_IMAGEWIDTH, 0) * bits + 7) / 8;
    const quint64 rows = limited(TIFFTAG_IMAGELENGTH, 0);
    return rowBytes > 0 && rows > source.size() / rowBytes ? source.size() : rowBytes * rows;
}

/// Whether a directory holds a smaller version of another picture or a mask for one. One that cannot be read does
/// not, so that it is missed where it is needed.
bool is_derived_picture(const TiffStructure &structure, quint64 position)
{
    constexpr quint64 derived = FILETYPE_REDUCEDIMAGE | FILETYPE_MASK;
    const std::optional<TiffDirectory> directory = structure.directory(position);
    return directory
        && ((number_of(structure, *directory, TIFFTAG_SUBFILETYPE, 0) & derived) != 0
            || number_of(structure, *directory, TIFFTAG_OSUBFILETYPE, OFILETYPE_IMAGE) == OFILETYPE_REDUCEDIMAGE);
}

} // namespace

TiffRole role_of(const TiffEntry &entry)
{
    if (!is_tiff_offset_type(entry.type))
        return TiffRole::Value;
    switch (entry.tag) {
    case TIFFTAG_SUBIFD:
    case TIFFTAG_EXIFIFD:
    case TIFFTAG_GPSIFD:
    case InteroperabilityTag:
    case GlobalParametersTag:
        return TiffRole::Directories;
    case TIFFTAG_STRIPOFFSETS:
    case TIFFTAG_TILEOFFSETS:
    case TIFFTAG_FREEOFFSETS:
    case TIFFTAG_JPEGIFOFFSET:
    case TIFFTAG_JPEGQTABLES:
    case TIFFTAG_JPEGDCTABLES:
    case TIFFTAG_JPEGACTABLES:
        return TiffRole::Data;
    default:
        return entry.type == TiffIfd || entry.type == TiffIfd8 ? TiffRole::Directories : TiffRole::Value;
    }
}

bool begins_chains(const TiffEntry &entry)
{
    return entry.tag == TIFFTAG_SUBIFD;
}

bool is_about_pixels(quint16 tag)
{
    struct Range
    {
        quint16 first;
        quint16 last;
    };
    // From the numbers of TIFF 6.0 and its supplements.
    constexpr std::array ranges{
        Range{TIFFTAG_IMAGEWIDTH, TIFFTAG_PHOTOMETRIC},
        Range{TIFFTAG_THRESHHOLDING, TIFFTAG_FILLORDER},
        Range{TIFFTAG_STRIPOFFSETS, TIFFTAG_STRIPOFFSETS},
        Range{TIFFTAG_SAMPLESPERPIXEL, TIFFTAG_MAXSAMPLEVALUE},
        Range{TIFFTAG_PLANARCONFIG, TIFFTAG_PLANARCONFIG},
        Range{TIFFTAG_FREEOFFSETS, TIFFTAG_GROUP4OPTIONS},
        Range{TIFFTAG_COLORRESPONSEUNIT, TIFFTAG_TRANSFERFUNCTION},
        Range{TIFFTAG_PREDICTOR, TIFFTAG_CONSECUTIVEBADFAXLINES},
        Range{TIFFTAG_INKSET, TIFFTAG_NUMBEROFINKS},
        Range{TIFFTAG_DOTRANGE, TIFFTAG_DOTRANGE},
        Range{TIFFTAG_EXTRASAMPLES, TIFFTAG_YCLIPPATHUNITS},
        Range{TIFFTAG_INDEXED, TIFFTAG_JPEGTABLES},
        Range{TIFFTAG_JPEGPROC, TIFFTAG_JPEGACTABLES},
        Range{TIFFTAG_YCBCRCOEFFICIENTS, TIFFTAG_REFERENCEBLACKWHITE},
        Range{TIFFTAG_STRIPROWCOUNTS, TIFFTAG_STRIPROWCOUNTS},
        Range{TIFFTAG_MATTEING, TIFFTAG_TILEDEPTH},
        Range{TIFFTAG_ICCPROFILE, TIFFTAG_ICCPROFILE},
        Range{TIFFTAG_STONITS, TIFFTAG_STONITS},
        Range{ImageSourceDataTag, ImageSourceDataTag},
        Range{TIFFTAG_LERC_PARAMETERS, TIFFTAG_LERC_PARAMETERS},
    };
    return std::ranges::any_of(ranges, [tag](const Range &range) { return range.first <= tag && tag <= range.last; });
}

bool MovedData::add(quint64 start, quint64 bytes)
{
    const quint64 end = start + bytes;
    if (!runs_.empty() && runs_.back().start <= start && start <= runs_.back().end) {
        runs_.back().end = std::max(runs_.back().end, end); // the usual way: one strip behind the other
        return true;
    }
    if (runs_.size() == MostRuns)
        return false;
    runs_.push_back({.start = start, .end = end, .newStart = start});
    return true;
}

void MovedData::settle()
{
    std::ranges::sort(runs_, {}, &Run::start);
    std::vector<Run> settled;
    for (const Run &run : runs_) {
        if (!settled.empty() && run.start <= settled.back().end)
            settled.back().end = std::max(settled.back().end, run.end);
        else
            settled.push_back(run);
    }
    runs_ = std::move(settled);
}

quint64 MovedData::bytes() const
{
    const auto add = [](quint64 sum, const Run &run) { return sum + even(run.end - run.start); };
    return std::accumulate(runs_.cbegin(), runs_.cend(), quint64{0}, add);
}

quint64 MovedData::newPlace(quint64 offset) const
{
    const auto behind = std::ranges::upper_bound(runs_, offset, {}, &Run::start);
    if (behind == runs_.cbegin() || offset >= std::prev(behind)->end)
        return offset;
    return offset - std::prev(behind)->start + std::prev(behind)->newStart;
}

std::optional<std::vector<quint64>> directories_below(const TiffStructure &structure, const TiffEntry &entry,
                                                      bool dropsDerived)
{
    std::vector<quint64> positions(std::min(entry.count, MostDirectoriesBelow));
    if (entry.count > MostDirectoriesBelow || !structure.readNumbers(entry, 0, positions))
        return std::nullopt;
    if (dropsDerived)
        std::erase_if(positions, [&](quint64 position) { return is_derived_picture(structure, position); });
    return positions;
}

TiffSurvey::TiffSurvey(const TiffStructure &source_, TiffKind target_) :
    source(source_),
    target(target_),
    valueBytesLeft(2 * source_.size() + MiB),
    partsLeft(MostParts)
{
}

bool TiffSurvey::addDirectory(quint64 position)
{
    return addDirectory(position, 0, nullptr);
}

bool TiffSurvey::addEntries(quint64 position, const EntryFilter &isWanted)
{
    const std::optional<TiffDirectory> directory = source.directory(position);
    if (!directory || !met.insert(position).second)
        return false;
    return std::ranges::all_of(directory->entries, [&](const TiffEntry &entry) {
        return !isWanted(entry) || addEntry(*directory, entry, 0, true);
    });
}

bool TiffSurvey::addDirectory(quint64 position, int depth, quint64 *next)
{
    if (depth > DeepestTiffDirectory || met.size() == MostDirectories || !met.insert(position).second)
        return false;
    const std::optional<TiffDirectory> directory = source.directory(position);
    if (!directory || !isConvertible(*directory))
        return false;
    if (next)
        *next = directory->next;
    directoryBytes_ += source.kind().countBytes() + source.kind().offsetBytes();
    return std::ranges::all_of(directory->entries,
                               [&](const TiffEntry &entry) { return addEntry(*directory, entry, depth, false); });
}

bool TiffSurvey::addEntry(const TiffDirectory &directory, const TiffEntry &entry, int depth, bool dropsDerived)
{
    const quint64 bytes = entry.bytes() + source.kind().entryBytes();
    if (bytes > valueBytesLeft || (tiff_type_bytes(entry.type) == 0 && source.kind() != target))
        return false;
    valueBytesLeft -= bytes;
    const bool isInside = entry.bytes() <= source.kind().offsetBytes();
    directoryBytes_ += source.kind().entryBytes() + (isInside ? 0 : even(entry.bytes()));
    switch (role_of(entry)) {
    case TiffRole::Value:
        return true;
    case TiffRole::Data:
        return addData(directory, entry);
    case TiffRole::Directories:
        break;
    }
    const auto below = directories_below(source, entry, dropsDerived);
    return below && std::ranges::all_of(*below, [&](quint64 position) {
               if (position == 0)
                   return true;
               return begins_chains(entry) ? addChain(position, depth + 1) : addDirectory(position, depth + 1, nullptr);
           });
}

bool TiffSurvey::addChain(quint64 position, int depth)
{
    while (position != 0) {
        quint64 next = 0;
        if (!addDirectory(position, depth, &next))
            return false;
        position = next;
    }
    return true;
}

bool TiffSurvey::addData(const TiffDirectory &directory, const TiffEntry &offsets)
{
    const TiffEntry *const lengths = directory.find(lengths_tag(offsets.tag));
    if (offsets.count > partsLeft || (lengths && lengths->count < offsets.count))
        return false;
    partsLeft -= offsets.count;
    const bool isSingle = offsets.count == 1;
    const quint64 leastBytes =
        isSingle && offsets.tag == TIFFTAG_STRIPOFFSETS ? single_strip_bytes(source, directory) : 0;
    for (quint64 i = 0; i < offsets.count; ++i) {
        quint64 start = 0;
        quint64 toldBytes = 0;
        if (!source.readNumbers(offsets, i, {&start, 1})
            || (lengths && !source.readNumbers(*lengths, i, {&toldBytes, 1})))
            return false;
        if (start == 0 || (toldBytes == 0 && lengths && !isSingle)) // nothing is stored for this part
            continue;
        const std::optional<quint64> bytes = bytesOfPart(offsets.tag, start, toldBytes, leastBytes);
        if (!bytes || !data_.add(start, *bytes))
            return false;
    }
    return true;
}

/// @return nothing if the part does not lie in the file
std::optional<quint64> TiffSurvey::bytesOfPart(quint16 tag, quint64 start, quint64 toldBytes, quint64 leastBytes) const
{
    if (!source.holds(start, toldBytes))
        return std::nullopt;
    const quint64 bytesLeft = source.size() - start;
    if (lengths_tag(tag) == 0) {
        const std::optional<quint64> bytes = table_bytes(source, tag, start);
        return bytes && *bytes <= bytesLeft ? bytes : std::nullopt;
    }
    // Where no length is told, readers go as far as they need.
    return toldBytes == 0 ? bytesLeft : std::max(toldBytes, std::min(leastBytes, bytesLeft));
}

// Bytes of samples that are wider stand in the order of the file, and may be compressed so.
bool TiffSurvey::isConvertible(const TiffDirectory &directory) const
{
    if (source.kind().isBigTiff && !target.isBigTiff)
        return false;
    const TiffEntry *const bits = directory.find(TIFFTAG_BITSPERSAMPLE);
    if (source.kind().isBigEndian == target.isBigEndian || !bits)
        return true;
    for (quint64 i = 0; i < std::min<quint64>(bits->count, 65535); ++i) {
        quint64 number = 0;
        if (!source.readNumbers(*bits, i, {&number, 1}) || number > 8)
            return false;
    }
    return true;
}
