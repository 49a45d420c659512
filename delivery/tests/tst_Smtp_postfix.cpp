#include "NameServer.h"
#include "private_namespaces.h"
#include "SentMail.h"
#include "skipped_test.h"
#include "StrictSmtpPolicy.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTcpSocket>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QString program = u"/usr/sbin/postfix"_s;
const QString host = u"127.0.0.1"_s;
constexpr int patienceMs = 30000;
constexpr uid_t nobody = 65534;

/// Postfix with a configuration, a queue and a mailbox of its own, which takes mail for bob@nowhere.test.
class Postfix
{
public:
    explicit Postfix(bool refusesBareLineFeeds)
    {
        // Its parts run as other users.
        const QByteArray place = QFile::encodeName(directory.path());
        const bool isOpen = ::chmod(place.constData(), 0755) == 0 && QDir(directory.path()).mkpath(u"conf"_s)
            && QDir(directory.path()).mkpath(u"queue"_s) && QDir(directory.path()).mkpath(u"mail"_s)
            && ::chown((place + "/mail").constData(), nobody, nobody) == 0;
        if (!isOpen)
            qFatal("Postfix - no directories");
        write(u"conf/main.cf"_s,
              "compatibility_level = 3.6\nqueue_directory = " + place + "/queue\ndata_directory = " + place
                  + "/data\ninet_interfaces = 127.0.0.1\ninet_protocols = ipv4\nmyhostname = mail.example.test\n"
                    "mydestination =\nlocal_recipient_maps =\nalias_maps =\nalias_database =\n"
                    "mynetworks = 127.0.0.0/8\nsmtpd_recipient_restrictions = permit_mynetworks, reject\n"
                    "virtual_mailbox_domains = nowhere.test\nvirtual_mailbox_base = "
                  + place
                  + "/mail\nvirtual_mailbox_maps = static:bob\nvirtual_uid_maps = static:65534\n"
                    "virtual_gid_maps = static:65534\nmaillog_file_prefixes = /\nmaillog_file = "
                  + place + "/log\nsmtpd_forbid_bare_newline_exclusions =\nsmtpd_forbid_bare_newline = "
                  + (refusesBareLineFeeds ? "yes" : "no") + "\n");
        write(u"conf/master.cf"_s,
              "smtp inet n - n - - smtpd\npickup unix n - n 60 1 pickup\ncleanup unix n - n - 0 cleanup\n"
              "qmgr unix n - n 300 1 qmgr\nrewrite unix - - n - - trivial-rewrite\nbounce unix - - n - 0 bounce\n"
              "defer unix - - n - 0 bounce\ntrace unix - - n - 0 bounce\nflush unix n - n 1000? 0 flush\n"
              "proxymap unix - - n - - proxymap\nerror unix - - n - - error\nretry unix - - n - - error\n"
              "virtual unix - n n - - virtual\nanvil unix - - n - 1 anvil\npostlog unix-dgram n - n - 1 postlogd\n");
        process.start(program, {u"-c"_s, directory.filePath(u"conf"_s), u"start-fg"_s});
        if (!QTest::qWaitFor([] { return greets(); }, patienceMs))
            qFatal("Postfix - it did not start");
    }
    ~Postfix()
    {
        QProcess::execute(program, {u"-c"_s, directory.filePath(u"conf"_s), u"abort"_s});
        process.waitForFinished(patienceMs);
    }
    Q_DISABLE_COPY_MOVE(Postfix)

    [[nodiscard]] QString mailbox() const { return directory.filePath(u"mail/bob"_s); }

private:
    static bool greets()
    {
        QTcpSocket socket;
        socket.connectToHost(host, 25);
        return socket.waitForReadyRead(100) && socket.readAll().startsWith("220 ");
    }

    void write(const QString &name, const QByteArray &text) const
    {
        QFile file(directory.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            qFatal("Postfix - no configuration");
    }

    QTemporaryDir directory{u"/tmp/postfix-XXXXXX"_s}; // its sockets have no room for a long path
    QProcess process;
};

/// What a reader that is not ours finds in the mailbox: subject and first line of the text.
QByteArrayList read_mailbox(const QString &mailbox, const QString &attachment)
{
    (void)QTest::qWaitFor([&] { return QFileInfo(mailbox).size() > 0; }, patienceMs);
    QProcess reader;
    reader.start(u"/usr/bin/python3"_s, {QStringLiteral(IM_MAILBOX_READER), mailbox, attachment});
    reader.waitForFinished(patienceMs);
    return reader.readAllStandardOutput().trimmed().split('\n');
}

QByteArray bytes_of(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class tst_Smtp_postfix : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { names = std::make_unique<NameServer>(QStringList()); }
    void cleanupTestCase() { names.reset(); }

    void aServerThatTakesBareLineFeedsDeliversBothKinds_data()
    {
        QTest::addColumn<bool>("isStrict");

        QTest::newRow("default") << false;
        QTest::newRow("strict") << true;
    }
    void aServerThatTakesBareLineFeedsDeliversBothKinds()
    {
        QFETCH(const bool, isStrict);
        const Postfix server(false);
        SentMail mail;
        address(mail);
        QFile file(mail.attachment);
        QVERIFY(file.open(QIODevice::WriteOnly));
        const QByteArray bytes = QByteArray("A\r\n.\r\n\0\xff", 8).repeated(5000);
        QCOMPARE(file.write(bytes), bytes.size());
        file.close();

        mail.send(smtp_policy(isStrict));

        QTRY_COMPARE_WITH_TIMEOUT(mail.completions, 1, patienceMs);
        QCOMPARE(mail.statuses.last(2), (QStringList{u"Message sent"_s, u"(completed)"_s}));
        const QString found = mail.directory.filePath(u"found"_s);
        QCOMPARE(read_mailbox(server.mailbox(), found), (QByteArrayList{"scan", "Hello"}));
        QCOMPARE(bytes_of(found), bytes);
    }

    void aServerThatRefusesBareLineFeedsDeliversStrictMailAlone()
    {
        const Postfix server(true);
        SentMail plain;
        address(plain);
        plain.subject = u"plain"_s;
        SentMail strict;
        address(strict);
        plain.send();
        QTRY_VERIFY_WITH_TIMEOUT(plain.smtp->response().contains(u"354 "_s), patienceMs);
        const Q3Socket *const socket = plain.connectedSocket();
        QTRY_COMPARE(socket->bytesToWrite(), qint64{0});

        strict.send(smtp_policy(true));

        QTRY_COMPARE_WITH_TIMEOUT(strict.completions, 1, patienceMs);
        QVERIFY(strict.smtp->releasesFile());
        QCOMPARE(read_mailbox(server.mailbox(), strict.directory.filePath(u"found"_s)),
                 (QByteArrayList{"scan", "Hello"})); // the one message there
        QCOMPARE(plain.completions, 0);
    }

private:
    static void address(SentMail &mail)
    {
        mail.server = host;
        mail.to = u"bob@nowhere.test"_s;
    }

    std::unique_ptr<NameServer> names;
};

int main(int argc, char **argv)
{
    if (::geteuid() != 0 || ::access(QFile::encodeName(program).constData(), X_OK) != 0)
        end_as_skipped("the mail server Postfix is not installed, or this is not root, who alone may start it");
    leave_common_network();
    const QApplication application(argc, argv);
    tst_Smtp_postfix test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_Smtp_postfix.moc"
