#include "first_picture.h"
#include "image_files.h"
#include "jpeg_file.h"
#include "jpeg_page.h"
#include "page_buffers.h"
#include "picture_readings.h"
#include "plain_jpegs.h"

#include <QColorSpace>
#include <QFile>
#include <QImageReader>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using Colors = PlainJpeg::Colors;

Q_DECLARE_METATYPE(PlainJpeg)

namespace {

constexpr QSize twoThreads(1030, 1021); // as a page more than 4 MiB

} // namespace

/// Plain JPEG files are read by a reader of our own; nobody may see a difference.
class tst_jpeg_files : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(directory.isValid()); }
    void plainPicturesOfAllSizesAreEqualToTheToolkits_data();
    void plainPicturesOfAllSizesAreEqualToTheToolkits();
    void largePicturesAreReadByTwoThreads_data();
    void largePicturesAreReadByTwoThreads();
    void resolutionIsThatOfTheToolkit_data();
    void resolutionIsThatOfTheToolkit();
    void whatIsUnusualIsLeftToTheToolkit_data();
    void whatIsUnusualIsLeftToTheToolkit();
    void aScaleInTheNameIsLeftToTheToolkit();
    void aCutAnywhereIsLeftToOthers();
    void aFlippedBitGivesWhatTheToolkitGives();
    void damageOfALargePictureGivesWhatTheToolkitGives();
    void aCutLargePictureKeepsNoMemory();
    void bytesBehindTheEndMeanNothing();
    void aPictureAboveTheLimitIsRefused();
    void aLargePictureTakesItsPageAndItsFile();

private:
    [[nodiscard]] QString written(const QByteArray &bytes, const QString &name = u"page.jpg"_s) const
    {
        write_file(directory.filePath(name), bytes);
        return directory.filePath(name);
    }
    [[nodiscard]] bool isTakenRightly(const QByteArray &bytes, bool *isTaken) const;

    const QTemporaryDir directory;
};

void tst_jpeg_files::plainPicturesOfAllSizesAreEqualToTheToolkits_data()
{
    QTest::addColumn<PlainJpeg>("jpeg");
    QTest::newRow("chroma of half the width and height") << PlainJpeg{};
    QTest::newRow("chroma of half the width") << PlainJpeg{.luma = {2, 1}};
    QTest::newRow("chroma of half the height") << PlainJpeg{.luma = {1, 2}};
    QTest::newRow("chroma of each pixel") << PlainJpeg{.luma = {1, 1}};
    QTest::newRow("restarts") << PlainJpeg{.restartRows = 1};
    QTest::newRow("arithmetic codes") << PlainJpeg{.isArithmetic = true};
    QTest::newRow("best quality") << PlainJpeg{.luma = {1, 1}, .quality = 100};
    QTest::newRow("worst quality") << PlainJpeg{.quality = 1};
}

void tst_jpeg_files::plainPicturesOfAllSizesAreEqualToTheToolkits()
{
    QFETCH(PlainJpeg, jpeg);
    for (int side = 1; side <= 50; ++side) {
        jpeg.size = QSize(side, 1 + side * 29 % 50);
        jpeg.seed = static_cast<quint32>(side);
        const QString path = written(jpeg.file());

        QVERIFY(is_read_here(path, "jpeg"));
        QCOMPARE(differences_to_the_toolkit(path, "jpeg"), QString());
        QCOMPARE(differences_to_the_toolkit(path, "JPG"), QString());
    }
}

void tst_jpeg_files::largePicturesAreReadByTwoThreads_data()
{
    QTest::addColumn<PlainJpeg>("jpeg");
    int kinds = 0;
    for (const QSize luma : {QSize(2, 2), QSize(2, 1), QSize(1, 2), QSize(1, 1)}) {
        for (const QSize size :
             {twoThreads, QSize(1031, 1024), QSize(1024, 1039), QSize(65500, 17), QSize(17, 65500), QSize(65500, 31)}) {
            QTest::addRow("luma of %d by %d, %d by %d pixels", luma.width(), luma.height(), size.width(), size.height())
                << PlainJpeg{.size = size, .luma = luma, .restartRows = ++kinds % 2};
        }
    }
}

void tst_jpeg_files::largePicturesAreReadByTwoThreads()
{
    QFETCH(const PlainJpeg, jpeg);
    const QString path = written(jpeg.file());

    QVERIFY(is_read_here(path, "jpeg"));
    QCOMPARE(differences_to_the_toolkit(path, "jpeg"), QString());
}

void tst_jpeg_files::resolutionIsThatOfTheToolkit_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("y");
    for (const int unit : {0, 1, 2, 3}) {
        for (const QSize density : {QSize(300, 600), QSize(0, 0), QSize(1, 1), QSize(65535, 72), QSize(0, 200)})
            QTest::addRow("unit %d, %d by %d", unit, density.width(), density.height())
                << unit << density.width() << density.height();
    }
}

void tst_jpeg_files::resolutionIsThatOfTheToolkit()
{
    QFETCH(const int, unit);
    QFETCH(const int, x);
    QFETCH(const int, y);
    const QString path = written(PlainJpeg{.densityUnit = unit, .densityX = x, .densityY = y}.file());

    QVERIFY(is_read_here(path, "jpeg"));
    QCOMPARE(differences_to_the_toolkit(path, "jpeg"), QString());
}

void tst_jpeg_files::whatIsUnusualIsLeftToTheToolkit_data()
{
    constexpr int comment = 0xfe;
    constexpr int application = 0xe0;
    QTest::addColumn<PlainJpeg>("jpeg");
    QTest::newRow("grey") << PlainJpeg{.colors = Colors::Grey};
    QTest::newRow("RGB") << PlainJpeg{.colors = Colors::Rgb};
    QTest::newRow("CMYK") << PlainJpeg{.colors = Colors::Cmyk};
    QTest::newRow("progressive") << PlainJpeg{.isProgressive = true};
    QTest::newRow("a scan for each component") << PlainJpeg{.isInScans = true};
    QTest::newRow("chroma of a quarter of the width") << PlainJpeg{.luma = {4, 1}};
    QTest::newRow("chroma finer than luma") << PlainJpeg{.luma = {1, 1}, .chroma = {2, 2}};
    QTest::newRow("comment") << PlainJpeg{.marker = comment, .content = "Title: a scan"};
    QTest::newRow("empty comment") << PlainJpeg{.marker = comment};
    QTest::newRow("data of a camera") << PlainJpeg{.marker = application + 1,
                                                   .content = QByteArray("Exif\0\0II*\0\x08\0\0\0\0\0", 16)};
    QTest::newRow("profile") << PlainJpeg{.marker = application + 2,
                                          .content = QByteArray("ICC_PROFILE\0\1\1", 14)
                                              + QColorSpace(QColorSpace::AdobeRgb).iccProfile()};
}

void tst_jpeg_files::whatIsUnusualIsLeftToTheToolkit()
{
    QFETCH(const PlainJpeg, jpeg);
    const QString path = written(jpeg.file());

    QVERIFY(!is_read_here(path, "jpeg"));
    QVERIFY(!read_first_picture(path, u"jpeg"_s).isNull());
    QCOMPARE(differences_to_the_toolkit(path, "jpeg"), QString());
}

void tst_jpeg_files::aScaleInTheNameIsLeftToTheToolkit()
{
    const QString path = written(PlainJpeg{}.file(), u"page@2x.jpg"_s);

    QVERIFY(!is_read_here(path, "jpeg"));
    QCOMPARE(differences_to_the_toolkit(path, "jpeg"), QString());
}

void tst_jpeg_files::aCutAnywhereIsLeftToOthers()
{
    const QByteArray bytes = PlainJpeg{.restartRows = 1}.file();
    for (qsizetype length = 0; length < bytes.size(); ++length)
        QVERIFY(!is_read_here(written(bytes.first(length)), "jpeg"));
}

/// Whether the reader leaves a file to others, or gives what they would give: the picture of a whole file, of which the
/// toolkit has nothing to say.
bool tst_jpeg_files::isTakenRightly(const QByteArray &bytes, bool *isTaken) const
{
    const QString path = written(bytes);
    *isTaken = is_read_here(path, "jpeg");
    QFile file(path);
    return !*isTaken
        || (file.open(QIODevice::ReadOnly) && is_complete_jpeg(file)
            && differences_to_the_toolkit(path, "jpeg").isEmpty());
}

void tst_jpeg_files::aFlippedBitGivesWhatTheToolkitGives()
{
    const QByteArray bytes = PlainJpeg{.size = {35, 33}, .restartRows = 1}.file();
    QRandomGenerator random(7);
    int taken = 0;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        QByteArray damaged = bytes;
        const uint bit = 1U << random.bounded(8);
        damaged[i] = static_cast<char>(static_cast<uchar>(damaged.at(i)) ^ bit);
        bool isTaken = false;
        QVERIFY2(isTakenRightly(damaged, &isTaken), qPrintable(u"%1 in byte %2"_s.arg(bit).arg(i)));
        taken += static_cast<int>(isTaken);
    }
    QVERIFY(taken > 0); // other pixels, another resolution
}

void tst_jpeg_files::damageOfALargePictureGivesWhatTheToolkitGives()
{
    constexpr int damages = 60;
    const QByteArray bytes = PlainJpeg{.size = twoThreads, .quality = 20, .restartRows = 9}.file();
    QRandomGenerator random(4);
    int taken = 0;
    for (int i = 0; i < damages; ++i) {
        QByteArray damaged = bytes;
        damaged[random.bounded(damaged.size())] = static_cast<char>(random.bounded(256));
        bool isTaken = false;
        QVERIFY2(isTakenRightly(damaged, &isTaken), qPrintable(QString::number(i)));
        taken += static_cast<int>(isTaken);
    }
    QVERIFY(taken > 0);
}

void tst_jpeg_files::aCutLargePictureKeepsNoMemory()
{
    const QByteArray bytes = PlainJpeg{.size = twoThreads}.file();
    drop_spare_page();

    QVERIFY(read_first_picture(written(bytes.first(bytes.size() / 2)), u"jpeg"_s).isNull());

    QCOMPARE(spare_page_bytes(), 0);
}

void tst_jpeg_files::bytesBehindTheEndMeanNothing()
{
    const QString path = written(PlainJpeg{}.file() + "surplus\xff\xd8");

    QVERIFY(is_read_here(path, "jpeg"));
    QCOMPARE(differences_to_the_toolkit(path, "jpeg"), QString());
}

void tst_jpeg_files::aPictureAboveTheLimitIsRefused()
{
    const PlainJpeg jpeg{.size = QSize(513, 512)};
    QFile file(written(jpeg.file()));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const int limit = QImageReader::allocationLimit();

    QImageReader::setAllocationLimit(1); // 1048576 bytes
    const QImage refused = read_plain_jpeg(file);
    QImageReader::setAllocationLimit(0); // none
    QVERIFY(file.seek(0));
    const QImage taken = read_plain_jpeg(file);
    QImageReader::setAllocationLimit(limit);

    QVERIFY(refused.isNull());
    QCOMPARE(taken.size(), jpeg.size);
}

void tst_jpeg_files::aLargePictureTakesItsPageAndItsFile()
{
    constexpr qint64 mostBesides = qint64{10} << 20;
    const PlainJpeg jpeg{.size = QSize(2600, 2400)};
    const QString path = written(jpeg.file());
    drop_spare_page();
    restart_peak_memory();
    const qint64 before = peak_memory_bytes();

    const QImage page = read_first_picture(path, u"jpeg"_s);

    QCOMPARE(page.size(), jpeg.size);
    const qint64 most = page.sizeInBytes() + QFile(path).size() + mostBesides;
    QVERIFY(peak_memory_bytes() - before <= most * MeasureAllowance);
}

QTEST_GUILESS_MAIN(tst_jpeg_files)
#include "tst_jpeg_files.moc"
