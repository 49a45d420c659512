#include "file_dialogs.h"
#include "FileDialogUser.h"

#include "DiagnosticLines.h"
#include "dialog_data.h"
#include "NextBox.h"
#include "TemporaryHome.h"
#include "tiff_world.h"

#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString graphicStart = u"All graphic files ("_s;

/// What the caller gets.
struct Answer
{
    bool bChosen = false;
    QString path = u"untouched"_s;
    QString format = u"untouched"_s;
};

/// What the dialog shows at first.
struct Offer
{
    QString filter;
    QStringList filters;
    QString directory;
};

Offer offer()
{
    Offer shown;
    const FileDialogUser user([&shown](const FileDialogUser &at) {
        shown = {at.filter(), at.dialog().nameFilters(), at.dialog().directory().path()};
        at.cancel();
    });
    QString path;
    QString format;
    if (open_file_dialog(path, format, nullptr))
        qFatal("a cancelled dialog was accepted");
    return shown;
}

/// Opens the dialog and types one existing name, under a filter unless it is empty.
Answer openByName(const QString &name, const QString &filter = {})
{
    const FileDialogUser user([&](const FileDialogUser &at) {
        if (!filter.isEmpty())
            at.chooseFilter(filter);
        at.type(name);
        at.pressReturn();
    });
    Answer answer;
    answer.bChosen = open_file_dialog(answer.path, answer.format, nullptr);
    return answer;
}

} // namespace

class tst_open_file_dialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void showsAListAtHomeUnderItsTitle();
    void startsAtHomeEachTime();
    void offersReadableFormatsThenGraphicThenAllFiles();
    void offersTiffOnlyIfTheToolkitReadsIt();
    void proposesAllGraphicFilesWithEverySuffix();

    void cancelIsSilentAndFalse();
    void fileOnTheListIsTakenByTheButton();
    void answersTheAbsolutePath_data();
    void answersTheAbsolutePath();
    void nameThatDoesNotExistKeepsTheDialogOpen_data();
    void nameThatDoesNotExistKeepsTheDialogOpen();
    void acceptingWithoutANameIsFalse();

    void filterDecidesTheFormatWhateverTheNameSays();
    void keyOfTiffIsSpeltAsTheToolkitSpellsIt();
    void nameDecidesTheFormatUnderAllGraphicFiles_data();
    void nameDecidesTheFormatUnderAllGraphicFiles();
    void nameDecidesTheFormatUnderAllFiles();
    void nameThatEndsInADotHasNoFormat_data();
    void nameThatEndsInADotHasNoFormat();
    void pathWithoutADotIsItsOwnFormat();
    void dotOfADirectoryCountsForTheFormat();
    void filterThatIsNoneOfOursHasNoFormat();

    void choosingAFilterRewritesTheName_data();
    void choosingAFilterRewritesTheName();
};

void tst_open_file_dialog::initTestCase()
{
    QCOMPARE(tiff_plugin_present(), tiff_plugin_expected());
}

void tst_open_file_dialog::showsAListAtHomeUnderItsTitle()
{
    const TemporaryHome home;
    const FileDialogUser user([&home](const FileDialogUser &at) {
        QCOMPARE(at.dialog().windowTitle(), u"Open File"_s);
        QCOMPARE(at.dialog().viewMode(), QFileDialog::List);
        QCOMPARE(at.dialog().fileMode(), QFileDialog::ExistingFile);
        QCOMPARE(at.dialog().acceptMode(), QFileDialog::AcceptOpen);
        QCOMPARE(at.dialog().directory().path(), home.path());
        QCOMPARE(at.name(), QString());
        at.cancel();
    });

    QString path = u"/usr/share/given.png"_s;
    QString format = u"png"_s;
    QVERIFY(!open_file_dialog(path, format, nullptr));
}

void tst_open_file_dialog::startsAtHomeEachTime()
{
    const TemporaryHome home;
    const QTemporaryDir elsewhere;
    make_file(elsewhere.filePath(u"scan.png"_s));
    QVERIFY(openByName(elsewhere.filePath(u"scan.png"_s)).bChosen);

    QCOMPARE(offer().directory, home.path());
}

void tst_open_file_dialog::offersReadableFormatsThenGraphicThenAllFiles()
{
    const TemporaryHome home;

    const QStringList filters = offer().filters;

    QCOMPARE(filters.size(), readableImageFormats().size() + 2);
    for (qsizetype i = 0; i < readableImageFormats().size(); ++i)
        QCOMPARE(filters.at(i), filter_text(readableImageFormats().at(i)));
    QVERIFY(filters.at(filters.size() - 2).startsWith(graphicStart));
    QCOMPARE(filters.last(), allFilter);
}

void tst_open_file_dialog::offersTiffOnlyIfTheToolkitReadsIt()
{
    const TemporaryHome home;

    const QStringList filters = offer().filters;

    QCOMPARE(filters.contains(tiffFilter), tiff_plugin_expected());
    const auto namesTiff = [](const QString &filter) { return filter.contains("*.tif"_L1); };
    // Its own filter and that of all graphic files.
    QCOMPARE(std::ranges::count_if(filters, namesTiff), tiff_plugin_expected() ? 2 : 0);
}

void tst_open_file_dialog::proposesAllGraphicFilesWithEverySuffix()
{
    const TemporaryHome home;

    const QString filter = offer().filter;

    QVERIFY(filter.startsWith(graphicStart));
    QStringList patterns = filter.sliced(graphicStart.size()).chopped(1).split(u' ');
    for (const ImageFormat &readable : readableImageFormats()) {
        for (const QString &suffix : readable.exts)
            QCOMPARE(patterns.takeFirst(), QString("*."_L1 + suffix));
    }
    QCOMPARE(patterns, QStringList());
}

void tst_open_file_dialog::cancelIsSilentAndFalse()
{
    const TemporaryHome home;
    const DiagnosticLines lines;
    const FileDialogUser user([](const FileDialogUser &at) { at.cancel(); });

    QString path;
    QString format;
    QVERIFY(!open_file_dialog(path, format, nullptr));

    QCOMPARE(lines.lines(), QStringList());
}

void tst_open_file_dialog::fileOnTheListIsTakenByTheButton()
{
    const TemporaryHome home;
    make_file(home.filePath(u"scan.png"_s));
    const FileDialogUser user([](const FileDialogUser &at) {
        at.type(u"scan.png"_s);
        at.accept();
    });

    QString path;
    QString format;
    QVERIFY(open_file_dialog(path, format, nullptr));

    QCOMPARE(path, home.filePath(u"scan.png"_s));
}

void tst_open_file_dialog::answersTheAbsolutePath_data()
{
    add_name_rows();
}

void tst_open_file_dialog::answersTheAbsolutePath()
{
    QFETCH(const QString, name);
    const TemporaryHome home;
    make_file(home.filePath(name));

    const Answer answer = openByName(name);

    QVERIFY(answer.bChosen);
    QCOMPARE(answer.path, QString(home.path() + u'/' + name));
    QCOMPARE(answer.format, u"png"_s);
}

void tst_open_file_dialog::nameThatDoesNotExistKeepsTheDialogOpen_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << u"missing.png"_s;
    QTest::newRow("quotation marks") << u"\"missing\".png"_s;
}

void tst_open_file_dialog::nameThatDoesNotExistKeepsTheDialogOpen()
{
    QFETCH(const QString, name);
    const TemporaryHome home;
    const FileDialogUser user([&name](const FileDialogUser &at) {
        const NextBox box = answerNextBox(QMessageBox::Ok);
        at.type(name);
        at.pressReturn();
        QVERIFY(at.isOpen());
        at.cancel();
    });

    QString path;
    QString format;
    QVERIFY(!open_file_dialog(path, format, nullptr));
}

void tst_open_file_dialog::acceptingWithoutANameIsFalse()
{
    const TemporaryHome home;
    DiagnosticLines lines;
    lines.expect(u"open_file_dialog - no name selected"_s);
    // Its button is off as long as there is no name.
    const FileDialogUser user([](const FileDialogUser &at) { at.forceAccept(); });

    QString path = u"untouched"_s;
    QString format = u"untouched"_s;
    QVERIFY(!open_file_dialog(path, format, nullptr));

    QCOMPARE(path, QString());
    QCOMPARE(format, u"untouched"_s);
}

void tst_open_file_dialog::filterDecidesTheFormatWhateverTheNameSays()
{
    const TemporaryHome home;
    make_file(home.filePath(u"scan.png"_s));

    const Answer answer = openByName(u"scan.png"_s, jpegFilter);

    QVERIFY(answer.bChosen);
    QCOMPARE(answer.path, home.filePath(u"scan.png"_s));
    QCOMPARE(answer.format, u"jpeg"_s);
}

void tst_open_file_dialog::keyOfTiffIsSpeltAsTheToolkitSpellsIt()
{
    const TemporaryHome home;
    make_file(home.filePath(u"scan.tiff"_s));

    const Answer answer = openByName(u"scan.tiff"_s, tiff_plugin_expected() ? tiffFilter : allFilter);

    QVERIFY(answer.bChosen);
    // Without a row of its own the file's suffix is all there is to go by.
    QCOMPARE(answer.format, tiff_plugin_expected() ? u"tif"_s : u"tiff"_s);
}

void tst_open_file_dialog::nameDecidesTheFormatUnderAllGraphicFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("format");
    QTest::newRow("small letters") << u"scan.png"_s << u"png"_s;
    QTest::newRow("capitals") << u"scan.TIF"_s << u"TIF"_s;
    QTest::newRow("last of several") << u"scan.2007.jpeg"_s << u"jpeg"_s;
    QTest::newRow("unknown suffix") << u"scan.txt"_s << u"txt"_s;
}

void tst_open_file_dialog::nameDecidesTheFormatUnderAllGraphicFiles()
{
    QFETCH(const QString, name);
    QFETCH(const QString, format);
    const TemporaryHome home;
    make_file(home.filePath(name));

    const Answer answer = openByName(name);

    QVERIFY(answer.bChosen);
    QCOMPARE(answer.format, format);
}

void tst_open_file_dialog::nameDecidesTheFormatUnderAllFiles()
{
    const TemporaryHome home;
    make_file(home.filePath(u"scan.TIF"_s));

    const Answer answer = openByName(u"scan.TIF"_s, allFilter);

    QVERIFY(answer.bChosen);
    QCOMPARE(answer.format, u"TIF"_s);
}

void tst_open_file_dialog::nameThatEndsInADotHasNoFormat_data()
{
    QTest::addColumn<QString>("filter");
    QTest::newRow("all graphic files") << QString();
    QTest::newRow("all files") << allFilter;
}

void tst_open_file_dialog::nameThatEndsInADotHasNoFormat()
{
    QFETCH(const QString, filter);
    const TemporaryHome home;
    make_file(home.filePath(u"scan."_s));
    DiagnosticLines lines;
    lines.expect(u"open_file_dialog - incorrect file type selected!"_s);

    const Answer answer = openByName(u"scan."_s, filter);

    QVERIFY(!answer.bChosen);
    QCOMPARE(answer.path, home.filePath(u"scan."_s));
    QCOMPARE(answer.format, QString());
}

void tst_open_file_dialog::pathWithoutADotIsItsOwnFormat()
{
    const TemporaryHome home;
    // A test's own directory may have a dot in its path, so this one lies at the top.
    const QTemporaryDir plain(u"/tmp/open-file-dialog-XXXXXX"_s);
    const QString path = plain.filePath(u"README"_s);
    QVERIFY(!path.contains(u'.'));
    make_file(path);

    const Answer answer = openByName(path, allFilter);

    QVERIFY(answer.bChosen);
    QCOMPARE(answer.path, path);
    QCOMPARE(answer.format, path);
}

void tst_open_file_dialog::dotOfADirectoryCountsForTheFormat()
{
    const TemporaryHome home;
    QVERIFY(QDir(home.path()).mkdir(u"scans.old"_s));
    make_file(home.filePath(u"scans.old/README"_s));

    const Answer answer = openByName(u"scans.old/README"_s);

    QVERIFY(answer.bChosen);
    QCOMPARE(answer.format, u"old/README"_s);
}

void tst_open_file_dialog::filterThatIsNoneOfOursHasNoFormat()
{
    const TemporaryHome home;
    make_file(home.filePath(u"scan.png"_s));
    DiagnosticLines lines;
    lines.expect(u"open_file_dialog - incorrect file type selected!"_s);
    const FileDialogUser user([](const FileDialogUser &at) {
        at.dialog().setNameFilter(u"Others (*.png)"_s);
        at.type(u"scan.png"_s);
        at.accept();
    });

    QString path;
    QString format = u"untouched"_s;
    QVERIFY(!open_file_dialog(path, format, nullptr));

    QCOMPARE(format, QString());
}

void tst_open_file_dialog::choosingAFilterRewritesTheName_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("name");
    QTest::newRow("one format") << jpegFilter << u"a.b.jpg"_s;
    QTest::newRow("all files, whose suffix is an asterisk") << allFilter << u"a.b.*"_s;
}

void tst_open_file_dialog::choosingAFilterRewritesTheName()
{
    QFETCH(const QString, filter);
    QFETCH(const QString, name);
    const TemporaryHome home;
    const FileDialogUser user([&](const FileDialogUser &at) {
        at.type(u"a.b.c"_s);
        at.chooseFilter(filter);
        QCOMPARE(at.name(), name);
        at.cancel();
    });

    QString path;
    QString format;
    QVERIFY(!open_file_dialog(path, format, nullptr));
}

QTEST_MAIN(tst_open_file_dialog)
#include "tst_open_file_dialog.moc"
