#include "first_picture.h"
#include "image_files.h"
#include "page_buffers.h"
#include "picture_readings.h"
#include "plain_pngs.h"
#include "png_file.h"

#include <QColorSpace>
#include <QFile>
#include <QImageReader>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

/// Plain PNG files are read by a reader of our own; nobody may see a difference.
class tst_png_files : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(directory.isValid()); }
    void plainPicturesOfAllSizesAreEqualToTheToolkits();
    void largePicturesAreDecodedWithinTheirPages_data();
    void largePicturesAreDecodedWithinTheirPages();
    void whatAFileTellsBesideItsPixelsIsKept_data();
    void whatAFileTellsBesideItsPixelsIsKept();
    void aPictureAboveTheLimitIsRefused();
    void aLargePictureTakesItsPageAndItsFile();

private:
    [[nodiscard]] QString written(const QByteArray &bytes) const
    {
        write_file(directory.filePath(u"page.png"_s), bytes);
        return directory.filePath(u"page.png"_s);
    }

    const QTemporaryDir directory;
};

void tst_png_files::plainPicturesOfAllSizesAreEqualToTheToolkits()
{
    quint32 seed = 0;
    for (PlainPng png : plain_kinds()) {
        for (int side = 1; side <= 70; ++side) {
            png.size = QSize(side, 1 + side * 29 % 70);
            png.filter = side % 6 - 1;
            png.seed = ++seed;
            png.pieceBytes = side % 4 == 0 ? 1 + side : 1 << 20;
            const QString path = written(png.file());

            QVERIFY(is_read_here(path));
            QCOMPARE(differences_to_the_toolkit(path), QString());
        }
    }
}

void tst_png_files::largePicturesAreDecodedWithinTheirPages_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QSize>("size");
    const auto row = [](const char *name, int kind, QSize size) { QTest::newRow(name) << kind << size; };
    row("grey, lines without a rest", 0, {512, 520});
    row("grey, lines with a rest", 0, {513, 520});
    row("colours", 1, {300, 301});
    row("colours, narrow", 1, {1, 70000});
    row("colours, low", 1, {70001, 1});
    row("indices", 2, {700, 400});
    row("colours with alpha", 3, {301, 300});
    row("colours with alpha, narrow", 3, {1, 70000});
    row("bits of grey", 4, {1600, 1400});
    row("bits of grey, narrow", 4, {1, 70000});
    row("bits of two colours", 5, {1603, 1400});
}

void tst_png_files::largePicturesAreDecodedWithinTheirPages()
{
    QFETCH(const int, kind);
    QFETCH(const QSize, size);
    PlainPng png = plain_kinds().at(kind);
    png.size = size;
    png.pieceBytes = 8192;
    const QString path = written(png.file());
    QVERIFY(read_first_picture(path, u"png"_s).sizeInBytes() >= SmallestPooledBytes);

    QVERIFY(is_read_here(path));
    QCOMPARE(differences_to_the_toolkit(path), QString());
}

void tst_png_files::whatAFileTellsBesideItsPixelsIsKept_data()
{
    QTest::addColumn<PlainPng>("png");
    const auto row = [](const char *name, const QByteArray &before, const QByteArray &after = {}) {
        for (const PlainPng &png : plain_kinds())
            QTest::addRow("%s, kind %d of %d bits", name, png.kind, png.bits) << with_chunks(png, before, after);
    };
    const QByteArray text = png_chunk("tEXt", QByteArray("Title\0A scan", 12));
    const QByteArray packed = png_chunk("zTXt", QByteArray("Author\0\0", 8) + PlainPng::deflated("somebody"));
    const QByteArray wide = png_chunk("iTXt", QByteArray("Comment\0\0\0de\0\0gr\xc3\xbcn", 18));
    row("resolution", phys(11811, 11811, 1));
    row("resolution of two numbers", phys(3937, 7874, 1));
    row("resolution without a unit", phys(3, 4, 0));
    row("resolution of nothing", phys(0, 0, 1));
    row("resolution beyond all numbers", phys(0xffffffff, 0x80000000, 1));
    row("text", text);
    row("packed text", packed);
    row("text of another language", wide);
    row("texts, some behind the pixels, one of them again", text + wide + packed, packed + text);
    row("text that is not what it says", png_chunk("zTXt", QByteArray("Author\0\0nothing", 15)));
    row("gamma", png_chunk("gAMA", big32(45455)));
    row("gamma of another screen", png_chunk("gAMA", big32(100000)));
    row("gamma of nothing", png_chunk("gAMA", big32(0)));
    row("gamma and colours",
        png_chunk("gAMA", big32(45455))
            + png_chunk("cHRM",
                        big32(31270) + big32(32900) + big32(64000) + big32(33000) + big32(30000) + big32(60000)
                            + big32(15000) + big32(6000)));
    row("sRGB", png_chunk("sRGB", QByteArray(1, '\0')));
    row("sRGB of no known kind", png_chunk("sRGB", QByteArray(1, '\7')));
    row("profile",
        png_chunk("iCCP",
                  QByteArray("one\0\0", 5) + PlainPng::deflated(QColorSpace(QColorSpace::AdobeRgb).iccProfile())));
    row("broken profile", png_chunk("iCCP", QByteArray("one\0\0", 5) + PlainPng::deflated("nothing")));
    row("offset", png_chunk("oFFs", big32(5) + big32(7) + QByteArray(1, '\0')));
    row("time and data of a camera", png_chunk("tIME", QByteArray("\x07\xea\x0b\x16\4\5\6", 7)),
        png_chunk("eXIf", QByteArray("II*\0\x08\0\0\0\0\0\0\0\0\0", 14)));
    row("background of no size", png_chunk("bKGD", QByteArray(2, '\0')));
    row("gamma behind the pixels", {}, png_chunk("gAMA", big32(45455)) + phys(1000, 1000, 1));

    const auto clear = [](const char *name, int kind, const QByteArray &content) {
        QTest::newRow(name) << with_chunks(plain_kinds().at(kind), png_chunk("tRNS", content));
    };
    clear("clear grey", 0, QByteArray("\0\x05", 2));
    clear("clear grey of too many bits", 0, QByteArray("\1\x05", 2));
    clear("clear colours", 2, QByteArray("\0\x80\xff\x11", 4));
    clear("clear colours, more than there are", 2, QByteArray(257, '\x10'));
    clear("clear black", 4, QByteArray("\0\0", 2));
    clear("clear white", 4, QByteArray("\0\1", 2));
    clear("clear first colour", 5, QByteArray(1, '\x40'));
    QTest::newRow("short table") << PlainPng{.kind = 3, .colors = 5, .largestIndex = 4};
    QTest::newRow("one colour") << PlainPng{.kind = 3, .colors = 1, .largestIndex = 0};
    QTest::newRow("suggested table") << with_chunks({}, png_chunk("PLTE", QByteArray(30, '\x55')));
}

void tst_png_files::whatAFileTellsBesideItsPixelsIsKept()
{
    QFETCH(const PlainPng, png);
    const QString path = written(png.file());

    QVERIFY(is_read_here(path));
    QCOMPARE(differences_to_the_toolkit(path), QString());
}

void tst_png_files::aPictureAboveTheLimitIsRefused()
{
    PlainPng png{.size = QSize(1100, 1000), .kind = 0, .filter = 0};
    QFile file(written(png.file()));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const int limit = QImageReader::allocationLimit();

    QImageReader::setAllocationLimit(1); // 1048576 bytes
    const QImage refused = read_plain_png(file);
    QImageReader::setAllocationLimit(0); // none
    QVERIFY(file.seek(0));
    const QImage taken = read_plain_png(file);
    QImageReader::setAllocationLimit(limit);

    QVERIFY(refused.isNull());
    QCOMPARE(taken.size(), png.size);
}

void tst_png_files::aLargePictureTakesItsPageAndItsFile()
{
    constexpr QSize size(2600, 2400);
    constexpr qint64 mostBesides = qint64{10} << 20;
    QImage picture(size, QImage::Format_RGB32);
    QRandomGenerator random(3);
    for (int y = 0; y < size.height(); ++y) {
        auto *const line = reinterpret_cast<quint32 *>(picture.scanLine(y));
        random.fillRange(line, size.width());
    }
    const QString path = written(encoded(picture, "png", 100));
    const qint64 compressed = QFile(path).size();
    picture = {};
    drop_spare_page();
    restart_peak_memory();
    const qint64 before = peak_memory_bytes();

    const QImage page = read_first_picture(path, u"png"_s);

    QCOMPARE(page.size(), size);
    QVERIFY(peak_memory_bytes() - before <= (page.sizeInBytes() + compressed + mostBesides) * MeasureAllowance);
}

QTEST_GUILESS_MAIN(tst_png_files)
#include "tst_png_files.moc"
