#include "image_files.h"
#include "ImageDocument.h"
#include "odd_files.h"
#include "page_buffers.h"
#include "pictures.h"
#include "tiff_files.h"

#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <initializer_list>
#include <malloc.h>
#include <tiffio.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize LargeSize(400, 300); // of more pixels than the smallest page whose memory is used again

/// Gives all memory that comes from now on, that of kept pages too, one byte.
void make_memory_dirty(uchar byte)
{
    // The library turns the bits of what is given for memory that it hands out.
    (void)mallopt(M_PERTURB, 0xff & ~byte);
    for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_Indexed8}) {
        QImage page = new_page(LargeSize, format);
        std::fill_n(page.bits(), page.sizeInBytes(), byte);
    }
}

/// All that a document shows.
QList<QImage> pages_of(const QString &path, const QString &word, uchar dirt)
{
    make_memory_dirty(dirt);
    const ImageDocument document(path, word);
    QList<QImage> pages;
    for (uint pi = 1; pi <= document.pageCount(); ++pi)
        pages.append(document.page(pi));
    return pages;
}

/// The bytes of a tiled page of one grey sample by deflate.
QByteArray tiled_tiff(const QString &path)
{
    constexpr int side = 64;
    constexpr int tileSide = 32;
    TIFF *const tif = TIFFOpen(path.toUtf8().constData(), "w");
    for (const auto &[tag, value] : std::initializer_list<std::pair<ttag_t, int>>{
             {TIFFTAG_IMAGEWIDTH, side},
             {TIFFTAG_IMAGELENGTH, side},
             {TIFFTAG_TILEWIDTH, tileSide},
             {TIFFTAG_TILELENGTH, tileSide},
             {TIFFTAG_BITSPERSAMPLE, 8},
             {TIFFTAG_SAMPLESPERPIXEL, 1},
             {TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK},
             {TIFFTAG_COMPRESSION, COMPRESSION_ADOBE_DEFLATE},
         })
        TIFFSetField(tif, tag, value);
    QByteArray tile(qsizetype{tileSide} * tileSide, '\0');
    for (quint32 i = 0; i < 4; ++i) {
        for (int at = 0; at < tile.size(); ++at)
            tile[at] = static_cast<char>(at * (at / 97) + static_cast<int>(i));
        if (TIFFWriteEncodedTile(tif, i, tile.data(), tile.size()) != tile.size())
            qFatal("tiledTiff - cannot write");
    }
    TIFFClose(tif);
    return file_bytes(path);
}

} // namespace

/// What a file shows is in the file: never what stood in memory before.
class tst_dirty_memory : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { (void)mallopt(M_PERTURB, 0); }

    void fileGivesTheSamePagesTwice_data();
    void fileGivesTheSamePagesTwice();
    void damagedFileGivesTheSamePagesTwice_data();
    void damagedFileGivesTheSamePagesTwice();

private:
    static void addWholeFiles();
    void compareLoads(const QByteArray &bytes, const QString &word) const;

    QTemporaryDir directory;
};

void tst_dirty_memory::compareLoads(const QByteArray &bytes, const QString &word) const
{
    const QString path = directory.filePath(u"file"_s);
    write_file(path, bytes);
    const QList<QImage> pages = pages_of(path, word, 0x33);
    const QList<QImage> others = pages_of(path, word, 0xcc);
    QCOMPARE(others.size(), pages.size());
    for (qsizetype i = 0; i < pages.size(); ++i) {
        QVERIFY(compare_pictures(others.at(i), pages.at(i)));
        QCOMPARE(others.at(i).dotsPerMeterX(), pages.at(i).dotsPerMeterX());
        QCOMPARE(others.at(i).dotsPerMeterY(), pages.at(i).dotsPerMeterY());
    }
}

void tst_dirty_memory::addWholeFiles()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("word");

    for (const char *format :
         {"bmp", "cur", "icns", "ico", "jpg", "pbm", "pgm", "png", "ppm", "tif", "wbmp", "webp", "xbm", "xpm"}) {
        for (const int depth : {32, 8, 1})
            QTest::addRow("%s of depth %d", format, depth)
                << encoded(patterned_page({32, 32}, depth), format) << QString();
    }
    for (const OddFile &file : odd_files())
        QTest::newRow(file.name.constData()) << file.bytes << file.word;
    const QTemporaryDir maker;
    QTest::newRow("tiled tiff") << tiled_tiff(maker.filePath(u"a"_s)) << QString();
    for (const int compression : {COMPRESSION_ADOBE_DEFLATE, COMPRESSION_LZW, COMPRESSION_PACKBITS}) {
        TiffPage page = grey_tiff_page(patterned_page({61, 40}, 8));
        page.compression = compression;
        page.rowsPerStrip = 1;
        write_tiff(maker.filePath(u"b"_s), {page});
        for (const QString &word : {QString(), u"TIFF"_s})
            QTest::addRow("grey tiff by %d and %s", compression, qPrintable(word))
                << file_bytes(maker.filePath(u"b"_s)) << word;
    }
    TiffPage fax = bilevel_tiff_page(patterned_page({61, 40}, 1));
    fax.compression = COMPRESSION_CCITTFAX3;
    write_tiff(maker.filePath(u"c"_s), {fax});
    QTest::newRow("fax") << file_bytes(maker.filePath(u"c"_s)) << QString();
    QTest::newRow("fax, all pages") << file_bytes(maker.filePath(u"c"_s)) << u"TIFF"_s;
}

void tst_dirty_memory::fileGivesTheSamePagesTwice_data()
{
    addWholeFiles();
    for (const char *format : {"bmp", "jpg", "png", "ppm", "tif", "webp"}) {
        const QByteArray bytes = encoded(patterned_page(LargeSize), format);
        for (const int percent : {100, 99, 50})
            QTest::addRow("%d %% of a large %s", percent, format)
                << bytes.first(bytes.size() * percent / 100) << QString();
    }
}

void tst_dirty_memory::fileGivesTheSamePagesTwice()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, word);

    compareLoads(bytes, word);
}

void tst_dirty_memory::damagedFileGivesTheSamePagesTwice_data()
{
    addWholeFiles();
}

void tst_dirty_memory::damagedFileGivesTheSamePagesTwice()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, word);
    quint32 state = 5;
    const auto random = [&state](qsizetype limit) {
        state = state * 1664525U + 1013904223U;
        return static_cast<qsizetype>((state >> 8) % static_cast<quint32>(limit));
    };

    for (int i = 0; i < 12; ++i) {
        QByteArray damaged = bytes;
        const qsizetype at = random(bytes.size());
        damaged[at] = static_cast<char>(damaged.at(at) ^ 1 << random(8));
        compareLoads(damaged, word);
        if (QTest::currentTestFailed())
            return;
        if (i % 4 == 0)
            compareLoads(bytes.first(random(bytes.size())), word);
    }
}

QTEST_GUILESS_MAIN(tst_dirty_memory)
#include "tst_dirty_memory.moc"
