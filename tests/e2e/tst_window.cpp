#include "ImageManagerProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;
using State = Accessible::State;

namespace {

constexpr QSize roomy{1100, 700}; ///< no tool button is hidden at this size

int tool_height(ImageManagerProgram &program)
{
    return program.tool(u"Zoom In"_s).extents().height();
}

} // namespace

/// The window around the picture: menus, toolbar, what is kept between two starts.
class tst_window : public QObject
{
    Q_OBJECT

private slots:
    void menuBarHasFiveMenusInOrder()
    {
        OpenProgram program;

        QStringList names;
        const QList<Accessible> menus = program.application().find(Role::MenuBar).children();
        for (const Accessible &menu : menus)
            names.append(menu.name());

        QCOMPARE(names, (QStringList{u"File"_s, u"Edit"_s, u"View"_s, u"Zoom"_s, u"Image"_s}));
    }

    void menuEntriesComeInOrder_data()
    {
        QTest::addColumn<QStringList>("entries");

        QTest::newRow("File") << QStringList{u"Open..."_s,     u"-"_s,         u"Save"_s,  u"Save As..."_s,
                                             u"Save All..."_s, u"-"_s,         u"Print"_s, u"-"_s,
                                             u"Close"_s,       u"Close All"_s, u"-"_s,     u"Exit"_s};
        QTest::newRow("Edit") << QStringList{u"Undo"_s, u"Redo"_s};
        QTest::newRow("View") << QStringList{u"Labels"_s, u"Movable Toolbars"_s, u"Reset Layout"_s};
        QTest::newRow("Zoom") << QStringList{u"8:1"_s, u"4:1"_s, u"2:1"_s, u"1:1"_s,
                                             u"1:2"_s, u"1:4"_s, u"1:8"_s, u"1:16"_s};
        QTest::newRow("Image") << QStringList{u"Color Bit Depth"_s, u"Invert"_s, u"Brightness..."_s,
                                              u"Contrast..."_s,     u"Rotate"_s, u"Flip"_s,
                                              u"Scale"_s,           u"Crop"_s,   u"Properties..."_s};
        QTest::newRow("Color Bit Depth") << QStringList{u"1 bit"_s, u"8 bit"_s, u"32 bit"_s};
        QTest::newRow("Rotate") << QStringList{u"90 degrees CCW"_s, u"90 degrees CW"_s, u"180 degrees"_s};
        QTest::newRow("Flip") << QStringList{u"Horizontally"_s, u"Vertically"_s};
        QTest::newRow("Scale") << QStringList{u"Horizontally..."_s, u"Vertically..."_s, u"Proportionally..."_s,
                                              u"Resize..."_s};
    }

    void menuEntriesComeInOrder()
    {
        QFETCH(const QStringList, entries);
        OpenProgram program;

        QCOMPARE(program.menuEntries(QString::fromLatin1(QTest::currentDataTag())), entries);
    }

    void toolBarComesInOrder()
    {
        OpenProgram program(u"a.bmp"_s, roomy);

        QList<Accessible> tools = program.tools();
        tools.removeIf([](const Accessible &tool) { return !tool.has(State::Showing); });
        std::ranges::sort(tools, {}, [](const Accessible &tool) { return tool.extents().x(); });
        QStringList names;
        for (const Accessible &tool : std::as_const(tools))
            names.append(tool.name());

        QCOMPARE(names,
                 (QStringList{u"Save"_s, u"Undo"_s, u"Redo"_s, u"Zoom Out"_s, u"Zoom In"_s, u"Scroll"_s, u"Crop"_s,
                              u"Scale"_s, u"Rotate"_s, u"Flip"_s, u"Effects"_s, u"Properties"_s}));
    }

    void enabledStateWithAnUnchangedDocument_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<bool>("enabled");

        QTest::newRow("File") << u"Open..."_s << true;
        QTest::newRow("File") << u"Save"_s << true;
        QTest::newRow("File") << u"Save As..."_s << true;
        QTest::newRow("File") << u"Save All..."_s << true;
        QTest::newRow("File") << u"Close"_s << true;
        QTest::newRow("File") << u"Close All"_s << true;
        QTest::newRow("File") << u"Exit"_s << true;
        QTest::newRow("Edit") << u"Undo"_s << false;
        QTest::newRow("Edit") << u"Redo"_s << false;
        QTest::newRow("View") << u"Labels"_s << true;
        QTest::newRow("View") << u"Movable Toolbars"_s << true;
        QTest::newRow("View") << u"Reset Layout"_s << true;
        QTest::newRow("Zoom") << u"8:1"_s << true;
        QTest::newRow("Zoom") << u"1:16"_s << true;
        QTest::newRow("Image") << u"Color Bit Depth"_s << true;
        QTest::newRow("Image") << u"Invert"_s << true;
        QTest::newRow("Image") << u"Brightness..."_s << true;
        QTest::newRow("Image") << u"Contrast..."_s << true;
        QTest::newRow("Image") << u"Rotate"_s << true;
        QTest::newRow("Image") << u"Flip"_s << true;
        QTest::newRow("Image") << u"Scale"_s << true;
        QTest::newRow("Image") << u"Crop"_s << false;
        QTest::newRow("Image") << u"Properties..."_s << true;
    }

    void enabledStateWithAnUnchangedDocument()
    {
        QFETCH(const QString, entry);
        QFETCH(const bool, enabled);
        OpenProgram program;

        const Accessible item = program.menuEntry(QString::fromLatin1(QTest::currentDataTag()), entry);

        QVERIFY(!item.isNull());
        QCOMPARE(item.has(State::Enabled), enabled);
    }

    void everyShownControlHasAName()
    {
        const Place place;
        ImageManagerProgram program(place);
        QVERIFY(program.open({place.page(u"a.bmp"_s, {2000, 1500}), place.page(u"b.bmp"_s)}));
        const QList<Role> named{Role::Button,   Role::CheckBox,      Role::Frame,         Role::MenuButton,
                                Role::MenuItem, Role::CheckMenuItem, Role::RadioMenuItem, Role::ScrollBar,
                                Role::Tab,      Role::TabList,       Role::Text,          Role::ToggleButton,
                                Role::ToolBar};

        const QList<Accessible> nameless = program.application().findAll([&named](const Accessible &control) {
            return control.name().isEmpty() && control.has(State::Showing) && named.contains(control.role());
        });

        QStringList places;
        for (const Accessible &control : nameless) {
            const QPoint corner = control.extents().topLeft();
            places.append(u"%1 at %2,%3"_s.arg(control.roleName()).arg(corner.x()).arg(corner.y()));
        }
        QCOMPARE(places.join(u", "_s), QString());
        QVERIFY(!program.canvas().isEmpty()); // it is found by its name
    }

    void menuEntryIsReachedByMouse()
    {
        OpenProgram program(u"a.bmp"_s, roomy);
        const Accessible menu = program.application().find(Role::MenuBar).find(Role::MenuItem, u"Zoom"_s);

        program.desktop().click(menu.extents().center());
        QTRY_VERIFY(menu.find(Role::Menu).has(State::Showing));
        program.desktop().click(program.menuEntry(u"Zoom"_s, u"1:4"_s).extents().center());

        QTRY_VERIFY(program.menuEntry(u"Zoom"_s, u"1:4"_s).has(State::Checked));
    }

    void menuEntryIsReachedByKeyboard()
    {
        OpenProgram program(u"a.bmp"_s, roomy);

        program.desktop().pressKey("f", {"Alt_L"});
        QTRY_VERIFY(program.application().find(Role::MenuBar).find(Role::Menu).has(State::Showing));
        program.desktop().pressKey("x");

        QCOMPARE(program.process().waitForExit(), 0);
    }

    void labelsSwitchedOffStayOffAfterARestart()
    {
        const Place place;
        const QString page = place.page(u"a.bmp"_s);
        int heightWithoutLabels = 0;
        {
            ImageManagerProgram program(place);
            QVERIFY(program.open({page}, roomy));
            QVERIFY(program.menuEntry(u"View"_s, u"Labels"_s).has(State::Checked));
            const int heightWithLabels = tool_height(program);

            QVERIFY(program.menuEntry(u"View"_s, u"Labels"_s).press());

            QTRY_VERIFY(tool_height(program) < heightWithLabels);
            heightWithoutLabels = tool_height(program);
            QCOMPARE(program.close(), 0);
        }

        ImageManagerProgram again(place);
        QVERIFY(again.open({page}, roomy));

        QVERIFY(!again.menuEntry(u"View"_s, u"Labels"_s).has(State::Checked));
        QCOMPARE(tool_height(again), heightWithoutLabels);
    }

    void movableToolbarsStayOnAfterARestart()
    {
        const Place place;
        const QString page = place.page(u"a.bmp"_s);
        {
            ImageManagerProgram program(place);
            QVERIFY(program.open({page}));
            QVERIFY(!program.menuEntry(u"View"_s, u"Movable Toolbars"_s).has(State::Checked));

            QVERIFY(program.menuEntry(u"View"_s, u"Movable Toolbars"_s).press());

            QTRY_VERIFY(program.menuEntry(u"View"_s, u"Movable Toolbars"_s).has(State::Checked));
            QCOMPARE(program.close(), 0);
        }

        ImageManagerProgram again(place);
        QVERIFY(again.open({page}));

        QVERIFY(again.menuEntry(u"View"_s, u"Movable Toolbars"_s).has(State::Checked));
    }

    void windowSizeComesBackAfterARestart()
    {
        const Place place;
        const QString page = place.page(u"a.bmp"_s);
        {
            ImageManagerProgram program(place);
            QVERIFY(program.open({page}, {612, 433}));
            QCOMPARE(program.close(), 0);
        }

        ImageManagerProgram again(place);
        QVERIFY(again.open({page}));

        QCOMPARE(again.desktop().geometry(again.window()).size(), QSize(612, 433));
    }

    void resetLayoutBringsLabelsBackAndKeepsTheSize()
    {
        OpenProgram program(u"a.bmp"_s, roomy);
        const int heightWithLabels = tool_height(program);
        QVERIFY(program.menuEntry(u"View"_s, u"Labels"_s).press());
        QVERIFY(program.menuEntry(u"View"_s, u"Movable Toolbars"_s).press());
        QTRY_VERIFY(tool_height(program) < heightWithLabels);

        QVERIFY(program.menuEntry(u"View"_s, u"Reset Layout"_s).press());

        QTRY_COMPARE(tool_height(program), heightWithLabels);
        QTRY_VERIFY(!program.menuEntry(u"View"_s, u"Movable Toolbars"_s).has(State::Checked));
        QVERIFY(program.menuEntry(u"View"_s, u"Labels"_s).has(State::Checked));
        QCOMPARE(program.desktop().geometry(program.window()).size(), roomy);
    }

    void closingTheWindowEndsWithStatus0()
    {
        const Place place;
        ImageManagerProgram program(place);
        QVERIFY(program.open({place.page(u"a.bmp"_s), place.page(u"b.bmp"_s)}));

        QCOMPARE(program.close(), 0);
    }

    void closingWhileManyFilesOpenEndsWithStatus0()
    {
        const Place place;
        ImageManagerProgram program(place);
        const QStringList paths(60, place.page(u"a.png"_s, QSize(2480, 3508)));
        QVERIFY(program.start(paths));

        QCOMPARE(program.close(), 0);
    }

    void exitEntryEndsWithStatus0()
    {
        OpenProgram program;

        QVERIFY(program.menuEntry(u"File"_s, u"Exit"_s).press());

        QCOMPARE(program.process().waitForExit(), 0);
    }

    void closedTabLeavesTheOthers()
    {
        const Place place;
        ImageManagerProgram program(place);
        QVERIFY(program.open({place.page(u"a.bmp"_s), place.page(u"b.bmp"_s), place.page(u"c.bmp"_s)}));
        QVERIFY(program.application().find(Role::Tab, u"b.bmp"_s).press());
        QTRY_COMPARE(program.currentTab(), u"b.bmp"_s);

        QVERIFY(program.menuEntry(u"File"_s, u"Close"_s).press());

        QTRY_COMPARE(program.tabTitles(), (QStringList{u"a.bmp"_s, u"c.bmp"_s}));
    }

    void closeAllLeavesAnEmptyWindow()
    {
        const Place place;
        ImageManagerProgram program(place);
        QVERIFY(program.open({place.page(u"a.bmp"_s), place.page(u"b.bmp"_s)}));

        QVERIFY(program.menuEntry(u"File"_s, u"Close All"_s).press());

        QTRY_COMPARE(program.tabTitles(), QStringList());
        QTRY_VERIFY(!program.menuEntry(u"File"_s, u"Close All"_s).has(State::Enabled));
        QVERIFY(!program.menuEntry(u"Zoom"_s, u"1:1"_s).has(State::Enabled));
        QVERIFY(program.menuEntry(u"File"_s, u"Open..."_s).has(State::Enabled));
        QVERIFY(program.process().isRunning());
    }
};

QTEST_GUILESS_MAIN(tst_window)
#include "tst_window.moc"
