#include "dialog_frame.h"

#include <QDialog>
#include <QIcon>
#include <QMainWindow>
#include <QPixmap>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

class tst_dialog_frame : public QObject
{
    Q_OBJECT

private slots:
    void dialogHasATitleAndNoCloseButton();
    void takesTitleNameAndModality();
    void takesTheIconOfItsParent();
    void takesTheIconOfTheMainWindowWithoutAParent();
    void takesTheIconOfTheMainWindowIfTheParentHasNone();
    void hasNoIconWhereNobodyHasOne();
    void layoutKeepsSixPixels();
    void buttonsStandAtTheRightEnd();
    void buttonsAreOfOneSize();
    void okIsTheDefault();
    void okAcceptsAndCancelRejects();
    void takesTheSizeOfItsLayout();
    void isAtLeastAsWideAsTold();
};

namespace {

QIcon icon_of(Qt::GlobalColor color)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(color);
    return {pixmap};
}

QRgb color_of(const QIcon &icon)
{
    return icon.pixmap(16, 16).toImage().pixel(8, 8);
}

QRgb icon_color_with_parent(QWidget *parent)
{
    QDialog dialog(parent);
    identify_dialog(dialog, {}, nullptr, false);
    return color_of(dialog.windowIcon());
}

/// A dialog that holds nothing but its buttons.
class ButtonDialog : public QDialog
{
public:
    ButtonDialog() : QDialog(nullptr, DialogFlags)
    {
        auto *const layout = new QVBoxLayout(this);
        set_dialog_spacing(*layout);
        const ButtonRow row = make_button_row(*this);
        okButton = row.okButton;
        layout->addLayout(row.layout);
        cancelButton = findChild<QPushButton *>(u"my_cancel_btn"_s);
    }

    QPushButton *okButton = nullptr;
    QPushButton *cancelButton = nullptr;
};

} // namespace

void tst_dialog_frame::dialogHasATitleAndNoCloseButton()
{
    const QDialog dialog(nullptr, DialogFlags);

    QVERIFY(dialog.windowFlags().testFlag(Qt::WindowTitleHint));
    QVERIFY(dialog.windowFlags().testFlag(Qt::WindowSystemMenuHint));
    QVERIFY(!dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    QCOMPARE(dialog.windowType(), Qt::Dialog);
}

void tst_dialog_frame::takesTitleNameAndModality()
{
    QDialog dialog;

    identify_dialog(dialog, u"Resize"_s, "resize", true);

    QCOMPARE(dialog.windowTitle(), u"Resize"_s);
    QCOMPARE(dialog.objectName(), u"resize"_s);
    QVERIFY(dialog.isModal());
}

void tst_dialog_frame::takesTheIconOfItsParent()
{
    QMainWindow window;
    window.setWindowIcon(icon_of(Qt::red));
    QWidget parent;
    parent.setWindowIcon(icon_of(Qt::blue));

    QCOMPARE(icon_color_with_parent(&parent), QColor(Qt::blue).rgb());
}

void tst_dialog_frame::takesTheIconOfTheMainWindowWithoutAParent()
{
    const QWidget other; // a window, but not the main one
    QMainWindow window;
    window.setWindowIcon(icon_of(Qt::red));

    QCOMPARE(icon_color_with_parent(nullptr), QColor(Qt::red).rgb());
}

void tst_dialog_frame::takesTheIconOfTheMainWindowIfTheParentHasNone()
{
    QMainWindow window;
    window.setWindowIcon(icon_of(Qt::red));
    QWidget parent;

    QCOMPARE(icon_color_with_parent(&parent), QColor(Qt::red).rgb());
}

void tst_dialog_frame::hasNoIconWhereNobodyHasOne()
{
    QDialog dialog;

    identify_dialog(dialog, {}, nullptr, false);

    QVERIFY(dialog.windowIcon().isNull());
}

void tst_dialog_frame::layoutKeepsSixPixels()
{
    QVBoxLayout layout;

    set_dialog_spacing(layout);

    QCOMPARE(layout.contentsMargins(), QMargins(6, 6, 6, 6));
    QCOMPARE(layout.spacing(), 6);
}

void tst_dialog_frame::buttonsStandAtTheRightEnd()
{
    ButtonDialog dialog;
    dialog.resize(400, 60);
    dialog.show();
    const auto *const space = dialog.findChild<QWidget *>(u"my_hbox"_s);

    QCOMPARE(dialog.okButton->objectName(), u"my_ok_btn"_s);
    QCOMPARE(dialog.okButton->text(), u"OK"_s);
    QCOMPARE(dialog.cancelButton->text(), u"Cancel"_s);
    QCOMPARE(dialog.cancelButton->x() + dialog.cancelButton->width(), 400 - 6);
    QCOMPARE(dialog.okButton->x() + dialog.okButton->width(), dialog.cancelButton->x() - 6);
    QCOMPARE(space->x(), 6);
    QCOMPARE(space->x() + space->width(), dialog.okButton->x() - 6);
}

void tst_dialog_frame::buttonsAreOfOneSize()
{
    const ButtonDialog dialog;
    const QSize okHint = dialog.okButton->sizeHint();
    const QSize cancelHint = dialog.cancelButton->sizeHint();
    const QSize wanted(std::max(okHint.width(), cancelHint.width()), okHint.height());

    for (const QPushButton *const button : {dialog.okButton, dialog.cancelButton}) {
        QCOMPARE(button->minimumSize(), wanted);
        QCOMPARE(button->maximumSize(), wanted);
    }
}

void tst_dialog_frame::okIsTheDefault()
{
    ButtonDialog dialog;
    dialog.show();

    QVERIFY(dialog.okButton->isDefault());
    QTest::keyClick(&dialog, Qt::Key_Return);

    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());
}

void tst_dialog_frame::okAcceptsAndCancelRejects()
{
    ButtonDialog dialog;

    dialog.show();
    QTest::mouseClick(dialog.okButton, Qt::LeftButton);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());

    dialog.show();
    QTest::mouseClick(dialog.cancelButton, Qt::LeftButton);
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QVERIFY(!dialog.isVisible());
}

void tst_dialog_frame::takesTheSizeOfItsLayout()
{
    ButtonDialog dialog;

    fit_size(dialog, 1);

    QCOMPARE(dialog.size(), dialog.sizeHint());
}

void tst_dialog_frame::isAtLeastAsWideAsTold()
{
    ButtonDialog dialog;

    fit_size(dialog, 700);

    QCOMPARE(dialog.size(), QSize(700, dialog.sizeHint().height()));
}

QTEST_MAIN(tst_dialog_frame)
#include "tst_dialog_frame.moc"
