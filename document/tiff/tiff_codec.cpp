#include "tiff_codec.h"

#include "image_memory.h"
#include "page_buffers.h"
#include "rgb_rows.h"
#include "tiff_entry.h"
#include "tiff_stored_rows.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <tiffio.h>
#include <utility>

namespace {

constexpr int SampleBytes = 3;
// By default the library buffers a whole strip, and with our tags one strip is the whole page.
constexpr tmsize_t WriteBufferBytes = tmsize_t{256} * 1024;

struct TiffMemoryFreer
{
    void operator()(void *memory) const { _TIFFfree(memory); }
};
using TiffRow = std::unique_ptr<uchar, TiffMemoryFreer>;

TiffRow allocate_rgb_row(int width)
{
    return TiffRow(static_cast<uchar *>(_TIFFmalloc(tmsize_t{width} * SampleBytes)));
}

/// What the tags of a directory tell about its pixels.
struct PageTags
{
    quint32 width = 0;
    quint32 height = 0;
    quint16 samplesPerPixel = 0;
    quint16 bitsPerSample = 0;
    quint16 photometric = 0;

    [[nodiscard]] quint32 depth() const
    {
        const quint32 bits = quint32{samplesPerPixel} * bitsPerSample;
        return bits == 24 ? 32 : bits;
    }
    [[nodiscard]] int colorCount() const
    {
        const bool indexed = photometric == PHOTOMETRIC_PALETTE || (samplesPerPixel == 1 && bitsPerSample >= 2);
        return indexed && bitsPerSample <= 8 ? 1 << bitsPerSample : 0;
    }
    /// Of the page, padding aside.
    [[nodiscard]] double bytes() const { return static_cast<double>(width) * height * depth() / 8; }
};

/// Intended: a tag without a value fails, also one that is not looked at afterwards. No default is taken.
bool read_tags(TIFF *tif, PageTags &tags)
{
    quint16 compression = 0;
    quint16 planarConfig = 0;
    quint16 resolutionUnit = 0;
    float xResolution = 0;
    float yResolution = 0;
    const std::array results{
        TIFFGetField(tif, TIFFTAG_COMPRESSION, &compression),
        TIFFGetField(tif, TIFFTAG_IMAGEWIDTH, &tags.width),
        TIFFGetField(tif, TIFFTAG_IMAGELENGTH, &tags.height),
        TIFFGetField(tif, TIFFTAG_SAMPLESPERPIXEL, &tags.samplesPerPixel),
        TIFFGetField(tif, TIFFTAG_BITSPERSAMPLE, &tags.bitsPerSample),
        TIFFGetField(tif, TIFFTAG_PHOTOMETRIC, &tags.photometric),
        TIFFGetField(tif, TIFFTAG_PLANARCONFIG, &planarConfig),
        TIFFGetField(tif, TIFFTAG_RESOLUTIONUNIT, &resolutionUnit),
        TIFFGetField(tif, TIFFTAG_XRESOLUTION, &xResolution),
        TIFFGetField(tif, TIFFTAG_YRESOLUTION, &yResolution),
    };
    return std::ranges::all_of(results, [](int result) { return result == 1; })
        && has_tiff_number(tif, TIFFTAG_XRESOLUTION) && has_tiff_number(tif, TIFFTAG_YRESOLUTION);
}

QImage::Format format_for(TIFF *tif, quint32 depth)
{
    switch (depth) {
    case 1:
        // Intended: the low bit first where the file has the high bit first. Rows pass as they stand, and
        // the pages that are made 1-bit here hold their low bit first: they come back as they were.
        return TIFFIsMSB2LSB(tif) ? QImage::Format_MonoLSB : QImage::Format_Mono;
    case 8:
        return QImage::Format_Indexed8;
    case 32:
        return QImage::Format_RGB32;
    default:
        return QImage::Format_Invalid;
    }
}

/// A page with room for its pixels, or null.
QImage make_page(TIFF *tif, const PageTags &tags)
{
    constexpr quint32 LongestSide = std::numeric_limits<int>::max();
    const QImage::Format format = format_for(tif, tags.depth());
    if (format == QImage::Format_Invalid || tags.width > LongestSide || tags.height > LongestSide)
        return {};
    if (tags.depth() == 32 && tags.bitsPerSample != 8)
        return {}; // its rows would be taken for red, green and blue bytes
    if (tags.bytes() > static_cast<double>(affordable_image_bytes()))
        return {};

    QImage page = new_page(QSize(static_cast<int>(tags.width), static_cast<int>(tags.height)), format);
    if (tags.depth() == 1 && !page.isNull())
        page.setColorTable({0xff000000, 0xffffffff});
    // Intended: the colours of the file stay out. The page keeps a table of zeros, which shows as opaque
    // black, and only its indices are those of the file.
    if (tags.depth() == 8 && !page.isNull())
        page.setColorCount(tags.colorCount());
    return page;
}

template <typename Value> Value tag_or_default(TIFF *tif, ttag_t tag)
{
    Value value = 0;
    return TIFFGetFieldDefaulted(tif, tag, &value) == 1 ? value : Value{0};
}

bool has_color_map(TIFF *tif)
{
    quint16 *red = nullptr;
    quint16 *green = nullptr;
    quint16 *blue = nullptr;
    return TIFFGetField(tif, TIFFTAG_COLORMAP, &red, &green, &blue) == 1;
}

bool read_rgb_rows(TIFF *tif, QImage &image)
{
    const int width = image.width();
    const TiffRow row = allocate_rgb_row(width);
    if (!row)
        return false;
    const auto clearRow = [&] { std::fill_n(row.get(), static_cast<std::size_t>(width) * SampleBytes, uchar{0}); };
    clearRow(); // a file of separate planes fills only a part of it
    const bool isCompressed = tag_or_default<quint16>(tif, TIFFTAG_COMPRESSION) != COMPRESSION_NONE;
    for (int y = 0; y < image.height(); ++y) {
        if (isCompressed)
            clearRow(); // damaged data may end early without a word
        if (TIFFReadScanline(tif, row.get(), static_cast<quint32>(y), 0) != 1)
            return false;
        expand_rgb_row(row.get(), reinterpret_cast<QRgb *>(image.scanLine(y)), width);
    }
    return true;
}

bool read_plain_rows(TIFF *tif, QImage &image)
{
    const qsizetype rowBytes = (qsizetype{image.width()} * image.depth() + 7) / 8;
    for (int y = 0; y < image.height(); ++y) {
        uchar *const line = image.scanLine(y);
        std::fill_n(line, rowBytes, uchar{0}); // damaged data may leave some bytes as they were
        if (TIFFReadScanline(tif, line, static_cast<quint32>(y), 0) != 1)
            return false;
    }
    return true;
}

bool read_rows(TIFF *tif, QImage &image)
{
    const tmsize_t rowBytes = TIFFScanlineSize(tif);
    const tmsize_t wanted =
        image.depth() == 32 ? tmsize_t{image.width()} * SampleBytes : (tmsize_t{image.width()} * image.depth() + 7) / 8;
    // Four samples of eight bits, one of 32 and their like: more than the row can take.
    if (rowBytes <= 0 || rowBytes > wanted)
        return false;
    if (image.depth() == 32)
        return read_rgb_rows(tif, image);
    if (rowBytes < wanted)
        image.fill(0U);
    if (const std::optional<qint64> start = start_of_stored_rows(tif, image.height(), rowBytes))
        return read_stored_rows(TIFFFileno(tif), *start, rowBytes, image);
    return read_plain_rows(tif, image);
}

/// Whether the rows hold the colours as they are shown, and nothing else tells about colours.
bool is_plain_rgb(TIFF *tif)
{
    const auto compression = tag_or_default<quint16>(tif, TIFFTAG_COMPRESSION);
    quint32 profileLength = 0;
    void *profile = nullptr;
    return tag_or_default<quint16>(tif, TIFFTAG_PHOTOMETRIC) == PHOTOMETRIC_RGB
        && tag_or_default<quint16>(tif, TIFFTAG_SAMPLESPERPIXEL) == 3
        && tag_or_default<quint16>(tif, TIFFTAG_BITSPERSAMPLE) == 8
        && tag_or_default<quint16>(tif, TIFFTAG_SAMPLEFORMAT) == SAMPLEFORMAT_UINT
        && tag_or_default<quint16>(tif, TIFFTAG_PLANARCONFIG) == PLANARCONFIG_CONTIG
        && tag_or_default<quint16>(tif, TIFFTAG_ORIENTATION) == ORIENTATION_TOPLEFT && TIFFIsTiled(tif) == 0
        && (compression == COMPRESSION_NONE || compression == COMPRESSION_LZW || compression == COMPRESSION_PACKBITS
            || compression == COMPRESSION_ADOBE_DEFLATE || compression == COMPRESSION_DEFLATE)
        && TIFFGetField(tif, TIFFTAG_ICCPROFILE, &profileLength, &profile) == 0;
}

/// Rounded; 0, which leaves the default, for what is no number or none that fits.
int whole_dots(double dots)
{
    constexpr double most = std::numeric_limits<int>::max();
    return dots > 0 && dots < most ? qRound(dots) : 0;
}

/// The three tags that depend on the depth; all 0, which the library refuses, for a depth that has none.
PageTags tags_for_depth(int depth)
{
    switch (depth) {
    case 32:
        return {.samplesPerPixel = 3, .bitsPerSample = 8, .photometric = PHOTOMETRIC_RGB};
    case 8:
        return {.samplesPerPixel = 1, .bitsPerSample = 8, .photometric = PHOTOMETRIC_MINISBLACK};
    case 1:
        return {.samplesPerPixel = 1, .bitsPerSample = 1, .photometric = PHOTOMETRIC_MINISWHITE};
    default:
        return {};
    }
}

bool write_tags(TIFF *tif, const QImage &image)
{
    const PageTags tags = tags_for_depth(image.depth());
    const std::array results{
        TIFFSetField(tif, TIFFTAG_COMPRESSION, COMPRESSION_NONE),
        TIFFSetField(tif, TIFFTAG_IMAGEWIDTH, image.width()),
        TIFFSetField(tif, TIFFTAG_IMAGELENGTH, image.height()),
        TIFFSetField(tif, TIFFTAG_SAMPLESPERPIXEL, tags.samplesPerPixel),
        TIFFSetField(tif, TIFFTAG_BITSPERSAMPLE, tags.bitsPerSample),
        TIFFSetField(tif, TIFFTAG_PHOTOMETRIC, tags.photometric),
        TIFFSetField(tif, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG),
        TIFFSetField(tif, TIFFTAG_RESOLUTIONUNIT, RESUNIT_CENTIMETER),
        TIFFSetField(tif, TIFFTAG_XRESOLUTION, image.dotsPerMeterX() / 100.0),
        TIFFSetField(tif, TIFFTAG_YRESOLUTION, image.dotsPerMeterY() / 100.0),
    };
    return std::ranges::all_of(results, [](int result) { return result == 1; });
}

bool write_rgb_rows(TIFF *tif, const QImage &image)
{
    const TiffRow row = allocate_rgb_row(image.width());
    if (!row)
        return false;
    for (int y = 0; y < image.height(); ++y) {
        pack_rgb_row(reinterpret_cast<const QRgb *>(image.constScanLine(y)), row.get(), image.width());
        if (TIFFWriteScanline(tif, row.get(), static_cast<quint32>(y), 0) != 1)
            return false;
    }
    return true;
}

bool write_plain_rows(TIFF *tif, const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        // The library only reads the row; its interface is older than const.
        auto *row = const_cast<uchar *>(image.constScanLine(y));
        if (TIFFWriteScanline(tif, row, static_cast<quint32>(y), 0) != 1)
            return false;
    }
    return true;
}

} // namespace

void TiffCloser::operator()(TIFF *tif) const
{
    TIFFClose(tif);
}

TiffHandle open_tiff(const QString &filePath, const char *mode)
{
    return TiffHandle(TIFFOpen(QFile::encodeName(filePath).constData(), mode));
}

double claimed_page_bytes(TIFF *tif)
{
    const PageTags tags{.width = tag_or_default<quint32>(tif, TIFFTAG_IMAGEWIDTH),
                        .height = tag_or_default<quint32>(tif, TIFFTAG_IMAGELENGTH),
                        .samplesPerPixel = tag_or_default<quint16>(tif, TIFFTAG_SAMPLESPERPIXEL),
                        .bitsPerSample = tag_or_default<quint16>(tif, TIFFTAG_BITSPERSAMPLE)};
    return tags.bytes();
}

bool readTiffPage(TIFF *tif, QImage &image)
{
    image = {};
    PageTags tags;
    if (!read_tags(tif, tags))
        return false;
    if (tags.photometric == PHOTOMETRIC_PALETTE && !has_color_map(tif))
        return false;
    QImage page = make_page(tif, tags);
    if (page.isNull() || !read_rows(tif, page))
        return false;
    image = std::move(page);
    return true;
}

bool read_plain_rgb_page(TIFF *tif, QImage &image)
{
    const auto width = tag_or_default<quint32>(tif, TIFFTAG_IMAGEWIDTH);
    const auto height = tag_or_default<quint32>(tif, TIFFTAG_IMAGELENGTH);
    if (std::cmp_not_equal(width, image.width()) || std::cmp_not_equal(height, image.height()) || !is_plain_rgb(tif)
        || TIFFScanlineSize(tif) != tmsize_t{image.width()} * SampleBytes || !read_rgb_rows(tif, image))
        return false;
    read_tiff_resolution(tif, image);
    return true;
}

void read_tiff_resolution(TIFF *tif, QImage &image)
{
    quint16 unit = RESUNIT_INCH;
    float x = 0;
    float y = 0;
    (void)TIFFGetField(tif, TIFFTAG_RESOLUTIONUNIT, &unit); // a file without it keeps the inch
    if (TIFFGetField(tif, TIFFTAG_XRESOLUTION, &x) != 1 || TIFFGetField(tif, TIFFTAG_YRESOLUTION, &y) != 1)
        return;
    if (unit != RESUNIT_INCH && unit != RESUNIT_CENTIMETER)
        return;
    const double unitsPerMeter = unit == RESUNIT_INCH ? 100 / 2.54 : 100;
    image.setDotsPerMeterX(whole_dots(x * unitsPerMeter));
    image.setDotsPerMeterY(whole_dots(y * unitsPerMeter));
}

qint64 tiff_row_bytes(const QImage &page)
{
    const qint64 width = page.width();
    const qint64 rowBytes = page.depth() == 32 ? width * SampleBytes : (width * page.depth() + 7) / 8;
    return rowBytes * page.height();
}

bool writeTiffPage(TIFF *tif, const QImage &image)
{
    if (!write_tags(tif, image) || TIFFWriteBufferSetup(tif, nullptr, WriteBufferBytes) != 1)
        return false;
    return image.depth() == 32 ? write_rgb_rows(tif, image) : write_plain_rows(tif, image);
}
