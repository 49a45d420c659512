#include "Q3Canvas.h"
#include "Q3CanvasRectangle.h"
#include "Q3CanvasSprite.h"
#include "Q3CanvasView.h"

#include <QPen>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

/// Reports its end.
class MortalItem : public Q3CanvasRectangle
{
public:
    MortalItem(Q3Canvas *canvas, int *ends) : Q3CanvasRectangle(canvas), m_ends(ends) { }
    Q_DISABLE_COPY_MOVE(MortalItem)
    ~MortalItem() override { ++*m_ends; }

private:
    int *m_ends;
};

QImage picture(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::blue);
    return image;
}

/// The points p of a row through the middle of the canvas for which @p item is hit, as "first..last".
QString hits_along(const Q3Canvas &canvas, const Q3CanvasItem *item, Qt::Orientation orientation, int across)
{
    QList<int> hits;
    for (int along = -5; along < 120; ++along) {
        const QPoint point = orientation == Qt::Horizontal ? QPoint(along, across) : QPoint(across, along);
        if (canvas.collisions(point).contains(item))
            hits.append(along);
    }
    if (hits.isEmpty())
        return QStringLiteral("none");
    if (hits.constLast() - hits.constFirst() + 1 != hits.size())
        return QStringLiteral("with gaps");
    return QStringLiteral("%1..%2").arg(hits.constFirst()).arg(hits.constLast());
}

} // namespace

class tst_Q3Canvas : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void newCanvasIsEmptyAndWhite();
    void allItemsHoldsHiddenOnes();
    void destroyedCanvasDeletesItsItems();
    void destroyedCanvasLeavesItemsThatWereTakenOff();
    void destroyedCanvasLeavesItsViews();
    void destroyedViewLeavesItsCanvas();

    void rectangleIsHitUpToItsEdges_data();
    void rectangleIsHitUpToItsEdges();
    void spriteIsHitUpToItsEdges();
    void nothingIsHitBesideTheCanvas();
    void hiddenItemIsNotHit();
    void topmostItemIsHitFirst();
    void wholeEnlargedPictureIsHit();

    void resizeIsToldOnce();

private:
    std::unique_ptr<Q3Canvas> canvas; ///< 100 by 100
    std::unique_ptr<Q3CanvasView> view;
    std::unique_ptr<Q3CanvasRectangle> item; ///< visible, 10 by 10 at (20, 20)
};

void tst_Q3Canvas::init()
{
    canvas = std::make_unique<Q3Canvas>();
    canvas->resize(100, 100);
    view = std::make_unique<Q3CanvasView>();
    view->setCanvas(canvas.get());
    item = std::make_unique<Q3CanvasRectangle>(QRect(20, 20, 10, 10), canvas.get());
    item->show();
}

void tst_Q3Canvas::cleanup()
{
    item.reset();
    view.reset();
    canvas.reset();
}

void tst_Q3Canvas::newCanvasIsEmptyAndWhite()
{
    const Q3Canvas fresh(nullptr, "fresh");

    QCOMPARE(fresh.objectName(), QStringLiteral("fresh"));
    QCOMPARE(fresh.size(), QSize(0, 0));
    QCOMPARE(fresh.backgroundColor(), QColor(Qt::white));
    QVERIFY(fresh.allItems().isEmpty());
}

void tst_Q3Canvas::allItemsHoldsHiddenOnes()
{
    Q3CanvasRectangle hidden(canvas.get());

    const Q3CanvasItemList items = canvas->allItems();

    QCOMPARE(items.size(), 2);
    QVERIFY(items.contains(item.get()));
    QVERIFY(items.contains(&hidden));
}

void tst_Q3Canvas::destroyedCanvasDeletesItsItems()
{
    int ends = 0;
    {
        Q3Canvas mortal;
        (new MortalItem(&mortal, &ends))->show();
        (void)new MortalItem(&mortal, &ends); // the canvas owns it
    }

    QCOMPARE(ends, 2);
}

void tst_Q3Canvas::destroyedCanvasLeavesItemsThatWereTakenOff()
{
    int ends = 0;
    auto mortal = std::make_unique<Q3Canvas>();
    MortalItem kept(mortal.get(), &ends);

    kept.setCanvas(nullptr);
    mortal.reset();

    QCOMPARE(ends, 0);
}

void tst_Q3Canvas::destroyedCanvasLeavesItsViews()
{
    item->setCanvas(nullptr);

    canvas.reset();

    QVERIFY(!view->canvas());
    QCOMPARE(QSize(view->contentsWidth(), view->contentsHeight()), QSize(1, 1));
}

void tst_Q3Canvas::destroyedViewLeavesItsCanvas()
{
    view.reset();

    canvas->setAllChanged();
    canvas->update();
    canvas->setBackgroundColor(Qt::red);
    QCOMPARE(canvas->backgroundColor(), QColor(Qt::red));
}

void tst_Q3Canvas::rectangleIsHitUpToItsEdges_data()
{
    QTest::addColumn<int>("length"); // of a rectangle at 20
    QTest::addColumn<QPen>("pen");
    QTest::addColumn<QString>("hits");
    const QPen cosmetic(Qt::black, 0);
    QTest::newRow("10 long") << 10 << cosmetic << "18..31";
    QTest::newRow("0 long") << 0 << cosmetic << "18..21";
    QTest::newRow("backwards by 1") << -1 << cosmetic << "18..20";
    QTest::newRow("backwards by 2") << -2 << cosmetic << "18..19";
    QTest::newRow("backwards by 3") << -3 << cosmetic << "17..19";
    QTest::newRow("backwards by 10") << -10 << cosmetic << "10..19";
    QTest::newRow("pen of 1") << 10 << QPen(Qt::black, 1) << "18..31";
    QTest::newRow("pen of 5") << 10 << QPen(Qt::black, 5) << "16..33";
    QTest::newRow("pen of 6") << 10 << QPen(Qt::black, 6) << "16..33";
    QTest::newRow("no pen") << 10 << QPen(Qt::NoPen) << "19..30";
}

void tst_Q3Canvas::rectangleIsHitUpToItsEdges()
{
    QFETCH(int, length);
    QFETCH(QPen, pen);
    QFETCH(QString, hits);

    item->setPen(pen);
    item->setSize(length, 10);
    QCOMPARE(hits_along(*canvas, item.get(), Qt::Horizontal, 25), hits);

    item->setSize(10, length);
    QCOMPARE(hits_along(*canvas, item.get(), Qt::Vertical, 25), hits);
}

void tst_Q3Canvas::spriteIsHitUpToItsEdges()
{
    Q3CanvasPixmapArray array;
    array.setImage(0, std::make_unique<Q3CanvasPixmap>(picture(QSize(30, 20))));
    Q3CanvasSprite sprite(&array, canvas.get());
    sprite.move(10, 40);
    sprite.show();

    QCOMPARE(hits_along(*canvas, &sprite, Qt::Horizontal, 50), QStringLiteral("9..39"));
    QCOMPARE(hits_along(*canvas, &sprite, Qt::Vertical, 20), QStringLiteral("39..59"));
}

void tst_Q3Canvas::nothingIsHitBesideTheCanvas()
{
    item->move(-20, -20);
    item->setSize(200, 200);

    QCOMPARE(hits_along(*canvas, item.get(), Qt::Horizontal, 50), QStringLiteral("-1..99"));
    QCOMPARE(hits_along(*canvas, item.get(), Qt::Vertical, 50), QStringLiteral("-1..99"));
    QCOMPARE(hits_along(*canvas, item.get(), Qt::Horizontal, -2), QStringLiteral("none"));
    QCOMPARE(hits_along(*canvas, item.get(), Qt::Vertical, 100), QStringLiteral("none"));
}

void tst_Q3Canvas::hiddenItemIsNotHit()
{
    item->hide();

    QCOMPARE(canvas->collisions(QPoint(25, 25)), Q3CanvasItemList());
}

void tst_Q3Canvas::topmostItemIsHitFirst()
{
    Q3CanvasRectangle below(QRect(20, 20, 10, 10), canvas.get());
    Q3CanvasRectangle above(QRect(20, 20, 10, 10), canvas.get());
    below.setZ(-0.5);
    above.setZ(1.0);
    below.show();
    above.show();

    QCOMPARE(canvas->collisions(QPoint(25, 25)), (Q3CanvasItemList{&above, item.get(), &below}));
}

void tst_Q3Canvas::wholeEnlargedPictureIsHit()
{
    Q3CanvasPixmapArray array;
    array.setImage(0, std::make_unique<Q3CanvasPixmap>(picture(QSize(100, 100))));
    Q3CanvasSprite sprite(&array, canvas.get());
    sprite.show();

    canvas->resize(500, 400);
    array.setImage(0, std::make_unique<Q3CanvasPixmap>(picture(QSize(500, 400))));

    QCOMPARE(canvas->collisions(QPoint(499, 399)), (Q3CanvasItemList{&sprite}));
}

void tst_Q3Canvas::resizeIsToldOnce()
{
    const QSignalSpy resized(canvas.get(), &Q3Canvas::resized);

    canvas->resize(100, 100);
    QCOMPARE(resized.size(), 0);

    canvas->resize(120, 90);
    QCOMPARE(resized.size(), 1);
    QCOMPARE(canvas->rect(), QRect(0, 0, 120, 90));
    QCOMPARE(QSize(view->contentsWidth(), view->contentsHeight()), QSize(120, 90));
}

QTEST_MAIN(tst_Q3Canvas)

#include "tst_Q3Canvas.moc"
