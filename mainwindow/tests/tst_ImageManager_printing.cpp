#include "files.h"
#include "private_namespaces.h"
#include "WindowFixture.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLocalSocket>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A real printing system of our own, and a printer in its network that keeps all bytes that it is sent.
class PrintingSystem
{
public:
    PrintingSystem()
    {
        if (!printer.listen(QHostAddress::LocalHost))
            qFatal("no printer");
        QObject::connect(&printer, &QTcpServer::newConnection, &printer, [this] {
            QTcpSocket *const sender = printer.nextPendingConnection();
            QObject::connect(sender, &QTcpSocket::disconnected, sender, [this, sender] {
                jobs.append(sender->readAll());
                sender->deleteLater();
            });
        });
        QFile(place.path()).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ExeOther);
        for (const QString &name : {u"spool"_s, u"state"_s, u"cache"_s, u"tmp"_s})
            QDir(place.path()).mkdir(name);
        write(u"etc/cupsd.conf"_s,
              "Listen %1/socket\nBrowsing No\nDefaultAuthType None\n"
              "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
              "<Policy default>\n<Limit All>\nOrder allow,deny\nAllow all\n</Limit>\n</Policy>\n");
        write(u"etc/cups-files.conf"_s,
              "ServerRoot %1/etc\nRequestRoot %1/spool\nStateDir %1/state\nCacheDir %1/cache\nTempDir %1/tmp\n"
              "ErrorLog %1/error_log\nAccessLog %1/access_log\nPageLog %1/page_log\nSystemGroup root\n");
        // Without a description of the printer its queue is a raw one.
        write(u"etc/printers.conf"_s,
              "<DefaultPrinter raw>\nDeviceURI socket://127.0.0.1:%2/?waiteof=false&snmp=false\n"
              "State Idle\nAccepting Yes\n</DefaultPrinter>\n");
        server.setStandardErrorFile(path(u"errors"_s));
        server.start(u"/usr/sbin/cupsd"_s,
                     {u"-f"_s, u"-c"_s, path(u"etc/cupsd.conf"_s), u"-s"_s, path(u"etc/cups-files.conf"_s)});
        qputenv("CUPS_SERVER", QFile::encodeName(path(u"socket"_s)));
    }
    ~PrintingSystem()
    {
        server.terminate();
        server.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(PrintingSystem)

    [[nodiscard]] bool isUp() const
    {
        QLocalSocket socket;
        socket.connectToServer(path(u"socket"_s));
        return socket.waitForConnected(100);
    }
    /// What the printer was sent, a job each.
    [[nodiscard]] const QByteArrayList &printed() const { return jobs; }
    [[nodiscard]] QString path(const QString &name) const { return place.filePath(name); }
    [[nodiscard]] QByteArray told() const { return "log: " + file_bytes_if_any(path(u"error_log"_s)); }

private:
    void write(const QString &name, QByteArray text) const
    {
        text.replace("%1", QFile::encodeName(place.path())).replace("%2", QByteArray::number(printer.serverPort()));
        write_file(path(name), text);
    }

    QTemporaryDir place{u"/tmp/printing-XXXXXX"_s}; // which the system's own user has to get into
    QTcpServer printer;
    QByteArrayList jobs;
    QProcess server;
};

void leave_common_places()
{
    leave_common_mounts();
    leave_common_network();
}

} // namespace

class tst_ImageManager_printing : public QObject
{
    Q_OBJECT

private slots:
    void pageComesOutOfTheRealPrintingSystem_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::newRow("32 bit") << QImage::Format_RGB32;
        QTest::newRow("8 bit") << QImage::Format_Indexed8;
        QTest::newRow("1 bit") << QImage::Format_Mono;
    }
    void pageComesOutOfTheRealPrintingSystem()
    {
        QFETCH(const QImage::Format, format);
        const PrintingSystem printing;
        WindowFixture fixture;
        const QString path = fixture.home.filePath(u"a.png"_s);
        QVERIFY(patterned_page({300, 200}).convertToFormat(format).save(path));
        QVERIFY(fixture.window.load_file(path, {}, false));
        QTRY_VERIFY2_WITH_TIMEOUT(printing.isUp(), printing.told().constData(), 20'000);

        fixture.action(u"file_print"_s)->trigger();

        QTRY_VERIFY2_WITH_TIMEOUT(!printing.printed().isEmpty(), printing.told().constData(), 20'000);
        QCOMPARE(printing.printed().size(), 1);
        QCOMPARE(QImage::fromData(printing.printed()[0], "PNG").convertToFormat(QImage::Format_RGB32),
                 QImage(path).convertToFormat(QImage::Format_RGB32));
    }
};

TEST_MAIN_APART(QApplication, tst_ImageManager_printing, leave_common_places)
#include "tst_ImageManager_printing.moc"
