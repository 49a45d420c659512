#include "complete_file.h"
#include "image_files.h"
#include "odd_files.h"
#include "pictures.h"

#include <QBuffer>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

bool is_complete(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    return buffer.open(QIODevice::ReadOnly) && is_complete_image(buffer);
}

/// The shortest file of markers that has a scan and an end; @p scan stands for its coded data.
QByteArray jpeg_of(const QByteArray &segments, const QByteArray &scan)
{
    return "\xff\xd8" + segments + QByteArray("\xff\xda\x00\x03\x01", 5) + scan;
}

QByteArray os2_bmp(const QByteArray &rows)
{
    return "BM" + little32(0) + little32(0) + little32(26) + little32(12) + little16(3) + little16(2) + little16(1)
        + little16(24) + rows;
}

QByteArray rle_bmp(int presentBytes)
{
    const QByteArray row("\4\1\0\0", 4);
    const QByteArray file = bmp_file(4, 4, 8, {0, 1}, row + row + row + row);
    return QByteArray(file).replace(30, 4, little32(1)).first(file.size() - 16 + presentBytes);
}

/// A TIFF header and one directory entry, the colour map, of so many values at an offset.
QByteArray tiff_with_color_map(int values, int offset, int fileBytes)
{
    const QByteArray file = QByteArray("II*\0", 4) + little32(8) + little16(1) + little16(320) + little16(3)
        + little32(values) + little32(offset) + little32(0);
    return file + QByteArray(fileBytes - file.size(), '\0');
}

} // namespace

class tst_complete_file : public QObject
{
    Q_OBJECT

private slots:
    void wholeFileIsComplete_data();
    void wholeFileIsComplete();
    void fileThatLacksItsLastPixelsIsNotComplete_data();
    void fileThatLacksItsLastPixelsIsNotComplete();

    void jpegEndIsSoughtByMarkers_data();
    void jpegEndIsSoughtByMarkers();
    void markerAcrossTheEdgeOfAReadBlockIsSeen();
    void bmpIsJudgedByItsRows_data();
    void bmpIsJudgedByItsRows();
    void gifIsJudgedByItsFirstPicture_data();
    void gifIsJudgedByItsFirstPicture();
    void icnsIsJudgedByItsBlocksAndCodes_data();
    void icnsIsJudgedByItsBlocksAndCodes();
    void xbmIsJudgedByItsNumbers_data();
    void xbmIsJudgedByItsNumbers();
    void tiffIsJudgedByItsColorMap_data();
    void tiffIsJudgedByItsColorMap();

    void unknownFileIsLeftToItsDecoder_data();
    void unknownFileIsLeftToItsDecoder();
    void fileStandsAtItsStartAfterwards();
};

void tst_complete_file::wholeFileIsComplete_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<int>("depth");

    for (const char *format : {"jpg", "bmp", "png", "tiff", "ppm", "xpm", "webp"}) {
        for (const int depth : {32, 8, 1})
            QTest::addRow("%s of depth %d", format, depth) << QByteArray(format) << depth;
    }
    QTest::addRow("xbm") << QByteArray("xbm") << 1;
}

void tst_complete_file::wholeFileIsComplete()
{
    QFETCH(const QByteArray, format);
    QFETCH(const int, depth);

    QVERIFY(is_complete(encoded(patterned_page({61, 47}, depth), format.constData())));
}

void tst_complete_file::fileThatLacksItsLastPixelsIsNotComplete_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<int>("depth");
    QTest::addColumn<int>("missing"); // bytes

    QTest::newRow("jpg") << QByteArray("jpg") << 32 << 10;
    QTest::newRow("grey jpg") << QByteArray("jpg") << 8 << 10;
    QTest::newRow("bmp of depth 32 without its last byte but padding") << QByteArray("bmp") << 32 << 2;
    QTest::newRow("bmp of depth 8") << QByteArray("bmp") << 8 << 4;
    QTest::newRow("bmp of depth 1") << QByteArray("bmp") << 1 << 1;
    QTest::newRow("tiff of depth 8 with half its colours") << QByteArray("tiff") << 8 << 700;
    QTest::newRow("xbm") << QByteArray("xbm") << 1 << 10;
}

void tst_complete_file::fileThatLacksItsLastPixelsIsNotComplete()
{
    QFETCH(const QByteArray, format);
    QFETCH(const int, depth);
    QFETCH(const int, missing);

    QVERIFY(!is_complete(encoded(patterned_page({61, 47}, depth), format.constData()).chopped(missing)));
}

void tst_complete_file::jpegEndIsSoughtByMarkers_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("complete");

    const QByteArray end("\xff\xd9", 2);
    const QByteArray thumbnail = QByteArray("\xff\xe1\x00\x08", 4) + "\xff\xd8\xff\xda" + end;
    QTest::newRow("scan and end") << jpeg_of({}, "abc" + end) << true;
    QTest::newRow("bytes behind the end") << jpeg_of({}, "abc" + end + "trailer") << true;
    QTest::newRow("no end") << jpeg_of({}, "abc") << false;
    QTest::newRow("only a thumbnail ends") << jpeg_of(thumbnail, "abc") << false;
    QTest::newRow("thumbnail and picture end") << jpeg_of(thumbnail, "abc" + end) << true;
    QTest::newRow("stuffed bytes and restarts are data")
        << jpeg_of({}, QByteArray("\xff\x00\xd9\xff\xd0\xff\xd7", 7)) << false;
    QTest::newRow("fill bytes before the end") << jpeg_of({}, "abc\xff\xff" + end) << true;
    QTest::newRow("two scans") << jpeg_of({}, "abc" + QByteArray("\xff\xda\x00\x03\x01", 5) + "def" + end) << true;
    QTest::newRow("cut between two scans") << jpeg_of({}, "abc" + QByteArray("\xff\xda\x00", 3)) << false;
    QTest::newRow("end without a scan") << "\xff\xd8" + end << false;
    QTest::newRow("segment longer than the file") << QByteArray("\xff\xd8\xff\xe0\xff\xff", 6) + end << false;
    QTest::newRow("segment shorter than its length") << QByteArray("\xff\xd8\xff\xe0\x00\x01", 6) + end << false;
    QTest::newRow("start alone") << QByteArray("\xff\xd8") << false;
}

void tst_complete_file::jpegEndIsSoughtByMarkers()
{
    QFETCH(const QByteArray, bytes);

    QTEST(is_complete(bytes), "complete");
}

void tst_complete_file::markerAcrossTheEdgeOfAReadBlockIsSeen()
{
    for (int length = 65520; length < 65540; ++length) {
        const QByteArray whole = jpeg_of({}, QByteArray(length, 'x') + "\xff\xd9");
        QVERIFY(is_complete(whole));
        QVERIFY(!is_complete(whole.chopped(1)));
    }
}

void tst_complete_file::bmpIsJudgedByItsRows_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("complete");

    const auto rows = [](int bytes) { return QByteArray(bytes, '\0'); };
    // 3 pixels of 24 bits are 9 bytes, padded to 12.
    QTest::newRow("24 bits") << bmp_file(3, 2, 24, {}, rows(24)) << true;
    QTest::newRow("without the last padding") << bmp_file(3, 2, 24, {}, rows(21)) << true;
    QTest::newRow("without the last byte of the last pixel") << bmp_file(3, 2, 24, {}, rows(20)) << false;
    QTest::newRow("rows from the top") << bmp_file(3, -2, 24, {}, rows(24)) << true;
    QTest::newRow("rows from the top, cut") << bmp_file(3, -2, 24, {}, rows(20)) << false;
    QTest::newRow("4 bits") << bmp_file(9, 2, 4, {0, 1}, rows(13)) << true; // 5 bytes padded to 8
    QTest::newRow("4 bits, cut") << bmp_file(9, 2, 4, {0, 1}, rows(12)) << false;
    QTest::newRow("old header") << os2_bmp(rows(24)) << true;
    QTest::newRow("old header, cut") << os2_bmp(rows(20)) << false;
    QTest::newRow("run lengths") << rle_bmp(16) << true;
    QTest::newRow("run lengths without the end of the last row") << rle_bmp(14) << true;
    QTest::newRow("run lengths, cut") << rle_bmp(13) << false;
    QTest::newRow("largest sides") << bmp_file(0x7fffffff, 0x7fffffff, 32, {}, rows(24)) << false;
    QTest::newRow("most negative height") << bmp_file(1, -0x7fffffff - 1, 32, {}, rows(24)) << false;
    QTest::newRow("cut in the header") << bmp_file(3, 2, 24, {}, {}).first(40) << false;
    QTest::newRow("two bytes") << QByteArray("BM") << false;
}

void tst_complete_file::bmpIsJudgedByItsRows()
{
    QFETCH(const QByteArray, bytes);

    QTEST(is_complete(bytes), "complete");
}

void tst_complete_file::gifIsJudgedByItsFirstPicture_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("complete");

    const QByteArray gif = small_gif();
    QTest::newRow("whole") << gif << true;
    QTest::newRow("without the trailer") << gif.chopped(1) << true;
    QTest::newRow("a second picture that is cut") << gif.chopped(1) + "," << true;
    QTest::newRow("without the end of the picture") << gif.chopped(2) << true;
    QTest::newRow("without the last code") << gif.chopped(3) << false;
    QTest::newRow("without the codes") << gif.chopped(4) << false;
    QTest::newRow("cut in the comment") << gif.first(21) << false;
    QTest::newRow("cut in the colours") << gif.first(15) << false;
    QTest::newRow("cut in the screen") << gif.first(8) << false;
    QTest::newRow("no picture") << gif.first(25) + ";" << false;
}

void tst_complete_file::gifIsJudgedByItsFirstPicture()
{
    QFETCH(const QByteArray, bytes);

    QTEST(is_complete(bytes), "complete");
}

void tst_complete_file::icnsIsJudgedByItsBlocksAndCodes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("complete");

    // Of 1024 pixels a colour, 128 a run: 0xfd is 125 more than the shortest run of three.
    const QByteArray color = QByteArray("\xfd\x11", 2).repeated(8);
    const QByteArray codes = color + color + color;
    QTest::newRow("three colours") << icns_file(codes) << true;
    QTest::newRow("with a number before them") << icns_file(QByteArray(4, '\0') + codes) << true;
    QTest::newRow("pixels as they are") << icns_file((QByteArray("\x7f", 1) + QByteArray(128, 'x')).repeated(24))
                                        << true;
    QTest::newRow("without the last run") << icns_file(codes.chopped(2)) << false;
    QTest::newRow("without the value of the last run") << icns_file(codes.chopped(1)) << false;
    QTest::newRow("two colours") << icns_file(color + color + codes.first(2)) << false;
    const QByteArray note = "icnV" + big32(12) + big32(1);
    const QByteArray second = icns_file(codes.chopped(2)).insert(8, note);
    QTest::newRow("second block without its last run")
        << QByteArray(second).replace(4, 4, big32(second.size())) << false;
    QTest::newRow("four bytes a pixel") << icns_file(QByteArray(4096, 'x')) << true;
    QTest::newRow("block beyond the file") << icns_file(codes).chopped(1) << false;
    QTest::newRow("block beyond the told end") << icns_file(codes).replace(4, 4, big32(20)) << false;
    QTest::newRow("header alone") << QByteArray("icns") + big32(8) << true;
    QTest::newRow("half a header") << QByteArray("icns\0\0", 6) << false;
    const QByteArray whole = encoded(patterned_page({32, 32}), "icns");
    const qsizetype listed = whole.indexOf("TOC ") + 12; // the first length in the table of contents
    QTest::newRow("contents that claim gigabytes") << QByteArray(whole).replace(listed, 4, big32(0x7fffffff)) << false;
    QTest::newRow("contents that claim less than a header") << QByteArray(whole).replace(listed, 4, big32(7)) << false;
    QTest::newRow("of the toolkit") << whole << true;
    QTest::newRow("of the toolkit, cut") << whole.chopped(1) << false;
}

void tst_complete_file::icnsIsJudgedByItsBlocksAndCodes()
{
    QFETCH(const QByteArray, bytes);

    QTEST(is_complete(bytes), "complete");
}

void tst_complete_file::xbmIsJudgedByItsNumbers_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("complete");

    const QByteArray header = "#define a_width 9\n#define a_height 2\nstatic char a_bits[] = {\n";
    QTest::newRow("two numbers a row") << header + "0x01,0x02,0x03,0x04};" << true;
    QTest::newRow("a number is missing") << header + "0x01,0x02,0x03" << false;
    QTest::newRow("cut within the last number") << header + "0x01,0x02,0x03,0x0" << false;
    QTest::newRow("no numbers") << header.chopped(2) << false;
    QTest::newRow("width alone") << QByteArray("#define a_width 9") << false;
}

void tst_complete_file::xbmIsJudgedByItsNumbers()
{
    QFETCH(const QByteArray, bytes);

    QTEST(is_complete(bytes), "complete");
}

void tst_complete_file::tiffIsJudgedByItsColorMap_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("complete");

    QTest::newRow("map within the file") << tiff_with_color_map(768, 100, 1636) << true;
    QTest::newRow("map with its last byte outside") << tiff_with_color_map(768, 100, 1635) << false;
    QTest::newRow("map beyond the file") << tiff_with_color_map(768, 5000, 100) << false;
    QTest::newRow("header alone is left to the decoder") << tiff_with_color_map(768, 100, 1636).first(6) << true;
    QTest::newRow("directory outside is left to the decoder") << QByteArray("MM\0*\x7f\0\0\0", 8) << true;
}

void tst_complete_file::tiffIsJudgedByItsColorMap()
{
    QFETCH(const QByteArray, bytes);

    QTEST(is_complete(bytes), "complete");
}

void tst_complete_file::unknownFileIsLeftToItsDecoder_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("one byte") << QByteArray("B");
    QTest::newRow("garbage") << QByteArray(5000, '\x5b');
    QTest::newRow("png that is cut") << encoded(patterned_page({9, 9}), "png").first(30);
}

void tst_complete_file::unknownFileIsLeftToItsDecoder()
{
    QFETCH(const QByteArray, bytes);

    QVERIFY(is_complete(bytes));
}

void tst_complete_file::fileStandsAtItsStartAfterwards()
{
    QByteArray bytes = encoded(patterned_page({9, 9}), "jpg");
    QBuffer buffer(&bytes);
    QVERIFY(buffer.open(QIODevice::ReadOnly));

    QVERIFY(is_complete_image(buffer));

    QCOMPARE(buffer.pos(), 0);
}

QTEST_GUILESS_MAIN(tst_complete_file)
#include "tst_complete_file.moc"
