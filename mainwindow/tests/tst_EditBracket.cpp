#include "pictures.h"
#include "PlainWindow.h"
#include "TemporaryHome.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString saving = u"Saving Undo/Redo information..."_s;
const QString changing = u"Changing the image..."_s;

// How an edit begins, and how one ends that leaves something to undo.
const QStringList beginning{u"no history"_s, u"frozen"_s, u"events"_s, u"wait"_s,
                            saving,          u"events"_s, changing,    u"events"_s};
const QStringList ending{u"thawed"_s, u"can undo"_s, u"events"_s,   u"zoom"_s,
                         u"arrow"_s,  u"thawed"_s,   u"can undo"_s, u"events"_s};

} // namespace

/// The bracket around edits, without a window, when nothing comes in between.
class tst_EditBracket : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // The steps
    void anEditFreezesSavesRunsShowsAndThaws();
    void aFailedEditRollsThePageBack();
    void undoSavesThePresentPageFirstAndRedoReturnsToIt();
    void withoutATabNothingHappens();
    void aStepBackTellsTheCanvasTheSizeOfTheSnapshot();
    void aPageThatIsRefusedIsNotShown();

    // No snapshot
    void withoutRoomAndWithNoNothingChanges();
    void withoutRoomAndWithYesTheEditRunsAndCannotBeUndone();
    void aSnapshotThatFailsIsToldAndTheEditRuns();
    void undoOfAPageThatIsNotToBeSavedGoesToTheNewestSnapshot();

private:
    std::optional<TemporaryHome> home;
    std::optional<PlainWindow> window; ///< on page 1
};

void tst_EditBracket::init()
{
    home.emplace();
    window.emplace(page_of(1));
}

void tst_EditBracket::cleanup()
{
    window.reset();
    home.reset();
}

void tst_EditBracket::anEditFreezesSavesRunsShowsAndThaws()
{
    QStringList inside;
    qsizetype snapshots = 0;
    QVERIFY(window->bracket.run([&] {
        inside = window->takeLines();
        snapshots = home->filesIn(u"tmp"_s).size();
        return true;
    }));

    QCOMPARE(inside, beginning);
    QCOMPARE(snapshots, 1);
    QCOMPARE(window->takeLines(), QStringList{u"refresh"_s} + ending);
    QCOMPARE(window->rounds, 5);
}

void tst_EditBracket::aFailedEditRollsThePageBack()
{
    QVERIFY(!window->bracket.run([&] {
        window->takeLines();
        window->tab().image = page_of(9);
        return false;
    }));

    // Rolling back without a step back takes the whole past along.
    QCOMPARE(
        window->takeLines(),
        (QStringList{u"Rollback operation..."_s, u"events"_s, u"set page"_s, u"refresh"_s, u"canvas"_s, u"thawed"_s,
                     u"no history"_s, u"events"_s, u"zoom"_s, u"arrow"_s, u"thawed"_s, u"no history"_s, u"events"_s}));
    QCOMPARE(window->number(), 1);
    QCOMPARE(home->filesIn(u"tmp"_s), QStringList());
}

void tst_EditBracket::undoSavesThePresentPageFirstAndRedoReturnsToIt()
{
    QVERIFY(window->edit(page_of(2)));
    QVERIFY(window->edit(page_of(3)));
    window->takeLines();

    window->bracket.undo();

    QCOMPARE(window->takeLines(),
             (QStringList{u"no history"_s, u"frozen"_s, u"events"_s, u"busy"_s, saving, u"events"_s,
                          u"Undoing operation..."_s, u"events"_s, u"set page"_s, u"refresh"_s, u"canvas"_s, u"thawed"_s,
                          u"can undo and redo"_s, u"events"_s, u"zoom"_s, u"idle"_s}));
    QCOMPARE(window->number(), 2);
    QCOMPARE(home->filesIn(u"tmp"_s).size(), 3);

    window->bracket.redo();

    QCOMPARE(window->takeLines(),
             (QStringList{u"no history"_s, u"frozen"_s, u"events"_s, u"busy"_s, u"Redoing operation..."_s, u"events"_s,
                          u"set page"_s, u"refresh"_s, u"canvas"_s, u"thawed"_s, u"can undo"_s, u"events"_s, u"zoom"_s,
                          u"idle"_s}));
    QCOMPARE(window->number(), 3);

    window->bracket.undo();

    QVERIFY(!window->takeLines().contains(saving)); // it is on file already
    QCOMPARE(window->number(), 2);
}

void tst_EditBracket::withoutATabNothingHappens()
{
    QVERIFY(window->edit(page_of(2)));
    window->closeTab();
    window->takeLines();

    QVERIFY(!window->edit(page_of(3)));
    window->bracket.undo();
    window->bracket.redo();
    QVERIFY(!window->bracket.applyHistory(HistoryUndo, 0));

    QCOMPARE(window->takeLines(), QStringList());
    QVERIFY(window->history.canUndo());
}

void tst_EditBracket::aStepBackTellsTheCanvasTheSizeOfTheSnapshot()
{
    window->tab().canvasSize = QSize(10, 20); // of the picture on show, whatever the page is
    QVERIFY(window->edit(page_of(2)));
    window->closeTab();
    window->addTab(page_of(7));

    window->bracket.undo();

    QCOMPARE(window->tab().canvasSize, QSize(10, 20));
    QCOMPARE(window->number(), 1);
}

void tst_EditBracket::aPageThatIsRefusedIsNotShown()
{
    QVERIFY(window->edit(page_of(2)));
    window->refusesPages = true;
    window->takeLines();

    QVERIFY(!window->bracket.applyHistory(HistoryUndo, 0));

    QCOMPARE(window->takeLines(), QStringList{u"set page"_s});
}

void tst_EditBracket::withoutRoomAndWithNoNothingChanges()
{
    qputenv("HOME", FullDisk);
    window->goesOnWithoutUndo = false;

    QVERIFY(!window->edit(page_of(2)));

    QCOMPARE(window->takeLines(),
             (QStringList{u"no history"_s, u"frozen"_s, u"events"_s, u"wait"_s, saving, u"events"_s, u"question"_s,
                          u"arrow"_s, u"thawed"_s, u"no history"_s, u"events"_s}));
    QCOMPARE(window->number(), 1);
    QCOMPARE(window->history.state(), UndoHistory::Empty);
}

void tst_EditBracket::withoutRoomAndWithYesTheEditRunsAndCannotBeUndone()
{
    qputenv("HOME", FullDisk);

    QVERIFY(window->edit(page_of(2)));

    QCOMPARE(window->number(), 2);
    QCOMPARE(window->takeLines().count(u"no history"_s), 3); // frozen, and thawed twice
    QCOMPARE(window->history.state(), UndoHistory::Empty);
}

void tst_EditBracket::aSnapshotThatFailsIsToldAndTheEditRuns()
{
    // Room is looked for in the home of the moment; the snapshots go where the home was at first.
    const QTemporaryDir otherHome;
    qputenv("HOME", otherHome.path().toLocal8Bit());
    QVERIFY(QDir(home->filePath(u"tmp"_s)).removeRecursively());

    QVERIFY(window->edit(page_of(2)));

    QCOMPARE(window->number(), 2);
    const QStringList lines = window->takeLines();
    QCOMPARE(lines.mid(4, 4), (QStringList{saving, u"events"_s, u"snapshot failed"_s, changing}));
    QVERIFY(!lines.contains(u"can undo"_s));
}

void tst_EditBracket::undoOfAPageThatIsNotToBeSavedGoesToTheNewestSnapshot()
{
    QVERIFY(window->edit(page_of(2)));
    QVERIFY(window->edit(page_of(3)));
    qputenv("HOME", FullDisk);
    window->goesOnWithoutUndo = false;

    window->bracket.undo();

    QCOMPARE(window->number(), 2); // as it was before the last edit
    QCOMPARE(home->filesIn(u"tmp"_s).size(), 2);
}

QTEST_GUILESS_MAIN(tst_EditBracket)
#include "tst_EditBracket.moc"
