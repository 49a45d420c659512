#include "ViewFixture.h"

#include <QPixmap>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_ImageView : public QObject
{
    Q_OBJECT

private slots:
    void startsAtNaturalSizeWithTwoHiddenItemsOnGray()
    {
        const ImageView view(nullptr);

        QCOMPARE(view.zoomIndex(), 3);
        QCOMPARE(view.currentFactor(), 1.0);
        QCOMPARE(view.currentPage(), 0U);
        QVERIFY(!view.hasSelection());
        QCOMPARE(view.selection(), QRect());
        QCOMPARE(view.canvas()->allItems().size(), 2);
        QVERIFY(!view.imageItem()->isVisible());
        QCOMPARE(view.canvas()->backgroundColor(), QColor(Qt::gray));
        QCOMPARE(view.viewport()->palette().color(view.viewport()->backgroundRole()), QColor(Qt::gray));
        QVERIFY(view.hasMouseTracking());
        QVERIFY(view.viewport()->hasMouseTracking());
    }

    void canvasAndBarsHaveAccessibleNames()
    {
        const ImageView view(nullptr);

        QVERIFY(!view.accessibleName().isEmpty());
        QVERIFY(!view.viewport()->accessibleName().isEmpty());
        QVERIFY(!view.horizontalScrollBar()->accessibleName().isEmpty());
        QVERIFY(!view.verticalScrollBar()->accessibleName().isEmpty());
    }

    void eachZoomIndexHasItsFactor_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<double>("factor");
        QTest::addColumn<QSize>("contents"); // of a page of 1000 by 7

        QTest::newRow("8:1") << 0 << 8.0 << QSize(8000, 56);
        QTest::newRow("4:1") << 1 << 4.0 << QSize(4000, 28);
        QTest::newRow("2:1") << 2 << 2.0 << QSize(2000, 14);
        QTest::newRow("1:1") << 3 << 1.0 << QSize(1000, 7);
        QTest::newRow("1:2") << 4 << 0.5 << QSize(500, 4);
        QTest::newRow("1:4") << 5 << 0.25 << QSize(250, 2);
        QTest::newRow("1:8") << 6 << 0.125 << QSize(125, 1);
        QTest::newRow("1:16") << 7 << 0.0625 << QSize(63, 0);
    }

    void eachZoomIndexHasItsFactor()
    {
        QFETCH(int, index);
        QFETCH(double, factor);
        ViewFixture fixture(QSize(1000, 7));

        QVERIFY(fixture.view.setZoomIndex(index));

        QCOMPARE(fixture.view.zoomIndex(), index);
        QCOMPARE(fixture.view.currentFactor(), factor);
        QCOMPARE(fixture.view.worldMatrix().m11(), factor);
        QCOMPARE(fixture.view.worldMatrix().m22(), factor);
        QTEST(QSize(fixture.view.contentsWidth(), fixture.view.contentsHeight()), "contents");
        QCOMPARE(fixture.view.canvas()->size(), QSize(1000, 7));
    }

    void zoomingInStopsAtTheLargestPicture()
    {
        ViewFixture fixture(QSize(10, 10));

        QVERIFY(fixture.view.zoomIn());
        QCOMPARE(fixture.view.zoomIndex(), 2);
        QVERIFY(fixture.view.setZoomIndex(0));
        QVERIFY(!fixture.view.zoomIn());
        QCOMPARE(fixture.view.zoomIndex(), 0);
        QCOMPARE(fixture.view.currentFactor(), 8.0);
    }

    void zoomingOutStopsAtTheSmallestPicture()
    {
        ViewFixture fixture(QSize(10, 10));

        QVERIFY(fixture.view.zoomOut());
        QCOMPARE(fixture.view.zoomIndex(), 4);
        QVERIFY(fixture.view.setZoomIndex(7));
        QVERIFY(!fixture.view.zoomOut());
        QCOMPARE(fixture.view.zoomIndex(), 7);
        QCOMPARE(fixture.view.currentFactor(), 0.0625);
    }

    void everyZoomIsOfferedForAPictureOfAnySize_data()
    {
        QTest::addColumn<QSize>("size");

        QTest::newRow("one pixel") << QSize(1, 1);
        QTest::newRow("page") << QSize(2480, 3508);
    }

    void everyZoomIsOfferedForAPictureOfAnySize()
    {
        QFETCH(QSize, size);
        ViewFixture fixture(size);

        QCOMPARE(fixture.view.zoomIndexLimit(), 0);
    }

    void aZoomKeepsTheSelection()
    {
        ViewFixture fixture(QSize(200, 150));
        fixture.drag(QPoint(20, 30), QPoint(59, 79));
        const QRect selection = fixture.view.selection();
        QVERIFY(!selection.isNull());

        QVERIFY(fixture.view.zoomOut());

        QCOMPARE(fixture.view.selection(), selection);
    }

    void statusTextTellsSizeAndPoint_data()
    {
        QTest::addColumn<QPoint>("point");
        QTest::addColumn<QString>("text");

        QTest::newRow("first pixel") << QPoint(0, 0) << u"[120x90] (0,0)"_s;
        QTest::newRow("last pixel") << QPoint(119, 89) << u"[120x90] (119,89)"_s;
        QTest::newRow("beside") << QPoint(120, 10) << u"[120x90]"_s;
        QTest::newRow("below") << QPoint(10, 90) << u"[120x90]"_s;
        QTest::newRow("above") << QPoint(10, -1) << u"[120x90]"_s;
    }

    void statusTextTellsSizeAndPoint()
    {
        QFETCH(QPoint, point);
        const ViewFixture fixture(QSize(120, 90));

        QTEST(fixture.view.statusText(point), "text");
    }

    void aNewPageNumberChangesNoPicture()
    {
        ViewFixture fixture(QSize(12, 9));
        const QImage page = fixture.view.imageItem()->pageImage();

        fixture.view.setCurrentPage(2);

        QCOMPARE(fixture.view.currentPage(), 2U);
        QCOMPARE(fixture.view.imageItem()->pageImage(), page);
        QVERIFY(fixture.view.imageItem()->isVisible());
    }

    void theSamePageNumberLeavesAHiddenPictureHidden()
    {
        ViewFixture fixture(QSize(12, 9));
        fixture.view.imageItem()->hide();

        fixture.view.setCurrentPage(0);

        QVERIFY(!fixture.view.imageItem()->isVisible());
    }

    void aPictureThatCannotBeShownIsRefused()
    {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^ImageItem::setImage:"_s));
        ImageView view(nullptr);
        const QImage wide(100'000'000, 1, QImage::Format_RGB16); // at 32 bits more than a line can have
        QVERIFY(!wide.isNull());

        QVERIFY(!view.setImage(wide));

        QVERIFY(!view.imageItem()->isVisible());
    }

    void aReplacedPictureFitsTheCanvasAndEndsTheSelection()
    {
        ViewFixture fixture(QSize(200, 150));
        fixture.drag(QPoint(20, 30), QPoint(59, 79));
        QVERIFY(fixture.view.hasSelection());
        QSignalSpy selectionChanged(&fixture.view, &ImageView::selectionChanged);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^ImageItem::setImage:"_s));
        const QImage turned = patterned_page(QSize(150, 200));

        fixture.view.replaceImage(1, turned);

        QVERIFY(!fixture.view.hasSelection());
        QCOMPARE(selectionChanged.count(), 1);
        QCOMPARE(fixture.view.canvas()->size(), QSize(150, 200));
        QCOMPARE(fixture.view.imageItem()->pageImage(), turned);
    }

    void aReplacedPictureIsPainted()
    {
        ViewFixture fixture(QSize(60, 40));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^ImageItem::setImage:"_s));

        fixture.view.replaceImage(1, solid_page(QSize(60, 40), qRgb(255, 0, 0)));

        const QImage screen = fixture.view.viewport()->grab().toImage();
        QCOMPARE(QColor(screen.pixel(30, 20)), QColor(Qt::red));
        QCOMPARE(QColor(screen.pixel(100, 20)), QColor(Qt::gray));
    }

    void aReplacedPictureOfTheSameSizeComesOnScreenByItself()
    {
        ViewFixture fixture(QSize(60, 40));
        const auto shown = [&] {
            const QWidget *const viewport = fixture.view.viewport();
            const QPoint at = viewport->mapTo(&fixture.view, QPoint(30, 20));
            const QPixmap pixel = fixture.view.screen()->grabWindow(fixture.view.winId(), at.x(), at.y(), 1, 1);
            return QColor(pixel.toImage().pixel(0, 0));
        };
        QTRY_COMPARE(shown(), QColor(position_color(QPoint(30, 20))));
        fixture.move(QPoint(10, 10)); // drops all marks
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^ImageItem::setImage:"_s));

        fixture.view.replaceImage(1, solid_page(QSize(60, 40), qRgb(255, 0, 0)));

        QTRY_COMPARE(shown(), QColor(Qt::red));
    }

    void thePictureSitsAtTheTopLeftOnGrayAtEveryZoom_data()
    {
        QTest::addColumn<int>("index");

        for (int index = 0; index < 8; ++index)
            QTest::addRow("index %d", index) << index;
    }

    void thePictureSitsAtTheTopLeftOnGrayAtEveryZoom()
    {
        QFETCH(int, index);
        ViewFixture fixture(QSize(32, 16)); // at 8:1 256 by 128, so all of it fits into the view
        QVERIFY(fixture.view.setZoomIndex(index));
        const double factor = fixture.view.currentFactor();
        const double reach = qMax(1.0, 1.0 / factor); // image pixels that one screen pixel may stand for
        const QSize painted(qRound(32 * factor), qRound(16 * factor));

        const QImage screen = fixture.view.viewport()->grab().toImage();

        const QImage page = patterned_page(QSize(32, 16));
        for (const QPoint point : {QPoint(0, 0), QPoint(painted.width() - 1, painted.height() - 1)}) {
            const QPoint source = position_of(screen.pixel(point));
            const QPointF exact = QPointF(point) / factor;
            QVERIFY2(qAbs(source.x() - exact.x()) <= reach && qAbs(source.y() - exact.y()) <= reach,
                     qPrintable(u"%1,%2"_s.arg(source.x()).arg(source.y())));
        }
        QCOMPARE(QColor(screen.pixel(painted.width() + 1, 0)), QColor(Qt::gray));
        QCOMPARE(QColor(screen.pixel(0, painted.height() + 1)), QColor(Qt::gray));
    }
};

QTEST_MAIN(tst_ImageView)
#include "tst_ImageView.moc"
