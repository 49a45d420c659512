#include "children.h"
#include "EndSignals.h"

#include <QCoreApplication>
#include <QTest>

#include <csignal>

#include <sys/wait.h>

namespace {

enum Outcome : int { NotCaught = 1, NotTold = 2, NotEnded = 3, Ignored = 4 };

/// Runs in a child, which a signal is to end.
int receive(int number)
{
    EndSignals endSignals;
    bool isTold = false;
    QObject::connect(&endSignals, &EndSignals::came, &endSignals, [&isTold] { isTold = true; });
    EndSignals::passOn(); // none has come: nothing happens
    (void)std::raise(number);
    if (EndSignals::number() != number)
        return NotCaught;
    (void)std::raise(SIGTERM == number ? SIGINT : SIGTERM); // the first one counts
    if (!QTest::qWaitFor([&isTold] { return isTold; }))
        return NotTold;
    EndSignals::passOn();
    return NotEnded;
}

int receive_ignored(int number)
{
    (void)std::signal(number, SIG_IGN);
    const EndSignals endSignals;
    (void)std::raise(number);
    return EndSignals::number() == 0 ? Ignored : NotEnded;
}

} // namespace

class tst_EndSignals : public QObject
{
    Q_OBJECT

private slots:
    void theProcessIsToldAndEndsByTheSignalInItsOwnTime_data()
    {
        QTest::addColumn<int>("number");

        QTest::newRow("SIGTERM") << SIGTERM;
        QTest::newRow("SIGHUP") << SIGHUP;
        QTest::newRow("SIGINT") << SIGINT;
    }

    void theProcessIsToldAndEndsByTheSignalInItsOwnTime()
    {
        QFETCH(const int, number);
        (void)std::signal(number, SIG_DFL);

        const int status = status_of_child([number] { return receive(number); });

        QVERIFY2(WIFSIGNALED(status), qPrintable(QString::number(WEXITSTATUS(status))));
        QCOMPARE(WTERMSIG(status), number);
    }

    void aSignalThatTheCallerIgnoresEndsNothing()
    {
        const int status = status_of_child([] { return receive_ignored(SIGHUP); });

        QVERIFY(WIFEXITED(status));
        QCOMPARE(WEXITSTATUS(status), int{Ignored});
    }
};

QTEST_GUILESS_MAIN(tst_EndSignals)
#include "tst_EndSignals.moc"
