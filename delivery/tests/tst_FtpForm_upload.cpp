// Uploads from the form's entries to their ends, good and bad.

#include "DiagnosticLines.h"
#include "files.h"
#include "NextBox.h"
#include "OpenFtpForm.h"

#include <QCheckBox>
#include <QProgressBar>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

class tst_FtpForm_upload : public QObject
{
    Q_OBJECT

private slots:
    void uploadWithoutAHostGoesToTheHost()
    {
        const OpenFtpForm trial;
        trial.saveAs();
        trial.button("help")->setFocus();

        trial.upload();

        QVERIFY(trial.field("remoteHost")->hasFocus());
        QVERIFY(trial.button("upload")->isEnabled());
        QCOMPARE(trial.field("remotePath")->text(), QString());
    }

    void uploadWithoutAFileGoesToSaveAs()
    {
        OpenFtpForm trial;
        trial.field("remoteHost")->setText(u"127.0.0.1"_s);
        trial.find<QWidget>("upload")->setEnabled(true); // as after a failure, when the file has gone

        trial.upload();

        QVERIFY(trial.button("save_as")->hasFocus());
        QCOMPARE(trial.server.sessions(), 0);
    }

    void finishedUploadClosesTheForm()
    {
        const OpenFtpForm trial;
        trial.prepare();
        const QSignalSpy finished(trial.form.get(), &QDialog::finished);

        trial.upload();
        QVERIFY(trial.ends());

        QCOMPARE(finished.first().first().toInt(), 1);
        QCOMPARE(trial.server.data(), file_bytes(trial.filePath()));
    }

    void fileArrivesUnderItsNameInThePath_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QByteArray>("command");

        QTest::newRow("topmost") << u"/"_s << QByteArray("STOR /scan #1.bmp");
        QTest::newRow("directory") << u"/in/box"_s << QByteArray("STOR /in/box/scan #1.bmp");
        QTest::newRow("ends in a slash") << u"/in/box/"_s << QByteArray("STOR /in/box/scan #1.bmp");
        QTest::newRow("relative") << u"in"_s << QByteArray("STOR /in/scan #1.bmp");
        QTest::newRow("512 characters") << QString(512, u'y') << "STOR /" + QByteArray(512, 'y') + "/scan #1.bmp";
    }

    void fileArrivesUnderItsNameInThePath()
    {
        QFETCH(const QString, path);
        QFETCH(const QByteArray, command);
        const OpenFtpForm trial;
        trial.prepare();
        trial.field("remotePath")->setText(path);

        trial.upload();
        QVERIFY(trial.ends());

        QCOMPARE(trial.server.commands().last(), command);
    }

    void emptyPathBecomesTheTopmostAndIsShown()
    {
        const OpenFtpForm trial;
        trial.prepare();

        trial.upload();

        QCOMPARE(trial.field("remotePath")->text(), u"/"_s);
        QVERIFY(trial.ends());
    }

    void userLogsInUnlessAnonymous_data()
    {
        QTest::addColumn<QString>("user");
        QTest::addColumn<QString>("password");
        QTest::addColumn<QList<QByteArray>>("login");
        for (const char *user : {"", "anonymous", "ANONYMOUS", "Anonymous", "ftp", "FTP"})
            QTest::addRow("\"%s\"", user)
                << QString::fromLatin1(user) << u"secret"_s << QList<QByteArray>{"USER anonymous", "PASS anonymous@"};
        QTest::newRow("named, with a password")
            << u"ftp2"_s << u"se:cr@t/ä"_s << QList<QByteArray>{"USER ftp2", "PASS se:cr@t/\xc3\xa4"};
        QTest::newRow("named, without one") << u"ftp2"_s << u""_s << QList<QByteArray>{"USER ftp2", "PASS "};
    }

    void userLogsInUnlessAnonymous()
    {
        QFETCH(const QString, user);
        QFETCH(const QString, password);
        QFETCH(const QList<QByteArray>, login);
        const OpenFtpForm trial;
        trial.prepare();
        trial.field("user")->setText(user);
        trial.field("pass")->setText(password);

        trial.upload();
        QVERIFY(trial.ends());

        QCOMPARE(trial.server.commands().first(2), login);
    }

    void deletedFileIsGoneWhenTheFormCloses()
    {
        const OpenFtpForm trial;
        trial.prepare();
        trial.find<QCheckBox>("delete_file")->setChecked(true);

        trial.upload();
        QVERIFY(trial.ends());

        QVERIFY(!QFile::exists(trial.filePath()));
    }

    void failedDeleteShowsItsBoxAndThenTheFormCloses()
    {
        OpenFtpForm trial;
        trial.prepare();
        trial.find<QCheckBox>("delete_file")->setChecked(true);
        trial.server.say("end", {});
        trial.upload();
        QTRY_VERIFY(trial.server.hasDataEnded());
        QVERIFY(QFile::remove(trial.filePath()));
        const NextBox box = answer_next_box(QMessageBox::Ok);

        trial.server.sayNow("226 Thanks\r\n");
        QVERIFY(trial.ends());

        QVERIFY(box.hasCome());
        QCOMPARE(box.title(), u"ERROR"_s);
        QCOMPARE(box.text(), u"Could not remove file or directory\n"_s + trial.filePath());
        QCOMPARE(trial.form->result(), 1);
    }

    void refusedLoginEmptiesThePasswordAndEnablesUpload()
    {
        OpenFtpForm trial;
        trial.prepare();
        trial.field("user")->setText(u"bob"_s);
        trial.field("pass")->setText(u"secret"_s);
        trial.field("remotePath")->setText(u"/in"_s);
        trial.find<QCheckBox>("delete_file")->setChecked(true);
        trial.server.say("PASS", "530 Login incorrect\r\n");
        const NextBox box = answer_next_box(QMessageBox::Ok);

        trial.upload();
        QTRY_VERIFY(box.hasCome());

        QCOMPARE(box.title(), u"ERROR"_s);
        QCOMPARE(box.text(), u"Login failed:\nLogin incorrect"_s);
        QCOMPARE(box.buttons(), QMessageBox::Ok);
        QTRY_VERIFY(trial.button("upload")->isEnabled());
        QCOMPARE(trial.field("pass")->text(), QString());
        QCOMPARE(trial.field("remoteHost")->text(), u"127.0.0.1"_s);
        QCOMPARE(trial.field("remotePath")->text(), u"/in"_s);
        QCOMPARE(trial.field("user")->text(), u"bob"_s);
        QCOMPARE(trial.find<QSpinBox>("port")->value(), int{trial.server.port()});
        QCOMPARE(trial.label("local_file"), trial.filePath());
        QVERIFY(trial.find<QCheckBox>("delete_file")->isChecked());
        QVERIFY(QFile::exists(trial.filePath()));
    }

    void hostNotFoundEmptiesThePasswordAndEnablesUpload()
    {
        const OpenFtpForm trial;
        trial.prepare();
        trial.field("remoteHost")->setText(u"127.0.0.1:21"_s);
        trial.field("pass")->setText(u"secret"_s);
        const NextBox box = answer_next_box(QMessageBox::Ok);

        trial.upload();
        QTRY_VERIFY(box.hasCome());

        QCOMPARE(box.text(), u"Connecting to host failed:\nHost 127.0.0.1:21 not found"_s);
        QTRY_VERIFY(trial.button("upload")->isEnabled());
        QCOMPARE(trial.field("pass")->text(), QString());
    }

    void fileThatHasGoneIsToldWhenItsReadingBegins()
    {
        const OpenFtpForm trial;
        trial.prepare();
        QVERIFY(QFile::remove(trial.filePath()));
        const NextBox box = answer_next_box(QMessageBox::Ok);

        trial.upload();
        QTRY_VERIFY(box.hasCome());
        QTRY_VERIFY(!QApplication::activeModalWidget());

        QCOMPARE(box.text(), u"Could not open\n"_s + trial.filePath());
        QCOMPARE(trial.find<QProgressBar>("progress")->maximum(), 0);
        QVERIFY(!trial.button("upload")->isEnabled());
        QCOMPARE(trial.server.sessions(), 0);
    }

    void otherFailureLeavesUploadDisabledUntilTheNextSaveAs()
    {
        OpenFtpForm trial;
        trial.prepare();
        trial.field("user")->setText(u"bob"_s);
        trial.field("pass")->setText(u"secret"_s);
        trial.server.say("STOR", "553 Not allowed\r\n");
        const NextBox box = answer_next_box(QMessageBox::Ok);
        trial.upload();
        QTRY_VERIFY(box.hasCome());
        QTRY_VERIFY(!QApplication::activeModalWidget());

        QCOMPARE(box.text(), u"Uploading file failed:\nNot allowed"_s);
        QVERIFY(!trial.button("upload")->isEnabled());
        QCOMPARE(trial.field("pass")->text(), u"secret"_s);

        const NextBox replace = answer_next_box(QMessageBox::Yes);
        trial.saveAs();
        QVERIFY(trial.button("upload")->isEnabled());
    }

    void serversWordsAreShownAsTheyStand()
    {
        OpenFtpForm trial;
        trial.prepare();
        trial.server.say("STOR", "550 <b>No</b> &amp; never %1\r\n");
        const NextBox box = answer_next_box(QMessageBox::Ok);

        trial.upload();
        QTRY_VERIFY(box.hasCome());

        QCOMPARE(box.text(), u"Uploading file failed:\n<b>No</b> &amp; never %1"_s);
    }

    void credentialsStayOutOfLinesAndTexts()
    {
        OpenFtpForm trial;
        const DiagnosticLines lines;
        trial.prepare();
        trial.field("user")->setText(u"somebody"_s);
        trial.field("pass")->setText(u"topsecret"_s);
        trial.server.say("PASS", "500 'PASS topsecret' not understood\r\n");
        const NextBox box = answer_next_box(QMessageBox::Ok);

        trial.upload();
        QTRY_VERIFY(box.hasCome());

        const QStringList shown = lines.lines() + QStringList{box.text(), trial.label("status")};
        QVERIFY(!shown.join(u' ').contains(u"topsecret"_s));
        QVERIFY(!shown.join(u' ').contains(u"somebody"_s));
    }
};

QTEST_MAIN(tst_FtpForm_upload)
#include "tst_FtpForm_upload.moc"
