#include "files.h"
#include "MailFormOnShow.h"
#include "NameServer.h"
#include "private_namespaces.h"
#include "ScriptedMailServer.h"

#include <QCoreApplication>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;

// A page goes out by mail as a user sends it, to port 25 of a network that this program and the one under test have to
// themselves.

namespace {

const QByteArrayList goodSession{"220 a\r\n", "250 b\r\n", "250 c\r\n", "250 d\r\n", "354 e\r\n", "250 f\r\n"};

/// The bytes that travel in Base64 in the last part of a message.
QByteArray attachment_of(const QByteArray &message)
{
    const qsizetype begin = message.indexOf("\r\n\r\n", message.indexOf("Content-Disposition: attachment"));
    return QByteArray::fromBase64(message.mid(begin, message.lastIndexOf("\r\n--") - begin));
}

} // namespace

class tst_mail : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { names = std::make_unique<NameServer>(QStringList()); }
    void cleanupTestCase() { names.reset(); }

    void everyControlHasAName()
    {
        MailFormOnShow shown;
        QVERIFY(shown.isReady);

        QVERIFY2(shown.namelessControls().isEmpty(), qPrintable(shown.form().tree()));
    }

    void aPageIsSentByTheKeyboard()
    {
        ScriptedMailServer server(u"127.0.0.2"_s, goodSession);
        MailFormOnShow shown;
        QVERIFY(shown.isReady);

        shown.program.desktop().pressKey("Return"); // Send is the default

        QTRY_VERIFY_WITH_TIMEOUT(server.received().endsWith("QUIT\n"), Program::patienceMs);
        QCOMPARE(attachment_of(server.message()), file_bytes(shown.page));
        QVERIFY(server.message().contains("\r\nSubject: page.bmp\r\n"));
        QTRY_VERIFY_WITH_TIMEOUT(!shown.control(Role::Label, u"Message sent"_s).isNull(), Program::patienceMs);
        shown.program.desktop().pressKey("Escape");
        QTRY_VERIFY_WITH_TIMEOUT(shown.form().isNull(), Program::patienceMs);
    }

    void deleteAfterSendLeavesTheProgramWithoutATab()
    {
        ScriptedMailServer server(u"127.0.0.2"_s, goodSession);
        MailFormOnShow shown;
        QVERIFY(shown.isReady);

        shown.click(shown.control(Role::CheckBox, u"Delete After Send"_s));
        shown.click(shown.control(Role::Button, u"Send"_s));

        QTRY_VERIFY_WITH_TIMEOUT(!QFile::exists(shown.page), Program::patienceMs);
        shown.click(shown.control(Role::Button, u"Close"_s));
        QTRY_VERIFY_WITH_TIMEOUT(shown.form().isNull(), Program::patienceMs);
        QVERIFY(shown.program.application().findAll(Role::Tab).isEmpty());
    }

private:
    std::unique_ptr<NameServer> names;
};

TEST_MAIN_APART(QCoreApplication, tst_mail, leave_common_network)
#include "tst_mail.moc"
