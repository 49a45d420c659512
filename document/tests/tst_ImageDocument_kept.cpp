// Pages behind the first of a TIFF: they stay in their file, and come along where it is saved.

#include "image_files.h"
#include "ImageDocument.h"
#include "pictures.h"
#include "process_limits.h"
#include "TemporaryHome.h"
#include "tiff_files.h"
#include "tiff_pages.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class tst_ImageDocument_kept : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void fileOfManyPagesIsCounted_data();
    void fileOfManyPagesIsCounted();
    void wordThatOpensEveryPageKeepsNone();
    void savedFirstPageLeavesAllOthersAsTheyWere_data();
    void savedFirstPageLeavesAllOthersAsTheyWere();
    void savingAgainAndAgainKeepsThePagesAndTheSize();
    void keptPagesComeAlongToAnotherName_data();
    void keptPagesComeAlongToAnotherName();
    void pageLookIsTheSameAsInAFileOfOnePage();
    void newPageHasTheResolutionOfTheFormerOneIfItHasNoneOfItsOwn();
    void otherFormatTakesTheFirstPageAlone();
    void severalOwnPagesGoThroughTheCodecUnderAnyTiffWord_data();
    void severalOwnPagesGoThroughTheCodecUnderAnyTiffWord();
    void keptPagesOfSeveralDocumentsStandBehindTheirOwn();
    void linkIsFollowedAndModeStays();
    void fileOfTwoNamesIsWrittenWhereItStands();
    void fullDiskLeavesTheFileAsItWasWithWords();
    void nothingIsLeftBehind();

private:
    [[nodiscard]] QString path(const QString &name) const { return directory->filePath(name); }
    /// A copy of a file of that kind, to be changed.
    [[nodiscard]] QString made(const QString &kind, const QString &name) const;

    QTemporaryDir kinds; ///< a file of each
    std::optional<TemporaryHome> home;
    std::optional<QTemporaryDir> directory;
};

void tst_ImageDocument_kept::initTestCase()
{
    QVERIFY(kinds.isValid());
    make_all_tiffs(kinds.path());
}

void tst_ImageDocument_kept::init()
{
    home.emplace();
    directory.emplace();
    QVERIFY(directory->isValid());
}

void tst_ImageDocument_kept::cleanup()
{
    directory.reset();
    home.reset();
}

QString tst_ImageDocument_kept::made(const QString &kind, const QString &name) const
{
    if (!QFile::copy(kinds.filePath(kind + ".tif"_L1), path(name)))
        qFatal("cannot copy a file");
    return path(name);
}

void tst_ImageDocument_kept::fileOfManyPagesIsCounted_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("word");
    QTest::addColumn<uint>("pictures");
    QTest::addColumn<bool>("keeps");

    QTest::newRow("by its content") << u"fax"_s << QString() << 20U << true;
    for (const QString &word : {u"tif"_s, u"TIF"_s, u"tiff"_s, u"Tiff"_s})
        QTest::newRow(qPrintable(word)) << u"fax"_s << word << 20U << true;
    QTest::newRow("one page") << u"one page"_s << QString() << 1U << false;
    QTest::newRow("BigTIFF") << u"BigTIFF"_s << QString() << 5U << true;
    QTest::newRow("pictures below do not count") << u"directories below"_s << QString() << 3U << true;
}

void tst_ImageDocument_kept::fileOfManyPagesIsCounted()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, word);

    const ImageDocument document(made(kind, u"a.tif"_s), word);

    QVERIFY(!document.isEmpty());
    QTEST(document.pictureCount(), "pictures");
    QTEST(document.hasKeptPages(), "keeps");
    QCOMPARE(document.pictureFileName(), u"a.tif"_s);
    QVERIFY(!document.wouldLosePictures(path(u"a.tif"_s), document.imgFormat()));
}

void tst_ImageDocument_kept::wordThatOpensEveryPageKeepsNone()
{
    QVERIFY(save_as_tiff(path(u"a.tif"_s), {patterned_page({30, 20}), patterned_page({20, 30})}));

    ImageDocument document(path(u"a.tif"_s), u"TIFF"_s);

    QCOMPARE(document.pageCount(), 2U);
    QCOMPARE(document.pictureCount(), 2U);
    QVERIFY(!document.hasKeptPages());
    QVERIFY(!document.wouldLosePictures(path(u"a.tif"_s), u"TIFF"_s));
    QVERIFY(document.save(path(u"a.tif"_s), u"TIFF"_s));
    QCOMPARE(told_pages(path(u"a.tif"_s)).size(), 3); // the file and two pages
}

void tst_ImageDocument_kept::savedFirstPageLeavesAllOthersAsTheyWere_data()
{
    QTest::addColumn<QString>("kind");
    for (const QString &kind : tiff_kinds())
        QTest::newRow(qPrintable(kind)) << kind;
}

void tst_ImageDocument_kept::savedFirstPageLeavesAllOthersAsTheyWere()
{
    QFETCH(const QString, kind);
    const QString file = made(kind, u"a.tif"_s);
    const QStringList before = told_pages(file);
    ImageDocument document(file, {});
    QVERIFY(document.invert(1));
    const QImage page = document.page(1);

    QVERIFY2(document.save(file, document.imgFormat()), qPrintable(document.lastError));

    QVERIFY(!document.isModified());
    const QStringList after = told_pages(file);
    QCOMPARE(after.size(), before.size());
    QCOMPARE(after.mid(2), before.mid(2));
    if (before.size() > 2)
        QCOMPARE(after.at(0), before.at(0)); // byte order and kind
    const ImageDocument reloaded(file, {});
    QVERIFY(compare_pictures(reloaded.page(1), page));
    QCOMPARE(reloaded.pictureCount(), static_cast<uint>(before.size() - 1));
}

void tst_ImageDocument_kept::savingAgainAndAgainKeepsThePagesAndTheSize()
{
    const QString file = made(u"fax"_s, u"a.tif"_s);
    const QStringList before = told_pages(file);
    ImageDocument document(file, {});
    QVERIFY(document.invert(1));
    QVERIFY(document.save(file, document.imgFormat()));
    const qint64 bytes = QFile(file).size();

    for (int i = 0; i < 5; ++i) {
        QVERIFY(document.invert(1));
        QVERIFY(!document.wouldLosePictures(file, document.imgFormat()));
        QVERIFY(document.save(file, document.imgFormat()));
    }

    QCOMPARE(QFile(file).size(), bytes);
    QCOMPARE(told_pages(file).mid(2), before.mid(2));
}

void tst_ImageDocument_kept::keptPagesComeAlongToAnotherName_data()
{
    QTest::addColumn<QString>("word");
    QTest::newRow("tif") << u"tif"_s;
    QTest::newRow("tiff") << u"tiff"_s;
    QTest::newRow("TIFF") << u"TIFF"_s;
}

void tst_ImageDocument_kept::keptPagesComeAlongToAnotherName()
{
    QFETCH(const QString, word);
    const QString file = made(u"colour LZW"_s, u"a.tif"_s);
    const QStringList before = told_pages(file);
    const QByteArray bytes = file_bytes(file);
    ImageDocument document(file, {});

    QVERIFY(document.save(path(u"b.tif"_s), word));

    QCOMPARE(file_bytes(file), bytes);
    QCOMPARE(told_pages(path(u"b.tif"_s)).mid(2), before.mid(2));
    QCOMPARE(document.filePath(), path(u"b.tif"_s));
    QCOMPARE(document.imgFormat(), word);
    QCOMPARE(document.pictureFileName(), u"b.tif"_s);
    // From now on they are the new file's: the former may go.
    QVERIFY(QFile::remove(file));
    QVERIFY(!document.wouldLosePictures(path(u"b.tif"_s), word));
    QVERIFY(document.invert(1));
    QVERIFY(document.save(path(u"b.tif"_s), word));
    QCOMPARE(told_pages(path(u"b.tif"_s)).mid(2), before.mid(2));
}

void tst_ImageDocument_kept::pageLookIsTheSameAsInAFileOfOnePage()
{
    // Tags about the pixels, and what lies in the strips, come from the same writer.
    ImageDocument many(made(u"two pages"_s, u"many.tif"_s), {});
    ImageDocument one(made(u"one page"_s, u"one.tif"_s), {});
    QVERIFY(one.setPage(1, many.page(1)));

    QVERIFY(many.save(path(u"many.tif"_s), u"tif"_s));
    QVERIFY(one.save(path(u"one.tif"_s), u"tif"_s));

    const QString manyPage = told_pages(path(u"many.tif"_s)).at(1);
    const QString onePage = told_pages(path(u"one.tif"_s)).at(1);
    for (const int tag : {256, 257, 258, 259, 262, 273, 277, 278, 279, 284})
        QCOMPARE(tag_text(manyPage, tag), tag_text(onePage, tag));
}

void tst_ImageDocument_kept::newPageHasTheResolutionOfTheFormerOneIfItHasNoneOfItsOwn()
{
    const QString file = made(u"words"_s, u"a.tif"_s); // 300 by 300 without a unit: the page has none
    const QString former = told_pages(file).at(1);
    ImageDocument document(file, {});
    QVERIFY(document.save(file, u"tif"_s));
    for (const int tag : {282, 283, 296})
        QCOMPARE(tag_text(told_pages(file).at(1), tag), tag_text(former, tag));

    document.page(1).setDotsPerMeterX(7874); // 200 dots per inch
    document.page(1).setDotsPerMeterY(7874);
    QVERIFY(document.save(file, u"tif"_s));

    QVERIFY(tag_text(told_pages(file).at(1), 282) != tag_text(former, 282));
    QCOMPARE(ImageDocument(file, {}).page(1).dotsPerMeterX(), 7874);
}

void tst_ImageDocument_kept::otherFormatTakesTheFirstPageAlone()
{
    const QString file = made(u"fax"_s, u"a.tif"_s);
    const QByteArray bytes = file_bytes(file);
    ImageDocument document(file, {});
    QVERIFY(!document.wouldLosePictures(path(u"a.png"_s), u"png"_s));

    QVERIFY(document.save(path(u"a.png"_s), u"png"_s));

    QCOMPARE(file_bytes(file), bytes);
    QVERIFY(!document.hasKeptPages());
    QCOMPARE(document.pictureCount(), 1U);
    QVERIFY(document.save(path(u"b.tif"_s), u"tif"_s));
    QCOMPARE(told_pages(path(u"b.tif"_s)).size(), 2); // the file and one page
}

void tst_ImageDocument_kept::severalOwnPagesGoThroughTheCodecUnderAnyTiffWord_data()
{
    QTest::addColumn<QString>("word");
    for (const QString &word : {u"tif"_s, u"TIF"_s, u"tiff"_s, u"Tiff"_s, u"TIFF"_s})
        QTest::newRow(qPrintable(word)) << word;
}

void tst_ImageDocument_kept::severalOwnPagesGoThroughTheCodecUnderAnyTiffWord()
{
    QFETCH(const QString, word);
    ImageDocument document({}, {});
    QVERIFY(document.addPage(patterned_page({30, 20})));
    QVERIFY(document.addPage(patterned_page({20, 30}, 8)));

    QVERIFY(document.save(path(u"a.tif"_s), word));

    QCOMPARE(document.imgFormat(), u"TIFF"_s);
    const ImageDocument reloaded(path(u"a.tif"_s), u"TIFF"_s);
    QCOMPARE(reloaded.pageCount(), 2U);
    QVERIFY(compare_pictures(reloaded.page(1), patterned_page({30, 20}).convertToFormat(QImage::Format_RGB32)));
}

void tst_ImageDocument_kept::keptPagesOfSeveralDocumentsStandBehindTheirOwn()
{
    // The high byte first, the low byte first, and a large file: the new one is the first's kind, and large.
    const ImageDocument first(made(u"directories below, big-endian"_s, u"1.tif"_s), {});
    const ImageDocument second(made(u"one page"_s, u"2.tif"_s), {});
    const ImageDocument third(made(u"BigTIFF"_s, u"3.tif"_s), {});
    ImageDocument merged({}, {});
    for (const ImageDocument *const document : {&first, &second, &third}) {
        QVERIFY(merged.addPage(document->page(1)));
        QVERIFY(merged.keepPagesOf(*document));
    }
    QVERIFY(!merged.wouldLosePictures(path(u"all.tif"_s), u"TIFF"_s));

    QVERIFY2(merged.save(path(u"all.tif"_s), u"TIFF"_s), qPrintable(merged.lastErrorReason));

    const QStringList pages = told_pages(path(u"all.tif"_s));
    QCOMPARE(pages.at(0), u"{\"order\": \">\", \"big\": true}"_s);
    QCOMPARE(pages.size(), 1 + 3 + 1 + 5);
    QCOMPARE(pages.mid(2, 2), told_pages(path(u"1.tif"_s)).mid(2));
    QCOMPARE(pages.mid(6, 4), told_pages(path(u"3.tif"_s)).mid(2));
    const ImageDocument reloaded(path(u"all.tif"_s), {});
    QVERIFY(compare_pictures(reloaded.page(1).convertToFormat(QImage::Format_RGB32),
                             first.page(1).convertToFormat(QImage::Format_RGB32)));
}

void tst_ImageDocument_kept::linkIsFollowedAndModeStays()
{
    const QString file = made(u"fax"_s, u"a.tif"_s);
    const QStringList before = told_pages(file);
    QCOMPARE(::chmod(QFile::encodeName(file).constData(), 0640), 0);
    QVERIFY(QFile::link(file, path(u"link.tif"_s)));
    ImageDocument document(path(u"link.tif"_s), {});
    QVERIFY(document.invert(1));

    QVERIFY(document.save(path(u"link.tif"_s), u"tif"_s));

    QVERIFY(QFileInfo(path(u"link.tif"_s)).isSymLink());
    QCOMPARE(told_pages(file).mid(2), before.mid(2));
    struct stat status = {};
    QCOMPARE(::stat(QFile::encodeName(file).constData(), &status), 0);
    QCOMPARE(status.st_mode & 07777, mode_t{0640});
    QVERIFY(!document.wouldLosePictures(path(u"link.tif"_s), u"tif"_s)); // it is theirs through the link too
}

void tst_ImageDocument_kept::fileOfTwoNamesIsWrittenWhereItStands()
{
    const QString file = made(u"fax"_s, u"a.tif"_s);
    const QString other = path(u"b.tif"_s);
    std::filesystem::create_hard_link(file.toStdString(), other.toStdString());
    const QStringList before = told_pages(file);
    ImageDocument document(file, {});
    QVERIFY(document.invert(1));

    QVERIFY2(document.save(file, document.imgFormat()), qPrintable(document.lastError));

    QVERIFY(std::filesystem::equivalent(file.toStdString(), other.toStdString()));
    QCOMPARE(told_pages(other).mid(2), before.mid(2));
    QCOMPARE(home->filesIn(u"tmp"_s), QStringList());
}

void tst_ImageDocument_kept::fullDiskLeavesTheFileAsItWasWithWords()
{
    const QString file = made(u"colour LZW"_s, u"a.tif"_s);
    const QByteArray bytes = file_bytes(file);
    ImageDocument document(file, {});
    QVERIFY(document.invert(1));

    {
        const FileSizeLimit limit(static_cast<rlim_t>(bytes.size() / 2));
        QVERIFY(!document.save(file, u"tif"_s));
    }

    QCOMPARE(document.lastError, u"File too large"_s);
    QVERIFY(document.isModified());
    QCOMPARE(file_bytes(file), bytes);
    QVERIFY(document.save(file, u"tif"_s)); // and nothing is forgotten
    QCOMPARE(ImageDocument(file, {}).pictureCount(), 20U);
}

void tst_ImageDocument_kept::nothingIsLeftBehind()
{
    const QString file = made(u"fax"_s, u"a.tif"_s);
    ImageDocument document(file, {});

    QVERIFY(document.save(file, u"tif"_s));
    QVERIFY(document.save(path(u"b.tif"_s), u"tif"_s));

    QCOMPARE(QDir(directory->path()).entryList(QDir::Files | QDir::Hidden), (QStringList{u"a.tif"_s, u"b.tif"_s}));
    QCOMPARE(home->filesIn(u"tmp"_s), QStringList());
}

QTEST_GUILESS_MAIN(tst_ImageDocument_kept)
#include "tst_ImageDocument_kept.moc"
