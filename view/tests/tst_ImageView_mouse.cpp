#include "hand_cursors.h"
#include "RubberItem.h"
#include "ViewFixture.h"

#include <QCursor>
#include <QPixmap>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Counts the paint events of a widget.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *widget)
    {
        QCoreApplication::processEvents();
        widget->installEventFilter(this);
    }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            ++count;
        return false;
    }

    int count = 0;
};

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

/// What the X server shows of the picture.
QImage on_screen(const ImageView &view)
{
    const QPoint corner = view.viewport()->mapTo(view.window(), QPoint(0, 0));
    const QSize size = view.viewport()->size();
    return view.screen()
        ->grabWindow(view.window()->winId(), corner.x(), corner.y(), size.width(), size.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

/// The picture, painted anew as a whole.
QImage painted_anew(const ImageView &view)
{
    return view.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
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

    void aPlainHoverPaintsNothing()
    {
        ViewFixture fixture(QSize(200, 150));
        fixture.move(QPoint(10, 10));
        PaintCounter paints(fixture.view.viewport());

        for (int i = 0; i < 50; ++i) {
            fixture.move(QPoint(10 + i, 10 + i));
            QCoreApplication::processEvents();
        }

        QCOMPARE(paints.count, 0);
    }

    void aMoveDropsTheMarksThatAreThere()
    {
        ViewFixture fixture(QSize(200, 150));
        fixture.move(QPoint(10, 10));
        PaintCounter paints(fixture.view.viewport());
        fixture.view.canvas()->setAllChanged();

        fixture.move(QPoint(11, 10));
        fixture.view.canvas()->update();
        QCoreApplication::processEvents();

        QCOMPARE(paints.count, 0);
    }

    void aSelectionMoveRepaintsTheVisiblePartOnce()
    {
        ViewFixture fixture(QSize(2000, 1500));
        fixture.press(QPoint(20, 30));
        fixture.move(QPoint(40, 40));
        PaintCounter paints(fixture.view.viewport());

        fixture.move(QPoint(59, 79));
        QCoreApplication::processEvents();

        QCOMPARE(paints.count, 1);
    }

    void eachMoveOfASelectionLeavesTheScreenAsIfAllWerePainted_data()
    {
        QTest::addColumn<int>("zoomIndex");
        for (int i = 0; i < 8; ++i)
            QTest::addRow("zoom %d", i) << i;
    }

    void eachMoveOfASelectionLeavesTheScreenAsIfAllWerePainted()
    {
        QFETCH(const int, zoomIndex);
        ViewFixture fixture(QSize(4000, 3000));
        QVERIFY(fixture.view.setZoomIndex(zoomIndex));
        const auto screenIsRight = [&] {
            QCoreApplication::processEvents();
            return QTest::qWaitFor([&] { return on_screen(fixture.view) == painted_anew(fixture.view); }, 2000);
        };
        QVERIFY(screenIsRight());

        fixture.press(QPoint(40, 40));
        for (const QPoint at : {QPoint(120, 90), QPoint(160, 130), QPoint(90, 70), QPoint(20, 60), QPoint(150, 10)}) {
            fixture.move(at);
            QVERIFY(screenIsRight());
        }
        fixture.release(QPoint(150, 10));
        fixture.press(QPoint(260, 170)); // another one takes the place of the first
        for (const QPoint at : {QPoint(200, 120), QPoint(100, 90)}) {
            fixture.move(at);
            QVERIFY(screenIsRight());
        }
        fixture.release(QPoint(100, 90));
        fixture.move(QPoint(180, 130)); // over its inside, where it can be taken
        fixture.press(QPoint(180, 130));
        for (const QPoint at : {QPoint(170, 120), QPoint(150, 100), QPoint(165, 140)}) {
            fixture.move(at);
            QVERIFY(screenIsRight());
        }
    }

    void aSelectionThatEndsWithoutANewOneLeavesNoOutline()
    {
        ViewFixture fixture(QSize(2000, 1500));
        fixture.drag(QPoint(20, 30), QPoint(120, 130));
        const QImage withOutline = painted_anew(fixture.view);

        fixture.press(QPoint(200, 160));
        fixture.release(QPoint(200, 160));
        fixture.move(QPoint(210, 160));

        QVERIFY(!fixture.view.hasSelection());
        QTRY_COMPARE(on_screen(fixture.view), painted_anew(fixture.view));
        QVERIFY(on_screen(fixture.view) != withOutline);
    }

    void theSelectionIsADottedLineOfOneScreenPixel()
    {
        ViewFixture fixture(QSize(30, 20));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^ImageItem::setImage:"_s));
        fixture.view.replaceImage(1, solidPage(QSize(30, 20), qRgb(255, 255, 255)));
        QVERIFY(fixture.view.setZoomIndex(0));
        fixture.drag(QPoint(40, 40), QPoint(120, 120));
        fixture.move(QPoint(250, 180));

        const QImage screen = fixture.view.viewport()->grab().toImage();

        int black = 0, white = 0;
        for (int x = 48; x < 112; ++x) {
            (screen.pixel(x, 40) == qRgb(0, 0, 0) ? black : white) += 1;
            QCOMPARE(screen.pixel(x, 42), qRgb(255, 255, 255)); // one pixel wide
        }
        QVERIFY2(black >= 16 && white >= 16, qPrintable(u"%1 black, %2 white"_s.arg(black).arg(white)));
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
