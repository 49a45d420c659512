#include "noise_pages.h"
#include "PixelAverage.h"
#include "plain_averages.h"

#include <QTest>

#include <algorithm>
#include <utility>

namespace {

ReducedAxis axis_of(PlainScale scale, int length)
{
    return {.scale = double(scale.screen) / scale.page, .phase = double(scale.begin) / scale.page, .length = length};
}

/// The screen pixels of @p part as they are read, row by row.
QImage averaged(const QImage &page, const ReducedAxis &across, const ReducedAxis &down, const QRect &part)
{
    PixelAverage averages(page, ReducedColumns(across, part.left(), part.right() + 1));
    QImage result(part.size(), PixelAverage::format(page));
    for (int y = 0; y < part.height(); ++y)
        averages.readRow(reinterpret_cast<QRgb *>(result.scanLine(y)), down.covered(part.top() + y));
    return result.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QString first_difference(const QImage &actual, const QImage &expected)
{
    for (int y = 0; y < expected.height(); ++y) {
        for (int x = 0; x < expected.width(); ++x) {
            const QRgb is = reinterpret_cast<const QRgb *>(actual.constScanLine(y))[x];
            const QRgb should = reinterpret_cast<const QRgb *>(expected.constScanLine(y))[x];
            if (is != should)
                return QString::asprintf("(%d,%d) %08x instead of %08x", x, y, is, should);
        }
    }
    return actual.size() == expected.size() ? QString() : QStringLiteral("sizes");
}

/// A picture of one column, from the left top.
QRgb average_of(const QList<QRgb> &words, QImage::Format format)
{
    QImage page(static_cast<int>(words.size()) / 2, 2, format);
    for (int i = 0; i < words.size(); ++i)
        reinterpret_cast<QRgb *>(page.scanLine(i % 2))[i / 2] = words[i];
    const ReducedAxis across{.scale = 0.5, .phase = 0.0, .length = page.width()};
    const ReducedAxis down{.scale = 0.5, .phase = 0.0, .length = 2};
    QRgb result = 0;
    PixelAverage averages(page, ReducedColumns(across, 0, 1));
    averages.readRow(&result, down.covered(0));
    return result;
}

} // namespace

class tst_PixelAverage : public QObject
{
    Q_OBJECT

private slots:
    void channelsAreRoundedToNearest_data();
    void channelsAreRoundedToNearest();
    void bitsMixTheTwoColoursByTheirNumber();
    void formatHasAnAlphaChannelIfThePageHas();
    void equalsThePlainAverage_data();
    void equalsThePlainAverage();
    void longLinesEqualThePlainAverage_data();
    void longLinesEqualThePlainAverage();
    void partsEqualTheWhole_data();
    void partsEqualTheWhole();
    void brightestAndDarkestPagesStayWhatTheyAre_data();
    void brightestAndDarkestPagesStayWhatTheyAre();
};

void tst_PixelAverage::channelsAreRoundedToNearest_data()
{
    QTest::addColumn<QList<QRgb>>("words");
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<QRgb>("average");
    const QImage::Format opaque = QImage::Format_RGB32;
    const QImage::Format alpha = QImage::Format_ARGB32;

    // Red sums to 1, green to 2, blue to 3: a quarter, a half, three quarters.
    QTest::newRow("quarters") << QList<QRgb>{0xff010101, 0xff000101, 0xff000001, 0xff000000} << opaque
                              << QRgb(0xff000101);
    QTest::newRow("near the upper end") << QList<QRgb>{0xfffeffff, 0xfffefeff, 0xfffefefe, 0xfffefefe} << opaque
                                        << QRgb(0xfffefeff);
    QTest::newRow("the byte above the colours has no part")
        << QList<QRgb>{0x00102030, 0x01102030, 0x80102030, 0xff102030} << opaque << QRgb(0xff102030);
    QTest::newRow("a page one pixel wide") << QList<QRgb>{0xff000003, 0xff000000} << opaque << QRgb(0xff000002);
    // 255 * 128 / 255 = 128 from one of four pixels, so 32 of both.
    QTest::newRow("half transparent red among nothing")
        << QList<QRgb>{0x80ff0000, 0x00ffffff, 0x00ffffff, 0x0000ff00} << alpha << QRgb(0x20200000);
    QTest::newRow("opaque words with alpha channel")
        << QList<QRgb>{0xff040000, 0xff040000, 0xff000008, 0xff000008} << alpha << QRgb(0xff020004);
}

void tst_PixelAverage::channelsAreRoundedToNearest()
{
    QFETCH(QList<QRgb>, words);
    QFETCH(QImage::Format, format);

    QTEST(average_of(words, format), "average");
}

void tst_PixelAverage::bitsMixTheTwoColoursByTheirNumber()
{
    QImage page(10, 2, QImage::Format_Mono);
    page.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
    // Columns of 2 by 2 with none to four ones: 255, 191.25, 127.5, 63.75 and 0.
    page.scanLine(0)[0] = 0b00'10'11'11;
    page.scanLine(0)[1] = 0b11'000000;
    page.scanLine(1)[0] = 0b00'00'00'01;
    page.scanLine(1)[1] = 0b11'000000;
    const ReducedAxis across{.scale = 0.5, .phase = 0.0, .length = 10};

    const QImage result = averaged(page, across, {.scale = 0.5, .phase = 0.0, .length = 2}, QRect(0, 0, 5, 1));

    QList<int> greys;
    for (int x = 0; x < 5; ++x)
        greys.append(qRed(result.pixel(x, 0)));
    QCOMPARE(greys, (QList<int>{255, 191, 128, 64, 0}));
}

void tst_PixelAverage::formatHasAnAlphaChannelIfThePageHas()
{
    QImage clear(1, 1, QImage::Format_Mono);
    clear.setColorTable({qRgba(0, 0, 0, 0), qRgb(0, 0, 0)});

    QCOMPARE(PixelAverage::format(clear), QImage::Format_ARGB32_Premultiplied);
    QCOMPARE(PixelAverage::format(QImage(1, 1, QImage::Format_ARGB32)), QImage::Format_ARGB32_Premultiplied);
    QCOMPARE(PixelAverage::format(QImage(1, 1, QImage::Format_Mono)), QImage::Format_RGB32);
    QCOMPARE(PixelAverage::format(QImage(1, 1, QImage::Format_RGB32)), QImage::Format_RGB32);
}

void tst_PixelAverage::equalsThePlainAverage_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<PlainScale>("across");
    QTest::addColumn<PlainScale>("down");

    const QList<std::pair<const char *, PlainScale>> scales = {
        {"1:2", {1, 2, 0}},          {"1:4", {1, 4, 0}},        {"1:8", {1, 8, 0}},
        {"1:16", {1, 16, 0}},        {"1:4 from 3", {1, 4, 3}}, {"1:8 from 2", {1, 8, 2}},
        {"1:16 from 8", {1, 16, 8}}, {"1:2 at 1.5", {3, 4, 0}}, {"1:16 at 1.5", {3, 32, 16}},
        {"1:4 at 1.25", {5, 16, 4}}, {"1:2 at 3", {3, 2, 0}},   {"1:100", {1, 100, 0}},
    };
    const QList<PageKind> kinds = page_kinds();
    for (int kind = 0; kind < kinds.size(); ++kind) {
        for (const auto &[name, scale] : scales)
            QTest::addRow("%s %s", kinds[kind].name, name) << kind << scale << scale;
    }
    // The phases of the two sides have nothing to do with each other.
    QTest::newRow("Mono, two phases") << 0 << PlainScale{1, 8, 0} << PlainScale{1, 8, 5};
    QTest::newRow("Indexed8, two phases") << 5 << PlainScale{1, 4, 1} << PlainScale{1, 4, 0};
    QTest::newRow("RGB32, two phases") << 10 << PlainScale{1, 16, 3} << PlainScale{1, 16, 0};
}

void tst_PixelAverage::equalsThePlainAverage()
{
    QFETCH(int, kind);
    QFETCH(PlainScale, across);
    QFETCH(PlainScale, down);
    const bool words = QImage::toPixelFormat(page_kinds()[kind].format).bitsPerPixel() == 32;
    int surplus = 0; // lines longer than they have to be, differently each time
    for (const QSize size : {QSize(1, 1), QSize(16, 16), QSize(67, 41), QSize(160, 35), QSize(1301, 19)}) {
        const QImage page = noise_page(page_kinds()[kind], size, surplus);
        surplus += words ? 4 : 1;
        const QImage expected = averaged_plainly(page, across, down);
        const ReducedAxis columns = axis_of(across, size.width());
        const ReducedAxis rows = axis_of(down, size.height());
        const QRect shown(QPoint(columns.first(), rows.first()), QPoint(columns.end() - 1, rows.end() - 1));
        if (shown.isEmpty())
            continue;

        const QImage actual = averaged(page, columns, rows, shown);

        const QString difference = first_difference(actual, expected.copy(shown));
        QVERIFY2(difference.isEmpty(), qPrintable(difference));
    }
}

void tst_PixelAverage::longLinesEqualThePlainAverage_data()
{
    QTest::addColumn<PageKind>("kind");
    QTest::addColumn<int>("step");
    const QList<PageKind> kinds = {{"opaque", QImage::Format_RGB32, {}},
                                   {"with alpha", QImage::Format_ARGB32, {}},
                                   {"bytes", QImage::Format_Indexed8, noise_table(256, false)}};
    for (const PageKind &kind : kinds) {
        for (const int step : {2, 4, 8, 16})
            QTest::addRow("%s 1:%d", kind.name, step) << kind << step;
    }
}

/// Lines that are not read in one piece. Where they have alpha, short runs are opaque, transparent and between.
void tst_PixelAverage::longLinesEqualThePlainAverage()
{
    QFETCH(PageKind, kind);
    QFETCH(int, step);
    QImage page = noise_page(kind, QSize(std::max(8200, 1030 * step) + 5, step));
    for (int y = 0; y < page.height() && page.hasAlphaChannel(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(page.scanLine(y));
        for (int x = 0; x < page.width(); ++x)
            line[x] = x / 7 % 3 == 0 ? line[x] : x / 7 % 3 == 1 ? line[x] | 0xff000000U : line[x] & 0x00ffffffU;
    }
    const ReducedAxis across = axis_of({1, step, 0}, page.width());
    const QRect shown(0, 0, across.end(), 1);

    const QImage actual = averaged(page, across, axis_of({1, step, 0}, step), shown);

    const QString difference = first_difference(actual, averaged_plainly(page, {1, step, 0}, {1, step, 0}).copy(shown));
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void tst_PixelAverage::partsEqualTheWhole_data()
{
    QTest::addColumn<int>("kind");
    const QList<PageKind> kinds = page_kinds();
    for (int kind = 0; kind < kinds.size(); ++kind)
        QTest::newRow(kinds[kind].name) << kind;
}

void tst_PixelAverage::partsEqualTheWhole()
{
    QFETCH(int, kind);
    const QImage page = noise_page(page_kinds()[kind], QSize(301, 203), 4);
    for (const int step : {2, 4, 8, 16}) {
        const ReducedAxis across = axis_of({1, step, step / 2}, 301);
        const ReducedAxis down = axis_of({1, step, 0}, 203);
        const QRect shown(QPoint(across.first(), down.first()), QPoint(across.end() - 1, down.end() - 1));
        const QImage whole = averaged(page, across, down, shown);

        for (const QRect part :
             {QRect(2, 1, 1, 1), QRect(3, 2, 5, 7), QRect(shown.right(), 0, 1, 3), QRect(5, 0, 7, 2)})
            QCOMPARE(averaged(page, across, down, part), whole.copy(part.translated(-shown.topLeft())));
    }
}

void tst_PixelAverage::brightestAndDarkestPagesStayWhatTheyAre_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<QRgb>("color");
    QTest::newRow("white words") << QImage::Format_RGB32 << QRgb(0xffffffff);
    QTest::newRow("white words with alpha") << QImage::Format_ARGB32 << QRgb(0xffffffff);
    QTest::newRow("black words") << QImage::Format_RGB32 << QRgb(0xff000000);
    QTest::newRow("white bytes") << QImage::Format_Indexed8 << QRgb(0xffffffff);
    QTest::newRow("white bits") << QImage::Format_Mono << QRgb(0xffffffff);
}

void tst_PixelAverage::brightestAndDarkestPagesStayWhatTheyAre()
{
    QFETCH(QImage::Format, format);
    QFETCH(QRgb, color);
    QImage page(520, 520, format);
    if (page.depth() <= 8) {
        page.setColorTable({color, qRgb(1, 2, 3)});
        page.fill(0);
    } else {
        page.fill(color);
    }
    for (const int step : {2, 4, 8, 16, 128}) {
        const ReducedAxis axis{.scale = 1.0 / step, .phase = 0.0, .length = 520};

        const QImage result = averaged(page, axis, axis, QRect(0, 0, axis.end(), axis.end()));

        QImage expected(result.size(), result.format());
        expected.fill(color);
        QCOMPARE(result, expected);
    }
}

QTEST_GUILESS_MAIN(tst_PixelAverage)

#include "tst_PixelAverage.moc"
