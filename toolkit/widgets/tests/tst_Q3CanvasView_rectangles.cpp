#include "CanvasViewTest.h"
#include "Q3CanvasRectangle.h"

#include <QPen>
#include <QScrollBar>
#include <QTest>

class tst_Q3CanvasView_rectangles : public CanvasViewTest
{
    Q_OBJECT

private slots:
    void init() { showView(); }
    void cleanup() { dropView(); }

    void atOneToOneItemsReachOnePixelBeyondTheCanvas();
    void atOtherZoomsItemsEndWithTheCanvas();
    void cosmeticPenIsOneScreenPixelWide_data();
    void cosmeticPenIsOneScreenPixelWide();
    void backwardsRectangleDrawsTheSameFrame_data();
    void backwardsRectangleDrawsTheSameFrame();
    void rectangleWithoutWidthDrawsALine();
    void dotsAreScreenPixels_data();
    void dotsAreScreenPixels();
    void frameLargerThanTheWindowIsDrawnAtItsEdges();
};

void tst_Q3CanvasView_rectangles::atOneToOneItemsReachOnePixelBeyondTheCanvas()
{
    Q3CanvasRectangle item(QRect(10, 10, 80, 80), canvas.get());
    item.setPen(Qt::NoPen);
    item.setBrush(QColor(Qt::red));
    item.show();

    const QImage image = shot();

    QCOMPARE(run(image, Qt::Horizontal, 20, qRgb(255, 0, 0)), QStringLiteral("10..60"));
    QCOMPARE(run(image, Qt::Vertical, 20, qRgb(255, 0, 0)), QStringLiteral("10..40"));
}

void tst_Q3CanvasView_rectangles::atOtherZoomsItemsEndWithTheCanvas()
{
    Q3CanvasRectangle item(QRect(10, 10, 80, 80), canvas.get());
    item.setPen(Qt::NoPen);
    item.setBrush(QColor(Qt::red));
    item.show();

    zoom(0.5);

    const QImage image = shot();
    QCOMPARE(run(image, Qt::Horizontal, 10, qRgb(255, 0, 0)), QStringLiteral("5..29"));
    QCOMPARE(run(image, Qt::Vertical, 10, qRgb(255, 0, 0)), QStringLiteral("5..19"));
}

void tst_Q3CanvasView_rectangles::cosmeticPenIsOneScreenPixelWide_data()
{
    QTest::addColumn<double>("factor");
    QTest::addColumn<QString>("line"); // the left edge of a rectangle at 8
    QTest::newRow("8:1") << 8.0 << QStringLiteral("64..64");
    QTest::newRow("2:1") << 2.0 << QStringLiteral("16..16");
    QTest::newRow("1:1") << 1.0 << QStringLiteral("8..8");
    QTest::newRow("1:4") << 0.25 << QStringLiteral("2..2");
}

void tst_Q3CanvasView_rectangles::cosmeticPenIsOneScreenPixelWide()
{
    QFETCH(double, factor);
    QFETCH(QString, line);
    Q3CanvasRectangle item(QRect(8, -200, 500, 500), canvas.get());
    item.setPen(QPen(Qt::red, 0));
    item.show();

    zoom(factor);

    QCOMPARE(run(shot(), Qt::Horizontal, 5, qRgb(255, 0, 0)), line);
}

void tst_Q3CanvasView_rectangles::backwardsRectangleDrawsTheSameFrame_data()
{
    QTest::addColumn<double>("factor");
    QTest::newRow("2:1") << 2.0;
    QTest::newRow("1:1") << 1.0;
    QTest::newRow("1:2") << 0.5;
}

void tst_Q3CanvasView_rectangles::backwardsRectangleDrawsTheSameFrame()
{
    QFETCH(double, factor);
    Q3CanvasRectangle item(QRect(10, 6, 20, 16), canvas.get());
    item.setPen(QPen(Qt::red, 0));
    item.show();
    zoom(factor);
    const QImage forwards = shot();

    item.setSize(-20, -16);
    item.move(30, 22);

    QCOMPARE(shot(), forwards);
    // The outline runs over both ends: 21 columns of 20 at 1:1.
    const int first = qRound(10 * factor), last = qRound(30 * factor);
    QCOMPARE(run(forwards, Qt::Horizontal, qRound(6 * factor), qRgb(255, 0, 0)),
             QStringLiteral("%1..%2").arg(first).arg(last));
}

void tst_Q3CanvasView_rectangles::rectangleWithoutWidthDrawsALine()
{
    Q3CanvasRectangle item(QRect(QPoint(10, 6), QSize(0, 16)), canvas.get());
    item.setPen(QPen(Qt::red, 0));
    item.show();

    const QImage image = shot();

    QCOMPARE(run(image, Qt::Vertical, 10, qRgb(255, 0, 0)), QStringLiteral("6..22"));
    QCOMPARE(run(image, Qt::Horizontal, 10, qRgb(255, 0, 0)), QStringLiteral("10..10"));
}

void tst_Q3CanvasView_rectangles::dotsAreScreenPixels_data()
{
    QTest::addColumn<double>("factor");
    QTest::newRow("8:1") << 8.0;
    QTest::newRow("1:1") << 1.0;
    QTest::newRow("1:4") << 0.25;
}

void tst_Q3CanvasView_rectangles::dotsAreScreenPixels()
{
    QFETCH(double, factor);
    canvas->resize(800, 800);
    Q3CanvasRectangle item(QRect(0, 0, 700, 700), canvas.get());
    item.setPen(QPen(Qt::red, 0, Qt::DotLine));
    item.show();
    zoom(factor);

    const QImage image = shot();

    // A dot of one pixel and a gap of two.
    int dots = 0;
    for (int x = 0; x < 90; ++x)
        dots += image.pixel(x, 0) == qRgb(255, 0, 0) ? 1 : 0;
    QCOMPARE(dots, 30);
    for (int x = 3; x < 87; ++x)
        QCOMPARE(image.pixel(x, 0), image.pixel(x + 3, 0));
}

void tst_Q3CanvasView_rectangles::frameLargerThanTheWindowIsDrawnAtItsEdges()
{
    // At 8:1 its far corner is beyond the painter's coordinates of 16 bits.
    canvas->resize(6000, 6000);
    zoom(8.0);
    QTRY_VERIFY(view->verticalScrollBar()->isVisible());
    view->setContentsPos(48000, 48000);
    Q3CanvasRectangle item(QRect(0, 0, 5995, 5995), canvas.get());
    item.setPen(QPen(Qt::red, 0));
    item.show();

    const QImage image = shot();

    const QString line = QStringLiteral("%1..%1").arg(view->visibleWidth() - 40);
    QCOMPARE(run(image, Qt::Horizontal, 5, qRgb(255, 0, 0)), line);
    QCOMPARE(run(image, Qt::Vertical, 5, qRgb(255, 0, 0)), QStringLiteral("%1..%1").arg(view->visibleHeight() - 40));
}

QTEST_MAIN(tst_Q3CanvasView_rectangles)

#include "tst_Q3CanvasView_rectangles.moc"
