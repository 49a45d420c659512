#include "image_files.h"
#include "ImageDocument.h"
#include "pictures.h"
#include "tiff_files.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

class tst_tiff_reading : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        directory = std::make_unique<QTemporaryDir>();
        QVERIFY(directory->isValid());
    }

    void cleanup() { directory.reset(); }

    void pagesOfAllDepthsComeBackInOrder()
    {
        const QList<QImage> pages{patterned_page({33, 9}, 1), patterned_page({20, 30}, 8), patterned_page({7, 5}, 32)};
        QVERIFY(save_as_tiff(path(), pages));

        const ImageDocument document(path(), u"TIFF"_s);

        QCOMPARE(document.pageCount(), 3U);
        for (uint pi = 1; pi <= 3; ++pi)
            QVERIFY(compare_pictures(document.page(pi), as_read_back(pages.at(pi - 1))));
    }

    void colourTableOfAnEightBitPageIsNotReadBack()
    {
        const QImage page = patterned_page({20, 30}, 8);
        QVERIFY(save_as_tiff(path(), {page}));

        const ImageDocument document(path(), u"TIFF"_s);

        QCOMPARE(document.page(1).colorTable(), QList<QRgb>(256, 0));
        QVERIFY(!document.page(1).hasAlphaChannel()); // zeros that show as black, not as nothing
        QCOMPARE(document.page(1).convertToFormat(QImage::Format_RGB32).pixel(0, 0), 0xff000000);
        QCOMPARE(document.page(1).pixelIndex(19, 29), page.pixelIndex(19, 29));
    }

    void resolutionIsNotReadBack()
    {
        QImage page = patterned_page({5, 5});
        page.setDotsPerMeterX(11811);
        page.setDotsPerMeterY(5906);
        QVERIFY(save_as_tiff(path(), {page}));

        const ImageDocument document(path(), u"TIFF"_s);

        const QImage fresh(1, 1, QImage::Format_RGB32);
        QCOMPARE(document.page(1).dotsPerMeterX(), fresh.dotsPerMeterX());
        QCOMPARE(document.page(1).dotsPerMeterY(), fresh.dotsPerMeterY());
    }

    void lowBitFirstPageComesBackAsItWas()
    {
        QImage page = patterned_page({33, 9}, 1).convertToFormat(QImage::Format_MonoLSB);
        page.setColorTable({0xff000000, 0xffffffff});
        QVERIFY(save_as_tiff(path(), {page}));

        const ImageDocument document(path(), u"TIFF"_s);

        QVERIFY(compare_pictures(document.page(1), page));
    }

    void highBitFirstPageComesBackMirroredInItsBytes()
    {
        QImage page(8, 1, QImage::Format_Mono);
        page.setColorTable({0xff000000, 0xffffffff});
        page.fill(0U);
        page.setPixel(1, 0, 1);
        QVERIFY(save_as_tiff(path(), {page}));

        const ImageDocument document(path(), u"TIFF"_s);

        QCOMPARE(document.page(1).format(), QImage::Format_MonoLSB);
        QCOMPARE(document.page(1).pixelIndex(1, 0), 0);
        QCOMPARE(document.page(1).pixelIndex(6, 0), 1);
    }

    void pageWithoutATagIsRefused_data()
    {
        QTest::addColumn<quint32>("tag");
        QTest::addColumn<QString>("mode");

        for (const char *mode : {"wl", "wb", "wl8", "wb8"}) {
            const auto row = [mode](const char *name, quint32 tag) {
                QTest::addRow("%s, %s", name, mode) << tag << QString::fromLatin1(mode);
            };
            row("XResolution", TIFFTAG_XRESOLUTION);
            row("YResolution", TIFFTAG_YRESOLUTION);
            row("ResolutionUnit", TIFFTAG_RESOLUTIONUNIT);
            row("BitsPerSample", TIFFTAG_BITSPERSAMPLE);
            row("SamplesPerPixel", TIFFTAG_SAMPLESPERPIXEL);
        }
    }

    void pageWithoutATagIsRefused()
    {
        QFETCH(const quint32, tag);
        QFETCH(const QString, mode);
        TiffPage page = bilevel_tiff_page(patterned_page({16, 4}, 1));
        page.withoutTag = tag;
        write_tiff(path(), {page}, mode.toLatin1().constData());
        // The library writes both resolutions or none: one of them gets another number, which means nothing.
        QByteArray bytes = file_bytes(path());
        const bool isBig = mode.contains(u'b');
        const auto number = [isBig](char low, char high) {
            return isBig ? QByteArray(1, high) + low : QByteArray(1, low) + high;
        };
        if (tag == TIFFTAG_XRESOLUTION || tag == TIFFTAG_YRESOLUTION)
            bytes.replace(number(static_cast<char>(tag), 1) + number(TIFF_RATIONAL, 0),
                          number(0x7f, 0x7f) + number(5, 0));
        write_file(path(), bytes);

        const ImageDocument document(path(), u"TIFF"_s);

        QVERIFY(document.isEmpty());
        QCOMPARE(document.loadStatus, 2);
    }

    void tagsThatAreReadButNotLookedAt_data()
    {
        QTest::addColumn<int>("compression");
        QTest::addColumn<double>("dotsPerInch");
        QTest::addColumn<double>("linesPerInch");
        QTest::addColumn<QString>("mode");

        const auto row = [](const char *name, int compression, const char *mode) {
            QTest::newRow(name) << compression << 300.0 << 300.0 << QString::fromLatin1(mode);
        };
        row("lzw", COMPRESSION_LZW, "w");
        row("deflate", COMPRESSION_ADOBE_DEFLATE, "w");
        row("packbits", COMPRESSION_PACKBITS, "w");
        row("high byte first", COMPRESSION_NONE, "wb");
        row("large file format", COMPRESSION_NONE, "w8");
        for (const char *mode : {"wl", "wb", "wl8", "wb8"}) {
            const auto resolution = [mode](const char *name, double x, double y) {
                QTest::addRow("resolution of nothing, %s, %s", name, mode)
                    << COMPRESSION_NONE << x << y << QString::fromLatin1(mode);
            };
            resolution("both", 0.0, 0.0);
            resolution("of columns", 0.0, 300.0);
            resolution("of lines", 300.0, 0.0);
        }
    }

    void tagsThatAreReadButNotLookedAt()
    {
        QFETCH(const int, compression);
        QFETCH(const double, dotsPerInch);
        QFETCH(const double, linesPerInch);
        QFETCH(const QString, mode);
        const QImage image = patterned_page({50, 40});
        TiffPage page = rgb_tiff_page(image);
        page.compression = compression;
        page.dotsPerInch = dotsPerInch;
        page.linesPerInch = linesPerInch;
        write_tiff(path(), {page, page}, mode.toLatin1().constData());

        const ImageDocument document(path(), u"TIFF"_s);

        QCOMPARE(document.pageCount(), 2U);
        QVERIFY(compare_pictures(document.page(1), image));
        QVERIFY(compare_pictures(document.page(2), image));
    }

    void paletteFileKeepsItsIndicesButNotItsColours()
    {
        const QImage image = patterned_page({50, 40}, 8);
        TiffPage page = grey_tiff_page(image);
        page.photometric = PHOTOMETRIC_PALETTE;
        page.reds = page.greens = page.blues = QList<quint16>(256, 0x8080);
        write_tiff(path(), {page});

        const ImageDocument document(path(), u"TIFF"_s);

        QCOMPARE(document.pageCount(), 1U);
        QVERIFY(compare_pictures(document.page(1), as_read_back(image)));
    }

    void paletteWithFewColoursHasATableOfItsCount()
    {
        // Two samples of four bits make depth 8, and four bits make sixteen colours.
        TiffPage page{.width = 4,
                      .height = 1,
                      .samples = 2,
                      .bits = 4,
                      .photometric = PHOTOMETRIC_PALETTE,
                      .rows = "\x01\x23\x45\x67"};
        page.reds = page.greens = page.blues = QList<quint16>(16, 0);
        write_tiff(path(), {page});

        const ImageDocument document(path(), u"TIFF"_s);

        QCOMPARE(document.pageCount(), 1U);
        QCOMPARE(document.page(1).colorTable(), QList<QRgb>(16, 0));
        QCOMPARE(document.page(1).pixelIndex(1, 0), 0x23);
    }

    void pageOfAnotherDepthIsNotRead_data()
    {
        QTest::addColumn<int>("samples");
        QTest::addColumn<int>("bits");
        QTest::addColumn<int>("planarConfig");

        QTest::newRow("32 bits grey, wider than a row of bytes") << 1 << 32 << PLANARCONFIG_CONTIG;
        QTest::newRow("four bits grey") << 1 << 4 << PLANARCONFIG_CONTIG;
        QTest::newRow("four samples, wider than a row of three") << 4 << 8 << PLANARCONFIG_CONTIG;
        for (const int samples : {1, 2, 3}) {
            QTest::addRow("%d of 16 bits side by side", samples) << samples << 16 << PLANARCONFIG_CONTIG;
            QTest::addRow("%d of 16 bits in planes", samples) << samples << 16 << PLANARCONFIG_SEPARATE;
        }
    }

    void pageOfAnotherDepthIsNotRead()
    {
        QFETCH(const int, samples);
        QFETCH(const int, bits);
        QFETCH(const int, planarConfig);
        write_tiff(path(),
                   {{.width = 64,
                     .height = 8,
                     .samples = samples,
                     .bits = bits,
                     .photometric = samples > 2 ? PHOTOMETRIC_RGB : PHOTOMETRIC_MINISBLACK,
                     .rows = QByteArray(64 * 8 * samples * bits / 8, '\x55'),
                     .planarConfig = planarConfig,
                     .extraSample = samples == 4 ? EXTRASAMPLE_UNASSALPHA : -1}});

        const ImageDocument document(path(), u"TIFF"_s);

        QVERIFY(document.isEmpty());
    }

    void separatePlanesGiveTheFirstOne()
    {
        const QByteArray planes =
            QByteArray("\x01\x02\x03", 3) + QByteArray("\x04\x05\x06", 3) + QByteArray("\x07\x08\x09", 3);
        write_tiff(path(),
                   {{.width = 3,
                     .height = 1,
                     .samples = 3,
                     .photometric = PHOTOMETRIC_RGB,
                     .rows = planes,
                     .planarConfig = PLANARCONFIG_SEPARATE}});

        const ImageDocument document(path(), u"TIFF"_s);

        QCOMPARE(document.pageCount(), 1U);
        QCOMPARE(document.page(1).pixel(0, 0), qRgb(1, 2, 3)); // taken for a pixel of three colours
        QCOMPARE(document.page(1).pixel(1, 0), qRgb(0, 0, 0));
        QCOMPARE(document.page(1).pixel(2, 0), qRgb(0, 0, 0));
    }

    void foreignFileIsRead_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<int>("depth");

        QTest::newRow("group 4") << QStringList{u"-c"_s, u"g4"_s} << 1;
        QTest::newRow("group 3") << QStringList{u"-c"_s, u"g3"_s} << 1;
        QTest::newRow("lzw in strips of five rows") << QStringList{u"-c"_s, u"lzw"_s, u"-r"_s, u"5"_s} << 32;
        QTest::newRow("packbits") << QStringList{u"-c"_s, u"packbits"_s} << 8;
        QTest::newRow("deflate") << QStringList{u"-c"_s, u"zip"_s} << 32;
        QTest::newRow("high byte first") << QStringList{u"-B"_s} << 8;
        QTest::newRow("low byte first") << QStringList{u"-L"_s} << 8;
        QTest::newRow("low bit first in the file") << QStringList{u"-f"_s, u"lsb2msb"_s} << 1;
    }

    void foreignFileIsRead()
    {
        QFETCH(const QStringList, options);
        QFETCH(const int, depth);
        const QImage image = patterned_page({104, 37}, depth); // whole bytes: no bits behind the last pixel
        const TiffPage page = depth == 32 ? rgb_tiff_page(image)
            : depth == 8                  ? grey_tiff_page(image)
                                          : bilevel_tiff_page(image);
        write_tiff(path(u"made.tif"_s), {page, page});
        QCOMPARE(QProcess::execute(u"tiffcp"_s, options + QStringList{path(u"made.tif"_s), path()}), 0);

        const ImageDocument document(path(), u"TIFF"_s);

        // The library hands rows out with the high bit first, whatever their order in the file.
        QCOMPARE(document.pageCount(), 2U);
        QVERIFY(compare_pictures(document.page(1), as_read_back(image)));
        QVERIFY(compare_pictures(document.page(2), as_read_back(image)));
    }

private:
    [[nodiscard]] QString path(const QString &name = u"a.tif"_s) const { return directory->filePath(name); }

    std::unique_ptr<QTemporaryDir> directory;
};

QTEST_GUILESS_MAIN(tst_tiff_reading)
#include "tst_tiff_reading.moc"
