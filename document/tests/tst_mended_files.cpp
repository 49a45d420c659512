#include "image_files.h"
#include "ImageDocument.h"
#include "mended_file.h"
#include "odd_files.h"
#include "pictures.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb red = 0xffff0000;
constexpr QRgb blue = 0xff0000ff;
constexpr QRgb clear = 0;

constexpr QImage::Format Alpha = QImage::Format_ARGB32;

} // namespace

/// Files that the toolkit's readers would show in wrong pixels, or in pixels that they never wrote.
class tst_mended_files : public QObject
{
    Q_OBJECT

private slots:
    void fileIsShownAsItIsMeant_data();
    void fileIsShownAsItIsMeant();
    void usualFileIsLeftAsItIs_data();
    void usualFileIsLeftAsItIs();
    void tgaWithoutAllItsPixelsIsRefused();
    void partOfACanvasThatNoPictureCoversIsClear_data();
    void partOfACanvasThatNoPictureCoversIsClear();

private:
    static void addTgaFiles();
};

void tst_mended_files::addTgaFiles()
{
    const auto row = [](const char *name, const Tga &tga, const QImage &page) {
        QTest::newRow(name) << tga_file(tga) << u"tga"_s << page;
    };
    const QByteArray bytes("\0\0\xff\xff\0\0", 6); // blue, green, red of each pixel
    const QImage redBlue = colored({red, blue}, Alpha);
    row("tga", {.pixels = bytes}, redBlue);
    row("tga with a name", {.pixels = bytes, .name = "scan"}, redBlue);
    row("tga with a table", {.pixels = bytes, .table = QByteArray(30, 'x')}, redBlue);
    row("tga with a name and a table", {.pixels = bytes, .name = "scan", .table = QByteArray(30, 'x')}, redBlue);
    row("tga from the right", {.descriptor = TgaFromTop | TgaRightToLeft, .pixels = bytes},
        colored({blue, red}, Alpha));
    row("tga from the lower right", {.width = 1, .height = 2, .descriptor = TgaRightToLeft, .pixels = bytes},
        colored({blue, red}, Alpha, 2));
    // Red 31 of 31; then red 1, green 16 and blue 31.
    const QByteArray words("\0\x7c\x1f\x06", 4);
    row("tga of 16 bits", {.bits = 16, .pixels = words}, colored({red, 0xff0884ff}, Alpha));
    row("tga of 16 bits, the alpha bit set but not told of", {.bits = 16, .pixels = QByteArray("\0\xfc\x1f\x06", 4)},
        colored({red, 0xff0884ff}, Alpha));
    row("tga of 16 bits with a bit of alpha",
        {.bits = 16, .descriptor = TgaFromTop | 1, .pixels = QByteArray("\0\xfc\x1f\x06", 4)},
        colored({red, 0x000884ff}, Alpha));
    row("tga of 16 bits with alpha that nobody filled", {.bits = 16, .descriptor = TgaFromTop | 1, .pixels = words},
        colored({red, 0xff0884ff}, Alpha));
    row("tga of 32 bits",
        {.bits = 32, .descriptor = TgaFromTop | 8, .pixels = QByteArray("\0\0\xff\x80\xff\0\0\xff", 8)},
        colored({0x80ff0000, blue}, Alpha));
    row("tga of 32 bits with alpha that nobody filled", {.bits = 32, .pixels = QByteArray("\0\0\xff\0\xff\0\0\0", 8)},
        redBlue);
}

void tst_mended_files::fileIsShownAsItIsMeant_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("word");
    QTest::addColumn<QImage>("page");

    addTgaFiles();
    // No filter, then red and 0x1234 of each, of 16 bits.
    const QByteArray row("\0\xff\xff\0\0\0\0\x12\x34\x12\x34\x12\x34", 13);
    const QImage grey = colored({red, 0xff121212}, Alpha);
    const auto png = [&row](const QByteArray &clearColor) {
        return png_file(2, 16, PngColor, row, QByteArray("tRNS"), clearColor);
    };
    const QByteArray clearGrey("\x12\x34\x12\x34\x12\x34", 6);
    QTest::newRow("png of 16 bits with a clear colour")
        << png(clearGrey) << QString() << colored({red, 0x00121212}, Alpha);
    QTest::newRow("png of 16 bits with a clear colour that differs in its low bits")
        << png(QByteArray("\x12\x34\x12\x34\x12\x35", 6)) << QString() << grey;
    QTest::newRow("png of 16 bits with clear red")
        << png(QByteArray("\xff\xff\0\0\0\0", 6)) << u"PNG"_s << colored({0x00ff0000, 0xff121212}, Alpha);
}

void tst_mended_files::fileIsShownAsItIsMeant()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, word);
    QFETCH(const QImage, page);
    const QTemporaryDir directory;
    write_file(directory.filePath(u"file"_s), bytes);

    const ImageDocument document(directory.filePath(u"file"_s), word);

    QCOMPARE(document.pageCount(), 1U);
    QVERIFY(compare_pictures(document.page(1), page));
}

void tst_mended_files::usualFileIsLeftAsItIs_data()
{
    QTest::addColumn<QByteArray>("bytes");

    for (const char *format : {"bmp", "gif", "ico", "jpg", "png", "tif", "ppm", "wbmp", "webp", "xbm", "xpm"}) {
        for (const int depth : {1, 8, 32}) {
            const QImage page = patterned_page({13, 7}, depth);
            QTest::addRow("%s of depth %d", format, depth)
                << (qstrcmp(format, "gif") == 0 ? small_gif() : encoded(page, format));
        }
    }
    QTest::newRow("tga") << tga_file({.pixels = QByteArray(6, 'x')});
    QTest::newRow("png of 16 bits") << png_file(1, 16, PngColor, QByteArray(7, '\0'));
    QTest::newRow("png of 8 bits with a clear colour")
        << png_file(1, 8, PngColor, QByteArray(4, '\0'), "tRNS", QByteArray(6, '\0'));
    QTest::newRow("animated webp that covers its canvas") << animated_webp(solid_page({8, 6}, red), 0, 0, false);
    QTest::newRow("two bytes") << QByteArray("BM");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("signature of a png") << QByteArray("\x89PNG\r\n\x1a\n");
}

void tst_mended_files::usualFileIsLeftAsItIs()
{
    QFETCH(QByteArray, bytes);
    QBuffer file(&bytes);
    QVERIFY(file.open(QIODevice::ReadOnly));

    const MendedFile mended = mended_file(file);

    QCOMPARE(mended.bytes, QByteArray());
    QVERIFY(!mended.clearColor);
    QCOMPARE(file.pos(), 0);
}

void tst_mended_files::tgaWithoutAllItsPixelsIsRefused()
{
    const QTemporaryDir directory;
    const QString file = directory.filePath(u"file.tga"_s);
    for (const Tga &tga :
         {Tga{.pixels = QByteArray(5, 'x')}, Tga{.height = 2, .bits = 32, .pixels = QByteArray(15, 'x')},
          Tga{.bits = 16, .pixels = QByteArray(3, 'x'), .name = "scan"}}) {
        write_file(file, tga_file(tga));
        QVERIFY(ImageDocument(file, u"tga"_s).isEmpty());
        QVERIFY(ImageDocument(file, {}).isEmpty());
    }
}

void tst_mended_files::partOfACanvasThatNoPictureCoversIsClear_data()
{
    QTest::addColumn<bool>("tellsAlpha");
    QTest::addColumn<QPoint>("place");

    for (const bool tellsAlpha : {false, true}) {
        QTest::addRow("upper left, alpha told: %d", int{tellsAlpha}) << tellsAlpha << QPoint(0, 0);
        QTest::addRow("within, alpha told: %d", int{tellsAlpha}) << tellsAlpha << QPoint(2, 2);
    }
}

void tst_mended_files::partOfACanvasThatNoPictureCoversIsClear()
{
    QFETCH(const bool, tellsAlpha);
    QFETCH(const QPoint, place);
    const QImage picture = solid_page({4, 3}, red);
    const QTemporaryDir directory;
    write_file(directory.filePath(u"file"_s), animated_webp(picture, place.x(), place.y(), tellsAlpha));

    const ImageDocument document(directory.filePath(u"file"_s), {});

    QCOMPARE(document.pageCount(), 1U);
    QImage expected(8, 6, QImage::Format_ARGB32);
    expected.fill(clear);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            expected.setPixel(place + QPoint(x, y), red);
    }
    QVERIFY(compare_pictures(document.page(1), expected));
}

QTEST_GUILESS_MAIN(tst_mended_files)
#include "tst_mended_files.moc"
