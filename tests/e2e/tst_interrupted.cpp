#include "end_signals.h"
#include "ImageManagerProgram.h"
#include "lost_display.h"
#include "pictures.h"
#include "StoppingProgram.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;
using State = Accessible::State;

/// The end comes in the middle of an edit or of a save.
class tst_interrupted : public QObject
{
    Q_OBJECT

private slots:
    void signalDuringASaveWaitsForItsEnd_data();
    void signalDuringASaveWaitsForItsEnd();
    void signalDuringAnEditWaitsForItsEnd_data();
    void signalDuringAnEditWaitsForItsEnd();
    void killDuringASaveLeavesTheOldFile();
    void displayThatGoesWhileNothingHappensLeavesTheFile();
    void displayThatGoesDuringASaveLeavesAWholeFile();
    void displayThatGoesDuringAnEditLeavesTheFile();
    void diskThatFillsDuringASnapshotCostsNothing();
    void diskThatFillsBehindALookForRoomIsToldAndTheEditGoesOn_data();
    void diskThatFillsBehindALookForRoomIsToldAndTheEditGoesOn();
    void diskThatCannotTellItsRoomCountsAsFull();
    void diskThatFillsDuringASaveTakesTheNewFileAllTheSame();
    void snapshotsOfAnEarlierRunInTheSameSecondStay();
    void programsOfTheSameSecondKeepTheirPastsApart();
};

void tst_interrupted::signalDuringASaveWaitsForItsEnd_data()
{
    add_end_signals();
}

void tst_interrupted::signalDuringASaveWaitsForItsEnd()
{
    QFETCH(const int, number);
    StoppingProgram stopping;
    QVERIFY(stopping.stopInASave());

    stopping.send(number);
    stopping.goOn();

    QCOMPARE(stopping.program.process().waitForEndBySignal(), number);
    QVERIFY(compare_pictures(page_of(stopping.path), inverted_page()));
    QCOMPARE(stopping.files(), QStringList{u"a.bmp"_s});
    QCOMPARE(stopping.snapshots(), QStringList());
}

void tst_interrupted::signalDuringAnEditWaitsForItsEnd_data()
{
    add_end_signals();
}

void tst_interrupted::signalDuringAnEditWaitsForItsEnd()
{
    QFETCH(const int, number);
    StoppingProgram stopping;
    QVERIFY(stopping.stopInAnEdit());
    QCOMPARE(stopping.snapshots().size(), 1);

    stopping.send(number);
    stopping.goOn();

    QCOMPARE(stopping.program.process().waitForEndBySignal(), number);
    QVERIFY(compare_pictures(page_of(stopping.path), patterned_page({100, 80})));
    QCOMPARE(stopping.snapshots(), QStringList());
}

void tst_interrupted::killDuringASaveLeavesTheOldFile()
{
    StoppingProgram stopping;
    QVERIFY(stopping.stopInASave());

    stopping.send(SIGKILL);

    QCOMPARE(stopping.program.process().waitForEndBySignal(), SIGKILL);
    QVERIFY(compare_pictures(page_of(stopping.path), patterned_page({100, 80})));
    QStringList others = stopping.files();
    QVERIFY(others.removeOne(u"a.bmp"_s));
    QCOMPARE(others.size(), 1);
    QVERIFY2(others.first().startsWith(u".imagemanager-"_s), qPrintable(others.first()));
}

void tst_interrupted::displayThatGoesWhileNothingHappensLeavesTheFile()
{
    StoppingProgram stopping;
    QVERIFY(stopping.program.open({stopping.path}));
    QVERIFY(stopping.program.invert());
    stopping.window = stopping.program.window();

    lose_display_of(stopping.window);

    QCOMPARE(stopping.program.process().waitForExit(), 1);
    QVERIFY(compare_pictures(page_of(stopping.path), patterned_page({100, 80})));
}

void tst_interrupted::displayThatGoesDuringASaveLeavesAWholeFile()
{
    StoppingProgram stopping;
    QVERIFY(stopping.stopInASave());

    lose_display_of(stopping.window);
    stopping.goOn();

    QCOMPARE(stopping.program.process().waitForExit(), 1);
    QVERIFY(compare_pictures(page_of(stopping.path), inverted_page())); // a save does not look at the display
    QCOMPARE(stopping.files(), QStringList{u"a.bmp"_s});
}

void tst_interrupted::displayThatGoesDuringAnEditLeavesTheFile()
{
    StoppingProgram stopping;
    QVERIFY(stopping.stopInAnEdit());

    lose_display_of(stopping.window);
    stopping.goOn();

    QCOMPARE(stopping.program.process().waitForExit(), 1);
    QVERIFY(compare_pictures(page_of(stopping.path), patterned_page({100, 80})));
    QCOMPARE(stopping.files(), QStringList{u"a.bmp"_s});
}

void tst_interrupted::diskThatFillsDuringASnapshotCostsNothing()
{
    StoppingProgram stopping;
    QVERIFY(stopping.stopInAnEdit());

    const DiskFiller filler(stopping.place.home());
    stopping.goOn();

    // Its room has been reserved before its first byte.
    QTRY_COMPARE_WITH_TIMEOUT(stopping.program.currentTab(), u"a.bmp*"_s, Program::patienceMs);
    QCOMPARE(stopping.snapshots().size(), 1);
    const QString snapshot = stopping.place.home() + "/tmp/"_L1 + stopping.snapshots().constFirst();
    QVERIFY(compare_pictures(page_of(snapshot), patterned_page({100, 80})));
}

void tst_interrupted::diskThatFillsBehindALookForRoomIsToldAndTheEditGoesOn_data()
{
    QTest::addColumn<int>("look");

    QTest::newRow("the one of the edit") << 1;
    QTest::newRow("the one of the snapshot, just before its file") << 2;
}

void tst_interrupted::diskThatFillsBehindALookForRoomIsToldAndTheEditGoesOn()
{
    QFETCH(const int, look);
    StoppingProgram stopping;
    QVERIFY(stopping.stopBehindALookForRoom(look));
    QCOMPARE(stopping.snapshots(), QStringList());
    const DiskFiller filler(stopping.place.home());

    stopping.goOn();

    const MessageBox box = stopping.program.answer(u"OK"_s);
    QCOMPARE(box.text, u"Error saving Undo/Redo information"_s);
    QTRY_COMPARE_WITH_TIMEOUT(stopping.program.currentTab(), u"a.bmp*"_s, Program::patienceMs);
    QVERIFY(!stopping.program.tool(u"Undo"_s).has(State::Enabled));
    QTRY_COMPARE(stopping.program.desktop().activeWindow(), stopping.window);
    stopping.program.desktop().pressKey("s", {"Control_L"});
    QTRY_COMPARE_WITH_TIMEOUT(stopping.program.currentTab(), u"a.bmp"_s, Program::patienceMs);
    QVERIFY(compare_pictures(page_of(stopping.path), inverted_page()));
}

void tst_interrupted::diskThatCannotTellItsRoomCountsAsFull()
{
    StoppingProgram program; // that does not stop
    program.program.process().setEnvironment(u"IM_NO_ROOM_TOLD"_s, u"yes"_s);
    QVERIFY(program.edit());
    Desktop &desktop = program.program.desktop();
    QTRY_COMPARE_WITH_TIMEOUT(desktop.title(desktop.activeWindow()), u"Warning"_s, Program::patienceMs);

    const MessageBox box = program.program.answer(u"No"_s);

    QCOMPARE(box.text, u"This operation cannot be undone or redone. Continue?"_s);
    QTRY_VERIFY(program.program.menuEntry(u"File"_s, u"Exit"_s).has(State::Enabled));
    QCOMPARE(program.program.currentTab(), u"a.bmp"_s);
    QCOMPARE(program.program.close(), 0);
    QVERIFY(program.program.process().errors().contains("statfs failed! Input/output error"_L1));
    QVERIFY(compare_pictures(page_of(program.path), patterned_page({100, 80})));
}

void tst_interrupted::diskThatFillsDuringASaveTakesTheNewFileAllTheSame()
{
    StoppingProgram stopping;
    QVERIFY(stopping.stopInASave());

    const DiskFiller filler(QFileInfo(stopping.path).path());
    stopping.goOn();

    // It is completed on the other disk, and the old one gives its room.
    QTRY_COMPARE_WITH_TIMEOUT(stopping.program.currentTab(), u"a.bmp"_s, Program::patienceMs);
    QVERIFY(compare_pictures(page_of(stopping.path), inverted_page()));
    QCOMPARE(stopping.files(), (QStringList{u"a.bmp"_s, u"filler"_s}));
    QCOMPARE(stopping.program.close(), 0);
    QCOMPARE(stopping.snapshots(), QStringList());
}

namespace {

constexpr auto Second = "1000000000"_L1;

/// A program for which it is always the same second.
class StandingClock
{
public:
    explicit StandingClock(const Place &place, const QString &executable = QStringLiteral(IM_PROGRAM)) :
        program(place, executable)
    {
        program.process().setEnvironment(u"LD_PRELOAD"_s, QStringLiteral(IM_SHIM));
        program.process().setEnvironment(u"IM_SECOND"_s, Second);
    }

    /// Undoes the last change, and saves.
    [[nodiscard]] bool undoAndSave()
    {
        const QString name = program.currentTab().chopped(1);
        const auto canRedo = [this] { return program.tool(u"Redo"_s).has(State::Enabled); };
        if (!program.tool(u"Undo"_s).press() || !QTest::qWaitFor(canRedo, Program::patienceMs))
            return false;
        program.desktop().pressKey("s", {"Control_L"});
        return QTest::qWaitFor([&] { return program.currentTab() == name; }, Program::patienceMs);
    }

    ImageManagerProgram program;
};

QStringList snapshots_of(const Place &place)
{
    return QDir(place.home() + "/tmp"_L1).entryList(QDir::Files);
}

} // namespace

void tst_interrupted::snapshotsOfAnEarlierRunInTheSameSecondStay()
{
    const Place place;
    {
        StandingClock earlier(place);
        QVERIFY(earlier.program.open({place.page(u"earlier.bmp"_s, {60, 50})}));
        QVERIFY(earlier.program.invert());
        ::kill(static_cast<pid_t>(earlier.program.process().processId()), SIGKILL);
        QCOMPARE(earlier.program.process().waitForEndBySignal(), SIGKILL);
    }
    const QStringList left = snapshots_of(place);
    QCOMPARE(left.size(), 1);
    QVERIFY2(left.first().startsWith(Second), qPrintable(left.first()));

    StandingClock later(place);
    const QString path = place.page(u"a.bmp"_s);
    QVERIFY(later.program.open({path}));
    QVERIFY(later.program.invert());
    QCOMPARE(snapshots_of(place).size(), 2);
    QVERIFY(later.undoAndSave());

    QVERIFY(compare_pictures(page_of(path), patterned_page({100, 80})));
    QCOMPARE(later.program.close(), 0);
    QCOMPARE(snapshots_of(place), left);
    QCOMPARE(QImage(place.home() + "/tmp/"_L1 + left.first()).size(), QSize(60, 50));
}

void tst_interrupted::programsOfTheSameSecondKeepTheirPastsApart()
{
    const Place place;
    const QString otherProgram = place.path(u"other"_s); // by another path it is another application
    QVERIFY(QFile::link(QStringLiteral(IM_PROGRAM), otherProgram));
    const QString firstPage = place.page(u"first.bmp"_s);
    const QString secondPage = place.page(u"second.bmp"_s, {60, 50});
    StandingClock first(place);
    QVERIFY(first.program.open({firstPage}));
    QVERIFY(first.program.invert());
    StandingClock second(place, otherProgram);
    QVERIFY(second.program.open({secondPage}));
    QVERIFY(second.program.invert());
    QCOMPARE(snapshots_of(place).size(), 2);

    QVERIFY(second.undoAndSave());
    QCOMPARE(second.program.close(), 0);
    QTRY_COMPARE(first.program.desktop().activeWindow(), first.program.window());
    QVERIFY(first.undoAndSave());

    QVERIFY(compare_pictures(page_of(firstPage), patterned_page({100, 80})));
    QVERIFY(compare_pictures(page_of(secondPage), patterned_page({60, 50})));
    QCOMPARE(first.program.close(), 0);
    QCOMPARE(snapshots_of(place), QStringList());
}

int main(int argc, char **argv)
{
    leave_common_mounts();
    const QCoreApplication application(argc, argv);
    tst_interrupted test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_interrupted.moc"
