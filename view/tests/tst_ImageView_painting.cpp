// What the gestures of the mouse leave on the screen.

#include "ViewFixture.h"

#include <QCursor>
#include <QPaintEvent>
#include <QPixmap>
#include <QScreen>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Large enough for the hand to take along what stays in view.
constexpr QSize LargeView(1100, 800);

/// The paint events of a widget: how many, and what they covered.
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
        if (event->type() == QEvent::Paint) {
            ++count;
            region += static_cast<QPaintEvent *>(event)->region();
        }
        return false;
    }

    int count = 0;
    QRegion region;
};

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

/// Lets the picture be painted. Whether the screen then shows all of it as it is.
bool screen_is_right(const ImageView &view)
{
    QCoreApplication::processEvents();
    return QTest::qWaitFor([&view] { return on_screen(view) == painted_anew(view); }, 2000);
}

} // namespace

class tst_ImageView_painting : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        // Out of the way: the pointer of the X server has no part in the gestures that are sent.
        QCursor::setPos(0, 0);
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

    void aMoveOfTheHandPaintsOnce()
    {
        ViewFixture fixture(QSize(4000, 3000));
        fixture.view.OnToggleScroll(true);
        for (const QSize size : {QSize(300, 200), LargeView}) {
            fixture.view.resize(size);
            QVERIFY(screen_is_right(fixture.view));
            fixture.press(QPoint(150, 100));
            PaintCounter paints(fixture.view.viewport());

            fixture.move(QPoint(140, 95));
            QCoreApplication::processEvents();
            QCOMPARE(paints.count, 1);
            fixture.move(QPoint(140, 95)); // no move for the page
            QCoreApplication::processEvents();
            QCOMPARE(paints.count, 1);
            fixture.release(QPoint(140, 95));
        }
    }

    void aLargePictureIsTakenAlongByTheHand()
    {
        ViewFixture fixture(QSize(4000, 3000));
        fixture.view.resize(LargeView);
        fixture.view.OnToggleScroll(true);
        QVERIFY(screen_is_right(fixture.view));
        fixture.press(QPoint(600, 420));
        fixture.move(QPoint(600, 400)); // all of a new page is marked
        PaintCounter paints(fixture.view.viewport());

        fixture.move(QPoint(590, 380));
        QCoreApplication::processEvents();

        const QRect view = fixture.view.viewport()->rect();
        QCOMPARE(paints.region, QRegion(view) - view.translated(-10, -20));
    }

    void eachMoveOfTheHandLeavesTheScreenAsIfAllWerePainted_data()
    {
        QTest::addColumn<QSize>("viewSize");
        QTest::addColumn<int>("zoomIndex");
        QTest::addColumn<bool>("hasSelection");
        for (const QSize size : {QSize(300, 200), LargeView}) {
            for (int i = 0; i < 8; ++i)
                QTest::addRow("%d by %d, zoom %d", size.width(), size.height(), i) << size << i << false;
        }
        for (const int i : {0, 3, 4})
            QTest::addRow("with a selection, zoom %d", i) << LargeView << i << true;
    }

    void eachMoveOfTheHandLeavesTheScreenAsIfAllWerePainted()
    {
        QFETCH(const QSize, viewSize);
        QFETCH(const int, zoomIndex);
        QFETCH(const bool, hasSelection);
        ViewFixture fixture(QSize(2000, 1500));
        fixture.view.resize(viewSize);
        QVERIFY(fixture.view.setZoomIndex(zoomIndex));
        if (hasSelection)
            fixture.drag(QPoint(40, 40), QPoint(120, 90));
        QVERIFY(screen_is_right(fixture.view));
        fixture.view.OnToggleScroll(true);

        fixture.press(QPoint(150, 120));
        for (const QPoint at : {QPoint(149, 118), QPoint(143, 120), QPoint(20, 30), QPoint(21, 28), QPoint(-900, -700),
                                QPoint(60, 40), QPoint(2000, 30), QPoint(300, 310)}) {
            fixture.move(at);
            QVERIFY(screen_is_right(fixture.view));
        }
        // Several moves before anything is painted, and changes in between that ask for it.
        fixture.move(QPoint(280, 290));
        fixture.view.viewport()->update(QRect(10, 20, 100, 50));
        fixture.move(QPoint(285, 270));
        fixture.view.canvas()->setChanged(QRect(0, 0, 200, 200));
        fixture.move(QPoint(260, 265));
        QVERIFY(screen_is_right(fixture.view));
    }

    void whatChangesUnderTheHandIsSeen()
    {
        ViewFixture fixture(QSize(2000, 1500));
        fixture.view.resize(LargeView);
        fixture.drag(QPoint(40, 40), QPoint(320, 290));
        fixture.view.OnToggleScroll(true);
        fixture.press(QPoint(600, 400));
        fixture.move(QPoint(590, 380));

        QImage page = patterned_page(QSize(2000, 1500));
        page.invertPixels();
        fixture.view.replaceImage(0, page); // the selection goes with the old one
        fixture.move(QPoint(580, 385));
        QVERIFY(screen_is_right(fixture.view));

        for (Q3CanvasItem *item : fixture.view.canvas()->allItems())
            item->setVisible(false); // marks where it was, no more
        fixture.move(QPoint(575, 380));
        QVERIFY(screen_is_right(fixture.view));
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
        QVERIFY(screen_is_right(fixture.view));

        fixture.press(QPoint(40, 40));
        for (const QPoint at : {QPoint(120, 90), QPoint(160, 130), QPoint(90, 70), QPoint(20, 60), QPoint(150, 10)}) {
            fixture.move(at);
            QVERIFY(screen_is_right(fixture.view));
        }
        fixture.release(QPoint(150, 10));
        fixture.press(QPoint(260, 170)); // another one takes the place of the first
        for (const QPoint at : {QPoint(200, 120), QPoint(100, 90)}) {
            fixture.move(at);
            QVERIFY(screen_is_right(fixture.view));
        }
        fixture.release(QPoint(100, 90));
        fixture.move(QPoint(180, 130)); // over its inside, where it can be taken
        fixture.press(QPoint(180, 130));
        for (const QPoint at : {QPoint(170, 120), QPoint(150, 100), QPoint(165, 140)}) {
            fixture.move(at);
            QVERIFY(screen_is_right(fixture.view));
        }
    }

    void aSelectionThatEndsWithoutANewOneLeavesNoOutline()
    {
        ViewFixture fixture(QSize(2000, 1500));
        const QImage withoutOutline = painted_anew(fixture.view);
        fixture.drag(QPoint(20, 30), QPoint(120, 130));
        const QImage withOutline = painted_anew(fixture.view);
        QVERIFY(withOutline != withoutOutline);
        QTRY_COMPARE(on_screen(fixture.view), withOutline);

        fixture.press(QPoint(200, 160));
        fixture.release(QPoint(200, 160));
        fixture.move(QPoint(210, 160));

        QVERIFY(!fixture.view.hasSelection());
        QTRY_COMPARE(on_screen(fixture.view), withoutOutline);
    }

    void aBackwardsSelectionReleasedBesideThePageIsRightWithoutAFurtherMove()
    {
        ViewFixture fixture(QSize(200, 150));
        fixture.press(QPoint(80, 70));
        for (const QPoint at : {QPoint(60, 50), QPoint(40, 30), QPoint(30, -10)})
            fixture.move(at);
        const QImage backwards = painted_anew(fixture.view);
        QTRY_COMPARE(on_screen(fixture.view), backwards);

        fixture.release(QPoint(30, -10));

        QCOMPARE(fixture.view.selection(), QRect(QPoint(30, 1), QPoint(80, 70)));
        const QImage upright = painted_anew(fixture.view);
        QVERIFY(upright != backwards);
        QTRY_COMPARE(on_screen(fixture.view), upright);
    }

    void theSelectionIsADottedLineOfOneScreenPixel()
    {
        ViewFixture fixture(QSize(30, 20));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^ImageItem::setImage:"_s));
        fixture.view.replaceImage(1, solid_page(QSize(30, 20), qRgb(255, 255, 255)));
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
};

QTEST_MAIN(tst_ImageView_painting)
#include "tst_ImageView_painting.moc"
