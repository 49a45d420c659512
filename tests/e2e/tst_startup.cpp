#include "files.h"
#include "ImageManagerProgram.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

/// From the command line to the tabs, and to the exit status where nothing opens.
class tst_startup : public QObject
{
    Q_OBJECT

private slots:
    void filesBecomeTabsInOrderAndTheLastIsCurrent();
    void windowIsNamedImageManager();
    void firstStartIs335By564();
    void startWithoutFilesEndsWithStatus0();
    void sameFileTwiceGivesTwoTabs();
    void utf8NamesOpen();
    void relativePathOpensAndCountsAsNeverSaved();
    void pipeInPlaceOfTheSettingsStopsNoStart();

    void onlyBadFilesGiveABoxEachAndStatus0();
    void badFirstFileKeepsTheProgramUpIfALaterOneOpens();

    void temporaryFileBecomesUntitledAndIsDeleted();
    void temporaryOptionAloneIsAFileThatFails();
    void temporaryOptionAtTheEndIsAFileThatFails();
    void temporaryOptionIsCaseSensitive();
    void unreadableTemporaryFileIsDeletedAllTheSame();
    void untitledNumberCountsEveryLoad();
    void untitledNumberCountsFailedLoads();

    void colonSplitsAnArgumentIntoTwoFiles();
    void pathWithAColonFailsTwice();
    void emptyArgumentDisappears();
    void onlyEmptyArgumentsEndWithStatus0();

    void withoutDisplayOneLineTellsWhy_data();
    void withoutDisplayOneLineTellsWhy();
    void displayOfTheCommandLineCounts();
};

namespace {

/// What the box of a file that will not load must say, answered with OK.
bool load_failed_box_comes(ImageManagerProgram &program)
{
    const MessageBox box = program.answer(u"OK"_s);
    return box.title == "Load failed"_L1 && box.text == "Error loading file"_L1 && box.buttons == QStringList(u"OK"_s);
}

} // namespace

void tst_startup::filesBecomeTabsInOrderAndTheLastIsCurrent()
{
    const Place place;
    ImageManagerProgram program(place);

    QVERIFY(program.open({place.page(u"a.png"_s), place.page(u"b.bmp"_s), place.page(u"c.tiff"_s)}));

    QCOMPARE(program.tabTitles(), (QStringList{u"a.png"_s, u"b.bmp"_s, u"c.tiff"_s}));
    QTRY_COMPARE(program.currentTab(), u"c.tiff"_s);
}

void tst_startup::windowIsNamedImageManager()
{
    const Place place;
    ImageManagerProgram program(place);
    QVERIFY(program.start({place.page(u"a.png"_s)}));

    const WindowId window = program.process().waitForWindow();

    QVERIFY(window != 0);
    QCOMPARE(program.desktop().title(window), u"Image Manager"_s);
}

void tst_startup::firstStartIs335By564()
{
    const Place place;
    ImageManagerProgram program(place);

    QVERIFY(program.open({place.page(u"a.png"_s)}));

    QCOMPARE(program.desktop().geometry(program.window()).size(), QSize(335, 564));
}

void tst_startup::startWithoutFilesEndsWithStatus0()
{
    const Place place;
    ImageManagerProgram program(place);

    QVERIFY(program.start({}));

    QCOMPARE(program.process().waitForExit(), 0);
}

void tst_startup::sameFileTwiceGivesTwoTabs()
{
    const Place place;
    ImageManagerProgram program(place);
    const QString path = place.page(u"a.png"_s);

    QVERIFY(program.open({path, path}));

    QCOMPARE(program.tabTitles(), (QStringList{u"a.png"_s, u"a.png"_s}));
}

void tst_startup::utf8NamesOpen()
{
    const Place place;
    ImageManagerProgram program(place);

    QVERIFY(program.open({place.page(u"Prüfung 頁 одна.png"_s)}));

    QCOMPARE(program.tabTitles(), QStringList(u"Prüfung 頁 одна.png"_s));
}

void tst_startup::relativePathOpensAndCountsAsNeverSaved()
{
    const Place place;
    ImageManagerProgram program(place);
    program.process().setWorkingDirectory(QFileInfo(place.page(u"a.png"_s)).path());

    QVERIFY(program.open({u"./a.png"_s}));

    QTRY_COMPARE(program.tabTitles(), QStringList(u"a.png*"_s));
}

void tst_startup::pipeInPlaceOfTheSettingsStopsNoStart()
{
    const Place place;
    const QDir home(place.home());
    QVERIFY(home.mkpath(u".config/Unknown Organization"_s));
    const QString pipe = home.filePath(u".config/Unknown Organization/imagemanager.conf"_s);
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    ImageManagerProgram program(place);

    QVERIFY(program.open({place.page(u"a.png"_s)}));

    QCOMPARE(program.tabTitles(), QStringList{u"a.png"_s});
    QCOMPARE(program.close(), 0);
}

void tst_startup::onlyBadFilesGiveABoxEachAndStatus0()
{
    const Place place;
    ImageManagerProgram program(place);
    write_file(place.path(u"bad.png"_s), "no picture");

    QVERIFY(program.start({place.path(u"missing.png"_s), place.path(u"bad.png"_s)}));

    QVERIFY(load_failed_box_comes(program));
    QVERIFY(program.process().isRunning());
    QVERIFY(load_failed_box_comes(program));
    QCOMPARE(program.process().waitForExit(), 0);
}

void tst_startup::badFirstFileKeepsTheProgramUpIfALaterOneOpens()
{
    const Place place;
    ImageManagerProgram program(place);

    QVERIFY(program.start({place.path(u"missing.png"_s), place.page(u"good.png"_s)}));

    QVERIFY(load_failed_box_comes(program));
    QTRY_COMPARE_WITH_TIMEOUT(program.tabTitles(), QStringList(u"good.png"_s), Program::patienceMs);
    QCOMPARE(program.close(), 0);
}

void tst_startup::temporaryFileBecomesUntitledAndIsDeleted()
{
    const Place place;
    ImageManagerProgram program(place);
    const QString temporary = place.page(u"a.bmp"_s);
    const QString kept = place.page(u"b.bmp"_s);

    QVERIFY(program.start({u"-t"_s, temporary, kept}));

    QTRY_COMPARE_WITH_TIMEOUT(program.tabTitles(), (QStringList{u"Untitled*"_s, u"b.bmp"_s}), Program::patienceMs);
    QVERIFY(!QFile::exists(temporary));
    QVERIFY(QFile::exists(kept));
}

void tst_startup::temporaryOptionAloneIsAFileThatFails()
{
    const Place place;
    const QString path = place.path(u"-t"_s);
    write_file(path, "no picture");
    const QDir directory = QFileInfo(path).dir();
    ImageManagerProgram program(place);
    program.process().setWorkingDirectory(directory.path());

    QVERIFY(program.start({u"-t"_s}));

    QVERIFY(load_failed_box_comes(program));
    QCOMPARE(program.process().waitForExit(), 0);
    QCOMPARE(directory.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList(u"-t"_s));
    QCOMPARE(file_bytes(path), "no picture"_ba);
}

void tst_startup::temporaryOptionAtTheEndIsAFileThatFails()
{
    const Place place;
    ImageManagerProgram program(place);
    const QString path = place.page(u"a.bmp"_s);

    QVERIFY(program.start({path, u"-t"_s}));

    QVERIFY(load_failed_box_comes(program));
    QTRY_COMPARE_WITH_TIMEOUT(program.tabTitles(), QStringList(u"a.bmp"_s), Program::patienceMs);
    QVERIFY(program.process().isRunning());
    QVERIFY(QFile::exists(path));
}

void tst_startup::temporaryOptionIsCaseSensitive()
{
    const Place place;
    ImageManagerProgram program(place);
    const QString path = place.page(u"a.bmp"_s);

    QVERIFY(program.start({u"-T"_s, path}));

    QVERIFY(load_failed_box_comes(program));
    QTRY_COMPARE_WITH_TIMEOUT(program.tabTitles(), QStringList(u"a.bmp"_s), Program::patienceMs);
    QVERIFY(QFile::exists(path));
}

void tst_startup::unreadableTemporaryFileIsDeletedAllTheSame()
{
    const Place place;
    ImageManagerProgram program(place);
    const QString temporary = place.path(u"scan.bmp"_s);
    write_file(temporary, "no picture");

    QVERIFY(program.start({u"-t"_s, temporary, place.page(u"b.bmp"_s)}));

    QVERIFY(load_failed_box_comes(program));
    QTRY_COMPARE_WITH_TIMEOUT(program.tabTitles(), QStringList(u"b.bmp"_s), Program::patienceMs);
    QVERIFY(!QFile::exists(temporary));
}

void tst_startup::untitledNumberCountsEveryLoad()
{
    const Place place;
    ImageManagerProgram program(place);

    QVERIFY(program.start({place.page(u"a.bmp"_s), place.page(u"b.bmp"_s), u"-t"_s, place.page(u"c.bmp"_s)}));

    QTRY_COMPARE_WITH_TIMEOUT(program.tabTitles(), (QStringList{u"a.bmp"_s, u"b.bmp"_s, u"Untitled3*"_s}),
                              Program::patienceMs);
}

void tst_startup::untitledNumberCountsFailedLoads()
{
    const Place place;
    ImageManagerProgram program(place);

    QVERIFY(program.start({place.page(u"a.bmp"_s), place.path(u"missing.bmp"_s), u"-t"_s, place.page(u"c.bmp"_s)}));

    QVERIFY(load_failed_box_comes(program));
    QTRY_COMPARE_WITH_TIMEOUT(program.tabTitles(), (QStringList{u"a.bmp"_s, u"Untitled3*"_s}), Program::patienceMs);
}

void tst_startup::colonSplitsAnArgumentIntoTwoFiles()
{
    const Place place;
    ImageManagerProgram program(place);

    QVERIFY(program.start({place.page(u"a.bmp"_s) + u':' + place.page(u"b.bmp"_s)}));

    QTRY_COMPARE_WITH_TIMEOUT(program.tabTitles(), (QStringList{u"a.bmp"_s, u"b.bmp"_s}), Program::patienceMs);
}

void tst_startup::pathWithAColonFailsTwice()
{
    const Place place;
    ImageManagerProgram program(place);

    QVERIFY(program.start({place.page(u"12:30.bmp"_s)}));

    QVERIFY(load_failed_box_comes(program));
    QVERIFY(load_failed_box_comes(program));
    QCOMPARE(program.process().waitForExit(), 0);
}

void tst_startup::emptyArgumentDisappears()
{
    const Place place;
    ImageManagerProgram program(place);

    QVERIFY(program.start({QString(), place.page(u"a.bmp"_s), QString()}));

    QTRY_COMPARE_WITH_TIMEOUT(program.tabTitles(), QStringList(u"a.bmp"_s), Program::patienceMs);
    QCOMPARE(program.close(), 0); // no box stands in the way
}

void tst_startup::onlyEmptyArgumentsEndWithStatus0()
{
    const Place place;
    ImageManagerProgram program(place);

    QVERIFY(program.start({QString(), QString()}));

    QCOMPARE(program.process().waitForExit(), 0);
}

void tst_startup::withoutDisplayOneLineTellsWhy_data()
{
    QTest::addColumn<QString>("display");

    QTest::newRow("DISPLAY is not set") << QString();
    QTest::newRow("no server behind DISPLAY") << u":99999"_s;
    QTest::newRow("DISPLAY makes no sense") << u"nonsense"_s;
}

void tst_startup::withoutDisplayOneLineTellsWhy()
{
    QFETCH(const QString, display);
    const Place place;
    ImageManagerProgram program(place);
    if (display.isNull())
        program.process().unsetEnvironment(u"DISPLAY"_s);
    else
        program.process().setEnvironment(u"DISPLAY"_s, display);

    QVERIFY(program.start({place.page(u"a.bmp"_s)}));

    const std::optional<int> status = program.process().waitForExit();
    QVERIFY2(status.has_value(), "it crashed");
    QVERIFY(*status != 0);
    const QString errors = program.process().errors();
    QCOMPARE(errors.count(u'\n'), 1);
    QVERIFY2(errors.contains("DISPLAY"_L1), qPrintable(errors));
}

void tst_startup::displayOfTheCommandLineCounts()
{
    const Place place;
    ImageManagerProgram program(place);

    QVERIFY(program.start({u"-display"_s, u":99999"_s, place.page(u"a.bmp"_s)}));

    QCOMPARE(program.process().waitForExit(), 1);
    QCOMPARE(program.process().errors(), u"imagemanager: cannot reach an X server; set DISPLAY or use -display\n"_s);
}

QTEST_GUILESS_MAIN(tst_startup)
#include "tst_startup.moc"
