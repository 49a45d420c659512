#include "DiagnosticLines.h"
#include "DoubleSliderControl.h"
#include "IntSliderControl.h"
#include "QIntAsFixedLabel.h"
#include "SliderControl.h"
#include "SliderIntAsFixedControl.h"
#include "SliderIntAsFixedLabels.h"
#include "SliderLabels.h"

#include <QAccessible>
#include <QLabel>
#include <QLayout>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QPoint place_in(const QWidget &window, const QWidget *widget)
{
    return widget->mapTo(&window, QPoint(0, 0));
}

QStringList texts_of(const SliderLabels &labels)
{
    return {labels.m_min->text(), labels.m_value->text(), labels.m_max->text()};
}

QStringList texts_of(const SliderIntAsFixedControl &control)
{
    const auto *const labels = control.findChild<SliderIntAsFixedLabels *>(u"labels"_s);
    return {labels->m_min->text(), labels->m_value->text(), labels->m_max->text()};
}

const QLabel *caption_of(const QWidget &control, const QString &text)
{
    const QList<QLabel *> labels = control.findChildren<QLabel *>();
    for (const QLabel *const label : labels) {
        if (label->text() == text)
            return label;
    }
    return nullptr;
}

} // namespace

class tst_slider_controls : public QObject
{
    Q_OBJECT

private slots:
    void captionStandsLeftOfNumbersAboveTheSlider()
    {
        IntSliderControl control(0, 10, 5, 1, "Volume", "How loud");
        control.resize(300, control.sizeHint().height());
        control.show();
        const QLabel *const caption = caption_of(control, u"Volume"_s);

        const QPoint slider = place_in(control, control.m_slider);
        const QPoint numbers = place_in(control, control.m_labels);
        QCOMPARE(slider.x(), place_in(control, caption).x() + caption->width() + 5);
        QCOMPARE(numbers.x(), slider.x());
        QCOMPARE(slider.y(), numbers.y() + control.m_labels->height() + 5);
        QCOMPARE(control.m_labels->objectName(), u"labels"_s);
        QCOMPARE(control.m_slider->orientation(), Qt::Horizontal);
        QCOMPARE(control.m_slider->toolTip(), u"How loud"_s);
    }

    void numbersStandInTheirOrder()
    {
        IntSliderControl control(0, 10, 5, 1, "Volume", "");
        control.show();
        const SliderLabels *const labels = control.m_labels;

        QVERIFY(labels->m_min->x() < labels->m_value->x());
        QVERIFY(labels->m_value->x() < labels->m_max->x());
        QCOMPARE(labels->layout()->spacing(), 5);
        QCOMPARE(labels->m_min->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
        QCOMPARE(labels->m_value->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
        QCOMPARE(labels->m_max->alignment(), Qt::AlignRight | Qt::AlignVCenter);
    }

    void captionSpeaksForTheSlider()
    {
        const IntSliderControl control(0, 10, 5, 1, "Volume", "");

        QCOMPARE(caption_of(control, u"Volume"_s)->buddy(), control.m_slider);
        QCOMPARE(QAccessible::queryAccessibleInterface(control.m_slider)->text(QAccessible::Name), u"Volume"_s);
    }

    void captionKeepsToTheTop()
    {
        const Qt::Alignment topLeft = Qt::AlignLeft | Qt::AlignTop;

        QCOMPARE(caption_of(SliderControl("a", ""), u"a"_s)->alignment(), topLeft);
        QCOMPARE(caption_of(IntSliderControl(0, 10, 5, 1, "b", ""), u"b"_s)->alignment(), topLeft);
        QCOMPARE(caption_of(DoubleSliderControl(0.1, 1.0, 0.5, 0.1, "c", ""), u"c"_s)->alignment(), topLeft);
    }

    void captionOfTheFixedSliderKeepsToTheBottom()
    {
        const SliderIntAsFixedControl control(-100, 100, 0, 1, "Set Contrast");

        QCOMPARE(caption_of(control, u"Set Contrast"_s)->alignment(), Qt::AlignLeft | Qt::AlignBottom);
    }

    void sliderControlLeavesTheRangeToItsUser()
    {
        SliderControl control("Volume", "How loud", nullptr, "volume");

        QCOMPARE(control.objectName(), u"volume"_s);
        QCOMPARE(control.m_slider->objectName(), u"slider"_s);
        QCOMPARE(control.m_slider->toolTip(), u"How loud"_s);
        QCOMPARE(control.m_slider->maximum(), QSlider().maximum());
        QCOMPARE(texts_of(*control.m_labels), QStringList({QString(), QString(), QString()}));
    }

    void intSliderShowsItsRangeAndValue()
    {
        const IntSliderControl control(-5, 20, 3, 4, "Volume", "", nullptr, "volume");

        QCOMPARE(control.objectName(), u"volume"_s);
        QCOMPARE(control.m_slider->objectName(), u"int_slider"_s);
        QCOMPARE(control.m_slider->minimum(), -5);
        QCOMPARE(control.m_slider->maximum(), 20);
        QCOMPARE(control.m_slider->value(), 3);
        QCOMPARE(control.m_slider->pageStep(), 4);
        QCOMPARE(texts_of(*control.m_labels), QStringList({u"-5"_s, u"3"_s, u"20"_s}));
    }

    void intSliderShowsEachNewValue()
    {
        IntSliderControl control(-5, 20, 3, 4, "Volume", "");
        control.show();

        QTest::keyClick(control.m_slider, Qt::Key_PageUp);

        QCOMPARE(texts_of(*control.m_labels), QStringList({u"-5"_s, u"7"_s, u"20"_s}));
    }

    void fixedSliderShowsPlainWholeNumbers()
    {
        const SliderIntAsFixedControl control(-100, 100, 25, 1, "Set Contrast", nullptr, "contrast");

        QCOMPARE(control.objectName(), u"contrast"_s);
        QCOMPARE(control.m_slider->objectName(), u"int_slider"_s);
        QCOMPARE(control.m_slider->minimum(), -100);
        QCOMPARE(control.m_slider->maximum(), 100);
        QCOMPARE(control.m_slider->pageStep(), 1);
        QCOMPARE(control.m_slider->value(), 25);
        QCOMPARE(texts_of(control), QStringList({u"-100"_s, u"25"_s, u"100"_s}));
    }

    void fixedSliderShowsEachNewValuePlainly()
    {
        SliderIntAsFixedControl control(-100, 100, 0, 1, "Set Contrast");
        control.show();

        QTest::keyClick(control.m_slider, Qt::Key_End);
        QTest::keyClick(control.m_slider, Qt::Key_Left);

        QCOMPARE(texts_of(control), QStringList({u"-100"_s, u"99"_s, u"100"_s}));
    }

    void fixedLabelShowsTenthsWhenAskedItself()
    {
        QIntAsFixedLabel label;

        label.setNum(25);

        QCOMPARE(label.text(), u"2.5"_s);
    }

    void doubleSliderCountsSteps()
    {
        const DoubleSliderControl control(0.1, 3.0, 1.0, 0.1, "Scale", "By how much", nullptr, "scale");

        QCOMPARE(control.objectName(), u"scale"_s);
        QCOMPARE(control.m_slider->objectName(), u"double_slider"_s);
        QCOMPARE(control.m_slider->minimum(), 1);
        QCOMPARE(control.m_slider->maximum(), 30);
        QCOMPARE(control.m_slider->value(), 10);
        QCOMPARE(control.m_slider->pageStep(), 1);
        QCOMPARE(control.m_step, 0.1);
        QCOMPARE(control.m_min, 0.1);
        QCOMPARE(texts_of(*control.m_labels), QStringList({u"0.1"_s, u"1"_s, u"3"_s}));
    }

    void doubleSliderThatWouldBeginAtZeroBeginsAtOneStep()
    {
        DoubleSliderControl control(0.0, 1.0, 0.5, 0.1, "Scale", "");
        control.show();

        QTest::keyClick(control.m_slider, Qt::Key_Home);

        QCOMPARE(control.m_slider->value(), 1);
        QCOMPARE(texts_of(*control.m_labels), QStringList({u"0.1"_s, u"0.1"_s, u"1"_s}));
    }

    void doubleSliderMayBeginBelowZero()
    {
        const DoubleSliderControl control(-1.0, 1.0, 0.0, 0.25, "Shift", "");

        QCOMPARE(control.m_slider->minimum(), -4);
        QCOMPARE(texts_of(*control.m_labels), QStringList({u"-1"_s, u"0"_s, u"1"_s}));
    }

    void doubleSliderRoundsToWholeSteps()
    {
        const DoubleSliderControl control(0.14, 0.96, 0.55, 0.1, "Scale", "");

        QCOMPARE(control.m_slider->minimum(), 1);
        QCOMPARE(control.m_slider->maximum(), 10);
        QCOMPARE(control.m_min, 0.14);
    }

    void doubleSliderTellsAndShowsTheFraction()
    {
        DoubleSliderControl control(0.5, 3.0, 1.0, 0.5, "Scale", "");
        control.show();
        const QSignalSpy changed(&control, &DoubleSliderControl::sigChanged);

        QTest::keyClick(control.m_slider, Qt::Key_Right);

        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toDouble(), 1.5);
        QCOMPARE(control.m_labels->m_value->text(), u"1.5"_s);
    }

    void doubleSliderLogsItsRange()
    {
        const DiagnosticLines lines;

        const DoubleSliderControl control(0.0, 3.0, 1.0, 0.1, "Scale", "");

        QCOMPARE(lines.lines(), QStringList(u"DoubleSliderControl::ctor - min = 0(1), max = 3(30), org = 1(10)"_s));
    }

    void doubleSliderLogsEachMove()
    {
        DoubleSliderControl control(0.1, 3.0, 1.0, 0.1, "Scale", "");
        control.show();
        const DiagnosticLines lines;

        QTest::keyClick(control.m_slider, Qt::Key_Right);

        QCOMPARE(lines.lines(), QStringList(u"DoubleSliderControl::numChanged - n = 11, d = 1.1"_s));
    }

    void doubleSliderHasOneSignalAndOneSlot()
    {
        const QMetaObject &meta = DoubleSliderControl::staticMetaObject;

        QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
        QVERIFY(meta.indexOfSignal("sigChanged(double)") >= meta.methodOffset());
        const int slot = meta.indexOfSlot("numChanged(int)");
        QVERIFY(slot >= meta.methodOffset());
        QCOMPARE(meta.method(slot).access(), QMetaMethod::Private);
    }
};

QTEST_MAIN(tst_slider_controls)
#include "tst_slider_controls.moc"
