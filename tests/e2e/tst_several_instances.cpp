#include "files.h"
#include "ImageManagerProgram.h"
#include "pictures.h"
#include "SingleInstanceTest.h"
#include "XPeer.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <array>
#include <csignal>
#include <memory>
#include <vector>

#include <grp.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;
using State = Accessible::State;

namespace {

constexpr auto Executable = IM_PROGRAM;
constexpr uid_t Nobody = 65534;

/// A home that belongs to another user, where that user can get at it: the directories of the tests are private.
class HomeOfNobody
{
public:
    HomeOfNobody()
    {
        if (::chown(QFile::encodeName(directory.path()), Nobody, Nobody) != 0)
            qFatal("no home for another user");
    }

    [[nodiscard]] QString page(const QString &name) const
    {
        QString path = directory.filePath(name);
        if (!patterned_page({40, 30}).save(path) || ::chown(QFile::encodeName(path), Nobody, Nobody) != 0)
            qFatal("no page for another user");
        return path;
    }

    /// Starts the program under test as the other user.
    void start(QProcess &process, const QStringList &arguments) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const QString &name : {u"HOME"_s, u"TMPDIR"_s, u"XDG_RUNTIME_DIR"_s})
            environment.insert(name, directory.path());
        environment.remove(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s);
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(directory.path());
        process.setStandardErrorFile(QProcess::nullDevice());
        process.setChildProcessModifier([] {
            if (::setgroups(0, nullptr) != 0 || ::setgid(Nobody) != 0 || ::setuid(Nobody) != 0)
                ::_exit(1);
        });
        process.start(QString::fromLatin1(Executable), arguments);
    }

private:
    QTemporaryDir directory{u"/tmp/another-user-XXXXXX"_s};
};

} // namespace

/// Which of several starts is the first, what passes between them, and what each knows of its installation.
class tst_several_instances : public SingleInstanceTest
{
    Q_OBJECT

private slots:
    void startByAnotherPathIsAnotherApplication()
    {
        OpenProgram first;

        ImageManagerProgram another(first.place, linked_program(first.place));
        QVERIFY(another.open({first.place.page(u"b.bmp"_s)}));

        QCOMPARE(first.tabTitles(), QStringList(u"a.bmp"_s));
        QCOMPARE(another.tabTitles(), QStringList(u"b.bmp"_s));
    }

    void startByAnotherUserIsAnotherApplication()
    {
        if (::geteuid() != 0)
            QSKIP("only root can start a program as another user");
        OpenProgram first;
        const HomeOfNobody home;

        QProcess other;
        home.start(other, {home.page(u"b.bmp"_s)});
        if (!other.waitForStarted())
            QSKIP("another user cannot get at the program");
        QTRY_VERIFY_WITH_TIMEOUT(m_peer.owner(selectionOf(Nobody)) != 0, Program::patienceMs);
        QVERIFY(m_peer.owner(selectionOf(Nobody)) != owner());
        QProcess further; // knows its own user's instance
        home.start(further, {home.page(u"c.bmp"_s)});

        QVERIFY(further.waitForFinished(Program::patienceMs));
        QCOMPARE(further.exitCode(), 0);
        QCOMPARE(other.state(), QProcess::Running);
        QCOMPARE(first.tabTitles(), QStringList(u"a.bmp"_s));
        other.terminate();
        QVERIFY(other.waitForFinished(Program::patienceMs));
    }

    void killedOwnerLeavesNothingBehind()
    {
        OpenProgram first;
        QCOMPARE(::kill(static_cast<pid_t>(first.process().processId()), SIGKILL), 0);
        QVERIFY(!first.process().waitForExit().has_value());
        QTRY_COMPARE(owner(), XWindowId{0});

        ImageManagerProgram second(first.place);
        QVERIFY(second.open({first.place.page(u"b.bmp"_s)}));
        QCOMPARE(startAgain(first.place, {first.place.page(u"c.bmp"_s)}), 0);

        QTRY_COMPARE(second.tabTitles(), (QStringList{u"b.bmp"_s, u"c.bmp"_s}));
    }

    void twoStartsAtTheSameMomentLoseNoFile()
    {
        const Place place;
        for (int round = 0; round < 3; ++round) {
            std::array<std::unique_ptr<ImageManagerProgram>, 2> programs;
            for (auto &program : programs)
                program = std::make_unique<ImageManagerProgram>(place);
            QVERIFY(programs[0]->start({place.page(u"a.bmp"_s)}));
            QVERIFY(programs[1]->start({place.page(u"b.bmp"_s)}));

            // Either one shows both files, or each has a window of its own.
            const auto allTabs = [&programs] {
                QStringList titles;
                for (const auto &program : programs) {
                    if (program->process().isRunning())
                        titles += program->tabTitles();
                }
                return sorted(titles);
            };
            QTRY_COMPARE_WITH_TIMEOUT(allTabs(), (QStringList{u"a.bmp"_s, u"b.bmp"_s}), Program::patienceMs);
            QCOMPARE(startAgain(place, {place.page(u"c.bmp"_s)}), 0);
            QTRY_COMPARE(allTabs(), (QStringList{u"a.bmp"_s, u"b.bmp"_s, u"c.bmp"_s}));

            for (auto &program : programs)
                program.reset();
            QTRY_COMPARE(owner(), XWindowId{0});
        }
    }

    void endOfTheOwnerPassesTheSelectionOn()
    {
        OpenProgram waiting;
        const XWindowId heir = owner();
        takeSelectionAway();
        ImageManagerProgram second(waiting.place);
        QVERIFY(second.open({waiting.place.page(u"b.bmp"_s)}));
        QCOMPARE(startAgain(waiting.place, {waiting.place.page(u"c.bmp"_s)}), 0);
        QTRY_COMPARE(second.tabTitles(), (QStringList{u"b.bmp"_s, u"c.bmp"_s}));

        QCOMPARE(second.close(), 0);

        QTRY_COMPARE(owner(), heir);
        QCOMPARE(startAgain(waiting.place, {waiting.place.page(u"d.bmp"_s)}), 0);
        QTRY_COMPARE(waiting.tabTitles(), (QStringList{u"a.bmp"_s, u"d.bmp"_s}));
    }

    void endOfTheOwnerGoesByTheWaitingOnesInTurn()
    {
        const Place place;
        std::vector<std::unique_ptr<ImageManagerProgram>> programs;
        QList<XWindowId> listeners;
        for (const QString &name : {u"a.bmp"_s, u"b.bmp"_s, u"c.bmp"_s}) {
            takeSelectionAway();
            programs.push_back(std::make_unique<ImageManagerProgram>(place));
            QVERIFY(programs.back()->open({place.page(name)}));
            listeners.append(owner());
        }

        QCOMPARE(programs.at(2)->close(), 0);
        QTRY_COMPARE(owner(), listeners.at(1)); // the window made last lies topmost
        QCOMPARE(programs.at(1)->close(), 0);
        QTRY_COMPARE(owner(), listeners.at(0));
        QCOMPARE(programs.at(0)->close(), 0);

        QTRY_COMPARE(owner(), XWindowId{0});
    }

    void ownerThatIsClosedBehindABoxPassesTheSelectionOn()
    {
        OpenProgram waiting;
        const XWindowId heir = owner();
        takeSelectionAway();
        ImageManagerProgram second(waiting.place);
        QVERIFY(second.open({waiting.place.page(u"b.bmp"_s)}));
        const WindowId window = second.window();
        QCOMPARE(startAgain(waiting.place, {waiting.place.path(u"missing.bmp"_s), waiting.place.page(u"c.bmp"_s)}), 0);
        QCOMPARE(second.process().waitForMessageBox().title, u"Load failed"_s);
        QTRY_VERIFY(second.desktop().activeWindow() != 0 && second.desktop().activeWindow() != window);

        second.pressReturnAndClose(window);

        QCOMPARE(second.process().waitForExit(), 0);
        QTRY_COMPARE(owner(), heir);
    }

    void longMessageArrivesWhole_data()
    {
        QTest::addColumn<int>("size");

        QTest::newRow("4 KiB") << 4 * 1024;
        QTest::newRow("one byte more") << 4 * 1024 + 1;
        QTest::newRow("100 KiB") << 100 * 1024;
        QTest::newRow("10 MiB") << 10 * 1024 * 1024;
    }

    void longMessageArrivesWhole()
    {
        QFETCH(const int, size);
        const Place place;
        ImageManagerProgram first(place);
        first.process().discardErrors(); // every message is logged whole
        QVERIFY(first.open({place.page(u"a.bmp"_s)}));
        const QByteArray head = "imagemanager:" + place.page(u"b.bmp"_s).toUtf8() + ':';
        const QByteArray tail = place.page(u"c.bmp"_s).toUtf8();

        writeMessage(head + QByteArray(size - head.size() - tail.size(), ':') + tail); // of empty arguments

        QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"b.bmp"_s, u"c.bmp"_s}));
        const QStringList argumentsOf100KiB = QStringList(102400, QString()) + QStringList(place.page(u"d.bmp"_s));
        QCOMPARE(startAgain(place, argumentsOf100KiB), 0);
        QTRY_COMPARE(first.tabTitles().size(), 4);
    }

    void propertyThatIsNoMessageDoesNothing_data()
    {
        QTest::addColumn<QByteArray>("type");
        QTest::addColumn<int>("format");
        QTest::addColumn<QByteArray>("bytes");

        QTest::newRow("empty") << "_QTSINGLEAPPLICATION"_ba << 8 << ""_ba;
        QTest::newRow("another type") << "STRING"_ba << 8 << "imagemanager"_ba;
        QTest::newRow("items of 16 bits") << "_QTSINGLEAPPLICATION"_ba << 16 << "imagemanager"_ba;
        QTest::newRow("items of 32 bits") << "_QTSINGLEAPPLICATION"_ba << 32 << QByteArray(100 * sizeof(long), 'x');
    }

    void propertyThatIsNoMessageDoesNothing()
    {
        QFETCH(const QByteArray, type);
        QFETCH(const int, format);
        QFETCH(const QByteArray, bytes);
        OpenProgram first;

        m_peer.write(owner(), m_selection, type, bytes, format);
        QCOMPARE(first.tabTitles(), QStringList(u"a.bmp"_s)); // it has had to handle the property to answer
        QCOMPARE(startAgain(first.place, {first.place.page(u"b.bmp"_s)}), 0);

        QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"b.bmp"_s}));
        QCOMPARE(first.close(), 0);
    }

    void messageThatIsNoUtf8CostsABoxAlone()
    {
        OpenProgram first;

        writeMessage("imagemanager:\xff\xfe\xc3:" + first.place.page(u"b.bmp"_s).toUtf8());

        QCOMPARE(first.answer(u"OK"_s).title, u"Load failed"_s);
        QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"b.bmp"_s}));
        QCOMPARE(first.close(), 0);
    }

    void changeOfAnotherPropertyOpensTheLastFilesAgain()
    {
        OpenProgram first;
        QCOMPARE(startAgain(first.place, {first.place.page(u"b.bmp"_s)}), 0);
        QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"b.bmp"_s})); // the program itself changes none

        m_peer.write(owner(), "_NET_WM_NAME", "UTF8_STRING", "title");

        QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"b.bmp"_s, u"b.bmp"_s}));
    }

    void burstOfAHundredStartsOpensATabEach()
    {
        constexpr int starts = 100;
        constexpr int atATime = 10; // there is memory for more, but hardly a gain
        OpenProgram first(u"first.bmp"_s);

        QStringList names(u"first.bmp"_s);
        for (int started = 0; started < starts; started += atATime) {
            std::vector<std::unique_ptr<Program>> programs;
            for (int i = 0; i < atATime; ++i) {
                names.append(u"%1.bmp"_s.arg(started + i));
                programs.push_back(std::make_unique<Program>(QString::fromLatin1(Executable)));
                programs.back()->unsetEnvironment(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s);
                QVERIFY(programs.back()->start({first.place.page(names.last(), {8, 8})}));
            }
            for (const auto &program : programs)
                QCOMPARE(program->waitForExit(), 0);
        }

        // A message may have taken the place of one that was not read yet; each opens a file all the same.
        QTRY_COMPARE_WITH_TIMEOUT(first.tabTitles().size(), 1 + starts, Program::patienceMs);
        const QStringList titles = first.tabTitles();
        QVERIFY(std::ranges::all_of(titles, [&names](const QString &title) { return names.contains(title); }));
        QCOMPARE(first.close(), 0);
    }

    void missingConfigurationFileIsToldByTheFirstStartAlone()
    {
        const Place place;
        const QString executable = linked_program(place);
        ImageManagerProgram first(place, executable);
        first.process().setWorkingDirectory(place.home());
        QVERIFY(first.open({place.page(u"a.bmp"_s)}));
        ImageManagerProgram second(place, executable);
        second.process().setWorkingDirectory(place.home());
        QVERIFY(second.start({place.page(u"b.bmp"_s)}));

        QCOMPARE(second.process().waitForExit(), 0);
        QCOMPARE(second.process().output(), QString());
        QTRY_COMPARE(first.tabTitles().size(), 2);
        QCOMPARE(first.close(), 0);
        QCOMPARE(first.process().output(), u"WARNING: configuration file not found\n"_s);
    }

    void configurationFileOfThePackageIsFound()
    {
        const Place place;
        ImageManagerProgram program(place, linked_program(place));
        program.process().setWorkingDirectory(place.home());
        write_file(place.path(u"package/share/OEM.ini"_s), "VENDOR=Acme\n");

        QVERIFY(program.open({place.page(u"a.bmp"_s)}));

        QCOMPARE(program.close(), 0);
        QCOMPARE(program.process().output(), QString());
    }

    void recordOfTheInstallationIsExported()
    {
        QProcess symbols;
        symbols.start(u"nm"_s, {u"--dynamic"_s, u"--defined-only"_s, QString::fromLatin1(Executable)});
        QVERIFY(symbols.waitForFinished());

        QVERIFY(symbols.readAllStandardOutput().contains(" B actx\n"));
    }
};

QTEST_GUILESS_MAIN(tst_several_instances)
#include "tst_several_instances.moc"
