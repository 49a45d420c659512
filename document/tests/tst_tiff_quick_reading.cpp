#include "image_files.h"
#include "ImageDocument.h"
#include "page_image.h"
#include "pictures.h"
#include "tiff_codec.h"
#include "tiff_files.h"

#include <QColorSpace>
#include <QImageReader>
#include <QTemporaryDir>
#include <QtEndian>
#include <QTest>

#include <functional>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize PageSize(301, 222);

/// Writes a page of colours by scan lines, after @p setTags has changed the tags of a plain file.
void write_rgb_file(const QString &path, const std::function<void(TIFF *)> &setTags)
{
    const TiffHandle tif = open_tiff(path, "w");
    const QImage page = patterned_page(PageSize).convertToFormat(QImage::Format_RGB888);
    TIFFSetField(tif.get(), TIFFTAG_IMAGEWIDTH, page.width());
    TIFFSetField(tif.get(), TIFFTAG_IMAGELENGTH, page.height());
    TIFFSetField(tif.get(), TIFFTAG_SAMPLESPERPIXEL, 3);
    TIFFSetField(tif.get(), TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(tif.get(), TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(tif.get(), TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    setTags(tif.get());
    for (int y = 0; y < page.height(); ++y) {
        QByteArray row(reinterpret_cast<const char *>(page.constScanLine(y)), qsizetype{3} * page.width());
        if (TIFFWriteScanline(tif.get(), row.data(), static_cast<quint32>(y), 0) != 1)
            qFatal("cannot write a row of %s", qPrintable(path));
    }
}

void set_resolution(TIFF *tif, float x, float y, int unit)
{
    TIFFSetField(tif, TIFFTAG_XRESOLUTION, double{x});
    TIFFSetField(tif, TIFFTAG_YRESOLUTION, double{y});
    if (unit != 0)
        TIFFSetField(tif, TIFFTAG_RESOLUTIONUNIT, unit);
}

} // namespace

using SetTags = std::function<void(TIFF *)>;
Q_DECLARE_METATYPE(SetTags)

/// Colour pages that are read by scan lines, beside what the toolkit's reader makes of the same file.
class tst_tiff_quick_reading : public QObject
{
    Q_OBJECT

private slots:
    void documentHasThePictureOfTheToolkit_data();
    void documentHasThePictureOfTheToolkit();
    void cutFileFailsAsInTheToolkit();
    void imageOfAnotherSizeIsLeftToTheToolkit();

private:
    [[nodiscard]] QString path() const { return directory.filePath(u"page.tif"_s); }

    QTemporaryDir directory;
};

void tst_tiff_quick_reading::documentHasThePictureOfTheToolkit_data()
{
    QTest::addColumn<SetTags>("setTags");
    QTest::addColumn<bool>("quick");

    const auto tag = [](const char *name, ttag_t number, int value, bool quick) {
        QTest::newRow(name) << SetTags([=](TIFF *tif) { TIFFSetField(tif, number, value); }) << quick;
    };
    const auto resolution = [](const char *name, float x, float y, int unit) {
        QTest::newRow(name) << SetTags([=](TIFF *tif) { set_resolution(tif, x, y, unit); }) << true;
    };
    QTest::newRow("plain") << SetTags([](TIFF *) {}) << true;
    tag("LZW", TIFFTAG_COMPRESSION, COMPRESSION_LZW, true);
    tag("PackBits", TIFFTAG_COMPRESSION, COMPRESSION_PACKBITS, true);
    tag("deflate", TIFFTAG_COMPRESSION, COMPRESSION_ADOBE_DEFLATE, true);
    tag("many strips", TIFFTAG_ROWSPERSTRIP, 7, true);
    tag("one strip", TIFFTAG_ROWSPERSTRIP, PageSize.height(), true);
    tag("bits the other way round", TIFFTAG_FILLORDER, FILLORDER_LSB2MSB, true);
    resolution("300 to the inch", 300, 300, RESUNIT_INCH);
    resolution("two resolutions to the inch", 203.2F, 97.79F, RESUNIT_INCH);
    resolution("to the centimetre", 118.11F, 236.22F, RESUNIT_CENTIMETER);
    resolution("of no unit", 2, 3, RESUNIT_NONE);
    resolution("without a unit", 150, 150, 0);
    tag("x resolution alone", TIFFTAG_XRESOLUTION, 150, true);
    tag("JPEG", TIFFTAG_COMPRESSION, COMPRESSION_JPEG, false);
    tag("upside down", TIFFTAG_ORIENTATION, ORIENTATION_BOTLEFT, false);
    tag("on its side", TIFFTAG_ORIENTATION, ORIENTATION_RIGHTTOP, false);
    QTest::newRow("colour profile") << SetTags([](TIFF *tif) {
        QByteArray profile = QColorSpace(QColorSpace::AdobeRgb).iccProfile();
        TIFFSetField(tif, TIFFTAG_ICCPROFILE, static_cast<quint32>(profile.size()), profile.data());
    }) << false;
    QTest::newRow("predictor") << SetTags([](TIFF *tif) {
        TIFFSetField(tif, TIFFTAG_COMPRESSION, COMPRESSION_LZW);
        TIFFSetField(tif, TIFFTAG_PREDICTOR, PREDICTOR_HORIZONTAL);
    }) << true;
}

void tst_tiff_quick_reading::documentHasThePictureOfTheToolkit()
{
    QFETCH(const SetTags, setTags);
    QFETCH(const bool, quick);
    write_rgb_file(path(), setTags);
    const QImage expected = to_page_image(QImageReader(path()).read());
    QCOMPARE(expected.format(), QImage::Format_RGB32);

    QImage alone(PageSize, QImage::Format_RGB32);
    QCOMPARE(read_plain_rgb_page(open_tiff(path(), "rm").get(), alone), quick);

    ImageDocument document(path(), {});
    const QImage page = document.page(1);
    QCOMPARE(page, expected);
    QCOMPARE(page.dotsPerMeterX(), expected.dotsPerMeterX());
    QCOMPARE(page.dotsPerMeterY(), expected.dotsPerMeterY());
    QCOMPARE(page.colorSpace(), expected.colorSpace());
    QCOMPARE(page.textKeys(), expected.textKeys());
}

void tst_tiff_quick_reading::cutFileFailsAsInTheToolkit()
{
    write_rgb_file(path(), [](TIFF *tif) { TIFFSetField(tif, TIFFTAG_ROWSPERSTRIP, 7); });
    QByteArray bytes = file_bytes(path());
    // Offsets of the strips past the end of the file: the directory stays whole.
    const qsizetype stripOffset = bytes.indexOf(little16(TIFFTAG_STRIPOFFSETS) + little16(TIFF_LONG));
    QVERIFY(stripOffset > 0);
    const qsizetype table = qFromLittleEndian<quint32>(bytes.constData() + stripOffset + 8);
    bytes.replace(table + qsizetype{4} * 9, 4, little32(std::numeric_limits<int>::max()));
    write_file(path(), bytes);
    QVERIFY(QImageReader(path()).read().isNull());

    ImageDocument document(path(), {});

    QCOMPARE(document.pageCount(), 0);
}

void tst_tiff_quick_reading::imageOfAnotherSizeIsLeftToTheToolkit()
{
    write_rgb_file(path(), [](TIFF *) {});
    QImage larger(PageSize + QSize(0, 1), QImage::Format_RGB32);

    QVERIFY(!read_plain_rgb_page(open_tiff(path(), "rm").get(), larger));
}

QTEST_GUILESS_MAIN(tst_tiff_quick_reading)
#include "tst_tiff_quick_reading.moc"
