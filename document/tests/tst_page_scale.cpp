#include "page_depth.h"
#include "page_scale.h"
#include "plain_pixels.h"
#include "random_pages.h"
#include "scale_sides.h"

#include <QTest>

#include <numeric>

using namespace Qt::StringLiterals;

namespace {

QImage scaled_by_toolkit(const QImage &page, QSize size)
{
    return page.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// The plain way of a page of one bit.
QImage scaled_over_words(const QImage &page, QSize size)
{
    return plain_mono(scaled_by_toolkit(page.convertToFormat(QImage::Format_RGB32), size));
}

} // namespace

class tst_page_scale : public QObject
{
    Q_OBJECT

    QRandomGenerator random{16};

    [[nodiscard]] QSize randomSize(int longest) { return {random.bounded(longest) + 1, random.bounded(longest) + 1}; }

private slots:
    void wordsEqualTheToolkits()
    {
        for (const QSize from : small_sizes()) {
            const QImage page = random_page(random, from, QImage::Format_RGB32);
            for (int i = 0; i < 20; ++i) {
                const QSize to = randomSize(90);
                QCOMPARE(smoothly_scaled(page, to), scaled_by_toolkit(page, to));
            }
        }
    }

    void theFourthByteOfWordsIsTreatedAsTheToolkitDoes()
    {
        for (const QSize from : small_sizes()) {
            QImage page = random_page(random, from, QImage::Format_ARGB32);
            QVERIFY(page.reinterpretAsFormat(QImage::Format_RGB32));
            for (const QSize to : {from * 2, QSize(from.width() / 2 + 1, from.height() / 2 + 1)}) {
                const QImage result = smoothly_scaled(page, to);
                const QImage expected = scaled_by_toolkit(page, to);
                for (int x = 0; x < to.width(); ++x)
                    QCOMPARE(value_at(result, x, to.height() - 1), value_at(expected, x, to.height() - 1));
            }
        }
    }

    void largePagesEqualTheToolkits_data() { addFactors(); }
    void largePagesEqualTheToolkits()
    {
        QFETCH(const double, factor);
        const QImage page = random_page(random, QSize(1237, 803), QImage::Format_RGB32);
        const QSize to = (QSizeF(page.size()) * factor).toSize();

        QCOMPARE(smoothly_scaled(page, to), scaled_by_toolkit(page, to));
    }

    void longSidesEqualTheToolkits_data()
    {
        QTest::addColumn<QSize>("from");
        QTest::addColumn<QSize>("to");
        for (const int side : {LongestScaledSide, LongestScaledSide + 1, 100'000}) {
            QTest::addRow("%d, half", side) << QSize(side, 4) << QSize(side / 2, 2);
            QTest::addRow("%d, to hardly anything", side) << QSize(side, 4) << QSize(2, 2);
            QTest::addRow("%d, hardly less", side) << QSize(4, side) << QSize(3, side - 1);
            QTest::addRow("%d, larger", side) << QSize(2, side / 3) << QSize(3, side);
        }
    }
    void longSidesEqualTheToolkits()
    {
        QFETCH(const QSize, from);
        QFETCH(const QSize, to);
        const QImage page = random_page(random, from, QImage::Format_RGB32);

        QCOMPARE(smoothly_scaled(page, to), scaled_by_toolkit(page, to));
    }

    void bitsEqualTheWayOverWords_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::addColumn<QList<QRgb>>("table");
        for (const QImage::Format format : {QImage::Format_Mono, QImage::Format_MonoLSB}) {
            const char *const name = format_name(format);
            QTest::addRow("%s, white and black", name) << format << QList<QRgb>{0xffffffff, 0xff000000};
            QTest::addRow("%s, black and white", name) << format << QList<QRgb>{0xff000000, 0xffffffff};
            QTest::addRow("%s, greys", name) << format << QList<QRgb>{0xffc9c9c9, 0xff171717};
            QTest::addRow("%s, greys about the limit", name) << format << QList<QRgb>{0xff808080, 0xff818181};
            QTest::addRow("%s, colours", name) << format << QList<QRgb>{0xfff0c040, 0xff1030a0};
            QTest::addRow("%s, with alpha", name) << format << QList<QRgb>{0x80ffffff, 0x10000000};
            QTest::addRow("%s, one colour", name) << format << QList<QRgb>{0xff707070};
            QTest::addRow("%s, no colours", name) << format << QList<QRgb>{};
        }
    }
    void bitsEqualTheWayOverWords()
    {
        QFETCH(const QImage::Format, format);
        QFETCH(const QList<QRgb>, table);
        for (const QSize from : small_sizes()) {
            QImage page = random_page(random, from, format);
            page.setColorTable(table);
            for (int i = 0; i < 5; ++i) {
                const QSize to = randomSize(90);
                const QImage result = smoothly_scaled_to_mono(page, to);
                QCOMPARE(result, scaled_over_words(page, to));
                QCOMPARE(result.format(), QImage::Format_Mono);
                QCOMPARE(result.colorTable(), (QList<QRgb>{0xffffffff, 0xff000000}));
            }
        }
    }

    void largePagesOfBitsEqualTheWayOverWords_data() { addFactors(); }
    void largePagesOfBitsEqualTheWayOverWords()
    {
        QFETCH(const double, factor);
        const QImage page = random_page(random, QSize(1237, 803), QImage::Format_MonoLSB);
        const QSize to = (QSizeF(page.size()) * factor).toSize();

        QCOMPARE(smoothly_scaled_to_mono(page, to), scaled_over_words(page, to));
    }

    void attributesAreThoseThatTheToolkitKeeps_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::addColumn<QSize>("size");
        for (const QImage::Format format : {QImage::Format_Mono, QImage::Format_RGB32}) {
            QTest::addRow("%s, larger", format_name(format)) << format << QSize(40, 50);
            QTest::addRow("%s, smaller", format_name(format)) << format << QSize(5, 7);
        }
    }
    void attributesAreThoseThatTheToolkitKeeps()
    {
        QFETCH(const QImage::Format, format);
        QFETCH(const QSize, size);
        QImage page = random_page(random, QSize(20, 10), format);
        page.setDotsPerMeterX(11811);
        page.setDotsPerMeterY(5906);
        page.setOffset(QPoint(3, 4));
        page.setText(u"Author"_s, u"somebody"_s);

        const QImage result = page.depth() == 1 ? smoothly_scaled_to_mono(page, size) : smoothly_scaled(page, size);

        const QImage expected = scaled_by_toolkit(page, size);
        QCOMPARE(result.dotsPerMeterX(), 11811);
        QCOMPARE(result.dotsPerMeterY(), 5906);
        QCOMPARE(result.offset(), expected.offset());
        QCOMPARE(result.text(u"Author"_s), u"somebody"_s);
    }

    void bitsOfNoSizeGiveNoPage()
    {
        const QImage page = random_page(random, QSize(9, 9), QImage::Format_Mono);

        QVERIFY(smoothly_scaled_to_mono(page, QSize(0, 5)).isNull());
    }

    // The bytes of such a line of 32 bits are more than the toolkit can count.
    void bitsWithoutRoomForWordsAreScaledRoughly()
    {
        QImage page(540'000'000, 1, QImage::Format_Mono);
        QVERIFY(!page.isNull());
        page.setColorTable({0xff000000, 0xffffffff});
        page.fill(0);
        std::iota(page.bits(), page.bits() + page.bytesPerLine() / 2, uchar{0});
        QVERIFY(QImage(page.size(), QImage::Format_RGB32).isNull());

        const QImage result = smoothly_scaled_to_mono(page, QSize(64, 1));

        QCOMPARE(result.size(), QSize(64, 1));
        QCOMPARE(result, plain_mono(page.scaled(64, 1, Qt::IgnoreAspectRatio, Qt::FastTransformation)));
    }

    void sharesOfASpanMakeAWhole()
    {
        for (int from = 2; from < 80; ++from) {
            for (int to = 1; to < from; ++to) {
                const std::optional<CoveredSpans> sides = covered_spans(from, to);
                QVERIFY(sides);
                for (const CoveredSpan &span : sides->spans) {
                    int sum = 0;
                    for (int i = 0; i < span.count; ++i)
                        sum += sides->share(span, i);
                    QCOMPARE(sum, CoveredSpans::WholeShare);
                    QVERIFY(span.count >= 2);
                    QVERIFY(span.first >= 0 && span.first + span.count <= from);
                }
            }
        }
    }

private:
    static void addFactors()
    {
        QTest::addColumn<double>("factor");
        for (const double factor : {0.1, 0.25, 1.0 / 3, 0.5, 0.75, 0.9, 0.999, 1.001, 1.5, 2.0, 2.7})
            QTest::addRow("%g", factor) << factor;
    }
};

QTEST_GUILESS_MAIN(tst_page_scale)
#include "tst_page_scale.moc"
