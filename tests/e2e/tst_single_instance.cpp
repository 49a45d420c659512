#include "bad_files.h"
#include "files.h"
#include "ImageManagerProgram.h"
#include "SingleInstanceTest.h"
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

// Behind the toolkit's headers, which its macros would break.
#include <X11/Xatom.h>
#include <X11/Xlib.h>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;
using State = Accessible::State;

namespace {

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
XWindowId top_window(const XPeer &peer)
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

/// Starts while the program runs already: the first one shows the files of all.
class tst_single_instance : public SingleInstanceTest
{
    Q_OBJECT

private slots:
    void fileOfALaterStartOpensInTheFirstWindow()
    {
        OpenProgram first;

        QCOMPARE(startAgain(first.place, {first.place.page(u"b.bmp"_s), first.place.page(u"c.bmp"_s)}), 0);

        QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"b.bmp"_s, u"c.bmp"_s}));
        QTRY_COMPARE(first.currentTab(), u"c.bmp"_s);
        QCOMPARE(first.close(), 0);
    }

    void laterStartShowsNoWindow()
    {
        OpenProgram first;
        ImageManagerProgram second(first.place);
        QVERIFY(second.start({first.place.page(u"b.bmp"_s)}));

        QCOMPARE(second.process().waitForWindow(), WindowId{0}); // looks until the process has ended

        QCOMPARE(second.process().waitForExit(), 0);
        QCOMPARE(second.process().output(), QString());
    }

    void windowComesToTheFront()
    {
        OpenProgram first;
        ImageManagerProgram another(first.place, linked_program(first.place));
        QVERIFY(another.open({first.place.page(u"b.bmp"_s)}));
        QTRY_COMPARE(first.desktop().activeWindow(), another.window());

        QCOMPARE(startAgain(first.place, {first.place.page(u"c.bmp"_s)}), 0);

        QTRY_COMPARE(first.desktop().activeWindow(), first.window());
    }

    void windowIsRaisedAboveTheOneThatLiesOnTop()
    {
        OpenProgram first;
        QTRY_COMPARE(top_window(m_peer), first.window());
        const ManagedWindow another(m_peer);
        QTRY_COMPARE(top_window(m_peer), another.id());

        QCOMPARE(startAgain(first.place, {first.place.page(u"b.bmp"_s)}), 0);

        QTRY_COMPARE(top_window(m_peer), first.window());
        QTRY_COMPARE(first.desktop().activeWindow(), first.window());
    }

    void minimizedWindowComesUp()
    {
        OpenProgram first;
        QTRY_COMPARE(first.desktop().activeWindow(), first.window());
        XIconifyWindow(m_peer.display(), first.window(), XDefaultScreen(m_peer.display()));
        XSync(m_peer.display(), False);
        QTRY_VERIFY(!m_peer.isShown(first.window()));

        QCOMPARE(startAgain(first.place, {first.place.page(u"b.bmp"_s)}), 0);

        QTRY_VERIFY(m_peer.isShown(first.window()));
        QTRY_COMPARE(top_window(m_peer), first.window());
        QTRY_COMPARE(first.desktop().activeWindow(), first.window());
    }

    void sameFileOpensAgain()
    {
        const Place place;
        ImageManagerProgram first(place);
        const QString path = place.page(u"a.bmp"_s);
        QVERIFY(first.open({path}));

        QCOMPARE(startAgain(place, {path}), 0);

        QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"a.bmp"_s}));
    }

    void temporaryFileOfALaterStartBecomesUntitledAndIsDeleted()
    {
        OpenProgram first;
        const QString temporary = first.place.page(u"scan.bmp"_s);

        QCOMPARE(startAgain(first.place, {u"-t"_s, temporary}), 0);

        QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"Untitled2*"_s}));
        QTRY_VERIFY(!QFile::exists(temporary));
    }

    void fileOpensWhileABoxOfTheFirstIsOpen()
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

    void fileOpensWhileADialogOfTheFirstIsOpen()
    {
        OpenProgram first;
        QTRY_COMPARE(first.desktop().activeWindow(), first.window());
        first.desktop().pressKey("f", {"Alt_L"});
        QTRY_VERIFY(first.application().find(Role::MenuBar).find(Role::Menu).has(State::Showing));
        first.desktop().pressKey("o");
        Accessible dialog;
        QTRY_VERIFY(!(dialog = first.application().find(Role::Dialog)).isNull());

        QCOMPARE(startAgain(first.place, {first.place.page(u"b.bmp"_s)}), 0);

        QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.bmp"_s, u"b.bmp"_s}));
        QVERIFY(dialog.has(State::Showing));
        QVERIFY(dialog.find(Role::Button, u"Cancel"_s).press());
        QTRY_VERIFY(first.application().find(Role::Dialog).isNull());
        QCOMPARE(first.close(), 0);
    }

    void messageThatComesWhileTheWindowIsBuiltIsKept()
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

    void laterStartWithoutFilesEndsTheFirst()
    {
        const Place place;
        ImageManagerProgram first(place);
        QVERIFY(first.start({u"-t"_s, place.page(u"unsaved.bmp"_s)}));
        QTRY_COMPARE_WITH_TIMEOUT(first.tabTitles(), QStringList(u"Untitled*"_s), Program::patienceMs);

        QCOMPARE(startAgain(place, {}), 0);

        QCOMPARE(first.process().waitForExit(), 0); // and no box asks
    }

    void laterStartWithBadFilesAloneEndsTheFirst()
    {
        OpenProgram first;

        QCOMPARE(startAgain(first.place, {first.place.path(u"missing.bmp"_s)}), 0);

        QCOMPARE(first.answer(u"OK"_s).title, u"Load failed"_s);
        QCOMPARE(first.process().waitForExit(), 0);
    }

    void changedPageIsLostUnaskedToALaterStartThatOpensNothing_data()
    {
        QTest::addColumn<QStringList>("badFiles");

        QTest::newRow("no file") << QStringList();
        QTest::newRow("bad files alone") << QStringList{u"missing.bmp"_s, u"gone.bmp"_s};
    }

    void changedPageIsLostUnaskedToALaterStartThatOpensNothing()
    {
        QFETCH(const QStringList, badFiles);
        const Place place;
        const QString path = place.page(u"a.bmp"_s);
        const QByteArray saved = file_bytes(path);
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
        QCOMPARE(file_bytes(path), saved);
    }
};

QTEST_GUILESS_MAIN(tst_single_instance)
#include "tst_single_instance.moc"
