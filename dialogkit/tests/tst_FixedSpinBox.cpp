#include "DiagnosticLines.h"
#include "FixedSpinBox.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A box that shows "Auto" at its minimum.
class AutoBox : public FixedSpinBox
{
public:
    explicit AutoBox(int decimals) : FixedSpinBox(0, 10, 0, 1, decimals) { setSpecialValueText(u"Auto"_s); }
};

} // namespace

class tst_FixedSpinBox : public QObject
{
    Q_OBJECT

private slots:
    void holdsScaledWholeNumbers()
    {
        const FixedSpinBox box(-1.5, 4.5, 2.5, 0.5, 1, nullptr, "box");

        QCOMPARE(box.objectName(), u"box"_s);
        QCOMPARE(box.minimum(), -15);
        QCOMPARE(box.maximum(), 45);
        QCOMPARE(box.QSpinBox::value(), 25);
        QCOMPARE(box.singleStep(), 5);
    }

    void cutsWhatIsFinerThanItsDecimals()
    {
        const FixedSpinBox box(-1.59, 4.59, 2.59, 0.59, 1);

        QCOMPARE(box.minimum(), -15);
        QCOMPARE(box.maximum(), 45);
        QCOMPARE(box.QSpinBox::value(), 25);
        QCOMPARE(box.singleStep(), 5);
    }

    void withoutDecimalsNothingIsScaled_data()
    {
        QTest::addColumn<int>("decimals");
        QTest::newRow("none") << 0;
        QTest::newRow("fewer than none") << -1;
    }

    void withoutDecimalsNothingIsScaled()
    {
        QFETCH(const int, decimals);

        const FixedSpinBox box(0, 20, 7, 1, decimals);

        QCOMPARE(box.maximum(), 20);
        QCOMPARE(box.value(), 7.0);
    }

    void showsTheScaledNumberAndTakesItForItsValue()
    {
        const FixedSpinBox box(0, 10, 2.5, 0.5, 1);

        QCOMPARE(box.text(), u"25"_s);
        QCOMPARE(box.value(), 25.0);
    }

    void stepsByKeysAndTyping()
    {
        FixedSpinBox box(0, 10, 2.5, 0.5, 1);
        box.show();

        QTest::keyClick(&box, Qt::Key_Up);
        QCOMPARE(box.value(), 30.0);

        box.selectAll();
        QTest::keyClicks(&box, u"64"_s);
        QCOMPARE(box.value(), 64.0);
    }

    void acceptsAStartWithinItsRangeSilently()
    {
        const DiagnosticLines lines;

        const FixedSpinBox low(1, 2, 1, 0.1, 1);
        const FixedSpinBox high(1, 2, 2, 0.1, 1);

        QCOMPARE(lines.lines(), QStringList());
        QCOMPARE(low.value(), 10.0);
        QCOMPARE(high.value(), 20.0);
    }

    void startsAtTheNearerBound_data()
    {
        QTest::addColumn<double>("init");
        QTest::addColumn<QString>("line");
        QTest::addColumn<int>("held");
        QTest::newRow("too low") << 0.5 << "DoubleSpinBox - incorrect init value 0.5" << 10;
        QTest::newRow("too high") << 7.25 << "DoubleSpinBox - incorrect init value 7.25" << 20;
    }

    void startsAtTheNearerBound()
    {
        QFETCH(const double, init);
        QFETCH(const QString, line);
        QFETCH(const int, held);
        const DiagnosticLines lines;

        const FixedSpinBox box(1, 2, init, 0.1, 1);

        QCOMPARE(lines.lines(), QStringList(line));
        QCOMPARE(box.QSpinBox::value(), held);
    }

    void correctsARangeThatDoesNotFit()
    {
        const DiagnosticLines lines;

        const FixedSpinBox box(-3e9, 4e8, 0, 1, 1);

        QCOMPARE(lines.lines(),
                 QStringList({u"DoubleSpinBox - incorrect min value -3e+09"_s,
                              u"DoubleSpinBox - incorrect max value 4e+08"_s}));
        QCOMPARE(box.minimum(), -2147483647);
        QCOMPARE(box.maximum(), 2147483647);
        QCOMPARE(box.QSpinBox::value(), 0);
    }

    void valueOfAutoIsTheLowestNumberUnscaled()
    {
        const AutoBox box(1);

        QCOMPARE(box.value(), -214748364.7);
    }

    void valueToTextWritesDecimals()
    {
        const FixedSpinBox box(0, 10, 0, 1, 2);

        QCOMPARE(box.valueToText(1234), u"   12.34"_s);
        QCOMPARE(box.valueToText(123456789), u"1234567.89"_s);
    }

    void valueToTextSaysAutoForTheLowestNumber()
    {
        const FixedSpinBox box(0, 10, 0, 1, 0);

        QCOMPARE(box.valueToText(-2147483647), u"Auto"_s);
        QCOMPARE(box.valueToText(-2147483646), u"-2147483646"_s);
    }

    void valueToTextSharesOneStringBetweenBoxes()
    {
        const FixedSpinBox one(0, 10, 0, 1, 0);
        const FixedSpinBox other(0, 10, 0, 1, 1);

        const QString &text = one.valueToText(5);
        (void)other.valueToText(15); // for what it does to the text of the other box

        QCOMPARE(text, u"     1.5"_s);
    }

    void textToValueScalesTheNumberOnShow()
    {
        const FixedSpinBox box(0, 10, 2.5, 0.5, 1);

        QCOMPARE(box.textToValue(), 250);
    }

    void textToValueOfAutoIsTheLowestNumber()
    {
        const AutoBox box(1);

        QCOMPARE(box.textToValue(), -2147483647);
    }
};

QTEST_MAIN(tst_FixedSpinBox)
#include "tst_FixedSpinBox.moc"
