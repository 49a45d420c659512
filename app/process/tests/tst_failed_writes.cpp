#include "children.h"
#include "failed_writes.h"

#include <QObject>
#include <QTest>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

int error_of_write(int descriptor)
{
    const std::array<char, 100> bytes{};
    return ::write(descriptor, bytes.data(), bytes.size()) < 0 ? errno : 0;
}

} // namespace

class tst_failed_writes : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        for (const int number : {SIGPIPE, SIGXFSZ})
            (void)std::signal(number, SIG_DFL);
    }

    void aWriteThatNobodyReadsFails()
    {
        let_writes_fail();
        const int status = status_of_child([] {
            std::array<int, 2> ends{};
            if (::pipe(ends.data()) != 0)
                return -1;
            ::close(ends[0]);
            return error_of_write(ends[1]);
        });

        QVERIFY(WIFEXITED(status));
        QCOMPARE(WEXITSTATUS(status), EPIPE);
    }

    void aWriteBeyondTheLimitOfFilesFails()
    {
        let_writes_fail();
        const int status = status_of_child([] {
            const rlimit none{.rlim_cur = 0, .rlim_max = 0};
            ::setrlimit(RLIMIT_FSIZE, &none);
            return error_of_write(::open("/tmp", O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600));
        });

        QVERIFY(WIFEXITED(status));
        QCOMPARE(WEXITSTATUS(status), EFBIG);
    }

    void programsThatAreStartedHaveTheDefault_data()
    {
        QTest::addColumn<int>("number");

        QTest::newRow("PIPE") << SIGPIPE;
        QTest::newRow("XFSZ") << SIGXFSZ;
    }

    void programsThatAreStartedHaveTheDefault()
    {
        QFETCH(const int, number);
        let_writes_fail();

        const int status = std::system(QByteArray("kill -"_ba + QTest::currentDataTag() + " $$").constData());

        QVERIFY(WIFSIGNALED(status));
        QCOMPARE(WTERMSIG(status), number);
    }

    void whatTheCallerIgnoresStaysIgnored()
    {
        (void)std::signal(SIGPIPE, SIG_IGN);

        let_writes_fail();

        QCOMPARE(std::system("kill -PIPE $$"), 0);
    }
};

QTEST_GUILESS_MAIN(tst_failed_writes)
#include "tst_failed_writes.moc"
