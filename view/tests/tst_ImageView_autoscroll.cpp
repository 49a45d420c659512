#include "ViewFixture.h"

#include <QAbstractEventDispatcher>
#include <QCursor>
#include <QDialog>
#include <QSignalSpy>
#include <QTest>
#include <QTimerEvent>

namespace {

constexpr int Beyond = 40; // pixels that the pointer is held to the right of the view

/// Intervals of the view's running timers, in ms.
QList<int> intervals(ImageView &view)
{
    QList<int> intervals;
    for (const auto &timer : QAbstractEventDispatcher::instance()->registeredTimers(&view))
        intervals.append(timer.interval);
    return intervals;
}

/// A view with a picture larger than itself, and the pointer of the X server for it.
class WideFixture : public ViewFixture
{
public:
    WideFixture() : ViewFixture(QSize(2000, 1500)) { }

    /// Takes pointer and gesture out of the view, to its right.
    void moveOutside()
    {
        QCursor::setPos(view.viewport()->mapToGlobal(outside()));
        move(outside());
    }

    [[nodiscard]] QPoint outside() const { return {view.viewport()->width() + Beyond, 90}; }
};

} // namespace

class tst_ImageView_autoscroll : public QObject
{
    Q_OBJECT

private slots:
    void init() { QCursor::setPos(0, 0); }

    void aPointerHeldOutsideStretchesTheSelectionWithoutFurtherEvents()
    {
        WideFixture fixture;
        fixture.drag(QPoint(20, 30), QPoint(59, 79));
        fixture.move(QPoint(59, 79));
        fixture.press(QPoint(59, 79)); // the bottom right grip
        fixture.moveOutside();
        const int first = fixture.view.contentsX();
        const int firstRight = fixture.view.selection().right();

        QTRY_VERIFY(fixture.view.contentsX() >= first + 3 * Beyond);

        QVERIFY(fixture.view.selection().right() > firstRight);
        QCOMPARE(fixture.view.selection().left(), 20);
        fixture.release(fixture.outside());
    }

    void aPointerHeldOutsideTakesTheSelectionAlong()
    {
        WideFixture fixture;
        fixture.drag(QPoint(20, 30), QPoint(59, 79));
        fixture.move(QPoint(40, 50));
        fixture.press(QPoint(40, 50)); // its inside
        fixture.moveOutside();
        const int first = fixture.view.contentsX();
        const QRect firstSelection = fixture.view.selection();

        QTRY_VERIFY(fixture.view.contentsX() >= first + 3 * Beyond);

        QVERIFY(fixture.view.selection().left() >= firstSelection.left() + 3 * Beyond);
        QCOMPARE(fixture.view.selection().size(), firstSelection.size());
        fixture.release(fixture.outside());
    }

    void aNewSelectionCatchesUpOnlyAtTheNextMove()
    {
        WideFixture fixture;
        fixture.press(QPoint(20, 30));
        fixture.move(QPoint(59, 79));
        fixture.moveOutside();
        const QRect selection = fixture.view.selection();
        const int first = fixture.view.contentsX();

        QTRY_VERIFY(fixture.view.contentsX() >= first + 3 * Beyond);
        QCOMPARE(fixture.view.selection(), selection);

        fixture.move(fixture.outside());
        QVERIFY(fixture.view.selection().right() > selection.right());
        fixture.release(fixture.outside());
    }

    void eachStepComesAfterFiftyMillisecondsAndBringsThePointerToTheEdge()
    {
        WideFixture fixture;
        fixture.press(QPoint(20, 30));
        fixture.move(QPoint(59, 79));
        QCOMPARE(intervals(fixture.view), QList<int>());
        QSignalSpy moves(&fixture.view, &ImageView::contentsMoving);

        fixture.moveOutside();

        QCOMPARE(intervals(fixture.view), QList<int>{50});
        QTRY_VERIFY(moves.count() >= 4);
        for (int i = 0; i < 4; ++i)
            QCOMPARE(moves.at(i).at(0).toInt(), (i + 1) * Beyond);
        fixture.release(fixture.outside());
    }

    void aFramedViewGoesOnByTheWidthOfItsFrameAsWell()
    {
        constexpr int frame = 10;
        WideFixture fixture;
        fixture.view.setFrameStyle(QFrame::Panel | QFrame::Plain);
        fixture.view.setLineWidth(frame);
        QCOMPARE(fixture.view.viewport()->mapTo(&fixture.view, QPoint(0, 0)), QPoint(frame, frame));
        fixture.press(QPoint(20, 30));
        fixture.move(QPoint(59, 79));
        QSignalSpy moves(&fixture.view, &ImageView::contentsMoving);

        fixture.moveOutside(); // scrolls by itself, and then the timer does

        QTRY_VERIFY(moves.count() >= 4);
        for (int i = 0; i < 4; ++i)
            QCOMPARE(moves.at(i).at(0).toInt(), Beyond + i * (Beyond + frame));
        fixture.release(fixture.outside());
    }

    void aBoxInFrontStopsTheTimer()
    {
        WideFixture fixture;
        fixture.press(QPoint(20, 30));
        fixture.move(QPoint(59, 79));
        fixture.moveOutside();
        QCOMPARE(intervals(fixture.view), QList<int>{50});

        QDialog box;
        box.setModal(true);
        box.show();

        QCOMPARE(intervals(fixture.view), QList<int>());
    }

    void onlyAMoveStrictlyInsideStopsTheTimer()
    {
        WideFixture fixture;
        fixture.press(QPoint(20, 30));
        fixture.move(QPoint(59, 79));
        fixture.moveOutside();
        const int lastColumn = fixture.view.viewport()->width() - 1;

        fixture.move(QPoint(lastColumn, 90));
        QCOMPARE(intervals(fixture.view), QList<int>{50});
        fixture.move(QPoint(lastColumn - 1, 90));
        QCOMPARE(intervals(fixture.view), QList<int>());
        fixture.release(QPoint(lastColumn - 1, 90));
    }

    void anyReleaseStopsTheTimer_data()
    {
        QTest::addColumn<Qt::MouseButton>("button");

        QTest::newRow("left") << Qt::LeftButton;
        QTest::newRow("right") << Qt::RightButton;
    }

    void anyReleaseStopsTheTimer()
    {
        QFETCH(const Qt::MouseButton, button);
        WideFixture fixture;
        fixture.press(QPoint(20, 30));
        fixture.move(QPoint(59, 79));
        fixture.moveOutside();
        QCOMPARE(intervals(fixture.view), QList<int>{50});

        fixture.release(fixture.outside(), button);

        QCOMPARE(intervals(fixture.view), QList<int>());
    }

    void anotherTimerScrollsNothing()
    {
        WideFixture fixture;
        QCursor::setPos(fixture.view.viewport()->mapToGlobal(fixture.outside()));
        QTimerEvent other(123456);

        QCoreApplication::sendEvent(&fixture.view, &other);

        QCOMPARE(fixture.view.contentsX(), 0);
    }
};

QTEST_MAIN(tst_ImageView_autoscroll)
#include "tst_ImageView_autoscroll.moc"
