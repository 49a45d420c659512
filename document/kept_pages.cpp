#include "kept_pages.h"

#include "picture_word.h"
#include "tiff_join.h"

#include <QFile>
#include <QImageReader>

#include <algorithm>
#include <fcntl.h>
#include <vector>

std::optional<Descriptor> KeptPages::open() const
{
    constexpr int Flags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC; // a pipe may have taken the name
    Descriptor file(::open(QFile::encodeName(filePath).constData(), Flags));
    return file.isOpen() && file_state(file.get()) == state ? std::optional(std::move(file)) : std::nullopt;
}

TiffKind common_kind(const std::list<KeptPages> &kept)
{
    const bool isBigTiff = std::ranges::any_of(kept, [](const KeptPages &pages) { return pages.kind.isBigTiff; });
    return {.isBigEndian = !kept.empty() && kept.front().kind.isBigEndian, .isBigTiff = isBigTiff};
}

bool can_be_kept(const std::list<KeptPages> &kept)
{
    const TiffKind kind = common_kind(kept);
    return std::ranges::all_of(kept, [kind](const KeptPages &pages) {
        const std::optional<Descriptor> file = pages.open();
        if (!file)
            return false;
        const TiffChain chain = tiff_chain(TiffStructure(file->get()));
        return chain.isWhole && chain.positions.size() == pages.count + std::size_t{1}
        && TiffJoin(kind).add(file->get(), 1, pages.count);
    });
}

FilePictures count_pictures(int fileDescriptor)
{
    const TiffStructure structure(fileDescriptor);
    if (structure.isValid())
        return {.count = std::max(1U, static_cast<uint>(tiff_chain(structure).positions.size())),
                .tiffKind = structure.kind()};
    QFile file;
    if (!file.open(fileDescriptor, QIODevice::ReadOnly) || !file.seek(0) || !single_picture_word(file).isEmpty())
        return {.count = 1, .tiffKind = std::nullopt};
    return {.count = static_cast<uint>(std::max(1, QImageReader(&file).imageCount())), .tiffKind = std::nullopt};
}
