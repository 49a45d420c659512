#include "NameServer.h"
#include "NextBox.h"
#include "private_namespaces.h"
#include "ScriptedMailServer.h"
#include "SentMail.h"
#include "StrictSmtpPolicy.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

const QString host = u"127.0.0.2"_s;
const QByteArrayList plainSession{"220 a\r\n", "250 b\r\n", "250 c\r\n", "250 d\r\n", "354 e\r\n", "250 f\r\n"};

/// Gives a server a moment.
class HastyPolicy : public StrictSmtpPolicy
{
public:
    [[nodiscard]] std::chrono::milliseconds patience(SmtpState state, bool isSending) const override
    {
        return StrictSmtpPolicy::patience(state, isSending).count() > 0 ? std::chrono::milliseconds(50)
                                                                        : std::chrono::milliseconds(0);
    }
};

} // namespace

class tst_Smtp_strict : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        names = std::make_unique<NameServer>(
            QStringList{u"--mx-host=two.test,first.two.test,10"_s, u"--mx-host=two.test,second.two.test,20"_s,
                        u"--host-record=first.two.test,127.0.0.11"_s, u"--host-record=second.two.test,127.0.0.12"_s,
                        u"--host-record=plain.test,127.0.0.13"_s, u"--dns-rr=null.test,15,000000"_s});
    }
    void cleanupTestCase() { names.reset(); }

    void everyLineOfASessionEndsInCrLf()
    {
        ScriptedMailServer server(host, plainSession);
        server.refuseBareLineFeeds();
        SentMail mail(host);

        mail.send(smtp_policy(true));

        QTRY_COMPARE(mail.completions, 1);
        QTRY_VERIFY(server.received().endsWith("QUIT\r\n"));
        QCOMPARE(server.received(),
                 "HELO [127.0.0.1]\r\nMAIL FROM:<ann@example.test>\r\nRCPT TO:<bob@example.test>\r\nDATA\r\n"
                     + server.message() + "QUIT\r\n");
        QVERIFY(server.message().endsWith("\r\n.\r\n"));
        QCOMPARE(server.received().count('\n'), server.received().count("\r\n"));
        QVERIFY(mail.smtp->releasesFile());
        QCOMPARE(mail.statuses.first(), u"Connecting to:\n127.0.0.2"_s);
    }

    void leadingFullStopsOfTheBodyAreDoubled()
    {
        ScriptedMailServer server(host, plainSession);
        SentMail mail(host);
        mail.body = u".\n.a\n..\nb."_s;

        mail.send(smtp_policy(true));

        QTRY_COMPARE(mail.completions, 1);
        QVERIFY(server.message().contains("\r\n\r\n..\r\n..a\r\n...\r\nb.\r\n\r\n--"));
    }

    void aReplyCountsOnceHoweverItIsSplit()
    {
        ScriptedMailServer server(host, {"220-a\r\n"});
        SentMail mail(host);
        mail.send(smtp_policy(true));
        QTRY_COMPARE(mail.smtp->response(), u"220-a\r\n"_s);
        QVERIFY(server.received().isEmpty());

        server.say("220 b\r\n");

        QTRY_COMPARE(server.received(), "HELO [127.0.0.1]\r\n"_ba);
        server.say("250-a\r\n250-b\r\n");
        QTRY_VERIFY(mail.smtp->response().endsWith(u"250-b\r\n"_s));
        server.say("250\r\n"); // no text is a last line as well
        QTRY_COMPARE(server.received(), "HELO [127.0.0.1]\r\nMAIL FROM:<ann@example.test>\r\n"_ba);
    }

    void aLoginGoesByWhatIsOffered_data()
    {
        QTest::addColumn<QByteArray>("ability");
        QTest::addColumn<QByteArrayList>("replies");
        QTest::addColumn<QByteArray>("wire");

        QTest::newRow("LOGIN before PLAIN")
            << "250-AUTH PLAIN LOGIN\r\n"_ba << QByteArrayList{"334 a\r\n", "334 b\r\n", "235 c\r\n"}
            << "AUTH LOGIN\r\nYW5u\r\nw6k=\r\n"_ba;
        QTest::newRow("PLAIN alone") << "250-auth plain cram-md5\r\n"_ba << QByteArrayList{"334 \r\n", "235 c\r\n"}
                                     << "AUTH PLAIN\r\nAGFubgDDqQ==\r\n"_ba;
        QTest::newRow("as it was told of old")
            << "250-AUTH=LOGIN\r\n"_ba << QByteArrayList{"334 a\r\n", "334 b\r\n", "235 c\r\n"}
            << "AUTH LOGIN\r\nYW5u\r\nw6k=\r\n"_ba;
    }
    void aLoginGoesByWhatIsOffered()
    {
        QFETCH(const QByteArray, ability);
        QFETCH(const QByteArrayList, replies);
        QFETCH(const QByteArray, wire);
        ScriptedMailServer server(host, QByteArrayList{"220 a\r\n", "250-x\r\n" + ability + "250 y\r\n"} + replies);
        SentMail mail(host);
        mail.login = u"ann"_s;
        mail.password = u"\u00e9"_s;

        mail.send(smtp_policy(true));

        QTRY_COMPARE(server.received(), "EHLO [127.0.0.1]\r\n" + wire + "MAIL FROM:<ann@example.test>\r\n");
    }

    void whatKeepsTheMailFromBeingSentIsToldAndNothingMoreIsSent_data()
    {
        QTest::addColumn<QByteArrayList>("replies");
        QTest::addColumn<QString>("login");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("lastLine");

        const QString unexpected = u"Unexpected reply from SMTP server:\n\n"_s;
        QTest::newRow("no login offered")
            << QByteArrayList{"220 a\r\n", "250-x\r\n250 AUTH CRAM-MD5\r\n"} << u"ann"_s
            << u"The mail server offers no login that this program knows."_s << "EHLO [127.0.0.1]\r\nQUIT\r\n"_ba;
        QTest::newRow("refused password")
            << QByteArrayList{"220 a\r\n", "250 AUTH LOGIN\r\n", "334 a\r\n", "334 b\r\n", "535 wrong\r\n"} << u"ann"_s
            << unexpected + u"535 wrong\r\n"_s << "cA==\r\nQUIT\r\n"_ba;
        QTest::newRow("greeting") << QByteArrayList{"554 no\r\n"} << QString() << unexpected + u"554 no\r\n"_s
                                  << "QUIT\r\n"_ba;
        QTest::newRow("recipient, in two lines")
            << QByteArrayList{"220 a\r\n", "250 b\r\n", "250 c\r\n", "550-no\r\n550 body\r\n"} << QString()
            << unexpected + u"550-no\r\n550 body\r\n"_s << "RCPT TO:<bob@example.test>\r\nQUIT\r\n"_ba;
        QTest::newRow("for now, and no other host")
            << QByteArrayList{"220 a\r\n", "450 later\r\n"} << QString() << unexpected + u"450 later\r\n"_s
            << "HELO [127.0.0.1]\r\nQUIT\r\n"_ba;
        QTest::newRow("message") << QByteArrayList{"220 a\r\n", "250 b\r\n", "250 c\r\n",
                                                   "250 d\r\n", "354 e\r\n", "552 large\r\n"}
                                 << QString() << unexpected + u"552 large\r\n"_s << "\r\n.\r\nQUIT\r\n"_ba;
        QTest::newRow("no number") << QByteArrayList{"hello\r\n"} << QString() << unexpected + u"hello\r\n"_s
                                   << "QUIT\r\n"_ba;
    }
    void whatKeepsTheMailFromBeingSentIsToldAndNothingMoreIsSent()
    {
        QFETCH(const QByteArrayList, replies);
        QFETCH(const QString, login);
        QFETCH(const QString, text);
        QFETCH(const QByteArray, lastLine);
        ScriptedMailServer server(host, replies);
        SentMail mail(host);
        mail.login = login;
        mail.password = u"p"_s;
        const NextBox box(QMessageBox::Ok);

        mail.send(smtp_policy(true));

        QTRY_COMPARE(mail.completions, 1);
        QCOMPARE(box.title(), u"Mail system error"_s);
        QCOMPARE(box.text(), text);
        QCOMPARE(mail.statuses.last(2), (QStringList{u"Message not sent"_s, u"(completed)"_s}));
        QVERIFY(!mail.smtp->releasesFile());
        QTRY_VERIFY2(server.received().endsWith(lastLine), server.received().constData());
    }

    void whatIsKnownBeforehandIsToldWithoutAConnection_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("text");

        QTest::newRow("login") << u"login"_s
                               << u"A login is sent to no server but the one that is filled in.\n"
                                  "Fill in \"Server\", or empty \"Login\"."_s;
        QTest::newRow("address") << u"address"_s << u"This address cannot be used:\nj\u00f6rg@example.test"_s;
        QTest::newRow("missing file") << u"missing"_s << u"The attached file cannot be read."_s;
        QTest::newRow("folder") << u"folder"_s << u"The attached file cannot be read."_s;
        QTest::newRow("refused lookup") << u"refused"_s
                                        << u"The mail servers of elsewhere.example cannot be looked up at present."_s;
        QTest::newRow("null exchanger") << u"null"_s << u"The domain null.test takes no mail."_s;
    }
    void whatIsKnownBeforehandIsToldWithoutAConnection()
    {
        QFETCH(const QString, kind);
        QFETCH(const QString, text);
        SentMail mail;
        if (kind == "login"_L1)
            mail.login = u"ann"_s;
        else if (kind == "address"_L1)
            mail.from = u"j\u00f6rg@example.test"_s;
        else if (kind == "missing"_L1)
            QVERIFY(QFile::remove(mail.attachment));
        else if (kind == "folder"_L1)
            mail.attachment = mail.directory.path();
        else if (kind == "refused"_L1) // the name server knows "test" alone
            mail.to = u"bob@elsewhere.example"_s;
        else
            mail.to = u"bob@null.test"_s;
        const NextBox box(QMessageBox::Ok);

        mail.send(smtp_policy(true));

        QTRY_COMPARE(mail.completions, 1);
        QCOMPARE(box.text(), text);
        QVERIFY(mail.smtp->findChildren<Q3Socket *>().isEmpty());
        QVERIFY(!mail.smtp->releasesFile());
    }

    void theNextHostIsTriedAfterATemporaryFailureAlone_data()
    {
        QTest::addColumn<QByteArrayList>("first");
        QTest::addColumn<int>("connectionsToSecond");

        QTest::newRow("nobody there") << QByteArrayList() << 1;
        QTest::newRow("busy at the greeting") << QByteArrayList{"421 busy\r\n"} << 1;
        QTest::newRow("recipient for now")
            << QByteArrayList{"220 a\r\n", "250 b\r\n", "250 c\r\n", "451 later\r\n"} << 1;
        QTest::newRow("recipient for ever") << QByteArrayList{"220 a\r\n", "250 b\r\n", "250 c\r\n", "550 no\r\n"} << 0;
    }
    void theNextHostIsTriedAfterATemporaryFailureAlone()
    {
        QFETCH(const QByteArrayList, first);
        QFETCH(const int, connectionsToSecond);
        ScriptedMailServer firstServer(u"127.0.0.11"_s, first);
        if (first.isEmpty())
            firstServer.stopListening();
        ScriptedMailServer second(u"127.0.0.12"_s, plainSession);
        SentMail mail;
        mail.to = u"bob@two.test"_s;
        std::optional<NextBox> box;
        if (connectionsToSecond == 0)
            box.emplace(QMessageBox::Ok);

        mail.send(smtp_policy(true));

        QTRY_COMPARE(mail.completions, 1);
        QCOMPARE(second.connections(), connectionsToSecond);
        QCOMPARE(mail.smtp->releasesFile(), connectionsToSecond == 1);
        QCOMPARE(mail.statuses.first(), u"Connecting to:\nfirst.two.test"_s);
        QCOMPARE(mail.statuses.contains(u"Connecting to:\nsecond.two.test"_s), connectionsToSecond == 1);
        if (connectionsToSecond == 1)
            QVERIFY(second.message().endsWith("\r\n.\r\n"));
    }

    void aDomainWithoutExchangersIsItsOwnHost()
    {
        ScriptedMailServer server(u"127.0.0.13"_s, {"220 a\r\n"});
        SentMail mail;
        mail.to = u"bob@plain.test"_s;

        mail.send(smtp_policy(true));

        QTRY_COMPARE(server.received(), "HELO [127.0.0.1]\r\n"_ba);
        QCOMPARE(mail.statuses.first(), u"Connecting to:\nplain.test"_s);
    }

    void aConnectionThatIsLostIsTold_data()
    {
        QTest::addColumn<int>("replies");

        for (int i = 0; i <= 5; ++i)
            QTest::addRow("after %d replies", i) << i;
    }
    void aConnectionThatIsLostIsTold()
    {
        QFETCH(const int, replies);
        ScriptedMailServer server(host, plainSession.first(replies));
        SentMail mail(host);
        const NextBox box(QMessageBox::Ok);
        mail.send(smtp_policy(true));
        QVERIFY(mail.connectedSocket());
        QTRY_COMPARE(mail.smtp->response().count(u'\n'), replies);

        server.hangUp();

        QTRY_COMPARE(mail.completions, 1);
        QCOMPARE(box.text(), u"The connection to the mail server is lost."_s);
        QVERIFY(!mail.smtp->releasesFile());
    }

    void aServerThatIsNotThereIsTold()
    {
        SentMail mail(host);
        const NextBox box(QMessageBox::Ok);

        mail.send(smtp_policy(true));

        QTRY_COMPARE(mail.completions, 1);
        QCOMPARE(box.text(), u"No connection to 127.0.0.2."_s);
    }

    void aServerThatFallsSilentIsGivenUpAndTold_data() { aConnectionThatIsLostIsTold_data(); }
    void aServerThatFallsSilentIsGivenUpAndTold()
    {
        QFETCH(const int, replies);
        static const HastyPolicy hasty;
        ScriptedMailServer server(host, plainSession.first(replies));
        SentMail mail(host);
        const NextBox box(QMessageBox::Ok);

        mail.send(hasty);

        QTRY_COMPARE(mail.completions, 1);
        QCOMPARE(box.text(), u"The mail server does not answer."_s);
        QCOMPARE(mail.smtp->response().count(u'\n'), replies);
    }

    void afterTheVerdictNothingIsToldAnyMore()
    {
        ScriptedMailServer server(host, plainSession);
        SentMail mail(host);
        mail.send(smtp_policy(true));
        QTRY_COMPARE(mail.completions, 1);
        const Q3Socket *const socket = mail.connectedSocket();
        QVERIFY(socket);

        server.say("599 what\r\n"); // a box would keep the test waiting
        server.hangUp();

        QTRY_COMPARE(socket->state(), Q3Socket::Idle);
        QCOMPARE(mail.completions, 1);
    }

    void timesAreThoseOfTheStandard()
    {
        using namespace std::chrono_literals;
        const StrictSmtpPolicy policy;

        QCOMPARE(policy.patience(SmtpState::Init, false), 5min);
        QCOMPARE(policy.patience(SmtpState::Mail, false), 5min);
        QCOMPARE(policy.patience(SmtpState::Rcpt, false), 5min);
        QCOMPARE(policy.patience(SmtpState::Data, false), 2min);
        QCOMPARE(policy.patience(SmtpState::Body, true), 3min);
        QCOMPARE(policy.patience(SmtpState::Body, false), 10min);
        QCOMPARE(policy.patience(SmtpState::Close, false), 0min);
    }

private:
    std::unique_ptr<NameServer> names;
};

TEST_MAIN_APART(QApplication, tst_Smtp_strict, leave_common_network)
#include "tst_Smtp_strict.moc"
