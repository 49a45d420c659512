#include "hand_cursors.h"
#include "ViewFixture.h"

#include <QCursor>
#include <QPixmap>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

bool shows_open_hand(const ImageView &view)
{
    return view.cursor().shape() == Qt::BitmapCursor
        && view.cursor().bitmap().toImage() == open_hand_cursor().bitmap().toImage();
}

bool shows_closed_hand(const ImageView &view)
{
    return view.cursor().shape() == Qt::BitmapCursor
        && view.cursor().bitmap().toImage() == closed_hand_cursor().bitmap().toImage();
}

QPoint contents_position(const ImageView &view)
{
    return {view.contentsX(), view.contentsY()};
}

} // namespace

class tst_ImageView_mouse : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        // Out of the way: the pointer of the X server has no part in the gestures that are sent.
        QCursor::setPos(0, 0);
    }

    void aDragOnThePictureDrawsASelection()
    {
        ViewFixture fixture(QSize(200, 150));
        QSignalSpy selectionChanged(&fixture.view, &ImageView::selectionChanged);

        fixture.press(QPoint(20, 30));
        QCOMPARE(fixture.view.cursor().shape(), Qt::CrossCursor);
        fixture.move(QPoint(40, 40));
        fixture.move(QPoint(59, 79));
        fixture.release(QPoint(59, 79));

        QVERIFY(fixture.view.hasSelection());
        QCOMPARE(fixture.view.selection(), QRect(QPoint(20, 30), QPoint(59, 79)));
        QCOMPARE(selectionChanged.count(), 2); // the press hides, the first move shows
        QVERIFY(shows_open_hand(fixture.view)); // the pointer lies on the selection
    }

    void aPressAndAReleaseWithoutAMoveShowNoRubber()
    {
        ViewFixture fixture(QSize(200, 150));

        fixture.press(QPoint(20, 30));
        fixture.release(QPoint(20, 30));

        QVERIFY(!fixture.view.hasSelection());
        QCOMPARE(fixture.view.selection(), QRect());
        QCOMPARE(fixture.view.cursor().shape(), Qt::ArrowCursor);
    }

    void aPressBesideThePictureHidesTheSelectionAndBeginsNone()
    {
        ViewFixture fixture(QSize(200, 150));
        fixture.drag(QPoint(20, 30), QPoint(59, 79));
        QSignalSpy selectionChanged(&fixture.view, &ImageView::selectionChanged);

        fixture.press(QPoint(250, 180));
        QVERIFY(!fixture.view.hasSelection());
        QCOMPARE(selectionChanged.count(), 1);
        QCOMPARE(fixture.view.cursor().shape(), Qt::CrossCursor);
        fixture.move(QPoint(100, 100));

        QVERIFY(!fixture.view.hasSelection());
        QCOMPARE(fixture.view.cursor().shape(), Qt::ArrowCursor);
    }

    void onlyTheFirstBackwardsSelectionIsTurned()
    {
        ViewFixture fixture(QSize(200, 150));

        fixture.drag(QPoint(80, 70), QPoint(30, 20));
        // From 80 to 30 the width is -49, so the corners are 80 and 30.
        QCOMPARE(fixture.view.selection(), QRect(QPoint(30, 20), QPoint(80, 70)));

        fixture.move(QPoint(150, 120)); // leaves the selection
        fixture.drag(QPoint(180, 140), QPoint(130, 110));
        QCOMPARE(fixture.view.selection(), QRect(QPoint(180, 140), QPoint(130, 110)));
    }

    void aSelectionIsMovedByItsInside()
    {
        ViewFixture fixture(QSize(200, 150));
        fixture.drag(QPoint(20, 30), QPoint(59, 79));

        fixture.move(QPoint(40, 50));
        QVERIFY(shows_open_hand(fixture.view));
        fixture.press(QPoint(40, 50));
        QVERIFY(shows_closed_hand(fixture.view));
        fixture.move(QPoint(50, 45));
        fixture.release(QPoint(50, 45));

        QCOMPARE(fixture.view.selection(), QRect(QPoint(30, 25), QPoint(69, 74)));
    }

    void aSelectionIsResizedByAGrip()
    {
        ViewFixture fixture(QSize(200, 150));
        fixture.drag(QPoint(20, 30), QPoint(59, 79));

        fixture.move(QPoint(20, 50));
        QCOMPARE(fixture.view.cursor().shape(), Qt::SizeHorCursor);
        fixture.drag(QPoint(20, 50), QPoint(10, 60));

        QCOMPARE(fixture.view.selection(), QRect(QPoint(10, 30), QPoint(59, 79)));
    }

    void aRightPressDoesNothingButItsReleaseEndsTheGesture()
    {
        ViewFixture fixture(QSize(200, 150));
        fixture.press(QPoint(20, 30));
        fixture.move(QPoint(59, 79));

        fixture.press(QPoint(100, 100), Qt::RightButton);
        QVERIFY(fixture.view.hasSelection());
        fixture.release(QPoint(150, 120), Qt::RightButton);

        QCOMPARE(fixture.view.cursor().shape(), Qt::ArrowCursor);
        fixture.move(QPoint(120, 110)); // the selection follows no more
        QCOMPARE(fixture.view.selection(), QRect(QPoint(20, 30), QPoint(59, 79)));
    }

    void aClickBeforeLeavesTheFirstBackwardsSelectionToBeTurned()
    {
        ViewFixture fixture(QSize(200, 150));

        fixture.press(QPoint(100, 100));
        fixture.release(QPoint(100, 100));
        fixture.drag(QPoint(80, 70), QPoint(30, 20));

        QCOMPARE(fixture.view.selection(), QRect(QPoint(30, 20), QPoint(80, 70)));
    }

    void aReleaseBesideTheSelectionShowsTheArrow()
    {
        ViewFixture fixture(QSize(200, 150));
        fixture.drag(QPoint(20, 30), QPoint(59, 79));
        QVERIFY(shows_open_hand(fixture.view));

        fixture.release(QPoint(150, 120), Qt::RightButton);

        QCOMPARE(fixture.view.cursor().shape(), Qt::ArrowCursor);
    }

    void aRightReleaseOverTheSelectionShowsTheOpenHand()
    {
        ViewFixture fixture(QSize(200, 150));
        fixture.drag(QPoint(20, 30), QPoint(59, 79));
        fixture.move(QPoint(150, 120));
        QCOMPARE(fixture.view.cursor().shape(), Qt::ArrowCursor);

        fixture.release(QPoint(40, 50), Qt::RightButton);

        QVERIFY(shows_open_hand(fixture.view));
    }

    void pointsAreImagePixelsAtEveryZoom()
    {
        ViewFixture fixture(QSize(100, 80));
        QVERIFY(fixture.view.setZoomIndex(2)); // 2:1

        fixture.drag(QPoint(20, 30), QPoint(58, 78));

        QCOMPARE(fixture.view.selection(), QRect(QPoint(10, 15), QPoint(29, 39)));
    }

    void aPointMeansTheNearestPixelAtEnlargements_data()
    {
        QTest::addColumn<int>("zoomIndex");
        QTest::addColumn<QPoint>("position");
        QTest::addColumn<QPoint>("pixel");

        QTest::newRow("8:1") << 0 << QPoint(3, 4) << QPoint(0, 1); // 0.375 and 0.5
        QTest::newRow("8:1, further in") << 0 << QPoint(20, 19) << QPoint(3, 2); // 2.5 and 2.375
        QTest::newRow("4:1") << 1 << QPoint(1, 2) << QPoint(0, 1); // 0.25 and 0.5
        QTest::newRow("2:1") << 2 << QPoint(1, 2) << QPoint(1, 1); // 0.5 and 1
        QTest::newRow("1:1") << 3 << QPoint(17, 23) << QPoint(17, 23);
        QTest::newRow("1:2") << 4 << QPoint(17, 23) << QPoint(34, 46);
        QTest::newRow("1:4") << 5 << QPoint(17, 23) << QPoint(68, 92);
        QTest::newRow("1:8") << 6 << QPoint(17, 9) << QPoint(136, 72);
        QTest::newRow("1:16") << 7 << QPoint(12, 9) << QPoint(192, 144);
        // Of 201 columns the last has a screen pixel of its own, of 150 lines the one before the last.
        QTest::newRow("last pixel at 1:2") << 4 << QPoint(100, 74) << QPoint(200, 148);
    }

    void aPointMeansTheNearestPixelAtEnlargements()
    {
        QFETCH(const int, zoomIndex);
        QFETCH(const QPoint, position);
        QFETCH(const QPoint, pixel);
        ViewFixture fixture(QSize(201, 150));
        QVERIFY(fixture.view.setZoomIndex(zoomIndex));
        QSignalSpy statusChanged(&fixture.view, &ImageView::statusChanged);

        fixture.move(position);

        QCOMPARE(statusChanged.count(), 1);
        QCOMPARE(statusChanged.at(0).at(0).toString(), u"[201x150] (%1,%2)"_s.arg(pixel.x()).arg(pixel.y()));
    }

    void aMoveTellsTheStatus()
    {
        ViewFixture fixture(QSize(200, 150));
        QSignalSpy statusChanged(&fixture.view, &ImageView::statusChanged);

        fixture.move(QPoint(17, 23));
        fixture.move(QPoint(250, 23));

        QCOMPARE(statusChanged.count(), 2);
        QCOMPARE(statusChanged.at(0).at(0).toString(), u"[200x150] (17,23)"_s);
        QCOMPARE(statusChanged.at(1).at(0).toString(), u"[200x150]"_s);
    }

    void freeHandScrollingDragsThePictureUnderThePointer()
    {
        ViewFixture fixture(QSize(2000, 1500));
        fixture.view.setContentsPos(500, 400);
        fixture.view.OnToggleScroll(true);
        QVERIFY(shows_open_hand(fixture.view));

        fixture.press(QPoint(100, 100));
        QVERIFY(shows_closed_hand(fixture.view));
        fixture.move(QPoint(70, 120));
        QCOMPARE(contents_position(fixture.view), QPoint(530, 380));
        fixture.move(QPoint(60, 130));
        QCOMPARE(contents_position(fixture.view), QPoint(540, 370));
        fixture.release(QPoint(60, 130));
        QVERIFY(shows_open_hand(fixture.view));

        QVERIFY(!fixture.view.hasSelection());
    }

    void aRightPressDoesNotTakeHoldOfThePicture()
    {
        ViewFixture fixture(QSize(2000, 1500));
        fixture.view.OnToggleScroll(true);

        fixture.press(QPoint(100, 100), Qt::RightButton);
        QVERIFY(shows_open_hand(fixture.view));
        fixture.move(QPoint(70, 60));

        QCOMPARE(contents_position(fixture.view), QPoint(0, 0));
    }

    void theHandStopsAtTheEndsOfThePicture()
    {
        ViewFixture fixture(QSize(2000, 1500));
        fixture.view.OnToggleScroll(true);

        fixture.press(QPoint(100, 100));
        fixture.move(QPoint(150, 150));

        QCOMPARE(contents_position(fixture.view), QPoint(0, 0));
    }

    void theFirstHoverInFreeHandModeTakesTheHandAwayUntilThePress()
    {
        ViewFixture fixture(QSize(2000, 1500));
        fixture.view.OnToggleScroll(true);

        fixture.move(QPoint(100, 100));
        QCOMPARE(fixture.view.cursor().shape(), Qt::ArrowCursor);
        fixture.press(QPoint(100, 100));
        QVERIFY(shows_closed_hand(fixture.view));
        fixture.release(QPoint(100, 100));
        QVERIFY(shows_open_hand(fixture.view));
    }

    void aButtonThatIsLetGoElsewhereEndsTheGesture_data()
    {
        QTest::addColumn<QPoint>("press");
        QTest::addColumn<QRect>("selection"); // when the button is let go

        QTest::newRow("drawing") << QPoint(100, 100) << QRect(QPoint(100, 100), QPoint(120, 130));
        QTest::newRow("moving") << QPoint(40, 50) << QRect(QPoint(100, 110), QPoint(139, 159));
        QTest::newRow("resizing") << QPoint(59, 79) << QRect(QPoint(20, 30), QPoint(119, 129)); // a grip takes its side
    }

    void aButtonThatIsLetGoElsewhereEndsTheGesture()
    {
        QFETCH(const QPoint, press);
        QFETCH(const QRect, selection);
        ViewFixture fixture(QSize(400, 300));
        fixture.drag(QPoint(20, 30), QPoint(59, 79));
        fixture.move(press);
        fixture.press(press);
        fixture.move(QPoint(120, 130));
        QCOMPARE(fixture.view.selection(), selection);

        fixture.releaseElsewhere(); // over a box that stands in front, say
        fixture.move(QPoint(180, 190));
        fixture.move(QPoint(90, 95));

        QCOMPARE(fixture.view.selection(), selection);
    }

    void aButtonThatIsLetGoElsewhereEndsTheScrollingByHand()
    {
        ViewFixture fixture(QSize(2000, 1500));
        fixture.view.OnToggleScroll(true);
        fixture.press(QPoint(100, 100));
        fixture.move(QPoint(70, 60));
        QCOMPARE(contents_position(fixture.view), QPoint(30, 40));

        fixture.releaseElsewhere();
        fixture.move(QPoint(20, 10));

        QCOMPARE(contents_position(fixture.view), QPoint(30, 40));
        QVERIFY(!shows_closed_hand(fixture.view));
    }

    void freeHandScrollingLeavesTheSelectionAlone()
    {
        ViewFixture fixture(QSize(2000, 1500));
        fixture.drag(QPoint(20, 30), QPoint(59, 79));
        fixture.view.OnToggleScroll(true);

        fixture.drag(QPoint(40, 50), QPoint(30, 40));

        QCOMPARE(fixture.view.selection(), QRect(QPoint(20, 30), QPoint(59, 79)));
        QCOMPARE(contents_position(fixture.view), QPoint(10, 10));
    }

    void switchingFreeHandScrollingOffEndsADrag()
    {
        ViewFixture fixture(QSize(2000, 1500));
        fixture.view.OnToggleScroll(true);
        fixture.press(QPoint(100, 100));

        fixture.view.OnToggleScroll(false);
        QCOMPARE(fixture.view.cursor().shape(), Qt::ArrowCursor);
        fixture.move(QPoint(50, 50));
        fixture.view.OnToggleScroll(true);
        fixture.move(QPoint(40, 40));

        QCOMPARE(contents_position(fixture.view), QPoint(0, 0));
    }

    void aDoubleClickIsAPress()
    {
        ViewFixture fixture(QSize(200, 150));
        fixture.drag(QPoint(20, 30), QPoint(59, 79));

        QTest::mouseDClick(fixture.view.viewport(), Qt::LeftButton, {}, QPoint(150, 120));

        QVERIFY(!fixture.view.hasSelection());
    }
};

QTEST_MAIN(tst_ImageView_mouse)
#include "tst_ImageView_mouse.moc"
