#include "diagnostics.h"

#include <QFile>
#include <QTemporaryFile>
#include <QTest>

#include <array>

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int PipeSize = 4096;

/// Standard error is this descriptor for as long as it lives, and the toolkit's lines go there by our handler.
class StandardError
{
public:
    explicit StandardError(int descriptor) : m_former(::dup(STDERR_FILENO)), m_handler(qInstallMessageHandler(nullptr))
    {
        ::dup2(descriptor, STDERR_FILENO);
        write_diagnostics_without_waiting();
    }
    ~StandardError()
    {
        ::dup2(m_former, STDERR_FILENO);
        ::close(m_former);
        qInstallMessageHandler(m_handler);
    }
    Q_DISABLE_COPY_MOVE(StandardError)

private:
    int m_former;
    QtMessageHandler m_handler;
};

QByteArray read_all(int descriptor)
{
    QByteArray bytes(1 << 20, 0);
    ::fcntl(descriptor, F_SETFL, O_NONBLOCK);
    qsizetype done = 0;
    for (ssize_t count = 0; (count = ::read(descriptor, bytes.data() + done, 4096)) > 0;)
        done += count;
    return bytes.first(done);
}

} // namespace

/// A line that would wait makes a test wait for ever, so that its process is ended.
class tst_diagnostics : public QObject
{
    Q_OBJECT

private slots:
    void init() { ::alarm(60); }
    void cleanup() { ::alarm(0); }

    void linesThatNobodyReadsAreDropped()
    {
        std::array<int, 2> pipe{};
        QCOMPARE(::pipe(pipe.data()), 0);
        QVERIFY(::fcntl(pipe[1], F_SETPIPE_SZ, PipeSize) == PipeSize);
        const QByteArray line(99, 'x');
        {
            const StandardError error(pipe[1]);
            for (int i = 0; i < 1000; ++i)
                qDebug("%s", line.constData());
        }

        const QByteArray read = read_all(pipe[0]);

        QCOMPARE(read, (line + '\n').repeated(PipeSize / 100)); // as many whole lines as there is room for
    }

    void aLineStandsAloneBehindOneThatWasCut()
    {
        std::array<int, 2> pipe{};
        QCOMPARE(::pipe(pipe.data()), 0);
        QVERIFY(::fcntl(pipe[1], F_SETPIPE_SZ, PipeSize) == PipeSize);
        const StandardError error(pipe[1]);
        qDebug("%s", QByteArray(qsizetype{3} * PipeSize, 'x').constData());
        const QByteArray cut = read_all(pipe[0]);

        qDebug("next");

        QCOMPARE(cut, QByteArray(PipeSize, 'x'));
        QCOMPARE(read_all(pipe[0]), "\nnext\n");
        qDebug("last");
        QCOMPARE(read_all(pipe[0]), "last\n");
    }

    void aSocketThatNobodyReadsHoldsNothingUp()
    {
        std::array<int, 2> ends{};
        QCOMPARE(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
        const StandardError error(ends[1]);

        for (int i = 0; i < 10000; ++i)
            qDebug("%s", QByteArray(99, 'x').constData());

        QVERIFY(read_all(ends[0]).size() > 100);
    }

    void aFileTakesEveryLine()
    {
        QTemporaryFile file;
        QVERIFY(file.open());
        const QByteArray line(10000, 'x');
        {
            const StandardError error(file.handle());
            for (int i = 0; i < 20; ++i)
                qDebug("%s", line.constData());
        }

        QFile written(file.fileName());
        QVERIFY(written.open(QIODevice::ReadOnly));
        QCOMPARE(written.readAll(), (line + '\n').repeated(20));
    }

    void theDescriptorOfTheCallerStaysAsItIs()
    {
        std::array<int, 2> pipe{};
        QCOMPARE(::pipe(pipe.data()), 0);
        const int former = ::fcntl(pipe[1], F_GETFL);
        const StandardError error(pipe[1]);

        qDebug("line");

        QCOMPARE(::fcntl(pipe[1], F_GETFL), former);
    }
};

QTEST_GUILESS_MAIN(tst_diagnostics)
#include "tst_diagnostics.moc"
