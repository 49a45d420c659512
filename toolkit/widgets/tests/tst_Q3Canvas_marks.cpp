#include "Q3Canvas.h"
#include "Q3CanvasRectangle.h"
#include "Q3CanvasView.h"

#include <QPaintEvent>
#include <QPen>
#include <QTest>

#include <memory>

namespace {

/// Remembers what was repainted.
class RecordingView : public Q3CanvasView
{
public:
    using Q3CanvasView::Q3CanvasView;

    int repaints = 0;
    QRegion repainted;

    /// Waits until nothing is left to paint, and forgets it.
    void settle()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        repaints = 0;
        repainted = QRegion();
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++repaints;
        repainted += event->region();
        Q3CanvasView::paintEvent(event);
    }
};

using Change = void (*)(Q3CanvasRectangle &);

} // namespace

Q_DECLARE_METATYPE(Change)

class tst_Q3Canvas_marks : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void resizeRepaintsNothingByItself();
    void changeOfAVisibleItemIsMarked_data();
    void changeOfAVisibleItemIsMarked();
    void changeOfAHiddenItemIsNotMarked_data();
    void changeOfAHiddenItemIsNotMarked();
    void changeToThePresentValueIsNotMarked_data();
    void changeToThePresentValueIsNotMarked();
    void changePaintsNothingBeforeUpdate();
    void moveRepaintsTheOldAndTheNewArea();
    void destroyedItemIsMarked();
    void unchangedAreaIsNotRepainted();
    void markIsGoneAfterUpdate();
    void markOutsideTheVisiblePartIsNotRepainted();
    void markReachesSixteenPixelsFurther();
    void updateIsAsynchronous();
    void eachViewRepaintsItsOwnPart();
    void changeOfBackgroundRepaintsEverything();

private:
    std::unique_ptr<Q3Canvas> canvas;
    std::unique_ptr<RecordingView> view; ///< 100 by 100 visible, at 1:1
    std::unique_ptr<Q3CanvasRectangle> item; ///< visible, 10 by 10 at (20, 20)
};

void tst_Q3Canvas_marks::init()
{
    canvas = std::make_unique<Q3Canvas>();
    canvas->resize(100, 100);
    view = std::make_unique<RecordingView>();
    view->setFrameStyle(QFrame::NoFrame);
    view->setCanvas(canvas.get());
    view->resize(100, 100);
    item = std::make_unique<Q3CanvasRectangle>(QRect(20, 20, 10, 10), canvas.get());
    item->show();
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));
    QTRY_VERIFY(view->repaints > 0);
    canvas->update();
    view->settle();
}

void tst_Q3Canvas_marks::cleanup()
{
    item.reset();
    view.reset();
    canvas.reset();
}

void tst_Q3Canvas_marks::resizeRepaintsNothingByItself()
{
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->settle();

    canvas->resize(90, 90);
    view->settle();
    QCOMPARE(view->repaints, 0);

    canvas->update();
    QTRY_COMPARE(view->repaints, 1);
}

void tst_Q3Canvas_marks::changeOfAVisibleItemIsMarked_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("move") << Change([](Q3CanvasRectangle &rectangle) { rectangle.move(21, 20); });
    QTest::newRow("moveBy") << Change([](Q3CanvasRectangle &rectangle) { rectangle.moveBy(0, 0.5); });
    QTest::newRow("hide") << Change([](Q3CanvasRectangle &rectangle) { rectangle.hide(); });
    QTest::newRow("setZ") << Change([](Q3CanvasRectangle &rectangle) { rectangle.setZ(3); });
    QTest::newRow("setSize") << Change([](Q3CanvasRectangle &rectangle) { rectangle.setSize(10, 11); });
    QTest::newRow("setPen") << Change([](Q3CanvasRectangle &rectangle) { rectangle.setPen(QPen(Qt::red, 0)); });
    QTest::newRow("setBrush") << Change([](Q3CanvasRectangle &rectangle) { rectangle.setBrush(Qt::green); });
    QTest::newRow("setCanvas") << Change([](Q3CanvasRectangle &rectangle) { rectangle.setCanvas(nullptr); });
}

void tst_Q3Canvas_marks::changeOfAVisibleItemIsMarked()
{
    QFETCH(Change, change);

    change(*item);
    canvas->update();

    QTRY_COMPARE(view->repaints, 1);
    QVERIFY((QRegion(QRect(20, 20, 11, 11)) - view->repainted).isEmpty());
}

void tst_Q3Canvas_marks::changeOfAHiddenItemIsNotMarked_data()
{
    changeOfAVisibleItemIsMarked_data();
}

void tst_Q3Canvas_marks::changeOfAHiddenItemIsNotMarked()
{
    QFETCH(Change, change);
    item->hide();
    canvas->update();
    QTRY_COMPARE(view->repaints, 1);
    view->settle();

    change(*item);
    canvas->update();
    view->settle();

    QCOMPARE(view->repaints, 0);
}

void tst_Q3Canvas_marks::changeToThePresentValueIsNotMarked_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("move") << Change([](Q3CanvasRectangle &rectangle) { rectangle.move(20, 20); });
    QTest::newRow("moveBy") << Change([](Q3CanvasRectangle &rectangle) { rectangle.moveBy(0, 0); });
    QTest::newRow("show") << Change([](Q3CanvasRectangle &rectangle) { rectangle.show(); });
    QTest::newRow("setSize") << Change([](Q3CanvasRectangle &rectangle) { rectangle.setSize(10, 10); });
    QTest::newRow("setPen") << Change([](Q3CanvasRectangle &rectangle) { rectangle.setPen(rectangle.pen()); });
}

void tst_Q3Canvas_marks::changeToThePresentValueIsNotMarked()
{
    QFETCH(Change, change);

    change(*item);
    canvas->update();
    view->settle();

    QCOMPARE(view->repaints, 0);
}

void tst_Q3Canvas_marks::changePaintsNothingBeforeUpdate()
{
    item->move(50, 50);
    view->settle();

    QCOMPARE(view->repaints, 0);
}

void tst_Q3Canvas_marks::moveRepaintsTheOldAndTheNewArea()
{
    item->move(70, 60);
    canvas->update();

    QTRY_COMPARE(view->repaints, 1);
    const QRegion concerned = QRegion(20, 20, 11, 11) + QRect(70, 60, 11, 11);
    QVERIFY((concerned - view->repainted).isEmpty());
}

void tst_Q3Canvas_marks::destroyedItemIsMarked()
{
    item.reset();
    canvas->update();

    QTRY_COMPARE(view->repaints, 1);
    QVERIFY((QRegion(20, 20, 11, 11) - view->repainted).isEmpty());
}

void tst_Q3Canvas_marks::unchangedAreaIsNotRepainted()
{
    item->move(70, 60);
    canvas->setAllChanged();

    canvas->setUnchanged(QRect(0, 0, 100, 100));
    canvas->update();
    view->settle();

    QCOMPARE(view->repaints, 0);
}

void tst_Q3Canvas_marks::markIsGoneAfterUpdate()
{
    canvas->setChanged(QRect(10, 10, 5, 5));
    canvas->update();
    QTRY_COMPARE(view->repaints, 1);
    view->settle();

    canvas->update();
    view->settle();

    QCOMPARE(view->repaints, 0);
}

void tst_Q3Canvas_marks::markOutsideTheVisiblePartIsNotRepainted()
{
    canvas->resize(1000, 1000);
    canvas->setUnchanged(canvas->rect());
    view->settle();

    canvas->setChanged(QRect(500, 500, 50, 50));
    canvas->update();
    view->settle();
    QCOMPARE(view->repaints, 0);

    // The mark waits: it is painted by the first update after the view has come there.
    view->setContentsPos(480, 480);
    view->settle();
    canvas->update();
    QTRY_COMPARE(view->repaints, 1);
}

void tst_Q3Canvas_marks::markReachesSixteenPixelsFurther()
{
    canvas->setChanged(QRect(40, 50, 10, 10));
    canvas->update();

    QTRY_COMPARE(view->repaints, 1);
    QVERIFY(view->repainted.contains(QRect(24, 34, 42, 42)));
    QVERIFY(!view->repainted.contains(QPoint(0, 0)));
}

void tst_Q3Canvas_marks::updateIsAsynchronous()
{
    canvas->setAllChanged();

    canvas->update();
    canvas->setAllChanged();
    canvas->update();

    QCOMPARE(view->repaints, 0);
    QTRY_COMPARE(view->repaints, 1);
}

void tst_Q3Canvas_marks::eachViewRepaintsItsOwnPart()
{
    canvas->resize(1000, 1000);
    RecordingView second;
    second.setCanvas(canvas.get());
    second.resize(100, 100);
    second.show();
    QVERIFY(QTest::qWaitForWindowExposed(&second));
    second.setContentsPos(800, 800);
    canvas->update();
    QTRY_VERIFY(second.repaints > 0);
    canvas->setUnchanged(canvas->rect());
    second.settle();
    view->settle();

    canvas->setChanged(QRect(810, 810, 10, 10));
    canvas->update();

    QTRY_COMPARE(second.repaints, 1);
    QCOMPARE(view->repaints, 0);
}

void tst_Q3Canvas_marks::changeOfBackgroundRepaintsEverything()
{
    canvas->setBackgroundColor(Qt::yellow);
    canvas->update();

    QTRY_VERIFY(view->repaints > 0);
    QVERIFY((QRegion(0, 0, 100, 100) - view->repainted).isEmpty());
    view->settle();
    canvas->setBackgroundColor(Qt::yellow);
    canvas->update();
    view->settle();
    QCOMPARE(view->repaints, 0);
}

QTEST_MAIN(tst_Q3Canvas_marks)

#include "tst_Q3Canvas_marks.moc"
