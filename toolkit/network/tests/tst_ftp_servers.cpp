#include "files.h"
#include "private_mounts.h"
#include "private_namespaces.h"
#include "skipped_test.h"
#include "UploadTrial.h"

#include <QDir>
#include <QProcess>
#include <QTcpSocket>

#include <algorithm>
#include <unistd.h>

using namespace Qt::StringLiterals;

// Uploads to the FTP servers that people have, on port 21 of a network of this process alone. What counts is the file
// on the server's disk.

namespace {

constexpr uid_t userNumber = 60123;
constexpr uid_t visitorNumber = 60124;
constexpr gid_t nogroup = 65534;
const QString password = u"pass w0rd"_s;

bool make_directory(const QString &path, uid_t owner)
{
    return QDir().mkpath(path) && ::chown(qPrintable(path), owner, nogroup) == 0;
}

/// In the files of the system: the user "uploader", whose password is "pass w0rd", and "visitor", whom an anonymous
/// login becomes.
class KnownUsers
{
public:
    KnownUsers(const QString &home, const QString &visitorsHome) :
        users(u"/etc/passwd"_s,
              file_bytes(u"/etc/passwd"_s) + line("uploader", userNumber, home)
                  + line("visitor", visitorNumber, visitorsHome)),
        // By "openssl passwd -6 -salt imtest".
        passwords(u"/etc/shadow"_s,
                  file_bytes(u"/etc/shadow"_s)
                      + "\nuploader:$6$imtest$FG5JRGW8qooBiHUfNqzKI2WlemH9c8F5F6qu7Gde3YBiOLkdB5EZyk0ahR9aBvzsD8.H4nD0s"
                        "/XHLOTkSoguW0:19000:0:99999:7:::\n")
    {
    }

private:
    static QByteArray line(const QByteArray &name, uid_t number, const QString &home)
    {
        return '\n' + name + ":x:" + QByteArray::number(number) + ":65534::" + home.toUtf8() + ":/bin/sh\n";
    }

    StandInFile users;
    StandInFile passwords;
};

/// One of the two servers, with a directory "in" below "/" for anonymous users, and a home for one with a name.
class RealServer
{
public:
    RealServer(const QString &kind, const QString &address)
    {
        QFile::setPermissions(place.path(), QFile::Permissions::fromInt(0x7755));
        isReady = make_directory(anonymousHome(), 0) && make_directory(inbox(), visitorNumber)
            && make_directory(home(), userNumber) && make_directory(place.filePath(u"empty"_s), 0);
        users = std::make_unique<KnownUsers>(home(), anonymousHome());
        if (kind == "vsftpd"_L1)
            startVsftpd(address);
        else
            startPyftpdlib(address);
        isReady = isReady
            && QTest::qWaitFor(
                      [&address] {
                          QTcpSocket probe;
                          probe.connectToHost(address, 21);
                          return probe.waitForConnected(1000);
                      },
                      20000);
    }
    ~RealServer()
    {
        process.kill();
        process.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(RealServer)

    [[nodiscard]] QString anonymousHome() const { return place.filePath(u"anonymous"_s); }
    [[nodiscard]] QString inbox() const { return place.filePath(u"anonymous/in"_s); }
    [[nodiscard]] QString home() const { return place.filePath(u"home"_s); }
    [[nodiscard]] QString words() { return QString::fromUtf8(process.readAll()); }

    bool isReady = false;

private:
    void startVsftpd(const QString &address)
    {
        const bool isIPv6 = address.contains(u':');
        const QString lines =
            u"background=NO\nanonymous_enable=YES\nanon_upload_enable=YES\nwrite_enable=YES\n"
            "local_enable=YES\nftp_username=visitor\nanon_root=%1\nsecure_chroot_dir=%2\n"
            "pam_service_name=vsftpd\nseccomp_sandbox=NO\nisolate=NO\nisolate_network=NO\n"
            "listen=%3\nlisten_ipv6=%4\n"_s.arg(anonymousHome(), place.filePath(u"empty"_s),
                                                isIPv6 ? u"NO"_s : u"YES"_s, isIPv6 ? u"YES"_s : u"NO"_s);
        const QString path = place.filePath(u"vsftpd.conf"_s);
        write_file(path, lines.toUtf8());
        start(u"/usr/sbin/vsftpd"_s, {path});
    }

    void startPyftpdlib(const QString &address)
    {
        const QString script = u"import sys\n"
                               "from pyftpdlib.authorizers import DummyAuthorizer\n"
                               "from pyftpdlib.handlers import FTPHandler\n"
                               "from pyftpdlib.servers import FTPServer\n"
                               "users = DummyAuthorizer()\n"
                               "users.add_user('uploader', 'pass w0rd', '/', perm='elradfmw')\n"
                               "users.add_anonymous(sys.argv[2], perm='elradfmw')\n"
                               "FTPHandler.authorizer = users\n"
                               "FTPServer((sys.argv[1], 21), FTPHandler).serve_forever()\n"_s;
        start(u"/usr/bin/python3"_s, {u"-W"_s, u"ignore"_s, u"-c"_s, script, address, anonymousHome()});
    }

    void start(const QString &program, const QStringList &arguments)
    {
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(program, arguments);
        isReady = isReady && process.waitForStarted();
    }

    QTemporaryDir place;
    std::unique_ptr<KnownUsers> users;
    QProcess process;
};

/// An upload to port 21 of an address.
struct RealTrial : UploadTrial
{
    explicit RealTrial(const QString &address)
    {
        server.reset();
        host = address;
        port = 21;
    }
};

} // namespace

class tst_ftp_servers : public QObject
{
    Q_OBJECT

private slots:
    void fileArrivesOnTheServersDisk_data();
    void fileArrivesOnTheServersDisk();
    void lowestAndHighestPortAreReached_data();
    void lowestAndHighestPortAreReached();
    void refusedLoginIsOne_data();
    void refusedLoginIsOne();
    void refusedPlaceIsToldInTheServersWords_data();
    void refusedPlaceIsToldInTheServersWords();
    void fullDiskIsToldAndTheFileStays_data();
    void fullDiskIsToldAndTheFileStays();

private:
    static void servers();
};

void tst_ftp_servers::servers()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("address");
    for (const char *kind : {"vsftpd", "pyftpdlib"}) {
        for (const char *address : {"127.0.0.1", "::1"})
            QTest::addRow("%s at %s", kind, address) << QString::fromLatin1(kind) << QString::fromLatin1(address);
    }
}

void tst_ftp_servers::fileArrivesOnTheServersDisk_data()
{
    servers();
}

void tst_ftp_servers::fileArrivesOnTheServersDisk()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, address);
    RealServer server(kind, address);
    QVERIFY2(server.isReady, qPrintable(server.words()));
    QByteArray bytes(3'000'001, 'x');
    for (qsizetype i = 0; i < bytes.size(); i += 3)
        bytes[i] = static_cast<char>(i >> 4);

    RealTrial anonymous(address);
    anonymous.write(bytes);
    anonymous.upload(false, {}, {}, u"in"_s);
    QVERIFY(anonymous.ends());
    QCOMPARE(anonymous.failure(), QString());
    QVERIFY(file_bytes(server.inbox() + u"/x.png"_s) == bytes);
    QVERIFY(anonymous.hasFile());

    RealTrial named(address);
    named.name = u"ä #?%41\"'.png"_s;
    named.write(bytes);
    named.upload(true, u"uploader"_s, password, server.home());
    QVERIFY(named.ends());
    QCOMPARE(named.failure(), QString());
    QVERIFY(file_bytes(server.home() + u'/' + named.name) == bytes);
    QVERIFY(!named.hasFile());

    RealTrial empty(address);
    empty.write({});
    empty.upload(false, u"uploader"_s, password, server.home());
    QVERIFY(empty.ends());
    QCOMPARE(empty.failure(), QString());
    QCOMPARE(file_bytes(server.home() + u"/x.png"_s), QByteArray());
}

void tst_ftp_servers::lowestAndHighestPortAreReached_data()
{
    QTest::addColumn<quint16>("port");
    QTest::newRow("lowest") << quint16{1};
    QTest::newRow("highest") << quint16{65535};
}

void tst_ftp_servers::lowestAndHighestPortAreReached()
{
    QFETCH(const quint16, port);
    const FtpServer server(QHostAddress(QHostAddress::LocalHost), port);
    RealTrial trial(u"127.0.0.1"_s);
    trial.port = port;

    trial.upload();
    QVERIFY(trial.ends());

    QCOMPARE(trial.failure(), QString());
    QCOMPARE(server.data(), QByteArray("0123456789"));
}

void tst_ftp_servers::refusedLoginIsOne_data()
{
    servers();
}

void tst_ftp_servers::refusedLoginIsOne()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, address);
    RealServer server(kind, address);
    QVERIFY2(server.isReady, qPrintable(server.words()));
    RealTrial trial(address);

    trial.upload(true, u"uploader"_s, u"wrong"_s, server.home());
    QVERIFY(trial.ends());

    QVERIFY2(trial.failure().startsWith(u"5 Login failed:\n"_s), qPrintable(trial.failure()));
    QVERIFY(trial.hasFile());
}

void tst_ftp_servers::refusedPlaceIsToldInTheServersWords_data()
{
    servers();
}

void tst_ftp_servers::refusedPlaceIsToldInTheServersWords()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, address);
    RealServer server(kind, address);
    QVERIFY2(server.isReady, qPrintable(server.words()));
    RealTrial trial(address);

    trial.upload(true, {}, {}, u"/no/such/place"_s);
    QVERIFY(trial.ends());

    // vsftpd: "Could not create file."; pyftpdlib: "No such file or directory."
    QVERIFY2(trial.failure().startsWith(u"12 Uploading file failed:\n"_s), qPrintable(trial.failure()));
    QVERIFY(trial.failure().contains(kind == "vsftpd"_L1 ? u"create file"_s : u"No such file"_s));
    QVERIFY(trial.hasFile());
}

void tst_ftp_servers::fullDiskIsToldAndTheFileStays_data()
{
    servers();
}

void tst_ftp_servers::fullDiskIsToldAndTheFileStays()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, address);
    const SmallDisk disk;
    QVERIFY(make_directory(disk.filePath(u"in"_s), userNumber));
    QVERIFY(QFile::setPermissions(QFile::decodeName(disk.path()), QFile::Permissions::fromInt(0x7755)));
    RealServer server(kind, address);
    QVERIFY2(server.isReady, qPrintable(server.words()));
    RealTrial trial(address);
    trial.write(QByteArray(20'000'000, 'x'));

    trial.upload(true, u"uploader"_s, password, disk.filePath(u"in"_s));
    QVERIFY(trial.ends());

    QVERIFY2(trial.failure().startsWith(u"12 Uploading file failed:\n"_s), qPrintable(trial.failure()));
    // pyftpdlib says nothing at all if its own buffer was not empty by then.
    const QStringList words = kind == "vsftpd"_L1 ? QStringList{u"local file"_s}
                                                  : QStringList{u"transfer aborted"_s, u"Data connection closed"_s};
    QVERIFY2(std::any_of(words.cbegin(), words.cend(),
                         [&trial](const QString &word) { return trial.failure().contains(word); }),
             qPrintable(trial.failure()));
    QVERIFY(trial.hasFile());
}

int main(int argc, char **argv)
{
    if (::geteuid() != 0)
        end_as_skipped("root runs FTP servers for users of several names");
    leave_common_mounts();
    leave_common_network();
    const QCoreApplication application(argc, argv);
    tst_ftp_servers test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_ftp_servers.moc"
