#include "Q3Process.h"
#include "scripts.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTest>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

/// Programs that are started and left to themselves; all of them are small shell scripts.
class tst_Q3Process : public QObject
{
    Q_OBJECT

private slots:
    void argumentsComeBackInOrder();
    void programGetsItsArgumentsAsTheyStand();
    void programIsSearchedInPath();
    void programStartsInTheCurrentDirectoryWithOurEnvironment();
    void standardInputIsEmpty();
    void largeOutputDoesNotHoldTheProgramUp();
    void everyLaunchStartsTheProgramOnce();
    void programOutlivesItsObject();
    void programOutlivesTheProcessThatLaunchedIt();
    void launchLeavesNoChildBehind();
    void missingProgramIsAnsweredWithFalse_data() { add_missing_programs(); }
    void missingProgramIsAnsweredWithFalse();
    void withoutAProgramNothingIsLaunched_data();
    void withoutAProgramNothingIsLaunched();
    void nothingOfOursReachesTheProgram_data();
    void nothingOfOursReachesTheProgram();
};

void tst_Q3Process::argumentsComeBackInOrder()
{
    Q3Process process;
    process.addArgument(u"viewer"_s);
    process.addArgument(u"-s"_s);
    process.addArgument(QString());
    process.addArgument(u"two words"_s);

    QCOMPARE(process.arguments(), (QStringList{u"viewer"_s, u"-s"_s, QString(), u"two words"_s}));
}

void tst_Q3Process::programGetsItsArgumentsAsTheyStand()
{
    const ScriptPlace place;
    Q3Process process;
    add_script(process, u"cd \"$0\"; printf '<%s>' \"$@\" >new; mv new arguments"_s, place);
    for (const QString &argument : {u"two words"_s, QString(), u"\"quoted\" $HOME *"_s, u"-n"_s, u"größe"_s})
        process.addArgument(argument);

    QVERIFY(process.launch());

    QTRY_COMPARE(place.left(u"arguments"_s), QByteArray("<two words><><\"quoted\" $HOME *><-n><größe>"));
}

void tst_Q3Process::programIsSearchedInPath()
{
    const ScriptPlace place;
    Q3Process process;
    process.addArgument(u"touch"_s);
    process.addArgument(place.path(u"touched"_s));

    QVERIFY(process.launch());

    QTRY_VERIFY(place.has(u"touched"_s));
}

void tst_Q3Process::programStartsInTheCurrentDirectoryWithOurEnvironment()
{
    const ScriptPlace place;
    Q3Process process;
    add_script(process, u"echo \"$PWD $IM_TEST_MARK\" >\"$0/new\"; mv \"$0/new\" \"$0/seen\""_s, place);
    qputenv("IM_TEST_MARK", "mark");

    QVERIFY(process.launch());

    QTRY_COMPARE(place.left(u"seen"_s), QFile::encodeName(QDir::currentPath()) + " mark\n");
}

void tst_Q3Process::standardInputIsEmpty()
{
    const ScriptPlace place;
    Q3Process process;
    add_script(process, u"cd \"$0\"; cat >new; mv new input"_s, place);
    std::array<int, 2> ends{}; // our own standard input holds something and stays open
    QCOMPARE(::pipe(ends.data()), 0);
    QCOMPARE(::write(ends.at(1), "ours", 4), 4);
    QCOMPARE(::dup2(ends.at(0), STDIN_FILENO), STDIN_FILENO);

    QVERIFY(process.launch());

    QTRY_COMPARE(place.left(u"input"_s), QByteArray());
}

void tst_Q3Process::largeOutputDoesNotHoldTheProgramUp()
{
    const ScriptPlace place;
    Q3Process process;
    add_script(process, u"head -c 1000000 /dev/zero && head -c 1000000 /dev/zero >&2 && cd \"$0\" && touch ended"_s,
               place);

    QVERIFY(process.launch());

    QTRY_VERIFY(place.has(u"ended"_s));
}

void tst_Q3Process::everyLaunchStartsTheProgramOnce()
{
    const ScriptPlace place;
    Q3Process process;
    add_script(process, u"cd \"$0\"; touch \"started$$\""_s, place);
    const QDir directory(place.path(QString()));

    QVERIFY(process.launch());
    QTRY_COMPARE(directory.entryList({u"started*"_s}).size(), 1);
    QVERIFY(process.launch());
    QTRY_COMPARE(directory.entryList({u"started*"_s}).size(), 2);
}

void tst_Q3Process::programOutlivesItsObject()
{
    const ScriptPlace place;
    {
        Q3Process process;
        add_script(process, patientScript, place);
        QVERIFY(process.launch());
    }
    QTRY_VERIFY(place.has(u"running"_s));
    QVERIFY(!place.has(u"ended"_s)); // launch() and the destructor have not waited

    place.make(u"go"_s);

    QTRY_VERIFY(place.has(u"ended"_s));
}

void tst_Q3Process::programOutlivesTheProcessThatLaunchedIt()
{
    const ScriptPlace place;
    const pid_t launcher = ::fork();
    if (launcher == 0) {
        Q3Process process;
        add_script(process, patientScript, place);
        std::_Exit(process.launch() ? EXIT_SUCCESS : EXIT_FAILURE);
    }
    int status = EXIT_FAILURE;
    QCOMPARE(::waitpid(launcher, &status, 0), launcher);
    QCOMPARE(status, EXIT_SUCCESS);
    QTRY_VERIFY(place.has(u"running"_s));

    place.make(u"go"_s);

    QTRY_VERIFY(place.has(u"ended"_s));
}

void tst_Q3Process::launchLeavesNoChildBehind()
{
    const ScriptPlace place;
    Q3Process process;
    add_script(process, patientScript, place);
    QVERIFY(process.launch());
    QTRY_VERIFY(place.has(u"running"_s));

    // A program that was our child would be one while it runs, and a zombie afterwards.
    QCOMPARE(::waitpid(-1, nullptr, WNOHANG), -1);
    QCOMPARE(errno, ECHILD);

    place.make(u"go"_s);
    QTRY_VERIFY(place.has(u"ended"_s));
}

void tst_Q3Process::missingProgramIsAnsweredWithFalse()
{
    QFETCH(const QString, program);
    Q3Process process;
    process.addArgument(program);

    QVERIFY(!process.launch());

    QCOMPARE(::waitpid(-1, nullptr, WNOHANG), -1);
    QCOMPARE(errno, ECHILD);
}

void tst_Q3Process::withoutAProgramNothingIsLaunched_data()
{
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("no arguments") << QStringList();
    QTest::newRow("empty program") << QStringList{QString(), u"argument"_s};
}

void tst_Q3Process::withoutAProgramNothingIsLaunched()
{
    QFETCH(const QStringList, arguments);
    Q3Process process;
    for (const QString &argument : arguments)
        process.addArgument(argument);

    QVERIFY(!process.launch());
}

void tst_Q3Process::nothingOfOursReachesTheProgram_data()
{
    QTest::addColumn<bool>("launched");

    QTest::newRow("start") << false;
    QTest::newRow("launch") << true;
}

void tst_Q3Process::nothingOfOursReachesTheProgram()
{
    QFETCH(const bool, launched);
    const ScriptPlace place;
    const int ours = ::open("/dev/zero", O_RDONLY); // NOLINT(android-cloexec-open): one that could be passed on
    QVERIFY(ours > STDERR_FILENO);
    const auto former = std::signal(SIGPIPE, SIG_IGN);
    Q3Process process;
    add_script(process, u"cd \"$0\"; cp /proc/self/status status; ls -l /proc/self/fd >new; mv new descriptors"_s,
               place);
    const QSignalSpy ends(&process, &Q3Process::processExited);

    QVERIFY(launched ? process.launch() : process.start());

    QTRY_VERIFY(place.has(u"descriptors"_s));
    QVERIFY(!place.left(u"descriptors"_s).contains("/dev/zero"));
    QVERIFY(place.left(u"status"_s).contains("SigIgn:\t0000000000000000\n"));
    QTRY_VERIFY(launched || ends.count() == 1);
    ::close(ours);
    QVERIFY(std::signal(SIGPIPE, former) == SIG_IGN); // as it was, here
}

QTEST_GUILESS_MAIN(tst_Q3Process)
#include "tst_Q3Process.moc"
