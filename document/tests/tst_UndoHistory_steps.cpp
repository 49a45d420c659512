#include "DiagnosticLines.h"
#include "history_steps.h"
#include "pictures.h"
#include "process_limits.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

class tst_UndoHistory_steps : public QObject
{
    Q_OBJECT

private slots:
    // Steps
    void undoBringsBackPageSizeZoomAndName();
    void undoTwiceAndRedoWalkTheChain();
    void undoAfterAnEditWithoutStepsStaysOnTheNewestItem();
    void undoStopsAtTheFirstItem();
    void undoOfAnEmptyChainIsRefused();
    void undoAtTheFirstItemIsRefused();
    void redoMovesOneMoreThanAsked();
    void redoStopsAtTheLastItem();
    void redoAtTheEndReadsTheLastItemOnceMore();
    void redoAfterAnEditReadsTheNewestItemAndIsDone();
    void redoOfAnEmptyChainFails();
    void redoWithTheLargestCountStaysInPlace();
    void undoWithTheLargestCountGoesToTheFirstItem();
    void afterAnUndoRedoIsOfferedEvenAtTheEnd();
    void nameOutputMayBeNull();
    void otherOutputsMustNotBeNull_data();
    void otherOutputsMustNotBeNull();

    // Failures
    void undoThatCannotReadStaysWhereItWas();
    void redoThatCannotReadStaysWhereItWas();
    void cutSnapshotIsAFailedStep();
    void insertThatCannotWriteLeavesTheChainAlone();
    void fileThatIsGoneIsToldWhenItsItemGoes();
};

void tst_UndoHistory_steps::undoBringsBackPageSizeZoomAndName()
{
    const TemporaryHome home;
    UndoHistory history;
    QVERIFY(history.insert(patterned_page({9, 5}), QSize(72, 40), 8.0, u"turn"_s));
    const QString path = snapshot_path(home, u"00000001"_s);
    const DiagnosticLines diagnostics;

    StepOutputs out;
    QVERIFY(history.undo(&out.image, &out.size, &out.zoom, 0, &out.name));

    QVERIFY(compare_pictures(out.image, patterned_page({9, 5})));
    QCOMPARE(out.size, QSize(72, 40));
    QCOMPARE(out.zoom, 8.0);
    QCOMPARE(out.name, u"turn"_s);
    QCOMPARE(history.state(), UndoHistory::Undone);
    QCOMPARE(diagnostics.lines(),
             (QStringList{u"UndoHistory::undo"_s, "UndoHistoryItem::load n="_L1 + path + ", z=8, w=72, h=40"_L1,
                          u"UndoHistory::undo exit: chain items = 1"_s}));
}

void tst_UndoHistory_steps::undoTwiceAndRedoWalkTheChain()
{
    const TemporaryHome home;
    UndoHistory history;
    insert_pages(history, {Qt::red, Qt::green, Qt::blue});

    QCOMPARE(undo(history, 1), QColor(Qt::green));
    QCOMPARE(history.state(), UndoHistory::Undone);
    QVERIFY(history.canUndo());

    QCOMPARE(undo(history), QColor(Qt::red));
    QCOMPARE(history.state(), UndoHistory::Undone);
    QVERIFY(!history.canUndo());

    QCOMPARE(redo(history), QColor(Qt::green));
    QCOMPARE(history.state(), UndoHistory::Redone);
    QVERIFY(history.canUndo());
    QVERIFY(history.canRedo());
}

void tst_UndoHistory_steps::undoAfterAnEditWithoutStepsStaysOnTheNewestItem()
{
    const TemporaryHome home;
    UndoHistory history;
    insert_pages(history, {Qt::red, Qt::green});

    QCOMPARE(undo(history), QColor(Qt::green));
    QCOMPARE(undo(history), QColor(Qt::red));
}

void tst_UndoHistory_steps::undoStopsAtTheFirstItem()
{
    const TemporaryHome home;
    UndoHistory history;
    insert_pages(history, {Qt::red, Qt::green, Qt::blue});
    const DiagnosticLines diagnostics;

    QCOMPARE(undo(history, 9), QColor(Qt::red));

    // Two moves, and the look that found the first item.
    QCOMPARE(diagnostics.lines().count(u"UndoHistory::undo - inside loop"_s), 3);
    QVERIFY(!history.canUndo());
}

void tst_UndoHistory_steps::undoOfAnEmptyChainIsRefused()
{
    const TemporaryHome home;
    UndoHistory history;
    const DiagnosticLines diagnostics;

    QCOMPARE(undo(history), QColor());

    QCOMPARE(history.state(), UndoHistory::Empty);
    QCOMPARE(diagnostics.lines(), QStringList{u"UndoHistory::undo - fatal - nothing to undo!!!"_s});
}

void tst_UndoHistory_steps::undoAtTheFirstItemIsRefused()
{
    const TemporaryHome home;
    UndoHistory history;
    insert_pages(history, {Qt::red});
    QCOMPARE(undo(history), QColor(Qt::red));

    QCOMPARE(undo(history), QColor());

    QCOMPARE(history.state(), UndoHistory::Undone);
}

void tst_UndoHistory_steps::redoMovesOneMoreThanAsked()
{
    const TemporaryHome home;
    UndoHistory history;
    insert_pages(history, {Qt::red, Qt::green, Qt::blue, Qt::cyan});
    QCOMPARE(undo(history, 3), QColor(Qt::red));

    QCOMPARE(redo(history, 1), QColor(Qt::blue));
    QCOMPARE(redo(history, 0), QColor(Qt::cyan));
    QVERIFY(!history.canRedo());
}

void tst_UndoHistory_steps::redoStopsAtTheLastItem()
{
    const TemporaryHome home;
    UndoHistory history;
    insert_pages(history, {Qt::red, Qt::green, Qt::blue});
    QCOMPARE(undo(history, 2), QColor(Qt::red));

    QCOMPARE(redo(history, 9), QColor(Qt::blue));
    QCOMPARE(history.state(), UndoHistory::Redone);
}

void tst_UndoHistory_steps::redoAtTheEndReadsTheLastItemOnceMore()
{
    const TemporaryHome home;
    UndoHistory history;
    insert_pages(history, {Qt::red, Qt::green});
    QCOMPARE(undo(history, 1), QColor(Qt::red));
    QCOMPARE(redo(history), QColor(Qt::green));
    QVERIFY(!history.canRedo());
    const QString path = snapshot_path(home, u"00000002"_s);
    const DiagnosticLines diagnostics;

    QCOMPARE(redo(history), QColor(Qt::green));

    QCOMPARE(history.state(), UndoHistory::Redone);
    QCOMPARE(diagnostics.lines(),
             (QStringList{u"UndoHistory::redo - fatal - nothing to redo!!!"_s, u"UndoHistory::redo"_s,
                          "UndoHistoryItem::load n="_L1 + path + ", z=1, w=4, h=3"_L1,
                          u"UndoHistory::redo exit: chain items = 2"_s}));
}

void tst_UndoHistory_steps::redoAfterAnEditReadsTheNewestItemAndIsDone()
{
    const TemporaryHome home;
    UndoHistory history;
    insert_pages(history, {Qt::red, Qt::green});
    QVERIFY(!history.canRedo());

    QCOMPARE(redo(history), QColor(Qt::green));

    QCOMPARE(history.state(), UndoHistory::Redone);
}

void tst_UndoHistory_steps::redoOfAnEmptyChainFails()
{
    const TemporaryHome home;
    UndoHistory history;
    const DiagnosticLines diagnostics;

    QCOMPARE(redo(history), QColor());

    QCOMPARE(history.state(), UndoHistory::Empty);
    QCOMPARE(diagnostics.lines(),
             (QStringList{u"UndoHistory::redo - fatal - nothing to redo!!!"_s, u"UndoHistory::redo"_s,
                          u"UndoHistory::redo - error loading image!"_s}));
}

void tst_UndoHistory_steps::redoWithTheLargestCountStaysInPlace()
{
    const TemporaryHome home;
    UndoHistory history;
    insert_pages(history, {Qt::red, Qt::green, Qt::blue});
    QCOMPARE(undo(history, 2), QColor(Qt::red));

    QCOMPARE(redo(history, AllSteps), QColor(Qt::red));

    QCOMPARE(history.state(), UndoHistory::Redone);
}

void tst_UndoHistory_steps::undoWithTheLargestCountGoesToTheFirstItem()
{
    const TemporaryHome home;
    UndoHistory history;
    insert_pages(history, {Qt::red, Qt::green, Qt::blue});
    QCOMPARE(undo(history), QColor(Qt::blue));

    QCOMPARE(undo(history, AllSteps), QColor(Qt::red));
}

void tst_UndoHistory_steps::afterAnUndoRedoIsOfferedEvenAtTheEnd()
{
    const TemporaryHome home;
    UndoHistory history;
    insert_pages(history, {Qt::red});
    QCOMPARE(undo(history), QColor(Qt::red));

    QVERIFY(history.canRedo());
    QVERIFY(!history.canUndo());
    QCOMPARE(redo(history), QColor(Qt::red));
    QVERIFY(!history.canRedo());
    QVERIFY(history.canUndo());
}

void tst_UndoHistory_steps::nameOutputMayBeNull()
{
    const TemporaryHome home;
    UndoHistory history;
    insert_pages(history, {Qt::red, Qt::green});
    StepOutputs out;

    QVERIFY(history.undo(&out.image, &out.size, &out.zoom, 1, nullptr));
    QCOMPARE(out.color(), QColor(Qt::red));
    QVERIFY(history.redo(&out.image, &out.size, &out.zoom, 0, nullptr));
    QCOMPARE(out.color(), QColor(Qt::green));
    QVERIFY(history.rollback(&out.image, &out.size, &out.zoom, 0, nullptr));
    QCOMPARE(out.color(), QColor(Qt::red));
}

void tst_UndoHistory_steps::otherOutputsMustNotBeNull_data()
{
    QTest::addColumn<bool>("hasImage");
    QTest::addColumn<bool>("hasSize");
    QTest::addColumn<bool>("hasZoom");

    QTest::newRow("no image") << false << true << true;
    QTest::newRow("no size") << true << false << true;
    QTest::newRow("no zoom") << true << true << false;
}

void tst_UndoHistory_steps::otherOutputsMustNotBeNull()
{
    QFETCH(const bool, hasImage);
    QFETCH(const bool, hasSize);
    QFETCH(const bool, hasZoom);
    const TemporaryHome home;
    UndoHistory history;
    insert_pages(history, {Qt::red});
    StepOutputs out;
    QImage *const image = hasImage ? &out.image : nullptr;
    QSize *const size = hasSize ? &out.size : nullptr;
    double *const zoom = hasZoom ? &out.zoom : nullptr;
    const DiagnosticLines diagnostics;

    QVERIFY(!history.undo(image, size, zoom, 0, nullptr));
    QVERIFY(!history.redo(image, size, zoom, 0, nullptr));
    QVERIFY(!history.rollback(image, size, zoom, 0, nullptr));

    QCOMPARE(history.state(), UndoHistory::Edited);
    QCOMPARE(
        diagnostics.lines(),
        (QStringList{u"UndoHistory::undo - bad output parameter!!!"_s, u"UndoHistory::redo - bad output parameter!!!"_s,
                     u"UndoHistory::undo - bad output parameter!!!"_s, u"UndoHistory::rollback - error undoing!"_s}));
}

void tst_UndoHistory_steps::undoThatCannotReadStaysWhereItWas()
{
    const TemporaryHome home;
    UndoHistory history;
    insert_pages(history, {Qt::red, Qt::green, Qt::blue});
    const QString path = snapshot_path(home, u"00000001"_s);
    QVERIFY(QFile::remove(path));
    StepOutputs out{.image = page_of(Qt::cyan), .size = QSize(7, 7), .zoom = 3.0, .name = u"kept"_s};
    const DiagnosticLines diagnostics;

    QVERIFY(!history.undo(&out.image, &out.size, &out.zoom, 2, &out.name));

    QCOMPARE(history.state(), UndoHistory::Edited);
    QCOMPARE(out.color(), QColor(Qt::cyan));
    QCOMPARE(out.size, QSize(7, 7));
    QCOMPARE(out.zoom, 3.0);
    QCOMPARE(out.name, u"kept"_s);
    QCOMPARE(
        diagnostics.lines(),
        (QStringList{u"UndoHistory::undo"_s, u"UndoHistory::undo - inside loop"_s, u"UndoHistory::undo - inside loop"_s,
                     "UndoHistoryItem::load - error loading image "_L1 + path + u'!',
                     u"UndoHistory::undo - error loading image!"_s}));
    QCOMPARE(undo(history), QColor(Qt::blue));
}

void tst_UndoHistory_steps::redoThatCannotReadStaysWhereItWas()
{
    const TemporaryHome home;
    UndoHistory history;
    insert_pages(history, {Qt::red, Qt::green, Qt::blue});
    QCOMPARE(undo(history, 2), QColor(Qt::red));
    QVERIFY(QFile::remove(snapshot_path(home, u"00000003"_s)));
    const DiagnosticLines diagnostics;

    QCOMPARE(redo(history, 1), QColor());

    QCOMPARE(history.state(), UndoHistory::Undone);
    QVERIFY(!history.canUndo());
    QCOMPARE(diagnostics.lines().constLast(), u"UndoHistory::redo - error loading image!"_s);
    QCOMPARE(redo(history), QColor(Qt::green));
}

void tst_UndoHistory_steps::cutSnapshotIsAFailedStep()
{
    const TemporaryHome home;
    UndoHistory history;
    insert_pages(history, {Qt::red, Qt::green});
    QFile file(snapshot_path(home, u"00000002"_s));
    QVERIFY(file.resize(file.size() - 1));

    QCOMPARE(undo(history), QColor());

    QCOMPARE(history.state(), UndoHistory::Edited);
}

void tst_UndoHistory_steps::insertThatCannotWriteLeavesTheChainAlone()
{
    const TemporaryHome home;
    UndoHistory history;
    insert_pages(history, {Qt::red});
    const QString second = snapshot_path(home, u"00000001"_s).replace("00000001"_L1, "00000002"_L1);
    const DiagnosticLines diagnostics;

    {
        const FileSizeLimit limit(20);
        QVERIFY(!insert_page(history, Qt::green));
    }

    QCOMPARE(history.state(), UndoHistory::Edited);
    QCOMPARE(diagnostics.lines(),
             (QStringList{u"UndoHistory::freeRedo - no redo items"_s, u"UndoHistory::insert"_s, u"UndoHistoryItem"_s,
                          "UndoHistoryItem::save - error saving image "_L1 + second + u'!',
                          u"UndoHistory::insert - error saving file"_s}));
    QVERIFY(insert_page(history, Qt::blue)); // under the next number
    QCOMPARE(numbers_in(home), (QStringList{u"00000001"_s, u"00000002"_s, u"00000003"_s}));
    QCOMPARE(undo(history, 1), QColor(Qt::red));
}

void tst_UndoHistory_steps::fileThatIsGoneIsToldWhenItsItemGoes()
{
    const TemporaryHome home;
    auto history = std::make_unique<UndoHistory>();
    insert_pages(*history, {Qt::red, Qt::green});
    const QString path = snapshot_path(home, u"00000001"_s);
    QVERIFY(QFile::remove(path));
    const DiagnosticLines diagnostics;

    history.reset();

    QCOMPARE(diagnostics.lines(),
             (QStringList{u"~UndoHistoryItem"_s, "~UndoHistoryItem - error removing image "_L1 + path + u'!',
                          u"~UndoHistoryItem"_s}));
    QCOMPARE(home.filesIn(u"tmp"_s), QStringList());
}

QTEST_GUILESS_MAIN(tst_UndoHistory_steps)
#include "tst_UndoHistory_steps.moc"
