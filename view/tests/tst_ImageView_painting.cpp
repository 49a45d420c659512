// What the gestures of the mouse leave on the screen.

#include "ViewFixture.h"

#include <QCursor>
#include <QPixmap>
#include <QScreen>
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
