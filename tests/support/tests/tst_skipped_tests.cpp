// The end of scripts/test, which tells what a machine could not run.

#include <QProcess>
#include <QTemporaryFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

struct Told
{
    QString text;
    int status = -1;
};

Told skipped_tests(const QByteArray &log)
{
    QTemporaryFile file;
    if (!file.open() || file.write(log) != log.size() || !file.flush())
        qFatal("no log");
    QProcess script;
    script.start(QStringLiteral(IM_SCRIPTS "/skipped-tests"), {file.fileName()});
    if (!script.waitForFinished())
        qFatal("%s", qPrintable(script.errorString()));
    return {QString::fromUtf8(script.readAllStandardOutput()), script.exitCode()};
}

} // namespace

class tst_skipped_tests : public QObject
{
    Q_OBJECT

private slots:
    void namesEachWithItsReason()
    {
        const Told told = skipped_tests("1/3 Test: tst_one\n"
                                        "PASS   : tst_one::works()\n"
                                        "SKIP   : tst_one::paints(deep) no such screen\n"
                                        "   Loc: [tst_one.cpp(7)]\n"
                                        "2/3 Test: tst_two\n"
                                        "skipped: no mounts of its own (a, b)\n"
                                        "3/3 Test: tst_three\n"
                                        "PASS   : tst_three::tellsWhatWasSkipped()\n");

        QCOMPARE(told.text,
                 u"2 skipped, not run on this machine:\n"
                 "    tst_one::paints(deep): no such screen\n"
                 "    tst_two: no mounts of its own (a, b)\n"_s);
        QCOMPARE(told.status, 1);
    }

    void tellsThatNoneWas()
    {
        const Told told = skipped_tests("1/1 Test: tst_one\nPASS   : tst_one::works()\n");

        QCOMPARE(told.text, u"No test was skipped.\n"_s);
        QCOMPARE(told.status, 0);
    }
};

QTEST_GUILESS_MAIN(tst_skipped_tests)

#include "tst_skipped_tests.moc"
