#include "classic_rect.h"

#include <QTest>

class tst_classic_rect : public QObject
{
    Q_OBJECT

private slots:
    void normalizingSwapsTheSidesThatAreBackwards_data()
    {
        QTest::addColumn<QPoint>("first");
        QTest::addColumn<QPoint>("last");
        QTest::addColumn<QRect>("expected");

        QTest::newRow("upright") << QPoint(2, 3) << QPoint(7, 9) << QRect(QPoint(2, 3), QPoint(7, 9));
        QTest::newRow("left 10 to right 4") << QPoint(10, 3) << QPoint(4, 9) << QRect(QPoint(4, 3), QPoint(10, 9));
        QTest::newRow("bottom above top") << QPoint(2, 9) << QPoint(7, 3) << QRect(QPoint(2, 3), QPoint(7, 9));
        QTest::newRow("both") << QPoint(7, 9) << QPoint(2, 3) << QRect(QPoint(2, 3), QPoint(7, 9));
        QTest::newRow("one pixel") << QPoint(5, 5) << QPoint(5, 5) << QRect(5, 5, 1, 1);
        QTest::newRow("width 0 stays") << QPoint(5, 9) << QPoint(4, 3) << QRect(QPoint(5, 9), QPoint(4, 3));
        QTest::newRow("height 0 stays") << QPoint(9, 5) << QPoint(3, 4) << QRect(QPoint(9, 5), QPoint(3, 4));
    }

    void normalizingSwapsTheSidesThatAreBackwards()
    {
        QFETCH(QPoint, first);
        QFETCH(QPoint, last);
        QFETCH(QRect, expected);

        QCOMPARE(classic_normalized(QRect(first, last)), expected);
    }

    void edgesCountUnlessThePointHasToBeProper_data()
    {
        QTest::addColumn<QRect>("rect");
        QTest::addColumn<QPoint>("point");
        QTest::addColumn<bool>("inside");
        QTest::addColumn<bool>("properlyInside");

        const QRect upright(QPoint(4, 4), QPoint(10, 10));
        const QRect backwards(QPoint(10, 10), QPoint(4, 4));
        for (const auto &[name, rect] : {std::pair{"upright", upright}, std::pair{"backwards", backwards}}) {
            QTest::addRow("%s, middle", name) << rect << QPoint(7, 7) << true << true;
            QTest::addRow("%s, left edge", name) << rect << QPoint(4, 7) << true << false;
            QTest::addRow("%s, inside the left edge", name) << rect << QPoint(5, 7) << true << true;
            QTest::addRow("%s, bottom edge", name) << rect << QPoint(7, 10) << true << false;
            QTest::addRow("%s, beside", name) << rect << QPoint(11, 7) << false << false;
            QTest::addRow("%s, above", name) << rect << QPoint(7, 3) << false << false;
        }
    }

    void edgesCountUnlessThePointHasToBeProper()
    {
        QFETCH(QRect, rect);
        QFETCH(QPoint, point);
        QFETCH(bool, inside);
        QFETCH(bool, properlyInside);

        QCOMPARE(classic_contains(rect, point, false), inside);
        QCOMPARE(classic_contains(rect, point, true), properlyInside);
    }
};

QTEST_APPLESS_MAIN(tst_classic_rect)
#include "tst_classic_rect.moc"
