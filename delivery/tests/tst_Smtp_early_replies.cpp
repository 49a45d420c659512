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
constexpr qsizetype Mebibyte = qsizetype{1024} * 1024;
const QByteArrayList plainSession{"220 a\r\n", "250 b\r\n", "250 c\r\n", "250 d\r\n", "354 e\r\n", "250 f\r\n"};

} // namespace

/// Replies that come before what they would be the answers to has gone out, by the policy that tells failures.
class tst_Smtp_early_replies : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        names = std::make_unique<NameServer>(
            QStringList{u"--mx-host=two.test,first.two.test,10"_s, u"--mx-host=two.test,second.two.test,20"_s,
                        u"--host-record=first.two.test,127.0.0.11"_s, u"--host-record=second.two.test,127.0.0.12"_s});
    }
    void cleanupTestCase() { names.reset(); }

    void aHostThatPutsTheMessageOffTooSoonGetsNoMoreOfIt_data()
    {
        QTest::addColumn<qsizetype>("size");

        QTest::newRow("all of it waits in the socket") << qsizetype{3};
        QTest::newRow("in pieces") << 30 * Mebibyte;
    }
    void aHostThatPutsTheMessageOffTooSoonGetsNoMoreOfIt()
    {
        QFETCH(const qsizetype, size);
        ScriptedMailServer first(u"127.0.0.11"_s, plainSession.first(4) + QByteArrayList{"354 e\r\n451 later\r\n"});
        ScriptedMailServer second(u"127.0.0.12"_s, plainSession);
        SentMail mail;
        mail.to = u"bob@two.test"_s;
        mail.attach(QByteArray(size, 'x'));

        mail.send(smtp_policy(true));

        QTRY_COMPARE_WITH_TIMEOUT(mail.completions, 1, 60000);
        QVERIFY(mail.smtp->releasesFile());
        QTRY_VERIFY(first.hasEnded());
        QVERIFY(first.received().endsWith("DATA\r\n"));
        QVERIFY(second.message().endsWith("--\r\n.\r\n"));
        QVERIFY(second.message().size() > size * 4 / 3);
    }

    void aVerdictBeforeTheEndOfTheMessageIsNone_data()
    {
        QTest::addColumn<QByteArrayList>("replies");
        QTest::addColumn<QString>("text");

        QTest::newRow("with the reply to DATA")
            << plainSession.first(4) + QByteArrayList{"354 e\r\n250 f\r\n"} << u"250 f\r\n"_s;
        QTest::newRow("with the greeting") << QByteArrayList{plainSession.join()} << u"250 b\r\n"_s;
    }
    void aVerdictBeforeTheEndOfTheMessageIsNone()
    {
        QFETCH(const QByteArrayList, replies);
        QFETCH(const QString, text);
        ScriptedMailServer server(host, replies);
        SentMail mail(host);
        mail.attach(QByteArray(30 * Mebibyte, 'x'));
        const NextBox box(QMessageBox::Ok);

        mail.send(smtp_policy(true));

        QTRY_COMPARE(mail.completions, 1);
        QVERIFY(!mail.smtp->releasesFile());
        QCOMPARE(box.text(), u"Unexpected reply from SMTP server:\n\n"_s + text);
        QTRY_VERIFY(server.hasEnded());
        QVERIFY(!server.received().contains("--\r\n.\r\n"));
        QCOMPARE(mail.completions, 1);
    }

private:
    std::unique_ptr<NameServer> names;
};

TEST_MAIN_APART(QApplication, tst_Smtp_early_replies, leave_common_network)
#include "tst_Smtp_early_replies.moc"
