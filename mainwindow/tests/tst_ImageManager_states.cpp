// Which commands are on: without a tab, with one, and when the last one has gone.

#include "described_actions.h"
#include "NextDialog.h"
#include "WindowFixture.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_ImageManager_states : public QObject
{
    Q_OBJECT

private slots:
    void eachCommandIsOnWhileWhatItNeedsIsThere_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("withoutATab");
        QTest::addColumn<bool>("withATab");
        using namespace described;
        for (const Action &action : Actions) {
            if (action.need != NoAction)
                QTest::newRow(action.name.data()) << QString(action.name) << (action.need == Nothing)
                                                  << (action.need == Nothing || action.need == Tab);
        }
        QTest::newRow("effects_menu") << u"effects_menu"_s << false << true;
    }

    void eachCommandIsOnWhileWhatItNeedsIsThere()
    {
        QFETCH(const QString, name);
        WindowFixture fixture;
        QTEST(fixture.enabled(name), "withoutATab");
        QVERIFY(fixture.open(u"a.png"_s));
        QTEST(fixture.enabled(name), "withATab");

        fixture.action(u"file_close"_s)->trigger();

        QCOMPARE(fixture.tabs()->count(), 0);
        QTEST(fixture.enabled(name), "withoutATab");
    }

    void theLastTabSwitchesOffWhatAPastOrASelectionHasSwitchedOn()
    {
        WindowFixture fixture(u"a.png"_s);
        for (int i = 0; i < 2; ++i) {
            const NextDialog preview([](QDialog &dialog) { dialog.accept(); });
            fixture.action(u"flip_vertically"_s)->trigger();
        }
        fixture.action(u"edit_undo"_s)->trigger();
        fixture.select(QPoint(10, 10), QPoint(30, 30));
        const QStringList names{u"edit_undo"_s, u"edit_redo"_s, u"image_crop"_s};
        for (const QString &name : names)
            QVERIFY2(fixture.enabled(name), qPrintable(name));
        fixture.currentView()->document()->setModified(false); // so that nothing is asked

        fixture.action(u"file_close"_s)->trigger();

        QCOMPARE(fixture.tabs()->count(), 0);
        for (const QString &name : names)
            QVERIFY2(!fixture.enabled(name), qPrintable(name));
    }

    void theZoomsAreOnWithATabAlone()
    {
        WindowFixture fixture;
        const QList<QAction *> zooms = fixture.menu(u"&Zoom"_s)->actions();
        const auto states = [&zooms] {
            QList<bool> on;
            for (const QAction *const zoom : zooms)
                on.append(zoom->isEnabled());
            return on;
        };
        const QList<bool> off(8, false);
        QCOMPARE(states(), off);
        QVERIFY(fixture.open(u"a.png"_s));
        QCOMPARE(states(), QList<bool>(8, true));

        fixture.action(u"file_close"_s)->trigger();

        QCOMPARE(states(), off);
    }

    void cropFollowsTheSelection()
    {
        WindowFixture fixture(u"a.png"_s);
        QVERIFY(!fixture.enabled(u"image_crop"_s));

        fixture.select(QPoint(10, 10), QPoint(30, 30));
        QVERIFY(fixture.enabled(u"image_crop"_s));
        fixture.select(QPoint(150, 150), QPoint(150, 150)); // beside the picture
        QVERIFY(!fixture.enabled(u"image_crop"_s));
    }
};

QTEST_MAIN(tst_ImageManager_states)
#include "tst_ImageManager_states.moc"
