// Files that we write and ImageMagick reads, and the other way round.

#include "ImageDocument.h"
#include "other_programs.h"
#include "pictures.h"
#include "tiff_files.h"

#include <QImageWriter>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize PictureSize(50, 40);

} // namespace

class tst_other_programs_files : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { directory.reset(); }

    void imageMagickSeesWhatWeSaved_data();
    void imageMagickSeesWhatWeSaved();
    void imageMagickSeesAllPagesOfOurTiff();
    void imageMagickSeesTheResolutionOfOurTiff();

    void otherFormatsAreReadAsImageMagickSeesThem_data();
    void otherFormatsAreReadAsImageMagickSeesThem();

private:
    [[nodiscard]] QString path(const QString &name) const { return directory->filePath(name); }

    std::optional<QTemporaryDir> directory;
};

void tst_other_programs_files::init()
{
    directory.emplace();
    QVERIFY(directory->isValid());
    QVERIFY(patterned_page(PictureSize).save(path(u"picture.ppm"_s)));
}

void tst_other_programs_files::imageMagickSeesWhatWeSaved_data()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<bool>("keepsAll");

    // The others lose colours or their exactness.
    const QList<QByteArray> keepAll{"bmp", "png", "ppm", "tif", "tiff", "xpm"};
    for (const QByteArray &word : QImageWriter::supportedImageFormats()) {
        if (word == "icns") // ImageMagick does not know it
            continue;
        for (const int depth : {32, 8, 1})
            QTest::addRow("%s:%d", word.constData(), depth) << depth << keepAll.contains(word);
    }
}

void tst_other_programs_files::imageMagickSeesWhatWeSaved()
{
    QFETCH(const int, depth);
    QFETCH(const bool, keepsAll);
    const QString word = QString::fromLatin1(QTest::currentDataTag()).section(u':', 0, 0);
    const QImage page = patterned_page(PictureSize, depth);
    ImageDocument document({}, {});
    QVERIFY(document.addPage(page));
    const QString file = path(u"a."_s + word);

    QVERIFY2(document.save(file, word), qPrintable(document.lastError));

    const ImageDocument reloaded(file, word);
    QCOMPARE(reloaded.pageCount(), 1U);
    QVERIFY(colors_for_imagemagick(word + u':' + file) == rgb_rows(keepsAll ? page : reloaded.page(1)));
}

void tst_other_programs_files::imageMagickSeesAllPagesOfOurTiff()
{
    const QImage bits = patterned_page(PictureSize, 1);
    const QImage indices = patterned_page(PictureSize, 8);
    const QImage colors = patterned_page(PictureSize, 32);
    QVERIFY(save_as_tiff(path(u"a.tif"_s), {bits, indices, colors, bits}));

    QCOMPARE(output_of(IdentifyProgram, {u"-format"_s, u"%m %wx%h %z\n"_s, path(u"a.tif"_s)}),
             "TIFF 50x40 1\nTIFF 50x40 8\nTIFF 50x40 8\nTIFF 50x40 1\n");
    // An indexed page is written as its indices, which others take for greys.
    QVERIFY(colors_for_imagemagick(path(u"a.tif[0]"_s)) == rgb_rows(bits));
    QVERIFY(greys_for_imagemagick(path(u"a.tif[1]"_s)) == plain_rows_of(indices));
    QVERIFY(colors_for_imagemagick(path(u"a.tif[2]"_s)) == rgb_rows(colors));
    QVERIFY(colors_for_imagemagick(path(u"a.tif[3]"_s)) == rgb_rows(bits));
}

void tst_other_programs_files::imageMagickSeesTheResolutionOfOurTiff()
{
    QImage page = patterned_page(PictureSize);
    page.setDotsPerMeterX(11811);
    page.setDotsPerMeterY(5906);
    QVERIFY(save_as_tiff(path(u"a.tif"_s), {page}));

    const QList<QByteArray> words =
        output_of(IdentifyProgram, {u"-format"_s, u"%x %y %U"_s, path(u"a.tif"_s)}).split(' ');
    QCOMPARE(words.size(), 3);
    QCOMPARE(words.at(0).toFloat(), 118.11F);
    QCOMPARE(words.at(1).toFloat(), 59.06F);
    QCOMPARE(words.at(2), "PixelsPerCentimeter");
}

void tst_other_programs_files::otherFormatsAreReadAsImageMagickSeesThem_data()
{
    QTest::addColumn<QStringList>("options");

    for (const char *const format : {"bmp", "bmp2", "bmp3", "gif", "ico", "jpeg", "pbm", "pgm", "png", "png24", "png48",
                                     "png8", "ppm", "tiff", "wbmp", "webp", "xbm", "xpm"})
        QTest::newRow(format) << QStringList{};
    QTest::newRow("jpeg:grey") << QStringList{u"-colorspace"_s, u"Gray"_s};
    QTest::newRow("jpeg:progressive") << QStringList{u"-interlace"_s, u"Plane"_s};
    QTest::newRow("png:interlaced") << QStringList{u"-interlace"_s, u"Plane"_s};
    QTest::newRow("png:grey") << QStringList{u"-colorspace"_s, u"Gray"_s, u"-depth"_s, u"8"_s};
    QTest::newRow("bmp:two colours") << QStringList{u"-type"_s, u"Bilevel"_s};
    QTest::newRow("bmp:16 colours") << QStringList{u"-colors"_s, u"16"_s, u"-type"_s, u"Palette"_s};
    QTest::newRow("ppm:in figures") << QStringList{u"-compress"_s, u"None"_s};
}

void tst_other_programs_files::otherFormatsAreReadAsImageMagickSeesThem()
{
    QFETCH(const QStringList, options);
    const QString format = QString::fromLatin1(QTest::currentDataTag()).section(u':', 0, 0);
    const QString file = path(u"a."_s + format);
    (void)output_of(ConvertProgram, QStringList{path(u"picture.ppm"_s)} + options + QStringList{format + u':' + file});

    const ImageDocument document(file, {});

    QCOMPARE(document.pageCount(), 1U);
    QVERIFY(rgb_rows(document.page(1)) == colors_for_imagemagick(format + u':' + file));
}

QTEST_GUILESS_MAIN(tst_other_programs_files)
#include "tst_other_programs_files.moc"
