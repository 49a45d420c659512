#include "ftp_session.h"
#include "FtpMachine.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_FtpMachine_failures : public QObject
{
    Q_OBJECT

private slots:
    void failuresHaveTheirWordsAndCodes_data()
    {
        QTest::addColumn<QString>("step"); // what the session waits for
        QTest::addColumn<QString>("event");
        QTest::addColumn<QString>("failure");

        const auto connecting = u"Connecting to host failed:\n"_s;
        const auto login = u"Login failed:\n"_s;
        const auto uploading = u"Uploading file failed:\n"_s;
        const auto row = [](const char *name, const QString &step, const QString &event, int code,
                            const QString &text) {
            QTest::newRow(name) << step << event << u"! "_s + QString::number(code) + u' ' + text;
        };
        const QString greeting = u"220 Hello"_s;
        row("greeting 120", greeting, u"120 Later"_s, 12, connecting + u"Later"_s);
        row("greeting 421", greeting, u"421 Full"_s, 12, connecting + u"Full"_s);
        row("greeting 530", greeting, u"530 Not you"_s, 12, connecting + u"Not you"_s);
        row("greeting 230", greeting, u"230 In"_s, 12, connecting + u"In"_s);
        row("greeting without a number", greeting, u"SSH-2.0"_s, 12, connecting + u"SSH-2.0"_s);
        const QString user = u"331 Who?"_s;
        row("USER 530", user, u"530 No"_s, 5, login + u"No"_s);
        row("USER 430", user, u"430 No"_s, 5, login + u"No"_s);
        row("USER 332", user, u"332 Account"_s, 12, login + u"Account"_s);
        row("USER 500", user, u"500 What?"_s, 12, login + u"What?"_s);
        row("USER without a number", user, u"What?"_s, 12, login + u"What?"_s);
        const QString pass = u"230 In"_s;
        row("PASS 530", pass, u"530 No"_s, 5, login + u"No"_s);
        row("PASS 430", pass, u"430 No"_s, 5, login + u"No"_s);
        row("PASS 331", pass, u"331 Again"_s, 5, login + u"Again"_s);
        row("PASS 332", pass, u"332 Account"_s, 5, login + u"Account"_s);
        row("PASS 503", pass, u"503 Order"_s, 12, login + u"Order"_s);
        const QString type = u"200 Binary"_s;
        row("TYPE 504", type, u"504 No"_s, 12, uploading + u"No"_s);
        row("TYPE 530", type, u"530 No"_s, 12, uploading + u"No"_s);
        const QString passive = u"227 (1,2,3,4,4,18)"_s;
        row("PASV 425", passive, u"425 No"_s, 12, uploading + u"No"_s);
        row("PASV 502", passive, u"502 No"_s, 12, uploading + u"No"_s);
        row("PASV without a port", passive, u"227 Where?"_s, 12, uploading + u"Where?"_s);
        row("PASV with port 0", passive, u"227 (1,2,3,4,0,0)"_s, 12, uploading + u"(1,2,3,4,0,0)"_s);
        const QString dataConnection = u"data connected"_s;
        row("data refused", dataConnection, u"data refused"_s, 12,
            uploading + u"Connection refused for data connection"_s);
        row("data cut before STOR", dataConnection, u"data cut"_s, 12, uploading + u"Data connection closed"_s);
        row("unasked refusal", dataConnection, u"425 No"_s, 12, uploading + u"No"_s);
        row("ALLO without a number", u"202 No need"_s, u"What?"_s, 12, uploading + u"What?"_s);
        const QString store = u"150 Go on"_s;
        row("STOR 550", store, u"550 No"_s, 12, uploading + u"No"_s);
        row("STOR 553", store, u"553 Name"_s, 12, uploading + u"Name"_s);
        row("STOR 452", store, u"452 Full"_s, 12, uploading + u"Full"_s);
        row("STOR 350", store, u"350 And?"_s, 12, uploading + u"And?"_s);
        row("STOR 226 at once", store, u"226 Thanks"_s, 12, uploading + u"Thanks"_s);
        const QString sent = u"sent"_s;
        row("226 too early", sent, u"226 Thanks"_s, 12, uploading + u"Thanks"_s);
        row("451 while sending", sent, u"451 Disk"_s, 12, uploading + u"Disk"_s);
        row("file that has changed", sent, u"file failed"_s, 12, uploading + u"The local file has changed"_s);
        const QString end = u"226 Thanks"_s;
        row("426 after all", end, u"426 Cut"_s, 12, uploading + u"Cut"_s);
        row("552 after all", end, u"552 Full"_s, 12, uploading + u"Full"_s);
        row("no number after all", end, u"Thanks"_s, 12, uploading + u"Thanks"_s);
    }

    void failuresHaveTheirWordsAndCodes()
    {
        QFETCH(const QString, step);
        QFETCH(const QString, event);
        QFETCH(const QString, failure);
        FtpMachine machine(plain_request());
        (void)after_all(machine, session_up_to(step));

        QCOMPARE(after(machine, event), QStringList(failure));
    }

    void lostServerFailsAtEveryStep_data()
    {
        QTest::addColumn<qsizetype>("step");
        QTest::addColumn<QString>("event");
        QTest::addColumn<QString>("text");
        for (qsizetype i = 0; i < wholeSession.size(); ++i) {
            const QByteArray next = wholeSession.at(i).toUtf8();
            QTest::addRow("closing before %s", next.data()) << i << u"421 Bye"_s << u"Bye"_s;
            QTest::addRow("lost before %s", next.data()) << i << u"lost"_s << u"Connection to h closed"_s;
        }
    }

    void lostServerFailsAtEveryStep()
    {
        QFETCH(const qsizetype, step);
        QFETCH(const QString, event);
        QFETCH(const QString, text);
        FtpMachine machine(plain_request());
        (void)after_all(machine, wholeSession.first(step));

        const QString prefix = step < 1 ? u"Connecting to host"_s : step < 3 ? u"Login"_s : u"Uploading file"_s;
        QCOMPARE(after(machine, event), QStringList(u"! 12 "_s + prefix + u" failed:\n"_s + text));
    }

    void lastWordsOfALostConnectionGiveTheText_data()
    {
        QTest::addColumn<FtpReply>("lastWords");
        QTest::addColumn<QString>("text");
        QTest::newRow("a failure") << FtpReply{.code = 421, .text = u"Going do"_s} << u"Going do"_s;
        QTest::newRow("half a confirmation, which confirms nothing")
            << FtpReply{.code = 226, .text = u"Tha"_s} << u"Connection to h closed"_s;
    }

    void lastWordsOfALostConnectionGiveTheText()
    {
        QFETCH(const FtpReply, lastWords);
        QFETCH(const QString, text);
        FtpMachine machine(plain_request());
        (void)after_all(machine, session_up_to(u"226 Thanks"));

        QCOMPARE(words(machine.connectionLost(lastWords)), QStringList(u"! 12 Uploading file failed:\n"_s + text));
    }

    void controlCharactersSendNothing_data()
    {
        QTest::addColumn<QString>("character");
        QTest::newRow("line feed") << u"\n"_s;
        QTest::newRow("carriage return") << u"\r"_s;
        QTest::newRow("NUL") << QString(QChar(u'\0'));
        QTest::newRow("tabulator") << u"\t"_s;
        QTest::newRow("escape") << u"\x1b"_s;
        QTest::newRow("delete") << u"\x7f"_s;
        QTest::newRow("next line") << u"\u0085"_s;
    }

    void controlCharactersSendNothing()
    {
        QFETCH(const QString, character);
        const QString text = u"a"_s + character + u"b"_s;
        FtpRequest inPath = plain_request();
        inPath.path = u'/' + text;
        FtpRequest inUser = plain_request();
        inUser.user = text;
        FtpRequest inPassword = plain_request();
        inPassword.password = text;

        for (const FtpRequest &request : {inPath, inUser, inPassword}) {
            FtpMachine machine(request);
            QCOMPARE(words(machine.start()), QStringList(u"! 12 Uploading file failed:\nInvalid character in name"_s));
        }
    }

    void serversWordsWinOverALostDataConnection()
    {
        FtpMachine machine(plain_request());
        (void)after_all(machine, session_up_to(u"sent"));

        QCOMPARE(after(machine, u"data cut"_s), QStringList(u"await"_s));
        QCOMPARE(after(machine, u"452 Disk full"_s), QStringList(u"! 12 Uploading file failed:\nDisk full"_s));
        QCOMPARE(after(machine, u"no words"_s), QStringList());
    }

    void confirmationAfterALostDataConnectionIsNone()
    {
        FtpMachine machine(plain_request());
        (void)after_all(machine, session_up_to(u"150 Go on"));

        QCOMPARE(after(machine, u"data cut"_s), QStringList(u"await"_s));
        QCOMPARE(after(machine, u"150 Go on"_s), QStringList());
        QCOMPARE(after(machine, u"226 Thanks"_s), QStringList(u"! 12 Uploading file failed:\nThanks"_s));
    }

    void passwordThatAServerRepeatsIsNotShown()
    {
        FtpMachine early(plain_request());
        (void)after_all(early, session_up_to(u"230 In"));
        QCOMPARE(after(early, u"500 'PASS secret' not known"_s),
                 QStringList(u"! 12 Login failed:\n'PASS ***' not known"_s));

        // A server that is a reply behind says so later.
        FtpMachine late(plain_request());
        (void)after_all(late, session_up_to(u"230 In"));
        (void)after(late, u"230 In"_s);
        QCOMPARE(after(late, u"500 'PASS secret' not known"_s),
                 QStringList(u"! 12 Uploading file failed:\n'PASS ***' not known"_s));
    }
};

QTEST_GUILESS_MAIN(tst_FtpMachine_failures)
#include "tst_FtpMachine_failures.moc"
