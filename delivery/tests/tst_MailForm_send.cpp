#include "DiagnosticLines.h"
#include "NameServer.h"
#include "NextBox.h"
#include "NextFileDialog.h"
#include "OpenMailForm.h"
#include "private_namespaces.h"
#include "ScriptedMailServer.h"
#include "standing_boxes.h"

#include <QApplication>
#include <QSettings>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

const QString host = u"127.0.0.2"_s;
const QByteArrayList goodSession{"220 a\r\n", "250 b\r\n", "250 c\r\n", "250 d\r\n", "354 e\r\n", "250 f\r\n"};

} // namespace

class tst_MailForm_send : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { names = std::make_unique<NameServer>(QStringList()); }
    void cleanupTestCase() { names.reset(); }

    void sendingShowsItsCourseAndEnablesSendAgain()
    {
        ScriptedMailServer server(host, goodSession);
        OpenMailForm mail;
        mail.openFilledIn();
        mail.widget<QPlainTextEdit>("message")->setPlainText(u"one\ntwo"_s);

        mail.button("send")->click();

        QVERIFY(!mail.button("send")->isEnabled());
        QCOMPARE(mail.text("sendStatus"), u"Looking up mail servers"_s);
        QVERIFY(!QApplication::overrideCursor());
        QTRY_COMPARE(mail.text("sendStatus"), u"Message sent"_s);
        QVERIFY(mail.button("send")->isEnabled());
        QVERIFY(server.message().contains("\r\nSubject: scan.png\r\n"));
        QVERIFY(server.message().contains("\r\n\r\none\r\ntwo\r\n\r\n--"));
        QVERIFY(QFile::exists(mail.path));
        QCOMPARE(mail.closings, 0);
    }

    void theStatusIsOnTheScreenBeforeTheMessageIsComposed()
    {
        ScriptedMailServer server(host, goodSession);
        OpenMailForm mail;
        mail.openFilledIn();
        // The attachment is read between the painting and the end of the call, and no event is let in.
        struct Watch : QObject
        {
            bool eventFilter(QObject *watched, QEvent *event) override
            {
                if (event->type() == QEvent::Paint)
                    painted.append(qobject_cast<QLabel *>(watched)->text());
                return false;
            }
            QStringList painted;
        } watch;
        mail.widget<QLabel>("sendStatus")->installEventFilter(&watch);
        bool eventCame = false;
        QTimer::singleShot(0, &watch, [&] { eventCame = true; });

        mail.button("send")->click();

        QCOMPARE(watch.painted, QStringList{u"Looking up mail servers"_s});
        QVERIFY(!eventCame);
    }

    void deleteAfterSendClosesFirstAndThenDeletes()
    {
        ScriptedMailServer server(host, goodSession);
        OpenMailForm mail;
        mail.openFilledIn();
        mail.widget<QCheckBox>("delete_file")->setChecked(true);
        const DiagnosticLines diagnostics;

        mail.button("send")->click();

        QTRY_COMPARE(mail.closings, 1);
        QVERIFY(mail.wasThereAtClose);
        QVERIFY(!QFile::exists(mail.path));
        QVERIFY(diagnostics.contains(u"MailForm::enableSend() - remove file"_s));
        QVERIFY(mail.button("send")->isEnabled());
    }

    void deleteAfterSendDeletesAlsoAfterAFailure_data()
    {
        QTest::addColumn<QByteArrayList>("session");
        QTest::addColumn<bool>("showsBox");

        QTest::newRow("refused password")
            << QByteArrayList{"220 a\r\n", "250 b\r\n", "334 c\r\n", "334 d\r\n", "535 e\r\n"} << false;
        QTest::newRow("unexpected reply") << QByteArrayList{"554 no\r\n"} << true;
    }
    void deleteAfterSendDeletesAlsoAfterAFailure()
    {
        QFETCH(const QByteArrayList, session);
        QFETCH(const bool, showsBox);
        ScriptedMailServer server(host, session);
        OpenMailForm mail;
        mail.openFilledIn();
        mail.field("login")->setText(u"ann"_s);
        mail.field("password")->setText(u"wrong"_s);
        mail.widget<QCheckBox>("delete_file")->setChecked(true);
        std::optional<NextBox> box;
        if (showsBox)
            box.emplace(QMessageBox::Ok);

        mail.button("send")->click();

        QTRY_COMPARE(mail.closings, 1);
        QVERIFY(!QFile::exists(mail.path));
    }

    void aFileThatCannotBeDeletedIsTold()
    {
        ScriptedMailServer server(host, goodSession);
        OpenMailForm mail;
        mail.openFilledIn();
        mail.widget<QCheckBox>("delete_file")->setChecked(true);
        mail.button("send")->click();
        QVERIFY(QFile::remove(mail.path)); // it has been read by now
        const NextBox box(QMessageBox::Ok);

        QTRY_COMPARE(mail.closings, 1);
        QTRY_VERIFY(box.hasCome());

        QTRY_COMPARE(box.title(), u"File System Error"_s);
        QCOMPARE(box.text(), u"Unable to delete file %1"_s.arg(mail.path));
        QCOMPARE(box.buttons(), QMessageBox::Ok);
    }

    void boxesOfTheFormCountAmongTheSixteen()
    {
        ScriptedMailServer server(host, {"999 wrong\r\n"});
        OpenMailForm mail;
        mail.openFilledIn();
        mail.widget<QCheckBox>("delete_file")->setChecked(true);
        const DiagnosticLines diagnostics;
        int mostBoxes = 0;
        int said = 1;
        // The boxes about replies are answered, those about the file, which has gone with the first one, stand.
        QTimer user;
        connect(&user, &QTimer::timeout, &server, [&] {
            mostBoxes = std::max(mostBoxes, standing_boxes());
            if (server.connections() > 0 && said < 100) {
                ++said;
                server.say("999 wrong\r\n");
            }
            if (said == 100 || (top_box() && top_box()->windowTitle() == u"Mail system error"_s))
                answer_top_box();
        });
        user.start(0);

        mail.button("send")->click();

        QTRY_VERIFY_WITH_TIMEOUT(said == 100 && standing_boxes() == 0, 60000);
        QCOMPARE(mostBoxes, 16);
        QVERIFY(diagnostics.lines().count(u"Unknown state"_s) >= 16);
    }

    void closingTheFormEndsTheSession()
    {
        ScriptedMailServer server(host, goodSession.first(3));
        OpenMailForm mail;
        mail.openFilledIn();
        mail.button("send")->click();
        QTRY_VERIFY(server.received().contains("RCPT"));

        mail.form.reset();

        QTRY_VERIFY(server.hasEnded());
        QCOMPARE(mail.closings, 0);
    }

    void aSecondSendCutsTheFirst()
    {
        ScriptedMailServer server(host, goodSession.first(2));
        ScriptedMailServer next(u"127.0.0.3"_s, goodSession);
        OpenMailForm mail;
        mail.openFilledIn();
        mail.button("send")->click();
        QTRY_VERIFY(server.received().contains("MAIL"));
        // Saving enables Send while the session is under way.
        const QString target = mail.home.filePath(u"new.png"_s);
        const NextFileDialog user([&](QFileDialog &dialog) { NextFileDialog::accept(dialog, target); });
        mail.button("attach_as")->click();
        mail.field("server")->setText(u"127.0.0.3"_s);

        mail.button("send")->click();

        QTRY_VERIFY(server.hasEnded());
        QTRY_COMPARE(mail.text("sendStatus"), u"Message sent"_s);
        QVERIFY(next.message().contains("filename=\"new.png\""));
    }

    void twoSendsOneAfterTheOtherBothGoOut()
    {
        ScriptedMailServer server(host, goodSession);
        ScriptedMailServer next(u"127.0.0.3"_s, goodSession);
        OpenMailForm mail;
        mail.openFilledIn();
        mail.button("send")->click();
        QTRY_COMPARE(mail.text("sendStatus"), u"Message sent"_s);
        mail.field("server")->setText(u"127.0.0.3"_s);

        mail.button("send")->click();

        QTRY_COMPARE(mail.text("sendStatus"), u"Message sent"_s);
        QVERIFY(next.message().endsWith("\r\n.\n"));
    }

    void anAttachmentThatHasGoneLeavesSendOff()
    {
        ScriptedMailServer server(host, goodSession);
        OpenMailForm mail;
        mail.openFilledIn();
        QVERIFY(QFile::remove(mail.path));

        mail.button("send")->click();

        QCOMPARE(mail.text("sendStatus"), u"Looking up mail servers"_s);
        QVERIFY(!mail.button("send")->isEnabled());
        QCOMPARE(server.connections(), 0);
    }

    void anEmptyPortPassesAndDialsPort0()
    {
        OpenMailForm mail;
        mail.openFilledIn();
        mail.field("port")->clear();

        mail.button("send")->click();

        QTRY_COMPARE(mail.text("sendStatus"), u"Connecting to:\n127.0.0.2\nnowhere.test\nsmtp.nowhere.test"_s);
        QVERIFY(!mail.button("send")->isEnabled());
    }

    void aStrictSendThatFailsDeletesNothing()
    {
        ScriptedMailServer server(host, {"554 no\r\n"});
        OpenMailForm mail;
        QSettings().setValue(u"/ImageManager/mail_cfg/strict"_s, true);
        mail.openFilledIn();
        mail.widget<QCheckBox>("delete_file")->setChecked(true);
        const NextBox box(QMessageBox::Ok);

        mail.button("send")->click();

        QTRY_VERIFY(box.hasCome());
        QTRY_VERIFY(mail.button("send")->isEnabled());
        QCOMPARE(mail.text("sendStatus"), u"Message not sent"_s);
        QVERIFY(QFile::exists(mail.path));
        QCOMPARE(mail.closings, 0);
    }

    void aStrictSendThatSucceedsDeletes()
    {
        ScriptedMailServer server(host, goodSession);
        OpenMailForm mail;
        QSettings().setValue(u"/ImageManager/mail_cfg/strict"_s, true);
        mail.openFilledIn();
        mail.widget<QCheckBox>("delete_file")->setChecked(true);

        mail.button("send")->click();

        QTRY_COMPARE(mail.closings, 1);
        QVERIFY(!QFile::exists(mail.path));
        QVERIFY(server.received().startsWith("HELO [127.0.0.1]\r\n"));
    }

private:
    std::unique_ptr<NameServer> names;
};

TEST_MAIN_APART(QApplication, tst_MailForm_send, leave_common_network)
#include "tst_MailForm_send.moc"
