#include "FixedSpinBox.h"
#include "InputFixedDialog.h"
#include "InputStringDialog.h"
#include "InputTwoFixedDialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSlider>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<InputFixedDialog> scale_dialog(double max = 3.0)
{
    return std::make_unique<InputFixedDialog>(u"Scale Vertically"_s, u"Vertical Scale"_s,
                                              u"Number to multiple actual image height on"_s, 0.1, max, 1.0, 0.1, 1,
                                              nullptr, "image_scale_v_dialog", true);
}

std::unique_ptr<InputTwoFixedDialog> offset_dialog()
{
    return std::make_unique<InputTwoFixedDialog>(u"Offset"_s, u"Left"_s, u"From the left edge"_s, u"Top"_s,
                                                 u"From the top edge"_s, 0.0, 10.0, 2.5, 0.5, 1, nullptr, "offset",
                                                 true);
}

std::unique_ptr<InputStringDialog> string_dialog(const QString &pattern)
{
    return std::make_unique<InputStringDialog>(u"Name"_s, u"New name"_s, u"Letters alone"_s,
                                               QRegularExpression(pattern), nullptr, "name_dialog", true);
}

QSlider *slider_of(const QWidget &dialog)
{
    return dialog.findChild<QSlider *>(u"double_slider"_s);
}

QPushButton *ok_button_of(const QWidget &dialog)
{
    return dialog.findChild<QPushButton *>(u"my_ok_btn"_s);
}

QStringList captions_of(const QWidget &dialog)
{
    QStringList texts;
    const QList<QLabel *> labels = dialog.findChildren<QLabel *>();
    for (const QLabel *const label : labels)
        texts << label->text();
    return texts;
}

enum Kind { Fixed, TwoFixed, String };

std::unique_ptr<QDialog> dialog_of(Kind kind)
{
    switch (kind) {
    case Fixed:
        return scale_dialog();
    case TwoFixed:
        return offset_dialog();
    case String:
        break;
    }
    return string_dialog(u".*"_s);
}

/// How far below each other labels, inputs and the button stand, from the upper edge of the dialog.
QList<int> heights_in(const QDialog &dialog)
{
    QList<int> heights{ok_button_of(dialog)->mapTo(&dialog, QPoint()).y()};
    const QList<QLabel *> labels = dialog.findChildren<QLabel *>();
    for (const QLabel *const label : labels)
        heights << label->mapTo(&dialog, QPoint()).y() << label->height();
    return heights;
}

} // namespace

class tst_input_dialogs : public QObject
{
    Q_OBJECT

private slots:
    void enlargedDialogKeepsItsPartsTogether_data()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("one slider") << int{Fixed};
        QTest::newRow("two boxes") << int{TwoFixed};
        QTest::newRow("a line") << int{String};
    }

    void enlargedDialogKeepsItsPartsTogether()
    {
        QFETCH(const int, kind);
        const auto dialog = dialog_of(static_cast<Kind>(kind));
        dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
        const QList<int> heights = heights_in(*dialog);

        const int left = ok_button_of(*dialog)->x();
        dialog->resize(dialog->size() + QSize(120, 150));
        QTRY_COMPARE(ok_button_of(*dialog)->x(), left + 120); // laid out anew

        QCOMPARE(heights_in(*dialog), heights);
    }

    void fixedDialogSaysWhatItAsksFor()
    {
        const auto dialog = scale_dialog();

        QCOMPARE(dialog->windowTitle(), u"Scale Vertically"_s);
        QCOMPARE(dialog->objectName(), u"image_scale_v_dialog"_s);
        QVERIFY(dialog->isModal());
        QVERIFY(captions_of(*dialog).contains(u"Vertical Scale"_s));
        QCOMPARE(slider_of(*dialog)->toolTip(), u"Number to multiple actual image height on"_s);
        QCOMPARE(slider_of(*dialog)->accessibleName(), u"Vertical Scale"_s);
    }

    void fixedDialogStartsWithItsFirstValue()
    {
        const auto dialog = scale_dialog();

        QCOMPARE(slider_of(*dialog)->value(), 10);
        QCOMPARE(dialog->value(), 1.0);
    }

    void fixedDialogValueFollowsTheKeys()
    {
        const auto dialog = scale_dialog();
        dialog->show();

        QTest::keyClick(slider_of(*dialog), Qt::Key_Right);
        QTest::keyClick(slider_of(*dialog), Qt::Key_Right);

        QCOMPARE(dialog->value(), 1.2);
    }

    void fixedDialogEndsAtItsMaximum_data()
    {
        QTest::addColumn<double>("max");
        QTest::newRow("little memory: no enlarging") << 1.0;
        QTest::newRow("much memory: three times") << 3.0;
        QTest::newRow("in between, on a tenth") << 1.7;
    }

    void fixedDialogEndsAtItsMaximum()
    {
        QFETCH(const double, max);
        const auto dialog = scale_dialog(max);
        dialog->show();

        QTest::keyClick(slider_of(*dialog), Qt::Key_End);
        QCOMPARE(dialog->value(), max);

        QTest::keyClick(slider_of(*dialog), Qt::Key_Home);
        QCOMPARE(dialog->value(), 0.1);
    }

    void fixedDialogIsAtLeast320Wide()
    {
        const auto dialog = scale_dialog();

        QCOMPARE(dialog->width(), std::max(320, dialog->sizeHint().width()));
        QCOMPARE(dialog->height(), dialog->sizeHint().height());
        QVERIFY(dialog->sizeHint().width() < 320);
    }

    void fixedDialogHearsKeysFirstOnItsSlider()
    {
        const auto dialog = scale_dialog();
        dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));

        QCOMPARE(dialog->focusWidget(), slider_of(*dialog));
    }

    void fixedDialogClosesByReturnAndEscape()
    {
        const auto accepted = scale_dialog();
        accepted->show();
        QTest::keyClick(slider_of(*accepted), Qt::Key_Return);
        QCOMPARE(accepted->result(), int(QDialog::Accepted));
        QVERIFY(!accepted->isVisible());

        const auto rejected = scale_dialog();
        rejected->show();
        QTest::keyClick(slider_of(*rejected), Qt::Key_Escape);
        QCOMPARE(rejected->result(), int(QDialog::Rejected));
        QVERIFY(!rejected->isVisible());
    }

    void twoFixedDialogAsksForBothValues()
    {
        const auto dialog = offset_dialog();
        const QList<FixedSpinBox *> boxes = dialog->findChildren<FixedSpinBox *>();

        QCOMPARE(dialog->windowTitle(), u"Offset"_s);
        QCOMPARE(dialog->objectName(), u"offset"_s);
        QVERIFY(dialog->isModal());
        QCOMPARE(captions_of(*dialog), QStringList({u"Left"_s, u"Top"_s}));
        QCOMPARE(boxes.count(), 2);
        QCOMPARE(boxes.at(0)->toolTip(), u"From the left edge"_s);
        QCOMPARE(boxes.at(1)->toolTip(), u"From the top edge"_s);
        for (const FixedSpinBox *const box : boxes) {
            QCOMPARE(box->minimum(), 0);
            QCOMPARE(box->maximum(), 100);
            QCOMPARE(box->singleStep(), 5);
        }
    }

    void twoFixedDialogValuesAreTheScaledNumbers()
    {
        const auto dialog = offset_dialog();
        dialog->show();
        QCOMPARE(dialog->first(), 25.0);
        QCOMPARE(dialog->second(), 25.0);
        const QList<FixedSpinBox *> boxes = dialog->findChildren<FixedSpinBox *>();

        QTest::keyClick(boxes.at(0), Qt::Key_Up);
        QTest::keyClick(boxes.at(1), Qt::Key_Down);

        QCOMPARE(dialog->first(), 30.0);
        QCOMPARE(dialog->second(), 20.0);
    }

    void twoFixedDialogControlsStandOneUnderTheOther()
    {
        const auto dialog = offset_dialog();
        dialog->show();
        const QList<FixedSpinBox *> boxes = dialog->findChildren<FixedSpinBox *>();

        const QPoint first = boxes.at(0)->mapTo(dialog.get(), QPoint(0, 0));
        const QPoint second = boxes.at(1)->mapTo(dialog.get(), QPoint(0, 0));
        QCOMPARE(second.x(), first.x());
        QVERIFY(second.y() > first.y() + boxes.at(0)->height());
        QVERIFY(ok_button_of(*dialog)->y() > second.y() + boxes.at(1)->height());
    }

    void twoFixedDialogIsAtLeast200Wide()
    {
        const auto dialog = offset_dialog();

        QCOMPARE(dialog->size(), QSize(std::max(200, dialog->sizeHint().width()), dialog->sizeHint().height()));
    }

    void stringDialogSaysWhatItAsksFor()
    {
        const auto dialog = string_dialog(u"[a-z]+"_s);
        const auto *const edit = dialog->findChild<QLineEdit *>();

        QCOMPARE(dialog->windowTitle(), u"Name"_s);
        QCOMPARE(dialog->objectName(), u"name_dialog"_s);
        QVERIFY(dialog->isModal());
        QCOMPARE(captions_of(*dialog), QStringList(u"New name"_s));
        QCOMPARE(edit->toolTip(), u"Letters alone"_s);
        QCOMPARE(edit->accessibleName(), u"New name"_s);
    }

    void stringDialogReturnsTheTypedText()
    {
        const auto dialog = string_dialog(u"[a-z]+"_s);
        dialog->show();
        QCOMPARE(dialog->text(), QString());

        QTest::keyClicks(dialog->findChild<QLineEdit *>(), u"letter"_s);

        QCOMPARE(dialog->text(), u"letter"_s);
    }

    void stringDialogStartsWithoutOkIfNothingDoesNotMatch()
    {
        QVERIFY(!ok_button_of(*string_dialog(u"[a-z]+"_s))->isEnabled());
    }

    void stringDialogStartsWithOkIfNothingMatches() { QVERIFY(ok_button_of(*string_dialog(u"[a-z]*"_s))->isEnabled()); }

    void stringDialogEnablesOkForAWholeMatchAlone_data()
    {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("enabled");
        QTest::newRow("match") << u"[a-z]{2,3}"_s << u"ab"_s << true;
        QTest::newRow("may still become one") << u"[a-z]{2,3}"_s << u"a"_s << false;
        QTest::newRow("cannot become one") << u"[a-z]{2,3}"_s << u"1"_s << false;
        QTest::newRow("match with something behind") << u"[a-z]{2,3}"_s << u"abcd"_s << false;
        QTest::newRow("either of two words as a whole") << u"one|two"_s << u"twofold"_s << false;
        QTest::newRow("letters of every script") << "\\w+" << u"Größe"_s << true;
        QTest::newRow("a line break is a character too") << "a.b" << u"a\u2028b"_s << true;
        QTest::newRow("a line feed too") << "a.b" << u"a\nb"_s << true;
    }

    void stringDialogEnablesOkForAWholeMatchAlone()
    {
        QFETCH(const QString, pattern);
        QFETCH(const QString, text);
        QFETCH(const bool, enabled);
        const auto dialog = string_dialog(pattern);

        dialog->findChild<QLineEdit *>()->setText(text);

        QCOMPARE(ok_button_of(*dialog)->isEnabled(), enabled);
    }

    void stringDialogRefusesCharactersThatCannotMatch()
    {
        const auto dialog = string_dialog(u"[a-z]+"_s);
        dialog->show();

        QTest::keyClicks(dialog->findChild<QLineEdit *>(), u"a1b"_s);

        QCOMPARE(dialog->text(), u"ab"_s);
    }

    void stringDialogStaysOpenOnReturnUntilTheTextMatches()
    {
        const auto dialog = string_dialog(u"[a-z]{2}"_s);
        dialog->show();
        auto *const edit = dialog->findChild<QLineEdit *>();

        QTest::keyClicks(edit, u"a"_s);
        QTest::keyClick(edit, Qt::Key_Return);
        QVERIFY(dialog->isVisible());

        QTest::keyClicks(edit, u"b"_s);
        QTest::keyClick(edit, Qt::Key_Return);
        QVERIFY(!dialog->isVisible());
        QCOMPARE(dialog->result(), int(QDialog::Accepted));
    }

    void stringDialogIsAtLeast200Wide()
    {
        const auto dialog = string_dialog(u"[a-z]+"_s);

        QCOMPARE(dialog->size(), QSize(std::max(200, dialog->sizeHint().width()), dialog->sizeHint().height()));
    }
};

QTEST_MAIN(tst_input_dialogs)
#include "tst_input_dialogs.moc"
