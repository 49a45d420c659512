#include "NameServer.h"
#include "Q3Dns.h"

#include <QNetworkDatagram>
#include <QSignalSpy>
#include <QTest>
#include <QUdpSocket>

using namespace Qt::StringLiterals;

using MailServers = QList<Q3Dns::MailServer>;

namespace {

/// The only name server that this process asks, which answers each question with a bare code.
class CodeNameServer
{
public:
    explicit CodeNameServer(char code) : resolverFile(u"/etc/resolv.conf"_s, "nameserver 127.0.0.1\n")
    {
        if (!socket.bind(QHostAddress::LocalHost, 53))
            qFatal("CodeNameServer - %s", qPrintable(socket.errorString()));
        QObject::connect(&socket, &QUdpSocket::readyRead, &socket, [this, code] {
            while (socket.hasPendingDatagrams()) {
                const QNetworkDatagram question = socket.receiveDatagram();
                QByteArray answer = question.data(); // RFC 1035 section 4.1.1
                answer[2] = static_cast<char>(answer.at(2) | '\x80');
                answer[3] = code;
                socket.writeDatagram(question.makeReply(answer));
            }
        });
    }

private:
    StandInFile resolverFile;
    QUdpSocket socket;
};

} // namespace

class tst_Q3Dns : public QObject
{
    Q_OBJECT

private slots:
    void exchangersComeInOrderOfPreference_data()
    {
        QTest::addColumn<QString>("label");
        QTest::addColumn<MailServers>("servers");

        QTest::newRow("one") << u"one.test"_s << MailServers{{u"mail.one.test"_s, 10}};
        QTest::newRow("asked for in capitals") << u"ONE.test"_s << MailServers{{u"mail.one.test"_s, 10}};
        QTest::newRow("three") << u"three.test"_s
                               << MailServers{{u"a.three.test"_s, 5}, {u"b.three.test"_s, 10}, {u"c.three.test"_s, 20}};
        QTest::newRow("told in capitals") << u"case.test"_s << MailServers{{u"mail.case.test"_s, 1}};
        QTest::newRow("no exchanger") << u"plain.test"_s << MailServers{};
        QTest::newRow("no such name") << u"nowhere.test"_s << MailServers{};
    }
    void exchangersComeInOrderOfPreference()
    {
        QFETCH(const QString, label);
        QFETCH(const MailServers, servers);
        const NameServer names({u"--mx-host=one.test,mail.one.test,10"_s, u"--mx-host=three.test,c.three.test,20"_s,
                                u"--mx-host=three.test,a.three.test,5"_s, u"--mx-host=three.test,b.three.test,10"_s,
                                u"--mx-host=case.test,Mail.CASE.test,1"_s, u"--host-record=plain.test,127.0.0.2"_s});

        Q3Dns dns(label, Q3Dns::Mx);
        const QSignalSpy ready(&dns, &Q3Dns::resultsReady);

        QTRY_COMPARE(ready.size(), 1);
        QCOMPARE(dns.mailServers(), servers);
        QVERIFY(!dns.hasFailed());
        QVERIFY(!dns.isWorking());
    }

    void anAnswerOfTwoHundredExchangersComesWhole()
    {
        const NameServer names(many_exchangers());

        Q3Dns dns(u"many.test"_s, Q3Dns::Mx);
        const QSignalSpy ready(&dns, &Q3Dns::resultsReady);

        QTRY_COMPARE(ready.size(), 1);
        QCOMPARE(dns.mailServers().size(), 200);
        QCOMPARE(dns.mailServers().last(), (Q3Dns::MailServer{u"relay-199.many.test"_s, 199}));
    }

    void aNullExchangerHasAnEmptyName()
    {
        const NameServer names({u"--dns-rr=null.test,15,000000"_s}); // priority 0, the root

        Q3Dns dns(u"null.test"_s, Q3Dns::Mx);
        const QSignalSpy ready(&dns, &Q3Dns::resultsReady);

        QTRY_COMPARE(ready.size(), 1);
        QCOMPARE(dns.mailServers(), (MailServers{{QString(), 0}}));
    }

    void withoutAnAnswerTheListIsEmpty()
    {
        const SilentNameServer names;

        Q3Dns dns(u"one.test"_s, Q3Dns::Mx);
        const QSignalSpy ready(&dns, &Q3Dns::resultsReady);

        QVERIFY(dns.isWorking());
        QTRY_COMPARE_WITH_TIMEOUT(ready.size(), 1, 30000);
        QVERIFY(dns.mailServers().isEmpty());
        QVERIFY(!dns.isWorking());
    }

    void aNameServerThatCannotTellIsNoEmptyAnswer_data()
    {
        QTest::addColumn<char>("code");
        QTest::addColumn<bool>("hasFailed");

        QTest::newRow("SERVFAIL") << '\2' << true;
        QTest::newRow("NXDOMAIN") << '\3' << false;
        QTest::newRow("REFUSED") << '\5' << true;
    }
    void aNameServerThatCannotTellIsNoEmptyAnswer()
    {
        QFETCH(const char, code);
        QFETCH(const bool, hasFailed);
        const CodeNameServer names(code);

        Q3Dns dns(u"one.test"_s, Q3Dns::Mx);
        const QSignalSpy ready(&dns, &Q3Dns::resultsReady);

        QTRY_COMPARE(ready.size(), 1);
        QVERIFY(dns.mailServers().isEmpty());
        QCOMPARE(dns.hasFailed(), hasFailed);
    }

    void anEmptyNameIsAnsweredFromTheEventLoop()
    {
        Q3Dns dns(QString(), Q3Dns::Mx);
        const QSignalSpy ready(&dns, &Q3Dns::resultsReady);

        QVERIFY(dns.isWorking());
        QVERIFY(ready.isEmpty());
        QTRY_COMPARE(ready.size(), 1);
        QVERIFY(dns.mailServers().isEmpty());
        QVERIFY(!dns.isWorking());
    }

    void theAnswerComesFromTheEventLoopAndOnce()
    {
        const NameServer names({u"--mx-host=one.test,mail.one.test,10"_s});

        Q3Dns dns(u"one.test"_s, Q3Dns::Mx);
        const QSignalSpy ready(&dns, &Q3Dns::resultsReady);
        QVERIFY(dns.isWorking());
        QVERIFY(ready.isEmpty());
        QTRY_COMPARE(ready.size(), 1);

        // A later question has been answered as well: the first one is not answered again.
        Q3Dns later(u"one.test"_s, Q3Dns::Mx);
        const QSignalSpy laterReady(&later, &Q3Dns::resultsReady);
        QTRY_COMPARE(laterReady.size(), 1);
        QCOMPARE(ready.size(), 1);
        QCOMPARE(dns.mailServers().size(), 1);
    }

    void aQuestionThatIsGivenUpLeavesNothingBehind()
    {
        const NameServer names({u"--mx-host=one.test,mail.one.test,10"_s});
        auto dns = std::make_unique<Q3Dns>(u"one.test"_s, Q3Dns::Mx);
        const QSignalSpy ready(dns.get(), &Q3Dns::resultsReady);
        QCoreApplication::processEvents(); // it is under way

        dns.reset();

        Q3Dns later(u"one.test"_s, Q3Dns::Mx);
        const QSignalSpy laterReady(&later, &Q3Dns::resultsReady);
        QTRY_COMPARE(laterReady.size(), 1);
        QVERIFY(ready.isEmpty());
    }
};

TEST_MAIN_APART(QCoreApplication, tst_Q3Dns, leave_common_network)
#include "tst_Q3Dns.moc"
