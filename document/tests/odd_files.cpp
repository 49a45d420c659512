#include "odd_files.h"

#include "image_files.h"
#include "pictures.h"
#include "tiff_files.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb red = 0xffff0000;
constexpr QRgb blue = 0xff0000ff;

QByteArray little24(int value)
{
    return little32(value).first(3);
}

/// What libtiff makes of a page.
QByteArray tiff_of(const TiffPage &page)
{
    const QTemporaryDir directory;
    write_tiff(directory.filePath(u"file"_s), {page});
    return file_bytes(directory.filePath(u"file"_s));
}

QList<OddFile> odd_bmp_files()
{
    const QByteArray skipping("\1\1\0\2\2\0\1\2\0\0\0\1", 12);
    const QByteArray large = encoded(patterned_page({400, 300}), "bmp");
    const QByteArray indexed = encoded(patterned_page({400, 300}, 8), "bmp");
    return {
        {"run lengths with skipped pixels", run_length_bmp(8, {red, blue}, skipping), {}},
        {"run lengths of nibbles with skipped pixels", run_length_bmp(4, {red, blue}, skipping), {}},
        {"run lengths beyond the row", run_length_bmp(8, {red, blue}, QByteArray("\xc8\1\0\0\1\2\0\1", 8)), {}},
        {"no coded pixels", run_length_bmp(8, {red, blue}, QByteArray("\0\1", 2)), {}},
        {"short table", bmp_file(3, 1, 8, {red}, QByteArray("\0\1\3\0", 4)), {}},
        {"short table of one bit", bmp_file(2, 1, 1, {red}, QByteArray("\x40\0\0\0", 4)), {}},
        {"table shorter than told",
         bmp_file(3, 1, 8, {red, blue}, QByteArray("\0\1\1\0", 4)).replace(46, 4, little32(0)),
         {}},
        {"cut, pixels told in the header", QByteArray(large).replace(10, 4, little32(0)).chopped(40), {}},
        {"indexed and cut, pixels told in the table",
         QByteArray(indexed).replace(10, 4, little32(60)).chopped(900),
         {}},
        {"without the last padding", bmp_file(2, 1, 24, {}, QByteArray("\0\0\xff\xff\0\0", 6)), {}},
        {"half of its rows", large.first(large.size() / 2), {}},
    };
}

/// A grey page whose coded tile or row holds more than it should: one long run.
QByteArray overfull_tiff(bool tiled)
{
    constexpr int width = 2048;
    constexpr int side = 64;
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"file"_s);
    TIFF *const tif = TIFFOpen(path.toUtf8().constData(), "w");
    const auto set = [tif](ttag_t tag, int value) { TIFFSetField(tif, tag, value); };
    set(TIFFTAG_IMAGEWIDTH, tiled ? side : width);
    set(TIFFTAG_IMAGELENGTH, tiled ? side : 1);
    set(TIFFTAG_BITSPERSAMPLE, 8);
    set(TIFFTAG_SAMPLESPERPIXEL, 1);
    set(TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
    set(TIFFTAG_COMPRESSION, COMPRESSION_ADOBE_DEFLATE);
    set(TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    set(TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
    TIFFSetField(tif, TIFFTAG_XRESOLUTION, 300.0);
    TIFFSetField(tif, TIFFTAG_YRESOLUTION, 300.0);
    if (tiled) {
        set(TIFFTAG_TILEWIDTH, side);
        set(TIFFTAG_TILELENGTH, side);
    } else {
        set(TIFFTAG_ROWSPERSTRIP, 1);
    }
    constexpr int excess = 100; // of a run that is coded in pieces of 258
    QByteArray codes = qCompress(QByteArray((tiled ? side * side : width) + excess, 'x')).sliced(4);
    const tmsize_t written = tiled ? TIFFWriteRawTile(tif, 0, codes.data(), codes.size())
                                   : TIFFWriteRawStrip(tif, 0, codes.data(), codes.size());
    if (written != codes.size())
        qFatal("overfullTiff - cannot write");
    TIFFClose(tif);
    return file_bytes(path);
}

QList<OddFile> odd_tiff_files()
{
    const TiffPage wide{.width = 40, .height = 30, .samples = 3, .bits = 16, .photometric = PHOTOMETRIC_RGB};
    TiffPage planes = wide;
    planes.rows = QByteArray(qsizetype{40} * 30 * 6, '\x12');
    planes.planarConfig = PLANARCONFIG_SEPARATE;
    TiffPage pair = planes;
    pair.samples = 2;
    pair.rows.chop(pair.rows.size() / 3);
    QList<OddFile> files{{"overfull tile", overfull_tiff(true), {}},
                         {"overfull row", overfull_tiff(false), {}},
                         {"overfull row, all pages", overfull_tiff(false), u"TIFF"_s}};
    for (const QString &word : {QString(), u"TIFF"_s}) {
        files.append({"wide samples in planes by " + word.toLatin1(), tiff_of(planes), word});
        files.append({"two wide samples in planes by " + word.toLatin1(), tiff_of(pair), word});
    }
    return files;
}

} // namespace

QByteArray tga_file(const Tga &tga)
{
    QByteArray header(18, '\0');
    header[0] = static_cast<char>(tga.name.size());
    header[2] = 2;
    if (!tga.table.isEmpty()) {
        header[1] = 1;
        header.replace(5, 2, little16(static_cast<int>(tga.table.size()) / 3));
        header[7] = 24;
    }
    header.replace(12, 4, little16(tga.width) + little16(tga.height));
    header[16] = static_cast<char>(tga.bits);
    header[17] = static_cast<char>(tga.descriptor);
    return header + tga.name + tga.table + tga.pixels + QByteArray(8, '\0') + QByteArray("TRUEVISION-XFILE.\0", 18);
}

QByteArray animated_webp(const QImage &picture, int left, int top, bool tellsAlpha, int frames)
{
    const QByteArray still = encoded(picture, "webp", 100);
    const QByteArray canvas = little24(7) + little24(5);
    const QByteArray head = riff_chunk("VP8X", little32(tellsAlpha ? 0x12 : 0x02) + canvas);
    const QByteArray place = little24(left / 2) + little24(top / 2) + little24(picture.width() - 1)
        + little24(picture.height() - 1) + little32(100);
    const QByteArray frame = riff_chunk("ANMF", place + still.sliced(12));
    return riff_chunk("RIFF", "WEBP" + head + riff_chunk("ANIM", QByteArray(6, '\0')) + frame.repeated(frames));
}

QByteArray icns_file(const QByteArray &codes)
{
    const qsizetype length = 8 + codes.size();
    return "icns" + big32(8 + length) + "il32" + big32(length) + codes;
}

QByteArray run_length_bmp(int bits, const QList<QRgb> &colors, const QByteArray &codes)
{
    return bmp_file(4, 2, bits, colors, codes).replace(30, 4, little32(bits == 8 ? 1 : 2));
}

QList<OddFile> odd_files()
{
    const QByteArray wideColor("\x12\x34\x12\x34\x12\x34", 6);
    const QByteArray words("\0\x7c\x1f\x06", 4);
    return QList<OddFile>{
               {"wide png with a clear colour",
                png_file(300, 16, PngColor, '\0' + wideColor.repeated(300), "tRNS", wideColor),
                {}},
               {"tga with a name", tga_file({.pixels = QByteArray(6, 'x'), .name = "scan"}), u"tga"_s},
               {"tga of 16 bits", tga_file({.bits = 16, .pixels = words}), u"tga"_s},
               {"tga without pixels", tga_file({.width = 40, .height = 30}), u"tga"_s},
               {"small picture on a canvas", animated_webp(solid_page({4, 3}, red), 2, 2, false), {}},
               {"icon without its last codes", icns_file(QByteArray("\xfd\x11", 2).repeated(20)), {}},
               {"gif without its end", small_gif().chopped(2), {}},
               {"jpeg without its end", encoded(patterned_page({40, 30}), "jpg").chopped(2), {}},
           }
    + odd_bmp_files() + odd_tiff_files();
}
