#include "Q3ComboBox.h"

#include <QSignalSpy>
#include <QTest>

class tst_Q3ComboBox : public QObject
{
    Q_OBJECT

private slots:
    void mayBeTypedInOnlyIfTold();
    void takesItsNameFromTheArgument();
    void appendsAnEntryWithoutAPlace();
    void insertsAnEntryAtItsPlace();
    void showsItsFirstEntry();
    void activatesNothingWhenAnEntryIsSet();
};

void tst_Q3ComboBox::mayBeTypedInOnlyIfTold()
{
    QVERIFY(!Q3ComboBox(false).isEditable());
    QVERIFY(Q3ComboBox(true).isEditable());
}

void tst_Q3ComboBox::takesItsNameFromTheArgument()
{
    QCOMPARE(Q3ComboBox(false, nullptr, "box").objectName(), QStringLiteral("box"));
}

void tst_Q3ComboBox::appendsAnEntryWithoutAPlace()
{
    Q3ComboBox box(false);

    box.insertItem(QStringLiteral("one"));
    box.insertItem(QStringLiteral("two"));

    QCOMPARE(box.itemText(0), QStringLiteral("one"));
    QCOMPARE(box.itemText(1), QStringLiteral("two"));
}

void tst_Q3ComboBox::insertsAnEntryAtItsPlace()
{
    Q3ComboBox box(false);
    box.insertItem(QStringLiteral("one"));

    box.insertItem(QStringLiteral("two"), 0);

    QCOMPARE(box.itemText(0), QStringLiteral("two"));
}

void tst_Q3ComboBox::showsItsFirstEntry()
{
    Q3ComboBox box(false);

    box.insertItem(QStringLiteral("one"));
    box.insertItem(QStringLiteral("two"));

    QCOMPARE(box.currentItem(), 0);
}

void tst_Q3ComboBox::activatesNothingWhenAnEntryIsSet()
{
    Q3ComboBox box(false);
    box.insertItem(QStringLiteral("one"));
    box.insertItem(QStringLiteral("two"));
    const QSignalSpy activated(&box, &QComboBox::activated);

    box.setCurrentItem(1);

    QCOMPARE(box.currentItem(), 1);
    QCOMPARE(activated.count(), 0);
}

QTEST_MAIN(tst_Q3ComboBox)
#include "tst_Q3ComboBox.moc"
