#include "DiagnosticLines.h"
#include "history_steps.h"
#include "pictures.h"
#include "process_limits.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// A step as the history is told to make it, and the page that it has to lead to.
struct Step
{
    QColor (*run)(UndoHistory &history, uint count) = nullptr;
    uint count = 0;
    QColor page{};
};

} // namespace

class tst_UndoHistory_steps : public QObject
{
    Q_OBJECT

private slots:
    // Steps
    void undoBringsBackPageSizeZoomAndName()
    {
        FilledHistory history;
        QVERIFY(history.insert(patterned_page({9, 5}), QSize(72, 40), 8.0, u"turn"_s));
        const QString path = snapshot_path(history.home, u"00000001"_s);
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

    void undoTwiceAndRedoWalkTheChain()
    {
        FilledHistory history({Qt::red, Qt::green, Qt::blue});

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

    void stepsLeadToTheirPages_data()
    {
        QTest::addColumn<QList<QColor>>("pages");
        QTest::addColumn<QList<Step>>("steps");
        QTest::addColumn<UndoHistory::State>("state"); // after the last step
        QTest::addColumn<bool>("canRedo");

        const QColor red = Qt::red;
        const QColor green = Qt::green;
        const QColor blue = Qt::blue;
        const QColor cyan = Qt::cyan;
        const auto row = [](const char *name, const QList<QColor> &pages, const QList<Step> &steps,
                            UndoHistory::State state,
                            bool canRedo) { QTest::newRow(name) << pages << steps << state << canRedo; };
        row("undo without steps stays on the newest item after an edit", {red, green},
            {{undo, 0, green}, {undo, 0, red}}, UndoHistory::Undone, true);
        row("undo at the first item is refused", {red}, {{undo, 0, red}, {undo, 0, {}}}, UndoHistory::Undone, true);
        row("undo with the largest count goes to the first item", {red, green, blue},
            {{undo, 0, blue}, {undo, AllSteps, red}}, UndoHistory::Undone, true);
        row("redo moves one more than asked", {red, green, blue, cyan},
            {{undo, 3, red}, {redo, 1, blue}, {redo, 0, cyan}}, UndoHistory::Redone, false);
        row("redo stops at the last item", {red, green, blue}, {{undo, 2, red}, {redo, 9, blue}}, UndoHistory::Redone,
            false);
        row("redo reads the newest item after an edit and is done", {red, green}, {{redo, 0, green}},
            UndoHistory::Redone, false);
        row("redo with the largest count stays in place", {red, green, blue}, {{undo, 2, red}, {redo, AllSteps, red}},
            UndoHistory::Redone, true);
    }

    void stepsLeadToTheirPages()
    {
        QFETCH(const QList<QColor>, pages);
        QFETCH(const QList<Step>, steps);
        QFETCH(const UndoHistory::State, state);
        QFETCH(const bool, canRedo);
        FilledHistory history(pages);
        QVERIFY(!history.canRedo());

        for (const Step &step : steps)
            QCOMPARE(step.run(history, step.count), step.page);

        QCOMPARE(history.state(), state);
        QCOMPARE(history.canRedo(), canRedo);
    }

    void undoStopsAtTheFirstItem()
    {
        FilledHistory history({Qt::red, Qt::green, Qt::blue});
        const DiagnosticLines diagnostics;

        QCOMPARE(undo(history, 9), QColor(Qt::red));

        // Two moves, and the look that found the first item.
        QCOMPARE(diagnostics.lines().count(u"UndoHistory::undo - inside loop"_s), 3);
        QVERIFY(!history.canUndo());
    }

    void undoOfAnEmptyChainIsRefused()
    {
        FilledHistory history;
        const DiagnosticLines diagnostics;

        QCOMPARE(undo(history), QColor());

        QCOMPARE(history.state(), UndoHistory::Empty);
        QCOMPARE(diagnostics.lines(), QStringList{u"UndoHistory::undo - fatal - nothing to undo!!!"_s});
    }

    void redoAtTheEndReadsTheLastItemOnceMore()
    {
        FilledHistory history({Qt::red, Qt::green});
        QCOMPARE(undo(history, 1), QColor(Qt::red));
        QCOMPARE(redo(history), QColor(Qt::green));
        QVERIFY(!history.canRedo());
        const QString path = snapshot_path(history.home, u"00000002"_s);
        const DiagnosticLines diagnostics;

        QCOMPARE(redo(history), QColor(Qt::green));

        QCOMPARE(history.state(), UndoHistory::Redone);
        QCOMPARE(diagnostics.lines(),
                 (QStringList{u"UndoHistory::redo - fatal - nothing to redo!!!"_s, u"UndoHistory::redo"_s,
                              "UndoHistoryItem::load n="_L1 + path + ", z=1, w=4, h=3"_L1,
                              u"UndoHistory::redo exit: chain items = 2"_s}));
    }

    void redoOfAnEmptyChainFails()
    {
        FilledHistory history;
        const DiagnosticLines diagnostics;

        QCOMPARE(redo(history), QColor());

        QCOMPARE(history.state(), UndoHistory::Empty);
        QCOMPARE(diagnostics.lines(),
                 (QStringList{u"UndoHistory::redo - fatal - nothing to redo!!!"_s, u"UndoHistory::redo"_s,
                              u"UndoHistory::redo - error loading image!"_s}));
    }

    void afterAnUndoRedoIsOfferedEvenAtTheEnd()
    {
        FilledHistory history({Qt::red});
        QCOMPARE(undo(history), QColor(Qt::red));

        QVERIFY(history.canRedo());
        QVERIFY(!history.canUndo());
        QCOMPARE(redo(history), QColor(Qt::red));
        QVERIFY(!history.canRedo());
        QVERIFY(history.canUndo());
    }

    void nameOutputMayBeNull()
    {
        FilledHistory history({Qt::red, Qt::green});
        StepOutputs out;

        QVERIFY(history.undo(&out.image, &out.size, &out.zoom, 1, nullptr));
        QCOMPARE(out.color(), QColor(Qt::red));
        QVERIFY(history.redo(&out.image, &out.size, &out.zoom, 0, nullptr));
        QCOMPARE(out.color(), QColor(Qt::green));
        QVERIFY(history.rollback(&out.image, &out.size, &out.zoom, 0, nullptr));
        QCOMPARE(out.color(), QColor(Qt::red));
    }

    void otherOutputsMustNotBeNull_data()
    {
        QTest::addColumn<bool>("hasImage");
        QTest::addColumn<bool>("hasSize");
        QTest::addColumn<bool>("hasZoom");

        QTest::newRow("no image") << false << true << true;
        QTest::newRow("no size") << true << false << true;
        QTest::newRow("no zoom") << true << true << false;
    }

    void otherOutputsMustNotBeNull()
    {
        QFETCH(const bool, hasImage);
        QFETCH(const bool, hasSize);
        QFETCH(const bool, hasZoom);
        FilledHistory history({Qt::red});
        StepOutputs out;
        QImage *const image = hasImage ? &out.image : nullptr;
        QSize *const size = hasSize ? &out.size : nullptr;
        double *const zoom = hasZoom ? &out.zoom : nullptr;
        const DiagnosticLines diagnostics;

        QVERIFY(!history.undo(image, size, zoom, 0, nullptr));
        QVERIFY(!history.redo(image, size, zoom, 0, nullptr));
        QVERIFY(!history.rollback(image, size, zoom, 0, nullptr));

        QCOMPARE(history.state(), UndoHistory::Edited);
        QCOMPARE(diagnostics.lines(),
                 (QStringList{
                     u"UndoHistory::undo - bad output parameter!!!"_s, u"UndoHistory::redo - bad output parameter!!!"_s,
                     u"UndoHistory::undo - bad output parameter!!!"_s, u"UndoHistory::rollback - error undoing!"_s}));
    }

    // Failures
    void undoThatCannotReadStaysWhereItWas()
    {
        FilledHistory history({Qt::red, Qt::green, Qt::blue});
        const QString path = snapshot_path(history.home, u"00000001"_s);
        QVERIFY(QFile::remove(path));
        StepOutputs out{.image = page_of(Qt::cyan), .size = QSize(7, 7), .zoom = 3.0, .name = u"kept"_s};
        const DiagnosticLines diagnostics;

        QVERIFY(!history.undo(&out.image, &out.size, &out.zoom, 2, &out.name));

        QCOMPARE(history.state(), UndoHistory::Edited);
        QCOMPARE(out.color(), QColor(Qt::cyan));
        QCOMPARE(out.size, QSize(7, 7));
        QCOMPARE(out.zoom, 3.0);
        QCOMPARE(out.name, u"kept"_s);
        QCOMPARE(diagnostics.lines(),
                 (QStringList{u"UndoHistory::undo"_s, u"UndoHistory::undo - inside loop"_s,
                              u"UndoHistory::undo - inside loop"_s,
                              "UndoHistoryItem::load - error loading image "_L1 + path + u'!',
                              u"UndoHistory::undo - error loading image!"_s}));
        QCOMPARE(undo(history), QColor(Qt::blue));
    }

    void redoThatCannotReadStaysWhereItWas()
    {
        FilledHistory history({Qt::red, Qt::green, Qt::blue});
        QCOMPARE(undo(history, 2), QColor(Qt::red));
        QVERIFY(QFile::remove(snapshot_path(history.home, u"00000003"_s)));
        const DiagnosticLines diagnostics;

        QCOMPARE(redo(history, 1), QColor());

        QCOMPARE(history.state(), UndoHistory::Undone);
        QVERIFY(!history.canUndo());
        QCOMPARE(diagnostics.lines().constLast(), u"UndoHistory::redo - error loading image!"_s);
        QCOMPARE(redo(history), QColor(Qt::green));
    }

    void cutSnapshotIsAFailedStep()
    {
        FilledHistory history({Qt::red, Qt::green});
        QFile file(snapshot_path(history.home, u"00000002"_s));
        QVERIFY(file.resize(file.size() - 1));

        QCOMPARE(undo(history), QColor());

        QCOMPARE(history.state(), UndoHistory::Edited);
    }

    void insertThatCannotWriteLeavesTheChainAlone()
    {
        FilledHistory history({Qt::red});
        const QString second = snapshot_path(history.home, u"00000001"_s).replace("00000001"_L1, "00000002"_L1);
        const DiagnosticLines diagnostics;

        {
            const FileSizeLimit limit(20);
            QVERIFY(!insert_page(history, Qt::green));
        }

        QCOMPARE(history.state(), UndoHistory::Edited);
        QCOMPARE(diagnostics.lines(),
                 (QStringList{u"UndoHistory::freeRedo - no redo items"_s, u"UndoHistory::insert"_s,
                              u"UndoHistoryItem"_s, "UndoHistoryItem::save - error saving image "_L1 + second + u'!',
                              u"UndoHistory::insert - error saving file"_s}));
        QVERIFY(insert_page(history, Qt::blue)); // under the next number
        QCOMPARE(numbers_in(history.home), (QStringList{u"00000001"_s, u"00000002"_s, u"00000003"_s}));
        QCOMPARE(undo(history, 1), QColor(Qt::red));
    }

    void fileThatIsGoneIsToldWhenItsItemGoes()
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
};

QTEST_GUILESS_MAIN(tst_UndoHistory_steps)
#include "tst_UndoHistory_steps.moc"
