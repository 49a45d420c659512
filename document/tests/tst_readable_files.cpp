#include "image_files.h"
#include "ImageDocument.h"
#include "pictures.h"
#include "tiff_files.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb black = 0xff000000;
constexpr QRgb white = 0xffffffff;
constexpr QRgb red = 0xffff0000;
constexpr QRgb blue = 0xff0000ff;

QList<QRgb> greys(int count)
{
    QList<QRgb> table;
    for (int i = 0; i < count; ++i)
        table.append(qRgb(i * 255 / (count - 1), i * 255 / (count - 1), i * 255 / (count - 1)));
    return table;
}

QImage colored64(const QList<QRgba64> &colors, QImage::Format format)
{
    QImage image(static_cast<int>(colors.size()), 1, format);
    std::copy(colors.cbegin(), colors.cend(), reinterpret_cast<QRgba64 *>(image.bits()));
    return image;
}

QImage grey16(const QList<quint16> &values)
{
    QImage image(static_cast<int>(values.size()), 1, QImage::Format_Grayscale16);
    std::copy(values.cbegin(), values.cend(), reinterpret_cast<quint16 *>(image.bits()));
    return image;
}

void add_columns()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("word");
    QTest::addColumn<QImage>("page");
}

QTestData &row(const char *name)
{
    return QTest::newRow(name);
}

} // namespace

/// Files of every kind that the toolkit reads, and the one page that each of them gives.
class tst_readable_files : public QObject
{
    Q_OBJECT

private slots:
    void png_data();
    void png() { loadAndCompare(); }
    void bmp_data();
    void bmp() { loadAndCompare(); }
    void portableAnymap_data();
    void portableAnymap() { loadAndCompare(); }
    void tiff_data();
    void tiff();
    void wideTiffSamples_data();
    void wideTiffSamples();
    void otherFormats_data();
    void otherFormats() { loadAndCompare(); }
    void jpeg_data();
    void jpeg();
    void pageOfEveryFormatIsOneOfThePageFormats_data();
    void pageOfEveryFormatIsOneOfThePageFormats();

private:
    static void loadAndCompare();
};

void tst_readable_files::loadAndCompare()
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

void tst_readable_files::png_data()
{
    add_columns();
    const QByteArray grey("\0\0\x80\xff", 4); // no filter, then three pixels
    row("grey, 8 bits") << png_file(3, 8, PngGrey, grey) << QString() << indexed(greys(256), {0, 128, 255});
    row("grey, 16 bits, cut to the high ones")
        << encoded(grey16({0x0000, 0x1234, 0xffff}), "png") << QString() << indexed(greys(256), {0, 0x12, 255});
    row("grey, 4 bits") << png_file(2, 4, PngGrey, QByteArray("\0\x1f", 2)) << QString() << indexed(greys(16), {1, 15});
    row("grey, 2 bits") << png_file(4, 2, PngGrey, QByteArray("\0\x1b", 2)) << QString()
                        << indexed(greys(4), {0, 1, 2, 3});
    row("grey, 1 bit, white first") << png_file(4, 1, PngGrey, QByteArray("\0\x50", 2)) << QString()
                                    << indexed({white, black}, {1, 0, 1, 0}, QImage::Format_Mono);
    row("palette, 1 bit") << encoded(indexed({red, blue}, {0, 1, 1}, QImage::Format_Mono), "png") << QString()
                          << indexed({red, blue}, {0, 1, 1}, QImage::Format_Mono);
    row("palette, 8 bits") << encoded(indexed({red, blue, white}, {2, 0, 1}), "png") << QString()
                           << indexed({red, blue, white}, {2, 0, 1});
    row("palette with a clear entry") << encoded(indexed({red, 0x00ffffff}, {1, 0}), "png") << QString()
                                      << indexed({red, 0x00ffffff}, {1, 0});
    row("grey and alpha") << png_file(2, 8, PngGreyAlpha, QByteArray("\0\x80\xff\x10\x20", 5)) << QString()
                          << colored({0xff808080, 0x20101010}, QImage::Format_ARGB32);
    row("colour") << encoded(colored({red, 0xff123456}), "png") << QString() << colored({red, 0xff123456});
    row("colour and alpha") << encoded(colored({red, 0x80123456}, QImage::Format_ARGB32), "png") << QString()
                            << colored({red, 0x80123456}, QImage::Format_ARGB32);
    const QList<QRgba64> wide{qRgba64(0x1212, 0x3434, 0x5656, 0xffff), qRgba64(0xffff, 0, 0, 0xffff)};
    row("colour, 16 bits") << encoded(colored64(wide, QImage::Format_RGBX64), "png") << QString()
                           << colored({0xff123456, red});
    const QList<QRgba64> clear{qRgba64(0x1212, 0x3434, 0x5656, 0x8080), qRgba64(0xffff, 0, 0, 0xffff)};
    row("colour and alpha, 16 bits") << encoded(colored64(clear, QImage::Format_RGBA64), "png") << QString()
                                     << colored({0x80123456, red}, QImage::Format_ARGB32);
}

void tst_readable_files::bmp_data()
{
    add_columns();
    row("1 bit") << bmp_file(3, 1, 1, {red, blue}, QByteArray("\x40\0\0\0", 4)) << QString()
                 << indexed({red, blue}, {0, 1, 0}, QImage::Format_Mono);
    row("4 bits") << bmp_file(3, 1, 4, {blue, red, white}, QByteArray("\x21\0\0\0", 4)) << QString()
                  << indexed({blue, red, white}, {2, 1, 0});
    row("8 bits") << bmp_file(3, 1, 8, {blue, red, white}, QByteArray("\2\1\0\0", 4)) << QString()
                  << indexed({blue, red, white}, {2, 1, 0});
    // The toolkit leaves the low bits of a five-bit channel empty.
    row("16 bits") << bmp_file(2, 1, 16, {}, QByteArray("\0\x7c\x1f\0", 4)) << QString()
                   << colored({0xfff80000, 0xff0000f8});
    row("24 bits") << bmp_file(2, 1, 24, {}, QByteArray("\0\0\xff\x56\x34\x12\0\0", 8)) << QString()
                   << colored({red, 0xff123456});
    row("32 bits") << bmp_file(1, 1, 32, {}, QByteArray("\x56\x34\x12\0", 4)) << QString() << colored({0xff123456});
    // A run of three indices 1, end of the picture.
    row("run lengths") << bmp_file(3, 1, 8, {blue, red}, QByteArray("\3\1\0\1", 4)).replace(30, 1, "\1") << QString()
                       << indexed({blue, red}, {1, 1, 1});
}

void tst_readable_files::portableAnymap_data()
{
    add_columns();
    const QImage bits = indexed({white, black}, {1, 0, 1}, QImage::Format_Mono);
    row("bitmap as text") << QByteArray("P1\n3 1\n1 0 1\n") << QString() << bits;
    row("bitmap") << QByteArray("P4\n3 1\n\xa0") << QString() << bits;
    const QImage grey = indexed(greys(256), {0, 128, 255});
    row("grey as text") << QByteArray("P2\n# a remark\n3 1\n255\n0 128 255\n") << QString() << grey;
    row("grey") << QByteArray("P5\n3 1\n255\n") + QByteArray("\0\x80\xff", 3) << QString() << grey;
    const QImage colors = colored({red, 0xff123456});
    row("colour as text") << QByteArray("P3\n2 1\n255\n255 0 0 18 52 86\n") << QString() << colors;
    row("colour") << QByteArray("P6\n2 1\n255\n") + QByteArray("\xff\0\0\x12\x34\x56", 6) << u"PPM"_s << colors;
}

void tst_readable_files::tiff_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QImage>("page");

    // One pixel a sample value, so that the pages can be told by heart.
    row("1 bit, white is 0") << 0 << indexed({white, black}, {0, 1, 0}, QImage::Format_Mono);
    row("1 bit, black is 0") << 1 << indexed({black, white}, {0, 1, 0}, QImage::Format_Mono);
    row("grey") << 2 << indexed(greys(256), {0, 128, 255});
    row("grey, 16 bits, cut to the high ones") << 3 << indexed(greys(256), {0x12, 0xfe});
    row("colour") << 4 << colored({red, 0xff123456});
    row("colour and alpha") << 5 << colored({red, 0x80102030}, QImage::Format_ARGB32);
    row("colour, lzw") << 6 << colored({red, 0xff123456});
    row("group 4") << 7 << indexed({white, black}, {0, 1, 0}, QImage::Format_Mono);
}

void tst_readable_files::tiff()
{
    QFETCH(const int, kind);
    QFETCH(const QImage, page);
    TiffPage file{.width = page.width(), .height = 1};
    switch (kind) {
    case 0:
    case 1:
    case 7:
        file.bits = 1;
        file.photometric = kind == 1 ? PHOTOMETRIC_MINISBLACK : PHOTOMETRIC_MINISWHITE;
        file.rows = QByteArray(1, '\x40');
        if (kind == 7)
            file.compression = COMPRESSION_CCITTFAX4;
        break;
    case 2:
        file.rows = QByteArray("\0\x80\xff", 3);
        break;
    case 3:
        file.bits = 16;
        file.rows = QByteArray("\x34\x12\xdc\xfe", 4); // in this machine's order
        break;
    case 5:
        file.samples = 4;
        file.photometric = PHOTOMETRIC_RGB;
        file.extraSample = EXTRASAMPLE_UNASSALPHA;
        file.rows = QByteArray("\xff\0\0\xff\x10\x20\x30\x80", 8);
        break;
    default:
        file.samples = 3;
        file.photometric = PHOTOMETRIC_RGB;
        file.rows = QByteArray("\xff\0\0\x12\x34\x56", 6);
        if (kind == 6)
            file.compression = COMPRESSION_LZW;
    }
    const QTemporaryDir directory;
    write_tiff(directory.filePath(u"file"_s), {file});

    const ImageDocument document(directory.filePath(u"file"_s), {});

    QCOMPARE(document.pageCount(), 1U);
    QVERIFY(compare_pictures(document.page(1), page));
}

void tst_readable_files::wideTiffSamples_data()
{
    QTest::addColumn<int>("samples");
    QTest::addColumn<int>("extraSample");
    QTest::addColumn<bool>("inPlanes");
    QTest::addColumn<QString>("mode");

    for (const bool inPlanes : {true, false}) {
        const char *const order = inPlanes ? "in planes" : "side by side";
        QTest::addRow("colours %s", order) << 3 << -1 << inPlanes << u"w"_s;
        QTest::addRow("colours %s, high byte first", order) << 3 << -1 << inPlanes << u"wb"_s;
        QTest::addRow("colours %s in the large file format", order) << 3 << -1 << inPlanes << u"w8"_s;
        QTest::addRow("colours and alpha %s", order) << 4 << EXTRASAMPLE_UNASSALPHA << inPlanes << u"w"_s;
        QTest::addRow("multiplied colours and alpha %s", order) << 4 << EXTRASAMPLE_ASSOCALPHA << inPlanes << u"w"_s;
        QTest::addRow("colours and something else %s", order) << 4 << EXTRASAMPLE_UNSPECIFIED << inPlanes << u"w"_s;
    }
}

void tst_readable_files::wideTiffSamples()
{
    QFETCH(const int, samples);
    QFETCH(const int, extraSample);
    QFETCH(const bool, inPlanes);
    QFETCH(const QString, mode);
    // Two rows of three pixels; the last sample of each is its alpha. All are whole bytes, and stay so when
    // an alpha of 51 multiplies or divides them: no way of rounding matters.
    const QList<QList<int>> pixels{{255, 0, 51, 255},  {0, 255, 102, 255}, {17, 34, 68, 255},
                                   {153, 204, 0, 255}, {50, 20, 30, 51},   {0, 0, 0, 51}};
    TiffPage file{.width = 3, .height = 2, .samples = samples, .bits = 16, .photometric = PHOTOMETRIC_RGB};
    file.extraSample = extraSample;
    file.planarConfig = inPlanes ? PLANARCONFIG_SEPARATE : PLANARCONFIG_CONTIG;
    const auto append = [&file](int value) { file.rows += little16(value * 257); };
    for (int i = 0; i < samples * 6; ++i)
        append(inPlanes ? pixels.at(i % 6).at(i / 6) : pixels.at(i / samples).at(i % samples));
    QImage expected(3, 2, samples == 4 ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    for (int i = 0; i < 6; ++i) {
        QList<int> p = pixels.at(i);
        if (extraSample == EXTRASAMPLE_ASSOCALPHA && i == 4)
            p = {250, 100, 150, 51};
        expected.setPixel(i % 3, i / 3, qRgba(p.at(0), p.at(1), p.at(2), samples == 4 ? p.at(3) : 255));
    }
    const QTemporaryDir directory;
    write_tiff(directory.filePath(u"file"_s), {file}, mode.toLatin1().constData());

    for (const QString &word : {QString(), u"tif"_s, u"Tiff"_s, u"unknown"_s}) {
        const ImageDocument document(directory.filePath(u"file"_s), word);

        QCOMPARE(document.pageCount(), 1U);
        QVERIFY(compare_pictures(document.page(1), expected));
        QCOMPARE(document.page(1).dotsPerMeterX(), 11811);
    }
    QVERIFY(ImageDocument(directory.filePath(u"file"_s), u"png"_s).isEmpty());
}

void tst_readable_files::otherFormats_data()
{
    add_columns();
    const QByteArray bits = "#define a_width 3\n#define a_height 1\nstatic char a_bits[] = {\n 0x05};\n";
    row("xbm") << bits << QString() << indexed({white, black}, {1, 0, 1}, QImage::Format_MonoLSB);
    const QByteArray text =
        "/* XPM */\nstatic char *a[] = {\n\"2 1 2 1\",\n\"r c #ff0000\",\n\"b c #0000ff\",\n\"rb\"};\n";
    row("xpm") << text << QString() << indexed({red, blue}, {0, 1});
    row("gif") << small_gif() << QString() << colored({red, blue});
    row("webp") << encoded(colored({red, red}), "webp", 100) << QString() << colored({red, red});
    row("ico") << encoded(colored({red, blue}), "ico") << QString() << colored({red, blue}, QImage::Format_ARGB32);
    row("tga") << QByteArray("\0\0\2\0\0\0\0\0\0\0\0\0\2\0\1\0\x18\x20\0\0\xff\xff\0\0", 24) + QByteArray(8, '\0')
            + QByteArray("TRUEVISION-XFILE.", 18)
               << u"tga"_s << colored({red, blue}, QImage::Format_ARGB32);
    row("svg") << QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"2\" height=\"1\">"
                             "<rect width=\"2\" height=\"1\" fill=\"#ff0000\"/></svg>")
               << QString() << colored({red, red}, QImage::Format_ARGB32);
}

void tst_readable_files::jpeg_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<QRgb>("color");

    const QImage grey = solid_page({16, 16}, 0xff808080, QImage::Format_Grayscale8);
    const QImage color = solid_page({16, 16}, 0xffc86432);
    row("grey") << encoded(grey, "jpg") << QImage::Format_Indexed8 << 0xff808080;
    row("colour") << encoded(color, "jpg") << QImage::Format_RGB32 << 0xffc86432;
    row("four inks") << file_bytes(QStringLiteral(IM_TEST_DATA "/four_inks.jpg")) << QImage::Format_RGB32 << 0xffc86432;
    row("progressive") << file_bytes(QStringLiteral(IM_TEST_DATA "/progressive.jpg")) << QImage::Format_RGB32
                       << 0xffc86432;
}

void tst_readable_files::jpeg()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QRgb, color);
    const QTemporaryDir directory;
    write_file(directory.filePath(u"file"_s), bytes);

    const ImageDocument document(directory.filePath(u"file"_s), {});

    QCOMPARE(document.pageCount(), 1U);
    QTEST(document.page(1).format(), "format");
    QCOMPARE(document.page(1).size(), QSize(16, 16));
    const QRgb actual = document.page(1).pixel(8, 8);
    for (const int shift : {16, 8, 0}) { // channel by channel: the format is not exact
        const int distance = static_cast<int>(actual >> shift & 0xff) - static_cast<int>(color >> shift & 0xff);
        QVERIFY2(std::abs(distance) <= 3, qPrintable(QString::number(actual, 16)));
    }
    if (document.page(1).depth() == 8)
        QCOMPARE(document.page(1).colorTable(), greys(256));
}

void tst_readable_files::pageOfEveryFormatIsOneOfThePageFormats_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<int>("depth");

    for (const char *format :
         {"bmp", "cur", "icns", "ico", "jpg", "pbm", "pgm", "png", "ppm", "tif", "wbmp", "webp", "xbm", "xpm"}) {
        for (const int depth : {32, 8, 1})
            QTest::addRow("%s from depth %d", format, depth) << QByteArray(format) << depth;
    }
}

void tst_readable_files::pageOfEveryFormatIsOneOfThePageFormats()
{
    QFETCH(const QByteArray, format);
    QFETCH(const int, depth);
    const QTemporaryDir directory;
    const QString name = directory.filePath(u"a."_s + QString::fromLatin1(format));
    write_file(name, encoded(patterned_page({32, 32}, depth), format.constData()));

    const ImageDocument document(name, {});

    QCOMPARE(document.pageCount(), 1U);
    QCOMPARE(document.page(1).size(), QSize(32, 32));
    const QList<QImage::Format> formats{QImage::Format_Mono, QImage::Format_MonoLSB, QImage::Format_Indexed8,
                                        QImage::Format_RGB32, QImage::Format_ARGB32};
    QVERIFY(formats.contains(document.page(1).format()));
}

QTEST_GUILESS_MAIN(tst_readable_files)
#include "tst_readable_files.moc"
