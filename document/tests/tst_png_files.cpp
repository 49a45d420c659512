#include "descriptor.h"
#include "first_picture.h"
#include "image_files.h"
#include "image_memory.h"
#include "page_buffers.h"
#include "page_image.h"
#include "pictures.h"
#include "plain_pngs.h"
#include "png_file.h"

#include <QColorSpace>
#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <sys/mman.h>
#include <unistd.h>

Q_DECLARE_METATYPE(PlainPng)

using namespace Qt::StringLiterals;

namespace {

/// A page, and the lines that came while it was made.
struct Reading
{
    QImage page;
    QStringList lines;
};

QStringList *heardLines = nullptr;

void hear(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString &line)
{
    heardLines->append(line);
}

/// The PNG library writes its errors to standard error by itself.
template <typename Read> Reading heard(const Read &read)
{
    Reading reading;
    const Descriptor file(memfd_create("lines", MFD_CLOEXEC));
    const Descriptor former(dup(STDERR_FILENO));
    dup2(file.get(), STDERR_FILENO);
    heardLines = &reading.lines;
    const QtMessageHandler formerHandler = qInstallMessageHandler(hear);
    reading.page = read();
    qInstallMessageHandler(formerHandler);
    dup2(former.get(), STDERR_FILENO);
    QFile lines;
    lseek(file.get(), 0, SEEK_SET);
    if (lines.open(file.get(), QIODevice::ReadOnly))
        reading.lines += QString::fromLocal8Bit(lines.readAll()).split(u'\n', Qt::SkipEmptyParts);
    return reading;
}

QImage read_by_the_toolkit(const QString &path)
{
    limit_image_readers();
    QFile file(path);
    (void)file.open(QIODevice::ReadOnly);
    QImageReader reader(&file, "png");
    if (reader.size().isValid()) // asked as for every file, which has a broken one told of more than once
        (void)reader.imageFormat();
    return to_page_image(reader.read());
}

bool is_read_here(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && !heard([&file] { return read_plain_png(file); }).page.isNull();
}

/// What differs between what a file shows and what the toolkit makes of it.
QString differences(const QString &path)
{
    const Reading expected = heard([&path] { return read_by_the_toolkit(path); });
    const Reading actual = heard([&path] { return read_first_picture(path, u"png"_s); });
    const QImage &page = actual.page;
    const QImage &other = expected.page;
    if (actual.lines != expected.lines)
        return "lines: "_L1 + actual.lines.join(u'|') + " for "_L1 + expected.lines.join(u'|');
    if (page.format() != other.format() || page != other || page.colorTable() != other.colorTable())
        return "pixels: "_L1 + picture_differences(page, other);
    if (page.dotsPerMeterX() != other.dotsPerMeterX() || page.dotsPerMeterY() != other.dotsPerMeterY())
        return u"resolution"_s;
    if (page.textKeys() != other.textKeys() || page.text() != other.text())
        return "texts: "_L1 + page.text() + " for "_L1 + other.text();
    if (page.colorSpace() != other.colorSpace() || page.offset() != other.offset()
        || !qFuzzyCompare(page.devicePixelRatio(), other.devicePixelRatio()))
        return u"colour space, offset or scale"_s;
    return {};
}

/// Kinds of pixels that are read here.
const QList<PlainPng> &plain_kinds()
{
    static const QList<PlainPng> kinds{{.kind = 0},
                                       {.kind = 2},
                                       {.kind = 3},
                                       {.kind = 6},
                                       {.bits = 1, .kind = 0},
                                       {.bits = 1, .kind = 3, .colors = 2}};
    return kinds;
}

PlainPng with_chunks(PlainPng png, const QByteArray &before, const QByteArray &after = {})
{
    png.before = before;
    png.after = after;
    return png;
}

QByteArray phys(qint64 x, qint64 y, char unit)
{
    return png_chunk("pHYs", big32(x) + big32(y) + QByteArray(1, unit));
}

} // namespace

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
    void whatIsUnusualIsLeftToTheToolkit_data();
    void whatIsUnusualIsLeftToTheToolkit();
    void aCutAnywhereGivesWhatTheToolkitGives();
    void aFlippedBitGivesWhatTheToolkitGives_data();
    void aFlippedBitGivesWhatTheToolkitGives();
    void bytesBehindTheEndMeanNothing();
    void aScaleInTheNameIsLeftToTheToolkit();
    void anotherWordIsLeftToTheToolkit();
    void aPictureAboveTheLimitIsRefused();
    void aLargePictureTakesItsPageAndItsFile();

private:
    QString written(const QByteArray &bytes)
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
            QCOMPARE(differences(path), QString());
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
    QCOMPARE(differences(path), QString());
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
    QCOMPARE(differences(path), QString());
}

void tst_png_files::whatIsUnusualIsLeftToTheToolkit_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const auto row = [](const char *name, const PlainPng &png) { QTest::newRow(name) << png.file(); };
    row("16 bits", {.bits = 16});
    row("16 bits of grey", {.bits = 16, .kind = 0});
    row("4 bits of grey", {.bits = 4, .kind = 0});
    row("2 bits of an index", {.bits = 2, .kind = 3, .colors = 4});
    row("grey with alpha", {.kind = 4});
    row("no table", {.kind = 3, .colors = 0});
    row("indices beyond the table", {.kind = 3, .colors = 5, .largestIndex = 7});
    row("bits of one colour", {.bits = 1, .kind = 3, .colors = 1});
    row("bits of three colours", {.bits = 1, .kind = 3, .colors = 3});
    row("bits of colours", {.bits = 1, .kind = 2});
    row("a clear colour", with_chunks({}, png_chunk("tRNS", QByteArray("\0\1\0\2\0\3", 6))));
    row("a table of grey", with_chunks({.kind = 0}, png_chunk("PLTE", QByteArray(3, 'x'))));
    row("two tables", with_chunks({.kind = 3}, png_chunk("PLTE", QByteArray(3, 'x'))));
    row("part of a colour", with_chunks({}, png_chunk("PLTE", QByteArray(4, 'x'))));
    row("more colours than indices", {.kind = 3, .colors = 257});
    row("a table behind the pixels", with_chunks({}, {}, png_chunk("PLTE", QByteArray(3, 'x'))));
    row("an animation", with_chunks({}, png_chunk("acTL", big32(1) + big32(0))));
    row("an unknown chunk that must be known", with_chunks({}, png_chunk("ABCD", "x")));
    row("a second header", with_chunks({}, png_chunk("IHDR", QByteArray(13, '\1'))));
    row("an empty part of the pixels first", with_chunks({}, png_chunk("IDAT", {})));
    row("an end that holds something", with_chunks({}, {}, png_chunk("IEND", "x")));
    row("more told than a megabyte",
        with_chunks({}, png_chunk("tEXt", QByteArray("Title\0", 6) + QByteArray(1 << 20, 'x'))));
    row("a filter that there is not", {.filter = 5});
    row("a filter far off", {.filter = 200});

    const PlainPng png;
    const QByteArray rows = png.storedRows();
    const QByteArray stream = PlainPng::deflated(rows);
    const QByteArray wrongSum = stream.chopped(1) + static_cast<char>(stream.back() + 1);
    QTest::newRow("no pixels") << png.fileOf({});
    QTest::newRow("a row too much") << png.fileOf(PlainPng::deflated(rows + QByteArray(10, '\0')));
    QTest::newRow("a byte too little") << png.fileOf(PlainPng::deflated(rows.chopped(1)));
    QTest::newRow("a stream that goes on") << png.fileOf(stream + 'x');
    QTest::newRow("a stream without its sum") << png.fileOf(stream.chopped(4));
    QTest::newRow("a stream with a wrong sum") << png.fileOf(wrongSum);
    QTest::newRow("pixels in two places")
        << with_chunks(png, png_chunk("IDAT", stream.first(9)) + phys(1, 1, 1)).fileOf(stream.sliced(9));
    QTest::newRow("a header alone") << png.file().first(33);
    QByteArray interlaced = png.file();
    const QByteArray header = interlaced.sliced(16, 12) + '\1';
    QTest::newRow("interlaced") << interlaced.replace(8, 25, png_chunk("IHDR", header));
    QByteArray empty = png.file();
    QTest::newRow("no width") << empty.replace(8, 25, png_chunk("IHDR", big32(0) + empty.sliced(20, 9)));
    QTest::newRow("wider than the toolkit takes") << PlainPng{.size = QSize(1'000'001, 1), .bits = 1, .kind = 0}.file();
}

void tst_png_files::whatIsUnusualIsLeftToTheToolkit()
{
    QFETCH(const QByteArray, bytes);
    const QString path = written(bytes);

    QVERIFY(!is_read_here(path));
    QCOMPARE(differences(path), QString());
}

void tst_png_files::aCutAnywhereGivesWhatTheToolkitGives()
{
    const QByteArray bytes = with_chunks({.kind = 3}, phys(3, 4, 1), png_chunk("tEXt", QByteArray("a\0b", 3))).file();
    for (qsizetype count = 0; count < bytes.size(); ++count) {
        const QString different = differences(written(bytes.first(count)));
        QVERIFY2(different.isEmpty(), qPrintable(QString::number(count) + u' ' + different));
    }
}

void tst_png_files::aFlippedBitGivesWhatTheToolkitGives_data()
{
    QTest::addColumn<PlainPng>("png");
    for (const int kind : {1, 2, 4}) {
        PlainPng png = plain_kinds().at(kind);
        png.size = QSize(3, 2);
        png.colors = 4;
        png.largestIndex = 3;
        png = with_chunks(png, phys(3, 4, 1) + png_chunk("tEXt", QByteArray("a\0b", 3)));
        QTest::addRow("kind %d of %d bits", png.kind, png.bits) << png;
    }
}

void tst_png_files::aFlippedBitGivesWhatTheToolkitGives()
{
    QFETCH(const PlainPng, png);
    const QByteArray bytes = png.file();
    QVERIFY(is_read_here(written(bytes)));
    // Three bits of each byte, others in the next.
    for (qsizetype bit = 0; bit < bytes.size() * 8; bit += 3) {
        QByteArray flipped = bytes;
        flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ 1 << bit % 8);
        const QString different = differences(written(flipped));
        QVERIFY2(different.isEmpty(), qPrintable(QString::number(bit) + u' ' + different));
    }
}

void tst_png_files::bytesBehindTheEndMeanNothing()
{
    const QString path = written(PlainPng().file() + "more");

    QVERIFY(is_read_here(path));
    QCOMPARE(differences(path), QString());
}

void tst_png_files::aScaleInTheNameIsLeftToTheToolkit()
{
    const QString path = directory.filePath(u"page@2x.png"_s);
    write_file(path, PlainPng().file());

    QVERIFY(!is_read_here(path));
    QCOMPARE(differences(path), QString());
    QCOMPARE(read_first_picture(path, u"png"_s).devicePixelRatio(), 2.0);
}

void tst_png_files::anotherWordIsLeftToTheToolkit()
{
    const QString path = written(with_chunks({}, png_chunk("tEXt", QByteArray("Title\0A scan", 12))).file());
    const QImage page = read_by_the_toolkit(path);

    for (const QString &word : {QString(), u"PNG"_s, u"none"_s})
        QCOMPARE(read_first_picture(path, word), page);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"Not a JPEG file"_s));
    QVERIFY(read_first_picture(path, u"jpg"_s).isNull());
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
