#include "DiagnosticLines.h"
#include "NameServer.h"
#include "NextBox.h"
#include "private_namespaces.h"
#include "ScriptedMailServer.h"
#include "SentMail.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

const QString host = u"127.0.0.2"_s; ///< of example.test

const QByteArrayList plainSession{"220 hi\r\n",    "250 helo\r\n",  "250 sender\r\n", "250 recipient\r\n",
                                  "354 go on\r\n", "250 taken\r\n", "221 bye\r\n"};
const QByteArrayList loginSession{"220 hi\r\n",        "250-one\r\n250-AUTH PLAIN LOGIN\r\n250 three\r\n",
                                  "334 VXNlcg==\r\n",  "334 UGFzcw==\r\n",
                                  "235 welcome\r\n",   "250 sender\r\n",
                                  "250 recipient\r\n", "354 go on\r\n",
                                  "250 taken\r\n",     "221 bye\r\n"};

/// The replies up to the one that brings a session with or without a login into a state, and the reply put in its
/// place there.
QByteArrayList session_that_ends_with(const QByteArrayList &session, int replies, const QByteArray &last)
{
    return session.first(replies) + QByteArrayList{last};
}

} // namespace

class tst_Smtp : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        names = std::make_unique<NameServer>(QStringList{u"--host-record=example.test,127.0.0.2"_s});
    }
    void cleanupTestCase() { names.reset(); }

    void aSessionWithoutALoginHasTheseBytes()
    {
        ScriptedMailServer server(host, plainSession);
        SentMail mail;

        mail.send();

        QTRY_COMPARE(mail.completions, 1);
        QTRY_VERIFY(server.received().endsWith("QUIT\n"));
        const QByteArray message = server.message();
        QCOMPARE(server.received(),
                 "HELO there\nMAIL FROM: <ann@example.test>\nRCPT TO: <bob@example.test>\nDATA\n" + message + "QUIT\n");
        QVERIFY(message.startsWith("Return-Path: <ann@example.test>\r\nFrom: <ann@example.test>\r\n"));
        QVERIFY(message.endsWith("\r\n\r\nQUJD\r\n\r\n\r\n--NextPart_KOLMA_Boundary.7976494--\r\n.\n"));
    }

    void aSessionWithALoginHasTheseBytes()
    {
        ScriptedMailServer server(host, loginSession);
        SentMail mail;
        mail.login = u"ann"_s;
        mail.password = u"s3cret"_s;

        mail.send();

        QTRY_COMPARE(mail.completions, 1);
        QTRY_VERIFY(server.received().endsWith("QUIT\n"));
        QCOMPARE(server.received(),
                 "EHLO there\nAUTH LOGIN\nYW5u\nczNjcmV0\nMAIL FROM: <ann@example.test>\n"
                 "RCPT TO: <bob@example.test>\nDATA\n"
                     + server.message() + "QUIT\n");
    }

    void theUserIsToldInThisOrder()
    {
        ScriptedMailServer server(u"127.0.0.5"_s, loginSession);
        SentMail mail(u"127.0.0.5"_s);
        mail.login = u"ann"_s;
        mail.password = u"s3cret"_s;

        mail.send();

        QTRY_COMPARE(mail.completions, 1);
        QCOMPARE(
            mail.statuses,
            (QStringList{u"Connecting to:\n127.0.0.5\nexample.test\nsmtp.example.test"_s, u"Connected to 127.0.0.5"_s,
                         u"Authentication..."_s, u"Sending mail..."_s, u"Message sent"_s, u"(completed)"_s}));
    }

    void aLoginTakesBothItsHalves_data()
    {
        QTest::addColumn<QString>("login");
        QTest::addColumn<QString>("password");
        QTest::addColumn<QByteArrayList>("session");
        QTest::addColumn<QByteArray>("wire");

        QTest::newRow("login alone, which is none")
            << u"ann"_s << QString() << plainSession << "HELO there\nMAIL FROM: "_ba;
        QTest::newRow("password alone, which is none")
            << QString() << u"s3cret"_s << plainSession << "HELO there\nMAIL FROM: "_ba;
        QTest::newRow("beyond ASCII, in Latin-1")
            << u"ann"_s << u"é"_s << loginSession << "EHLO there\nAUTH LOGIN\nYW5u\n6Q==\nMAIL FROM: "_ba;
    }
    void aLoginTakesBothItsHalves()
    {
        QFETCH(const QString, login);
        QFETCH(const QString, password);
        QFETCH(const QByteArrayList, session);
        QFETCH(const QByteArray, wire);
        ScriptedMailServer server(host, session);
        SentMail mail;
        mail.login = login;
        mail.password = password;

        mail.send();

        QTRY_COMPARE(mail.completions, 1);
        QVERIFY(server.received().startsWith(wire));
    }

    void aRefusedPasswordEndsAsIfTheMailHadGone()
    {
        ScriptedMailServer server(host, session_that_ends_with(loginSession, 4, "535 no\r\n"));
        SentMail mail;
        mail.login = u"ann"_s;
        mail.password = u"wrong"_s;

        mail.send(); // a box would keep the test waiting

        QTRY_COMPARE(mail.completions, 1);
        QCOMPARE(mail.statuses.last(2), (QStringList{u"Message sent"_s, u"(completed)"_s}));
        QTRY_COMPARE(server.received(), "EHLO there\nAUTH LOGIN\nYW5u\nd3Jvbmc=\nQUIT\n"_ba);
        QVERIFY(mail.smtp->releasesFile());
    }

    void aReplyThatFitsNowhereIsShownAndCompletes_data()
    {
        QTest::addColumn<bool>("withLogin");
        QTest::addColumn<int>("step");
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<QStringList>("lines");

        const QString unknown = u"Unknown state"_s;
        const auto row = [&](const char *name, bool withLogin, int step, const QByteArray &reply, const char *handler) {
            QTest::newRow(name) << withLogin << step << reply
                                << (handler ? QStringList{QString::fromLatin1(handler), unknown}
                                            : QStringList{unknown});
        };
        row("greeting: refused", false, 0, "554 no\r\n", nullptr);
        row("greeting: 250", false, 0, "250 no\r\n", "250 no handler !!!");
        row("greeting: 221", false, 0, "221 no\r\n", nullptr);
        row("HELO: a second greeting", false, 1, "220 again\r\n", "220 no handler !!!");
        row("HELO: refused", false, 1, "502 no\r\n", nullptr);
        row("EHLO: refused", true, 1, "502 no\r\n", nullptr);
        row("AUTH: 250", true, 2, "250 no\r\n", "250 no handler !!!");
        row("AUTH: 235", true, 2, "235 no\r\n", "235 no handler !!!");
        row("AUTH: 535", true, 2, "535 no\r\n", "535 no handler !!!");
        row("user: 535", true, 3, "535 no\r\n", "535 no handler !!!");
        row("password: 334", true, 4, "334 again\r\n", "334 no handler !!!");
        row("password: 501", true, 4, "501 no\r\n", nullptr);
        row("MAIL: refused", false, 2, "550 no\r\n", nullptr);
        row("MAIL: 354", false, 2, "354 no\r\n", "354 no handler !!!");
        row("RCPT: refused", false, 3, "550 nobody here\r\n", nullptr);
        row("RCPT: 251", false, 3, "251 elsewhere\r\n", nullptr);
        row("DATA: 250", false, 4, "250 no\r\n", "250 no handler !!!");
        row("message: refused", false, 5, "552 too large\r\n", nullptr);
        row("message: 221", false, 5, "221 bye\r\n", nullptr);
        row("no number", false, 0, "hello\r\n", nullptr);
        row("an empty line", false, 0, "\r\n", nullptr);
        row("a number in the middle", false, 0, "x220 hi\r\n", nullptr);
        row("a code that is 220 in 32 bits", false, 0, "4294967516 hi\r\n", nullptr);
    }
    void aReplyThatFitsNowhereIsShownAndCompletes()
    {
        QFETCH(const bool, withLogin);
        QFETCH(const int, step);
        QFETCH(const QByteArray, reply);
        QFETCH(const QStringList, lines);
        ScriptedMailServer server(host, session_that_ends_with(withLogin ? loginSession : plainSession, step, reply));
        SentMail mail;
        mail.login = withLogin ? u"ann"_s : QString();
        mail.password = withLogin ? u"s3cret"_s : QString();
        DiagnosticLines diagnostics;
        for (const QString &line : lines)
            diagnostics.expect(line);
        const NextBox box(QMessageBox::Ok);

        mail.send();

        QTRY_COMPARE(mail.completions, 1);
        QCOMPARE(box.title(), u"Mail system error"_s);
        QCOMPARE(box.text(), u"Unexpected reply from SMTP server:\n\n"_s + QString::fromLatin1(reply));
        QCOMPARE(box.buttons(), QMessageBox::Ok);
        QCOMPARE(diagnostics.lines(), lines);
        QVERIFY(!server.received().endsWith("QUIT\n"));
        QVERIFY(!server.hasEnded());
        QVERIFY(mail.smtp->releasesFile()); // Intended: nobody tells failure from success
    }

    void afterAnUnexpectedReplyTheNextOneIsJudgedInTheSameState()
    {
        ScriptedMailServer server(host, session_that_ends_with(plainSession, 3, "450 later\r\n"));
        SentMail mail;
        {
            const NextBox box(QMessageBox::Ok);
            mail.send();
            QTRY_COMPARE(mail.completions, 1);
        }

        server.say("250 now\r\n");

        QTRY_VERIFY(server.received().endsWith("DATA\n"));
    }

    void theGoodByeIsIgnored()
    {
        ScriptedMailServer server(host, plainSession);
        SentMail mail;
        mail.send();
        QTRY_COMPARE(mail.completions, 1);
        QTRY_VERIFY(mail.smtp->response().endsWith(u"221 bye\r\n"_s));

        server.say("221 again\r\n"); // a box would keep the test waiting

        QTRY_VERIFY(mail.smtp->response().endsWith(u"221 again\r\n"_s));
        QCOMPARE(mail.completions, 1);
        QVERIFY(!server.hasEnded()); // Intended: the connection stays until its owner ends it
    }

    void aReplyInTwoReadsCountsTwice()
    {
        ScriptedMailServer server(host, {"220 hi\r\n", "250-first\r\n"});
        SentMail mail;
        mail.send();

        // The first part already counts as the whole: HELO is answered.
        QTRY_COMPARE(server.received(), "HELO there\nMAIL FROM: <ann@example.test>\n"_ba);
        server.say("250 second\r\n");

        QTRY_COMPARE(server.received(), "HELO there\nMAIL FROM: <ann@example.test>\nRCPT TO: <bob@example.test>\n"_ba);
    }

    void aReadEndsWhereAReplyDoes_data()
    {
        QTest::addColumn<QByteArrayList>("replies");
        QTest::addColumn<QByteArray>("received");
        QTest::addColumn<QString>("response");

        const QByteArray hello = "HELO there\n";
        const QByteArray mail = "MAIL FROM: <ann@example.test>\n";
        QTest::newRow("many lines in one read are taken whole")
            << QByteArrayList{"220-a\r\n220-b\r\n220 c\r\n", "250-a\r\n250-b\r\n250 c\r\n"} << hello + mail
            << u"220-a\r\n220-b\r\n220 c\r\n250-a\r\n250-b\r\n250 c\r\n"_s;
        // The early line waits for the next read, which stops behind it: the line behind that one waits in turn.
        QTest::newRow("the first line with a blank behind the code ends the read")
            << QByteArrayList{"220 hi\r\n250 early\r\n", "250 helo\r\n"} << hello + mail
            << u"220 hi\r\n250 early\r\n"_s;
        QTest::newRow("a short line does not end the read")
            << QByteArrayList{"220\n\n220 hi\r\n"} << hello << u"220\n\n220 hi\r\n"_s;
        QTest::newRow("a line ends at its first NUL") << QByteArrayList{"220 h\0i\r\n"_ba} << hello << u"220 h"_s;
    }
    void aReadEndsWhereAReplyDoes()
    {
        QFETCH(const QByteArrayList, replies);
        QFETCH(const QByteArray, received);
        QFETCH(const QString, response);
        ScriptedMailServer server(host, replies);
        SentMail mail;

        mail.send();

        QTRY_COMPARE(server.received(), received);
        QCOMPARE(mail.smtp->response(), response);
    }

    void aPartOfALineStaysUntilItsEndComes()
    {
        ScriptedMailServer server(host, {"22"});
        SentMail mail;
        DiagnosticLines diagnostics;
        mail.send();
        QTRY_COMPARE(diagnostics.lines(), QStringList{u"can not read line"_s});

        server.say("0 hi\r\n");

        QTRY_COMPARE(server.received(), "HELO there\n"_ba);
        QCOMPARE(mail.smtp->response(), u"220 hi\r\n"_s);
    }

    void everyByteOfASessionMayComeAlone()
    {
        ScriptedMailServer server(host);
        SentMail mail;
        mail.send();
        QTRY_COMPARE(server.connections(), 1);
        const QByteArray greeting = "220 hi\r\n";
        const Q3Socket *const socket = mail.connectedSocket();
        QVERIFY(socket);

        for (qsizetype i = 0; i < greeting.size(); ++i) {
            server.say(greeting.mid(i, 1));
            if (i + 1 < greeting.size())
                QTRY_COMPARE(socket->bytesAvailable(), qint64{i + 1});
        }

        QTRY_COMPARE(server.received(), "HELO there\n"_ba);
    }

    void aMessageBeyondAsciiGoesOutInTheEncodingOfTheLocale()
    {
        ScriptedMailServer server(host, plainSession);
        SentMail mail;
        mail.subject = u"Grüße 😀"_s;

        mail.send();

        QTRY_COMPARE(mail.completions, 1);
        QVERIFY(server.message().contains("\r\nSubject: Gr\xc3\xbc\xc3\x9f"
                                          "e \xf0\x9f\x98\x80\r\n")); // UTF-8
    }

    void aLoneFullStopInTheBodyEndsTheMessageEarly()
    {
        ScriptedMailServer server(host, plainSession);
        SentMail mail;
        mail.body = u"before\n.\nbehind"_s;

        mail.send();

        QTRY_COMPARE(mail.completions, 1);
        QVERIFY(server.message().endsWith("before\r\n.\r\n"));
        QTRY_VERIFY(server.received().contains("\r\n.\r\nbehind\r\n"));
    }

private:
    std::unique_ptr<NameServer> names;
};

TEST_MAIN_APART(QApplication, tst_Smtp, leave_common_network)
#include "tst_Smtp.moc"
