// The actions, menus and bar of the window as it is built, held against their description.

#include "action_records.h"
#include "described_actions.h"
#include "WindowFixture.h"

#include <QActionGroup>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Names of actions, "-" for a separator; the zoom steps have texts alone.
QString names_of(const QList<QAction *> &actions)
{
    QStringList names;
    for (const QAction *const action : actions) {
        if (action->isSeparator())
            names.append(u"-"_s);
        else
            names.append(action->objectName().isEmpty() ? action->text() : action->objectName());
    }
    return names.join(' '_L1);
}

/// The named ones of those actions that belong to @p owner itself, in the order in which they were made.
QString names_of_children(const QObject *owner)
{
    QList<QAction *> actions = owner->findChildren<QAction *>(Qt::FindDirectChildrenOnly);
    actions.removeIf([](const QAction *action) { return action->objectName().isEmpty(); });
    return names_of(actions);
}

QImage picture(const QIcon &icon, QIcon::Mode mode, QIcon::State state)
{
    return icon.pixmap(QSize(24, 24), mode, state).toImage().convertToFormat(QImage::Format_ARGB32);
}

QImage embedded(QLatin1StringView base, QLatin1StringView form)
{
    const QPixmap pixmap = embeddedPixmap(base + form);
    if (pixmap.size() != QSize(24, 24))
        qFatal("no picture %s of that form", base.data());
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
}

} // namespace

class tst_ImageManager_commands : public QObject
{
    Q_OBJECT

private slots:
    void everyActionShowsItsTextsAndTakesItsKey()
    {
        const WindowFixture fixture;
        for (const described::Action &told : described::Actions) {
            const QAction *const action = fixture.action(told.name);
            QVERIFY2((action == nullptr) == (told.need == described::NoAction), told.name.data());
            if (!action)
                continue;
            QCOMPARE(action->text(), told.menuText);
            QCOMPARE(action->statusTip(), told.tip);
            QCOMPARE(action->shortcut().toString(QKeySequence::PortableText), told.shortcut);
            const QString form = told.showsPicture ? u"<p><img source=\"%1\">&nbsp;&nbsp; <b> %1</b></p><p>%2</p>"_s
                                                   : u"<p><b>%1</b></p><p>%2</p>"_s;
            QCOMPARE(action->whatsThis(), form.arg(told.text, told.tip));
        }
        QCOMPARE(fixture.action(u"effects_menu"_s)->text(), u"Effects"_s);
    }

    void everyActionFiresItsSlotAndNoOther()
    {
        const WindowFixture fixture;
        for (const described::Action &told : described::Actions) {
            const QAction *const action = fixture.action(told.name);
            if (!action)
                continue;
            for (const described::Action &other : described::Actions) {
                if (other.fires)
                    QVERIFY2(other.fires(action, &fixture.window) == (told.name == other.name),
                             qPrintable(told.name + " to the slot of "_L1 + other.name));
            }
        }
    }

    void theEightZoomStepsAreOneOfEight()
    {
        const WindowFixture fixture;
        const QList<QAction *> zooms = fixture.menu(u"&Zoom"_s)->actions();

        QCOMPARE(zooms.size(), 8);
        for (const QAction *const zoom : zooms) {
            QVERIFY(zoom->isCheckable());
            QCOMPARE(zoom->statusTip(), u"Changes the image zoom"_s);
            QCOMPARE(zoom->whatsThis(), u"<p>Zoom<p><p>Changes the image zoom.</p>"_s);
            QVERIFY(zoom->shortcut().isEmpty());
            QCOMPARE(zoom->actionGroup(), zooms.constFirst()->actionGroup());
            QCOMPARE(zoom->parent(), zoom->actionGroup());
        }
        QVERIFY(zooms.constFirst()->actionGroup()->isExclusive());
    }

    void fourActionsAreCheckable()
    {
        const WindowFixture fixture;
        const QStringList checkable = QString(described::CheckableActions).split(' '_L1);
        for (const described::Action &told : described::Actions) {
            if (const QAction *const action = fixture.action(told.name))
                QVERIFY2(action->isCheckable() == checkable.contains(told.name), told.name.data());
        }
    }

    void twelveActionsHaveTheirThreePictures()
    {
        const WindowFixture fixture;
        QSet<QString> named;
        for (const described::Icon &told : described::Icons) {
            named.insert(told.action);
            const QIcon icon = fixture.action(told.action)->icon();
            for (const QIcon::State state : {QIcon::Off, QIcon::On}) {
                QCOMPARE(picture(icon, QIcon::Normal, state), embedded(told.base, "_gray.png"_L1));
                QCOMPARE(picture(icon, QIcon::Active, state), embedded(told.base, "_color.png"_L1));
                QCOMPARE(picture(icon, QIcon::Disabled, state), embedded(told.base, "_disable.png"_L1));
            }
            QCOMPARE(icon.availableSizes(), QList<QSize>{QSize(24, 24)});
        }
        for (const described::Action &told : described::Actions) {
            if (const QAction *const action = fixture.action(told.name))
                QVERIFY2(action->icon().isNull() != named.contains(told.name), told.name.data());
        }
    }

    void theBarHasFiveMenusInOrderAndEachItsEntries()
    {
        const WindowFixture fixture;
        QStringList titles;
        for (const described::Place &menu : described::Menus) {
            titles.append(menu.name);
            QVERIFY2(fixture.menu(menu.name), menu.name.data());
            QCOMPARE(names_of(fixture.menu(menu.name)->actions()), menu.entries);
        }
        QCOMPARE(WindowFixture::entries(fixture.window.menuBar()), titles);
    }

    void everySubMenuHasItsEntriesInOrder()
    {
        const WindowFixture fixture;
        for (const described::Place &menu : described::SubMenus) {
            QVERIFY2(fixture.action(menu.name)->menu(), menu.name.data());
            QCOMPARE(names_of(fixture.action(menu.name)->menu()->actions()), menu.entries);
        }
    }

    void theToolBarHasItsButtonsInOrder()
    {
        const WindowFixture fixture;

        QCOMPARE(names_of(fixture.toolBar()->actions()), described::ToolBar);
    }

    void theMenuOfTheToolsStandsNowhere()
    {
        const WindowFixture fixture;
        const QStringList tools = QString(described::ToolsMenu).split(' '_L1);
        auto *const menu = qobject_cast<QMenu *>(fixture.action(tools.constFirst())->associatedObjects().value(0));
        QVERIFY(menu);
        for (const QString &name : tools)
            QVERIFY2(fixture.action(name)->associatedObjects() == QList<QObject *>{menu}, qPrintable(name));
        QCOMPARE(names_of(menu->actions()), described::ToolsMenu);
        QCOMPARE(menu->title(), QString());
        QVERIFY(menu->menuAction()->associatedObjects().isEmpty());
    }

    void newAndBigPixmapsStandNowhere()
    {
        const WindowFixture fixture;

        QVERIFY(fixture.action(u"file_new"_s)->associatedObjects().isEmpty());
        QVERIFY(fixture.action(u"view_big_pixmaps"_s)->associatedObjects().isEmpty());
    }

    void theWindowOwnsTheActionsThatAreInNoGroupInTheirOrder()
    {
        const WindowFixture fixture;

        QCOMPARE(names_of_children(&fixture.window), described::OwnActions);
    }

    void sixGroupsComeBeforeTheActions()
    {
        const WindowFixture fixture;
        QStringList kinds;
        for (const QObject *const child : fixture.window.children()) {
            if (qobject_cast<const QActionGroup *>(child))
                kinds.append(u"group"_s);
            else if (child->objectName() == "file_new"_L1)
                kinds.append(u"first action"_s);
        }
        QCOMPARE(kinds.join(", "_L1), u"group, group, group, group, group, group, first action"_s);
    }

    void fourGroupsOwnTheirActionsAndTheEffectsBorrowTheirs()
    {
        const WindowFixture fixture;
        const auto groups = fixture.window.findChildren<QActionGroup *>(Qt::FindDirectChildrenOnly);
        QCOMPARE(groups.size(), 6); // the first is that of the zoom steps
        for (qsizetype i = 1; i < groups.size(); ++i) {
            const described::Place &told = described::SubMenus.at(static_cast<size_t>(i - 1));
            QVERIFY(!groups.at(i)->isExclusive());
            QCOMPARE(names_of(groups.at(i)->actions()), told.entries);
            QCOMPARE(names_of_children(groups.at(i)), i == 5 ? QString() : QString(told.entries));
        }
    }
};

QTEST_MAIN(tst_ImageManager_commands)
#include "tst_ImageManager_commands.moc"
