#include "DiagnosticLines.h"
#include "NameServer.h"
#include "private_namespaces.h"
#include "ScriptedMailServer.h"
#include "SentMail.h"

#include <QApplication>
#include <QFile>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

QString tried(const QStringList &hosts)
{
    return u"Connecting to:\n"_s + hosts.join(u'\n');
}

} // namespace

class tst_Smtp_hosts : public QObject
{
    Q_OBJECT

private slots:
    void theHostsAreTheExchangersTheServerAndTheDomain_data()
    {
        QTest::addColumn<QString>("to");
        QTest::addColumn<QString>("server");
        QTest::addColumn<QStringList>("hosts");

        QTest::newRow("several exchangers") << u"bob@three.test"_s << u"mine.test"_s
                                            << QStringList{u"a.three.test"_s, u"b.three.test"_s, u"c.three.test"_s,
                                                           u"mine.test"_s,    u"three.test"_s,   u"smtp.three.test"_s};
        QTest::newRow("no exchanger") << u"bob@plain.test"_s << u"mine.test"_s
                                      << QStringList{u"mine.test"_s, u"plain.test"_s, u"smtp.plain.test"_s};
        QTest::newRow("no such domain") << u"bob@nowhere.test"_s << u"mine.test"_s
                                        << QStringList{u"mine.test"_s, u"nowhere.test"_s, u"smtp.nowhere.test"_s};
        QTest::newRow("no server typed") << u"bob@plain.test"_s << QString()
                                         << QStringList{QString(), u"plain.test"_s, u"smtp.plain.test"_s};
        QTest::newRow("the server is the domain")
            << u"bob@plain.test"_s << u"plain.test"_s << QStringList{u"plain.test"_s, u"smtp.plain.test"_s};
        QTest::newRow("the server is an exchanger")
            << u"bob@one.test"_s << u"mail.one.test"_s
            << QStringList{u"mail.one.test"_s, u"one.test"_s, u"smtp.one.test"_s};
        QTest::newRow("the server is an exchanger in another spelling")
            << u"bob@one.test"_s << u"Mail.one.test"_s
            << QStringList{u"mail.one.test"_s, u"Mail.one.test"_s, u"one.test"_s, u"smtp.one.test"_s};
        QTest::newRow("no @") << u"plain.test"_s << u"mine.test"_s
                              << QStringList{u"mine.test"_s, u"plain.test"_s, u"smtp.plain.test"_s};
        QTest::newRow("two @, the first counts")
            << u"bob@x@plain.test"_s << u"mine.test"_s
            << QStringList{u"mine.test"_s, u"x@plain.test"_s, u"smtp.x@plain.test"_s};
        QTest::newRow("an empty domain") << u"bob@"_s << u"mine.test"_s
                                         << QStringList{u"mine.test"_s, QString(), u"smtp."_s};
        QTest::newRow("nothing at all") << QString() << QString() << QStringList{QString(), u"smtp."_s};
        QTest::newRow("a null exchanger")
            << u"bob@null.test"_s << u"mine.test"_s
            << QStringList{QString(), u"mine.test"_s, u"null.test"_s, u"smtp.null.test"_s};
    }
    void theHostsAreTheExchangersTheServerAndTheDomain()
    {
        QFETCH(const QString, to);
        QFETCH(const QString, server);
        QFETCH(const QStringList, hosts);
        const NameServer names({u"--mx-host=one.test,mail.one.test,10"_s, u"--mx-host=three.test,c.three.test,20"_s,
                                u"--mx-host=three.test,a.three.test,5"_s, u"--mx-host=three.test,b.three.test,10"_s,
                                u"--host-record=plain.test,127.0.0.2"_s, u"--dns-rr=null.test,15,000000"_s});
        SentMail mail;
        mail.to = to;
        mail.server = server;

        mail.send();

        QVERIFY(mail.statuses.isEmpty()); // not before the event loop runs
        QTRY_COMPARE(mail.statuses, QStringList{tried(hosts)});
    }

    void withoutAnAnswerTheOtherHostsAreTried()
    {
        const SilentNameServer names;
        ScriptedMailServer server(u"127.0.0.2"_s, {"220 hi\r\n"});
        SentMail mail(u"127.0.0.2"_s);

        mail.send();

        QTRY_COMPARE_WITH_TIMEOUT(server.received(), "HELO there\n"_ba, 30000);
        QCOMPARE(mail.statuses.first(), tried({u"127.0.0.2"_s, u"example.test"_s, u"smtp.example.test"_s}));
    }

    void twoHundredExchangersAreAllTried()
    {
        QStringList options = many_exchangers();
        options.append(u"--host-record=relay-199.many.test,127.0.0.9"_s);
        const NameServer names(options);
        ScriptedMailServer server(u"127.0.0.9"_s, {"220 hi\r\n"});
        SentMail mail;
        mail.to = u"bob@many.test"_s;

        mail.send();

        QTRY_COMPARE(server.received(), "HELO there\n"_ba);
        QCOMPARE(mail.smtp->findChildren<Q3Socket *>().size(), 203);
    }

    void theFirstThatAnswersGetsTheMailAndTheOthersAreLeft()
    {
        const NameServer names(
            {u"--host-record=example.test,127.0.0.2"_s, u"--host-record=smtp.example.test,127.0.0.3"_s});
        ScriptedMailServer first(u"127.0.0.4"_s, {"220 hi\r\n", "250 helo\r\n"});
        ScriptedMailServer second(u"127.0.0.2"_s, {"220 hi\r\n"});
        ScriptedMailServer third(u"127.0.0.3"_s, {"220 hi\r\n"});
        SentMail mail;
        mail.server = u"127.0.0.4"_s; // in figures, so it needs no second lookup

        mail.send();

        QTRY_COMPARE(first.received(), "HELO there\nMAIL FROM: <ann@example.test>\n"_ba);
        QCOMPARE(mail.statuses.value(1), u"Connected to 127.0.0.4"_s);
        QVERIFY(second.received().isEmpty());
        QVERIFY(third.received().isEmpty());
        const QList<Q3Socket *> sockets = mail.smtp->findChildren<Q3Socket *>();
        QCOMPARE(sockets.size(), 3); // the losers stay, idle
        QCOMPARE(std::count_if(sockets.begin(), sockets.end(),
                               [](const Q3Socket *socket) { return socket->state() == Q3Socket::Idle; }),
                 2);
    }

    void thePortIsTheLeadingNumberIn16Bits_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("port");

        QTest::newRow("plain") << u"2525"_s << 2525;
        QTest::newRow("letters behind it") << u"2525x"_s << 2525;
        QTest::newRow("the highest") << u"65535"_s << 65535;
        QTest::newRow("of the highest digit") << u"9025"_s << 9025;
        QTest::newRow("17 bits") << u"68061"_s << 2525;
    }
    void thePortIsTheLeadingNumberIn16Bits()
    {
        QFETCH(const QString, text);
        QFETCH(const int, port);
        const NameServer names({});
        ScriptedMailServer server(u"127.0.0.2"_s, {"220 hi\r\n"}, static_cast<quint16>(port));
        SentMail mail;
        mail.to = u"bob@nowhere.test"_s;
        mail.server = u"127.0.0.2"_s;
        mail.port = text;

        mail.send();

        QTRY_COMPARE(server.received(), "HELO there\n"_ba);
    }

    void aTextThatBeginsWithNoDigitDialsPort0_data()
    {
        QTest::addColumn<QString>("text");

        for (const char *const text : {"", "0", "65536", "x25", "-25", "+25", " 25"})
            QTest::addRow("\"%s\"", text) << QString::fromLatin1(text);
    }
    void aTextThatBeginsWithNoDigitDialsPort0()
    {
        QFETCH(const QString, text);
        const NameServer names({});
        SentMail mail(u"127.0.0.2"_s);
        mail.port = text;

        mail.send();

        QTRY_COMPARE(mail.statuses.size(), 1);
        QCOMPARE(mail.smtp->findChildren<Q3Socket *>().constFirst()->peerPort(), quint16{0});
    }

    void hostsThatAllRefuseAreNeverTold()
    {
        const NameServer names({u"--host-record=example.test,127.0.0.2"_s});
        SentMail mail(u"127.0.0.2"_s);

        mail.send();

        QTRY_COMPARE(mail.statuses.size(), 1);
        const QList<Q3Socket *> sockets = mail.smtp->findChildren<Q3Socket *>();
        QTRY_VERIFY(std::all_of(sockets.begin(), sockets.end(),
                                [](const Q3Socket *socket) { return socket->state() == Q3Socket::Idle; }));
        QCOMPARE(mail.statuses.size(), 1); // Intended: the text stays
        QCOMPARE(mail.completions, 0);
    }

    void aLookupThatAnswersAgainAfterTheConnectionIsAnExcessCall()
    {
        const NameServer names({});
        ScriptedMailServer server(u"127.0.0.2"_s, {"220 hi\r\n"});
        SentMail mail;
        mail.to = u"bob@nowhere.test"_s;
        mail.server = u"127.0.0.2"_s;
        mail.send();
        QTRY_COMPARE(server.received(), "HELO there\n"_ba);
        DiagnosticLines diagnostics;

        QVERIFY(QMetaObject::invokeMethod(mail.smtp.get(), "dnsLookupHelper"));

        QCOMPARE(diagnostics.lines(), QStringList{u"Smtp::dnsLookupHelper() excess call"_s});
        QCOMPARE(server.connections(), 1);
    }

    void anAttachmentThatCannotBeOpenedIsNeverTold_data()
    {
        QTest::addColumn<QString>("kind");

        for (const char *const kind : {"missing", "no name", "pipe", "device"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }
    void anAttachmentThatCannotBeOpenedIsNeverTold()
    {
        QFETCH(const QString, kind);
        const NameServer names({});
        ScriptedMailServer server(u"127.0.0.2"_s, {"220 hi\r\n"});
        SentMail mail;
        mail.to = u"bob@nowhere.test"_s;
        mail.server = u"127.0.0.2"_s;
        SentMail later;
        later.to = mail.to;
        later.server = mail.server;
        if (kind == "no name"_L1)
            mail.attachment.clear();
        else if (kind == "device"_L1)
            mail.attachment = u"/dev/zero"_s;
        else
            QVERIFY(QFile::remove(mail.attachment));
        if (kind == "pipe"_L1)
            QCOMPARE(::mkfifo(QFile::encodeName(mail.attachment).constData(), 0600), 0);

        mail.send(); // Intended: nothing is looked up, and no signal ever comes
        later.send();

        QTRY_COMPARE(later.statuses.size(), 3); // whatever the first one had to say would have come
        QVERIFY(mail.statuses.isEmpty());
        QCOMPARE(server.connections(), 1);
    }

    void aFolderIsAnAttachmentThatEndsAtOnce()
    {
        const NameServer names({});
        ScriptedMailServer server(u"127.0.0.2"_s,
                                  {"220 hi\r\n", "250 a\r\n", "250 b\r\n", "250 c\r\n", "354 d\r\n", "250 e\r\n"});
        SentMail mail;
        mail.to = u"bob@nowhere.test"_s;
        mail.server = u"127.0.0.2"_s;
        mail.attachment = mail.directory.path();

        mail.send();

        QTRY_COMPARE(mail.completions, 1);
        QVERIFY(server.message().endsWith("\"\r\n\r\n\r\n\r\n\r\n--NextPart_KOLMA_Boundary.7976494--\r\n.\n"));
    }
};

TEST_MAIN_APART(QApplication, tst_Smtp_hosts, leave_common_network)
#include "tst_Smtp_hosts.moc"
