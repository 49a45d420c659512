// The picture where it is shown smaller than it is.

#include "noise_pages.h"
#include "painted_window.h"
#include "pictures.h"
#include "plain_averages.h"
#include "Q3CanvasPixmap.h"

#include <QTest>

#include <cstring>
#include <utility>

namespace {

/// The window with averages that are made in the plainest way and put on it as they are.
/// @param scale   screen pixels a page pixel
/// @param begin   where the page begins on the screen, in the fractions of the scale
QImage painted_plainly(const QImage &page, PlainScale scale, const QPoint &begin, const QSize &size = Window)
{
    const auto split = [&scale](int position) { // the screen pixel that the page begins in, and the rest
        const int zero = position >= 0 ? position / scale.page : -((scale.page - 1 - position) / scale.page);
        return std::pair(zero, PlainScale{scale.screen, scale.page, position - zero * scale.page});
    };
    const auto [left, across] = split(begin.x());
    const auto [top, down] = split(begin.y());
    const QImage averages = averaged_plainly(page, across, down);
    return painted(
        1.0, {}, {}, [&, left = left, top = top](QPainter &painter) { painter.drawImage(left, top, averages); }, 1.0,
        size);
}

} // namespace

class tst_Q3CanvasPixmap_reduced : public QObject
{
    Q_OBJECT

private slots:
    void showsAverages_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("step");
        QTest::addColumn<QSize>("size");

        const QList<PageKind> kinds = page_kinds();
        for (const int step : {2, 4, 8, 16}) {
            for (int kind = 0; kind < kinds.size(); ++kind) {
                for (const QSize size : {QSize(1, 1), QSize(7, 9), QSize(203, 141)})
                    QTest::addRow("%s 1:%d %dx%d", kinds[kind].name, step, size.width(), size.height())
                        << kind << step << size;
            }
        }
    }

    void showsAverages()
    {
        QFETCH(int, kind);
        QFETCH(int, step);
        QFETCH(QSize, size);
        const QImage page = noise_page(page_kinds()[kind], size, 4);
        const Q3CanvasPixmap pixmap(page);

        for (const QPoint scroll : {QPoint(0, 0), QPoint(1, 3), QPoint(37, 18), QPoint(-5, -11)}) {
            for (const QPoint at : {QPoint(0, 0), QPoint(3, 5), QPoint(-17, -9)}) {
                const QImage actual =
                    painted(1.0 / step, scroll, {}, [&](QPainter &painter) { pixmap.draw(painter, at); });
                QVERIFY(compare_pictures(actual, painted_plainly(page, {1, step}, at - step * scroll)));
            }
        }
    }

    void showsAveragesOnScreensOfOtherRatios_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("quarters");
        const QList<PageKind> kinds = page_kinds();
        for (const int quarters : {5, 6, 7, 8, 12}) {
            for (const int kind : {0, 1, 5, 6, 10, 11}) {
                for (const int step : {2, 4, 16})
                    QTest::addRow("%s 1:%d at %.2f", kinds[kind].name, step, quarters / 4.0)
                        << kind << step << quarters;
            }
        }
    }

    void showsAveragesOnScreensOfOtherRatios()
    {
        QFETCH(int, kind);
        QFETCH(int, step);
        QFETCH(int, quarters);
        const QImage page = noise_page(page_kinds()[kind], QSize(131, 93));
        const Q3CanvasPixmap pixmap(page);

        for (const QPoint scroll : {QPoint(0, 0), QPoint(1, 2), QPoint(7, 3)}) {
            const QImage actual = painted(
                1.0 / step, scroll, {}, [&](QPainter &painter) { pixmap.draw(painter, {}); }, quarters / 4.0);
            // A point of the window is quarters / 4 pixels of the screen, a page pixel quarters / (4 * step) of them.
            QImage expected = painted_plainly(page, {quarters, 4 * step}, -scroll * quarters * step);
            expected.setDevicePixelRatio(quarters / 4.0);
            QVERIFY(compare_pictures(actual, expected));
        }
    }

    void partShowsThePixelsOfTheWhole_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("step");
        const QList<PageKind> kinds = page_kinds();
        for (const int step : {2, 4, 8, 16}) {
            for (int kind = 0; kind < kinds.size(); ++kind)
                QTest::addRow("%s 1:%d", kinds[kind].name, step) << kind << step;
        }
    }

    void partShowsThePixelsOfTheWhole()
    {
        QFETCH(int, kind);
        QFETCH(int, step);
        const QImage page = noise_page(page_kinds()[kind], QSize(1203, 1501));
        const QPoint scroll(13, 7);
        const auto draw = [&page](QPainter &painter) { Q3CanvasPixmap(page).draw(painter, QPoint(0, 0)); };
        const QImage whole = painted(1.0 / step, scroll, {}, draw);
        const QImage untouched = painted(1.0 / step, scroll, {}, [](QPainter &) {});
        const Q3CanvasPixmap pixmap(page); // gets all exposures, one after the other

        const QList<QRegion> exposures = {QRect(0, 0, 1, 1),
                                          QRect(5, 3, 17, 9),
                                          QRect(61, 43, 89, 67),
                                          QRect(70, 90, 33, 1),
                                          QRect(-20, -20, 45, 31),
                                          QRect(200, 200, 5, 5),
                                          QRegion(3, 5, 40, 20) + QRect(11, 60, 95, 7)};
        for (const QRegion &exposed : exposures) {
            QImage expected = untouched;
            for (const QRect &part : exposed &whole.rect()) {
                const qsizetype first = qsizetype{4} * part.left(); // bytes
                for (int y = part.top(); y <= part.bottom(); ++y)
                    std::memcpy(expected.scanLine(y) + first, whole.constScanLine(y) + first,
                                4 * static_cast<std::size_t>(part.width()));
            }

            QVERIFY(compare_pictures(painted(1.0 / step, scroll, exposed, draw), expected));
            QVERIFY(compare_pictures(
                painted(1.0 / step, scroll, exposed, [&](QPainter &painter) { pixmap.draw(painter, QPoint(0, 0)); }),
                expected));
        }
    }

    void scrollingShowsWhatAWholePaintingShows_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QSize>("page");
        QTest::addColumn<int>("step");
        QTest::newRow("Mono, far beyond what is kept") << 0 << QSize(20000, 15000) << 2;
        QTest::newRow("Indexed8, far beyond what is kept") << 5 << QSize(9000, 7000) << 2;
        QTest::newRow("RGB32 that is wide") << 10 << QSize(30000, 700) << 4;
        QTest::newRow("RGB32 that is high") << 10 << QSize(900, 24000) << 4;
        QTest::newRow("ARGB32 that is kept as a whole") << 11 << QSize(3000, 2000) << 8;
    }

    void scrollingShowsWhatAWholePaintingShows()
    {
        QFETCH(int, kind);
        QFETCH(QSize, page);
        QFETCH(int, step);
        const QImage image = noise_page(page_kinds()[kind], page);
        const Q3CanvasPixmap pixmap(image);
        const QPoint far(page.width() / step - Window.width(), page.height() / step - Window.height());

        // By lines, by columns, aslant, in leaps, to all corners and back.
        const QList<QPoint> ways = {{0, 0},
                                    {0, 20},
                                    {0, 40},
                                    {30, 60},
                                    {25, 55},
                                    {far.x(), 0},
                                    far,
                                    far,
                                    {far.x() - 9, far.y() - 31},
                                    {0, far.y()},
                                    {0, 40},
                                    far / 2,
                                    far / 2 + QPoint(-70, 50),
                                    far / 3,
                                    {far.x() / 3, 0},
                                    {0, 0}};
        for (const QPoint scroll : ways) {
            for (const QRegion &exposed : {QRegion(), QRegion(20, 30, 50, 40)}) {
                const QImage actual =
                    painted(1.0 / step, scroll, exposed, [&](QPainter &painter) { pixmap.draw(painter, {}); });
                const QImage expected = painted(1.0 / step, scroll, exposed,
                                                [&](QPainter &painter) { Q3CanvasPixmap(image).draw(painter, {}); });
                QVERIFY(compare_pictures(actual, expected));
            }
        }
    }

    void pageBeyondThePaintersCoordinatesIsRightAtItsFarEnd_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QSize>("size");
        QTest::newRow("wide Indexed8") << 5 << QSize(40003, 37);
        QTest::newRow("high Indexed8") << 5 << QSize(41, 40005);
        QTest::newRow("wide RGB32") << 10 << QSize(40003, 37);
        QTest::newRow("high ARGB32") << 11 << QSize(41, 40005);
        QTest::newRow("wide Mono") << 0 << QSize(70001, 37);
    }

    void pageBeyondThePaintersCoordinatesIsRightAtItsFarEnd()
    {
        QFETCH(int, kind);
        QFETCH(QSize, size);
        const QImage page = noise_page(page_kinds()[kind], size);
        const Q3CanvasPixmap pixmap(page);
        for (const int step : {2, 16}) {
            const QPoint scroll(qMax(0, size.width() / step - Window.width()),
                                qMax(0, size.height() / step - Window.height()));
            const QRect end = QRect(scroll * step, Window * step) & page.rect();

            const QImage actual = painted(1.0 / step, scroll, {}, [&](QPainter &painter) { pixmap.draw(painter, {}); });

            // The far part alone, as a small page at the corner of the window.
            QVERIFY(compare_pictures(actual, painted_plainly(page.copy(end), {1, step}, {})));
        }
    }

    void painterKeepsItsTransform()
    {
        const Q3CanvasPixmap pixmap(noise_page(page_kinds()[0], QSize(333, 251)));
        const QPoint scroll(4, 9);

        QCOMPARE(transform_after(0.25, scroll, [&](QPainter &painter) { pixmap.draw(painter, {}); }),
                 zoom_transform(0.25, scroll));
    }
};

QTEST_MAIN(tst_Q3CanvasPixmap_reduced)

#include "tst_Q3CanvasPixmap_reduced.moc"
