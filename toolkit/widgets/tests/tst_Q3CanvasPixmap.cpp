#include "noise_pages.h"
#include "painted_window.h"
#include "Q3CanvasPixmap.h"

#include <QPixmap>
#include <QTest>
#include <QtMath>

#include <algorithm>
#include <array>

namespace {

struct Zoom
{
    const char *name;
    double factor;
};
constexpr std::array<Zoom, 6> Zooms = {
    {{"4096:1", 4096.0}, {"16:1", 16.0}, {"8:1", 8.0}, {"4:1", 4.0}, {"2:1", 2.0}, {"1:1", 1.0}}}; // not reduced

QImage painted_plainly(const QImage &page, const QPoint &at, double factor, const QPoint &scroll)
{
    const QPixmap pixmap = QPixmap::fromImage(page);
    return painted(factor, scroll, {}, [&](QPainter &painter) { painter.drawPixmap(at, pixmap); });
}

QString first_differences(const QImage &actual, const QImage &expected)
{
    QStringList differences;
    for (int y = 0; y < expected.height(); ++y) {
        for (int x = 0; x < expected.width(); ++x) {
            if (actual.pixel(x, y) != expected.pixel(x, y) && differences.size() < 10)
                differences.append(
                    QString::asprintf("(%d,%d) %08x instead of %08x", x, y, actual.pixel(x, y), expected.pixel(x, y)));
        }
    }
    return differences.join(QLatin1StringView(", "));
}

} // namespace

class tst_Q3CanvasPixmap : public QObject
{
    Q_OBJECT

private slots:
    void pageFormatsShareTheirPixels_data()
    {
        QTest::addColumn<int>("kind");
        const QList<PageKind> kinds = page_kinds();
        for (int kind = 0; kind < kinds.size(); ++kind)
            QTest::newRow(kinds[kind].name) << kind;
    }

    void pageFormatsShareTheirPixels()
    {
        QFETCH(int, kind);
        const QImage page = noise_page(page_kinds()[kind], QSize(20, 10));

        const Q3CanvasPixmap pixmap(page);

        QCOMPARE(pixmap.image().constBits(), page.constBits());
        QCOMPARE(pixmap.image().colorTable(), page.colorTable());
    }

    void greyPictureIsBroughtToAPageFormat()
    {
        QImage grey(2, 1, QImage::Format_Grayscale8);
        grey.fill(77);

        const Q3CanvasPixmap pixmap(grey);

        QCOMPARE(pixmap.image().format(), QImage::Format_Indexed8);
        QCOMPARE(pixmap.image().pixel(1, 0), qRgb(77, 77, 77));
    }

    void depthIsThatOfAColourPixmap()
    {
        QCOMPARE(Q3CanvasPixmap(QImage(3, 2, QImage::Format_Mono)).depth(), 32);
        QCOMPARE(Q3CanvasPixmap(QImage(3, 2, QImage::Format_ARGB32)).depth(), 32);
        QCOMPARE(Q3CanvasPixmap(QImage()).depth(), 0);
    }

    void hotSpotIsTheOffsetOfTheImage()
    {
        QImage image(3, 2, QImage::Format_RGB32);
        image.setOffset(QPoint(2, 1));

        const Q3CanvasPixmap pixmap(image);

        QCOMPARE(QPoint(pixmap.offsetX(), pixmap.offsetY()), QPoint(2, 1));
        QCOMPARE(QSize(pixmap.width(), pixmap.height()), QSize(3, 2));
    }

    void onlyAPictureWithoutAlphaIsOpaque()
    {
        QImage transparentTable(3, 2, QImage::Format_Mono);
        transparentTable.setColorTable({qRgba(0, 0, 0, 0), qRgb(0, 0, 0)});

        QVERIFY(Q3CanvasPixmap(QImage(3, 2, QImage::Format_RGB32)).isOpaque());
        QVERIFY(Q3CanvasPixmap(QImage(3, 2, QImage::Format_Mono)).isOpaque());
        QVERIFY(!Q3CanvasPixmap(QImage(3, 2, QImage::Format_ARGB32)).isOpaque());
        QVERIFY(!Q3CanvasPixmap(transparentTable).isOpaque());
        QVERIFY(!Q3CanvasPixmap(QImage()).isOpaque());
    }

    void nullPictureDrawsNothing()
    {
        const Q3CanvasPixmap pixmap{QImage()};

        const QImage window = painted(1.0, {}, {}, [&](QPainter &painter) { pixmap.draw(painter, {}); });

        QCOMPARE(window, painted(1.0, {}, {}, [](QPainter &) {}));
    }

    void paintsAsAPixmapUnlessReduced_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<double>("factor");
        QTest::addColumn<QSize>("size");

        const QList<PageKind> kinds = page_kinds();
        for (const Zoom &zoom : Zooms) {
            for (int kind = 0; kind < kinds.size(); ++kind) {
                for (const QSize size : {QSize(1, 1), QSize(7, 9), QSize(333, 251), QSize(1000, 903)})
                    QTest::addRow("%s %s %dx%d", kinds[kind].name, zoom.name, size.width(), size.height())
                        << kind << zoom.factor << size;
            }
        }
    }

    void paintsAsAPixmapUnlessReduced()
    {
        QFETCH(int, kind);
        QFETCH(double, factor);
        QFETCH(QSize, size);
        const QImage page = noise_page(page_kinds()[kind], size);
        const Q3CanvasPixmap pixmap(page);

        for (const QPoint scroll : {QPoint(0, 0), QPoint(1, 3), QPoint(37, 18), QPoint(-5, -11)}) {
            for (const QPoint at : {QPoint(0, 0), QPoint(3, 5), QPoint(-17, -9)}) {
                const QImage actual = painted(factor, scroll, {}, [&](QPainter &painter) { pixmap.draw(painter, at); });
                const QImage expected = painted_plainly(page, at, factor, scroll);
                QVERIFY2(actual == expected, qPrintable(first_differences(actual, expected)));
            }
        }
    }

    void partialExposureShowsThePixelsOfTheWhole_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<double>("factor");
        const QList<PageKind> kinds = page_kinds();
        for (const Zoom &zoom : Zooms) {
            for (int kind = 0; kind < kinds.size(); ++kind)
                QTest::addRow("%s %s", kinds[kind].name, zoom.name) << kind << zoom.factor;
        }
    }

    void partialExposureShowsThePixelsOfTheWhole()
    {
        QFETCH(int, kind);
        QFETCH(double, factor);
        const Q3CanvasPixmap pixmap(noise_page(page_kinds()[kind], QSize(1203, 1501)));
        const QPoint scroll(13, 7);
        const auto draw = [&](QPainter &painter) { pixmap.draw(painter, QPoint(0, 0)); };
        const QImage whole = painted(factor, scroll, {}, draw);
        const QImage untouched = painted(factor, scroll, {}, [](QPainter &) {});

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
                for (int y = part.top(); y <= part.bottom(); ++y) {
                    for (int x = part.left(); x <= part.right(); ++x)
                        expected.setPixel(x, y, whole.pixel(x, y));
                }
            }

            const QImage actual = painted(factor, scroll, exposed, draw);
            QVERIFY2(actual == expected, qPrintable(first_differences(actual, expected)));
        }
    }

    void pageBeyondThePaintersCoordinatesIsRightAtItsFarEnd_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::addColumn<double>("factor");
        QTest::addColumn<QSize>("size");
        for (const Zoom &zoom : Zooms) {
            QTest::addRow("wide Indexed8 %s", zoom.name) << QImage::Format_Indexed8 << zoom.factor << QSize(40003, 130);
            QTest::addRow("high Indexed8 %s", zoom.name) << QImage::Format_Indexed8 << zoom.factor << QSize(170, 40005);
            QTest::addRow("wide RGB32 %s", zoom.name) << QImage::Format_RGB32 << zoom.factor << QSize(40003, 130);
            QTest::addRow("high ARGB32 %s", zoom.name) << QImage::Format_ARGB32 << zoom.factor << QSize(170, 40005);
        }
        QTest::newRow("A4 at 600 dpi, Mono 8:1") << QImage::Format_Mono << 8.0 << QSize(4960, 7016);
        QTest::newRow("A4 at 600 dpi, RGB32 8:1") << QImage::Format_RGB32 << 8.0 << QSize(4960, 7016);
    }

    void pageBeyondThePaintersCoordinatesIsRightAtItsFarEnd()
    {
        QFETCH(QImage::Format, format);
        QFETCH(double, factor);
        QFETCH(QSize, size);
        const bool indexed = format == QImage::Format_Indexed8 || format == QImage::Format_Mono;
        const QImage page = indexed
            ? noise_page({"", format, noise_table(format == QImage::Format_Mono ? 2 : 256, false)}, size)
            : noise_page({"", QImage::Format_RGB32, {}}, size).convertToFormat(format);
        const Q3CanvasPixmap pixmap(page);
        // The far corner of the contents in the far corner of the window.
        const QSize contents(qFloor(size.width() * factor), qFloor(size.height() * factor));
        const QPoint scroll(qMax(0, contents.width() - Window.width()), qMax(0, contents.height() - Window.height()));

        const QImage actual = painted(factor, scroll, {}, [&](QPainter &painter) { pixmap.draw(painter, {}); });

        const auto source = [factor](int pixel) { return qFloor(pixel / factor); };
        for (int y = 0; y < qMin(Window.height(), contents.height()); ++y) {
            for (int x = 0; x < qMin(Window.width(), contents.width()); ++x) {
                const QRgb expected = page.pixel(source(x + scroll.x()), source(y + scroll.y())) | 0xff000000U;
                if ((actual.pixel(x, y) | 0xff000000U) != expected)
                    QFAIL(qPrintable(
                        QString::asprintf("(%d,%d) %08x instead of %08x", x, y, actual.pixel(x, y), expected)));
            }
        }
    }

    void fourthBytesOfAnOpaquePageReachNoDevice()
    {
        QImage page(QSize(20, 10), QImage::Format_RGB32);
        for (int y = 0; y < page.height(); ++y)
            std::fill_n(reinterpret_cast<QRgb *>(page.scanLine(y)), page.width(), 0x20112233U);
        const Q3CanvasPixmap pixmap(page);
        for (const int factor : {2, 8}) {
            QImage device(page.size() * factor, QImage::Format_ARGB32_Premultiplied);
            device.fill(Qt::transparent);
            {
                QPainter painter(&device);
                painter.setCompositionMode(QPainter::CompositionMode_Source);
                painter.scale(factor, factor);
                pixmap.draw(painter, {});
            }
            QImage expected(device.size(), device.format());
            expected.fill(0xff112233U);
            QCOMPARE(device, expected);
        }
    }

    void otherTransformsPaintAsThePainterDoes()
    {
        const QImage page = noise_page({"", QImage::Format_RGB32, {}}, QSize(61, 43));
        const Q3CanvasPixmap pixmap(page);
        const QList<QTransform> transforms = {
            QTransform::fromScale(3.0, 3.0), QTransform::fromScale(2.0, 1.0),  QTransform::fromTranslate(0.5, 0.25),
            QTransform().rotate(30.0),       QTransform::fromScale(0.5, 0.25), QTransform::fromScale(0.005, 0.005)};
        for (const QTransform &transform : transforms) {
            const auto adjusted = [&](auto draw) {
                return painted(1.0, {}, {}, [&](QPainter &painter) {
                    painter.setTransform(transform);
                    draw(painter);
                });
            };
            const QImage actual = adjusted([&](QPainter &painter) { pixmap.draw(painter, QPoint(2, 3)); });
            const QImage expected = adjusted([&](QPainter &painter) { painter.drawImage(2, 3, page); });
            QVERIFY2(actual == expected, qPrintable(first_differences(actual, expected)));
        }
    }

    void smoothingPainterSmooths()
    {
        const QImage page = noise_page({"", QImage::Format_RGB32, {}}, QSize(61, 43));
        const Q3CanvasPixmap pixmap(page);
        const auto smoothly = [](auto draw) {
            return painted(2.0, {}, {}, [&](QPainter &painter) {
                painter.setRenderHint(QPainter::SmoothPixmapTransform);
                draw(painter);
            });
        };

        const QImage actual = smoothly([&](QPainter &painter) { pixmap.draw(painter, QPoint(0, 0)); });

        QCOMPARE(actual, smoothly([&](QPainter &painter) { painter.drawImage(0, 0, page); }));
        QVERIFY(actual != painted_plainly(page, QPoint(0, 0), 2.0, QPoint(0, 0)));
    }

    void painterKeepsItsTransform()
    {
        const Q3CanvasPixmap pixmap(noise_page(page_kinds()[0], QSize(333, 251)));
        const QPoint scroll(4, 9);

        QCOMPARE(transform_after(2.0, scroll, [&](QPainter &painter) { pixmap.draw(painter, {}); }),
                 zoom_transform(2.0, scroll));
    }
};

QTEST_MAIN(tst_Q3CanvasPixmap)

#include "tst_Q3CanvasPixmap.moc"
