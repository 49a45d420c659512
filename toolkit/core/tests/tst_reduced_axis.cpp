#include "plain_averages.h"
#include "reduced_axis.h"

#include <QTest>

namespace {

QString text_of(PixelSpan span)
{
    return span.count() > 0 ? QStringLiteral("%1-%2").arg(span.first).arg(span.end - 1) : QStringLiteral("none");
}

QString text_of(const ReducedAxis &axis)
{
    QStringList texts;
    for (int i = axis.first(); i < axis.end(); ++i)
        texts.append(text_of(axis.covered(i)));
    return texts.join(u' ');
}

} // namespace

class tst_reduced_axis : public QObject
{
    Q_OBJECT

private slots:
    void screenPixelsCoverWhatLiesUnderThem_data();
    void screenPixelsCoverWhatLiesUnderThem();
    void bordersAreThoseOfTheFractions_data();
    void bordersAreThoseOfTheFractions();
    void evenColumnsAreTold_data();
    void evenColumnsAreTold();
};

void tst_reduced_axis::screenPixelsCoverWhatLiesUnderThem_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<double>("phase");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("covered");

    QTest::newRow("halves, even length") << 0.5 << 0.0 << 6 << QStringLiteral("0-1 2-3 4-5");
    QTest::newRow("halves, the last one alone") << 0.5 << 0.0 << 5 << QStringLiteral("0-1 2-3 4-4");
    QTest::newRow("quarters, half a column left") << 0.25 << 0.0 << 6 << QStringLiteral("0-3 4-5");
    QTest::newRow("quarters, less than half a column left") << 0.25 << 0.0 << 5 << QStringLiteral("0-3");
    QTest::newRow("too short to show") << 0.0625 << 0.0 << 7 << QString();
    QTest::newRow("just long enough") << 0.0625 << 0.0 << 8 << QStringLiteral("0-7");
    QTest::newRow("begins within a screen pixel, before its middle") << 0.25 << 0.25 << 8 << QStringLiteral("0-2 3-6");
    QTest::newRow("begins within a screen pixel, behind its middle") << 0.25 << 0.75 << 8 << QStringLiteral("1-4 5-7");
    QTest::newRow("halves at scale factor 1.5") << 0.75 << 0.0 << 8 << QStringLiteral("0-1 1-2 2-3 4-5 5-6 6-7");
    QTest::newRow("halves at scale factor 1.25") << 0.625 << 0.0 << 8 << QStringLiteral("0-1 1-3 3-4 4-6 6-7");
    QTest::newRow("halves at scale factor 1.5, scrolled by one")
        << 0.75 << 0.5 << 6 << QStringLiteral("0-1 2-3 3-4 4-5");
    QTest::newRow("halves at scale factor 2") << 1.0 << 0.0 << 3 << QStringLiteral("0-0 1-1 2-2");
    QTest::newRow("halves at scale factor 3") << 1.5 << 0.0 << 2 << QStringLiteral("0-0 0-1 1-1");
}

void tst_reduced_axis::screenPixelsCoverWhatLiesUnderThem()
{
    QFETCH(double, scale);
    QFETCH(double, phase);
    QFETCH(int, length);

    QTEST(text_of({.scale = scale, .phase = phase, .length = length}), "covered");
}

void tst_reduced_axis::bordersAreThoseOfTheFractions_data()
{
    QTest::addColumn<int>("screen");
    QTest::addColumn<int>("page");
    QTest::newRow("scale factor 1.1, 1:2") << 11 << 20;
    QTest::newRow("scale factor 1.1, 1:16") << 11 << 160;
    QTest::newRow("scale factor 1.2, 1:4") << 12 << 40;
    QTest::newRow("scale factor 1.3, 1:8") << 13 << 80;
    QTest::newRow("scale factor 1.6, 1:2") << 16 << 20;
    QTest::newRow("scale factor 1.7, 1:16") << 17 << 160;
    QTest::newRow("scale factor 2.3, 1:2") << 23 << 20;
}

void tst_reduced_axis::bordersAreThoseOfTheFractions()
{
    QFETCH(int, screen);
    QFETCH(int, page);
    constexpr int length = 503;
    for (int begin = 0; begin < page; begin += 3) {
        const ReducedAxis axis{.scale = double(screen) / page, .phase = double(begin) / page, .length = length};

        const QList<QList<int>> expected = covered_plainly({screen, page, begin}, length);

        for (int i = axis.first(); i < axis.end(); ++i) {
            QVERIFY2(!expected[i].isEmpty(), qPrintable(QString::number(i)));
            QCOMPARE(text_of(axis.covered(i)), text_of(PixelSpan{expected[i].first(), expected[i].last() + 1}));
        }
        for (int i = 0; i < expected.size(); ++i)
            QCOMPARE(!expected[i].isEmpty(), i >= axis.first() && i < axis.end());
    }
}

void tst_reduced_axis::evenColumnsAreTold_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<double>("phase");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("step");
    QTest::addColumn<QString>("even");

    QTest::newRow("all") << 0.5 << 0.0 << 6 << 2 << QStringLiteral("0-2");
    QTest::newRow("all but the last") << 0.25 << 0.0 << 10 << 4 << QStringLiteral("0-1");
    QTest::newRow("all but the first and the last") << 0.25 << 0.25 << 10 << 4 << QStringLiteral("1-1");
    QTest::newRow("none") << 0.125 << 0.0 << 6 << 8 << QStringLiteral("none");
    QTest::newRow("fractions") << 0.75 << 0.0 << 40 << 0 << QStringLiteral("none");
    QTest::newRow("borders within page pixels") << 0.5 << 0.25 << 40 << 0 << QStringLiteral("none");
    QTest::newRow("whole numbers that are no zoom") << 0.2 << 0.0 << 40 << 0 << QStringLiteral("none");
}

void tst_reduced_axis::evenColumnsAreTold()
{
    QFETCH(double, scale);
    QFETCH(double, phase);
    QFETCH(int, length);
    const ReducedAxis axis{.scale = scale, .phase = phase, .length = length};

    const ReducedColumns columns(axis, axis.first(), axis.end());

    QTEST(columns.step(), "step");
    QTEST(text_of(columns.even()), "even");
    QCOMPARE(columns.spans().size(), static_cast<std::size_t>(axis.end() - axis.first()));
}

QTEST_GUILESS_MAIN(tst_reduced_axis)

#include "tst_reduced_axis.moc"
