#include "tiff_wide_page.h"

#include "image_memory.h"
#include "page_buffers.h"
#include "tiff_codec.h"

#include <algorithm>
#include <array>
#include <limits>
#include <tiffio.h>

namespace {

template <typename Value> Value tag_or_default(TIFF *tif, ttag_t tag)
{
    Value value = 0;
    return TIFFGetFieldDefaulted(tif, tag, &value) == 1 ? value : Value{0};
}

/// Whether the library answers with colours that are multiplied by their alpha.
bool is_premultiplied(TIFF *tif)
{
    quint16 count = 0;
    const quint16 *meanings = nullptr;
    return TIFFGetFieldDefaulted(tif, TIFFTAG_EXTRASAMPLES, &count, &meanings) == 1 && count > 0
        && meanings[0] != EXTRASAMPLE_UNSPECIFIED;
}

QImage::Format format_of(TIFF *tif)
{
    if (tag_or_default<quint16>(tif, TIFFTAG_SAMPLESPERPIXEL) < 4)
        return QImage::Format_RGB32;
    return is_premultiplied(tif) ? QImage::Format_ARGB32_Premultiplied : QImage::Format_ARGB32;
}

QImage make_page(TIFF *tif)
{
    const auto width = tag_or_default<quint32>(tif, TIFFTAG_IMAGEWIDTH);
    const auto height = tag_or_default<quint32>(tif, TIFFTAG_IMAGELENGTH);
    constexpr quint32 longestSide = std::numeric_limits<int>::max();
    const double bytes = 4.0 * width * height;
    if (width > longestSide || height > longestSide || bytes > static_cast<double>(affordable_image_bytes()))
        return {};
    return new_page(QSize(static_cast<int>(width), static_cast<int>(height)), format_of(tif));
}

/// From red in the lowest byte to red in the third.
void reorder(QImage &page)
{
    for (int y = 0; y < page.height(); ++y) {
        auto *const words = reinterpret_cast<QRgb *>(page.scanLine(y));
        std::transform(words, words + page.width(), words,
                       [](QRgb w) { return qRgba(TIFFGetR(w), TIFFGetG(w), TIFFGetB(w), TIFFGetA(w)); });
    }
}

} // namespace

bool has_odd_wide_samples(TIFF *tif)
{
    const auto samples = tag_or_default<quint16>(tif, TIFFTAG_SAMPLESPERPIXEL);
    const bool isInPlanes = samples > 1 && tag_or_default<quint16>(tif, TIFFTAG_PLANARCONFIG) == PLANARCONFIG_SEPARATE;
    return tag_or_default<quint16>(tif, TIFFTAG_BITSPERSAMPLE) > 8
        && tag_or_default<quint16>(tif, TIFFTAG_PHOTOMETRIC) == PHOTOMETRIC_RGB && (isInPlanes || samples < 3);
}

QImage read_odd_wide_samples(TIFF *tif)
{
    std::array<char, 1024> reason{};
    if (TIFFRGBAImageOK(tif, reason.data()) != 1)
        return {};
    QImage page = make_page(tif);
    if (page.isNull())
        return page;
    constexpr int stopAtErrors = 1;
    // As the file tells them, so that nothing is turned: the same as for all other pages.
    const int orientation = tag_or_default<quint16>(tif, TIFFTAG_ORIENTATION);
    page.fill(0U);
    if (TIFFReadRGBAImageOriented(tif, static_cast<quint32>(page.width()), static_cast<quint32>(page.height()),
                                  reinterpret_cast<quint32 *>(page.bits()), orientation, stopAtErrors)
        != 1)
        return {};
    reorder(page);
    read_tiff_resolution(tif, page);
    return page;
}
