#include "CanvasViewTest.h"
#include "noise_pages.h"
#include "Q3CanvasRectangle.h"
#include "Q3CanvasSprite.h"

#include <QPainter>
#include <QPen>
#include <QScrollBar>
#include <QTest>

#include <memory>

namespace {

/// Keeps what it finds in the painter before it draws.
class WitnessItem : public Q3CanvasRectangle
{
public:
    using Q3CanvasRectangle::Q3CanvasRectangle;

    void draw(QPainter &painter) override
    {
        pen = painter.pen();
        brush = painter.brush();
        transform = painter.transform();
        clip = painter.clipBoundingRect();
        order.append(this);
    }

    QPen pen;
    QBrush brush;
    QTransform transform;
    QRectF clip;
    static inline QList<const WitnessItem *> order;
};

QImage noise(const QSize &size, QImage::Format format)
{
    return noise_page({"ARGB32", QImage::Format_ARGB32, {}}, size).convertToFormat(format);
}

} // namespace

class tst_Q3CanvasView_painting : public CanvasViewTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void surroundAndCanvasHaveTheirOwnColours();
    void canvasLiesAtTheTopLeftAtEveryZoom_data();
    void canvasLiesAtTheTopLeftAtEveryZoom();
    void canvasThatVanishesAtAZoomShowsTheSurround();
    void itemsAreDrawnInAscendingZ();
    void hiddenItemIsNotDrawn();
    void itemFindsTheDefaultsInThePainter();
    void itemIsDrawnThroughMatrixAndScrollPosition();
    void transparentPictureShowsTheCanvasBeneath();
    void pictureWithTransparentTableShowsTheCanvasBeneath();
    void backgroundShowsBesideAnOpaquePicture();
    void partialRepaintEqualsAWholeOne_data();
    void partialRepaintEqualsAWholeOne();

private:
    void setPicture(const QImage &image);

    std::unique_ptr<Q3CanvasPixmapArray> frames;
    std::unique_ptr<Q3CanvasSprite> sprite; ///< hidden until setPicture()
};

void tst_Q3CanvasView_painting::init()
{
    showView();
    frames = std::make_unique<Q3CanvasPixmapArray>();
    sprite = std::make_unique<Q3CanvasSprite>(frames.get(), canvas.get());
    WitnessItem::order.clear();
}

void tst_Q3CanvasView_painting::cleanup()
{
    sprite.reset();
    dropView();
}

void tst_Q3CanvasView_painting::setPicture(const QImage &image)
{
    frames->setImage(0, std::make_unique<Q3CanvasPixmap>(image));
    sprite->show();
}

void tst_Q3CanvasView_painting::surroundAndCanvasHaveTheirOwnColours()
{
    const QImage image = shot();

    QCOMPARE(run(image, Qt::Horizontal, 20, Ground), QStringLiteral("0..59"));
    QCOMPARE(run(image, Qt::Horizontal, 20, Surround), QStringLiteral("60..119"));
    QCOMPARE(run(image, Qt::Vertical, 30, Ground), QStringLiteral("0..39"));
    QCOMPARE(run(image, Qt::Vertical, 30, Surround), QStringLiteral("40..99"));
}

void tst_Q3CanvasView_painting::canvasLiesAtTheTopLeftAtEveryZoom_data()
{
    QTest::addColumn<double>("factor");
    QTest::addColumn<QString>("columns");
    QTest::newRow("8:1") << 8.0 << QStringLiteral("0..119");
    QTest::newRow("2:1") << 2.0 << QStringLiteral("0..119");
    QTest::newRow("1:1") << 1.0 << QStringLiteral("0..59");
    QTest::newRow("1:4") << 0.25 << QStringLiteral("0..14");
    QTest::newRow("1:16, 3.75 pixels") << 0.0625 << QStringLiteral("0..3");
}

void tst_Q3CanvasView_painting::canvasLiesAtTheTopLeftAtEveryZoom()
{
    QFETCH(double, factor);
    QFETCH(QString, columns);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    zoom(factor);

    QCOMPARE(run(shot(), Qt::Horizontal, 0, Ground), columns);
}

void tst_Q3CanvasView_painting::canvasThatVanishesAtAZoomShowsTheSurround()
{
    canvas->resize(7, 7);
    setPicture(noise(QSize(7, 7), QImage::Format_RGB32));

    zoom(0.0625);

    QCOMPARE(run(shot(), Qt::Horizontal, 0, Surround), QStringLiteral("0..119"));
}

void tst_Q3CanvasView_painting::itemsAreDrawnInAscendingZ()
{
    WitnessItem middle(canvas.get());
    WitnessItem top(canvas.get());
    WitnessItem bottom(canvas.get());
    top.setZ(2.0);
    middle.setZ(1.0);
    bottom.setZ(-1.0);
    top.show();
    middle.show();
    bottom.show();

    (void)shot(); // the order counts, not the picture

    QCOMPARE(WitnessItem::order, (QList<const WitnessItem *>{&bottom, &middle, &top}));
}

void tst_Q3CanvasView_painting::hiddenItemIsNotDrawn()
{
    const WitnessItem hidden(canvas.get());

    (void)shot(); // the order counts, not the picture

    QVERIFY(WitnessItem::order.isEmpty());
}

void tst_Q3CanvasView_painting::itemFindsTheDefaultsInThePainter()
{
    WitnessItem item(canvas.get());
    item.show();

    (void)shot(); // the painter counts, not the picture

    QCOMPARE(item.pen.color(), QColor(Qt::black));
    QCOMPARE(item.pen.style(), Qt::SolidLine);
    QVERIFY(item.pen.isCosmetic());
    QCOMPARE(item.brush.style(), Qt::NoBrush);
}

void tst_Q3CanvasView_painting::itemIsDrawnThroughMatrixAndScrollPosition()
{
    canvas->resize(600, 400);
    QTRY_VERIFY(view->verticalScrollBar()->isVisible());
    zoom(2.0);
    view->setContentsPos(30, 50);
    WitnessItem item(canvas.get());
    item.show();

    (void)shot(); // the painter counts, not the picture

    QCOMPARE(item.transform, QTransform(2.0, 0.0, 0.0, 2.0, -30.0, -50.0));
    QCOMPARE(item.clip, QRectF(15.0, 25.0, view->visibleWidth() / 2.0, view->visibleHeight() / 2.0));
}

void tst_Q3CanvasView_painting::transparentPictureShowsTheCanvasBeneath()
{
    QImage picture(60, 40, QImage::Format_ARGB32);
    picture.fill(qRgba(0, 0, 0, 0));
    picture.setPixel(3, 2, qRgba(255, 0, 0, 255));
    setPicture(picture);

    const QImage image = shot();

    QCOMPARE(image.pixel(3, 2), qRgb(255, 0, 0));
    QCOMPARE(image.pixel(4, 2), Ground);
    QCOMPARE(image.pixel(60, 2), Surround);
}

void tst_Q3CanvasView_painting::pictureWithTransparentTableShowsTheCanvasBeneath()
{
    QImage picture(60, 40, QImage::Format_Mono);
    picture.setColorTable({qRgba(0, 0, 0, 0), qRgb(0, 0, 255)});
    picture.fill(0);
    picture.setPixel(3, 2, 1);
    setPicture(picture);

    const QImage image = shot();

    QCOMPARE(image.pixel(3, 2), qRgb(0, 0, 255));
    QCOMPARE(image.pixel(4, 2), Ground);
}

void tst_Q3CanvasView_painting::backgroundShowsBesideAnOpaquePicture()
{
    QImage picture(20, 20, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    setPicture(picture);
    sprite->move(10, 10);

    const QImage image = shot();

    QCOMPARE(run(image, Qt::Horizontal, 20, qRgb(0, 0, 255)), QStringLiteral("10..29"));
    QCOMPARE(run(image, Qt::Vertical, 20, qRgb(0, 0, 255)), QStringLiteral("10..29"));
    QCOMPARE(image.pixel(9, 20), Ground);
    QCOMPARE(image.pixel(30, 20), Ground);
}

void tst_Q3CanvasView_painting::partialRepaintEqualsAWholeOne_data()
{
    QTest::addColumn<double>("factor");
    QTest::addColumn<QImage::Format>("format");
    for (const double factor : {8.0, 4.0, 2.0, 1.0, 0.5, 0.25, 0.125, 0.0625}) {
        for (const QImage::Format format :
             {QImage::Format_Mono, QImage::Format_Indexed8, QImage::Format_RGB32, QImage::Format_ARGB32})
            QTest::addRow("%g, format %d", factor, int{format}) << factor << format;
    }
}

void tst_Q3CanvasView_painting::partialRepaintEqualsAWholeOne()
{
    QFETCH(double, factor);
    QFETCH(QImage::Format, format);
    setPicture(noise(QSize(997, 803), format));
    canvas->resize(997, 803);
    zoom(factor);
    QCoreApplication::processEvents();
    view->setContentsPos(13, 5);
    Q3CanvasRectangle frame(QRect(32, 16, 128, 304), canvas.get()); // whole screen pixels at every zoom
    frame.setZ(1.0);
    frame.show();
    const QImage whole = shot();

    for (const QRect part : {QRect(0, 0, 40, 30), QRect(17, 23, 51, 39), QRect(60, 50, 60, 50)}) {
        const QRect inside = part & whole.rect();
        const QImage actual = view->viewport()->grab(inside).toImage().convertToFormat(QImage::Format_RGB32);
        QCOMPARE(actual, whole.copy(inside));
    }
}

QTEST_MAIN(tst_Q3CanvasView_painting)

#include "tst_Q3CanvasView_painting.moc"
