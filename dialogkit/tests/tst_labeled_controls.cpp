#include "CheckBoxControl.h"
#include "ComboBoxEx.h"
#include "ComboControl.h"
#include "FixedSpinBox.h"
#include "FixedSpinBoxControl.h"
#include "IntSpinBoxControl.h"
#include "LabelControl.h"
#include "LineEditControl.h"

#include <QAccessible>
#include <QCheckBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QSpinBox>
#include <QTest>
#include <QToolBar>

using namespace Qt::StringLiterals;

/// A main window that can do without text labels.
class LabellingWindow : public QMainWindow
{
    Q_OBJECT
    Q_PROPERTY(bool usesTextLabel READ usesTextLabel WRITE setUsesTextLabel NOTIFY usesTextLabelChanged)

public:
    [[nodiscard]] bool usesTextLabel() const { return m_bTextLabel; }
    void setUsesTextLabel(bool enable)
    {
        m_bTextLabel = enable;
        emit usesTextLabelChanged(enable);
    }

signals:
    // NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): the generated definition says "_t1"
    void usesTextLabelChanged(bool enable);

private:
    bool m_bTextLabel = true;
};

class tst_labeled_controls : public QObject
{
    Q_OBJECT

private slots:
    void captionStandsAboveTheInput();
    void captionAndInputShareTheToolTip();
    void captionKeepsToTheTopLeft();
    void captionIsReadInTheLocalEncoding();
    void captionIsTheNameThatAScreenReaderSays();
    void nameArgumentIsTheObjectName();

    void labelControlShowsItsTextInASunkenFrame();
    void labelControlIsReadOutByItsText();
    void lineEditControlStartsWithItsText();
    void intSpinBoxControlCountsByKeys();
    void fixedSpinBoxControlHandsItsRangeToTheSpinBox();
    void comboControlCannotBeTypedIn();
    void checkBoxControlCarriesItsTextItself();

    void captionIsUsedAtFirst();
    void captionCanBeHiddenAndShown();
    void captionHiddenBeforehandStaysHidden();
    void captionFollowsTheMainWindowOfItsToolBar();
    void captionStartsAsTheMainWindowOfItsToolBarSays();
    void captionShowsInAToolBarOfAPlainMainWindow();
    void captionShowsInAToolBarWithoutAMainWindow();
};

namespace {

QString accessible_name(QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

} // namespace

void tst_labeled_controls::captionStandsAboveTheInput()
{
    LineEditControl control("Server", "", "");

    control.show();

    QCOMPARE(control.m_control->x(), control.m_label->x());
    QCOMPARE(control.m_control->y(), control.m_label->y() + control.m_label->height() + 5);
}

void tst_labeled_controls::captionAndInputShareTheToolTip()
{
    const LineEditControl control("Server", "", "The outgoing server");

    QCOMPARE(control.m_label->toolTip(), u"The outgoing server"_s);
    QCOMPARE(control.m_control->toolTip(), u"The outgoing server"_s);
}

void tst_labeled_controls::captionKeepsToTheTopLeft()
{
    const LineEditControl control("Server", "", "");

    QCOMPARE(control.m_label->alignment(), Qt::AlignLeft | Qt::AlignTop);
}

void tst_labeled_controls::captionIsReadInTheLocalEncoding()
{
    const LineEditControl control(u"Größe"_s.toLocal8Bit().constData(), "", u"für alle"_s.toLocal8Bit().constData());

    QCOMPARE(control.m_label->text(), u"Größe"_s);
    QCOMPARE(control.m_control->toolTip(), u"für alle"_s);
}

void tst_labeled_controls::captionIsTheNameThatAScreenReaderSays()
{
    const LineEditControl control("Server", "localhost", "");

    QCOMPARE(accessible_name(control.m_control), u"Server"_s);
    QCOMPARE(control.m_label->buddy(), control.m_control);
}

void tst_labeled_controls::nameArgumentIsTheObjectName()
{
    QCOMPARE(LabelControl("", "", "", nullptr, "a").objectName(), u"a"_s);
    QCOMPARE(LineEditControl("", "", "", nullptr, "b").objectName(), u"b"_s);
    QCOMPARE(IntSpinBoxControl("", "", nullptr, "c").objectName(), u"c"_s);
    QCOMPARE(FixedSpinBoxControl("", "", 0, 1, 0, 1, 0, nullptr, "d").objectName(), u"d"_s);
    QCOMPARE(ComboControl("", "", nullptr, "e").objectName(), u"e"_s);
    QCOMPARE(CheckBoxControl("", "", nullptr, "f").objectName(), u"f"_s);
}

void tst_labeled_controls::labelControlShowsItsTextInASunkenFrame()
{
    const LabelControl control("State", "gr\xfcn", "Light");

    QCOMPARE(control.m_control->text(), u"grün"_s);
    QCOMPARE(control.m_control->frameStyle(), int(QFrame::StyledPanel) | int(QFrame::Sunken));
    QCOMPARE(control.m_control->toolTip(), u"Light"_s);
}

void tst_labeled_controls::labelControlIsReadOutByItsText()
{
    const LabelControl control("State", "green", "");

    QCOMPARE(accessible_name(control.m_control), u"green"_s);
}

void tst_labeled_controls::lineEditControlStartsWithItsText()
{
    const LineEditControl control("Name", "M\xfcller", "");

    QCOMPARE(control.m_control->text(), u"Müller"_s);
}

void tst_labeled_controls::intSpinBoxControlCountsByKeys()
{
    IntSpinBoxControl control("Copies", "How many");
    control.show();

    QTest::keyClick(control.m_control, Qt::Key_Up);

    QCOMPARE(control.m_control->value(), 1);
    QCOMPARE(control.m_control->toolTip(), u"How many"_s);
}

void tst_labeled_controls::fixedSpinBoxControlHandsItsRangeToTheSpinBox()
{
    const FixedSpinBoxControl control("Scale", "By how much", 0.5, 2.5, 1.5, 0.25, 2);

    QCOMPARE(control.m_control->minimum(), 50);
    QCOMPARE(control.m_control->maximum(), 250);
    QCOMPARE(control.m_control->QSpinBox::value(), 150);
    QCOMPARE(control.m_control->singleStep(), 25);
    QCOMPARE(control.m_control->toolTip(), u"By how much"_s);
}

void tst_labeled_controls::comboControlCannotBeTypedIn()
{
    const ComboControl control("Paper", "Its size");

    QVERIFY(!control.m_control->isEditable());
    QCOMPARE(control.m_control->toolTip(), u"Its size"_s);
}

void tst_labeled_controls::checkBoxControlCarriesItsTextItself()
{
    CheckBoxControl control("Stra\xdf"
                            "e",
                            "Check it");
    control.show();

    QTest::mouseClick(control.m_control, Qt::LeftButton, {}, QPoint(8, control.m_control->height() / 2));

    QVERIFY(control.m_control->isChecked());
    QCOMPARE(control.m_control->text(), u"Straße"_s);
    QCOMPARE(control.m_control->toolTip(), u"Check it"_s);
    QCOMPARE(control.findChildren<QLabel *>().count(), 0);
    QCOMPARE(control.layout()->spacing(), 5);
}

void tst_labeled_controls::captionIsUsedAtFirst()
{
    LineEditControl control("Server", "", "");
    QVERIFY(control.usesTextLabel());

    control.show();

    QVERIFY(control.usesTextLabel());
    QVERIFY(control.m_label->isVisible());
}

void tst_labeled_controls::captionCanBeHiddenAndShown()
{
    LineEditControl control("Server", "", "");
    control.show();
    const QSize whole = control.sizeHint();

    control.setUsesTextLabel(false);
    QVERIFY(!control.m_label->isVisible());
    QVERIFY(!control.usesTextLabel());
    QVERIFY(control.sizeHint().height() < whole.height());

    control.setUsesTextLabel(true);
    QVERIFY(control.m_label->isVisible());
    QVERIFY(control.usesTextLabel());
    QCOMPARE(control.sizeHint(), whole);
}

void tst_labeled_controls::captionHiddenBeforehandStaysHidden()
{
    LineEditControl control("Server", "", "");

    control.setUsesTextLabel(false);
    control.show();

    QVERIFY(!control.m_label->isVisible());
    QVERIFY(control.m_control->isVisible());
}

void tst_labeled_controls::captionFollowsTheMainWindowOfItsToolBar()
{
    LabellingWindow window;
    QToolBar *const toolBar = window.addToolBar(u"tools"_s);
    const LineEditControl control("Server", "", "", toolBar);
    QVERIFY(control.usesTextLabel());

    window.setUsesTextLabel(false);
    QVERIFY(!control.usesTextLabel());

    window.setUsesTextLabel(true);
    QVERIFY(control.usesTextLabel());
}

void tst_labeled_controls::captionStartsAsTheMainWindowOfItsToolBarSays()
{
    LabellingWindow window;
    window.setUsesTextLabel(false);
    QToolBar *const toolBar = window.addToolBar(u"tools"_s);

    const LineEditControl control("Server", "", "", toolBar);

    QVERIFY(!control.usesTextLabel());
}

void tst_labeled_controls::captionShowsInAToolBarOfAPlainMainWindow()
{
    QMainWindow window;
    QToolBar *const toolBar = window.addToolBar(u"tools"_s);

    const LineEditControl control("Server", "", "", toolBar);

    QVERIFY(control.usesTextLabel());
}

void tst_labeled_controls::captionShowsInAToolBarWithoutAMainWindow()
{
    QToolBar toolBar;

    const LineEditControl control("Server", "", "", &toolBar);

    QVERIFY(control.usesTextLabel());
}

QTEST_MAIN(tst_labeled_controls)
#include "tst_labeled_controls.moc"
