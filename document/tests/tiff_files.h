#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QString>

#include <tiffio.h>

/// A page of a TIFF file for tests, with any tags. What cannot be made ends the test program.
struct TiffPage
{
    int width = 0;
    int height = 0;
    int samples = 1;
    int bits = 8;
    int photometric = PHOTOMETRIC_MINISBLACK;
    QByteArray rows{}; ///< packed, one after the other; the planes one after the other if they are separate
    int compression = COMPRESSION_NONE;
    int planarConfig = PLANARCONFIG_CONTIG;
    int fillOrder = 0; ///< 0 for none
    int extraSample = -1; ///< meaning of the last sample; -1 for none
    QList<quint16> reds{}; ///< colour map of 16 bits; none if empty
    QList<quint16> greens{};
    QList<quint16> blues{};
    double dotsPerInch = 300;
    double linesPerInch = -1; ///< negative for the same
    int rowsPerStrip = 0; ///< 0 for the library's own
    quint32 withoutTag = 0; ///< a tag that is left out; 0 for none
};

/// @param mode  as the library knows it: "w", "wb" for the high byte first, "w8" for large files
void write_tiff(const QString &path, const QList<TiffPage> &pages, const char *mode = "w");

/// Saves a new document of these pages by the multi-page codec.
[[nodiscard]] bool save_as_tiff(const QString &path, const QList<QImage> &pages);

/// The rows of a 24-bit file: red, green, blue.
[[nodiscard]] QByteArray rgb_rows(const QImage &page);
/// The rows of a page of depth 8 or 1 as they stand, without padding.
[[nodiscard]] QByteArray plain_rows_of(const QImage &page);

/// Pages of a file made of a picture of depth 32, 1 and 8.
[[nodiscard]] TiffPage rgb_tiff_page(const QImage &image);
[[nodiscard]] TiffPage bilevel_tiff_page(const QImage &image, int photometric = PHOTOMETRIC_MINISWHITE);
[[nodiscard]] TiffPage grey_tiff_page(const QImage &image);

/// What the multi-page codec makes of a page that it has written: no alpha, no palette, and the bytes of a
/// 1-bit page taken with the low bit first.
[[nodiscard]] QImage as_read_back(const QImage &page);
