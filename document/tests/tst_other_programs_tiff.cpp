// TIFF files that ImageMagick and the tools of libtiff write, read by the multi-page codec.

#include "ImageDocument.h"
#include "other_programs.h"
#include "pictures.h"
#include "tiff_files.h"

#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize PictureSize(50, 40);

/// What the multi-page codec makes of rows of one byte a pixel.
QImage indexed_page(const QByteArray &bytes)
{
    QImage page(PictureSize, QImage::Format_Indexed8);
    for (int y = 0; y < page.height(); ++y)
        std::copy_n(bytes.constData() + qsizetype{y} * page.width(), page.width(), page.scanLine(y));
    return as_read_back(page);
}

/// The same of pixels of one bit, given as bytes.
QImage bit_page(const QByteArray &greys, char valueOfOne)
{
    QImage page(PictureSize, QImage::Format_Mono);
    page.fill(0); // Intended: the last bits of a row that is turned about come from beyond the picture
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x)
            page.setPixel(x, y, greys.at(qsizetype{y} * page.width() + x) == valueOfOne ? 1 : 0);
    }
    return as_read_back(page);
}

} // namespace

class tst_other_programs_tiff : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { directory.reset(); }

    void colourTiffIsRead_data();
    void colourTiffIsRead();
    void greyTiffIsReadAsItsBytes_data();
    void greyTiffIsReadAsItsBytes();
    void blackAndWhiteTiffIsReadAsItsBits_data();
    void blackAndWhiteTiffIsReadAsItsBits();
    void paletteTiffIsReadAsItsIndices();
    void tiffOfAnotherKindIsRefused_data();
    void tiffOfAnotherKindIsRefused();
    void tiffWithoutAResolutionIsRefusedByTheCodecAlone();
    void tiffThatLostATagIsRefused_data();
    void tiffThatLostATagIsRefused();
    void filesOfTheTiffToolsAreRead_data();
    void filesOfTheTiffToolsAreRead();

private:
    [[nodiscard]] QString path(const QString &name) const { return directory->filePath(name); }

    /// Makes a file of the picture; -density gives it the resolution that our codec insists on.
    void convertTo(const QString &file, const QStringList &options = {}) const
    {
        const QStringList density{u"-density"_s, u"300"_s, u"-units"_s, u"PixelsPerInch"_s};
        (void)output_of(ConvertProgram, QStringList{path(u"picture.ppm"_s)} + density + options + QStringList{file});
    }

    std::optional<QTemporaryDir> directory;
};

void tst_other_programs_tiff::init()
{
    directory.emplace();
    QVERIFY(directory->isValid());
    QVERIFY(patterned_page(PictureSize).save(path(u"picture.ppm"_s)));
}

void tst_other_programs_tiff::colourTiffIsRead_data()
{
    QTest::addColumn<QStringList>("options");

    const QStringList plain{u"-compress"_s, u"None"_s};
    QTest::newRow("plain") << plain;
    QTest::newRow("lzw") << QStringList{u"-compress"_s, u"LZW"_s};
    QTest::newRow("deflate") << QStringList{u"-compress"_s, u"Zip"_s};
    QTest::newRow("packbits") << QStringList{u"-compress"_s, u"RLE"_s};
    QTest::newRow("high byte first") << plain + QStringList{u"-endian"_s, u"MSB"_s};
    QTest::newRow("low byte first") << plain + QStringList{u"-endian"_s, u"LSB"_s};
    QTest::newRow("high byte first, lzw") << QStringList{u"-compress"_s, u"LZW"_s, u"-endian"_s, u"MSB"_s};
    QTest::newRow("low bit first") << plain + QStringList{u"-define"_s, u"tiff:fill-order=lsb"_s};
    QTest::newRow("strips of 7 rows") << plain + QStringList{u"-define"_s, u"tiff:rows-per-strip=7"_s};
}

void tst_other_programs_tiff::colourTiffIsRead()
{
    QFETCH(const QStringList, options);
    convertTo(path(u"a.tif"_s), options);

    const ImageDocument document(path(u"a.tif"_s), u"TIFF"_s);

    QCOMPARE(document.pageCount(), 1U);
    QVERIFY(compare_pictures(document.page(1), patterned_page(PictureSize)));
}

void tst_other_programs_tiff::greyTiffIsReadAsItsBytes_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<bool>("lowIsWhite");

    const QStringList lowIsWhite{u"-define"_s, u"quantum:polarity=min-is-white"_s};
    for (const QString &compression : {u"None"_s, u"LZW"_s, u"RLE"_s, u"Zip"_s}) {
        const QStringList options{u"-compress"_s, compression};
        QTest::addRow("%s, 0 is black", qPrintable(compression)) << options << false;
        QTest::addRow("%s, 0 is white", qPrintable(compression)) << options + lowIsWhite << true;
    }
    QTest::newRow("low bit first") << QStringList{u"-compress"_s, u"None"_s, u"-define"_s, u"tiff:fill-order=lsb"_s}
                                   << false;
    QTest::newRow("strips of 7 rows") << QStringList{u"-compress"_s, u"None"_s, u"-define"_s,
                                                     u"tiff:rows-per-strip=7"_s}
                                      << false;
}

void tst_other_programs_tiff::greyTiffIsReadAsItsBytes()
{
    QFETCH(const QStringList, options);
    QFETCH(const bool, lowIsWhite);
    convertTo(path(u"a.tif"_s), QStringList{u"-colorspace"_s, u"Gray"_s, u"-depth"_s, u"8"_s} + options);
    QByteArray bytes = greys_for_imagemagick(path(u"a.tif"_s));
    QCOMPARE(bytes.size(), qsizetype{PictureSize.width()} * PictureSize.height());
    if (lowIsWhite) // Intended: what the bytes mean is not looked at
        std::ranges::transform(bytes, bytes.begin(), [](char byte) { return static_cast<char>(~byte); });

    const ImageDocument document(path(u"a.tif"_s), u"TIFF"_s);

    QCOMPARE(document.pageCount(), 1U);
    QVERIFY(compare_pictures(document.page(1), indexed_page(bytes)));
}

void tst_other_programs_tiff::blackAndWhiteTiffIsReadAsItsBits_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<bool>("lowIsWhite");

    for (const QString &compression : {u"None"_s, u"Group4"_s, u"Fax"_s, u"LZW"_s, u"RLE"_s, u"Zip"_s}) {
        const QStringList options{u"-compress"_s, compression};
        for (const bool lowIsWhite : {false, true}) {
            const QString polarity =
                lowIsWhite ? u"quantum:polarity=min-is-white"_s : u"quantum:polarity=min-is-black"_s;
            const QStringList polar = options + QStringList{u"-define"_s, polarity};
            const char *const meaning = lowIsWhite ? "white" : "black";
            QTest::addRow("%s, 0 is %s", qPrintable(compression), meaning) << polar << lowIsWhite;
            QTest::addRow("%s, 0 is %s, low bit first", qPrintable(compression), meaning)
                << polar + QStringList{u"-define"_s, u"tiff:fill-order=lsb"_s} << lowIsWhite;
        }
    }
}

void tst_other_programs_tiff::blackAndWhiteTiffIsReadAsItsBits()
{
    QFETCH(const QStringList, options);
    QFETCH(const bool, lowIsWhite);
    convertTo(path(u"a.tif"_s), QStringList{u"-type"_s, u"Bilevel"_s, u"-depth"_s, u"1"_s} + options);
    const QByteArray greys = greys_for_imagemagick(path(u"a.tif"_s));
    QVERIFY(greys.contains('\0') && greys.contains('\xff'));

    const ImageDocument document(path(u"a.tif"_s), u"TIFF"_s);

    QCOMPARE(document.pageCount(), 1U);
    QVERIFY(compare_pictures(document.page(1), bit_page(greys, lowIsWhite ? '\0' : '\xff')));
}

void tst_other_programs_tiff::paletteTiffIsReadAsItsIndices()
{
    convertTo(path(u"a.tif"_s), {u"-type"_s, u"Palette"_s, u"-colors"_s, u"200"_s});
    const QImage byToolkit(path(u"a.tif"_s));
    QCOMPARE(byToolkit.format(), QImage::Format_Indexed8);
    QByteArray indices;
    for (int y = 0; y < byToolkit.height(); ++y)
        indices.append(reinterpret_cast<const char *>(byToolkit.constScanLine(y)), byToolkit.width());

    const ImageDocument document(path(u"a.tif"_s), u"TIFF"_s);

    QCOMPARE(document.pageCount(), 1U);
    QVERIFY(compare_pictures(document.page(1), indexed_page(indices)));
    // The plug-in's word keeps the colours.
    QVERIFY(rgb_rows(ImageDocument(path(u"a.tif"_s), u"tiff"_s).page(1)) == colors_for_imagemagick(path(u"a.tif"_s)));
}

void tst_other_programs_tiff::tiffOfAnotherKindIsRefused_data()
{
    QTest::addColumn<QStringList>("options");

    QTest::newRow("16 bits a colour") << QStringList{u"-depth"_s, u"16"_s};
    QTest::newRow("16 bits of grey") << QStringList{u"-colorspace"_s, u"Gray"_s, u"-depth"_s, u"16"_s};
    QTest::newRow("with alpha") << QStringList{u"-alpha"_s, u"set"_s, u"-type"_s, u"TrueColorMatte"_s};
    QTest::newRow("four inks") << QStringList{u"-colorspace"_s, u"CMYK"_s};
}

void tst_other_programs_tiff::tiffOfAnotherKindIsRefused()
{
    QFETCH(const QStringList, options);
    convertTo(path(u"a.tif"_s), options);

    const ImageDocument document(path(u"a.tif"_s), u"TIFF"_s);

    QVERIFY(document.isEmpty());
    QCOMPARE(document.loadStatus, ImageDocument::LoadOther);
}

void tst_other_programs_tiff::tiffWithoutAResolutionIsRefusedByTheCodecAlone()
{
    (void)output_of(ConvertProgram, {path(u"picture.ppm"_s), path(u"a.tif"_s)});
    QVERIFY(!output_of(u"tiffinfo"_s, {path(u"a.tif"_s)}).contains("Resolution"));

    QVERIFY(ImageDocument(path(u"a.tif"_s), u"TIFF"_s).isEmpty());

    const ImageDocument byToolkit(path(u"a.tif"_s), {});
    QCOMPARE(byToolkit.pageCount(), 1U);
    QVERIFY(compare_pictures(byToolkit.page(1), patterned_page(PictureSize)));
}

void tst_other_programs_tiff::tiffThatLostATagIsRefused_data()
{
    QTest::addColumn<QString>("tag");

    QTest::newRow("XResolution") << u"282"_s;
    QTest::newRow("YResolution") << u"283"_s;
    QTest::newRow("ResolutionUnit") << u"296"_s;
}

void tst_other_programs_tiff::tiffThatLostATagIsRefused()
{
    QFETCH(const QString, tag);
    convertTo(path(u"a.tif"_s));
    QCOMPARE(ImageDocument(path(u"a.tif"_s), u"TIFF"_s).pageCount(), 1U);
    (void)output_of(u"tiffset"_s, {u"-u"_s, tag, path(u"a.tif"_s)});

    const ImageDocument document(path(u"a.tif"_s), u"TIFF"_s);

    QVERIFY(document.isEmpty());
}

void tst_other_programs_tiff::filesOfTheTiffToolsAreRead_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("depth");

    for (const QString &compression : {u"none"_s, u"lzw"_s, u"packbits"_s}) {
        const QStringList options{u"-c"_s, compression};
        QTest::addRow("tiffcp %s", qPrintable(compression)) << u"tiffcp"_s << options << 32;
        QTest::addRow("tiffcp %s, high byte first", qPrintable(compression))
            << u"tiffcp"_s << options + QStringList{u"-B"_s} << 32;
        QTest::addRow("tiff2bw %s", qPrintable(compression)) << u"tiff2bw"_s << options << 8;
    }
    QTest::newRow("tiffcp zip") << u"tiffcp"_s << QStringList{u"-c"_s, u"zip"_s} << 32;
    QTest::newRow("tiffcp, strips of 3 rows") << u"tiffcp"_s << QStringList{u"-c"_s, u"none"_s, u"-r"_s, u"3"_s} << 32;
}

void tst_other_programs_tiff::filesOfTheTiffToolsAreRead()
{
    QFETCH(const QString, program);
    QFETCH(const QStringList, options);
    QFETCH(const int, depth);
    convertTo(path(u"a.tif"_s));
    (void)output_of(program, options + QStringList{path(u"a.tif"_s), path(u"b.tif"_s)});
    const QImage expected =
        depth == 32 ? patterned_page(PictureSize) : indexed_page(greys_for_imagemagick(path(u"b.tif"_s)));

    const ImageDocument document(path(u"b.tif"_s), u"TIFF"_s);

    QCOMPARE(document.pageCount(), 1U);
    QVERIFY(compare_pictures(document.page(1), expected));
}

QTEST_GUILESS_MAIN(tst_other_programs_tiff)
#include "tst_other_programs_tiff.moc"
