#include "tiff_files.h"

#include "ImageDocument.h"

#include <QFile>

#include <array>

namespace {

void set_tags(TIFF *tif, const TiffPage &page)
{
    const std::array<std::pair<quint32, int>, 8> numbers{{
        {TIFFTAG_COMPRESSION, page.compression},
        {TIFFTAG_IMAGEWIDTH, page.width},
        {TIFFTAG_IMAGELENGTH, page.height},
        {TIFFTAG_SAMPLESPERPIXEL, page.samples},
        {TIFFTAG_BITSPERSAMPLE, page.bits},
        {TIFFTAG_PHOTOMETRIC, page.photometric},
        {TIFFTAG_PLANARCONFIG, page.planarConfig},
        {TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH},
    }};
    for (const auto &[tag, value] : numbers) {
        if (tag != page.withoutTag)
            TIFFSetField(tif, tag, value);
    }
    if (page.withoutTag != TIFFTAG_XRESOLUTION)
        TIFFSetField(tif, TIFFTAG_XRESOLUTION, page.dotsPerInch);
    if (page.withoutTag != TIFFTAG_YRESOLUTION)
        TIFFSetField(tif, TIFFTAG_YRESOLUTION, page.linesPerInch < 0 ? page.dotsPerInch : page.linesPerInch);
    if (page.fillOrder != 0)
        TIFFSetField(tif, TIFFTAG_FILLORDER, page.fillOrder);
    if (page.rowsPerStrip != 0)
        TIFFSetField(tif, TIFFTAG_ROWSPERSTRIP, page.rowsPerStrip);
    if (page.extraSample >= 0) {
        const auto meaning = static_cast<quint16>(page.extraSample);
        TIFFSetField(tif, TIFFTAG_EXTRASAMPLES, 1, &meaning);
    }
    if (!page.reds.isEmpty())
        TIFFSetField(tif, TIFFTAG_COLORMAP, page.reds.constData(), page.greens.constData(), page.blues.constData());
}

void write_rows(TIFF *tif, const TiffPage &page)
{
    QByteArray rows = page.rows; // the library may turn the bits of what it is given
    const int planes = page.planarConfig == PLANARCONFIG_SEPARATE ? page.samples : 1;
    const qsizetype rowBytes = rows.size() / (qsizetype{page.height} * planes);
    char *row = rows.data();
    for (int plane = 0; plane < planes; ++plane) {
        for (int y = 0; y < page.height; ++y, row += rowBytes) {
            if (TIFFWriteScanline(tif, row, static_cast<quint32>(y), static_cast<quint16>(plane)) != 1)
                qFatal("write_tiff - cannot write a row");
        }
    }
}

} // namespace

void write_tiff(const QString &path, const QList<TiffPage> &pages, const char *mode)
{
    TIFF *const tif = TIFFOpen(QFile::encodeName(path).constData(), mode);
    if (tif == nullptr)
        qFatal("write_tiff - cannot open the file");
    for (const TiffPage &page : pages) {
        set_tags(tif, page);
        write_rows(tif, page);
        if (TIFFWriteDirectory(tif) != 1)
            qFatal("write_tiff - cannot write a directory");
    }
    TIFFClose(tif);
}

bool save_as_tiff(const QString &path, const QList<QImage> &pages)
{
    ImageDocument document({}, {});
    for (const QImage &page : pages) {
        if (!document.addPage(page))
            return false;
    }
    return document.save(path, QStringLiteral("TIFF"));
}

/// The rows of a 24-bit file: red, green, blue.
QByteArray rgb_rows(const QImage &page)
{
    QByteArray rows;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            const QRgb word = page.pixel(x, y);
            rows += static_cast<char>(qRed(word));
            rows += static_cast<char>(qGreen(word));
            rows += static_cast<char>(qBlue(word));
        }
    }
    return rows;
}

/// The rows of a page of depth 8 or 1 as they stand, without padding.
QByteArray plain_rows_of(const QImage &page)
{
    QByteArray rows;
    for (int y = 0; y < page.height(); ++y)
        rows +=
            QByteArray(reinterpret_cast<const char *>(page.constScanLine(y)), (page.width() * page.depth() + 7) / 8);
    return rows;
}

TiffPage rgb_tiff_page(const QImage &image)
{
    return {.width = image.width(),
            .height = image.height(),
            .samples = 3,
            .photometric = PHOTOMETRIC_RGB,
            .rows = rgb_rows(image)};
}

TiffPage bilevel_tiff_page(const QImage &image, int photometric)
{
    return {.width = image.width(),
            .height = image.height(),
            .bits = 1,
            .photometric = photometric,
            .rows = plain_rows_of(image)};
}

TiffPage grey_tiff_page(const QImage &image)
{
    return {.width = image.width(), .height = image.height(), .rows = plain_rows_of(image)};
}

QImage as_read_back(const QImage &page)
{
    if (page.depth() == 32)
        return page.convertToFormat(QImage::Format_RGB32);
    QImage result(page.size(), page.depth() == 8 ? QImage::Format_Indexed8 : QImage::Format_MonoLSB);
    if (page.depth() == 8)
        result.setColorCount(256);
    else
        result.setColorTable({0xff000000, 0xffffffff});
    for (int y = 0; y < page.height(); ++y)
        std::copy_n(page.constScanLine(y), page.bytesPerLine(), result.scanLine(y));
    return result;
}
