#include "DiagnosticLines.h"
#include "history_steps.h"
#include "pictures.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <cstddef>
#include <ctime>
#include <malloc.h>

#if defined(__SANITIZE_ADDRESS__)
// Offered by the sanitizer, but not in every compiler's headers.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

using namespace Qt::StringLiterals;

namespace {

/// Bytes that the process has asked for and not given back.
qint64 heap_bytes_in_use()
{
#if defined(__SANITIZE_ADDRESS__)
    return static_cast<qint64>(__sanitizer_get_current_allocated_bytes());
#else
    const struct mallinfo2 info = mallinfo2();
    return static_cast<qint64>(info.uordblks) + static_cast<qint64>(info.hblkhd);
#endif
}

} // namespace

class tst_UndoHistory : public QObject
{
    Q_OBJECT

private slots:
    // Construction and insert
    void freshChainHasNothingToUndoOrRedo()
    {
        const TemporaryHome home;
        const UndoHistory history;

        QCOMPARE(history.state(), UndoHistory::Empty);
        QVERIFY(!history.canUndo());
        QVERIFY(!history.canRedo());
        QCOMPARE(home.filesIn(u"tmp"_s), QStringList());
    }

    void firstInsertWritesFileNumberOne()
    {
        FilledHistory history;
        const DiagnosticLines diagnostics;

        QVERIFY(history.insert(page_of(Qt::red), QSize(40, 30), 0.5, u"operation"_s));

        QCOMPARE(history.state(), UndoHistory::Edited);
        QVERIFY(history.canUndo());
        QVERIFY(!history.canRedo());
        QCOMPARE(numbers_in(history.home), QStringList{u"00000001"_s});
        const QString path = snapshot_path(history.home, u"00000001"_s);
        QVERIFY(compare_pictures(QImage(path), page_of(Qt::red)));
        QCOMPARE(diagnostics.lines(),
                 (QStringList{u"UndoHistory::freeRedo - no redo items"_s, u"UndoHistory::insert"_s,
                              u"UndoHistoryItem"_s, "UndoHistoryItem::save n="_L1 + path + ", z=0.5, w=40, h=30"_L1,
                              u"UndoHistory::insert exit: chain items = 1"_s}));
    }

    void fileNamesBeginWithTheSecondOfTheConstruction()
    {
        const TemporaryHome home;
        // The clock of the history: a finer one may be a second ahead for a moment.
        const std::time_t before = std::time(nullptr);
        UndoHistory history;
        const std::time_t after = std::time(nullptr);

        insert_pages(history, {Qt::red});

        const QString name = home.filesIn(u"tmp"_s).value(0);
        const qint64 second = name.chopped(12).toLongLong();
        QVERIFY(before <= second && second <= after);
        QCOMPARE(name, QString::number(second) + "00000001.bmp"_L1);
    }

    void numbersCountOnInHexadecimalAndAreNotUsedAgain()
    {
        FilledHistory history(QList<QColor>(10, Qt::red));
        QCOMPARE(numbers_in(history.home).constLast(), u"0000000A"_s);

        QCOMPARE(rollback(history), QColor(Qt::red)); // all files are gone
        insert_pages(history, {Qt::green, Qt::blue}); // and the first insert writes none

        QCOMPARE(numbers_in(history.home), QStringList{u"0000000B"_s});
    }

    void insertWithoutANameIsRefused()
    {
        FilledHistory history;
        const DiagnosticLines diagnostics;

        QVERIFY(!history.insert(page_of(Qt::red), PageSize, 1.0, QString()));

        QCOMPARE(history.state(), UndoHistory::Empty);
        QCOMPARE(history.home.filesIn(u"tmp"_s), QStringList());
        QCOMPARE(diagnostics.lines(),
                 (QStringList{u"UndoHistory::freeRedo - no redo items"_s,
                              u"UndoHistory::insert - no operation name given!"_s}));
    }

    void insertOfANullImageIsRefused()
    {
        FilledHistory history;

        QVERIFY(!history.insert(QImage(), PageSize, 1.0, u"operation"_s));

        QVERIFY(!history.canUndo());
        QCOMPARE(history.home.filesIn(u"tmp"_s), QStringList());
    }

    void snapshotsAreKeptOnDiskAndNotInMemory()
    {
        FilledHistory history;
        const QImage page = patterned_page({400, 300});
        QVERIFY(history.insert(page, page.size(), 1.0, u"operation"_s));
        const qint64 before = heap_bytes_in_use();
        QVERIFY(before > page.sizeInBytes()); // the count sees pages

        for (int i = 0; i < 100; ++i)
            QVERIFY(history.insert(page, page.size(), 1.0, u"operation"_s));

        QVERIFY(heap_bytes_in_use() - before < qint64{1024} * 1024);
    }

    void destructionDeletesAllFiles()
    {
        const TemporaryHome home;
        {
            UndoHistory history;
            insert_pages(history, {Qt::red, Qt::green});
            QCOMPARE(home.filesIn(u"tmp"_s).size(), 2);
        }

        QCOMPARE(home.filesIn(u"tmp"_s), QStringList());
    }

    // Insert after a step
    void insertAfterUndoDropsWhatLayAheadAndWritesNoFile()
    {
        FilledHistory history({Qt::red, Qt::green, Qt::blue});
        QCOMPARE(undo(history, 1), QColor(Qt::green));
        const DiagnosticLines diagnostics;

        QVERIFY(insert_page(history, Qt::green));

        QCOMPARE(history.state(), UndoHistory::Edited);
        QCOMPARE(numbers_in(history.home), (QStringList{u"00000001"_s, u"00000002"_s}));
        QCOMPARE(diagnostics.lines(),
                 (QStringList{u"~UndoHistoryItem"_s, u"UndoHistory::freeRedo exit: chain items = 2"_s}));
        QCOMPARE(undo(history), QColor(Qt::green));
    }

    void insertAfterRedoDropsWhatLayAheadAndWritesNoFile()
    {
        FilledHistory history({Qt::red, Qt::green, Qt::blue});
        QCOMPARE(undo(history, 2), QColor(Qt::red));
        QCOMPARE(redo(history), QColor(Qt::green));

        QVERIFY(insert_page(history, Qt::green));

        QCOMPARE(history.state(), UndoHistory::Edited);
        QCOMPARE(numbers_in(history.home), (QStringList{u"00000001"_s, u"00000002"_s}));
    }

    void insertAfterUndoNeedsNoNameAndNoRoom()
    {
        FilledHistory history({Qt::red, Qt::green});
        QCOMPARE(undo(history, 1), QColor(Qt::red));
        QVERIFY(QDir(history.home.filePath(u"tmp"_s)).removeRecursively());

        QVERIFY(history.insert(QImage(), QSize(), 1.0, QString()));

        QCOMPARE(history.state(), UndoHistory::Edited);
        QVERIFY(!QFile::exists(history.home.filePath(u"tmp"_s)));
    }

    void insertAfterUndoOfNoStepsDeletesTheWholeChain()
    {
        FilledHistory history({Qt::red, Qt::green, Qt::blue});
        QCOMPARE(undo(history), QColor(Qt::blue)); // which is the last item, so nothing lies ahead

        QVERIFY(insert_page(history, Qt::blue));

        QCOMPARE(history.state(), UndoHistory::Edited);
        QVERIFY(!history.canUndo());
        QCOMPARE(history.home.filesIn(u"tmp"_s), QStringList());
    }

    // Rollback
    void rollbackAfterAnEditDeletesTheWholeChain()
    {
        FilledHistory history({Qt::red, Qt::green, Qt::blue});
        const QString path = snapshot_path(history.home, u"00000003"_s);
        const DiagnosticLines diagnostics;

        QCOMPARE(rollback(history), QColor(Qt::blue));

        QCOMPARE(history.state(), UndoHistory::Undone);
        QVERIFY(!history.canUndo());
        QVERIFY(!history.canRedo());
        QCOMPARE(history.home.filesIn(u"tmp"_s), QStringList());
        QCOMPARE(
            diagnostics.lines(),
            (QStringList{u"UndoHistory::undo"_s, "UndoHistoryItem::load n="_L1 + path + ", z=1, w=4, h=3"_L1,
                         u"UndoHistory::undo exit: chain items = 3"_s, u"~UndoHistoryItem"_s, u"~UndoHistoryItem"_s,
                         u"~UndoHistoryItem"_s, u"UndoHistory::freeRedo exit: chain items = 0"_s,
                         u"UndoHistory::rollback exit: chain items = 0"_s}));
    }

    void insertAfterARollbackWritesNothingAndTheNextOneDoes()
    {
        FilledHistory history({Qt::red, Qt::green});
        QCOMPARE(rollback(history), QColor(Qt::green));

        QVERIFY(insert_page(history, Qt::green));
        QCOMPARE(history.state(), UndoHistory::Edited);
        QVERIFY(!history.canUndo());
        QCOMPARE(history.home.filesIn(u"tmp"_s), QStringList());

        QVERIFY(insert_page(history, Qt::blue));
        QVERIFY(history.canUndo());
        QCOMPARE(numbers_in(history.home), QStringList{u"00000003"_s});
    }

    void rollbackByStepsKeepsWhatLiesBefore()
    {
        FilledHistory history({Qt::red, Qt::green, Qt::blue});

        QCOMPARE(rollback(history, 1), QColor(Qt::green));

        QCOMPARE(history.state(), UndoHistory::Undone);
        QVERIFY(history.canUndo());
        QCOMPARE(numbers_in(history.home), (QStringList{u"00000001"_s, u"00000002"_s}));
    }

    void failedRollbackKeepsTheChain()
    {
        FilledHistory history({Qt::red, Qt::green});
        QVERIFY(QFile::remove(snapshot_path(history.home, u"00000002"_s)));
        const DiagnosticLines diagnostics;

        QCOMPARE(rollback(history), QColor());

        QCOMPARE(history.state(), UndoHistory::Edited);
        QCOMPARE(diagnostics.lines().constLast(), u"UndoHistory::rollback - error undoing!"_s);
        QCOMPARE(undo(history, 1), QColor(Qt::red));
    }

    void freeRedoWithoutItemsAheadOnlyLogs()
    {
        FilledHistory history({Qt::red, Qt::green});
        const DiagnosticLines diagnostics;

        history.freeRedo();

        QCOMPARE(diagnostics.lines(), QStringList{u"UndoHistory::freeRedo - no redo items"_s});
        QCOMPARE(history.home.filesIn(u"tmp"_s).size(), 2);
    }
};

QTEST_GUILESS_MAIN(tst_UndoHistory)
#include "tst_UndoHistory.moc"
