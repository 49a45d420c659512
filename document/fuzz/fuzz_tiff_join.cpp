// Puts a TIFF file of any bytes into another, as it stands: a file that is taken tells the same afterwards, and one
// that only tells about a page does not change that page.

#include "fuzz_target.h"
#include "FuzzInput.h"
#include "MemoryFile.h"
#include "pictures.h"
#include "plain_tiff_tale.h"
#include "quiet_toolkit.h"
#include "tiff_codec.h"
#include "tiff_diagnostics.h"
#include "tiff_files.h"
#include "tiff_join.h"
#include "tiff_seeds.h"

#include <QBuffer>

namespace {

std::span<const std::uint8_t> bytes_of(const std::string &text)
{
    return {reinterpret_cast<const std::uint8_t *>(text.data()), text.size()};
}

std::span<const std::uint8_t> bytes_of(const QByteArray &bytes)
{
    return {reinterpret_cast<const std::uint8_t *>(bytes.constData()), static_cast<std::size_t>(bytes.size())};
}

QByteArray joined(TiffJoin &join)
{
    QBuffer copy;
    promise(copy.open(QIODevice::ReadWrite), "a buffer opens");
    promise(join.write(copy), "what was taken can be written");
    return copy.data();
}

void take_whole(const std::string &bytes, TiffKind kind)
{
    const MemoryFile file(bytes_of(bytes));
    const TiffChain chain = tiff_chain(TiffStructure(file.descriptor()));
    TiffJoin join(kind);
    if (!chain.isWhole || !join.add(file.descriptor(), 0, chain.positions.size()))
        return;
    const QByteArray copy = joined(join);

    const auto tale = plain_tiff_tale(bytes_of(bytes));
    promise(tale && tale == plain_tiff_tale(bytes_of(copy)), "a copy tells the same");
}

/// The page that takes the place of that of the file.
const QImage &new_page_of_old_file()
{
    static const QImage page = patterned_page({5, 4}, 8);
    return page;
}

/// Whether the reader finds a whole resolution in the first directory; it takes no default.
bool has_resolution(const MemoryFile &file)
{
    const TiffHandle tif = open_tiff(QString::fromStdString(file.path()), "rm");
    quint16 unit = 0;
    float x = 0;
    float y = 0;
    return tif && TIFFGetField(tif.get(), TIFFTAG_RESOLUTIONUNIT, &unit) == 1
        && TIFFGetField(tif.get(), TIFFTAG_XRESOLUTION, &x) == 1
        && TIFFGetField(tif.get(), TIFFTAG_YRESOLUTION, &y) == 1;
}

void take_place(const std::string &bytes, TiffKind kind, bool keepsResolution)
{
    const MemoryFile former(bytes_of(bytes));
    const MemoryFile page;
    {
        const TiffHandle output = open_tiff(QString::fromStdString(page.path()), "w");
        promise(output && writeTiffPage(output.get(), new_page_of_old_file()), "a page can be written");
    }
    TiffJoin join(kind);
    promise(join.addInPlaceOf(page.descriptor(), former.descriptor(), keepsResolution),
            "a page of ours takes any other's place");
    const QByteArray copy = joined(join);

    promise(plain_tiff_tale(bytes_of(copy)).has_value(), "the new file lies within itself");
    const MemoryFile file(bytes_of(copy));
    const TiffHandle input = open_tiff(QString::fromStdString(file.path()), "rm");
    QImage read;
    const bool isRead = input && readTiffPage(input.get(), read);
    if (!isRead && keepsResolution && !has_resolution(former))
        return;
    promise(isRead, "the new page can be read");
    promise(picture_differences(read, as_read_back(new_page_of_old_file())).isEmpty(), "the new page is what it was");
}

} // namespace

std::vector<std::string> fuzz_seeds()
{
    start_quiet_toolkit();
    std::vector<std::string> seeds;
    for (const std::string &file : tiff_seeds()) {
        for (int choices = 0; choices < 16; choices += 5)
            seeds.push_back(static_cast<char>(choices) + file);
    }
    return seeds;
}

void try_input(std::span<const std::uint8_t> bytes)
{
    start_quiet_toolkit();
    tell_of_tiff_by_the_toolkit();
    FuzzInput input(bytes);
    const unsigned choices = input.byte();
    const TiffKind kind{.isBigEndian = (choices & 1U) != 0, .isBigTiff = (choices & 2U) != 0};
    if ((choices & 4U) != 0)
        take_whole(input.rest(), kind);
    else
        take_place(input.rest(), kind, (choices & 8U) != 0);
}
