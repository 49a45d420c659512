#include "files.h"
#include "WindowFixture.h"

#include "window_settings.h"

#include <QActionGroup>
#include <QFile>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;

class tst_ImageManager : public QObject
{
    Q_OBJECT

private slots:
    void theFirstStartHasTheDefaultSizeLabelsAndAFixedBar()
    {
        const WindowFixture fixture;

        QCOMPARE(fixture.window.size(), QSize(335, 564));
        QCOMPARE(fixture.window.windowTitle(), u"Image Manager"_s);
        QCOMPARE(fixture.window.centralWidget(), fixture.tabs());
        QCOMPARE(fixture.toolBar()->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
        QVERIFY(!fixture.toolBar()->isMovable());
        QVERIFY(fixture.action(u"view_labels"_s)->isChecked());
        QVERIFY(!fixture.action(u"view_movable"_s)->isChecked());
        QCOMPARE(fixture.toolBar()->windowTitle(), u"Image Manager Toolbar"_s);
        QCOMPARE(fixture.toolBar()->objectName(), u"Image Manager Toolbar"_s);
        QCOMPARE(fixture.toolBar()->iconSize(), QSize(24, 24));
    }

    void storedSettingsAreReadAtTheStart()
    {
        const TemporaryHome home;
        write_window_setting(WindowSetting::ShowLabels, false);
        write_window_setting(WindowSetting::MovableToolbars, true);
        write_window_setting(WindowSetting::Width, 800);
        write_window_setting(WindowSetting::Height, 600);

        const ImageManager window;

        const auto *const toolBar = window.findChild<QToolBar *>();
        QCOMPARE(window.size(), QSize(800, 600));
        QCOMPARE(toolBar->toolButtonStyle(), Qt::ToolButtonIconOnly);
        QVERIFY(toolBar->isMovable());
    }

    void aGarbledLayoutDoesNoHarm()
    {
        const TemporaryHome home;
        write_window_setting(WindowSetting::Layout, u"\u00ff\u00fd garbled \u00e9"_s);

        const ImageManager window;

        QVERIFY(window.findChild<QToolBar *>()->isVisibleTo(&window));
    }

    void theSettingsFileOfAFormerKindIsRemoved()
    {
        const TemporaryHome home;
        const QString former = home.filePath(u".qt/image_editorrc"_s);
        write_file(former, {});

        const ImageManager window;

        QVERIFY(!QFile::exists(former));
    }

    void theCheckedZoomFollowsEveryZoomCommand()
    {
        WindowFixture fixture(u"a.png"_s);
        const QList<QAction *> zooms = fixture.menu(u"&Zoom"_s)->actions();
        QVERIFY(zooms.at(3)->isChecked());

        fixture.action(u"view_zoom_in"_s)->trigger();
        QVERIFY(zooms.at(2)->isChecked());
        fixture.action(u"view_zoom_out"_s)->trigger();
        fixture.action(u"view_zoom_out"_s)->trigger();
        QVERIFY(zooms.at(4)->isChecked());
        zooms.at(6)->trigger();
        QVERIFY(zooms.at(6)->isChecked());
        QCOMPARE(fixture.currentView()->zoomIndex(), 6);
        QCOMPARE(std::ranges::count_if(zooms, &QAction::isChecked), 1);
    }

    void theZoomButtonsAreOffAtTheirEnds()
    {
        WindowFixture fixture(u"a.png"_s);
        const QList<QAction *> zooms = fixture.menu(u"&Zoom"_s)->actions();

        zooms.at(0)->trigger();
        QVERIFY(!fixture.enabled(u"view_zoom_in"_s));
        QVERIFY(fixture.enabled(u"view_zoom_out"_s));
        zooms.at(7)->trigger();
        QVERIFY(fixture.enabled(u"view_zoom_in"_s));
        QVERIFY(!fixture.enabled(u"view_zoom_out"_s));
        for (const QAction *const zoom : zooms)
            QVERIFY(zoom->isEnabled());
    }

    void anUnknownZoomIdDoesNothing()
    {
        WindowFixture fixture(u"a.png"_s);

        fixture.window.view_zoom_by_id(7);

        QCOMPARE(fixture.currentView()->zoomIndex(), 3);
    }

    void theZoomBelongsToTheTab()
    {
        WindowFixture fixture(u"a.png"_s);
        fixture.action(u"view_zoom_in"_s)->trigger();
        QVERIFY(fixture.open(u"b.png"_s));
        const QList<QAction *> zooms = fixture.menu(u"&Zoom"_s)->actions();
        QVERIFY(zooms.at(3)->isChecked());

        fixture.tabs()->setCurrentIndex(0);

        QVERIFY(zooms.at(2)->isChecked());
    }

    void scrollReachesEveryViewThatHasBeenCurrent()
    {
        WindowFixture fixture(u"a.png"_s, QSize(2000, 1500));
        QVERIFY(fixture.open(u"b.png"_s, QSize(2000, 1500)));

        fixture.action(u"view_scroll"_s)->setChecked(true);

        for (const int index : {0, 1}) {
            fixture.tabs()->setCurrentIndex(index);
            QCoreApplication::processEvents();
            fixture.select(QPoint(100, 100), QPoint(60, 70)); // drags the picture instead
            QCOMPARE(fixture.currentView()->contentsX(), 40);
            QCOMPARE(fixture.currentView()->contentsY(), 30);
            QVERIFY(!fixture.currentView()->hasSelection());
        }
    }

    void aStatusTextOfTheViewReachesTheStatusBar()
    {
        WindowFixture fixture(u"a.png"_s);

        fixture.select(QPoint(10, 10), QPoint(30, 30));

        QCOMPARE(fixture.window.statusBar()->currentMessage(), u"[64x48] (30,30)"_s);
    }

    void labelsAndMovableAreStoredWhenTheyChange()
    {
        const WindowFixture fixture;

        fixture.action(u"view_labels"_s)->setChecked(false);
        fixture.action(u"view_movable"_s)->setChecked(true);

        QCOMPARE(fixture.toolBar()->toolButtonStyle(), Qt::ToolButtonIconOnly);
        QVERIFY(fixture.toolBar()->isMovable());
        QCOMPARE(read_window_setting(WindowSetting::ShowLabels, true).toBool(), false);
        QCOMPARE(read_window_setting(WindowSetting::MovableToolbars, false).toBool(), true);
    }

    void bigPixmapsAndTooltipsAreOnlyStored()
    {
        WindowFixture fixture;

        fixture.action(u"view_big_pixmaps"_s)->setChecked(true);
        fixture.window.view_show_tooltips(false);

        QCOMPARE(fixture.toolBar()->iconSize(), QSize(24, 24));
        QCOMPARE(read_window_setting(WindowSetting::BigPixmaps, false).toBool(), true);
        QCOMPARE(read_window_setting(WindowSetting::ShowTooltips, true).toBool(), false);
    }

    void resetLayoutBringsLabelsAndBarBackAndLeavesTheSize()
    {
        WindowFixture fixture;
        fixture.action(u"view_labels"_s)->setChecked(false);
        fixture.action(u"view_movable"_s)->setChecked(true);
        fixture.window.addToolBar(Qt::BottomToolBarArea, fixture.toolBar());
        fixture.window.resize(700, 500);
        write_window_setting(WindowSetting::Layout, u"something"_s);

        fixture.action(u"view_reset"_s)->trigger();

        QVERIFY(fixture.action(u"view_labels"_s)->isChecked());
        QVERIFY(!fixture.toolBar()->isMovable());
        QCOMPARE(fixture.window.toolBarArea(fixture.toolBar()), Qt::TopToolBarArea);
        QCOMPARE(fixture.window.size(), QSize(700, 500));
        QCOMPARE(read_window_setting(WindowSetting::Layout, u"none"_s).toString(), QString());
    }

    void resetLayoutBringsAHiddenBarBack()
    {
        WindowFixture fixture;
        fixture.toolBar()->toggleViewAction()->trigger();
        QVERIFY(!fixture.toolBar()->isVisible());

        fixture.action(u"view_reset"_s)->trigger();

        QVERIFY(fixture.toolBar()->isVisible());
    }

    void theWindowIsNoLargerThanTheScreen()
    {
        const TemporaryHome home;
        write_window_setting(WindowSetting::Width, 100000);
        write_window_setting(WindowSetting::Height, u"high"_s);

        const ImageManager window;

        QCOMPARE(window.size(), QSize(QGuiApplication::primaryScreen()->availableSize().width(), 564));
    }

    void closingStoresTheSizeAndAnEmptyLayout()
    {
        WindowFixture fixture(u"a.png"_s);
        // The window manager tells the size of a new window before it gives it the focus.
        QVERIFY(QTest::qWaitForWindowActive(&fixture.window));
        fixture.window.resize(640, 500);

        QVERIFY(fixture.window.close());

        QCOMPARE(fixture.tabs()->count(), 0);
        QCOMPARE(read_window_setting(WindowSetting::Width, 0).toInt(), 640);
        QCOMPARE(read_window_setting(WindowSetting::Height, 0).toInt(), 500);
        QCOMPARE(read_window_setting(WindowSetting::Layout, u"none"_s).toString(), QString());
    }

    void aToolButtonThatIsConnectedOpensItsMenu()
    {
        WindowFixture fixture(u"a.png"_s);
        QAction *const action = fixture.action(u"rotate_menu"_s);
        auto *const button = qobject_cast<QToolButton *>(fixture.toolBar()->widgetForAction(action));
        QVERIFY(button);
        connect(button, &QToolButton::pressed, &fixture.window, &ImageManager::OnToolButtonActivated);
        bool hasOpened = false;
        connect(action->menu(), &QMenu::aboutToShow, action->menu(), [&] {
            hasOpened = true;
            QTimer::singleShot(0, action->menu(), &QWidget::close); // the slot waits for it
        });

        emit button->pressed();

        QVERIFY(hasOpened);
    }

    void everyControlHasAnAccessibleName()
    {
        WindowFixture fixture(u"a.png"_s);

        QVERIFY(!fixture.tabs()->accessibleName().isEmpty());
        QVERIFY(!fixture.toolBar()->accessibleName().isEmpty());
        QVERIFY(!fixture.currentView()->accessibleName().isEmpty());
        for (const QAction *const action : fixture.toolBar()->actions())
            QVERIFY(action->isSeparator() || !action->text().isEmpty());
    }
};

QTEST_MAIN(tst_ImageManager)
#include "tst_ImageManager.moc"
