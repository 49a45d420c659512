#include "pictures.h"
#include "Program.h"
#include "XPeer.h"

#include <QTemporaryDir>
#include <QTest>

#include <X11/Xlib.h>

#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;
using State = Accessible::State;

/// Looks at the next press of the left button before the window does that it went to, as a window manager does that
/// brings windows up by it, and takes its time.
class SlowWindowManager
{
public:
    SlowWindowManager()
    {
        XGrabButton(m_peer.display(), Button1, AnyModifier, XDefaultRootWindow(m_peer.display()), False,
                    ButtonPressMask, GrabModeSync, GrabModeAsync, None, None);
        XSync(m_peer.display(), False);
        m_work = std::thread([display = m_peer.display()] {
            XEvent press{};
            XNextEvent(display, &press);
            std::this_thread::sleep_for(lookTime);
            XAllowEvents(display, ReplayPointer, CurrentTime);
            XSync(display, False);
        });
    }

    ~SlowWindowManager() { m_work.join(); }
    Q_DISABLE_COPY_MOVE(SlowWindowManager)

private:
    static constexpr std::chrono::milliseconds lookTime{300};

    XPeer m_peer;
    std::thread m_work;
};

/// The driver against a small window whose controls are known.
class tst_driver : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void windowIsFoundWithTitleAndSize();
    void anotherProcessHasNoWindow();
    void outputAndErrorsAreCaught();
    void exitStatusIsToldAfterClose();
    void crashHasNoExitStatus();
    void programThatCannotStartIsToldApart();
    void environmentReachesTheProgram();
    void permissionsCountEvenForRoot();

    void tabsAreFoundInOrderAndTheListNamesTheCurrentOne();
    void menuEntriesComeInOrder();
    void checkedAndEnabledStatesAreRead();
    void pressedMenuItemActs();
    void pressedTabComesUp();
    void nothingIsFoundUnderAWrongName();
    void messageBoxIsReadAndAnswered();

    void clickGoesWhereThePointerIs();
    void dragPassesItsPath();
    void keyComesAfterADragThatIsHeldUp();
    void keyWithControlReachesTheWindow();
    void resizedWindowTellsItsNewSize();
    void pictureShowsTheScreen();
    void pictureBeyondTheScreenIsNull();

private:
    [[nodiscard]] QString statusText() const { return m_application.find(Role::StatusBar).name(); }

    std::unique_ptr<Program> m_sample;
    std::unique_ptr<Desktop> m_desktop;
    WindowId m_window = 0;
    Accessible m_application;
};

void tst_driver::init()
{
    m_desktop = std::make_unique<Desktop>();
    m_sample = std::make_unique<Program>(QStringLiteral(IM_PROGRAM));
    QVERIFY(m_sample->start({}));
    m_window = m_sample->waitForWindow();
    QVERIFY(m_window != 0);
    m_application = m_sample->accessible();
    QVERIFY(!m_application.isNull());
    QTRY_COMPARE(m_desktop->activeWindow(), m_window);
}

void tst_driver::cleanup()
{
    m_application = Accessible();
    m_sample.reset();
    m_desktop.reset();
}

void tst_driver::windowIsFoundWithTitleAndSize()
{
    QCOMPARE(m_desktop->title(m_window), u"Sample window"_s);
    QCOMPARE(m_desktop->geometry(m_window).size(), QSize(400, 300));
    QCOMPARE(m_desktop->windowsOf(m_sample->processId()), QList<WindowId>{m_window});
}

void tst_driver::anotherProcessHasNoWindow()
{
    QCOMPARE(m_desktop->windowsOf(QCoreApplication::applicationPid()), QList<WindowId>());
}

void tst_driver::outputAndErrorsAreCaught()
{
    QTRY_COMPARE(m_sample->errors(), u"sample complains\n"_s);
    m_desktop->close(m_window);
    QCOMPARE(m_sample->waitForExit(), 0);

    QCOMPARE(m_sample->output(), u"sample is up\n"_s);
}

void tst_driver::exitStatusIsToldAfterClose()
{
    m_desktop->close(m_window);

    QCOMPARE(m_sample->waitForExit(), 0);
    QVERIFY(!m_sample->isRunning());
}

void tst_driver::crashHasNoExitStatus()
{
    Program shell(u"/bin/sh"_s);
    QVERIFY(shell.start({u"-c"_s, u"kill -KILL $$"_s}));

    QCOMPARE(shell.waitForExit(), std::nullopt);
    QVERIFY(!shell.isRunning());
}

void tst_driver::programThatCannotStartIsToldApart()
{
    Program missing(u"/nowhere/at/all"_s);

    QVERIFY(!missing.start({}));
}

void tst_driver::environmentReachesTheProgram()
{
    Program shell(u"/bin/sh"_s);
    shell.setHome(u"/some/home"_s);
    shell.setEnvironment(u"IM_SAMPLE"_s, u"value"_s);
    shell.unsetEnvironment(u"DISPLAY"_s);
    QVERIFY(shell.start({u"-c"_s, u"echo $HOME $IM_SAMPLE ${DISPLAY-none}; exit 7"_s}));

    QCOMPARE(shell.waitForExit(), 7);
    QCOMPARE(shell.output(), u"/some/home value none\n"_s);
}

void tst_driver::permissionsCountEvenForRoot()
{
    const QTemporaryDir directory;
    QFile file(directory.filePath(u"secret"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QVERIFY(file.setPermissions({}));

    Program shell(u"/bin/sh"_s);
    shell.obeyFilePermissions();
    QVERIFY(shell.start({u"-c"_s, u"exec < \"$0\" || exit 3"_s, file.fileName()}));

    QVERIFY(shell.waitForExit().value_or(0) != 0);
    QVERIFY(shell.errors().contains("ermission denied"_L1));
}

void tst_driver::tabsAreFoundInOrderAndTheListNamesTheCurrentOne()
{
    QStringList names;
    const QList<Accessible> tabs = m_application.findAll(Role::Tab);
    for (const Accessible &tab : tabs)
        names.append(tab.name());

    QCOMPARE(names, (QStringList{u"first"_s, u"second"_s}));
    QCOMPARE(m_application.find(Role::TabList).name(), u"first"_s);
}

void tst_driver::menuEntriesComeInOrder()
{
    const Accessible menu = m_application.find(Role::MenuItem, u"Things"_s).find(Role::Menu);
    QStringList entries;
    const QList<Accessible> children = menu.children();
    for (const Accessible &entry : children)
        entries.append(entry.role() == Role::Separator ? u"-"_s : entry.name());

    QCOMPARE(entries, (QStringList{u"Ask..."_s, u"-"_s, u"Mark"_s, u"Never"_s}));
}

void tst_driver::checkedAndEnabledStatesAreRead()
{
    const Accessible mark = m_application.find(Role::MenuItem, u"Mark"_s);
    const Accessible never = m_application.find(Role::MenuItem, u"Never"_s);

    QVERIFY(mark.has(State::Enabled));
    QVERIFY(!mark.has(State::Checked));
    QVERIFY(!never.has(State::Enabled));
}

void tst_driver::pressedMenuItemActs()
{
    const Accessible mark = m_application.find(Role::MenuItem, u"Mark"_s);

    QVERIFY(mark.press());

    QTRY_VERIFY(mark.has(State::Checked));
}

void tst_driver::pressedTabComesUp()
{
    const Accessible second = m_application.find(Role::Tab, u"second"_s);

    QVERIFY(second.press());

    QTRY_COMPARE(m_application.find(Role::TabList).name(), u"second"_s);
    QTRY_VERIFY(m_application.find(Role::Label, u"second page"_s).has(State::Showing));
}

void tst_driver::nothingIsFoundUnderAWrongName()
{
    const Accessible nothing = m_application.find(Role::Tab, u"third"_s);

    QVERIFY(nothing.isNull());
    QCOMPARE(nothing.name(), QString());
    QVERIFY(!nothing.press());
}

void tst_driver::messageBoxIsReadAndAnswered()
{
    m_desktop->click(m_application.find(Role::Button, u"Ask"_s).extents().center());
    const WindowId boxWindow = m_sample->waitForWindow(u"Sample"_s);
    QVERIFY(boxWindow != 0);
    const MessageBox box = m_sample->waitForMessageBox();

    QCOMPARE(box.title, u"Sample"_s);
    QCOMPARE(box.text, u"Line one\nLine two?"_s);
    QCOMPARE(box.buttons, (QStringList{u"Yes"_s, u"No"_s, u"Cancel"_s}));
    QCOMPARE(box.defaultButton, u"No"_s);
    QVERIFY(box.press(u"Yes"_s));

    QTRY_COMPARE(statusText(), u"yes"_s);
    QCOMPARE(m_desktop->windowsOf(m_sample->processId()), QList<WindowId>{m_window});
}

void tst_driver::clickGoesWhereThePointerIs()
{
    const QRect target = m_application.find(Role::Filler, u"target"_s).extents();

    m_desktop->click(target.topLeft() + QPoint(17, 9));

    QTRY_COMPARE(statusText(), u"pressed at 17,9"_s);
}

void tst_driver::dragPassesItsPath()
{
    const QRect target = m_application.find(Role::Filler, u"target"_s).extents();
    const QPoint start = target.topLeft() + QPoint(10, 10);

    m_desktop->drag(start, {start + QPoint(5, 0), start + QPoint(20, 30)});

    QTRY_COMPARE(statusText(), u"released at 30,40"_s);
}

void tst_driver::keyComesAfterADragThatIsHeldUp()
{
    const QRect target = m_application.find(Role::Filler, u"target"_s).extents();
    const QPoint start = target.topLeft() + QPoint(10, 10);
    const SlowWindowManager manager;

    m_desktop->drag(start, {start + QPoint(20, 30)});
    m_desktop->pressKey("k", {"Control_L"});

    QVERIFY(m_sample->waitForWindow(u"Sample"_s) != 0); // a window behind a question hears nothing of the pointer
    QCOMPARE(statusText(), u"released at 30,40"_s);
}

void tst_driver::keyWithControlReachesTheWindow()
{
    m_desktop->pressKey("k", {"Control_L"});
    const WindowId box = m_sample->waitForWindow(u"Sample"_s);
    QTRY_COMPARE(m_desktop->activeWindow(), box);

    m_desktop->pressKey("Escape");

    QTRY_COMPARE(statusText(), u"not yes"_s);
}

void tst_driver::resizedWindowTellsItsNewSize()
{
    m_desktop->resize(m_window, {500, 350});

    QTRY_COMPARE(m_desktop->geometry(m_window).size(), QSize(500, 350));
}

void tst_driver::pictureShowsTheScreen()
{
    const QRect target = m_application.find(Role::Filler, u"target"_s).extents().adjusted(5, 5, -5, -5);

    QTRY_COMPARE(m_desktop->pixel(target.topLeft()), qRgb(10, 200, 30));

    QVERIFY(compare_pictures(m_desktop->picture(target), solid_page(target.size(), qRgb(10, 200, 30))));
}

void tst_driver::pictureBeyondTheScreenIsNull()
{
    QVERIFY(m_desktop->picture({-1, 0, 10, 10}).isNull());
    QVERIFY(m_desktop->picture({0, 0, 5000, 10}).isNull());
}

QTEST_GUILESS_MAIN(tst_driver)
#include "tst_driver.moc"
