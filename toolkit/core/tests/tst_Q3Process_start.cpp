#include "Q3Process.h"
#include "scripts.h"

#include <QCoreApplication>
#include <QDir>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <cerrno>

#include <sys/wait.h>

using namespace Qt::StringLiterals;

/// Programs whose ends are told; all of them are small shell scripts.
class tst_Q3Process_start : public QObject
{
    Q_OBJECT

private slots:
    void startedProgramTellsOfItsEndOnce_data();
    void startedProgramTellsOfItsEndOnce();
    void objectMayBeDeletedWhenItsProgramHasEnded();
    void startedProgramIsNumberedWhileItRuns();
    void startedProgramOutlivesItsObjectAndIsReaped();
    void missingProgramIsNotStartedAndTellsNothing_data() { add_missing_programs(); }
    void missingProgramIsNotStartedAndTellsNothing();
    void objectStartsOneProgramAtATime();
};

void tst_Q3Process_start::startedProgramTellsOfItsEndOnce_data()
{
    QTest::addColumn<QString>("script");

    QTest::newRow("success") << u"exit 0"_s;
    QTest::newRow("failure") << u"exit 7"_s;
    QTest::newRow("killed") << u"kill -9 $$"_s;
    QTest::newRow("much output") << u"head -c 1000000 /dev/zero; head -c 1000000 /dev/zero >&2"_s;
}

void tst_Q3Process_start::startedProgramTellsOfItsEndOnce()
{
    QFETCH(const QString, script);
    const ScriptPlace place;
    Q3Process process;
    add_script(process, script, place);
    const QSignalSpy ends(&process, &Q3Process::processExited);

    QVERIFY(process.start());
    QCOMPARE(ends.count(), 0); // only the event loop tells

    QTRY_COMPARE(ends.count(), 1);
    QCOMPARE(::waitpid(-1, nullptr, WNOHANG), -1);
    QCOMPARE(errno, ECHILD);
}

void tst_Q3Process_start::objectMayBeDeletedWhenItsProgramHasEnded()
{
    const ScriptPlace place;
    QPointer<Q3Process> process = new Q3Process(this);
    add_script(*process, u"exit 0"_s, place);
    connect(process, &Q3Process::processExited, this, [&process] { delete process; });

    QVERIFY(process->start());

    QTRY_VERIFY(!process);
}

void tst_Q3Process_start::startedProgramIsNumberedWhileItRuns()
{
    const ScriptPlace place;
    Q3Process process;
    add_script(process, u"cd \"$0\"; echo $$ >new; mv new number; until [ -e go ]; do sleep 0.05; done"_s, place);
    const QSignalSpy ends(&process, &Q3Process::processExited);
    QCOMPARE(process.processIdentifier(), 0);

    QVERIFY(process.start());

    const QByteArray number = QByteArray::number(process.processIdentifier()) + '\n';
    QTRY_COMPARE(place.left(u"number"_s), number);
    place.make(u"go"_s);
    QTRY_COMPARE(ends.count(), 1);
    QCOMPARE(process.processIdentifier(), 0);
}

void tst_Q3Process_start::startedProgramOutlivesItsObjectAndIsReaped()
{
    const ScriptPlace place;
    {
        Q3Process process;
        add_script(process, patientScript, place);
        QVERIFY(process.start());
    }
    QTRY_VERIFY(place.has(u"running"_s));
    QVERIFY(!place.has(u"ended"_s));
    QCOMPARE(::waitpid(-1, nullptr, WNOHANG), 0); // a child that runs

    place.make(u"go"_s);

    QTRY_VERIFY(place.has(u"ended"_s));
    // WNOWAIT: the end is left to be reaped by whom it belongs to.
    siginfo_t info{};
    QTRY_VERIFY(::waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) == -1 && errno == ECHILD);
}

void tst_Q3Process_start::missingProgramIsNotStartedAndTellsNothing()
{
    QFETCH(const QString, program);
    Q3Process process;
    process.addArgument(program);
    const QSignalSpy ends(&process, &Q3Process::processExited);

    QVERIFY(!process.start());

    QCOMPARE(process.processIdentifier(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(ends.count(), 0);
    QCOMPARE(::waitpid(-1, nullptr, WNOHANG), -1);
    QCOMPARE(errno, ECHILD);
}

void tst_Q3Process_start::objectStartsOneProgramAtATime()
{
    const ScriptPlace place;
    Q3Process process;
    add_script(process, u"cd \"$0\"; touch \"started$$\"; until [ -e go ]; do sleep 0.05; done"_s, place);
    const QSignalSpy ends(&process, &Q3Process::processExited);

    QVERIFY(process.start());
    QVERIFY(!process.start());
    place.make(u"go"_s);
    QTRY_COMPARE(ends.count(), 1);
    QVERIFY(process.start());
    QTRY_COMPARE(ends.count(), 2);

    QCOMPARE(QDir(place.path(QString())).entryList({u"started*"_s}).size(), 2);
}

QTEST_GUILESS_MAIN(tst_Q3Process_start)
#include "tst_Q3Process_start.moc"
