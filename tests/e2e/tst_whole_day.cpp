#include "DeskWork.h"
#include "image_files.h"
#include "SingleInstanceTest.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

/// A day of work in one program, as a person at the screen and later starts do it.
class tst_whole_day : public SingleInstanceTest
{
    Q_OBJECT

private slots:
    void eachCommandOnceIsAnOrdinarySession();
    void dayOfCommandsLeavesNothing();

private:
    [[nodiscard]] DeskWork::Senders senders()
    {
        return {.laterStart = [](const Place &place, const QString &path) { return startAgain(place, {path}) == 0; },
                .message = [this](const QString &path) { writeMessage("imagemanager:" + path.toUtf8()); }};
    }
};

namespace {

constexpr qint64 KiB = 1024;
constexpr qint64 CachedBytes = 12 * KiB * KiB; ///< the toolkit's pictures of controls, at most 10 MiB, and other caches
constexpr qint64 BytesOfACommand = KiB / 2; ///< more than history and heap keep of one

/// What a program holds of its machine.
struct Held
{
    explicit Held(qint64 process)
    {
        QFile status(u"/proc/%1/status"_s.arg(process));
        if (!status.open(QIODevice::ReadOnly))
            qFatal("Held - the program has gone");
        const QByteArray lines = status.readAll();
        memory = lines.mid(lines.indexOf("VmRSS:") + 6).simplified().split(' ').first().toLongLong() * KiB;
        const QDir folder(u"/proc/%1/fd"_s.arg(process));
        descriptors = folder.entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size();
    }

    qint64 memory = 0; ///< bytes
    qsizetype descriptors = 0;
};

} // namespace

void tst_whole_day::eachCommandOnceIsAnOrdinarySession()
{
    DeskWork day(12, senders());

    QVERIFY2(day.begin() && day.doEach() && day.closeAllTabs(), qPrintable(day.problem()));

    QCOMPARE(day.program.close(), 0);
    QCOMPARE(day.place.snapshots(), QStringList());
}

void tst_whole_day::dayOfCommandsLeavesNothing()
{
    const int commands = qEnvironmentVariableIsSet("IM_TEST_WHOLE_DAY") ? 8000 : 300;
    DeskWork day(200, senders());
    QVERIFY2(day.begin() && day.doEach() && day.work(commands / 10) && day.closeAllTabs(), qPrintable(day.problem()));
    const Held before(day.program.process().processId());

    QVERIFY2(day.work(commands - commands / 10) && day.closeAllTabs(), qPrintable(day.problem()));

    const Held after(day.program.process().processId());
    const qint64 most = (CachedBytes + commands * BytesOfACommand) * MeasureAllowance;
    QVERIFY2(after.memory - before.memory < most, qPrintable(QString::number(after.memory - before.memory)));
    QCOMPARE(after.descriptors, before.descriptors);
    QVERIFY(day.place.snapshots().size() <= day.edits()); // the past of the window lasts as long as the window
    QCOMPARE(day.program.close(), 0);
    QCOMPARE(day.place.snapshots(), QStringList());
    const QDir home(day.place.home());
    QCOMPARE(home.entryList({u".imagemanager-*"_s}, QDir::Files | QDir::Hidden), QStringList());
}

QTEST_GUILESS_MAIN(tst_whole_day)
#include "tst_whole_day.moc"
