#include "files.h"
#include "outside_programs.h"
#include "Q3Process.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <fcntl.h>
#include <memory>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using Stream = std::unique_ptr<std::FILE, int (*)(std::FILE *)>;

class tst_outside_programs : public QObject
{
    Q_OBJECT

private slots:
    void outputIsReadToItsEnd_data()
    {
        QTest::addColumn<QString>("command");

        QTest::newRow("none") << u"true"_s;
        QTest::newRow("lines") << u"echo 1; echo 2"_s;
        QTest::newRow("line without an end") << u"printf 1"_s;
        QTest::newRow("line longer than the buffer") << u"head -c 5000 /dev/zero | tr '\\0' x; echo"_s;
        QTest::newRow("zeros") << u"printf 'a\\0b\\0'"_s;
        QTest::newRow("100 MB that never end a line") << u"head -c 100000000 /dev/zero"_s;
        QTest::newRow("output closed early") << u"exec >&-; sleep 0.2"_s;
        QTest::newRow("failure") << u"exit 3"_s;
        QTest::newRow("killed") << u"kill -9 $$"_s;
        QTest::newRow("no such program") << u"/nowhere/at/all 2>/dev/null"_s;
        QTest::newRow("empty") << QString();
    }
    void outputIsReadToItsEnd()
    {
        QFETCH(const QString, command);
        const QTemporaryDir place;
        const QString done = place.filePath(u"done"_s);

        // "exit" and "kill" leave the inner shell alone.
        QCOMPARE(run_to_end(u"(sh -c '%1'); touch %2"_s.arg(QString(command).replace('\''_L1, "'\\''"_L1), done)),
                 ProgramRun::Ended);

        QVERIFY(QFile::exists(done)); // it was waited for
    }

    void stateOfAnotherChildDoesNotDisturbTheReading()
    {
        Q3Process child; // ends while the output is read
        child.addArgument(u"sleep"_s);
        child.addArgument(u"0.1"_s);
        const QSignalSpy ends(&child, &Q3Process::processExited);
        QVERIFY(child.start());

        QCOMPARE(run_to_end(u"sleep 0.4; echo done"_s), ProgramRun::Ended);

        QTRY_COMPARE(ends.count(), 1);
    }

    void streamThatCannotBeReadIsTold()
    {
        const Stream folder(std::fopen("/", "r"), std::fclose);
        QVERIFY(folder);

        QVERIFY(!read_to_end(folder.get()));
    }

    void programThatCannotBeStartedIsTold()
    {
        rlimit former{};
        QCOMPARE(::getrlimit(RLIMIT_NOFILE, &former), 0);
        const rlimit none{.rlim_cur = 0, .rlim_max = former.rlim_max};
        QCOMPARE(::setrlimit(RLIMIT_NOFILE, &none), 0);

        const ProgramRun run = run_to_end(u"true"_s);

        QCOMPARE(::setrlimit(RLIMIT_NOFILE, &former), 0);
        QCOMPARE(run, ProgramRun::NotStarted);
    }

    void backgroundCommandIsNotWaitedFor()
    {
        const QTemporaryDir place;
        const QString go = place.filePath(u"go"_s);
        const QString ended = place.filePath(u"ended"_s);

        QCOMPARE(start_in_background(u"{ until [ -e %1 ]; do sleep 0.05; done; touch %2; }"_s.arg(go, ended)), 0);
        QVERIFY(!QFile::exists(ended));
        write_file(go, {});

        QTRY_VERIFY(QFile::exists(ended));
    }

    void shellSplitsAndFillsTheCommand()
    {
        const QTemporaryDir place;
        const QString written = place.filePath(u"written"_s);

        const QString words = u"a  b \"c  d\" $(echo e f) größe"_s;
        QCOMPARE(start_in_background(u"printf '<%s>' %1 >%2.new; mv %2.new %2"_s.arg(words, written)), 0);

        QTRY_VERIFY(QFile::exists(written));
        QCOMPARE(QString::fromUtf8(file_bytes(written)), u"<a><b><c  d><e><f><größe>"_s);
    }

    void commandsGetNoDescriptorOfOurs_data()
    {
        QTest::addColumn<bool>("inBackground");
        QTest::newRow("in the background") << true;
        QTest::newRow("to the end") << false;
    }
    void commandsGetNoDescriptorOfOurs()
    {
        QFETCH(const bool, inBackground);
        const QTemporaryDir place;
        const QString seen = place.filePath(u"seen"_s);
        const int ours = ::open("/dev/zero", O_RDONLY); // one that could be passed on
        const auto former = std::signal(SIGPIPE, SIG_IGN);
        const QString command =
            u"(ls -l /proc/self/fd; grep SigIgn /proc/self/status) >%1.new; mv %1.new %1"_s.arg(seen);

        if (inBackground)
            QCOMPARE(start_in_background(u"{ %1; }"_s.arg(command)), 0);
        else
            QCOMPARE(run_to_end(command), ProgramRun::Ended);

        QTRY_VERIFY(QFile::exists(seen));
        ::close(ours);
        QVERIFY(std::signal(SIGPIPE, former) == SIG_IGN);
        const QByteArray lines = file_bytes(seen);
        QVERIFY(!lines.contains("/dev/zero"));
        const bool isPipeIgnored =
            (lines.mid(lines.indexOf("SigIgn:") + 7).trimmed().toULongLong(nullptr, 16) >> (SIGPIPE - 1) & 1U) != 0;
        QVERIFY(!isPipeIgnored);
    }
};

QTEST_GUILESS_MAIN(tst_outside_programs)
#include "tst_outside_programs.moc"
