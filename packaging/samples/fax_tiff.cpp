#include "fax_tiff.h"

#include <QFile>

#include <memory>
#include <tiffio.h>

namespace {

void set_tags(TIFF *tiff, const QImage &page)
{
    constexpr float CentimetresPerMetre = 100;
    const bool blackIsZero = qGray(page.color(0)) < qGray(page.color(1));
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, static_cast<std::uint32_t>(page.width()));
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, static_cast<std::uint32_t>(page.height()));
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 1);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 1);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_CCITTFAX4);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, blackIsZero ? PHOTOMETRIC_MINISBLACK : PHOTOMETRIC_MINISWHITE);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, static_cast<std::uint32_t>(page.height()));
    TIFFSetField(tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_CENTIMETER);
    TIFFSetField(tiff, TIFFTAG_XRESOLUTION, static_cast<float>(page.dotsPerMeterX()) / CentimetresPerMetre);
    TIFFSetField(tiff, TIFFTAG_YRESOLUTION, static_cast<float>(page.dotsPerMeterY()) / CentimetresPerMetre);
}

} // namespace

bool write_fax_tiff(const QImage &page, const QString &fileName)
{
    if (page.format() != QImage::Format_Mono)
        return false;
    const std::unique_ptr<TIFF, decltype(&TIFFClose)> tiff(TIFFOpen(QFile::encodeName(fileName).constData(), "w"),
                                                           TIFFClose);
    if (!tiff)
        return false;
    set_tags(tiff.get(), page);
    QImage rows = page; // libtiff may change what it is handed
    for (int y = 0; y < rows.height(); ++y) {
        if (TIFFWriteScanline(tiff.get(), rows.scanLine(y), static_cast<std::uint32_t>(y), 0) != 1)
            return false;
    }
    return TIFFFlush(tiff.get()) == 1;
}
