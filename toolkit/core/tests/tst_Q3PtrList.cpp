#include "Q3PtrList.h"

#include <QList>
#include <QObject>
#include <QTest>

namespace {

/// Tells its list's length at its own destruction.
class Item
{
public:
    explicit Item(int number = 0) : m_number(number) { }
    Q_DISABLE_COPY_MOVE(Item)
    ~Item()
    {
        if (m_deleted)
            m_deleted->append(m_number);
        if (m_list)
            m_countAtEnd->append(m_list->count());
    }

    void report(QList<int> *deleted) { m_deleted = deleted; }
    void reportCount(const Q3PtrList<Item> *list, QList<int> *counts)
    {
        m_list = list;
        m_countAtEnd = counts;
    }

private:
    int m_number;
    QList<int> *m_deleted = nullptr;
    const Q3PtrList<Item> *m_list = nullptr;
    QList<int> *m_countAtEnd = nullptr;
};

} // namespace

class tst_Q3PtrList : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void newListIsEmptyWithoutCurrentItem();
    void appendMakesTheNewItemCurrent();
    void prependMakesTheNewItemCurrent();
    void firstAndLastMoveTheCursor();
    void firstAndLastOfAnEmptyListAreNull();
    void getFirstAndGetLastLeaveTheCursor();
    void nextPastTheEndLeavesNoCurrentItem();
    void prevPastTheStartLeavesNoCurrentItem();
    void stepsWithoutCurrentItemAreNull();
    void atInRangeMakesTheItemCurrent();
    void atOutOfRangeKeepsTheCursor();
    void atOutOfRangeWithoutCurrentItemPutsTheCursorOnTheFirst();
    void removeMakesTheNextItemCurrent();
    void removeAtTheTailMakesTheNewLastItemCurrent();
    void removeOfTheOnlyItemLeavesNoCurrentItem();
    void removeWithoutCurrentItemDoesNothing();
    void removeFirstAndRemoveLastTakeTheEnds();
    void removeFirstAndRemoveLastOfAnEmptyListFail();
    void removingAnItemPutsTheCursorToItsPlace();
    void removingAStrangerLeavesNoCurrentItem();
    void clearLeavesNoCurrentItem();
    void itemsAreKeptWithoutAutoDelete();
    void autoDeleteDeletesOnEveryWayOut();
    void itemIsDeletedAfterItWasUnlinked();
    void clearedItemsSeeAnEmptyList();
    void copySharesItemsAndDeletesNone();

private:
    Item a{1}, b{2}, c{3};
    Q3PtrList<Item> *list = nullptr;
};

void tst_Q3PtrList::init()
{
    list = new Q3PtrList<Item>;
    list->append(&a);
    list->append(&b);
    list->append(&c);
}

void tst_Q3PtrList::cleanup()
{
    delete list;
}

void tst_Q3PtrList::newListIsEmptyWithoutCurrentItem()
{
    const Q3PtrList<Item> empty;

    QVERIFY(empty.isEmpty());
    QCOMPARE(empty.count(), 0);
    QCOMPARE(empty.at(), -1);
    QVERIFY(!empty.current());
    QVERIFY(!empty.getFirst());
    QVERIFY(!empty.getLast());
    QVERIFY(!empty.autoDelete());
}

void tst_Q3PtrList::appendMakesTheNewItemCurrent()
{
    Item d;
    list->first();

    list->append(&d);

    QCOMPARE(list->current(), &d);
    QCOMPARE(list->at(), 3);
    QCOMPARE(list->getLast(), &d);
}

void tst_Q3PtrList::prependMakesTheNewItemCurrent()
{
    Item d;

    list->prepend(&d);

    QCOMPARE(list->current(), &d);
    QCOMPARE(list->at(), 0);
    QCOMPARE(list->getFirst(), &d);
    QCOMPARE(list->count(), 4);
}

void tst_Q3PtrList::firstAndLastMoveTheCursor()
{
    QCOMPARE(list->first(), &a);
    QCOMPARE(list->at(), 0);
    QCOMPARE(list->last(), &c);
    QCOMPARE(list->at(), 2);
}

void tst_Q3PtrList::firstAndLastOfAnEmptyListAreNull()
{
    Q3PtrList<Item> empty;

    QVERIFY(!empty.first());
    QVERIFY(!empty.last());
    QCOMPARE(empty.at(), -1);
}

void tst_Q3PtrList::getFirstAndGetLastLeaveTheCursor()
{
    list->at(1);

    QCOMPARE(list->getFirst(), &a);
    QCOMPARE(list->getLast(), &c);
    QCOMPARE(list->current(), &b);
}

void tst_Q3PtrList::nextPastTheEndLeavesNoCurrentItem()
{
    list->at(1);

    QCOMPARE(list->next(), &c);
    QVERIFY(!list->next());
    QVERIFY(!list->current());
    QCOMPARE(list->at(), -1);
}

void tst_Q3PtrList::prevPastTheStartLeavesNoCurrentItem()
{
    list->at(1);

    QCOMPARE(list->prev(), &a);
    QVERIFY(!list->prev());
    QVERIFY(!list->current());
    QCOMPARE(list->at(), -1);
}

void tst_Q3PtrList::stepsWithoutCurrentItemAreNull()
{
    list->last();
    (void)list->next(); // leaves no current item

    QVERIFY(!list->next());
    QVERIFY(!list->prev());
    QCOMPARE(list->at(), -1);
}

void tst_Q3PtrList::atInRangeMakesTheItemCurrent()
{
    QCOMPARE(list->at(1), &b);
    QCOMPARE(list->current(), &b);
    QCOMPARE(list->at(), 1);
}

void tst_Q3PtrList::atOutOfRangeKeepsTheCursor()
{
    list->at(1);

    QVERIFY(!list->at(3));
    QVERIFY(!list->at(-1));
    QCOMPARE(list->current(), &b);
}

void tst_Q3PtrList::atOutOfRangeWithoutCurrentItemPutsTheCursorOnTheFirst()
{
    list->last();
    (void)list->next(); // leaves no current item

    QVERIFY(!list->at(3));
    QCOMPARE(list->current(), &a);
}

void tst_Q3PtrList::removeMakesTheNextItemCurrent()
{
    list->at(1);

    QVERIFY(list->remove());
    QCOMPARE(list->current(), &c);
    QCOMPARE(list->at(), 1);
    QCOMPARE(list->count(), 2);
}

void tst_Q3PtrList::removeAtTheTailMakesTheNewLastItemCurrent()
{
    list->last();

    QVERIFY(list->remove());
    QCOMPARE(list->current(), &b);
    QCOMPARE(list->at(), 1);
}

void tst_Q3PtrList::removeOfTheOnlyItemLeavesNoCurrentItem()
{
    Q3PtrList<Item> single;
    single.append(&a);

    QVERIFY(single.remove());
    QVERIFY(!single.current());
    QCOMPARE(single.at(), -1);
    QVERIFY(!single.remove());
}

void tst_Q3PtrList::removeWithoutCurrentItemDoesNothing()
{
    list->last();
    (void)list->next(); // leaves no current item

    QVERIFY(!list->remove());
    QCOMPARE(list->count(), 3);
}

void tst_Q3PtrList::removeFirstAndRemoveLastTakeTheEnds()
{
    QVERIFY(list->removeFirst());
    QCOMPARE(list->current(), &b);
    QVERIFY(list->removeLast());
    QCOMPARE(list->current(), &b);
    QCOMPARE(list->count(), 1);
}

void tst_Q3PtrList::removeFirstAndRemoveLastOfAnEmptyListFail()
{
    Q3PtrList<Item> empty;

    QVERIFY(!empty.removeFirst());
    QVERIFY(!empty.removeLast());
}

void tst_Q3PtrList::removingAnItemPutsTheCursorToItsPlace()
{
    list->last();

    QVERIFY(list->removeRef(&a));
    QCOMPARE(list->current(), &b);
    QVERIFY(list->remove(&c));
    QCOMPARE(list->current(), &b);
    QCOMPARE(list->count(), 1);
}

void tst_Q3PtrList::removingAStrangerLeavesNoCurrentItem()
{
    const Item stranger;

    QVERIFY(!list->removeRef(&stranger));
    QCOMPARE(list->at(), -1);
    QCOMPARE(list->count(), 3);
}

void tst_Q3PtrList::clearLeavesNoCurrentItem()
{
    list->clear();

    QVERIFY(list->isEmpty());
    QCOMPARE(list->at(), -1);
}

void tst_Q3PtrList::itemsAreKeptWithoutAutoDelete()
{
    QList<int> deleted;
    Item kept(7);
    kept.report(&deleted);
    {
        Q3PtrList<Item> borrowing;
        borrowing.append(&kept);
        QVERIFY(borrowing.remove());
        borrowing.append(&kept);
        borrowing.clear();
        borrowing.append(&kept);
    }

    QVERIFY(deleted.isEmpty());
    kept.report(nullptr);
}

void tst_Q3PtrList::autoDeleteDeletesOnEveryWayOut()
{
    QList<int> deleted;
    {
        Q3PtrList<Item> owning;
        owning.setAutoDelete(true);
        for (int number = 1; number <= 6; ++number) {
            owning.append(new Item(number));
            owning.current()->report(&deleted);
        }

        owning.at(2);
        QVERIFY(owning.remove());
        QVERIFY(owning.removeFirst());
        QVERIFY(owning.removeLast());
        QVERIFY(owning.removeRef(owning.at(1)));
        QCOMPARE(deleted, (QList<int>{3, 1, 6, 4}));
        owning.first();
        QVERIFY(owning.remove());
    }

    QCOMPARE(deleted, (QList<int>{3, 1, 6, 4, 2, 5}));
}

void tst_Q3PtrList::itemIsDeletedAfterItWasUnlinked()
{
    QList<int> counts;
    Q3PtrList<Item> owning;
    owning.setAutoDelete(true);
    for (int i = 0; i < 3; ++i) {
        owning.append(new Item);
        owning.current()->reportCount(&owning, &counts);
    }

    QVERIFY(owning.removeLast());
    QVERIFY(owning.removeFirst());

    QCOMPARE(counts, (QList<int>{2, 1}));
}

void tst_Q3PtrList::clearedItemsSeeAnEmptyList()
{
    QList<int> counts;
    Q3PtrList<Item> owning;
    owning.setAutoDelete(true);
    for (int i = 0; i < 2; ++i) {
        owning.append(new Item);
        owning.current()->reportCount(&owning, &counts);
    }

    owning.clear();

    QCOMPARE(counts, (QList<int>{0, 0}));
}

void tst_Q3PtrList::copySharesItemsAndDeletesNone()
{
    QList<int> deleted;
    Q3PtrList<Item> owning;
    owning.setAutoDelete(true);
    owning.append(new Item(1));
    owning.current()->report(&deleted);
    {
        Q3PtrList<Item> copy(owning);
        QVERIFY(!copy.autoDelete());
        QCOMPARE(copy.getFirst(), owning.getFirst());
        QVERIFY(copy.removeFirst());
    }

    QVERIFY(deleted.isEmpty());
    QCOMPARE(owning.count(), 1);
}

QTEST_GUILESS_MAIN(tst_Q3PtrList)

#include "tst_Q3PtrList.moc"
