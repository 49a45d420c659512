#include "files.h"
#include "NameServer.h"
#include "private_namespaces.h"
#include "SentMail.h"
#include "StrictSmtpPolicy.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

const QString host = u"127.0.0.2"_s;
constexpr int patienceMs = 30000;

/// A real server of the hardened kind.
class HardenedServer
{
public:
    HardenedServer()
    {
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(u"/usr/bin/python3"_s, // the one that Debian's packages are for
                      {QStringLiteral(IM_HARDENED_SERVER), host, u"25"_s, directory.path()});
        if (nextLine() != "ready\n")
            qFatal("HardenedServer - it did not start");
    }
    ~HardenedServer()
    {
        process.closeWriteChannel();
        process.waitForFinished(patienceMs);
    }
    Q_DISABLE_COPY_MOVE(HardenedServer)

    /// What it says next, as soon as it does; the event loop runs.
    QByteArray nextLine()
    {
        (void)QTest::qWaitFor([this] { return process.canReadLine(); }, patienceMs);
        return process.readLine();
    }
    QJsonObject nextMessage() { return QJsonDocument::fromJson(nextLine()).object(); }
    [[nodiscard]] bool hasMore() const { return process.canReadLine(); }

private:
    QTemporaryDir directory;
    QProcess process;
};

} // namespace

class tst_Smtp_hardened_server : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { names = std::make_unique<NameServer>(QStringList()); }
    void cleanupTestCase() { names.reset(); }

    void onlyAStrictMailGetsThrough()
    {
        HardenedServer server;
        SentMail plain;
        plain.server = host;
        SentMail strict;
        strict.server = host;

        plain.send();
        QTRY_COMPARE(plain.statuses.value(3), u"Sending mail..."_s);
        const Q3Socket *const socket = plain.connectedSocket();
        QTRY_VERIFY(plain.smtp->response().contains(u"354 "_s));
        QTRY_COMPARE(socket->bytesToWrite(), qint64{0});
        strict.send(smtp_policy(true));

        QTRY_COMPARE_WITH_TIMEOUT(strict.completions, 1, patienceMs);
        QVERIFY(strict.smtp->releasesFile());
        QCOMPARE(server.nextMessage()["headers"_L1].toObject()["subject"_L1].toString(), u"scan"_s);
        // Its turn would have been before: the bare line feed behind the full stop ends no message there.
        QCOMPARE(plain.completions, 0);
        QVERIFY(!server.hasMore());
    }

    void aReaderFindsEverythingThatWasSent_data()
    {
        QTest::addColumn<QString>("subject");
        QTest::addColumn<QString>("body");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("size");

        QTest::newRow("plain") << u"scan"_s << u"Hello"_s << u"scan.png"_s << u"image/png"_s << 1000;
        QTest::newRow("not ASCII") << u"Gr\u00fc\u00dfe aus M\u00fcnchen, \u6771\u4eac und anderswo \U0001F600"_s
                                   << u"Gr\u00fc\u00dfe = \u20ac\n\u6771\u4eac \n\ttab\t"_s
                                   << u"Gr\u00fc\u00dfe \u6771\u4eac.TIF"_s << u"image/tiff"_s << 57;
        QTest::newRow("full stops") << u"."_s << u".\n..\n.a\nb"_s << u".jpg"_s << u"image/jpeg"_s << 58;
        QTest::newRow("long") << QString(250, u's') << QString(5000, u'x') << QString(200, u'n') + u".bmp"_s
                              << u"image/bmp"_s << 56;
        QTest::newRow("quotes and blanks")
            << u"a =?x?= \"b\""_s << u" "_s << u"my \"scan\" %2;x=y.xyz"_s << u"application/octet-stream"_s << 0;
    }
    void aReaderFindsEverythingThatWasSent()
    {
        QFETCH(const QString, subject);
        QFETCH(const QString, body);
        QFETCH(const QString, name);
        QFETCH(const QString, type);
        QFETCH(const int, size);
        HardenedServer server;
        SentMail mail(host);
        mail.subject = subject;
        mail.body = body;
        mail.attachment = mail.directory.filePath(name);
        QByteArray bytes;
        for (int i = 0; i < size; ++i)
            bytes += static_cast<char>(i * 7);
        write_file(mail.attachment, bytes);

        mail.send(smtp_policy(true));

        QTRY_COMPARE_WITH_TIMEOUT(mail.completions, 1, patienceMs);
        const QJsonObject message = server.nextMessage();
        QCOMPARE(message["defects"_L1].toInt(), 0);
        QCOMPARE(message["sender"_L1].toString(), u"ann@example.test"_s);
        const QJsonObject headers = message["headers"_L1].toObject();
        QCOMPARE(headers["subject"_L1].toString(), subject);
        QCOMPARE(headers["from"_L1].toString(), u"ann@example.test"_s);
        QVERIFY(headers["message-id"_L1].toString().endsWith(u"@example.test>"_s));
        QVERIFY(!headers.contains("return-path"_L1));
        const QJsonArray parts = message["parts"_L1].toArray();
        QCOMPARE(parts.size(), 2);
        const QJsonObject text = parts[0].toObject();
        QCOMPARE(text["type"_L1].toString(), u"text/plain"_s);
        QCOMPARE(text["text"_L1].toString().replace(u"\r\n"_s, u"\n"_s), body + u'\n');
        const QJsonObject attachment = parts[1].toObject();
        QCOMPARE(attachment["type"_L1].toString(), type);
        QCOMPARE(attachment["name"_L1].toString(), name);
        QCOMPARE(attachment["defects"_L1].toInt(), 0);
        QCOMPARE(file_bytes(attachment["file"_L1].toString()), bytes);
    }

private:
    std::unique_ptr<NameServer> names;
};

TEST_MAIN_APART(QApplication, tst_Smtp_hardened_server, leave_common_network)
#include "tst_Smtp_hardened_server.moc"
