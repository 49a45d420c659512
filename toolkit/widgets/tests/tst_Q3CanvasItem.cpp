#include "Q3Canvas.h"
#include "Q3CanvasRectangle.h"
#include "Q3CanvasSprite.h"

#include <QPen>
#include <QTest>

#include <memory>

namespace {

QImage picture(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::blue);
    return image;
}

} // namespace

class tst_Q3CanvasItem : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void newItemIsOnItsCanvasAndHidden();
    void newRectangleHasACosmeticPenAndNoBrush();
    void rectangleTakesPositionAndSize();
    void kindsOfItemsDiffer();
    void positionIsTruncatedTowardsZero();
    void spriteFollowsItsFrameAndHotSpot();
    void spriteWithoutFrameIsEmpty();
    void arrayGrowsAndReplacesFrames();
    void changeOfSequenceFallsBackToTheFirstFrame();
    void setCanvasMovesTheItem();
    void itemWithoutCanvasKeepsItsFlagAndMayBeChanged();
    void destroyedItemLeavesItsCanvas();
    void spriteOffItsCanvasMayOutliveItsArray();

private:
    std::unique_ptr<Q3Canvas> canvas; ///< 100 by 100
    std::unique_ptr<Q3CanvasRectangle> item; ///< visible, 10 by 10 at (20, 20)
};

void tst_Q3CanvasItem::init()
{
    canvas = std::make_unique<Q3Canvas>();
    canvas->resize(100, 100);
    item = std::make_unique<Q3CanvasRectangle>(QRect(20, 20, 10, 10), canvas.get());
    item->show();
}

void tst_Q3CanvasItem::cleanup()
{
    item.reset();
    canvas.reset();
}

void tst_Q3CanvasItem::newItemIsOnItsCanvasAndHidden()
{
    const Q3CanvasRectangle fresh(canvas.get());

    QCOMPARE(fresh.canvas(), canvas.get());
    QVERIFY(!fresh.isVisible());
    QCOMPARE(fresh.x(), 0.0);
    QCOMPARE(fresh.y(), 0.0);
    QCOMPARE(fresh.z(), 0.0);
}

void tst_Q3CanvasItem::newRectangleHasACosmeticPenAndNoBrush()
{
    QCOMPARE(item->pen().color(), QColor(Qt::black));
    QCOMPARE(item->pen().style(), Qt::SolidLine);
    QVERIFY(item->pen().isCosmetic());
    QCOMPARE(item->brush().style(), Qt::NoBrush);
}

void tst_Q3CanvasItem::rectangleTakesPositionAndSize()
{
    const Q3CanvasRectangle placed(QRect(3, 4, 5, 6), canvas.get());
    const Q3CanvasRectangle null(QRect(), canvas.get());
    const Q3CanvasRectangle stock(canvas.get());

    QCOMPARE(QPointF(placed.x(), placed.y()), QPointF(3, 4));
    QCOMPARE(placed.size(), QSize(5, 6));
    QCOMPARE(QPointF(null.x(), null.y()), QPointF(0, 0));
    QCOMPARE(null.size(), QSize(0, 0));
    QCOMPARE(stock.size(), QSize(32, 32));
}

void tst_Q3CanvasItem::kindsOfItemsDiffer()
{
    const Q3CanvasSprite sprite(nullptr, canvas.get());

    QCOMPARE(Q3CanvasItem::Rtti, 0);
    QCOMPARE(sprite.rtti(), 1);
    QCOMPARE(item->rtti(), 5);
}

void tst_Q3CanvasItem::positionIsTruncatedTowardsZero()
{
    item->move(1.9, -1.9);

    QCOMPARE(item->x(), 1.9);
    QCOMPARE(item->boundingRect(), QRect(QPoint(0, -2), QPoint(12, 10)));
}

void tst_Q3CanvasItem::spriteFollowsItsFrameAndHotSpot()
{
    QImage image = picture(QSize(7, 5));
    image.setOffset(QPoint(2, 1));
    Q3CanvasPixmapArray array;
    array.setImage(0, std::make_unique<Q3CanvasPixmap>(image));
    Q3CanvasSprite sprite(&array, canvas.get());

    sprite.move(10.8, 20.2);

    QCOMPARE(sprite.leftEdge(), 8);
    QCOMPARE(sprite.topEdge(), 19);
    QCOMPARE(sprite.boundingRect(), QRect(8, 19, 7, 5));
    QCOMPARE(sprite.image(), array.image(0));
}

void tst_Q3CanvasItem::spriteWithoutFrameIsEmpty()
{
    Q3CanvasPixmapArray array;
    Q3CanvasSprite sprite(&array, canvas.get());

    sprite.show();

    QVERIFY(!sprite.image());
    QVERIFY(sprite.boundingRect().isEmpty());
    QCOMPARE(canvas->collisions(QPoint(0, 0)), Q3CanvasItemList());
}

void tst_Q3CanvasItem::arrayGrowsAndReplacesFrames()
{
    Q3CanvasPixmapArray array;
    QCOMPARE(array.count(), 0);

    array.setImage(2, std::make_unique<Q3CanvasPixmap>(picture(QSize(1, 1))));
    array.setImage(2, std::make_unique<Q3CanvasPixmap>(picture(QSize(4, 4))));
    array.setImage(-1, std::make_unique<Q3CanvasPixmap>(picture(QSize(5, 5))));

    QCOMPARE(array.count(), 3);
    QVERIFY(!array.image(0));
    QCOMPARE(array.image(2)->width(), 4);
    QVERIFY(!array.image(3));
    QVERIFY(!array.image(-1));
}

void tst_Q3CanvasItem::changeOfSequenceFallsBackToTheFirstFrame()
{
    Q3CanvasPixmapArray array;
    array.setImage(0, std::make_unique<Q3CanvasPixmap>(picture(QSize(4, 3))));
    Q3CanvasSprite sprite(nullptr, canvas.get());

    sprite.setSequence(&array);
    sprite.show();

    QCOMPARE(sprite.frame(), 0);
    QCOMPARE(sprite.frameCount(), 1);
    QCOMPARE(sprite.width(), 4);
    sprite.setSequence(nullptr);
    QCOMPARE(sprite.frameCount(), 0);
    QVERIFY(sprite.isVisible());
}

void tst_Q3CanvasItem::setCanvasMovesTheItem()
{
    Q3Canvas other;

    item->setCanvas(&other);

    QVERIFY(canvas->allItems().isEmpty());
    QCOMPARE(other.allItems(), (Q3CanvasItemList{item.get()}));
    QVERIFY(item->isVisible());
    item->setCanvas(nullptr);
}

void tst_Q3CanvasItem::itemWithoutCanvasKeepsItsFlagAndMayBeChanged()
{
    item->setCanvas(nullptr);

    QVERIFY(item->isVisible());
    QVERIFY(!item->canvas());
    item->move(1, 1);
    item->setSize(3, 3);
    item->hide();
    QVERIFY(!item->isVisible());
    item.reset();
    QVERIFY(canvas->allItems().isEmpty());
}

void tst_Q3CanvasItem::destroyedItemLeavesItsCanvas()
{
    item.reset();

    QVERIFY(canvas->allItems().isEmpty());
    QCOMPARE(canvas->collisions(QPoint(25, 25)), Q3CanvasItemList());
}

void tst_Q3CanvasItem::spriteOffItsCanvasMayOutliveItsArray()
{
    auto array = std::make_unique<Q3CanvasPixmapArray>();
    array->setImage(0, std::make_unique<Q3CanvasPixmap>(picture(QSize(4, 3))));
    auto sprite = std::make_unique<Q3CanvasSprite>(array.get(), canvas.get());
    sprite->show();

    sprite->setCanvas(nullptr);
    array.reset();
    sprite.reset(); // must not ask the array: the sanitizers watch

    QCOMPARE(canvas->allItems().size(), 1);
}

QTEST_MAIN(tst_Q3CanvasItem)

#include "tst_Q3CanvasItem.moc"
