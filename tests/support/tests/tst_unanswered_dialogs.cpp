#include <QDialog>
#include <QProcess>
#include <QTest>
#include <QTimer>

class tst_unanswered_dialogs : public QObject
{
    Q_OBJECT

private slots:
    void dialogThatNobodyAnswersFailsItsTestAndEnds()
    {
        QProcess sample;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("IM_UNANSWERED_DIALOG_MS"), QStringLiteral("200"));
        sample.setProcessEnvironment(environment);

        sample.start(QStringLiteral(SAMPLE_UNANSWERED_DIALOG), QStringList());

        QVERIFY(sample.waitForFinished());
        QCOMPARE(sample.exitCode(), 1); // one test failed
        const QByteArray said = sample.readAllStandardOutput();
        QVERIFY2(said.contains("FAIL!  : SampleUnansweredDialog::waitsForNobody() nobody answered the dialog "
                               "\"Who is there?\""),
                 said);
        QVERIFY2(said.contains("PASS   : SampleUnansweredDialog::comesNext()"), said);
    }

    void dialogThatIsAnsweredAndShownAgainHasItsTimeAnew()
    {
        qputenv("IM_UNANSWERED_DIALOG_MS", "1000");
        QDialog dialog;
        for (int i = 0; i < 3; ++i) { // 1.8 seconds in all
            QTimer::singleShot(600, &dialog, &QDialog::accept);
            QCOMPARE(dialog.exec(), int{QDialog::Accepted});
        }
        qunsetenv("IM_UNANSWERED_DIALOG_MS");
    }
};

QTEST_MAIN(tst_unanswered_dialogs)

#include "tst_unanswered_dialogs.moc"
