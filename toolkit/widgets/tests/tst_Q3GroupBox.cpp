#include "Q3GroupBox.h"

#include <QTest>

#include <array>

class tst_Q3GroupBox : public QObject
{
    Q_OBJECT

private slots:
    void showsTitleAndTakesItsNameFromTheArgument();
    void horizontalStripsAreColumnsFilledRowByRow();
    void verticalStripsAreRowsFilledColumnByColumn();
    void keepsTheDefaultSpacingBetweenChildren();
    void insideSpacingAndMarginCanBeSet();
    void childrenKeepToTheTopOfATallBox();
    void alignedChildKeepsItsSizeAtItsPlaceOfAWideBox();
};

namespace {

using Blocks = std::array<QWidget *, 4>;

Blocks add_four_blocks(QWidget *box)
{
    Blocks blocks{};
    for (QWidget *&block : blocks) {
        block = new QWidget(box);
        block->setFixedSize(30, 20);
    }
    return blocks;
}

} // namespace

void tst_Q3GroupBox::showsTitleAndTakesItsNameFromTheArgument()
{
    const Q3GroupBox box(1, Qt::Horizontal, QStringLiteral("Preview"), nullptr, "group");

    QCOMPARE(box.title(), QStringLiteral("Preview"));
    QCOMPARE(box.objectName(), QStringLiteral("group"));
}

void tst_Q3GroupBox::horizontalStripsAreColumnsFilledRowByRow()
{
    Q3GroupBox box(2, Qt::Horizontal, {});
    const Blocks blocks = add_four_blocks(&box);

    box.show();

    QVERIFY(blocks[1]->x() > blocks[0]->x());
    QCOMPARE(blocks[1]->y(), blocks[0]->y());
    QCOMPARE(blocks[2]->x(), blocks[0]->x());
    QVERIFY(blocks[2]->y() > blocks[0]->y());
    QCOMPARE(blocks[3]->pos(), QPoint(blocks[1]->x(), blocks[2]->y()));
}

void tst_Q3GroupBox::verticalStripsAreRowsFilledColumnByColumn()
{
    Q3GroupBox box(2, Qt::Vertical, {});
    const Blocks blocks = add_four_blocks(&box);

    box.show();

    QCOMPARE(blocks[1]->x(), blocks[0]->x());
    QVERIFY(blocks[1]->y() > blocks[0]->y());
    QVERIFY(blocks[2]->x() > blocks[0]->x());
    QCOMPARE(blocks[2]->y(), blocks[0]->y());
    QCOMPARE(blocks[3]->pos(), QPoint(blocks[2]->x(), blocks[1]->y()));
}

void tst_Q3GroupBox::keepsTheDefaultSpacingBetweenChildren()
{
    Q3GroupBox box(1, Qt::Horizontal, {});
    const Blocks blocks = add_four_blocks(&box);

    box.show();

    QCOMPARE(blocks[1]->y(), blocks[0]->y() + 20 + 5);
    QCOMPARE(blocks[0]->x(), box.contentsRect().x() + 11);
    QCOMPARE(blocks[0]->y(), box.contentsRect().y() + 11);
}

void tst_Q3GroupBox::insideSpacingAndMarginCanBeSet()
{
    Q3GroupBox box(1, Qt::Horizontal, {});
    const Blocks blocks = add_four_blocks(&box);
    box.setInsideMargin(6);
    box.setInsideSpacing(7);

    box.show();

    QCOMPARE(blocks[1]->y(), blocks[0]->y() + 20 + 7);
    QCOMPARE(blocks[0]->x(), box.contentsRect().x() + 6);
    QCOMPARE(blocks[0]->y(), box.contentsRect().y() + 6);
}

void tst_Q3GroupBox::childrenKeepToTheTopOfATallBox()
{
    Q3GroupBox box(1, Qt::Horizontal, {});
    const Blocks blocks = add_four_blocks(&box);

    box.resize(200, 600);
    box.show();

    QCOMPARE(blocks[0]->y(), box.contentsRect().y() + 11);
    QCOMPARE(blocks[1]->y(), blocks[0]->y() + 25);
}

void tst_Q3GroupBox::alignedChildKeepsItsSizeAtItsPlaceOfAWideBox()
{
    Q3GroupBox box(1, Qt::Horizontal, {});
    box.setInsideMargin(0);
    auto *const child = new QWidget(&box);
    child->setMinimumSize(40, 20);
    box.alignInside(child, Qt::AlignCenter);

    box.resize(201, 100);
    box.show();

    QCOMPARE(child->width(), 40);
    const QRect inside = box.contentsRect();
    QCOMPARE(child->x() - inside.x(), (inside.width() - 40) / 2);
}

QTEST_MAIN(tst_Q3GroupBox)
#include "tst_Q3GroupBox.moc"
