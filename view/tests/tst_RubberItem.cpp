#include "Q3Canvas.h"
#include "RubberItem.h"

#include <QTest>

namespace {

constexpr double Natural = 1.0; // image pixels per screen pixel at 1:1

/// A canvas of 100 by 80 with a rubber of corners (x1, y1) and (x2, y2).
struct Selection
{
    Selection(int x1, int y1, int x2, int y2)
    {
        canvas.resize(100, 80);
        rubber.setRect(QRect(QPoint(x1, y1), QPoint(x2, y2)));
    }

    [[nodiscard]] QRect rect() const
    {
        int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
        rubber.coords(&x1, &y1, &x2, &y2);
        return {QPoint(x1, y1), QPoint(x2, y2)};
    }

    /// Takes hold of the point @p grip and drags it to @p target.
    void drag(QPoint grip, QPoint target)
    {
        (void)rubber.hitTest(grip, Natural); // which grip it is shows in the result
        rubber.resizeTo(target);
    }

    Q3Canvas canvas;
    RubberItem rubber{&canvas};
};

QRect corners(int x1, int y1, int x2, int y2)
{
    return {QPoint(x1, y1), QPoint(x2, y2)};
}

} // namespace

class tst_RubberItem : public QObject
{
    Q_OBJECT

private slots:
    void isKnownByItsOwnKind()
    {
        const Selection selection(10, 10, 20, 20);

        QCOMPARE(selection.rubber.rtti(), 984380);
        QCOMPARE(selection.rubber.rubberRtti(), 984380);
    }

    void startsEmptyHiddenAndNew()
    {
        Q3Canvas canvas;
        const RubberItem rubber(&canvas);

        QCOMPARE(rubber.size(), QSize(0, 0));
        QCOMPARE(rubber.mode(), 1);
        QVERIFY(!rubber.isVisible());
    }

    void coordsAreTheFirstAndTheLastPixel()
    {
        Selection selection(0, 0, 0, 0);
        selection.rubber.setSize(12, 7);
        selection.rubber.move(5.9, 3.2); // truncated

        QCOMPARE(selection.rect(), corners(5, 3, 16, 9));
    }

    void aBackwardsRectangleIsTurnedAtTheFirstSetModeOnly()
    {
        Selection selection(50, 40, 20, 10);

        selection.rubber.setMode(0);
        QCOMPARE(selection.rect(), corners(20, 10, 50, 40));

        selection.rubber.setRect(corners(50, 40, 20, 10));
        selection.rubber.setMode(0);
        QCOMPARE(selection.rect(), corners(50, 40, 20, 10));
    }

    void theGripsAndTheirCursors_data()
    {
        QTest::addColumn<QPoint>("point");
        QTest::addColumn<int>("cursor");
        QTest::addColumn<int>("mode");

        // A rectangle from (20,20) to (60,50) at 1:1, so the grips reach 3 pixels to either side.
        QTest::newRow("middle") << QPoint(40, 35) << 24 << 0;
        QTest::newRow("first pixel of the inside") << QPoint(24, 24) << 24 << 0;
        QTest::newRow("top left") << QPoint(20, 20) << 8 << 2;
        QTest::newRow("top left, far end") << QPoint(17, 23) << 8 << 2;
        QTest::newRow("bottom right") << QPoint(63, 47) << 8 << 2;
        QTest::newRow("bottom left") << QPoint(20, 50) << 7 << 2;
        QTest::newRow("top right") << QPoint(60, 20) << 7 << 2;
        QTest::newRow("left edge") << QPoint(23, 35) << 6 << 2;
        QTest::newRow("right edge") << QPoint(57, 35) << 6 << 2;
        QTest::newRow("top edge") << QPoint(40, 17) << 5 << 2;
        QTest::newRow("bottom edge") << QPoint(40, 53) << 5 << 2;
        QTest::newRow("just above the top edge") << QPoint(40, 16) << 24 << 0;
        QTest::newRow("far beside") << QPoint(90, 70) << 24 << 0;
    }

    void theGripsAndTheirCursors()
    {
        QFETCH(QPoint, point);
        Selection selection(20, 20, 60, 50);

        const int cursor = selection.rubber.hitTest(point, Natural);

        QTEST(cursor, "cursor");
        QTEST(selection.rubber.mode(), "mode");
    }

    void cornersWinOverEdgesAndTheFallingDiagonalWinsFirst()
    {
        Selection selection(20, 20, 22, 22); // all grips within 3 pixels lie over each other

        QCOMPARE(selection.rubber.hitTest(QPoint(19, 21), Natural), int{Qt::SizeFDiagCursor});
        selection.rubber.resizeTo(QPoint(10, 10));

        QCOMPARE(selection.rect(), corners(10, 10, 22, 22)); // it was the top left corner
    }

    void theReachOfAGripFollowsTheZoom_data()
    {
        QTest::addColumn<double>("inverseScale");
        QTest::addColumn<int>("reach");

        QTest::newRow("8:1") << 0.125 << 0;
        QTest::newRow("4:1") << 0.25 << 0;
        QTest::newRow("2:1") << 0.5 << 1;
        QTest::newRow("1:1") << 1.0 << 3;
        QTest::newRow("1:2") << 2.0 << 6;
        QTest::newRow("1:4") << 4.0 << 12;
        QTest::newRow("1:8") << 8.0 << 24;
        QTest::newRow("1:16") << 16.0 << 48;
    }

    void theReachOfAGripFollowsTheZoom()
    {
        QFETCH(double, inverseScale);
        QFETCH(int, reach);
        Selection selection(200, 200, 600, 500);

        QCOMPARE(selection.rubber.hitTest(QPoint(200 - reach, 350), inverseScale), int{Qt::SizeHorCursor});
        QCOMPARE(selection.rubber.hitTest(QPoint(200 + reach, 350), inverseScale), int{Qt::SizeHorCursor});
        QCOMPARE(selection.rubber.hitTest(QPoint(200 - reach - 1, 350), inverseScale), 24);
        QCOMPARE(selection.rubber.hitTest(QPoint(200 + reach + 1, 350), inverseScale), 24);
    }

    void at8To1OnlyTheLineItselfHits()
    {
        Selection selection(20, 20, 60, 50);

        QCOMPARE(selection.rubber.hitTest(QPoint(20, 20), 0.125), int{Qt::SizeFDiagCursor});
        QCOMPARE(selection.rubber.hitTest(QPoint(21, 20), 0.125), int{Qt::SizeVerCursor});
        QCOMPARE(selection.rubber.hitTest(QPoint(21, 21), 0.125), 24);
        QCOMPARE(selection.rubber.hitTest(QPoint(19, 20), 0.125), 24);
    }

    void at1To16TheInsideOfANarrowRectangleIsTheCrossedOne()
    {
        // With d = 48 the inner rectangle of 100..150 runs from 148 back to 102, and its inside is 103..147.
        Selection selection(100, 100, 150, 150);

        QCOMPARE(selection.rubber.hitTest(QPoint(125, 125), 16.0), 24);
        QCOMPARE(selection.rubber.mode(), 0);
        QCOMPARE(selection.rubber.hitTest(QPoint(103, 147), 16.0), 24);
        // On the crossed line itself the zones decide, the top left corner first.
        QCOMPARE(selection.rubber.hitTest(QPoint(102, 125), 16.0), int{Qt::SizeFDiagCursor});
        QCOMPARE(selection.rubber.mode(), 2);
        // Beyond the top left zone, which ends at 148, the bottom right one comes before the other two corners.
        QCOMPARE(selection.rubber.hitTest(QPoint(148, 149), 16.0), int{Qt::SizeFDiagCursor});
        QCOMPARE(selection.rubber.hitTest(QPoint(149, 120), 16.0), int{Qt::SizeFDiagCursor});
        QCOMPARE(selection.rubber.hitTest(QPoint(101, 149), 16.0), int{Qt::SizeBDiagCursor});
    }

    void aGripMovesItsSides_data()
    {
        QTest::addColumn<QPoint>("grip");
        QTest::addColumn<QPoint>("target");
        QTest::addColumn<QRect>("expected");

        // From (20,20) to (60,50) on a canvas of 100 by 80. Right and bottom land one pixel before the pointer.
        QTest::newRow("top left") << QPoint(20, 20) << QPoint(12, 14) << corners(12, 14, 60, 50);
        QTest::newRow("top") << QPoint(40, 20) << QPoint(12, 14) << corners(20, 14, 60, 50);
        QTest::newRow("top right") << QPoint(60, 20) << QPoint(70, 14) << corners(20, 14, 69, 50);
        QTest::newRow("right") << QPoint(60, 35) << QPoint(70, 14) << corners(20, 20, 69, 50);
        QTest::newRow("bottom right") << QPoint(60, 50) << QPoint(70, 60) << corners(20, 20, 69, 59);
        QTest::newRow("bottom") << QPoint(40, 50) << QPoint(70, 60) << corners(20, 20, 60, 59);
        QTest::newRow("bottom left") << QPoint(20, 50) << QPoint(12, 60) << corners(12, 20, 60, 59);
        QTest::newRow("left") << QPoint(20, 35) << QPoint(12, 60) << corners(12, 20, 60, 50);

        QTest::newRow("left off the canvas") << QPoint(20, 35) << QPoint(-9, 35) << corners(0, 20, 60, 50);
        QTest::newRow("top off the canvas") << QPoint(40, 20) << QPoint(40, -9) << corners(20, 0, 60, 50);
        QTest::newRow("right off the canvas") << QPoint(60, 35) << QPoint(140, 35) << corners(20, 20, 99, 50);
        QTest::newRow("bottom off the canvas") << QPoint(40, 50) << QPoint(40, 140) << corners(20, 20, 60, 79);

        // 4 pixels are left: the width is 41, so left stops at 20 + 41 - 4.
        QTest::newRow("left past the right side") << QPoint(20, 35) << QPoint(90, 35) << corners(57, 20, 60, 50);
        QTest::newRow("right past the left side") << QPoint(60, 35) << QPoint(3, 35) << corners(20, 20, 23, 50);
        QTest::newRow("top past the bottom") << QPoint(40, 20) << QPoint(40, 75) << corners(20, 47, 60, 50);
        QTest::newRow("bottom past the top") << QPoint(40, 50) << QPoint(40, 2) << corners(20, 20, 60, 23);
        QTest::newRow("top left past both") << QPoint(20, 20) << QPoint(90, 75) << corners(57, 47, 60, 50);
        QTest::newRow("top right past both") << QPoint(60, 20) << QPoint(3, 75) << corners(20, 47, 23, 50);
        QTest::newRow("bottom right past both") << QPoint(60, 50) << QPoint(3, 2) << corners(20, 20, 23, 23);
        QTest::newRow("bottom left past both") << QPoint(20, 50) << QPoint(90, 2) << corners(57, 20, 60, 23);
        QTest::newRow("top left off the canvas") << QPoint(20, 20) << QPoint(-9, -9) << corners(0, 0, 60, 50);
        QTest::newRow("bottom right off the canvas") << QPoint(60, 50) << QPoint(140, 140) << corners(20, 20, 99, 79);
    }

    void aGripMovesItsSides()
    {
        QFETCH(QPoint, grip);
        QFETCH(QPoint, target);
        Selection selection(20, 20, 60, 50);

        selection.drag(grip, target);

        QTEST(selection.rect(), "expected");
    }

    void theFreeCornerFollowsThePointerAndIsHeldLopsidedly_data()
    {
        QTest::addColumn<QPoint>("target");
        QTest::addColumn<QPoint>("corner");

        QTest::newRow("inside") << QPoint(70, 60) << QPoint(70, 60);
        QTest::newRow("past the start") << QPoint(5, 4) << QPoint(5, 4);
        QTest::newRow("zero stays zero") << QPoint(0, 0) << QPoint(0, 0);
        QTest::newRow("negative becomes 1") << QPoint(-1, -40) << QPoint(1, 1);
        QTest::newRow("the canvas size itself stays") << QPoint(100, 80) << QPoint(100, 80);
        QTest::newRow("above it becomes size - 1") << QPoint(101, 500) << QPoint(99, 79);
    }

    void theFreeCornerFollowsThePointerAndIsHeldLopsidedly()
    {
        QFETCH(QPoint, target);
        QFETCH(QPoint, corner);
        Selection selection(20, 20, 60, 50);

        selection.rubber.resizeTo(target);

        QCOMPARE(selection.rect(), QRect(QPoint(20, 20), corner));
    }

    void aNewSelectionIsDrivenByTheGripThatWasTouchedLast()
    {
        Selection selection(20, 20, 60, 50);
        QCOMPARE(selection.rubber.hitTest(QPoint(20, 35), Natural), int{Qt::SizeHorCursor});

        selection.rubber.setRect(corners(40, 40, 45, 45));
        selection.rubber.resizeTo(QPoint(30, 70));

        QCOMPARE(selection.rect(), corners(30, 40, 45, 45)); // the left side alone
    }

    void aTouchThatFindsNoGripLeavesTheFreeCorner_data()
    {
        QTest::addColumn<QPoint>("touch");
        QTest::newRow("inside") << QPoint(40, 35);
        QTest::newRow("beside all grips") << QPoint(90, 70);
    }

    void aTouchThatFindsNoGripLeavesTheFreeCorner()
    {
        QFETCH(const QPoint, touch);
        Selection selection(20, 20, 60, 50);
        QCOMPARE(selection.rubber.hitTest(QPoint(20, 35), Natural), int{Qt::SizeHorCursor});

        QCOMPARE(selection.rubber.hitTest(touch, Natural), int{Qt::BitmapCursor});
        selection.rubber.resizeTo(QPoint(70, 60));

        QCOMPARE(selection.rect(), corners(20, 20, 70, 60)); // and not the left side
    }

    void aMoveStopsAtTheCanvas_data()
    {
        QTest::addColumn<QPoint>("step");
        QTest::addColumn<QPoint>("topLeft");

        // From (20,20), 41 by 31, on 100 by 80: the far side at 99 would be left = 59, top = 49.
        QTest::newRow("free") << QPoint(7, -5) << QPoint(27, 15);
        QTest::newRow("against the left") << QPoint(-30, 0) << QPoint(0, 20);
        QTest::newRow("against the top") << QPoint(0, -21) << QPoint(20, 0);
        QTest::newRow("to the right edge itself") << QPoint(39, 0) << QPoint(59, 20);
        QTest::newRow("past the right edge") << QPoint(40, 0) << QPoint(58, 20);
        QTest::newRow("past the bottom edge") << QPoint(0, 60) << QPoint(20, 48);
    }

    void aMoveStopsAtTheCanvas()
    {
        QFETCH(QPoint, step);
        QFETCH(QPoint, topLeft);
        Selection selection(20, 20, 60, 50);

        selection.rubber.startMove(QPoint(30, 30));
        QCOMPARE(selection.rubber.mode(), 5);
        selection.rubber.moveTo(QPoint(30, 30) + step);

        QCOMPARE(selection.rect(), QRect(topLeft, QSize(41, 31)));
    }

    void aSingleStepStillReachesTheEdge()
    {
        Selection selection(20, 20, 60, 50);
        selection.rubber.startMove(QPoint(30, 30));
        selection.rubber.moveTo(QPoint(90, 30)); // comes to rest one pixel inside, the anchor at 68
        QCOMPARE(selection.rect().right(), 98);

        selection.rubber.moveTo(QPoint(69, 30));

        QCOMPARE(selection.rect().right(), 99);
    }

    void aPointerThatRanPastTheEdgeHasToComeBackFirst()
    {
        Selection selection(20, 20, 60, 50);
        selection.rubber.startMove(QPoint(30, 30));
        selection.rubber.moveTo(QPoint(-20, 30)); // stops at 0: the anchor is now at 10

        selection.rubber.moveTo(QPoint(8, 30));
        QCOMPARE(selection.rect().left(), 0);
        selection.rubber.moveTo(QPoint(14, 30));
        QCOMPARE(selection.rect().left(), 4);
    }

    void aRectangleAsWideAsTheCanvasStaysWhenItIsPulledRight()
    {
        Selection selection(0, 20, 99, 50);
        selection.rubber.startMove(QPoint(30, 30));

        selection.rubber.moveTo(QPoint(35, 30)); // -1 by the right edge, then 0 by the left one

        QCOMPARE(selection.rect(), corners(0, 20, 99, 50));
    }

    void dumpTellsPositionAndSize()
    {
        const Selection selection(20, 10, 60, 50);

        QCOMPARE(selection.rubber.dump(),
                 QStringLiteral("pos: (20.000000,10.000000,0.000000), visible: 0, "
                                "rect: 41.000000x41.000000 (20.000000,10.000000)"));
    }
};

QTEST_MAIN(tst_RubberItem)
#include "tst_RubberItem.moc"
