#include "ImageManagerProgram.h"
#include "NameServer.h"
#include "private_namespaces.h"
#include "ScriptedMailServer.h"

#include <QCoreApplication>
#include <QFile>
#include <QSettings>
#include <QTest>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;
using State = Accessible::State;

// A page goes out by mail as a user sends it, to port 25 of a network that this program and the one under test have to
// themselves.

namespace {

constexpr QSize roomy{1100, 700};
constexpr auto FormTitle = "Send Image By E-mail"_L1;
const QByteArrayList goodSession{"220 a\r\n", "250 b\r\n", "250 c\r\n", "250 d\r\n", "354 e\r\n", "250 f\r\n"};

/// The program with a page open and the form on show, which remembers whom it wrote to.
class FormOnShow
{
public:
    FormOnShow() : program(place)
    {
        QSettings settings(place.home() + u"/.config/Unknown Organization/imagemanager.conf"_s, QSettings::IniFormat);
        settings.setValue(u"image_editor/tools_menu"_s, true);
        settings.setValue(u"ImageManager/mail_cfg/server"_s, u"127.0.0.2"_s);
        settings.setValue(u"ImageManager/mail_cfg/sender"_s, u"ann@example.test"_s);
        settings.setValue(u"ImageManager/mail_cfg/recipient"_s, u"bob@nowhere.test"_s);
        settings.sync();
        page = place.page(u"page.bmp"_s, {100, 80});
        isReady = program.open({page}, roomy) && choose()
            && QTest::qWaitFor([this] { return control(Role::Button, u"Send"_s).has(State::Showing); },
                               Program::patienceMs);
    }

    [[nodiscard]] Accessible form() { return program.application().find(Role::Dialog, FormTitle); }
    [[nodiscard]] Accessible control(Role role, const QString &name) { return form().find(role, name); }
    void click(const Accessible &shown) { program.desktop().click(shown.extents().center()); }

    Place place;
    ImageManagerProgram program;
    QString page;
    bool isReady = false;

private:
    [[nodiscard]] bool choose()
    {
        const auto entry = [this] { return program.menuEntry(u"Tools"_s, u"Send by E-mail..."_s); };
        click(program.application().find(Role::MenuBar).find(Role::MenuItem, u"Tools"_s));
        if (!QTest::qWaitFor([&] { return entry().has(State::Showing); }, Program::patienceMs))
            return false;
        click(entry());
        return true;
    }
};

/// The bytes that travel in Base64 in the last part of a message.
QByteArray attachment_of(const QByteArray &message)
{
    const qsizetype begin = message.indexOf("\r\n\r\n", message.indexOf("Content-Disposition: attachment"));
    return QByteArray::fromBase64(message.mid(begin, message.lastIndexOf("\r\n--") - begin));
}

QByteArray bytes_of(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
        FormOnShow shown;
        QVERIFY(shown.isReady);

        const QList<Accessible> nameless = shown.form().findAll([](const Accessible &control) {
            return control.has(State::Showing) && control.name().isEmpty() && control.role() != Role::Filler
                && control.role() != Role::Label;
        });
        QVERIFY2(nameless.isEmpty(), qPrintable(shown.form().tree()));
    }

    void aPageIsSentByTheKeyboard()
    {
        ScriptedMailServer server(u"127.0.0.2"_s, goodSession);
        FormOnShow shown;
        QVERIFY(shown.isReady);

        shown.program.desktop().pressKey("Return"); // Send is the default

        QTRY_VERIFY_WITH_TIMEOUT(server.received().endsWith("QUIT\n"), Program::patienceMs);
        QCOMPARE(attachment_of(server.message()), bytes_of(shown.page));
        QVERIFY(server.message().contains("\r\nSubject: page.bmp\r\n"));
        QTRY_VERIFY_WITH_TIMEOUT(!shown.control(Role::Label, u"Message sent"_s).isNull(), Program::patienceMs);
        shown.program.desktop().pressKey("Escape");
        QTRY_VERIFY_WITH_TIMEOUT(shown.form().isNull(), Program::patienceMs);
    }

    void deleteAfterSendLeavesTheProgramWithoutATab()
    {
        ScriptedMailServer server(u"127.0.0.2"_s, goodSession);
        FormOnShow shown;
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

int main(int argc, char **argv)
{
    leave_common_network();
    const QCoreApplication application(argc, argv);
    tst_mail test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_mail.moc"
