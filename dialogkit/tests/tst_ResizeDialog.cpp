#include "NextBox.h"
#include "pictures.h"
#include "ResizeDialog.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The dialog on a page of 60 by 40, shown, and what a user does with it.
class ShownDialog : public ResizeDialog
{
public:
    ShownDialog() : ResizeDialog(solid_page({60, 40}, 0xffffffff), nullptr, "image_resize_p_dialog", true) { show(); }

    [[nodiscard]] QLineEdit *widthEdit() const { return findChildren<QLineEdit *>().at(0); }
    [[nodiscard]] QLineEdit *heightEdit() const { return findChildren<QLineEdit *>().at(1); }

    void type(const QString &width, const QString &height) const
    {
        typeInto(widthEdit(), width);
        typeInto(heightEdit(), height);
    }

    void pressOk() { QTest::mouseClick(findChild<QPushButton *>(u"my_ok_btn"_s), Qt::LeftButton); }

private:
    static void typeInto(QLineEdit *edit, const QString &text)
    {
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, text);
    }
};

} // namespace

class tst_ResizeDialog : public QObject
{
    Q_OBJECT

private slots:
    void saysWhatItIsFor()
    {
        const ShownDialog dialog;

        QCOMPARE(dialog.windowTitle(), u"Resize"_s);
        QCOMPARE(dialog.objectName(), u"image_resize_p_dialog"_s);
        QVERIFY(dialog.isModal());
        QVERIFY(dialog.windowFlags().testFlags(Qt::WindowTitleHint | Qt::WindowSystemMenuHint));
        QVERIFY(!dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    }

    void isLaidOutOnAGridOfSixPixels()
    {
        const ShownDialog dialog;
        const auto *const grid = dialog.findChild<QGridLayout *>(u"DLayout"_s);

        QCOMPARE(grid->contentsMargins(), QMargins(6, 6, 6, 6));
        QCOMPARE(grid->spacing(), 6);
        QCOMPARE(grid->alignment(), Qt::AlignTop);
        QCOMPARE(grid->itemAtPosition(0, 0)->widget(), dialog.findChild<QGroupBox *>());
        QVERIFY(grid->itemAtPosition(2, 0)->layout()->indexOf(dialog.findChild<QPushButton *>(u"my_ok_btn"_s)) >= 0);
    }

    void asksForWidthAndHeightInATitledBox()
    {
        const ShownDialog dialog;
        const QList<QLabel *> labels = dialog.findChildren<QLabel *>();

        QCOMPARE(dialog.findChild<QGroupBox *>()->title(), u"Pixel Dimensions"_s);
        QCOMPARE(labels.count(), 2);
        QCOMPARE(labels.at(0)->text(), u"Width"_s);
        QCOMPARE(labels.at(0)->buddy(), dialog.widthEdit());
        QCOMPARE(labels.at(1)->text(), u"Height"_s);
        QCOMPARE(labels.at(1)->buddy(), dialog.heightEdit());
        QCOMPARE(dialog.widthEdit()->accessibleName(), u"Width"_s);
        QCOMPARE(dialog.heightEdit()->accessibleName(), u"Height"_s);
        QVERIFY(dialog.widthEdit()->x() > labels.at(0)->x() + labels.at(0)->width());
        QVERIFY(dialog.heightEdit()->y() > dialog.widthEdit()->y());
        QCOMPARE(dialog.heightEdit()->x(), dialog.widthEdit()->x());
    }

    void startsWithTheSizeOfThePage()
    {
        const ShownDialog dialog;
        QSize size;

        QCOMPARE(dialog.widthEdit()->text(), u"60"_s);
        QCOMPARE(dialog.heightEdit()->text(), u"40"_s);
        QVERIFY(dialog.result(&size));
        QCOMPARE(size, QSize(60, 40));
    }

    void hearsKeysFirstInTheWidth()
    {
        ShownDialog dialog;
        QVERIFY(QTest::qWaitForWindowActive(&dialog));

        QCOMPARE(dialog.focusWidget(), dialog.widthEdit());
    }

    void firstDigitTakesThePlaceOfTheOldWidth()
    {
        ShownDialog dialog;
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QCOMPARE(dialog.widthEdit()->selectedText(), u"60"_s);

        QTest::keyClicks(dialog.focusWidget(), u"75"_s);

        QCOMPARE(dialog.widthEdit()->text(), u"75"_s);
    }

    void isAsLargeAsItsLayoutAsks()
    {
        const ResizeDialog dialog(solid_page({60, 40}, 0xffffffff));

        QCOMPARE(dialog.size(), QSize(std::max(200, dialog.sizeHint().width()), dialog.sizeHint().height()));
    }

    void acceptsAGoodSize_data()
    {
        QTest::addColumn<QString>("width");
        QTest::addColumn<QString>("height");
        QTest::addColumn<QSize>("size");
        QTest::newRow("smallest") << u"10"_s << u"10"_s << QSize(10, 10);
        QTest::newRow("another size") << u"120"_s << u"35"_s << QSize(120, 35);
        QTest::newRow("more than five digits") << u"100000"_s << u"10"_s << QSize(100000, 10);
    }

    void acceptsAGoodSize()
    {
        QFETCH(const QString, width);
        QFETCH(const QString, height);
        QFETCH(const QSize, size);
        ShownDialog dialog;
        dialog.type(width, height);

        dialog.pressOk();

        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QSize entered;
        QVERIFY(dialog.result(&entered));
        QCOMPARE(entered, size);
    }

    void refusesAnotherSizeAndStaysOpen_data()
    {
        QTest::addColumn<QString>("width");
        QTest::addColumn<QString>("height");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");

        const QString number = u"Invalid Number"_s;
        const QString numberText = u"Check if Width and Height\ncontain non-digit characters\nor more than 5 digits."_s;
        QTest::newRow("letter") << u"1x"_s << u"100"_s << number << numberText;
        QTest::newRow("empty width") << u""_s << u"100"_s << number << numberText;
        QTest::newRow("empty height") << u"100"_s << u""_s << number << numberText;
        QTest::newRow("more than an int") << u"99999999999"_s << u"100"_s << number << numberText;

        const QString small = u"Image side is too small"_s;
        const QString smallText = u"Set Width and Height to 10 pixels or more.\n"_s;
        QTest::newRow("narrow") << u"9"_s << u"100"_s << small << smallText;
        QTest::newRow("flat") << u"100"_s << u"9"_s << small << smallText;
        QTest::newRow("negative") << u"-100"_s << u"100"_s << small << smallText;

        // No machine is credited with more than 209505484 pixels.
        QTest::newRow("more than any memory") << u"2000000000"_s << u"10"_s << u"Resulting size is too big"_s
                                              << u"Decrease Width and Height\nto fit the image in computer's memory."_s;
    }

    void refusesAnotherSizeAndStaysOpen()
    {
        QFETCH(const QString, width);
        QFETCH(const QString, height);
        QFETCH(const QString, title);
        QFETCH(const QString, text);
        ShownDialog dialog;
        dialog.type(width, height);
        const NextBox box = answer_next_box(QMessageBox::Ok);

        dialog.pressOk();

        QCOMPARE(box.title(), title);
        QCOMPARE(box.text(), text);
        QCOMPARE(box.buttons(), QMessageBox::StandardButtons(QMessageBox::Ok));
        QVERIFY(dialog.isVisible());
        QCOMPARE(dialog.widthEdit()->text(), width);
    }

    void acceptsAfterARefusal()
    {
        ShownDialog dialog;
        dialog.type(u"9"_s, u"100"_s);
        const NextBox box = answer_next_box(QMessageBox::Ok);
        QTest::keyClick(dialog.heightEdit(), Qt::Key_Return);
        QVERIFY(dialog.isVisible());

        dialog.type(u"90"_s, u"100"_s);
        QTest::keyClick(dialog.heightEdit(), Qt::Key_Return);

        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }

    void resultLeavesTheSizeAloneIfOneSideIsNoNumber()
    {
        ShownDialog dialog;
        dialog.type(u"100"_s, u"x"_s);
        QSize size(1, 2);

        QVERIFY(!dialog.result(&size));

        QCOMPARE(size, QSize(1, 2));
    }

    void resultJudgesNothing()
    {
        ShownDialog dialog;
        dialog.type(u"-3"_s, u"2"_s);
        QSize size;

        QVERIFY(dialog.result(&size));

        QCOMPARE(size, QSize(-3, 2));
    }

    void escapeClosesWithoutAQuestion()
    {
        ShownDialog dialog;
        dialog.type(u"1x"_s, u""_s);

        QTest::keyClick(dialog.widthEdit(), Qt::Key_Escape);

        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
    }
};

QTEST_MAIN(tst_ResizeDialog)
#include "tst_ResizeDialog.moc"
