#include "plain_box.h"

#include "NextBox.h"

#include <QAbstractButton>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_plain_box : public QObject
{
    Q_OBJECT

private slots:
    void answersTheButtonPressed();
    void showsMarkupAsItStands();
    void returnPressesTheDefaultButton();
};

void tst_plain_box::answersTheButtonPressed()
{
    const NextBox box = answer_next_box(QMessageBox::No);

    QCOMPARE(show_plain_box(QMessageBox::Warning, nullptr, u"Title"_s, u"Text"_s, QMessageBox::Yes | QMessageBox::No),
             QMessageBox::No);

    QCOMPARE(box.title(), u"Title"_s);
    QCOMPARE(box.text(), u"Text"_s);
}

void tst_plain_box::showsMarkupAsItStands()
{
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    Qt::TextFormat shown = Qt::AutoText;
    const NextOf<QMessageBox> next([&icon, &shown](const QMessageBox &box) {
        icon = box.icon();
        shown = box.findChild<QLabel *>("qt_msgbox_label"_L1)->textFormat();
        box.button(QMessageBox::Ok)->click();
    });

    QCOMPARE(show_plain_box(QMessageBox::Information, nullptr, {}, u"<b>a&lt;b</b>.png"_s, QMessageBox::Ok),
             QMessageBox::Ok);

    QCOMPARE(icon, QMessageBox::Information);
    QCOMPARE(shown, Qt::PlainText);
}

void tst_plain_box::returnPressesTheDefaultButton()
{
    const NextBox box = answer_next_box(QMessageBox::Yes);

    (void)show_plain_box(QMessageBox::Warning, nullptr, {}, u"Text"_s, QMessageBox::Yes | QMessageBox::No,
                         QMessageBox::No);

    QCOMPARE(box.defaultButton(), QMessageBox::No);
}

QTEST_MAIN(tst_plain_box)
#include "tst_plain_box.moc"
