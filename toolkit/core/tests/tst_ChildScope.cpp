#include "ChildScope.h"

#include <QTest>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

class tst_ChildScope : public QObject
{
    Q_OBJECT

private slots:
    void commandOfAShellGetsNoDescriptorOfOurs()
    {
        const int ours = ::open("/dev/zero", O_RDONLY); // one that could be passed on
        const auto hasOurs = QStringLiteral("test -e /proc/self/fd/%1").arg(ours).toLatin1();
        QCOMPARE(std::system(hasOurs), 0); // what it is about

        int status = 0;
        {
            const ChildScope scope;
            status = std::system(hasOurs);
        }

        QVERIFY(status != 0);
        QCOMPARE(::fcntl(ours, F_GETFD), FD_CLOEXEC); // open here all the same
        ::close(ours);
    }

    void standardStreamsStay()
    {
        const ChildScope scope;

        QCOMPARE(std::system("test -e /proc/self/fd/0 -a -e /proc/self/fd/1 -a -e /proc/self/fd/2"), 0);
    }

    void signalsAreIgnoredAgainAfterwards()
    {
        // The C library's own signals, 32 and 33, are ignored in all that system() starts.
        constexpr auto NothingIsIgnored = "grep -q 'SigIgn:.*0000000$' /proc/self/status";
        const auto former = std::signal(SIGHUP, SIG_IGN);
        {
            const ChildScope scope;
            QCOMPARE(std::system(NothingIsIgnored), 0);
        }
        QVERIFY(std::system(NothingIsIgnored) != 0);
        QVERIFY(std::signal(SIGHUP, former) == SIG_IGN);
    }
};

QTEST_GUILESS_MAIN(tst_ChildScope)
#include "tst_ChildScope.moc"
