#include "pictures.h"
#include "PlainWindow.h"
#include "TemporaryHome.h"

#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

/// What comes in between when the bracket of an edit lets events through: three rounds of events before the operation,
/// two behind it, and one more before the page is brought back.
class tst_EditBracket_meanwhile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // The tab has gone
    void anEditIsOffOnceItsTabHasGone_data();
    void anEditIsOffOnceItsTabHasGone();
    void anEditIsOffIfItsTabGoesDuringTheQuestion();
    void aTabMayGoBeforeTheRollback();
    void aTabMayGoBeforeAStepBack_data();
    void aTabMayGoBeforeAStepBack();
    void atTheEndOfAnEditTheLastTabMayGo();

    // A file of another start
    void messagesAreHeldUntilTheWindowThaws_data();
    void messagesAreHeldUntilTheWindowThaws();
    void aMessageBehindTheThawIsNotHeld();
    void messagesAreOpenedOneAfterTheOther();

    // The window is to be closed
    void aCloseIsHeldUntilTheEditHasEnded_data();
    void aCloseIsHeldUntilTheEditHasEnded();
    void aCloseIsHeldUntilAStepBackHasEnded();
    void aCloseIsHeldByAnEditThatIsOff();
    void aCloseBehindTheThawIsNotHeld();
    void aMessageTakesTheCloseBack_data();
    void aMessageTakesTheCloseBack();

    // Another edit
    void anEditMayBeginWhileAnotherEnds();

private:
    /// Does something in one round of events from now on.
    void inRound(int round, const std::function<void()> &work);

    std::optional<TemporaryHome> home;
    std::optional<PlainWindow> window; ///< on page 1
};

void tst_EditBracket_meanwhile::init()
{
    home.emplace();
    window.emplace(page_of(1));
}

void tst_EditBracket_meanwhile::cleanup()
{
    window.reset();
    home.reset();
}

void tst_EditBracket_meanwhile::inRound(int round, const std::function<void()> &work)
{
    window->rounds = 0;
    window->meanwhile = [round, work](int now) {
        if (now == round)
            work();
    };
}

void tst_EditBracket_meanwhile::anEditIsOffOnceItsTabHasGone_data()
{
    QTest::addColumn<int>("round");
    QTest::addColumn<bool>("hasOther"); // tab behind it

    for (int round = 1; round <= 3; ++round) {
        QTest::addRow("the last tab, round %d", round) << round << false;
        QTest::addRow("one of two tabs, round %d", round) << round << true;
    }
}

void tst_EditBracket_meanwhile::anEditIsOffOnceItsTabHasGone()
{
    QFETCH(const int, round);
    QFETCH(const bool, hasOther);
    if (hasOther)
        window->addTab(page_of(7));
    inRound(round, [&] { window->closeTab(); });

    QVERIFY(!window->edit(page_of(2)));

    QVERIFY(!window->takeLines().contains(u"operation"_s));
    QVERIFY(!window->isFrozen);
    QVERIFY(!window->isWaiting);
    if (hasOther)
        QCOMPARE(window->number(), 7);
}

void tst_EditBracket_meanwhile::anEditIsOffIfItsTabGoesDuringTheQuestion()
{
    qputenv("HOME", FullDisk);
    window->addTab(page_of(7));
    window->duringBox = [&] { window->closeTab(); };

    QVERIFY(!window->edit(page_of(2)));

    QCOMPARE(window->number(), 7);
    QVERIFY(!window->isFrozen);
}

void tst_EditBracket_meanwhile::aTabMayGoBeforeTheRollback()
{
    inRound(4, [&] { window->closeTab(); });

    QVERIFY(!window->failToEdit());

    const QStringList lines = window->takeLines();
    QVERIFY(!lines.contains(u"set page"_s));
    QCOMPARE(lines.constLast(), u"events"_s);
    QVERIFY(!window->isFrozen);
    QVERIFY(window->history.canUndo()); // nothing was rolled back
    QVERIFY(!lines.contains(u"can undo"_s)); // but there is no tab to undo it in
}

void tst_EditBracket_meanwhile::aTabMayGoBeforeAStepBack_data()
{
    QTest::addColumn<int>("round");
    QTest::addColumn<bool>("isUndone"); // one edit already

    for (int round = 1; round <= 3; ++round) // there is one more where the page is saved first
        QTest::addRow("after an edit, round %d", round) << round << false;
    for (int round = 1; round <= 2; ++round)
        QTest::addRow("after an undo, round %d", round) << round << true;
}

void tst_EditBracket_meanwhile::aTabMayGoBeforeAStepBack()
{
    QFETCH(const int, round);
    QFETCH(const bool, isUndone);
    QVERIFY(window->edit(page_of(2)));
    QVERIFY(window->edit(page_of(3)));
    if (isUndone)
        window->bracket.undo();
    window->takeLines();
    inRound(round, [&] { window->closeTab(); });

    window->bracket.undo();

    const QStringList lines = window->takeLines();
    QVERIFY(!lines.contains(u"set page"_s));
    QCOMPARE(lines.filter(u"can "_s), QStringList());
    QCOMPARE(lines.constLast(), u"idle"_s);
    QVERIFY(!window->isFrozen);
    QVERIFY(window->history.canUndo());
    QCOMPARE(window->history.canRedo(), isUndone);
}

void tst_EditBracket_meanwhile::atTheEndOfAnEditTheLastTabMayGo()
{
    inRound(4, [&] { window->closeTab(); });

    QVERIFY(window->edit(page_of(2)));

    // The first thaw still has the tab, the second one has not.
    const QStringList lines = window->takeLines();
    QCOMPARE(lines.mid(lines.indexOf(u"thawed"_s)),
             (QStringList{u"thawed"_s, u"can undo"_s, u"events"_s, u"zoom"_s, u"arrow"_s, u"thawed"_s, u"no history"_s,
                          u"events"_s}));
}

void tst_EditBracket_meanwhile::messagesAreHeldUntilTheWindowThaws_data()
{
    QTest::addColumn<int>("round");

    for (int round = 1; round <= 3; ++round)
        QTest::addRow("round %d", round) << round;
}

void tst_EditBracket_meanwhile::messagesAreHeldUntilTheWindowThaws()
{
    QFETCH(const int, round);
    inRound(round, [&] { QVERIFY(window->bracket.holdsMessage(u"file"_s)); });

    QVERIFY(window->edit(page_of(2)));

    const QStringList lines = window->takeLines();
    QCOMPARE(lines.count(u"open file"_s), 1);
    // Behind the first round of events of the window that is open again.
    QCOMPARE(lines.indexOf(u"open file"_s), lines.indexOf(u"thawed"_s) + 3);
    QVERIFY(lines.indexOf(u"operation"_s) < lines.indexOf(u"open file"_s));
}

void tst_EditBracket_meanwhile::aMessageBehindTheThawIsNotHeld()
{
    QVERIFY(!window->bracket.holdsMessage(u"before"_s));
    inRound(4, [&] { QVERIFY(!window->bracket.holdsMessage(u"behind"_s)); });

    QVERIFY(window->edit(page_of(2)));

    QCOMPARE(window->takeLines().filter(u"open "_s), QStringList());
}

void tst_EditBracket_meanwhile::messagesAreOpenedOneAfterTheOther()
{
    inRound(2, [&] {
        QVERIFY(window->bracket.holdsMessage(u"one"_s));
        QVERIFY(window->bracket.holdsMessage(u"two"_s));
    });

    QVERIFY(window->edit(page_of(2)));

    // A file that opens thaws the window as well, which does not open the next one in the middle of it.
    QCOMPARE(window->takeLines().filter(u"open"_s),
             (QStringList{u"open one"_s, u"opened one"_s, u"open two"_s, u"opened two"_s}));
}

void tst_EditBracket_meanwhile::aCloseIsHeldUntilTheEditHasEnded_data()
{
    messagesAreHeldUntilTheWindowThaws_data();
}

void tst_EditBracket_meanwhile::aCloseIsHeldUntilTheEditHasEnded()
{
    QFETCH(const int, round);
    inRound(round, [&] { QVERIFY(window->bracket.holdsClose()); });

    QVERIFY(window->edit(page_of(2)));

    const QStringList lines = window->takeLines();
    QCOMPARE(lines.count(u"close"_s), 1);
    QCOMPARE(lines.constLast(), u"close"_s);
    QVERIFY(window->edit(page_of(3)));
    QVERIFY(!window->takeLines().contains(u"close"_s)); // once is enough
}

void tst_EditBracket_meanwhile::aCloseIsHeldUntilAStepBackHasEnded()
{
    QVERIFY(window->edit(page_of(2)));
    window->takeLines();
    inRound(1, [&] { QVERIFY(window->bracket.holdsClose()); });

    window->bracket.undo();

    const QStringList lines = window->takeLines();
    QCOMPARE(lines.count(u"close"_s), 1);
    QVERIFY(lines.indexOf(u"close"_s) > lines.indexOf(u"thawed"_s));
    QCOMPARE(window->number(), 1);
}

void tst_EditBracket_meanwhile::aCloseIsHeldByAnEditThatIsOff()
{
    qputenv("HOME", FullDisk);
    window->goesOnWithoutUndo = false;
    window->duringBox = [&] { QVERIFY(window->bracket.holdsClose()); };

    QVERIFY(!window->edit(page_of(2)));

    QCOMPARE(window->takeLines().constLast(), u"close"_s);
}

void tst_EditBracket_meanwhile::aCloseBehindTheThawIsNotHeld()
{
    QVERIFY(!window->bracket.holdsClose());
    inRound(4, [&] { QVERIFY(!window->bracket.holdsClose()); });

    QVERIFY(window->edit(page_of(2)));

    QVERIFY(!window->takeLines().contains(u"close"_s));
}

void tst_EditBracket_meanwhile::aMessageTakesTheCloseBack_data()
{
    QTest::addColumn<bool>("closeComesFirst");

    QTest::newRow("close, then the file") << true;
    QTest::newRow("file, then the close") << false;
}

void tst_EditBracket_meanwhile::aMessageTakesTheCloseBack()
{
    QFETCH(const bool, closeComesFirst);
    inRound(2, [&] {
        if (closeComesFirst)
            QVERIFY(window->bracket.holdsClose());
        QVERIFY(window->bracket.holdsMessage(u"file"_s));
        if (!closeComesFirst)
            QVERIFY(window->bracket.holdsClose());
    });

    QVERIFY(window->edit(page_of(2)));

    const QStringList lines = window->takeLines();
    QVERIFY(lines.contains(u"open file"_s));
    QVERIFY(!lines.contains(u"close"_s));
}

void tst_EditBracket_meanwhile::anEditMayBeginWhileAnotherEnds()
{
    inRound(4, [&] { QVERIFY(window->edit(page_of(3))); });

    QVERIFY(window->edit(page_of(2)));

    QCOMPARE(window->number(), 3);
    QVERIFY(!window->isFrozen);
    QVERIFY(!window->isWaiting);
    QCOMPARE(home->filesIn(u"tmp"_s).size(), 2);
    window->bracket.undo();
    QCOMPARE(window->number(), 2);
}

QTEST_GUILESS_MAIN(tst_EditBracket_meanwhile)
#include "tst_EditBracket_meanwhile.moc"
