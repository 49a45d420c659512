// The form while an upload runs.

#include "DiagnosticLines.h"
#include "NextBox.h"
#include "OpenFtpForm.h"

#include <QAbstractAnimation>
#include <QCheckBox>
#include <QProgressBar>

using namespace Qt::StringLiterals;

namespace {

/// More than a network holds.
QImage large_page()
{
    QImage page(3000, 3000, QImage::Format_RGB32);
    page.fill(0xff336699);
    return page;
}

/// One of the form's own slots, as an operator's signal would run it.
void run_slot(FtpForm &form, const char *slot, Q3NetworkOperation *operation)
{
    QVERIFY(QMetaObject::invokeMethod(&form, slot, Q_ARG(Q3NetworkOperation *, operation)));
}

} // namespace

class tst_FtpForm_running : public QObject
{
    Q_OBJECT

private slots:
    void uploadIsDisabledWhileItRuns();
    void saveAsDuringATransferEnablesUploadOnlyAfterIt();
    void progressIsShownAndTellsWhereTheFileGoes();
    void readingTellsItsFileAndItsBytes();
    void reportsOfNothingLeftDoNotShowTheBar();
    void barWithNothingToGoThroughStandsStill();
    void lostOperationsAreNoted();
    void otherOperationsAreIgnored();
    void closingStopsTheTransfer_data();
    void closingStopsTheTransfer();
    void longTextsDoNotWidenTheForm();
};

void tst_FtpForm_running::uploadIsDisabledWhileItRuns()
{
    OpenFtpForm trial;
    trial.prepare();
    trial.server.say("greeting", {});

    trial.upload();
    QVERIFY(!trial.button("upload")->isEnabled());
    QTRY_VERIFY(trial.server.hasClient());
    QTest::keyClick(trial.form.get(), Qt::Key_U, Qt::AltModifier);
    trial.server.sayNow("220 Ready\r\n");
    QVERIFY(trial.ends());

    QCOMPARE(trial.server.sessions(), 1);
}

void tst_FtpForm_running::saveAsDuringATransferEnablesUploadOnlyAfterIt()
{
    OpenFtpForm trial;
    trial.prepare();
    trial.server.say("STOR", {});
    trial.upload();
    QTRY_VERIFY(trial.server.hasClient());

    trial.saveAs(trial.home.filePath(u"other.bmp"_s));
    QVERIFY(!trial.button("upload")->isEnabled());

    const NextBox box = answer_next_box(QMessageBox::Ok);
    QTRY_VERIFY(trial.server.commands().last().startsWith("STOR"));
    trial.server.sayNow("553 Not allowed\r\n");
    QTRY_VERIFY(box.hasCome());
    QTRY_VERIFY(trial.button("upload")->isEnabled());
}

void tst_FtpForm_running::progressIsShownAndTellsWhereTheFileGoes()
{
    OpenFtpForm trial(large_page());
    trial.prepare();
    trial.field("remotePath")->setText(u"/in/"_s);
    trial.field("user")->setText(u"bob"_s);
    trial.field("pass")->setText(u"secret"_s);
    trial.server.stopDataAfter(1000);
    const auto *const bar = trial.find<QProgressBar>("progress");

    trial.upload();
    QTRY_VERIFY(trial.server.dataCount() >= 1000);
    QTRY_VERIFY(bar->value() > 0);

    QVERIFY(bar->isVisible());
    QCOMPARE(bar->maximum(), static_cast<int>(QFileInfo(trial.filePath()).size()));
    QVERIFY(bar->value() < bar->maximum());
    QCOMPARE(trial.label("status"), u"Write: ftp://127.0.0.1:%1/in//scan #1.bmp"_s.arg(trial.server.port()));
    trial.server.takeData();
    QVERIFY(trial.ends());
    QCOMPARE(bar->value(), bar->maximum());
}

void tst_FtpForm_running::readingTellsItsFileAndItsBytes()
{
    const OpenFtpForm trial;
    Q3NetworkOperation get(Q3NetworkOperation::OpGet, {u"file:/tmp/a.bmp"_s}, nullptr);

    QVERIFY(QMetaObject::invokeMethod(trial.form.get(), "slotRemoteDataTransferProgress", Q_ARG(int, 30),
                                      Q_ARG(int, 80), Q_ARG(Q3NetworkOperation *, &get)));

    const auto *const bar = trial.find<QProgressBar>("progress");
    QVERIFY(bar->isVisible());
    QCOMPARE(bar->maximum(), 80);
    QCOMPARE(bar->value(), 30);
    QCOMPARE(trial.label("status"), u"Read: file:/tmp/a.bmp"_s);
}

void tst_FtpForm_running::reportsOfNothingLeftDoNotShowTheBar()
{
    const OpenFtpForm trial;
    Q3NetworkOperation put(Q3NetworkOperation::OpPut, {}, nullptr);
    const DiagnosticLines lines;

    for (const int total : {0, 5, 7})
        QVERIFY(QMetaObject::invokeMethod(trial.form.get(), "slotRemoteDataTransferProgress", Q_ARG(int, 7),
                                          Q_ARG(int, total), Q_ARG(Q3NetworkOperation *, &put)));

    QVERIFY(!trial.find<QProgressBar>("progress")->isVisible());
    QCOMPARE(trial.label("status"), u"No Operation in Progress"_s);
    QCOMPARE(lines.lines(),
             QStringList(3, u"FtpForm::slotRemoteDataTransferProgress - transfer apparently finished"_s));
}

void tst_FtpForm_running::barWithNothingToGoThroughStandsStill()
{
    const OpenFtpForm trial;
    Q3NetworkOperation get(Q3NetworkOperation::OpGet, {}, nullptr);
    auto *const bar = trial.find<QProgressBar>("progress");
    bar->show();

    run_slot(*trial.form, "slotRemoteStart", &get);

    QCOMPARE(bar->maximum(), 0);
    QTRY_VERIFY(bar->isVisible());
    (void)bar->grab(); // painting is what starts an animation
    QVERIFY(bar->findChildren<QAbstractAnimation *>().isEmpty());
}

void tst_FtpForm_running::lostOperationsAreNoted()
{
    const OpenFtpForm trial;
    const DiagnosticLines lines;

    run_slot(*trial.form, "slotRemoteStart", nullptr);
    run_slot(*trial.form, "slotRemoteFinished", nullptr);
    QVERIFY(QMetaObject::invokeMethod(trial.form.get(), "slotRemoteDataTransferProgress", Q_ARG(int, 0), Q_ARG(int, 1),
                                      Q_ARG(Q3NetworkOperation *, nullptr)));

    QCOMPARE(
        lines.lines(),
        (QStringList{u"FtpForm::slotRemoteStart - bad operation!"_s, u" FtpForm::slotRemoteFinished - bad operation!"_s,
                     u"FtpForm::slotRemoteDataTransferProgress - bad operation!"_s}));
}

void tst_FtpForm_running::otherOperationsAreIgnored()
{
    const OpenFtpForm trial;
    const DiagnosticLines lines;
    Q3NetworkOperation list(Q3NetworkOperation::OpListChildren, {}, nullptr);
    list.setState(Q3NetworkOperation::StDone);

    run_slot(*trial.form, "slotRemoteStart", &list);
    run_slot(*trial.form, "slotRemoteFinished", &list);
    QVERIFY(QMetaObject::invokeMethod(trial.form.get(), "slotRemoteDataTransferProgress", Q_ARG(int, 0), Q_ARG(int, 1),
                                      Q_ARG(Q3NetworkOperation *, &list)));

    QVERIFY(trial.form->isVisible());
    QCOMPARE(lines.lines(), QStringList(u"FtpForm::slotRemoteDataTransferProgress - unknown operation!"_s));
}

void tst_FtpForm_running::closingStopsTheTransfer_data()
{
    QTest::addColumn<QByteArray>("step"); // at which the server falls silent
    for (const char *step : {"greeting", "USER", "PASS", "TYPE", "PASV", "ALLO", "STOR", "end"})
        QTest::addRow("%s", step) << QByteArray(step);
}

void tst_FtpForm_running::closingStopsTheTransfer()
{
    QFETCH(const QByteArray, step);
    OpenFtpForm trial;
    trial.prepare();
    trial.find<QCheckBox>("delete_file")->setChecked(true);
    trial.server.say(step, {});
    trial.upload();
    if (step == "greeting")
        QTRY_VERIFY(trial.server.hasClient());
    else if (step == "end")
        QTRY_VERIFY(trial.server.hasDataEnded());
    else
        QTRY_VERIFY(!trial.server.commands().isEmpty() && trial.server.commands().last().startsWith(step));

    trial.button("closeButton")->click();
    QVERIFY(!trial.form->isVisible());
    QCOMPARE(trial.form->result(), 0);
    trial.form.reset();

    QTRY_VERIFY(!trial.server.hasClient());
    QVERIFY(QFile::exists(trial.filePath()));
}

void tst_FtpForm_running::longTextsDoNotWidenTheForm()
{
    OpenFtpForm trial;
    trial.prepare();
    trial.field("remotePath")->setText(u'/' + QString(511, u'y'));
    const int width = trial.form->minimumSizeHint().width();
    trial.server.say("end", {});

    trial.upload();
    QTRY_VERIFY(trial.label("status").size() > 512);

    QCOMPARE(trial.form->minimumSizeHint().width(), width);
}

QTEST_MAIN(tst_FtpForm_running)
#include "tst_FtpForm_running.moc"
