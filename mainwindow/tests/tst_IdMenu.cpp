#include "IdMenu.h"

#include <QAction>
#include <QSignalSpy>
#include <QTest>

class tst_IdMenu : public QObject
{
    Q_OBJECT

private slots:
    void numbersRunDownwardsFromMinusTwo()
    {
        IdMenu menu(nullptr);
        QAction *const first = menu.addAction(QStringLiteral("first"));
        QAction *const second = menu.addAction(QStringLiteral("second"));

        QCOMPARE(menu.findIdForAction(first), -2);
        QCOMPARE(menu.findIdForAction(second), -3);
        QCOMPARE(menu.findIdForAction(first), -2);
        QCOMPARE(menu.findIdForAction(nullptr), -1);
    }

    void anUnknownNumberFindsNothing_data()
    {
        QTest::addColumn<int>("id");

        for (const int id : {-4, -3, -1, 0, 1, 2147483647, -2147483647 - 1})
            QTest::addRow("%d", id) << id;
    }

    void anUnknownNumberFindsNothing()
    {
        QFETCH(int, id);
        IdMenu menu(nullptr);
        QAction *const action = menu.addAction(QStringLiteral("only"));
        QCOMPARE(menu.findActionForId(menu.findIdForAction(action)), action);

        QCOMPARE(menu.findActionForId(id), nullptr);
    }

    void aPickIsToldByItsNumber()
    {
        IdMenu menu(nullptr);
        (void)menu.findIdForAction(menu.addAction(QStringLiteral("first")));
        QAction *const second = menu.addAction(QStringLiteral("second"));
        QSignalSpy activated(&menu, &IdMenu::activated);

        second->trigger();

        QCOMPARE(activated.count(), 1);
        QCOMPARE(activated.at(0).at(0).toInt(), menu.findIdForAction(second));
    }
};

QTEST_MAIN(tst_IdMenu)
#include "tst_IdMenu.moc"
