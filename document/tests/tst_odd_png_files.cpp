#include "first_picture.h"
#include "image_files.h"
#include "picture_readings.h"
#include "plain_pngs.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

/// PNG files that are unusual or damaged are judged by the toolkit, as if there were no reader of our own.
class tst_odd_png_files : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(directory.isValid()); }
    void whatIsUnusualIsLeftToTheToolkit_data();
    void whatIsUnusualIsLeftToTheToolkit();
    void aCutAnywhereGivesWhatTheToolkitGives();
    void aFlippedBitGivesWhatTheToolkitGives_data();
    void aFlippedBitGivesWhatTheToolkitGives();
    void bytesBehindTheEndMeanNothing();
    void aScaleInTheNameIsLeftToTheToolkit();
    void anotherWordIsLeftToTheToolkit();

private:
    [[nodiscard]] QString written(const QByteArray &bytes) const
    {
        write_file(directory.filePath(u"page.png"_s), bytes);
        return directory.filePath(u"page.png"_s);
    }

    const QTemporaryDir directory;
};

void tst_odd_png_files::whatIsUnusualIsLeftToTheToolkit_data()
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

void tst_odd_png_files::whatIsUnusualIsLeftToTheToolkit()
{
    QFETCH(const QByteArray, bytes);
    const QString path = written(bytes);

    QVERIFY(!is_read_here(path));
    QCOMPARE(differences_to_the_toolkit(path), QString());
}

void tst_odd_png_files::aCutAnywhereGivesWhatTheToolkitGives()
{
    const QByteArray bytes = with_chunks({.kind = 3}, phys(3, 4, 1), png_chunk("tEXt", QByteArray("a\0b", 3))).file();
    for (qsizetype count = 0; count < bytes.size(); ++count) {
        const QString different = differences_to_the_toolkit(written(bytes.first(count)));
        QVERIFY2(different.isEmpty(), qPrintable(QString::number(count) + u' ' + different));
    }
}

void tst_odd_png_files::aFlippedBitGivesWhatTheToolkitGives_data()
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

void tst_odd_png_files::aFlippedBitGivesWhatTheToolkitGives()
{
    QFETCH(const PlainPng, png);
    const QByteArray bytes = png.file();
    QVERIFY(is_read_here(written(bytes)));
    // A bit of each byte, another in the next; two of some.
    for (qsizetype bit = 0; bit < bytes.size() * 8; bit += 7) {
        QByteArray flipped = bytes;
        flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ 1 << bit % 8);
        const QString different = differences_to_the_toolkit(written(flipped));
        QVERIFY2(different.isEmpty(), qPrintable(QString::number(bit) + u' ' + different));
    }
}

void tst_odd_png_files::bytesBehindTheEndMeanNothing()
{
    const QString path = written(PlainPng().file() + "more");

    QVERIFY(is_read_here(path));
    QCOMPARE(differences_to_the_toolkit(path), QString());
}

void tst_odd_png_files::aScaleInTheNameIsLeftToTheToolkit()
{
    const QString path = directory.filePath(u"page@2x.png"_s);
    write_file(path, PlainPng().file());

    QVERIFY(!is_read_here(path));
    QCOMPARE(differences_to_the_toolkit(path), QString());
    QCOMPARE(read_first_picture(path, u"png"_s).devicePixelRatio(), 2.0);
}

void tst_odd_png_files::anotherWordIsLeftToTheToolkit()
{
    const QString path = written(with_chunks({}, png_chunk("tEXt", QByteArray("Title\0A scan", 12))).file());
    const QImage page = read_by_the_toolkit(path);

    for (const QString &word : {QString(), u"PNG"_s, u"none"_s})
        QCOMPARE(read_first_picture(path, word), page);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"Not a JPEG file"_s));
    QVERIFY(read_first_picture(path, u"jpg"_s).isNull());
}

QTEST_GUILESS_MAIN(tst_odd_png_files)
#include "tst_odd_png_files.moc"
