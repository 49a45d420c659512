#include "mail_settings.h"
#include "OpenMailForm.h"

#include <QFileInfo>
#include <QSettings>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

constexpr QFile::Permissions OwnerAlone = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;

QVariant stored(const QString &name)
{
    return QSettings().value(u"ImageManager/mail_cfg/"_s + name);
}

} // namespace

class tst_mail_settings : public QObject
{
    Q_OBJECT

private slots:
    void nothingStoredIsEmptyAndPort25()
    {
        OpenMailForm mail;
        mail.open();

        QCOMPARE(mail.field("port")->text(), u"25"_s);
        for (const char *const name : {"server", "from", "to", "login", "password"})
            QVERIFY2(mail.field(name)->text().isEmpty(), name);
    }

    void closingTheFormKeepsWhatIsFilledIn()
    {
        OpenMailForm mail;
        mail.open();
        mail.field("server")->setText(u"mail.example.test"_s);
        mail.field("port")->setText(u"587"_s);
        mail.field("from")->setText(u"ann@example.test"_s);
        mail.field("to")->setText(u"bob@example.test"_s);
        mail.field("login")->setText(u"ann"_s);
        mail.field("password")->setText(u"s3cret"_s);
        mail.field("subject")->setText(u"not kept"_s);
        mail.widget<QCheckBox>("delete_file")->setChecked(true);

        mail.form.reset();

        QCOMPARE(stored(u"server"_s).toString(), u"mail.example.test"_s);
        QCOMPARE(stored(u"port"_s).toString(), u"587"_s);
        QCOMPARE(stored(u"sender"_s).toString(), u"ann@example.test"_s);
        QCOMPARE(stored(u"recipient"_s).toString(), u"bob@example.test"_s);
        QCOMPARE(stored(u"login"_s).toString(), u"ann"_s);
        QCOMPARE(stored(u"pwdhash"_s).toString(), u"czNjcmV0"_s); // Base64 of it: no hash
        mail.open();
        QCOMPARE(mail.field("server")->text(), u"mail.example.test"_s);
        QCOMPARE(mail.field("port")->text(), u"587"_s);
        QCOMPARE(mail.field("from")->text(), u"ann@example.test"_s);
        QCOMPARE(mail.field("to")->text(), u"bob@example.test"_s);
        QCOMPARE(mail.field("login")->text(), u"ann"_s);
        QCOMPARE(mail.field("password")->text(), u"s3cret"_s);
        QCOMPARE(mail.field("subject")->text(), u"scan.png"_s);
        QVERIFY(!mail.widget<QCheckBox>("delete_file")->isChecked());
    }

    void anEmptiedPortIsStoredEmptyAndReadAs0()
    {
        OpenMailForm mail;
        mail.open();
        mail.field("port")->clear();

        mail.form.reset();

        QVERIFY(QSettings().contains(u"ImageManager/mail_cfg/port"_s));
        QVERIFY(stored(u"port"_s).toString().isEmpty());
        mail.open();
        QCOMPARE(mail.field("port")->text(), u"0"_s);
    }

    void charactersOfAPasswordBeyondAsciiAreLost()
    {
        const TemporaryHome home;

        write_mail_settings(
            {.server = {}, .port = {}, .sender = {}, .recipient = {}, .login = {}, .password = u"p\u00e4ss\u20acw"_s});

        QCOMPARE(read_mail_settings().password, u"p?ss?w"_s);
    }

    void aNewSettingsFileIsItsOwnersAlone()
    {
        const TemporaryHome home;
        const mode_t former = ::umask(0);

        write_mail_settings({});
        ::umask(former);

        QCOMPARE(QFileInfo(QSettings().fileName()).permissions(), OwnerAlone);
    }

    void anExistingSettingsFileIsTakenFromTheOthers_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("expected");

        QTest::newRow("open to all") << 0644 << 0600;
        QTest::newRow("open to the group") << 0660 << 0600;
        QTest::newRow("the owner's already") << 0600 << 0600;
    }
    void anExistingSettingsFileIsTakenFromTheOthers()
    {
        QFETCH(const int, mode);
        QFETCH(const int, expected);
        const TemporaryHome home;
        QSettings().setValue(u"image_editor/show_labels"_s, true);
        const QByteArray name = QFile::encodeName(QSettings().fileName());
        QCOMPARE(::chmod(name.constData(), static_cast<mode_t>(mode)), 0);

        write_mail_settings({});
        QSettings().setValue(u"image_editor/show_labels"_s, false); // others write later: it stays so

        struct stat status
        {
        };
        QCOMPARE(::stat(name.constData(), &status), 0);
        QCOMPARE(static_cast<int>(status.st_mode & 07777), expected);
        QVERIFY(QSettings().contains(u"image_editor/show_labels"_s));
    }

    void mailIsStrictOnlyWhereTheFileSaysSo()
    {
        const TemporaryHome home;
        QVERIFY(!read_mail_strictness());

        QSettings().setValue(u"/ImageManager/mail_cfg/strict"_s, true);

        QVERIFY(read_mail_strictness());
    }
};

QTEST_MAIN(tst_mail_settings)
#include "tst_mail_settings.moc"
