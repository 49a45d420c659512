// TIFF files that were made to do harm, or that lost their way.

#include "image_files.h"
#include "ImageDocument.h"
#include "page_buffers.h"
#include "pictures.h"
#include "tiff_files.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <initializer_list>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 SlackBytes = 5'000'000;

qint64 number(const QByteArray &bytes, qsizetype at, int count)
{
    qint64 result = 0;
    for (int i = count; i-- > 0;)
        result = result << 8 | static_cast<uchar>(bytes.at(at + i));
    return result;
}

/// Where the entries of the directories of a file of the low byte first say where the next one lies.
QList<qsizetype> links_of(const QByteArray &bytes)
{
    QList<qsizetype> links{4};
    for (qint64 at = number(bytes, 4, 4); at != 0; at = number(bytes, links.last(), 4))
        links.append(at + 2 + 12 * number(bytes, at, 2));
    return links;
}

/// Where the entry of a tag in the first directory begins.
qsizetype entry_of(const QByteArray &bytes, int tag)
{
    const qint64 directory = number(bytes, 4, 4);
    for (qint64 i = 0; i < number(bytes, directory, 2); ++i) {
        const qint64 entry = directory + 2 + 12 * i;
        if (number(bytes, entry, 2) == tag)
            return entry;
    }
    qFatal("no such tag");
}

QList<TiffPage> compressed_pages(int compression)
{
    const bool isFax = compression == COMPRESSION_CCITTFAX4;
    TiffPage page =
        isFax ? bilevel_tiff_page(patterned_page({301, 200}, 1)) : grey_tiff_page(patterned_page({201, 150}, 8));
    page.compression = compression;
    return {page, page, page};
}

} // namespace

class tst_tiff_hostile : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        directory.emplace();
        QVERIFY(directory->isValid());
    }
    void cleanup() { directory.reset(); }

    void compressedFileCutAnywhereGivesWholePagesOrNone_data()
    {
        QTest::addColumn<int>("compression");

        QTest::newRow("lzw") << COMPRESSION_LZW;
        QTest::newRow("deflate") << COMPRESSION_ADOBE_DEFLATE;
        QTest::newRow("packbits") << COMPRESSION_PACKBITS;
        QTest::newRow("group 4") << COMPRESSION_CCITTFAX4;
    }

    void compressedFileCutAnywhereGivesWholePagesOrNone()
    {
        QFETCH(const int, compression);
        write_tiff(path(), compressed_pages(compression));
        const ImageDocument whole(path(), u"TIFF"_s);
        QCOMPARE(whole.pageCount(), 3U);

        constexpr qint64 step = 1024;
        for (qint64 bytes = QFile(path()).size() - 1; bytes > 0; bytes -= step) {
            QVERIFY(QFile::resize(path(), bytes));
            ImageDocument document({}, {});
            QVERIFY(!document.load(path(), u"TIFF"_s));
            QVERIFY(document.pageCount() < 3);
            if (document.pageCount() > 0)
                QVERIFY(compare_pictures(document.page(1), whole.page(1)));
        }
    }

    void directoriesThatLeadAstrayEndTheReading_data()
    {
        QTest::addColumn<int>("link");
        QTest::addColumn<qint64>("target"); // negative for the directory of that number, counted from 1
        QTest::addColumn<uint>("pages");

        QTest::newRow("second to the first") << 2 << qint64{-1} << 2U;
        QTest::newRow("second to itself") << 2 << qint64{-2} << 2U;
        QTest::newRow("third to the second") << 3 << qint64{-2} << 3U;
        QTest::newRow("behind the end") << 1 << qint64{0x7fffffff} << 1U;
        QTest::newRow("far behind the end") << 1 << qint64{0xfffffffe} << 1U;
        QTest::newRow("into the header") << 1 << qint64{2} << 1U;
        QTest::newRow("into the pixels") << 1 << qint64{64} << 1U;
        QTest::newRow("the first one behind the end") << 0 << qint64{0x7fffffff} << 0U;
        QTest::newRow("no directory at all") << 0 << qint64{0} << 0U;
    }

    void directoriesThatLeadAstrayEndTheReading()
    {
        QFETCH(const int, link);
        QFETCH(const qint64, target);
        QFETCH(const uint, pages);
        const QImage page = patterned_page({100, 80}, 8);
        QVERIFY(save_as_tiff(path(), {page, page, page}));
        QByteArray bytes = file_bytes(path());
        const QList<qsizetype> links = links_of(bytes);
        const qint64 place = target < 0 ? number(bytes, links.at(-target - 1), 4) : target;
        write_file(path(), bytes.replace(links.at(link), 4, little32(place)));
        ImageDocument document({}, {});

        QVERIFY(!document.load(path(), u"TIFF"_s));

        QCOMPARE(document.pageCount(), pages);
        for (uint pi = 1; pi <= pages; ++pi)
            QVERIFY(compare_pictures(document.page(pi), as_read_back(page)));
    }

    void tagsOfNonsenseAreRefusedAtOnce_data()
    {
        QTest::addColumn<int>("tag");
        QTest::addColumn<qint64>("value");

        for (const int depth : {1, 8, 32}) {
            for (const qint64 value : {qint64{0x7fffffff}, qint64{0x80000000}, qint64{0xffffffff}}) {
                QTest::addRow("%d: strip at %lld", depth, value) << TIFFTAG_STRIPOFFSETS << value;
                QTest::addRow("%d: %lld samples", depth, value) << TIFFTAG_SAMPLESPERPIXEL << value;
                QTest::addRow("%d: %lld bits", depth, value) << TIFFTAG_BITSPERSAMPLE << value;
                QTest::addRow("%d: compression %lld", depth, value) << TIFFTAG_COMPRESSION << value;
            }
            QTest::addRow("%d: no samples", depth) << TIFFTAG_SAMPLESPERPIXEL << qint64{0};
            QTest::addRow("%d: no bits", depth) << TIFFTAG_BITSPERSAMPLE << qint64{0};
            QTest::addRow("%d: unknown compression", depth) << TIFFTAG_COMPRESSION << qint64{12345};
        }
    }

    void tagsOfNonsenseAreRefusedAtOnce()
    {
        QFETCH(const int, tag);
        QFETCH(const qint64, value);
        const int depth = QByteArray(QTest::currentDataTag()).split(':').first().toInt();
        QVERIFY(save_as_tiff(path(), {patterned_page({64, 48}, depth)}));
        QByteArray bytes = file_bytes(path());
        const qsizetype entry = entry_of(bytes, tag);
        constexpr int longType = 4;
        write_file(path(), bytes.replace(entry + 2, 10, little16(longType) + little32(1) + little32(value)));
        QElapsedTimer timer;
        timer.start();

        QVERIFY(ImageDocument(path(), u"TIFF"_s).isEmpty());

        QVERIFY2(timer.elapsed() < 2000 * MeasureAllowance, qPrintable(QString::number(timer.elapsed())));
    }

    void stripsOfMoreBytesThanTheFileHas_data()
    {
        QTest::addColumn<qint64>("claimed");

        QTest::newRow("2^31") << qint64{0x80000000};
        QTest::newRow("2^32 - 1") << qint64{0xffffffff};
    }

    void stripsOfMoreBytesThanTheFileHas()
    {
        QFETCH(const qint64, claimed);
        for (const int depth : {1, 8, 32}) {
            const QImage page = patterned_page({64, 48}, depth);
            QVERIFY(save_as_tiff(path(), {page}));
            QByteArray bytes = file_bytes(path());
            const qsizetype entry = entry_of(bytes, TIFFTAG_STRIPBYTECOUNTS);
            write_file(path(), bytes.replace(entry + 2, 10, little16(4) + little32(1) + little32(claimed)));
            restart_peak_memory();
            const qint64 before = peak_memory_bytes();

            const ImageDocument document(path(), u"TIFF"_s);

            // The rows are all there, so the page may be shown; it must not cost what the file claims.
            if (!document.isEmpty())
                QVERIFY(compare_pictures(document.page(1), as_read_back(page)));
            QVERIFY2(peak_memory_bytes() - before < 20'000'000 * MeasureAllowance,
                     qPrintable(QString::number(peak_memory_bytes() - before)));
        }
    }

    void hugeTilesOfASmallPageCostNothing()
    {
        TIFF *const tif = TIFFOpen(path().toUtf8().constData(), "w");
        const std::initializer_list<std::pair<ttag_t, int>> tags{
            {TIFFTAG_IMAGEWIDTH, 64},
            {TIFFTAG_IMAGELENGTH, 64},
            {TIFFTAG_TILEWIDTH, 1 << 14},
            {TIFFTAG_TILELENGTH, 1 << 14}, // 256 MiB, of which the file holds the first bytes
            {TIFFTAG_BITSPERSAMPLE, 8},
            {TIFFTAG_SAMPLESPERPIXEL, 1},
            {TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK},
            {TIFFTAG_COMPRESSION, COMPRESSION_ADOBE_DEFLATE},
        };
        for (const auto &[tag, value] : tags)
            TIFFSetField(tif, tag, value);
        QByteArray codes = qCompress(QByteArray(4096, 'x')).sliced(4);
        QCOMPARE(TIFFWriteRawTile(tif, 0, codes.data(), codes.size()), codes.size());
        TIFFClose(tif);
        restart_peak_memory();
        const qint64 before = peak_memory_bytes();

        QVERIFY(ImageDocument(path(), {}).isEmpty());

        QVERIFY2(peak_memory_bytes() - before < SlackBytes * MeasureAllowance,
                 qPrintable(QString::number(peak_memory_bytes() - before)));
    }

    void changedBytesNeverEndTheProcess()
    {
        QList<TiffPage> pages = compressed_pages(COMPRESSION_LZW) + compressed_pages(COMPRESSION_CCITTFAX4);
        pages.append(rgb_tiff_page(patterned_page({50, 40})));
        write_tiff(path(), pages);
        const QByteArray good = file_bytes(path());
        const qsizetype pixelsEnd = number(good, 4, 4);
        constexpr int changes = 400;
        QRandomGenerator random(11);
        for (int i = 0; i < changes; ++i) {
            QByteArray bytes = good;
            for (int k = 0; k < 3; ++k) {
                // Most of them behind the first pixels, where the directories lie.
                const auto from = i % 4 == 0 ? 0 : static_cast<int>(pixelsEnd);
                bytes[random.bounded(from, static_cast<int>(bytes.size()))] = static_cast<char>(random.generate());
            }
            write_file(path(), bytes);
            const ImageDocument document(path(), u"TIFF"_s);
            QVERIFY(document.pageCount() <= 7);
        }
    }

    void bitsBehindTheLastPixelOfARowAreZero()
    {
        // The bytes of a 1-bit page are taken with the low bit first, so such bits are pixels.
        const QImage image = patterned_page({3001, 1000}, 1);
        TiffPage page = bilevel_tiff_page(image);
        page.compression = COMPRESSION_CCITTFAX4;
        write_tiff(path(), {page});
        {
            QImage dirty = new_page(image.size(), QImage::Format_Mono);
            dirty.fill(1);
        } // its memory serves the next page

        const ImageDocument document(path(), u"TIFF"_s);

        QImage expected = image.copy();
        for (int y = 0; y < expected.height(); ++y)
            expected.scanLine(y)[3001 / 8] &= 0x80;
        QVERIFY(compare_pictures(document.page(1), as_read_back(expected)));
    }

    void manyPagesAreHeldOnceWhileTheyAreRead_data()
    {
        QTest::addColumn<int>("depth");
        QTest::addColumn<int>("compression");

        QTest::newRow("depth 1") << 1 << COMPRESSION_NONE;
        QTest::newRow("depth 1, group 4") << 1 << COMPRESSION_CCITTFAX4;
        QTest::newRow("depth 8") << 8 << COMPRESSION_NONE;
        QTest::newRow("depth 8, lzw") << 8 << COMPRESSION_LZW;
        QTest::newRow("depth 32") << 32 << COMPRESSION_NONE;
        QTest::newRow("depth 32, packbits") << 32 << COMPRESSION_PACKBITS;
    }

    void manyPagesAreHeldOnceWhileTheyAreRead()
    {
        QFETCH(const int, depth);
        QFETCH(const int, compression);
        constexpr int pageCount = 10;
        {
            const QSize size = depth == 1 ? QSize(4000, 4000) : QSize(1500, 1000);
            const QImage image = solid_page(size, 0xff808080,
                                            depth == 32      ? QImage::Format_RGB32
                                                : depth == 8 ? QImage::Format_Indexed8
                                                             : QImage::Format_Mono);
            TiffPage page = depth == 32 ? rgb_tiff_page(image)
                : depth == 8            ? grey_tiff_page(image)
                                        : bilevel_tiff_page(image);
            page.compression = compression;
            write_tiff(path(), QList<TiffPage>(pageCount, page));
        }
        restart_peak_memory();
        const qint64 before = peak_memory_bytes();

        const ImageDocument document(path(), u"TIFF"_s);

        QCOMPARE(document.pageCount(), uint{pageCount});
        const qint64 pageBytes = pageCount * document.page(1).sizeInBytes();
        const qint64 extra = peak_memory_bytes() - before - pageBytes;
        QVERIFY2(extra < SlackBytes * MeasureAllowance, qPrintable(QString::number(extra)));
        QVERIFY(pageBytes > 2 * SlackBytes); // or the slack would hide a second copy
    }

private:
    [[nodiscard]] QString path() const { return directory->filePath(u"a.tif"_s); }

    std::optional<QTemporaryDir> directory;
};

QTEST_GUILESS_MAIN(tst_tiff_hostile)
#include "tst_tiff_hostile.moc"
