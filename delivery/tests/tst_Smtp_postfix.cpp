#include "files.h"
#include "NameServer.h"
#include "NextBox.h"
#include "private_namespaces.h"
#include "SentMail.h"
#include "skipped_test.h"
#include "standing_boxes.h"
#include "StrictSmtpPolicy.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTcpSocket>

#include <glob.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QString program = u"/usr/sbin/postfix"_s;
const QString passwordProgram = u"/usr/sbin/saslpasswd2"_s;
const QString host = u"127.0.0.1"_s;
const QString login = u"ann"_s;
const QString password = u"s3cret"_s;
constexpr int patienceMs = 30000;
constexpr uid_t nobody = 65534;

/// Postfix with a configuration, a queue and a mailbox of its own, which takes mail for bob@nowhere.test: from anyone
/// or, if it offers mechanisms of logins, from `login` alone.
class Postfix
{
public:
    explicit Postfix(bool refusesBareLineFeeds, const QByteArray &mechanisms = {})
    {
        // Its parts run as other users.
        const QByteArray place = QFile::encodeName(directory.path());
        const bool isOpen = ::chmod(place.constData(), 0755) == 0 && QDir(directory.path()).mkpath(u"conf/sasl"_s)
            && QDir(directory.path()).mkpath(u"queue"_s) && QDir(directory.path()).mkpath(u"mail"_s)
            && ::chown((place + "/mail").constData(), nobody, nobody) == 0;
        if (!isOpen)
            qFatal("Postfix - no directories");
        write(u"conf/main.cf"_s,
              "compatibility_level = 3.6\nqueue_directory = " + place + "/queue\ndata_directory = " + place
                  + "/data\ninet_interfaces = 127.0.0.1\ninet_protocols = ipv4\nmyhostname = mail.example.test\n"
                    "mydestination =\nlocal_recipient_maps =\nalias_maps =\nalias_database =\n"
                    "mynetworks = 127.0.0.0/8\nvirtual_mailbox_domains = nowhere.test\nvirtual_mailbox_base = "
                  + place
                  + "/mail\nvirtual_mailbox_maps = static:bob\nvirtual_uid_maps = static:65534\n"
                    "virtual_gid_maps = static:65534\nmaillog_file_prefixes = /\nmaillog_file = "
                  + place + "/log\nsmtpd_forbid_bare_newline_exclusions =\nsmtpd_forbid_bare_newline = "
                  + (refusesBareLineFeeds ? "yes" : "no") + "\nsmtpd_recipient_restrictions = "
                  + (mechanisms.isEmpty() ? "permit_mynetworks, reject\n" : askForLogin(place, mechanisms)));
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

    /// @return the end of main.cf, from the value of smtpd_recipient_restrictions on
    [[nodiscard]] QByteArray askForLogin(const QByteArray &place, const QByteArray &mechanisms) const
    {
        const QString database = directory.filePath(u"logins"_s);
        QProcess passwords;
        passwords.start(passwordProgram, {u"-p"_s, u"-c"_s, u"-f"_s, database, u"-u"_s, u"mail.example.test"_s, login});
        passwords.write(password.toUtf8());
        passwords.closeWriteChannel();
        if (!passwords.waitForFinished(patienceMs) || passwords.exitCode() != 0
            || ::chmod(QFile::encodeName(database).constData(), 0644) != 0)
            qFatal("Postfix - no logins");
        // Debian's Postfix looks for it in this folder of its configuration.
        write(u"conf/sasl/smtpd.conf"_s,
              "pwcheck_method: auxprop\nauxprop_plugin: sasldb\nsasldb_path: " + place
                  + "/logins\nmech_list: " + mechanisms + "\n");
        return "permit_sasl_authenticated, reject\nbroken_sasl_auth_clients = no\nsmtpd_sasl_auth_enable = yes\n"
               "smtpd_sasl_type = cyrus\nsmtpd_sasl_path = smtpd\n";
    }

    void write(const QString &name, const QByteArray &text) const { write_file(directory.filePath(name), text); }

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

/// Whether logins for Postfix can be made, and taken by the mechanism LOGIN.
bool has_logins()
{
    glob_t found = {};
    const bool hasMechanism = ::glob("/usr/lib/*/sasl2/liblogin.so", 0, nullptr, &found) == 0;
    ::globfree(&found);
    return hasMechanism && ::access(QFile::encodeName(passwordProgram).constData(), X_OK) == 0;
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
        const QByteArray bytes = QByteArray("A\r\n.\r\n\0\xff", 8).repeated(5000);
        write_file(mail.attachment, bytes);

        mail.send(smtp_policy(isStrict));

        QTRY_COMPARE_WITH_TIMEOUT(mail.completions, 1, patienceMs);
        QCOMPARE(mail.statuses.last(2), (QStringList{u"Message sent"_s, u"(completed)"_s}));
        const QString found = mail.directory.filePath(u"found"_s);
        QCOMPARE(read_mailbox(server.mailbox(), found), (QByteArrayList{"scan", "Hello"}));
        QCOMPARE(file_bytes(found), bytes);
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

    void aServerThatAsksForALoginDeliversWhatComesWithTheRightPasswordAlone_data()
    {
        QTest::addColumn<bool>("isStrict");
        QTest::addColumn<QByteArray>("mechanisms");

        QTest::newRow("default") << false << "PLAIN LOGIN"_ba;
        QTest::newRow("strict") << true << "PLAIN LOGIN"_ba;
        QTest::newRow("strict, PLAIN alone") << true << "PLAIN"_ba;
    }
    void aServerThatAsksForALoginDeliversWhatComesWithTheRightPasswordAlone()
    {
        QFETCH(const bool, isStrict);
        QFETCH(const QByteArray, mechanisms);
        const Postfix server(false, mechanisms);
        if (isStrict) {
            aRefusalIsTold(login, u"535 "_s);
            aRefusalIsTold(QString(), u"554 "_s);
        } else {
            aWrongPasswordLooksAsIfTheMailHadGone();
        }
        SentMail mail;
        address(mail);
        mail.login = login;
        mail.password = password;

        mail.send(smtp_policy(isStrict));

        QTRY_COMPARE_WITH_TIMEOUT(mail.completions, 1, patienceMs);
        QCOMPARE(mail.statuses.last(2), (QStringList{u"Message sent"_s, u"(completed)"_s}));
        QVERIFY2(mail.smtp->response().contains(u"\r\n235 "_s), qPrintable(mail.smtp->response()));
        QVERIFY(mail.smtp->releasesFile());
        const QString found = mail.directory.filePath(u"found"_s);
        QCOMPARE(read_mailbox(server.mailbox(), found), (QByteArrayList{"scan", "Hello"})); // the one message there
        QCOMPARE(file_bytes(found), "ABC"_ba);
    }

private:
    static void aWrongPasswordLooksAsIfTheMailHadGone()
    {
        SentMail refused;
        address(refused);
        refused.subject = u"refused"_s;
        refused.login = login;
        refused.password = u"wrong"_s;
        refused.send();
        QTRY_COMPARE_WITH_TIMEOUT(refused.completions, 1, patienceMs);
        QCOMPARE(refused.statuses.last(2), (QStringList{u"Message sent"_s, u"(completed)"_s}));
        QVERIFY2(refused.smtp->response().contains(u"\r\n535 "_s), qPrintable(refused.smtp->response()));
        QVERIFY(refused.smtp->releasesFile());
        QCOMPARE(standing_boxes(), 0);
    }

    static void aRefusalIsTold(const QString &usedLogin, const QString &reply)
    {
        SentMail refused;
        address(refused);
        refused.subject = u"refused"_s;
        refused.login = usedLogin;
        refused.password = u"wrong"_s;
        const NextBox box(QMessageBox::Ok);
        refused.send(smtp_policy(true));
        QTRY_COMPARE_WITH_TIMEOUT(refused.completions, 1, patienceMs);
        QVERIFY2(box.text().startsWith(u"Unexpected reply from SMTP server:\n\n"_s + reply), qPrintable(box.text()));
        QCOMPARE(refused.statuses.last(2), (QStringList{u"Message not sent"_s, u"(completed)"_s}));
        QVERIFY(!refused.smtp->releasesFile());
    }

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
    if (!has_logins())
        end_as_skipped("sasl2-bin or libsasl2-modules, the logins of the mail server Postfix, are not installed");
    leave_common_network();
    const QApplication application(argc, argv);
    tst_Smtp_postfix test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_Smtp_postfix.moc"
