#include "Q3VBox.h"

#include <QDialog>
#include <QLabel>
#include <QTest>

class tst_Q3HBox : public QObject
{
    Q_OBJECT

private slots:
    void takesItsNameFromTheArgument();
    void laysChildrenOutInARowByCreation();
    void laysChildrenOutInAColumnByCreation();
    void hasNeitherMarginNorSpacingAtFirst();
    void spacingKeepsChildrenApart();
    void asksForTheSizeOfItsChildren();
    void keepsAWindowOutOfTheRow();
    void closesTheGapOfADeletedChild();
};

namespace {

QWidget *add_block(QWidget *box, QSize size)
{
    auto *const block = new QWidget(box);
    block->setFixedSize(size);
    return block;
}

} // namespace

void tst_Q3HBox::takesItsNameFromTheArgument()
{
    const Q3HBox row(nullptr, "labels");
    const Q3VBox column(nullptr, "column");

    QCOMPARE(row.objectName(), QStringLiteral("labels"));
    QCOMPARE(column.objectName(), QStringLiteral("column"));
}

void tst_Q3HBox::laysChildrenOutInARowByCreation()
{
    Q3HBox box;
    const QWidget *const first = add_block(&box, {30, 20});
    const QWidget *const second = add_block(&box, {40, 20});

    box.show();

    QCOMPARE(second->x(), first->x() + 30);
    QCOMPARE(second->y(), first->y());
}

void tst_Q3HBox::laysChildrenOutInAColumnByCreation()
{
    Q3VBox box;
    const QWidget *const first = add_block(&box, {30, 20});
    const QWidget *const second = add_block(&box, {30, 20});

    box.show();

    QCOMPARE(second->y(), first->y() + 20);
    QCOMPARE(second->x(), first->x());
}

void tst_Q3HBox::hasNeitherMarginNorSpacingAtFirst()
{
    Q3HBox box;
    add_block(&box, {30, 20});
    add_block(&box, {40, 25});

    QCOMPARE(box.sizeHint(), QSize(70, 25));
}

void tst_Q3HBox::spacingKeepsChildrenApart()
{
    Q3VBox box;
    add_block(&box, {30, 20});
    add_block(&box, {30, 20});

    box.setSpacing(5);

    QCOMPARE(box.sizeHint(), QSize(30, 45));
}

void tst_Q3HBox::asksForTheSizeOfItsChildren()
{
    Q3HBox box;
    QLabel label(QStringLiteral("a text that may be squeezed"), &box);
    label.setMinimumWidth(1);

    QCOMPARE(box.sizeHint().width(), label.sizeHint().width());
}

void tst_Q3HBox::keepsAWindowOutOfTheRow()
{
    Q3HBox box;
    add_block(&box, {30, 20});

    const QDialog dialog(&box);

    QCOMPARE(box.sizeHint(), QSize(30, 20));
}

void tst_Q3HBox::closesTheGapOfADeletedChild()
{
    Q3HBox box;
    const QWidget *const first = add_block(&box, {30, 20});
    add_block(&box, {40, 20});

    delete first;

    QCOMPARE(box.sizeHint(), QSize(40, 20));
}

QTEST_MAIN(tst_Q3HBox)
#include "tst_Q3HBox.moc"
