#include "ImageManagerProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;

/// Help out of a dialog: the viewer of the package comes up, a program of its own, with the page of that dialog.
class tst_help : public QObject
{
    Q_OBJECT

private slots:
    void helpOfADialogOpensItsPage_data();
    void helpOfADialogOpensItsPage();
    void helpStaysWhenTheProgramCloses();
};

namespace {

constexpr QSize roomy{1100, 700};

/// A place whose settings put the tools on the bar.
class ToolPlace : public Place
{
public:
    ToolPlace() { writeSettings("tools_menu=true"); }
};

/// Presses Help in the dialog that a command of the tools opens.
bool ask_for_help(ImageManagerProgram &program, const QString &menu, const QString &entry, const QString &dialog,
                  const QString &help)
{
    const auto button = [&] { return program.application().find(Role::Dialog, dialog).find(Role::Button, help); };
    return program.choose(menu, entry)
        && QTest::qWaitFor([&] { return button().has(Accessible::State::Showing); }, Program::patienceMs)
        && button().press();
}

} // namespace

void tst_help::helpOfADialogOpensItsPage_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("dialog");
    QTest::addColumn<QString>("help");
    QTest::addColumn<QString>("viewer");

    QTest::newRow("tools") << u"C.UTF-8"_s << u"Tools"_s << u"Configure Tools..."_s << u"Configure Tools"_s << u"Help"_s
                           << u"Configuring the external tools - Help"_s;
    QTest::newRow("mail") << u"C.UTF-8"_s << u"Tools"_s << u"Send by E-mail..."_s << u"Send Image By E-mail"_s
                          << u"Help"_s << u"Sending an image by e-mail - Help"_s;
    QTest::newRow("FTP") << u"C.UTF-8"_s << u"Tools"_s << u"Upload by FTP..."_s << u"Upload Image by FTP"_s << u"Help"_s
                         << u"Uploading an image by FTP - Help"_s;
    QTest::newRow("tools in German") << u"de_DE.UTF-8"_s << u"Werkzeuge"_s << u"Werkzeuge einrichten..."_s
                                     << u"Werkzeuge einrichten"_s << u"Hilfe"_s
                                     << u"Externe Werkzeuge einrichten – Hilfe"_s;
}

void tst_help::helpOfADialogOpensItsPage()
{
    QFETCH(const QString, locale);
    QFETCH(const QString, menu);
    QFETCH(const QString, entry);
    QFETCH(const QString, dialog);
    QFETCH(const QString, help);
    QFETCH(const QString, viewer);
    const ToolPlace place;
    ImageManagerProgram program(place);
    program.process().setEnvironment(u"LC_ALL"_s, locale);
    program.process().unsetEnvironment(u"LANGUAGE"_s);
    QVERIFY(program.open({place.page(u"a.png"_s)}, roomy));

    QVERIFY(ask_for_help(program, menu, entry, dialog, help));

    QTRY_VERIFY_WITH_TIMEOUT(program.desktop().windowTitled(viewer) != 0, Program::patienceMs);
    const WindowId window = program.desktop().windowTitled(viewer);
    QVERIFY(!program.desktop().windowsOf(program.process().processId()).contains(window));
    program.desktop().close(window);
    QTRY_COMPARE_WITH_TIMEOUT(program.desktop().windowTitled(viewer), WindowId(0), Program::patienceMs);
    QVERIFY(program.process().isRunning());
}

void tst_help::helpStaysWhenTheProgramCloses()
{
    const ToolPlace place;
    const QString viewer = u"Configuring the external tools - Help"_s;
    ImageManagerProgram program(place);
    QVERIFY(program.open({place.page(u"a.png"_s)}, roomy));
    QVERIFY(ask_for_help(program, u"Tools"_s, u"Configure Tools..."_s, u"Configure Tools"_s, u"Help"_s));
    QTRY_VERIFY_WITH_TIMEOUT(program.desktop().windowTitled(viewer) != 0, Program::patienceMs);

    QVERIFY(program.application().find(Role::Dialog, u"Configure Tools"_s).find(Role::Button, u"Cancel"_s).press());
    QTRY_COMPARE_WITH_TIMEOUT(program.desktop().windowTitled(u"Configure Tools"_s), WindowId(0), Program::patienceMs);
    QCOMPARE(program.close(), 0);

    const WindowId window = program.desktop().windowTitled(viewer);
    QVERIFY(window != 0);
    program.desktop().close(window);
    QTRY_COMPARE_WITH_TIMEOUT(program.desktop().windowTitled(viewer), WindowId(0), Program::patienceMs);
}

QTEST_GUILESS_MAIN(tst_help)
#include "tst_help.moc"
