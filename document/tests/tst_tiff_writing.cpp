#include "image_files.h"
#include "ImageDocument.h"
#include "pictures.h"
#include "tiff_codec.h"
#include "tiff_files.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// The value of a tag, or one that no test expects.
quint32 long_tag(TIFF *tif, quint32 tag)
{
    quint32 value = 0;
    return TIFFGetField(tif, tag, &value) == 1 ? value : 0xdeadbeef;
}

quint32 short_tag(TIFF *tif, quint32 tag)
{
    quint16 value = 0;
    return TIFFGetField(tif, tag, &value) == 1 ? value : 0xdeadbeef;
}

float real_tag(TIFF *tif, quint32 tag)
{
    float value = 0;
    return TIFFGetField(tif, tag, &value) == 1 ? value : -1;
}

/// The file that a plain loop over the rows writes, with the library's own buffer and closing.
void write_plainly(const QString &path, const QList<QImage> &pages)
{
    TIFF *const tif = TIFFOpen(QFile::encodeName(path).constData(), "w");
    for (const QImage &page : pages) {
        const bool color = page.depth() == 32;
        TIFFSetField(tif, TIFFTAG_COMPRESSION, 1);
        TIFFSetField(tif, TIFFTAG_IMAGEWIDTH, page.width());
        TIFFSetField(tif, TIFFTAG_IMAGELENGTH, page.height());
        TIFFSetField(tif, TIFFTAG_SAMPLESPERPIXEL, color ? 3 : 1);
        TIFFSetField(tif, TIFFTAG_BITSPERSAMPLE, color ? 8 : page.depth());
        TIFFSetField(tif, TIFFTAG_PHOTOMETRIC, color ? 2 : page.depth() == 8 ? 1 : 0);
        TIFFSetField(tif, TIFFTAG_PLANARCONFIG, 1);
        TIFFSetField(tif, TIFFTAG_RESOLUTIONUNIT, 3);
        TIFFSetField(tif, TIFFTAG_XRESOLUTION, page.dotsPerMeterX() / 100.0);
        TIFFSetField(tif, TIFFTAG_YRESOLUTION, page.dotsPerMeterY() / 100.0);
        QByteArray rows = color ? rgb_rows(page) : plain_rows_of(page);
        const qsizetype rowBytes = rows.size() / page.height();
        for (int y = 0; y < page.height(); ++y)
            TIFFWriteScanline(tif, rows.data() + y * rowBytes, static_cast<quint32>(y), 0);
        if (&page != &pages.last())
            TIFFWriteDirectory(tif);
    }
    TIFFClose(tif);
}

} // namespace

class tst_tiff_writing : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void pageIsWrittenWithTenTags_data();
    void pageIsWrittenWithTenTags();
    void resolutionIsWrittenPerCentimetre();
    void rowsAreWrittenAsTheyStand_data();
    void rowsAreWrittenAsTheyStand();
    void alphaIsDropped();
    void fileEqualsThatOfThePlainWay_data();
    void fileEqualsThatOfThePlainWay();
    void pageOfAnotherDepthIsRefused_data();
    void pageOfAnotherDepthIsRefused();
    void foreignProgramReadsTheFile();

private:
    [[nodiscard]] QString path(const QString &name = u"a.tif"_s) const { return directory->filePath(name); }

    std::unique_ptr<QTemporaryDir> directory;
};

void tst_tiff_writing::init()
{
    directory = std::make_unique<QTemporaryDir>();
    QVERIFY(directory->isValid());
}

void tst_tiff_writing::cleanup()
{
    directory.reset();
}

void tst_tiff_writing::pageIsWrittenWithTenTags_data()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<quint32>("samples");
    QTest::addColumn<quint32>("bits");
    QTest::addColumn<quint32>("photometric");

    QTest::newRow("depth 32") << 32 << 3U << 8U << 2U;
    QTest::newRow("depth 8") << 8 << 1U << 8U << 1U;
    QTest::newRow("depth 1") << 1 << 1U << 1U << 0U;
}

void tst_tiff_writing::pageIsWrittenWithTenTags()
{
    QFETCH(const int, depth);

    QVERIFY(save_as_tiff(path(), {patterned_page({33, 9}, depth)}));

    const TiffHandle tif = open_tiff(path(), "r");
    QVERIFY(tif);
    QCOMPARE(short_tag(tif.get(), TIFFTAG_COMPRESSION), 1U);
    QCOMPARE(long_tag(tif.get(), TIFFTAG_IMAGEWIDTH), 33U);
    QCOMPARE(long_tag(tif.get(), TIFFTAG_IMAGELENGTH), 9U);
    QTEST(short_tag(tif.get(), TIFFTAG_SAMPLESPERPIXEL), "samples");
    QTEST(short_tag(tif.get(), TIFFTAG_BITSPERSAMPLE), "bits");
    QTEST(short_tag(tif.get(), TIFFTAG_PHOTOMETRIC), "photometric");
    QCOMPARE(short_tag(tif.get(), TIFFTAG_PLANARCONFIG), 1U);
    QCOMPARE(short_tag(tif.get(), TIFFTAG_RESOLUTIONUNIT), 3U);
    // Neither a colour map nor a bit order is ever written.
    quint16 *map = nullptr;
    QCOMPARE(TIFFGetField(tif.get(), TIFFTAG_COLORMAP, &map, &map, &map), 0);
    QCOMPARE(short_tag(tif.get(), TIFFTAG_FILLORDER), 0xdeadbeef);
    QCOMPARE(TIFFLastDirectory(tif.get()), 1);
}

void tst_tiff_writing::resolutionIsWrittenPerCentimetre()
{
    QImage page = patterned_page({5, 5});
    page.setDotsPerMeterX(11811);
    page.setDotsPerMeterY(5906);

    QVERIFY(save_as_tiff(path(), {page}));

    const TiffHandle tif = open_tiff(path(), "r");
    QCOMPARE(real_tag(tif.get(), TIFFTAG_XRESOLUTION), 118.11F);
    QCOMPARE(real_tag(tif.get(), TIFFTAG_YRESOLUTION), 59.06F);
}

void tst_tiff_writing::rowsAreWrittenAsTheyStand_data()
{
    QTest::addColumn<QImage>("page");

    QTest::newRow("depth 8") << patterned_page({33, 9}, 8);
    QTest::newRow("high bit first") << patterned_page({33, 9}, 1);
    QTest::newRow("low bit first") << patterned_page({33, 9}, 1).convertToFormat(QImage::Format_MonoLSB);
}

void tst_tiff_writing::rowsAreWrittenAsTheyStand()
{
    QFETCH(const QImage, page);

    QVERIFY(save_as_tiff(path(), {page}));

    const TiffHandle tif = open_tiff(path(), "r");
    QByteArray rows(plain_rows_of(page).size(), '\0');
    QCOMPARE(TIFFReadEncodedStrip(tif.get(), 0, rows.data(), rows.size()) > 0, true);
    QVERIFY(file_bytes(path()).contains(plain_rows_of(page)));
}

void tst_tiff_writing::alphaIsDropped()
{
    QImage page(2, 1, QImage::Format_ARGB32);
    page.setPixel(0, 0, qRgba(1, 2, 3, 4));
    page.setPixel(1, 0, qRgba(250, 251, 252, 0));

    QVERIFY(save_as_tiff(path(), {page}));

    QVERIFY(file_bytes(path()).contains(QByteArray("\x01\x02\x03\xfa\xfb\xfc")));
    const ImageDocument document(path(), u"TIFF"_s);
    QCOMPARE(document.page(1).format(), QImage::Format_RGB32);
    QCOMPARE(document.page(1).pixel(0, 0), qRgb(1, 2, 3));
    QCOMPARE(document.page(1).pixel(1, 0), qRgb(250, 251, 252));
}

void tst_tiff_writing::fileEqualsThatOfThePlainWay_data()
{
    QTest::addColumn<QList<QImage>>("pages");

    // The larger ones take several fillings of the write buffer.
    for (const int depth : {32, 8, 1}) {
        QTest::addRow("one pixel of depth %d", depth) << QList<QImage>{patterned_page({1, 1}, depth)};
        QTest::addRow("depth %d", depth) << QList<QImage>{patterned_page({1001, 777}, depth)};
    }
    QTest::newRow("three pages") << QList<QImage>{patterned_page({701, 555}, 1), patterned_page({600, 801}, 8),
                                                  patterned_page({499, 333}, 32)};
    QTest::newRow("a row longer than the buffer") << QList<QImage>{patterned_page({100001, 3}, 32)};
}

void tst_tiff_writing::fileEqualsThatOfThePlainWay()
{
    QFETCH(const QList<QImage>, pages);
    write_plainly(path(u"plain.tif"_s), pages);

    QVERIFY(save_as_tiff(path(), pages));

    QVERIFY(file_bytes(path()) == file_bytes(path(u"plain.tif"_s)));
}

void tst_tiff_writing::pageOfAnotherDepthIsRefused_data()
{
    QTest::addColumn<QImage>("page");

    QTest::newRow("16 bits") << QImage(4, 4, QImage::Format_RGB16);
    QTest::newRow("24 bits") << QImage(4, 4, QImage::Format_RGB888);
    QTest::newRow("64 bits") << QImage(4, 4, QImage::Format_RGBA64);
    QTest::newRow("none") << QImage();
}

void tst_tiff_writing::pageOfAnotherDepthIsRefused()
{
    QFETCH(const QImage, page);
    const TiffHandle tif = open_tiff(path(), "w");
    QVERIFY(tif);

    QVERIFY(!writeTiffPage(tif.get(), page));
}

void tst_tiff_writing::foreignProgramReadsTheFile()
{
    const QImage page = patterned_page({60, 40});
    QVERIFY(save_as_tiff(path(), {page, page}));

    QCOMPARE(QProcess::execute(u"tiffcp"_s, {u"-c"_s, u"lzw"_s, path(), path(u"copy.tif"_s)}), 0);
    QCOMPARE(QProcess::execute(u"tiffcmp"_s, {path(), path(u"copy.tif"_s)}), 0);

    QVERIFY(compare_pictures(QImage(path()), page)); // the plug-in, which is not ours either
}

QTEST_GUILESS_MAIN(tst_tiff_writing)
#include "tst_tiff_writing.moc"
