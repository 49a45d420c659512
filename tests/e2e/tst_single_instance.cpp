#include "bad_files.h"
#include "ImageManagerProgram.h"
#include "XPeer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <algorithm>
#include <array>
#include <csignal>
#include <memory>
#include <vector>

#include <pwd.h>
#include <unistd.h>

// Behind the toolkit's headers, which its macros would break.
#include <X11/Xatom.h>
#include <X11/Xlib.h>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;
using State = Accessible::State;
using XWindowId = XPeer::Window;

/// Starts while the program runs already: the first one shows the files of all.
class tst_single_instance : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void fileOfALaterStartOpensInTheFirstWindow();
    void laterStartShowsNoWindow();
    void windowComesToTheFront();
    void windowIsRaisedAboveTheOneThatLiesOnTop();
    void minimizedWindowComesUp();
    void sameFileOpensAgain();
    void temporaryFileOfALaterStartBecomesUntitledAndIsDeleted();
    void fileOpensWhileABoxOfTheFirstIsOpen();
    void fileOpensWhileADialogOfTheFirstIsOpen();
    void messageThatComesWhileTheWindowIsBuiltIsKept();

    void laterStartWithoutFilesEndsTheFirst();
    void laterStartWithBadFilesAloneEndsTheFirst();
    void changedPageIsLostUnaskedToALaterStartThatOpensNothing_data();
    void changedPageIsLostUnaskedToALaterStartThatOpensNothing();

    void startByAnotherPathIsAnotherApplication();
    void killedOwnerLeavesNothingBehind();
    void twoStartsAtTheSameMomentLoseNoFile();
    void endOfTheOwnerPassesTheSelectionOn();
    void endOfTheOwnerGoesByTheWaitingOnesInTurn();
    void ownerThatIsClosedBehindABoxPassesTheSelectionOn();

    void longMessageArrivesWhole_data();
    void longMessageArrivesWhole();
    void propertyThatIsNoMessageDoesNothing_data();
    void propertyThatIsNoMessageDoesNothing();
    void messageThatIsNoUtf8CostsABoxAlone();
    void changeOfAnotherPropertyOpensTheLastFilesAgain();
    void burstOfAHundredStartsOpensATabEach();

    void missingConfigurationFileIsToldByTheFirstStartAlone();
    void configurationFileOfThePackageIsFound();
    void recordOfTheInstallationIsExported();

private:
    /// A start that hands its arguments over, quicker for want of assistive technology. Answers its status.
    [[nodiscard]] static std::optional<int> startAgain(const Place &place, const QStringList &arguments);

    [[nodiscard]] XWindowId owner() const { return m_peer.owner(m_selection); }
    /// Puts a message's property on the owner's window as another client would.
    void writeMessage(const QByteArray &text);
    /// Nobody owns the selection then; who did goes on as a waiting listener.
    void takeSelectionAway() { m_peer.own(m_selection, 0); }

    XPeer m_peer;
    QByteArray m_selection; ///< name of the selection of the program under test
};

namespace {

constexpr auto Executable = IM_PROGRAM;

/// A link by which the program can be started as another application, in a directory "bin" of its own.
QString linkedProgram(const Place &place)
{
    QString path = place.path(u"package/bin/imagemanager"_s);
    if (!QDir().mkpath(QFileInfo(path).path()) || !QFile::link(QString::fromLatin1(Executable), path))
        qFatal("linkedProgram - no %s", qPrintable(path));
    return path;
}

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A window of this process that the window manager takes care of like any other; shown as long as it lives.
class ManagedWindow
{
public:
    explicit ManagedWindow(XPeer &peer) : display(peer.display()), window(peer.makeWindow())
    {
        XMapWindow(display, window);
        XSync(display, False);
    }
    ~ManagedWindow()
    {
        XDestroyWindow(display, window);
        XSync(display, False);
    }
    Q_DISABLE_COPY_MOVE(ManagedWindow)

    [[nodiscard]] XWindowId id() const { return window; }

private:
    Display *display;
    XWindowId window;
};

/// The window that lies above all others by the window manager's word, 0 if there is none.
XWindowId topWindow(const XPeer &peer)
{
    constexpr long longestList = 1024; // in units of four bytes, one a window
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char *data = nullptr;
    XGetWindowProperty(peer.display(), XDefaultRootWindow(peer.display()), peer.atom("_NET_CLIENT_LIST_STACKING"), 0,
                       longestList, False, XA_WINDOW, &type, &format, &count, &rest, &data);
    const XWindowId top = count == 0 ? 0 : reinterpret_cast<const XWindowId *>(data)[count - 1]; // bottom to top
    if (data)
        XFree(data);
    return top;
}

} // namespace

void tst_single_instance::init()
{
    const passwd *const user = ::getpwuid(::getuid());
    m_selection = '_' + QByteArray(Executable) + (user ? user->pw_name : "");
    std::ranges::replace_if(
        m_selection, [](char c) { return c <= ' ' || c > '~'; }, '_');
    QTRY_COMPARE(owner(), XWindowId{0}); // the server has noticed the end of the test before
}

std::optional<int> tst_single_instance::startAgain(const Place &place, const QStringList &arguments)
{
    Program program(QString::fromLatin1(Executable));
    program.setHome(place.home());
    program.unsetEnvironment(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s);
    return program.start(arguments) ? program.waitForExit() : std::nullopt;
}

void tst_single_instance::writeMessage(const QByteArray &text)
{
    m_peer.write(owner(), m_selection, "_QTSINGLEAPPLICATION", text);
}

void tst_single_instance::fileOfALaterStartOpensInTheFirstWindow()
{
    const Place place;
    ImageManagerProgram first(place);
    QVERIFY(first.open({place.page(u"a.bmp"_s)}));

    QCOMPARE(startAgain(place, {place.page(u"b.bmp"_s), place.page(u"c.bmp"_s)}), 0);

    QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"b.bmp"_s, u"c.bmp"_s}));
    QTRY_COMPARE(first.currentTab(), u"c.bmp"_s);
    QCOMPARE(first.close(), 0);
}

void tst_single_instance::laterStartShowsNoWindow()
{
    const Place place;
    ImageManagerProgram first(place);
    QVERIFY(first.open({place.page(u"a.bmp"_s)}));
    ImageManagerProgram second(place);
    QVERIFY(second.start({place.page(u"b.bmp"_s)}));

    QCOMPARE(second.process().waitForWindow(), WindowId{0}); // looks until the process has ended

    QCOMPARE(second.process().waitForExit(), 0);
    QCOMPARE(second.process().output(), QString());
}

void tst_single_instance::windowComesToTheFront()
{
    const Place place;
    ImageManagerProgram first(place);
    QVERIFY(first.open({place.page(u"a.bmp"_s)}));
    ImageManagerProgram another(place, linkedProgram(place));
    QVERIFY(another.open({place.page(u"b.bmp"_s)}));
    QTRY_COMPARE(first.desktop().activeWindow(), another.window());

    QCOMPARE(startAgain(place, {place.page(u"c.bmp"_s)}), 0);

    QTRY_COMPARE(first.desktop().activeWindow(), first.window());
}

void tst_single_instance::windowIsRaisedAboveTheOneThatLiesOnTop()
{
    const Place place;
    ImageManagerProgram first(place);
    QVERIFY(first.open({place.page(u"a.bmp"_s)}));
    QTRY_COMPARE(topWindow(m_peer), first.window());
    const ManagedWindow another(m_peer);
    QTRY_COMPARE(topWindow(m_peer), another.id());

    QCOMPARE(startAgain(place, {place.page(u"b.bmp"_s)}), 0);

    QTRY_COMPARE(topWindow(m_peer), first.window());
    QTRY_COMPARE(first.desktop().activeWindow(), first.window());
}

void tst_single_instance::minimizedWindowComesUp()
{
    const Place place;
    ImageManagerProgram first(place);
    QVERIFY(first.open({place.page(u"a.bmp"_s)}));
    QTRY_COMPARE(first.desktop().activeWindow(), first.window());
    XIconifyWindow(m_peer.display(), first.window(), XDefaultScreen(m_peer.display()));
    XSync(m_peer.display(), False);
    QTRY_VERIFY(!m_peer.isShown(first.window()));

    QCOMPARE(startAgain(place, {place.page(u"b.bmp"_s)}), 0);

    QTRY_VERIFY(m_peer.isShown(first.window()));
    QTRY_COMPARE(topWindow(m_peer), first.window());
    QTRY_COMPARE(first.desktop().activeWindow(), first.window());
}

void tst_single_instance::sameFileOpensAgain()
{
    const Place place;
    ImageManagerProgram first(place);
    const QString path = place.page(u"a.bmp"_s);
    QVERIFY(first.open({path}));

    QCOMPARE(startAgain(place, {path}), 0);

    QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"a.bmp"_s}));
}

void tst_single_instance::temporaryFileOfALaterStartBecomesUntitledAndIsDeleted()
{
    const Place place;
    ImageManagerProgram first(place);
    QVERIFY(first.open({place.page(u"a.bmp"_s)}));
    const QString temporary = place.page(u"scan.bmp"_s);

    QCOMPARE(startAgain(place, {u"-t"_s, temporary}), 0);

    QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"Untitled2*"_s}));
    QTRY_VERIFY(!QFile::exists(temporary));
}

void tst_single_instance::fileOpensWhileABoxOfTheFirstIsOpen()
{
    const Place place;
    ImageManagerProgram first(place);
    QVERIFY(first.start({place.page(u"a.bmp"_s), place.path(u"missing.bmp"_s), place.page(u"b.bmp"_s)}));
    const MessageBox box = first.process().waitForMessageBox();
    QCOMPARE(box.title, u"Load failed"_s);

    QCOMPARE(startAgain(place, {place.page(u"c.bmp"_s)}), 0);

    QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"c.bmp"_s}));
    QVERIFY(box.dialog.has(State::Showing));
    QVERIFY(box.press(u"OK"_s));
    QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"c.bmp"_s, u"b.bmp"_s}));
    QCOMPARE(first.close(), 0);
}

void tst_single_instance::fileOpensWhileADialogOfTheFirstIsOpen()
{
    const Place place;
    ImageManagerProgram first(place);
    QVERIFY(first.open({place.page(u"a.bmp"_s)}));
    QTRY_COMPARE(first.desktop().activeWindow(), first.window());
    first.desktop().pressKey("f", {"Alt_L"});
    QTRY_VERIFY(first.application().find(Role::MenuBar).find(Role::Menu).has(State::Showing));
    first.desktop().pressKey("o");
    Accessible dialog;
    QTRY_VERIFY(!(dialog = first.application().find(Role::Dialog)).isNull());

    QCOMPARE(startAgain(place, {place.page(u"b.bmp"_s)}), 0);

    QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"b.bmp"_s}));
    QVERIFY(dialog.has(State::Showing));
    QVERIFY(dialog.find(Role::Button, u"Cancel"_s).press());
    QTRY_VERIFY(first.application().find(Role::Dialog).isNull());
    QCOMPARE(first.close(), 0);
}

void tst_single_instance::messageThatComesWhileTheWindowIsBuiltIsKept()
{
    const Place place;
    ImageManagerProgram first(place);
    const QString early = place.page(u"early.bmp"_s);
    QVERIFY(first.start({place.page(u"a.bmp"_s)}));
    while (owner() == 0 && first.process().isRunning())
        QCoreApplication::processEvents(); // no pause: the window is built right after

    writeMessage("imagemanager:" + early.toUtf8());

    QTRY_COMPARE_WITH_TIMEOUT(sorted(first.tabTitles()), (QStringList{u"a.bmp"_s, u"early.bmp"_s}),
                              Program::patienceMs);
}

void tst_single_instance::laterStartWithoutFilesEndsTheFirst()
{
    const Place place;
    ImageManagerProgram first(place);
    QVERIFY(first.start({u"-t"_s, place.page(u"unsaved.bmp"_s)}));
    QTRY_COMPARE_WITH_TIMEOUT(first.tabTitles(), QStringList(u"Untitled*"_s), Program::patienceMs);

    QCOMPARE(startAgain(place, {}), 0);

    QCOMPARE(first.process().waitForExit(), 0); // and no box asks
}

void tst_single_instance::laterStartWithBadFilesAloneEndsTheFirst()
{
    const Place place;
    ImageManagerProgram first(place);
    QVERIFY(first.open({place.page(u"a.bmp"_s)}));

    QCOMPARE(startAgain(place, {place.path(u"missing.bmp"_s)}), 0);

    QCOMPARE(first.answer(u"OK"_s).title, u"Load failed"_s);
    QCOMPARE(first.process().waitForExit(), 0);
}

void tst_single_instance::changedPageIsLostUnaskedToALaterStartThatOpensNothing_data()
{
    QTest::addColumn<QStringList>("badFiles");

    QTest::newRow("no file") << QStringList();
    QTest::newRow("bad files alone") << QStringList{u"missing.bmp"_s, u"gone.bmp"_s};
}

void tst_single_instance::changedPageIsLostUnaskedToALaterStartThatOpensNothing()
{
    QFETCH(const QStringList, badFiles);
    const Place place;
    const QString path = place.page(u"a.bmp"_s);
    const QByteArray saved = bytesOf(path);
    QStringList arguments;
    for (const QString &name : badFiles)
        arguments.append(place.path(name));
    ImageManagerProgram first(place);
    QVERIFY(first.open({path}, {1100, 700}));
    QVERIFY(first.invert());

    QCOMPARE(startAgain(place, arguments), 0);

    for (qsizetype i = 0; i < badFiles.size(); ++i)
        QCOMPARE(first.answer(u"OK"_s).title, u"Load failed"_s);
    QCOMPARE(first.process().waitForExit(), 0); // a box that asks would keep it
    QCOMPARE(bytesOf(path), saved);
}

void tst_single_instance::startByAnotherPathIsAnotherApplication()
{
    const Place place;
    ImageManagerProgram first(place);
    QVERIFY(first.open({place.page(u"a.bmp"_s)}));

    ImageManagerProgram another(place, linkedProgram(place));
    QVERIFY(another.open({place.page(u"b.bmp"_s)}));

    QCOMPARE(first.tabTitles(), QStringList(u"a.bmp"_s));
    QCOMPARE(another.tabTitles(), QStringList(u"b.bmp"_s));
}

void tst_single_instance::killedOwnerLeavesNothingBehind()
{
    const Place place;
    ImageManagerProgram first(place);
    QVERIFY(first.open({place.page(u"a.bmp"_s)}));
    QCOMPARE(::kill(static_cast<pid_t>(first.process().processId()), SIGKILL), 0);
    QVERIFY(!first.process().waitForExit().has_value());
    QTRY_COMPARE(owner(), XWindowId{0});

    ImageManagerProgram second(place);
    QVERIFY(second.open({place.page(u"b.bmp"_s)}));
    QCOMPARE(startAgain(place, {place.page(u"c.bmp"_s)}), 0);

    QTRY_COMPARE(second.tabTitles(), (QStringList{u"b.bmp"_s, u"c.bmp"_s}));
}

void tst_single_instance::twoStartsAtTheSameMomentLoseNoFile()
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

void tst_single_instance::endOfTheOwnerPassesTheSelectionOn()
{
    const Place place;
    ImageManagerProgram waiting(place);
    QVERIFY(waiting.open({place.page(u"a.bmp"_s)}));
    const XWindowId heir = owner();
    takeSelectionAway();
    ImageManagerProgram second(place);
    QVERIFY(second.open({place.page(u"b.bmp"_s)}));
    QCOMPARE(startAgain(place, {place.page(u"c.bmp"_s)}), 0);
    QTRY_COMPARE(second.tabTitles(), (QStringList{u"b.bmp"_s, u"c.bmp"_s}));

    QCOMPARE(second.close(), 0);

    QTRY_COMPARE(owner(), heir);
    QCOMPARE(startAgain(place, {place.page(u"d.bmp"_s)}), 0);
    QTRY_COMPARE(waiting.tabTitles(), (QStringList{u"a.bmp"_s, u"d.bmp"_s}));
}

void tst_single_instance::endOfTheOwnerGoesByTheWaitingOnesInTurn()
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

void tst_single_instance::ownerThatIsClosedBehindABoxPassesTheSelectionOn()
{
    const Place place;
    ImageManagerProgram waiting(place);
    QVERIFY(waiting.open({place.page(u"a.bmp"_s)}));
    const XWindowId heir = owner();
    takeSelectionAway();
    ImageManagerProgram second(place);
    QVERIFY(second.open({place.page(u"b.bmp"_s)}));
    const WindowId window = second.window();
    QCOMPARE(startAgain(place, {place.path(u"missing.bmp"_s), place.page(u"c.bmp"_s)}), 0);
    QCOMPARE(second.process().waitForMessageBox().title, u"Load failed"_s);
    QTRY_VERIFY(second.desktop().activeWindow() != 0 && second.desktop().activeWindow() != window);

    // The program finds both when it looks: the key, and the close button right behind it.
    const auto process = static_cast<pid_t>(second.process().processId());
    ::kill(process, SIGSTOP);
    second.desktop().pressKey("Return");
    second.desktop().close(window);
    ::kill(process, SIGCONT);

    QCOMPARE(second.process().waitForExit(), 0);
    QTRY_COMPARE(owner(), heir);
}

void tst_single_instance::longMessageArrivesWhole_data()
{
    QTest::addColumn<int>("size");

    QTest::newRow("4 KiB") << 4 * 1024;
    QTest::newRow("one byte more") << 4 * 1024 + 1;
    QTest::newRow("100 KiB") << 100 * 1024;
    QTest::newRow("10 MiB") << 10 * 1024 * 1024;
}

void tst_single_instance::longMessageArrivesWhole()
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

void tst_single_instance::propertyThatIsNoMessageDoesNothing_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<int>("format");
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("empty") << "_QTSINGLEAPPLICATION"_ba << 8 << ""_ba;
    QTest::newRow("another type") << "STRING"_ba << 8 << "imagemanager"_ba;
    QTest::newRow("items of 16 bits") << "_QTSINGLEAPPLICATION"_ba << 16 << "imagemanager"_ba;
    QTest::newRow("items of 32 bits") << "_QTSINGLEAPPLICATION"_ba << 32 << QByteArray(100 * sizeof(long), 'x');
}

void tst_single_instance::propertyThatIsNoMessageDoesNothing()
{
    QFETCH(const QByteArray, type);
    QFETCH(const int, format);
    QFETCH(const QByteArray, bytes);
    const Place place;
    ImageManagerProgram first(place);
    QVERIFY(first.open({place.page(u"a.bmp"_s)}));

    m_peer.write(owner(), m_selection, type, bytes, format);
    QCOMPARE(first.tabTitles(), QStringList(u"a.bmp"_s)); // it has had to handle the property to answer
    QCOMPARE(startAgain(place, {place.page(u"b.bmp"_s)}), 0);

    QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"b.bmp"_s}));
    QCOMPARE(first.close(), 0);
}

void tst_single_instance::messageThatIsNoUtf8CostsABoxAlone()
{
    const Place place;
    ImageManagerProgram first(place);
    QVERIFY(first.open({place.page(u"a.bmp"_s)}));

    writeMessage("imagemanager:\xff\xfe\xc3:" + place.page(u"b.bmp"_s).toUtf8());

    QCOMPARE(first.answer(u"OK"_s).title, u"Load failed"_s);
    QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"b.bmp"_s}));
    QCOMPARE(first.close(), 0);
}

void tst_single_instance::changeOfAnotherPropertyOpensTheLastFilesAgain()
{
    const Place place;
    ImageManagerProgram first(place);
    QVERIFY(first.open({place.page(u"a.bmp"_s)}));
    QCOMPARE(startAgain(place, {place.page(u"b.bmp"_s)}), 0);
    QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"b.bmp"_s})); // the program itself changes none

    m_peer.write(owner(), "_NET_WM_NAME", "UTF8_STRING", "title");

    QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"b.bmp"_s, u"b.bmp"_s}));
}

void tst_single_instance::burstOfAHundredStartsOpensATabEach()
{
    constexpr int starts = 100;
    constexpr int atATime = 10; // there is memory for more, but hardly a gain
    const Place place;
    ImageManagerProgram first(place);
    QVERIFY(first.open({place.page(u"first.bmp"_s)}));

    QStringList names(u"first.bmp"_s);
    for (int started = 0; started < starts; started += atATime) {
        std::vector<std::unique_ptr<Program>> programs;
        for (int i = 0; i < atATime; ++i) {
            names.append(u"%1.bmp"_s.arg(started + i));
            programs.push_back(std::make_unique<Program>(QString::fromLatin1(Executable)));
            programs.back()->unsetEnvironment(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s);
            QVERIFY(programs.back()->start({place.page(names.last(), {8, 8})}));
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

void tst_single_instance::missingConfigurationFileIsToldByTheFirstStartAlone()
{
    const Place place;
    const QString executable = linkedProgram(place);
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

void tst_single_instance::configurationFileOfThePackageIsFound()
{
    const Place place;
    ImageManagerProgram program(place, linkedProgram(place));
    program.process().setWorkingDirectory(place.home());
    QVERIFY(QDir().mkpath(place.path(u"package/share"_s)));
    QVERIFY(write_bytes(place.path(u"package/share/OEM.ini"_s), "VENDOR=Acme\n"));

    QVERIFY(program.open({place.page(u"a.bmp"_s)}));

    QCOMPARE(program.close(), 0);
    QCOMPARE(program.process().output(), QString());
}

void tst_single_instance::recordOfTheInstallationIsExported()
{
    QProcess symbols;
    symbols.start(u"nm"_s, {u"--dynamic"_s, u"--defined-only"_s, QString::fromLatin1(Executable)});
    QVERIFY(symbols.waitForFinished());

    QVERIFY(symbols.readAllStandardOutput().contains(" B actx\n"));
}

QTEST_GUILESS_MAIN(tst_single_instance)
#include "tst_single_instance.moc"
