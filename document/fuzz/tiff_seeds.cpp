#include "tiff_seeds.h"

#include "image_files.h"
#include "pictures.h"
#include "plain_tiffs.h"
#include "tiff_files.h"

#include <QTemporaryDir>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize SeedSize(19, 7);

TiffPage page_of_depth(int depth)
{
    const QImage image = patterned_page(SeedSize, depth);
    return depth == 32 ? rgb_tiff_page(image) : depth == 8 ? grey_tiff_page(image) : bilevel_tiff_page(image);
}

TiffPage compressed(int depth, int compression)
{
    TiffPage page = page_of_depth(depth);
    page.compression = compression;
    page.rowsPerStrip = 3;
    return page;
}

TiffPage indexed_page()
{
    TiffPage page = page_of_depth(8);
    page.photometric = PHOTOMETRIC_PALETTE;
    for (int i = 0; i < 256; ++i) {
        page.reds.append(static_cast<quint16>(i * 257));
        page.greens.append(static_cast<quint16>((255 - i) * 257));
        page.blues.append(static_cast<quint16>(i * 3));
    }
    return page;
}

TiffPage page_of_planes()
{
    TiffPage page = page_of_depth(32);
    page.planarConfig = PLANARCONFIG_SEPARATE;
    return page;
}

std::string written(const QList<TiffPage> &pages, const char *mode)
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"a.tif"_s);
    write_tiff(path, pages, mode);
    return file_bytes(path).toStdString();
}

/// A page on whose directory others hang.
std::string file_with_directories_below()
{
    constexpr int OneEntry = 2 + 12 + 4;
    const QByteArray below = little16(1) + entry(37510, 3, 1) + little32(0);
    const QByteArray strip("abcdef");
    return tiff_of(strip + below + below,
                   {entry(256, 3, 3), entry(257, 3, 2), entry(258, 3, 8), entry(259, 3, 1), entry(262, 3, 1),
                    entry(273, 4, 8), entry(277, 3, 1), entry(278, 3, 2), entry(279, 4, 6),
                    entry(330, 4, 8 + strip.size()), entry(34665, 4, 8 + strip.size() + OneEntry)})
        .toStdString();
}

} // namespace

std::vector<std::string> tiff_seeds()
{
    std::vector<std::string> seeds{file_with_directories_below()};
    for (const char *mode : {"w", "wb", "w8", "wb8"})
        seeds.push_back(written({page_of_depth(32), page_of_depth(8), page_of_depth(1)}, mode));
    for (const int compression : {COMPRESSION_LZW, COMPRESSION_PACKBITS, COMPRESSION_ADOBE_DEFLATE}) {
        for (const int depth : {1, 8, 32})
            seeds.push_back(written({compressed(depth, compression)}, "w"));
    }
    for (const int compression : {COMPRESSION_CCITTRLE, COMPRESSION_CCITTFAX3, COMPRESSION_CCITTFAX4})
        seeds.push_back(written({compressed(1, compression), page_of_depth(1)}, "w"));
    seeds.push_back(written({indexed_page(), page_of_planes()}, "w"));
    return seeds;
}
