#include "image_files.h"
#include "ImageDocument.h"
#include "odd_files.h"
#include "pictures.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb black = 0xff000000;
constexpr QRgb white = 0xffffffff;
constexpr QRgb red = 0xffff0000;
constexpr QRgb blue = 0xff0000ff;
const QList<QRgb> threeColors{red, blue, white};

constexpr qsizetype DataStartField = 10;
constexpr qsizetype HeaderBytesField = 14;
constexpr qsizetype CompressionField = 30;
constexpr qsizetype PixelBytesField = 34;
constexpr qsizetype ColorsField = 46;

QByteArray with(QByteArray file, qsizetype field, qint64 number)
{
    return file.replace(field, 4, little32(number));
}

QByteArray coded(int bits, const QByteArray &codes)
{
    return run_length_bmp(bits, threeColors, codes);
}

/// A page of two rows, the upper one first.
QImage two_rows(const QList<QList<uint>> &rows)
{
    return indexed(threeColors, rows.first() + rows.last(), QImage::Format_Indexed8, 2);
}

/// A file whose pixels tell their colours by these masks behind a header of so many bytes.
QByteArray masked(int bits, int headerBytes, const QList<quint32> &masks, const QByteArray &row)
{
    QByteArray file = bmp_file(2, 1, bits, {}, {});
    for (const quint32 mask : masks)
        file += little32(mask);
    file.append(14 + std::max<qsizetype>(headerBytes, 52) - file.size(), '\0');
    file = with(with(file, CompressionField, 3), HeaderBytesField, headerBytes);
    return with(file, DataStartField, file.size()) + row;
}

} // namespace

/// BMP files that break their format's rules, or that use them to the full.
class tst_bmp_files : public QObject
{
    Q_OBJECT

private slots:
    void fileIsShownAsItIsMeant_data();
    void fileIsShownAsItIsMeant();
    void fileWithoutAllItsPixelsIsRefused_data();
    void fileWithoutAllItsPixelsIsRefused();

private:
    static void addRunLengths();
    static void addTables();
    static void addPlacesAndHeaders();
};

void tst_bmp_files::addRunLengths()
{
    const auto row = [](const char *name, const QByteArray &bytes, const QList<QList<uint>> &rows) {
        QTest::newRow(name) << bytes << two_rows(rows);
    };
    // Rows from the bottom; "\0\0" ends a row and "\0\1" the picture.
    const QByteArray codes("\4\1\0\0\2\2\2\0\0\1", 10);
    const QList<QList<uint>> both{{2, 2, 0, 0}, {1, 1, 1, 1}};
    row("two rows", coded(8, codes), both);
    row("no size of the codes", with(coded(8, codes), PixelBytesField, 0), both);
    row("size of the codes beyond the file", with(coded(8, codes), PixelBytesField, 100'000), both);
    row("without the end of the picture", coded(8, codes.chopped(2)), both);
    row("bytes behind the end of the picture", coded(8, codes + "trailer"), both);
    row("pixels as they are", coded(8, QByteArray("\0\3\0\1\2\0\1\1\0\0\4\2\0\1", 14)), {{2, 2, 2, 2}, {0, 1, 2, 1}});
    row("a skipped end of a row", coded(8, QByteArray("\2\1\0\0\4\2\0\1", 8)), {{2, 2, 2, 2}, {1, 1, 0, 0}});
    row("skipped pixels", coded(8, QByteArray("\1\1\0\2\2\0\1\2\0\0\0\1", 12)), {{0, 0, 0, 0}, {1, 0, 0, 2}});
    row("a step to the next row", coded(8, QByteArray("\1\1\0\2\1\1\2\2\0\1", 10)), {{0, 0, 2, 2}, {1, 0, 0, 0}});
    row("a step beyond the picture", coded(8, QByteArray("\4\1\0\2\xff\xff\4\2\0\1", 10)),
        {{0, 0, 0, 0}, {1, 1, 1, 1}});
    row("nothing but its end", coded(8, QByteArray("\0\1", 2)), {{0, 0, 0, 0}, {0, 0, 0, 0}});
    row("a row that is too long", coded(8, QByteArray("\xc8\1\0\0\1\2\0\1", 8)), {{2, 0, 0, 0}, {1, 1, 1, 1}});
    row("pixels as they are beyond the row", coded(8, QByteArray("\4\1\0\0\2\2\0\4\1\1\1\1\0\1", 14)),
        {{2, 2, 1, 1}, {1, 1, 1, 1}});
    row("nibbles", coded(4, QByteArray("\4\x12\0\0\3\x20\0\1", 8)), {{2, 0, 2, 0}, {1, 2, 1, 2}});
    row("nibbles as they are", coded(4, QByteArray("\0\3\x12\x10\0\0\4\x11\0\1", 10)), {{1, 1, 1, 1}, {1, 2, 1, 0}});
    row("a row of nibbles that is too long", coded(4, QByteArray("\x0f\x12\0\0\1\x20\0\1", 8)),
        {{2, 0, 0, 0}, {1, 2, 1, 2}});
    QTest::newRow("run lengths with a short table")
        << with(with(coded(8, codes), ColorsField, 0), DataStartField, 54 + 12) << two_rows(both);
}

void tst_bmp_files::addTables()
{
    const QByteArray row("\2\1\0\0", 4);
    const QByteArray file = bmp_file(3, 1, 8, threeColors, row);
    const QImage page = indexed(threeColors, {2, 1, 0});
    QTest::newRow("fewer colours than bits tell apart") << with(file, ColorsField, 0) << page;
    QTest::newRow("fewer colours than the header says") << with(file, ColorsField, 200) << page;
    QTest::newRow("fewer colours, and the last padding is missing") << with(file, ColorsField, 0).chopped(1) << page;
    QTest::newRow("four bits and fewer colours")
        << with(bmp_file(3, 1, 4, threeColors, QByteArray("\x21\0\0\0", 4)), ColorsField, 0) << page;
    QTest::newRow("indices beyond the table")
        << bmp_file(3, 1, 8, {red}, QByteArray("\0\1\3\0", 4)) << indexed({red, black, black, black}, {0, 1, 3});
    QImage bit(2, 1, QImage::Format_Mono);
    bit.setColorTable({red, black});
    bit.fill(0U);
    bit.setPixel(1, 0, 1);
    QTest::newRow("one colour for one bit") << bmp_file(2, 1, 1, {red}, QByteArray("\x40\0\0\0", 4)) << bit;
    const QByteArray old = "BM" + little32(0) + little32(0) + little32(26 + 6) + little32(12) + little16(3)
        + little16(1) + little16(1) + little16(8) + QByteArray("\0\0\xff\xff\0\0", 6) + QByteArray("\1\0\0\0", 4);
    QTest::newRow("old header and fewer colours") << old << indexed({red, blue}, {1, 0, 0});
}

void tst_bmp_files::addPlacesAndHeaders()
{
    const QByteArray file = bmp_file(2, 1, 24, {}, QByteArray("\0\0\xff\xff\0\0\0\0", 8));
    const QImage page = colored({red, blue});
    for (const int start : {0, 13, 14, 53})
        QTest::addRow("pixels said to begin at %d", start) << with(file, DataStartField, start) << page;
    QTest::newRow("without the last padding") << file.chopped(2) << page;
    const QByteArray four = bmp_file(3, 1, 4, threeColors, QByteArray("\x21\0\0\0", 4));
    QTest::newRow("four bits without the last padding") << four.chopped(2) << indexed(threeColors, {2, 1, 0});
    for (const int start : {0, 54, 55, 65})
        QTest::addRow("four bits, pixels said to begin at %d", start)
            << with(four, DataStartField, start) << indexed(threeColors, {2, 1, 0});

    // Red 31, then green 63 and blue 31: of five and six bits the toolkit leaves the low bits empty.
    const QByteArray words("\0\xf8\xff\7", 4);
    const QList<quint32> narrow{0xf800, 0x07e0, 0x001f};
    for (const int headerBytes : {40, 52, 56})
        QTest::addRow("masks in a header of %d bytes", headerBytes)
            << masked(16, headerBytes, narrow, words) << colored({0xfff80000, 0xff00fcf8});
    const QList<quint32> wide{0x3ff00000, 0x000ffc00, 0x000003ff};
    // 1023 of red; 1023 of green and 512 of blue, which is 127.6 of 255.
    QTest::newRow("ten bits a channel") << masked(32, 40, wide, little32(0x3ff00000) + little32(0x000ffe00))
                                        << colored({red, 0xff00ff80});
    const QList<quint32> wideWithAlpha{0x3ff00000, 0x000ffc00, 0x000003ff, 0xc0000000};
    QTest::newRow("ten bits a channel and two of alpha")
        << masked(32, 56, wideWithAlpha, little32(0xfff00000) + little32(0x7ff00000))
        << colored({red, 0x55ff0000}, QImage::Format_ARGB32);
}

void tst_bmp_files::fileIsShownAsItIsMeant_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QImage>("page");

    addRunLengths();
    addTables();
    addPlacesAndHeaders();
}

void tst_bmp_files::fileIsShownAsItIsMeant()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QImage, page);
    const QTemporaryDir directory;
    write_file(directory.filePath(u"file"_s), bytes);

    const ImageDocument document(directory.filePath(u"file"_s), {});

    QCOMPARE(document.imgFormat(), u"bmp"_s);
    QCOMPARE(document.pageCount(), 1U);
    QVERIFY(compare_pictures(document.page(1), page));
}

void tst_bmp_files::fileWithoutAllItsPixelsIsRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");

    const QByteArray codes("\4\1\0\0\4\2\0\1", 8);
    QTest::newRow("run lengths cut in the last row") << coded(8, codes.first(4));
    QTest::newRow("run lengths cut in a pair") << coded(8, codes.first(5));
    QTest::newRow("run lengths cut in pixels as they are") << coded(8, QByteArray("\4\1\0\0\0\4\1\1\1", 9));
    QTest::newRow("run lengths cut in a step") << coded(8, QByteArray("\4\1\0\2\1", 5));
    const QByteArray indices(64, '\1');
    const QByteArray file = bmp_file(8, 8, 8, {red, blue}, indices);
    for (const int start : {0, 14, 54, 55, 61})
        QTest::addRow("pixels said to begin at %d", start) << with(file, DataStartField, start).chopped(8);
    QTest::newRow("header of an unknown kind") << with(file, HeaderBytesField, 13);
}

void tst_bmp_files::fileWithoutAllItsPixelsIsRefused()
{
    QFETCH(const QByteArray, bytes);
    const QTemporaryDir directory;
    write_file(directory.filePath(u"file"_s), bytes);

    const ImageDocument document(directory.filePath(u"file"_s), {});

    QVERIFY(document.isEmpty());
    QCOMPARE(document.loadStatus, 2);
}

QTEST_GUILESS_MAIN(tst_bmp_files)
#include "tst_bmp_files.moc"
