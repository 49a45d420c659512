#include "files.h"
#include "ImageManagerProgram.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

/// What the box of a file that will not load must say, answered with OK.
bool load_failed_box_comes(ImageManagerProgram &program)
{
    const MessageBox box = program.answer(u"OK"_s);
    return box.title == "Load failed"_L1 && box.text == "Error loading file"_L1 && box.buttons == QStringList(u"OK"_s);
}

/// Files in a place of their own, from names: "bad.bmp" is no picture, "missing.bmp" is not there, all others are good.
/// An option or an empty text stays what it is.
struct Files
{
    explicit Files(const QStringList &names)
    {
        for (const QString &name : names) {
            const bool isName = !name.isEmpty() && !name.startsWith(u'-');
            arguments.append(isName ? place.path(name) : name);
            if (!isName || name == "missing.bmp"_L1)
                continue;
            written.append(place.path(name));
            if (name == "bad.bmp"_L1)
                write_file(written.last(), "no picture");
            else
                (void)place.page(name);
        }
    }

    Place place;
    QStringList arguments;
    QStringList written;
};

/// Names of the image plug-ins that a process has loaded.
QStringList image_plugins(qint64 process)
{
    QStringList names;
    for (const QByteArray &line : file_bytes(u"/proc/%1/maps"_s.arg(process)).split('\n')) {
        const qsizetype start = line.indexOf("/imageformats/");
        const QString name = QString::fromLatin1(line.mid(line.lastIndexOf('/') + 1));
        if (start >= 0 && !names.contains(name))
            names.append(name);
    }
    return names;
}

} // namespace

/// From the command line to the tabs, and to the exit status where nothing opens.
class tst_startup : public QObject
{
    Q_OBJECT

private slots:
    void filesBecomeTabsInOrderAndTheLastIsCurrent()
    {
        const Place place;
        ImageManagerProgram program(place);

        QVERIFY(program.open({place.page(u"a.png"_s), place.page(u"b.bmp"_s), place.page(u"c.tiff"_s)}));

        QCOMPARE(program.tabTitles(), (QStringList{u"a.png"_s, u"b.bmp"_s, u"c.tiff"_s}));
        QTRY_COMPARE(program.currentTab(), u"c.tiff"_s);
    }

    void windowIsNamedImageManager()
    {
        const Place place;
        ImageManagerProgram program(place);
        QVERIFY(program.start({place.page(u"a.png"_s)}));

        const WindowId window = program.process().waitForWindow();

        QVERIFY(window != 0);
        QCOMPARE(program.desktop().title(window), u"Image Manager"_s);
    }

    void onlyThePluginOfItsFileIsLoaded_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("plugins");
        QTest::newRow("PNG") << u"a.png"_s << QStringList();
        QTest::newRow("JPEG") << u"a.jpg"_s << QStringList(u"libqjpeg.so"_s);
        QTest::newRow("TIFF") << u"a.tif"_s << QStringList(u"libqtiff.so"_s);
    }
    void onlyThePluginOfItsFileIsLoaded()
    {
        QFETCH(const QString, name);
        OpenProgram program(name);

        QTEST(image_plugins(program.process().processId()), "plugins");
    }

    void firstStartIs335By564()
    {
        OpenProgram program(u"a.png"_s);

        QCOMPARE(program.desktop().geometry(program.window()).size(), QSize(335, 564));
    }

    void relativePathOpensAndCountsAsNeverSaved()
    {
        const Place place;
        ImageManagerProgram program(place);
        program.process().setWorkingDirectory(QFileInfo(place.page(u"a.png"_s)).path());

        QVERIFY(program.open({u"./a.png"_s}));

        QTRY_COMPARE(program.tabTitles(), QStringList(u"a.png*"_s));
    }

    void pipeInPlaceOfTheSettingsStopsNoStart()
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

    void startOpensWhatItCan_data()
    {
        QTest::addColumn<QStringList>("arguments"); // as Files understands them
        QTest::addColumn<int>("boxes");
        QTest::addColumn<QStringList>("tabs");
        QTest::addColumn<QString>("deleted");

        const auto row = [](const char *name, const QStringList &arguments, int boxes, const QStringList &tabs,
                            const QString &deleted = {}) {
            QTest::newRow(name) << arguments << boxes << tabs << deleted;
        };
        const QString a = u"a.bmp"_s;
        const QString b = u"b.bmp"_s;
        const QString c = u"c.bmp"_s;
        row("same file twice", {a, a}, 0, {a, a});
        row("name beyond ASCII", {u"Prüfung 頁 одна.bmp"_s}, 0, {u"Prüfung 頁 одна.bmp"_s});
        row("a bad file before a good one", {u"missing.bmp"_s, a}, 1, {a});
        row("empty arguments, which disappear", {QString(), a, QString()}, 0, {a});
        row("temporary file", {u"-t"_s, a, b}, 0, {u"Untitled*"_s, b}, a);
        row("temporary file that cannot be read", {u"-t"_s, u"bad.bmp"_s, b}, 1, {b}, u"bad.bmp"_s);
        row("temporary option at the end, which is a file that fails", {a, u"-t"_s}, 1, {a});
        row("temporary option in capitals, which is a file that fails", {u"-T"_s, a}, 1, {a});
        row("number of the untitled one counts every load", {a, b, u"-t"_s, c}, 0, {a, b, u"Untitled3*"_s}, c);
        row("number of the untitled one counts failed loads", {a, u"missing.bmp"_s, u"-t"_s, c}, 1,
            {a, u"Untitled3*"_s}, c);
    }

    void startOpensWhatItCan()
    {
        QFETCH(const QStringList, arguments);
        QFETCH(const int, boxes);
        QFETCH(const QStringList, tabs);
        QFETCH(const QString, deleted);
        const Files files(arguments);
        ImageManagerProgram program(files.place);

        QVERIFY(program.start(files.arguments));

        for (int i = 0; i < boxes; ++i)
            QVERIFY(load_failed_box_comes(program));
        QTRY_COMPARE_WITH_TIMEOUT(program.tabTitles(), tabs, Program::patienceMs);
        QVERIFY(program.application().find(Accessible::Role::Dialog).isNull());
        for (const QString &path : files.written)
            QCOMPARE(QFile::exists(path), QFileInfo(path).fileName() != deleted);
    }

    void startThatOpensNothingEndsWithStatus0_data()
    {
        QTest::addColumn<QStringList>("arguments"); // as Files understands them
        QTest::addColumn<int>("boxes");

        QTest::newRow("no arguments") << QStringList() << 0;
        QTest::newRow("empty arguments") << QStringList{QString(), QString()} << 0;
        QTest::newRow("bad files") << QStringList{u"missing.bmp"_s, u"bad.bmp"_s} << 2;
        QTest::newRow("a path with a colon, which fails twice") << QStringList{u"12:30.bmp"_s} << 2;
    }

    void startThatOpensNothingEndsWithStatus0()
    {
        QFETCH(const QStringList, arguments);
        QFETCH(const int, boxes);
        const Files files(arguments);
        ImageManagerProgram program(files.place);

        QVERIFY(program.start(files.arguments));

        for (int i = 0; i < boxes; ++i) {
            QVERIFY(program.process().isRunning());
            QVERIFY(load_failed_box_comes(program));
        }
        QCOMPARE(program.process().waitForExit(), 0);
    }

    void temporaryOptionAloneIsAFileThatFails()
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

    void colonSplitsAnArgumentIntoTwoFiles()
    {
        const Place place;
        ImageManagerProgram program(place);

        QVERIFY(program.start({place.page(u"a.bmp"_s) + u':' + place.page(u"b.bmp"_s)}));

        QTRY_COMPARE_WITH_TIMEOUT(program.tabTitles(), (QStringList{u"a.bmp"_s, u"b.bmp"_s}), Program::patienceMs);
    }

    void withoutDisplayOneLineTellsWhy_data()
    {
        QTest::addColumn<QString>("display");

        QTest::newRow("DISPLAY is not set") << QString();
        QTest::newRow("no server behind DISPLAY") << u":99999"_s;
        QTest::newRow("DISPLAY makes no sense") << u"nonsense"_s;
    }

    void withoutDisplayOneLineTellsWhy()
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

    void displayOfTheCommandLineCounts()
    {
        const Place place;
        ImageManagerProgram program(place);

        QVERIFY(program.start({u"-display"_s, u":99999"_s, place.page(u"a.bmp"_s)}));

        QCOMPARE(program.process().waitForExit(), 1);
        QCOMPARE(program.process().errors(),
                 u"imagemanager: cannot reach an X server; set DISPLAY or use -display\n"_s);
    }
};

QTEST_GUILESS_MAIN(tst_startup)
#include "tst_startup.moc"
