#include "UploadTrial.h"

#include <sys/resource.h>

using namespace Qt::StringLiterals;

// A program of its own, as it is long: it waits, and uses nothing.

namespace {

constexpr auto silence = std::chrono::seconds(95);

qint64 used_milliseconds()
{
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto milliseconds = [](const timeval &time) { return qint64{time.tv_sec} * 1000 + time.tv_usec / 1000; };
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

/// The time passes in the event loop, without being looked at.
void pass(std::chrono::milliseconds time)
{
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

class tst_ftp_silence : public QObject
{
    Q_OBJECT

private slots:
    void silenceAfterTheDataIsWaitedOut()
    {
        UploadTrial trial;
        trial.server->say("end", {});
        trial.upload(true);
        QTRY_VERIFY(trial.server->hasDataEnded());
        const qint64 usedBefore = used_milliseconds();

        pass(silence);

        QVERIFY(used_milliseconds() - usedBefore <= 10);
        QVERIFY(!trial.hasEnded);
        QVERIFY(trial.hasFile());
        trial.server->sayNow("226 Thanks\r\n");
        QVERIFY(trial.ends());
        QCOMPARE(trial.failure(), QString());
        QVERIFY(!trial.hasFile());
    }
};

QTEST_GUILESS_MAIN(tst_ftp_silence)
#include "tst_ftp_silence.moc"
