#include "plain_jpegs.h"

#include <QRandomGenerator>

#include <array>
#include <cstdio> // for the library's header
#include <cstdlib>
#include <jpeglib.h>
#include <vector>

namespace {

J_COLOR_SPACE space_of(PlainJpeg::Colors colors)
{
    switch (colors) {
    case PlainJpeg::Colors::YCbCr:
        return JCS_YCbCr;
    case PlainJpeg::Colors::Rgb:
        return JCS_RGB;
    case PlainJpeg::Colors::Grey:
        return JCS_GRAYSCALE;
    case PlainJpeg::Colors::Cmyk:
        return JCS_CMYK;
    }
    return JCS_UNKNOWN;
}

constexpr std::array<jpeg_scan_info, 3> OneByOne{{{1, {0}, 0, 63, 0, 0}, {1, {1}, 0, 63, 0, 0}, {1, {2}, 0, 63, 0, 0}}};

/// Rows that vary from pixel to pixel, and more so further down.
void write_rows(jpeg_compress_struct &coder, QSize size, quint32 seed)
{
    QRandomGenerator random(seed);
    std::vector<JSAMPLE> row(static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(coder.input_components));
    for (int y = 0; y < size.height(); ++y) {
        for (JSAMPLE &sample : row)
            sample = static_cast<JSAMPLE>(random.bounded(64 + 192 * y / size.height()));
        JSAMPROW first = row.data();
        (void)jpeg_write_scanlines(&coder, &first, 1);
    }
}

} // namespace

QByteArray PlainJpeg::file() const
{
    jpeg_error_mgr errors{}; // the library ends the test where something is wrong
    jpeg_compress_struct coder{};
    coder.err = jpeg_std_error(&errors);
    jpeg_create_compress(&coder);
    uchar *bytes = nullptr;
    unsigned long count = 0;
    jpeg_mem_dest(&coder, &bytes, &count);
    coder.image_width = static_cast<JDIMENSION>(size.width());
    coder.image_height = static_cast<JDIMENSION>(size.height());
    const bool isThreefold = colors == Colors::YCbCr || colors == Colors::Rgb;
    coder.in_color_space = isThreefold ? JCS_RGB : space_of(colors);
    coder.input_components = isThreefold ? 3 : colors == Colors::Grey ? 1 : 4;
    jpeg_set_defaults(&coder);
    jpeg_set_colorspace(&coder, space_of(colors));
    jpeg_set_quality(&coder, quality, TRUE);
    if (colors == Colors::YCbCr) {
        for (int i = 0; i < 3; ++i) {
            coder.comp_info[i].h_samp_factor = i == 0 ? luma.width() : chroma.width();
            coder.comp_info[i].v_samp_factor = i == 0 ? luma.height() : chroma.height();
        }
    }
    coder.restart_in_rows = restartRows;
    coder.arith_code = isArithmetic ? TRUE : FALSE;
    coder.density_unit = static_cast<UINT8>(densityUnit);
    coder.X_density = static_cast<UINT16>(densityX);
    coder.Y_density = static_cast<UINT16>(densityY);
    if (isProgressive)
        jpeg_simple_progression(&coder);
    if (isInScans) {
        coder.scan_info = OneByOne.data();
        coder.num_scans = static_cast<int>(OneByOne.size());
    }
    jpeg_start_compress(&coder, TRUE);
    if (marker != 0)
        jpeg_write_marker(&coder, marker, reinterpret_cast<const JOCTET *>(content.constData()),
                          static_cast<unsigned int>(content.size()));
    write_rows(coder, size, seed);
    jpeg_finish_compress(&coder);
    jpeg_destroy_compress(&coder);
    QByteArray written(reinterpret_cast<const char *>(bytes), static_cast<qsizetype>(count));
    std::free(bytes);
    return written;
}
