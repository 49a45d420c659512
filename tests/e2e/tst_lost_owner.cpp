#include "ImageManagerProgram.h"
#include "SingleInstanceTest.h"

#include <QFile>
#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;

/// The program that a later start talks to goes between the look-up and the message.
class tst_lost_owner : public SingleInstanceTest
{
    Q_OBJECT

private slots:
    void ownerThatIsKilledBehindTheLookUpCostsTheMessageAlone();
};

namespace {

bool is_stopped(qint64 process)
{
    QFile status(u"/proc/%1/stat"_s.arg(process));
    return status.open(QIODevice::ReadOnly) && status.readLine().contains(") T ");
}

} // namespace

void tst_lost_owner::ownerThatIsKilledBehindTheLookUpCostsTheMessageAlone()
{
    const Place place;
    const QString scan = place.page(u"scan.bmp"_s);
    ImageManagerProgram first(place);
    QVERIFY(first.open({place.page(u"a.bmp"_s)}));
    Program later(QStringLiteral(IM_PROGRAM));
    later.setHome(place.home());
    later.setEnvironment(u"LD_PRELOAD"_s, QStringLiteral(IM_SHIM));
    later.setEnvironment(u"IM_STOP_BEHIND_LOOK_UP"_s, u"yes"_s);
    QVERIFY(later.start({u"-t"_s, scan}));
    QTRY_VERIFY_WITH_TIMEOUT(is_stopped(later.processId()), Program::patienceMs);

    QCOMPARE(::kill(static_cast<pid_t>(first.process().processId()), SIGKILL), 0);
    QTRY_COMPARE(owner(), XWindowId{0});
    QCOMPARE(::kill(static_cast<pid_t>(later.processId()), SIGCONT), 0);

    QCOMPARE(later.waitForExit(), 0);
    QVERIFY(QFile::exists(scan)); // it has not been shown
    ImageManagerProgram next(place);
    QVERIFY(next.open({scan}));
    QCOMPARE(next.close(), 0);
}

QTEST_GUILESS_MAIN(tst_lost_owner)
#include "tst_lost_owner.moc"
