#include "tiff_join.h"

#include "tiff_output.h"
#include "tiff_survey.h"

#include <algorithm>
#include <array>
#include <tiff.h>

namespace {

constexpr quint64 LongestLong = 0xffffffff;

/// A file that directories are taken from.
struct Source
{
    Source(int file, TiffKind target) : structure(file), survey(structure, target) { }
    Q_DISABLE_COPY_MOVE(Source)

    TiffStructure structure;
    TiffSurvey survey;
};

} // namespace

/// One file that directories are taken from, and another one for what the first of them is to tell.
struct TiffJoinPart
{
    TiffJoinPart(int file, TiffKind target) : source(file, target) { }

    Source source;
    std::vector<quint64> positions; ///< of the directories
    std::unique_ptr<Source> former;
    std::vector<TiffEntry> formerEntries; ///< in place of those of the same tag
};

namespace {

/// An entry as it goes into the new file: what stands in a directory's room for it.
struct WrittenEntry
{
    quint16 tag;
    quint16 type;
    quint64 count;
    std::array<uchar, 8> field;
};

bool is_resolution(quint16 tag)
{
    return tag == TIFFTAG_XRESOLUTION || tag == TIFFTAG_YRESOLUTION || tag == TIFFTAG_RESOLUTIONUNIT;
}

/// Whether a reader finds a resolution there.
bool has_resolution(const TiffDirectory &directory)
{
    return std::ranges::all_of(std::array{TIFFTAG_XRESOLUTION, TIFFTAG_YRESOLUTION}, [&](quint16 tag) {
        const TiffEntry *const entry = directory.find(tag);
        return entry && entry->count > 0 && is_tiff_number_type(entry->type);
    });
}

/// Writes what hangs on directories of one source.
class DirectoryWriter
{
public:
    DirectoryWriter(Source &source_, TiffOutput &output_) :
        structure(source_.structure),
        data(source_.survey.data()),
        directoriesLeft(source_.survey.directoryCount()),
        output(output_)
    {
    }

    /// Comes first.
    [[nodiscard]] bool copyData();
    /// Writes a value behind what is written, if it does not fit into the entry.
    /// @param dropsDerived  as directories_below() takes it
    [[nodiscard]] std::optional<WrittenEntry> writeEntry(const TiffEntry &entry, bool dropsDerived, int depth);
    /// Writes the values of a directory.
    [[nodiscard]] std::optional<std::vector<WrittenEntry>> writeEntries(const TiffDirectory &directory, int depth);

private:
    [[nodiscard]] std::optional<WrittenEntry> copyValue(const TiffEntry &entry);
    [[nodiscard]] std::optional<WrittenEntry> writeNumbers(const TiffEntry &entry, const std::vector<quint64> *given);
    [[nodiscard]] std::optional<quint64> writeChain(const TiffEntry &entry, quint64 position, int depth);

    const TiffStructure &structure;
    MovedData &data;
    std::size_t directoriesLeft; ///< should the file change while it is copied
    TiffOutput &output;
};

/// Writes a directory whose values are written.
/// @return the place of its pointer to the next one, which is 0 for now
quint64 write_directory(TiffOutput &output, const std::vector<WrittenEntry> &entries)
{
    const TiffKind kind = output.kind();
    output.appendNumber(entries.size(), kind.countBytes());
    for (const WrittenEntry &entry : entries) {
        output.appendNumber(entry.tag, 2);
        output.appendNumber(entry.type, 2);
        output.appendNumber(entry.count, kind.offsetBytes());
        output.append(std::span(entry.field).first(kind.offsetBytes()));
    }
    const quint64 place = output.position();
    output.appendNumber(0, kind.offsetBytes());
    return place;
}

bool DirectoryWriter::copyData()
{
    for (MovedData::Run &run : data.runs()) {
        output.alignToWord();
        run.newStart = output.position();
        if (!output.appendFrom(structure, run.start, run.end - run.start) || output.hasFailed())
            return false;
    }
    return true;
}

std::optional<WrittenEntry> DirectoryWriter::writeEntry(const TiffEntry &entry, bool dropsDerived, int depth)
{
    switch (role_of(entry)) {
    case TiffRole::Value:
        return copyValue(entry);
    case TiffRole::Data:
        return writeNumbers(entry, nullptr);
    case TiffRole::Directories:
        break;
    }
    auto below = directories_below(structure, entry, dropsDerived);
    if (!below)
        return std::nullopt;
    for (quint64 &position : *below) {
        const std::optional<quint64> place = position == 0 ? 0 : writeChain(entry, position, depth + 1);
        if (!place)
            return std::nullopt;
        position = *place;
    }
    return writeNumbers(entry, &*below);
}

std::optional<std::vector<WrittenEntry>> DirectoryWriter::writeEntries(const TiffDirectory &directory, int depth)
{
    std::vector<WrittenEntry> written;
    for (const TiffEntry &entry : directory.entries) {
        const std::optional<WrittenEntry> one = writeEntry(entry, false, depth);
        if (!one)
            return std::nullopt;
        written.push_back(*one);
    }
    return written;
}

std::optional<WrittenEntry> DirectoryWriter::copyValue(const TiffEntry &entry)
{
    WrittenEntry written{.tag = entry.tag, .type = entry.type, .count = entry.count, .field = {}};
    const quint64 room = output.kind().offsetBytes();
    // The room of a type that is not known is copied as it stands: the survey saw that the files are of one kind.
    const quint64 total = tiff_type_bytes(entry.type) == 0 ? room : entry.bytes();
    const auto width = static_cast<qint64>(tiff_number_bytes(entry.type));
    const bool isTurned = structure.kind().isBigEndian != output.kind().isBigEndian && width > 1;
    if (total > room) {
        output.alignToWord();
        written.field = output.bytesOf(output.position(), room);
    }
    std::vector<uchar> block(std::min<quint64>(TiffOutput::MostBytesAtOnce, total));
    for (quint64 done = 0; done < total; done += block.size()) {
        const std::span<uchar> bytes = std::span(block).first(std::min<quint64>(block.size(), total - done));
        if (!structure.read(entry.position + done, bytes))
            return std::nullopt;
        for (auto number = bytes.begin(); isTurned && number != bytes.end(); number += width)
            std::reverse(number, number + width);
        if (total > room)
            output.append(bytes);
        else
            std::ranges::copy(bytes, written.field.begin());
    }
    return written;
}

/// @param given  what the numbers are now; null for places of data
std::optional<WrittenEntry> DirectoryWriter::writeNumbers(const TiffEntry &entry, const std::vector<quint64> *given)
{
    // All places lie before this one. Those of a small file may have stood in fewer bits.
    const TiffKind kind = output.kind();
    const bool isDirectory = entry.type == TiffIfd || entry.type == TiffIfd8;
    const bool isWide = kind.isBigTiff && (tiff_type_bytes(entry.type) == 8 || output.position() > LongestLong);
    const quint16 narrowType = isDirectory ? TiffIfd : TiffLong;
    const quint16 wideType = isDirectory ? TiffIfd8 : TiffLong8;
    const quint64 width = isWide ? 8 : 4;
    WrittenEntry written{.tag = entry.tag,
                         .type = isWide ? wideType : narrowType,
                         .count = given ? given->size() : entry.count,
                         .field = {}};
    const bool isInside = written.count * width <= kind.offsetBytes();
    if (!isInside) {
        output.alignToWord();
        written.field = output.bytesOf(output.position(), kind.offsetBytes());
    }
    for (quint64 i = 0; i < written.count; ++i) {
        quint64 number = given ? given->at(i) : 0;
        if (!given) {
            if (!structure.readNumbers(entry, i, {&number, 1}))
                return std::nullopt;
            number = data.newPlace(number);
        }
        if (isInside)
            std::ranges::copy_n(output.bytesOf(number, width).cbegin(), static_cast<qint64>(width),
                                written.field.begin() + static_cast<qint64>(i * width));
        else
            output.appendNumber(number, width);
    }
    return written;
}

/// @return where its first directory stands
std::optional<quint64> DirectoryWriter::writeChain(const TiffEntry &entry, quint64 position, int depth)
{
    quint64 first = 0;
    quint64 pointer = 0;
    while (position != 0) {
        if (directoriesLeft == 0 || depth > DeepestTiffDirectory)
            return std::nullopt;
        --directoriesLeft;
        const std::optional<TiffDirectory> directory = structure.directory(position);
        const auto entries = directory ? writeEntries(*directory, depth) : std::nullopt;
        if (!entries || output.hasFailed())
            return std::nullopt;
        output.alignToWord();
        const quint64 place = output.position();
        if (first == 0)
            first = place;
        else
            output.patchNumber(pointer, place, output.kind().offsetBytes());
        pointer = write_directory(output, *entries);
        position = begins_chains(entry) ? directory->next : 0;
    }
    return first;
}

/// Puts the entries of the former directory among those of the new one.
bool write_former_entries(TiffJoinPart &part, TiffOutput &output, std::vector<WrittenEntry> &entries)
{
    DirectoryWriter writer(*part.former, output);
    if (!writer.copyData())
        return false;
    if (std::ranges::any_of(part.formerEntries, is_resolution, &TiffEntry::tag))
        std::erase_if(entries, [](const WrittenEntry &entry) { return is_resolution(entry.tag); });
    for (const TiffEntry &entry : part.formerEntries) {
        const std::optional<WrittenEntry> written = writer.writeEntry(entry, true, 0);
        if (!written)
            return false;
        std::erase_if(entries, [&](const WrittenEntry &other) { return other.tag == written->tag; });
        if (written->count > 0) // or all pictures below have gone
            entries.push_back(*written);
    }
    std::ranges::stable_sort(entries, {}, &WrittenEntry::tag);
    return true;
}

/// @param[in,out] pointer  where the place of the next directory is to be written
bool write_part(TiffJoinPart &part, TiffOutput &output, quint64 &pointer)
{
    DirectoryWriter writer(part.source, output);
    if (!writer.copyData())
        return false;
    for (const quint64 position : part.positions) {
        const std::optional<TiffDirectory> directory = part.source.structure.directory(position);
        auto entries = directory ? writer.writeEntries(*directory, 0) : std::nullopt;
        if (!entries || (part.former && !write_former_entries(part, output, *entries)))
            return false;
        output.alignToWord();
        output.patchNumber(pointer, output.position(), output.kind().offsetBytes());
        pointer = write_directory(output, *entries);
    }
    return !output.hasFailed();
}

} // namespace

TiffJoin::TiffJoin(TiffKind kind_) : kind(kind_) { }

TiffJoin::~TiffJoin() = default;

bool TiffJoin::add(int file, std::size_t first, std::size_t count)
{
    auto part = std::make_unique<TiffJoinPart>(file, kind);
    const TiffChain chain = tiff_chain(part->source.structure);
    if (first > chain.positions.size() || count > chain.positions.size() - first)
        return false;
    const auto begin = chain.positions.cbegin() + static_cast<qint64>(first);
    part->positions.assign(begin, begin + static_cast<qint64>(count));
    for (const quint64 position : part->positions) {
        if (!part->source.survey.addDirectory(position))
            return false;
    }
    part->source.survey.data().settle();
    parts.push_back(std::move(part));
    return true;
}

bool TiffJoin::addInPlaceOf(int file, int former, bool keepsResolution)
{
    if (!add(file, 0, 1))
        return false;
    TiffJoinPart &part = *parts.back();
    const auto page = part.source.structure.directory(part.positions.front());
    part.former = std::make_unique<Source>(former, kind);
    const TiffStructure &old = part.former->structure;
    const auto oldPage = old.directory(old.firstDirectory());
    if (!page)
        return false;
    if (!oldPage) {
        part.former.reset();
        return true;
    }
    const bool takesResolution = keepsResolution && has_resolution(*oldPage);
    const auto isWanted = [&](const TiffEntry &entry) {
        if (is_resolution(entry.tag))
            return takesResolution;
        // The decoder does not turn pixels, so they lie as they lay.
        return entry.tag == TIFFTAG_ORIENTATION || (!is_about_pixels(entry.tag) && page->find(entry.tag) == nullptr);
    };
    std::ranges::copy_if(oldPage->entries, std::back_inserter(part.formerEntries), isWanted);
    if (part.former->survey.addEntries(old.firstDirectory(), isWanted))
        part.former->survey.data().settle();
    else
        part.former.reset();
    return true;
}

quint64 TiffJoin::bytes() const
{
    quint64 bytes = kind.headerBytes();
    for (const auto &part : parts) {
        for (Source *const source : {&part->source, part->former.get()}) {
            if (source)
                bytes += source->survey.data().bytes() + source->survey.directoryBytes();
        }
    }
    return bytes;
}

bool TiffJoin::write(QIODevice &file)
{
    quint64 dataBytes = 0;
    for (const auto &part : parts)
        dataBytes += part->source.survey.data().bytes();
    tooLarge = dataBytes > kind.largestOffset();
    if (tooLarge)
        return false;
    TiffOutput output(file, kind);
    const std::array<uchar, 2> order =
        kind.isBigEndian ? std::array<uchar, 2>{'M', 'M'} : std::array<uchar, 2>{'I', 'I'};
    output.append(order);
    output.appendNumber(kind.isBigTiff ? 43 : 42, 2);
    if (kind.isBigTiff) {
        output.appendNumber(8, 2); // bytes of an offset
        output.appendNumber(0, 2);
    }
    quint64 pointer = output.position();
    output.appendNumber(0, kind.offsetBytes());
    const bool isWritten = std::ranges::all_of(
        parts, [&](const std::unique_ptr<TiffJoinPart> &part) { return write_part(*part, output, pointer); });
    output.flush();
    tooLarge = output.isTooLarge();
    return isWritten && !output.hasFailed();
}
