// Directories of TIFF files, taken over into a new one as they stand.

#include "image_files.h"
#include "pictures.h"
#include "plain_tiffs.h"
#include "tiff_files.h"
#include "tiff_join.h"
#include "tiff_pages.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// Tags of TIFF 6.0, and some that nobody knows.
enum Tag {
    SubfileType = 254,
    ImageWidth = 256,
    Compression = 259,
    Photometric = 262,
    DocumentName = 269,
    ImageDescription = 270,
    Orientation = 274,
    XResolution = 282,
    YResolution = 283,
    ResolutionUnit = 296,
    PageNumber = 297,
    DateTime = 306,
    SubIfds = 330,
    ExifIfd = 34665,
    GpsIfd = 34853,
    UnknownTag = 65000,
};

} // namespace

class tst_tiff_join : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { directory.reset(); }

    void pagesOfEveryKindAreTheSameInTheNewFile_data();
    void pagesOfEveryKindAreTheSameInTheNewFile();
    void newFileHoldsNothingBesidesItsPages();
    void firstPageIsReplacedAndAllOthersStay_data();
    void firstPageIsReplacedAndAllOthersStay();
    void newPageTellsWhatTheFormerOneToldAboutThePage();
    void newPageKeepsItsOwnResolutionUnlessAskedOtherwise();
    void resolutionWithoutNumbersIsNotKept_data();
    void resolutionWithoutNumbersIsNotKept();
    void smallerVersionsOfTheFormerPictureGoAndOtherPicturesBelowItStay();
    void narrowPagesComeIntoAFileOfAnotherByteOrderAndKind_data();
    void narrowPagesComeIntoAFileOfAnotherByteOrderAndKind();
    void widePagesAreNotBroughtToAnotherByteOrder();
    void largePagesAreNotBroughtIntoASmallKindOfFile();
    void placesOfShortNumbersGrow();
    void valuesOfManyBytesComeWhole();

private:
    [[nodiscard]] QString path(const QString &name) const { return directory->filePath(name); }
    [[nodiscard]] QString made(const QString &kind) const { return kinds.filePath(kind + ".tif"_L1); }
    /// A new page of one colour.
    [[nodiscard]] QString newPage() const
    {
        if (!patterned_page({30, 20}).save(path(u"page.tif"_s)))
            qFatal("cannot save the page");
        return path(u"page.tif"_s);
    }
    [[nodiscard]] bool replaceFirst(const QString &source, const QString &target, bool keepsResolution = false) const;

    QTemporaryDir kinds; ///< a file of each
    std::optional<QTemporaryDir> directory;
};

void tst_tiff_join::initTestCase()
{
    QVERIFY(kinds.isValid());
    make_all_tiffs(kinds.path());
}

void tst_tiff_join::init()
{
    directory.emplace();
    QVERIFY(directory->isValid());
}

bool tst_tiff_join::replaceFirst(const QString &source, const QString &target, bool keepsResolution) const
{
    const Opened former(source);
    const Opened page(newPage());
    QFile output(target);
    const TiffStructure structure(former.handle());
    const std::size_t count = tiff_chain(structure).positions.size();
    TiffJoin join(structure.kind());
    return join.addInPlaceOf(page.handle(), former.handle(), keepsResolution) && join.add(former.handle(), 1, count - 1)
        && output.open(QIODevice::ReadWrite) && join.write(output);
}

void tst_tiff_join::pagesOfEveryKindAreTheSameInTheNewFile_data()
{
    QTest::addColumn<QString>("kind");
    for (const QString &kind : tiff_kinds())
        QTest::newRow(qPrintable(kind)) << kind;
}

void tst_tiff_join::pagesOfEveryKindAreTheSameInTheNewFile()
{
    QFETCH(const QString, kind);
    const QString source = made(kind);
    const Opened file(source);
    const TiffStructure structure(file.handle());
    const TiffChain chain = tiff_chain(structure);
    QVERIFY(chain.isWhole);
    QFile copy(path(u"copy.tif"_s));
    QVERIFY(copy.open(QIODevice::ReadWrite));

    TiffJoin join(structure.kind());
    QVERIFY(join.add(file.handle(), 0, chain.positions.size()));
    QVERIFY(join.write(copy));

    QVERIFY(copy.flush());
    QCOMPARE(static_cast<qint64>(join.bytes()), copy.size());
    QCOMPARE(told_pages(copy.fileName()), told_pages(source));
    QCOMPARE(tiffinfo_warnings(copy.fileName()), tiffinfo_warnings(source));
    if (kind != "BigTIFF, big-endian"_L1) // Pillow does not read these
        QCOMPARE(pillow_pages(copy.fileName()), pillow_pages(source));
}

void tst_tiff_join::newFileHoldsNothingBesidesItsPages()
{
    // By hand: 20 pages of 8 + 2 + 12 * 11 + 4 + 2 * 8 bytes at most for tags, and their strips without gaps.
    const QString source = made(u"colour LZW"_s);
    QVERIFY(replaceFirst(source, path(u"copy.tif"_s)));
    const qint64 pageBytes = QFile(path(u"page.tif"_s)).size();
    QVERIFY(QFile(path(u"copy.tif"_s)).size() <= QFile(source).size() * 19 / 20 + pageBytes + 2048);

    // Again and again, the file does not grow.
    QVERIFY(replaceFirst(path(u"copy.tif"_s), path(u"second.tif"_s)));
    QVERIFY(replaceFirst(path(u"second.tif"_s), path(u"third.tif"_s)));

    QCOMPARE(QFile(path(u"second.tif"_s)).size(), QFile(path(u"copy.tif"_s)).size());
    QCOMPARE(file_bytes(path(u"third.tif"_s)), file_bytes(path(u"second.tif"_s)));
}

void tst_tiff_join::firstPageIsReplacedAndAllOthersStay_data()
{
    pagesOfEveryKindAreTheSameInTheNewFile_data();
}

void tst_tiff_join::firstPageIsReplacedAndAllOthersStay()
{
    QFETCH(const QString, kind);
    const QString source = made(kind);
    const QString target = path(u"target.tif"_s);

    QVERIFY(replaceFirst(source, target));

    const QStringList before = told_pages(source);
    const QStringList after = told_pages(target);
    QCOMPARE(after.size(), before.size());
    QCOMPARE(after.at(0), before.at(0)); // byte order and kind
    QCOMPARE(after.mid(2), before.mid(2));
    QCOMPARE(QImage(target), patterned_page({30, 20}).convertToFormat(QImage(target).format()));
    for (const QString &warning : tiffinfo_warnings(target))
        QVERIFY2(tiffinfo_warnings(source).contains(warning), qPrintable(warning));
}

void tst_tiff_join::newPageTellsWhatTheFormerOneToldAboutThePage()
{
    const QString target = path(u"target.tif"_s);
    QVERIFY(replaceFirst(made(u"directories below"_s), target));

    const QString page = told_pages(target).at(1);
    QVERIFY(tells(page, DocumentName, u"document 0"_s));
    QVERIFY(tells(page, ImageDescription, u"image 0"_s));
    QVERIFY(tells(page, DateTime, u"2026:01:01 10:00:00"_s));
    QVERIFY(tells(page, PageNumber, 0));
    QVERIFY(tells(page, SubfileType, 2));
    QVERIFY(tells(page, Orientation, 6)); // the pixels are not turned by the decoder
    const QString former = told_pages(made(u"directories below"_s)).at(1);
    for (const int tag : {ExifIfd, GpsIfd, UnknownTag})
        QCOMPARE(tag_text(page, tag), tag_text(former, tag));
    // And about its own pixels.
    QVERIFY(tells(page, ImageWidth, 30));
    QVERIFY(tells(page, Compression, COMPRESSION_NONE));
    QVERIFY(tells(page, Photometric, PHOTOMETRIC_RGB));
    QVERIFY(!has_tag(page, SubIfds));
}

void tst_tiff_join::newPageKeepsItsOwnResolutionUnlessAskedOtherwise()
{
    const QString source = made(u"words"_s);
    const QString former = told_pages(source).at(1);
    const QString own = told_pages(newPage()).at(1);

    QVERIFY(replaceFirst(source, path(u"own.tif"_s), false));
    QVERIFY(replaceFirst(source, path(u"former.tif"_s), true));

    for (const int tag : {XResolution, ResolutionUnit}) {
        QVERIFY(tag_text(own, tag) != tag_text(former, tag));
        QCOMPARE(tag_text(told_pages(path(u"own.tif"_s)).at(1), tag), tag_text(own, tag));
        QCOMPARE(tag_text(told_pages(path(u"former.tif"_s)).at(1), tag), tag_text(former, tag));
    }
}

void tst_tiff_join::resolutionWithoutNumbersIsNotKept_data()
{
    QTest::addColumn<QByteArray>("vertical");

    QTest::newRow("nothing") << entry(YResolution, TIFF_RATIONAL, 8, 0);
    QTest::newRow("a text") << entry(YResolution, TIFF_ASCII, 8, 8);
}

void tst_tiff_join::resolutionWithoutNumbersIsNotKept()
{
    QFETCH(const QByteArray, vertical);
    const QByteArray horizontal = little32(300) + little32(1);
    write_file(path(u"former.tif"_s),
               tiff_of(horizontal,
                       {entry(ImageWidth, TIFF_SHORT, 1), entry(XResolution, TIFF_RATIONAL, 8), vertical,
                        entry(ResolutionUnit, TIFF_SHORT, RESUNIT_INCH)}));

    QVERIFY(replaceFirst(path(u"former.tif"_s), path(u"target.tif"_s), true));

    const QString own = told_pages(newPage()).at(1);
    for (const int tag : {XResolution, YResolution, ResolutionUnit})
        QCOMPARE(tag_text(told_pages(path(u"target.tif"_s)).at(1), tag), tag_text(own, tag));
}

void tst_tiff_join::smallerVersionsOfTheFormerPictureGoAndOtherPicturesBelowItStay()
{
    const QString source = made(u"words"_s);
    QVERIFY(replaceFirst(source, path(u"target.tif"_s)));

    const QStringList before = pictures_below(told_pages(source).at(1));
    const QStringList after = pictures_below(told_pages(path(u"target.tif"_s)).at(1));
    QCOMPARE(before.size(), 2);
    QCOMPARE(after, before.mid(1)); // the first is a thumbnail
}

void tst_tiff_join::narrowPagesComeIntoAFileOfAnotherByteOrderAndKind_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("isBigEndian");
    QTest::addColumn<bool>("isBigTiff");
    QTest::newRow("to the high byte first") << u"directories below"_s << true << false;
    QTest::newRow("to the low byte first") << u"directories below, big-endian"_s << false << false;
    QTest::newRow("to BigTIFF") << u"directories below"_s << false << true;
    QTest::newRow("to BigTIFF with the high byte first") << u"directories below"_s << true << true;
    QTest::newRow("strips") << u"fax"_s << true << true;
    QTest::newRow("tiles") << u"tiled"_s << true << true;
}

void tst_tiff_join::narrowPagesComeIntoAFileOfAnotherByteOrderAndKind()
{
    QFETCH(const QString, kind);
    QFETCH(const bool, isBigEndian);
    QFETCH(const bool, isBigTiff);
    const QString source = made(kind);
    const Opened file(source);
    QFile copy(path(u"copy.tif"_s));
    QVERIFY(copy.open(QIODevice::ReadWrite));
    const QStringList pages = told_pages(source).mid(1);

    TiffJoin join({.isBigEndian = isBigEndian, .isBigTiff = isBigTiff});
    QVERIFY(join.add(file.handle(), 0, static_cast<std::size_t>(pages.size())));
    QVERIFY(join.write(copy));

    QVERIFY(copy.flush());
    QCOMPARE(told_pages(copy.fileName()).mid(1), pages);
    QCOMPARE(
        told_pages(copy.fileName()).at(0),
        u"{\"order\": \"%1\", \"big\": %2}"_s.arg(isBigEndian ? u">"_s : u"<"_s, isBigTiff ? u"true"_s : u"false"_s));
    QCOMPARE(tiffinfo_warnings(copy.fileName()), tiffinfo_warnings(source));
}

void tst_tiff_join::widePagesAreNotBroughtToAnotherByteOrder()
{
    const Opened file(made(u"mixed"_s)); // its last page has 16 bits, as is

    QVERIFY(TiffJoin({.isBigEndian = false}).add(file.handle(), 0, 7));
    QVERIFY(TiffJoin({.isBigEndian = true}).add(file.handle(), 0, 1));
    QVERIFY(!TiffJoin({.isBigEndian = true}).add(file.handle(), 0, 7));
}

void tst_tiff_join::largePagesAreNotBroughtIntoASmallKindOfFile()
{
    const Opened file(made(u"BigTIFF"_s));

    QVERIFY(TiffJoin({.isBigTiff = true}).add(file.handle(), 0, 5));
    QVERIFY(!TiffJoin({.isBigTiff = false}).add(file.handle(), 0, 5));
}

void tst_tiff_join::placesOfShortNumbersGrow()
{
    // One page of 2 x 1 grey pixels whose strip's place is a number of 16 bits, behind others that take more.
    write_file(path(u"small.tif"_s),
               tiff_of("\x12\x34",
                       {entry(256, 3, 2), entry(257, 3, 1), entry(258, 3, 8), entry(273, 3, 8), entry(279, 3, 2)}));
    const Opened first(made(u"tiled"_s));
    const Opened second(path(u"small.tif"_s));
    QFile copy(path(u"copy.tif"_s));
    QVERIFY(copy.open(QIODevice::ReadWrite));

    TiffJoin join({});
    for (int i = 0; i < 20; ++i)
        QVERIFY(join.add(first.handle(), 0, 4));
    QVERIFY(join.add(second.handle(), 0, 1));
    QVERIFY(join.write(copy));

    QVERIFY(copy.flush());
    QVERIFY(copy.size() > 0x10000);
    QCOMPARE(told_pages(copy.fileName()).last(), told_pages(path(u"small.tif"_s)).last());
}

void tst_tiff_join::valuesOfManyBytesComeWhole()
{
    // Two strange values, each larger than what is written at once, behind the pixels of a page of 2 x 1.
    constexpr int count = 600'001;
    QByteArray value(count, '\0');
    for (int i = 0; i < count; ++i)
        value[i] = static_cast<char>(i % 251);
    write_file(path(u"long.tif"_s),
               tiff_of("\x12\x34" + value + value,
                       {entry(256, 3, 2), entry(257, 3, 1), entry(258, 3, 8), entry(273, 4, 8), entry(279, 3, 2),
                        entry(UnknownTag, 1, 10, count), entry(UnknownTag + 1, 1, 10 + count, count)}));
    const Opened page(path(u"long.tif"_s));
    QFile copy(path(u"copy.tif"_s));
    QVERIFY(copy.open(QIODevice::ReadWrite));

    TiffJoin join({});
    QVERIFY(join.add(page.handle(), 0, 1));
    QVERIFY(join.write(copy));

    QVERIFY(copy.flush());
    QCOMPARE(file_bytes(copy.fileName()).count(value), 2);
    QCOMPARE(told_pages(copy.fileName()), told_pages(path(u"long.tif"_s)));
}

QTEST_GUILESS_MAIN(tst_tiff_join)
#include "tst_tiff_join.moc"
