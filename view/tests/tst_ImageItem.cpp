#include "DiagnosticLines.h"
#include "ImageItem.h"
#include "pictures.h"
#include "Q3Canvas.h"

#include <QPainter>
#include <QTest>

class tst_ImageItem : public QObject
{
    Q_OBJECT

private slots:
    void isKnownByItsOwnKindAndStartsHiddenAndEmpty()
    {
        Q3Canvas canvas;
        ImageItem item(nullptr, &canvas);

        QCOMPARE(item.rtti(), 984379);
        QVERIFY(!item.isVisible());
        QVERIFY(item.pageImage().isNull());
        QCOMPARE(item.width(), 0);
        item.setCanvas(nullptr);
    }

    void aPictureBecomesTheFrameAndIsLogged()
    {
        DiagnosticLines lines;
        lines.expect(QStringLiteral("ImageItem::setImage:\n\timage: 7x5x8\n\tpixmap: 7x5x32"));
        Q3Canvas canvas;
        ImageItem item(nullptr, &canvas);
        const QImage page = patterned_page(QSize(7, 5), 8);

        QVERIFY(item.setImage(page));

        QCOMPARE(item.pageImage(), page);
        QCOMPARE(QSize(item.width(), item.height()), QSize(7, 5));
        item.setCanvas(nullptr);
    }

    void isDrawnOnceAndUnscaledFromTheCorner_data()
    {
        QTest::addColumn<int>("depth");

        QTest::newRow("1 bit") << 1;
        QTest::newRow("8 bit") << 8;
        QTest::newRow("32 bit") << 32;
    }

    void isDrawnOnceAndUnscaledFromTheCorner()
    {
        QFETCH(int, depth);
        DiagnosticLines lines;
        lines.expect(QRegularExpression(QStringLiteral("ImageItem::setImage:.*"),
                                        QRegularExpression::DotMatchesEverythingOption));
        Q3Canvas canvas;
        canvas.setBackgroundColor(Qt::gray);
        ImageItem item(nullptr, &canvas);
        const QImage page = patterned_page(QSize(33, 21), depth);
        QVERIFY(item.setImage(page));

        QImage screen(40, 30, QImage::Format_RGB32);
        screen.fill(Qt::yellow);
        QPainter painter(&screen);
        item.draw(painter);
        painter.end();

        QVERIFY(compare_pictures(screen.copy(0, 0, 33, 21), page.convertToFormat(QImage::Format_RGB32)));
        // The frame in the canvas colour lies right around the picture's far sides.
        QCOMPARE(QColor(screen.pixel(34, 10)), QColor(Qt::gray));
        QCOMPARE(QColor(screen.pixel(10, 22)), QColor(Qt::gray));
        QCOMPARE(QColor(screen.pixel(36, 10)), QColor(Qt::yellow));
        item.setCanvas(nullptr);
    }

    void drawingLeavesThePenAsItWas()
    {
        Q3Canvas canvas;
        ImageItem item(nullptr, &canvas);
        QImage screen(4, 4, QImage::Format_RGB32);
        QPainter painter(&screen);
        painter.setPen(QPen(Qt::red, 3));

        item.draw(painter);

        QCOMPARE(painter.pen(), QPen(Qt::red, 3));
        item.setCanvas(nullptr);
    }

    void dumpTellsPositionAndSizes()
    {
        DiagnosticLines lines;
        lines.expect(QRegularExpression(QStringLiteral("ImageItem::setImage:.*"),
                                        QRegularExpression::DotMatchesEverythingOption));
        Q3Canvas canvas;
        ImageItem item(nullptr, &canvas);
        QVERIFY(item.setImage(patterned_page(QSize(7, 5), 1)));

        QCOMPARE(item.dump(),
                 QStringLiteral("pos: (0.000000,0.000000,0.000000), visible: 0, pixmap: 7x5x32 image: 7x5x1"));
        item.setCanvas(nullptr);
    }
};

QTEST_MAIN(tst_ImageItem)
#include "tst_ImageItem.moc"
