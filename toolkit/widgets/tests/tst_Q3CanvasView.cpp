#include "CanvasViewTest.h"

#include <QScreen>
#include <QScrollBar>
#include <QTest>

class tst_Q3CanvasView : public CanvasViewTest
{
    Q_OBJECT

private slots:
    void init() { showView(); }
    void cleanup() { dropView(); }

    void contentsWithoutCanvasAreOnePixel();
    void contentsAreTheCanvasMappedAndRounded_data();
    void contentsAreTheCanvasMappedAndRounded();
    void contentsFollowTheCanvasSize();
    void contentsFollowAnotherCanvas();
    void singularMatrixIsRefused();
    void zoomKeepsTheContentsPosition();
    void inverseMatrixTurnsInTheMiddleOfAPixel();
    void inverseMatrixRoundsPositionAndSizeApart();
    void sizeHintIsTheUnscaledCanvasWithItsFrame();
    void sizeHintStaysWithinTheDesktop();
    void joiningACanvasSetsTheViewportColour();
    void paletteSetAfterwardsStays();
};

void tst_Q3CanvasView::contentsWithoutCanvasAreOnePixel()
{
    const Q3CanvasView fresh;

    QVERIFY(!fresh.canvas());
    QCOMPARE(QSize(fresh.contentsWidth(), fresh.contentsHeight()), QSize(1, 1));
    view->setCanvas(nullptr);
    QCOMPARE(QSize(view->contentsWidth(), view->contentsHeight()), QSize(1, 1));
}

void tst_Q3CanvasView::contentsAreTheCanvasMappedAndRounded_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<double>("factor");
    QTest::addColumn<QSize>("contents");
    QTest::newRow("1000 by 7 at 1:16") << QSize(1000, 7) << 0.0625 << QSize(63, 0);
    QTest::newRow("8 by 24 at 1:16") << QSize(8, 24) << 0.0625 << QSize(1, 2);
    QTest::newRow("3 by 5 at 1:2") << QSize(3, 5) << 0.5 << QSize(2, 3);
    QTest::newRow("A4 at 600 dpi, 1:1") << QSize(4960, 7016) << 1.0 << QSize(4960, 7016);
    QTest::newRow("A4 at 600 dpi, 8:1") << QSize(4960, 7016) << 8.0 << QSize(39680, 56128);
}

void tst_Q3CanvasView::contentsAreTheCanvasMappedAndRounded()
{
    QFETCH(QSize, size);
    QFETCH(double, factor);
    QFETCH(QSize, contents);

    canvas->resize(size.width(), size.height());
    zoom(factor);

    QCOMPARE(QSize(view->contentsWidth(), view->contentsHeight()), contents);
}

void tst_Q3CanvasView::contentsFollowTheCanvasSize()
{
    zoom(2.0);

    canvas->resize(70, 30);

    QCOMPARE(QSize(view->contentsWidth(), view->contentsHeight()), QSize(140, 60));
}

void tst_Q3CanvasView::contentsFollowAnotherCanvas()
{
    Q3Canvas other;
    other.resize(5, 6);

    view->setCanvas(&other);
    canvas->resize(500, 500);

    QCOMPARE(view->canvas(), &other);
    QCOMPARE(QSize(view->contentsWidth(), view->contentsHeight()), QSize(5, 6));
    view->setCanvas(nullptr);
}

void tst_Q3CanvasView::singularMatrixIsRefused()
{
    zoom(2.0);

    QVERIFY(!view->setWorldMatrix(QTransform::fromScale(0.0, 1.0)));

    QCOMPARE(view->worldMatrix(), QTransform::fromScale(2.0, 2.0));
    QCOMPARE(view->inverseWorldMatrix(), QTransform::fromScale(0.5, 0.5));
    QCOMPARE(view->contentsWidth(), 120);
}

void tst_Q3CanvasView::zoomKeepsTheContentsPosition()
{
    canvas->resize(1000, 1000);
    QTRY_VERIFY(view->verticalScrollBar()->isVisible());
    view->setContentsPos(300, 200);

    zoom(2.0);

    QCoreApplication::processEvents();
    QCOMPARE(QPoint(view->contentsX(), view->contentsY()), QPoint(300, 200));
}

void tst_Q3CanvasView::inverseMatrixTurnsInTheMiddleOfAPixel()
{
    zoom(8.0);

    QCOMPARE(view->inverseWorldMatrix().map(QPoint(3, 4)), QPoint(0, 1));
    QCOMPARE(view->inverseWorldMatrix().map(QPoint(11, 12)), QPoint(1, 2));
    QCOMPARE(view->inverseWorldMatrix().m11(), 0.125);
}

void tst_Q3CanvasView::inverseMatrixRoundsPositionAndSizeApart()
{
    zoom(8.0);

    QCOMPARE(view->inverseWorldMatrix().mapRect(QRect(5, 5, 335, 564)), QRect(1, 1, 42, 71));
    QCOMPARE(view->inverseWorldMatrix().mapRect(QRect(3, 4, 12, 11)), QRect(0, 1, 2, 1));
}

void tst_Q3CanvasView::sizeHintIsTheUnscaledCanvasWithItsFrame()
{
    Q3CanvasView framed;
    framed.setCanvas(canvas.get());
    QVERIFY(framed.setWorldMatrix(QTransform::fromScale(8.0, 8.0)));

    QVERIFY(framed.frameWidth() > 0);
    QCOMPARE(framed.sizeHint(), QSize(60 + 2 * framed.frameWidth(), 40 + 2 * framed.frameWidth()));
}

void tst_Q3CanvasView::sizeHintStaysWithinTheDesktop()
{
    canvas->resize(10000, 40);

    QCOMPARE(view->sizeHint(), QSize(3 * view->screen()->virtualSize().width() / 4, 40));
}

void tst_Q3CanvasView::joiningACanvasSetsTheViewportColour()
{
    Q3CanvasView fresh;
    fresh.setCanvas(canvas.get());
    QCOMPARE(fresh.viewport()->palette().color(fresh.viewport()->backgroundRole()), QColor(Ground));

    canvas->setBackgroundColor(Qt::green);
    QCOMPARE(fresh.viewport()->palette().color(fresh.viewport()->backgroundRole()), QColor(Qt::green));
}

void tst_Q3CanvasView::paletteSetAfterwardsStays()
{
    canvas->setBackgroundColor(Ground); // the present colour

    QCOMPARE(view->viewport()->palette().color(view->viewport()->backgroundRole()), QColor(Surround));
}

QTEST_MAIN(tst_Q3CanvasView)

#include "tst_Q3CanvasView.moc"
