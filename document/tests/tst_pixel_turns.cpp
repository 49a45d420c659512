#include "page_turns.h"
#include "random_pages.h"

#include <QTest>

#include <functional>

namespace {

using Place = std::function<QPoint(QPoint, QSize)>;

/// Whether each pixel of the result is the one of the source that @p place tells, all else being equal.
bool is_rearranged(const QImage &source, const QImage &result, const Place &place)
{
    for (int y = 0; y < result.height(); ++y) {
        for (int x = 0; x < result.width(); ++x) {
            const QPoint from = place({x, y}, source.size());
            if (value_at(result, x, y) != value_at(source, from.x(), from.y()))
                return false;
        }
    }
    return result.format() == source.format() && result.colorTable() == source.colorTable();
}

} // namespace

class TestPixelTurns : public QObject
{
    Q_OBJECT

    QRandomGenerator random{7};

    void addFormats()
    {
        QTest::addColumn<QImage::Format>("format");
        for (const QImage::Format format : page_formats())
            QTest::newRow(format_name(format)) << format;
    }

private slots:
    void counterClockwiseBringsTheLastColumnToTheTop_data() { addFormats(); }
    void counterClockwiseBringsTheLastColumnToTheTop()
    {
        QFETCH(QImage::Format, format);
        for (const QSize size : small_sizes()) {
            const QImage page = random_page(random, size, format);

            const QImage result = turned(page, QuarterTurn::CounterClockwise);

            QCOMPARE(result.size(), size.transposed());
            QVERIFY(is_rearranged(page, result,
                                  [](QPoint to, QSize from) { return QPoint(from.width() - 1 - to.y(), to.x()); }));
        }
    }

    void clockwiseBringsTheFirstColumnToTheTopReversed_data() { addFormats(); }
    void clockwiseBringsTheFirstColumnToTheTopReversed()
    {
        QFETCH(QImage::Format, format);
        for (const QSize size : small_sizes()) {
            const QImage page = random_page(random, size, format);

            const QImage result = turned(page, QuarterTurn::Clockwise);

            QCOMPARE(result.size(), size.transposed());
            QVERIFY(is_rearranged(page, result,
                                  [](QPoint to, QSize from) { return QPoint(to.y(), from.height() - 1 - to.x()); }));
        }
    }

    void turnsEqualTheToolkitsTransform_data() { addFormats(); }
    void turnsEqualTheToolkitsTransform()
    {
        QFETCH(QImage::Format, format);
        const QTransform counterClockwise(0, -1, 1, 0, 0, 0);
        const QTransform clockwise(0, 1, -1, 0, 0, 0);
        for (const QSize size : small_sizes()) {
            QImage page = random_page(random, size, format);
            page.setText(QStringLiteral("Title"), QStringLiteral("scan"));

            const QImage left = turned(page, QuarterTurn::CounterClockwise);

            QCOMPARE(left, page.transformed(counterClockwise));
            QCOMPARE(turned(page, QuarterTurn::Clockwise), page.transformed(clockwise));
            QCOMPARE(left.text(QStringLiteral("Title")), QStringLiteral("scan"));
        }
    }

    void aTurnExchangesTheResolutionsAndAMirrorKeepsThem_data() { addFormats(); }
    void aTurnExchangesTheResolutionsAndAMirrorKeepsThem()
    {
        QFETCH(QImage::Format, format);
        QImage page = random_page(random, QSize(5, 3), format);
        page.setDotsPerMeterX(7874);
        page.setDotsPerMeterY(3937);

        for (const QuarterTurn turn : {QuarterTurn::CounterClockwise, QuarterTurn::Clockwise}) {
            QCOMPARE(turned(page, turn).dotsPerMeterX(), 3937);
            QCOMPARE(turned(page, turn).dotsPerMeterY(), 7874);
        }
        QCOMPARE(mirrored(page, true, true).dotsPerMeterX(), 7874);
        QCOMPARE(mirrored(page, true, true).dotsPerMeterY(), 3937);
    }

    void fourTurnsGiveThePageBack_data() { addFormats(); }
    void fourTurnsGiveThePageBack()
    {
        QFETCH(QImage::Format, format);
        for (const QSize size : small_sizes()) {
            const QImage page = random_page(random, size, format);
            for (const QuarterTurn turn : {QuarterTurn::CounterClockwise, QuarterTurn::Clockwise})
                QCOMPARE(turned(turned(turned(turned(page, turn), turn), turn), turn), page);
        }
    }

    void mirrorsEqualTheToolkitsAndGiveThePageBackTwice_data() { addFormats(); }
    void mirrorsEqualTheToolkitsAndGiveThePageBackTwice()
    {
        QFETCH(QImage::Format, format);
        for (const QSize size : small_sizes()) {
            const QImage page = random_page(random, size, format);
            for (const auto &[horizontally, vertically] : {std::pair{true, false}, {false, true}, {true, true}}) {
                const QImage result = mirrored(page, horizontally, vertically);

                QVERIFY(is_rearranged(page, result, [h = horizontally, v = vertically](QPoint to, QSize from) {
                    return QPoint(h ? from.width() - 1 - to.x() : to.x(), v ? from.height() - 1 - to.y() : to.y());
                }));
                QCOMPARE(result, page.mirrored(horizontally, vertically));
                QCOMPARE(mirrored(result, horizontally, vertically), page);
            }
        }
    }

    void invertedEqualsTheToolkitsAndGivesThePageBackTwice_data() { addFormats(); }
    void invertedEqualsTheToolkitsAndGivesThePageBackTwice()
    {
        QFETCH(QImage::Format, format);
        for (const QSize size : small_sizes()) {
            const QImage page = random_page(random, size, format);
            QImage expected = page;
            expected.invertPixels(QImage::InvertRgb);

            const QImage result = inverted(page);

            QCOMPARE(result, expected);
            QCOMPARE(inverted(result), page);
        }
    }

    void aPooledPageTurnsLikeASmallOne()
    {
        const QImage page = random_page(random, QSize(701, 403), QImage::Format_RGB32);

        QCOMPARE(turned(page, QuarterTurn::Clockwise), page.transformed(QTransform(0, 1, -1, 0, 0, 0)));
    }
};

QTEST_APPLESS_MAIN(TestPixelTurns)
#include "tst_pixel_turns.moc"
