#include "mail_settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QString mail_key(const QString &name)
{
    return u"/ImageManager/mail_cfg/"_s + name;
}

QString read(const QString &name)
{
    return QSettings().value(mail_key(name), QString()).toString();
}

void write(const QString &name, const QString &value)
{
    QSettings().setValue(mail_key(name), value);
}

/// One byte for each character, "?" for those beyond ASCII.
QByteArray ascii_bytes(const QString &text)
{
    QByteArray bytes = text.toLatin1();
    for (char &byte : bytes)
        if ((byte & 0x80) != 0)
            byte = '?';
    return bytes;
}

/// Takes the settings file from all but its owner, and makes it where it is missing: it never lies open to others,
/// not even while the first value is written.
void close_settings_file()
{
    const QString path = QSettings().fileName();
    const QByteArray name = QFile::encodeName(path);
    (void)QDir().mkpath(QFileInfo(path).path());
    const int file = ::open(name.constData(), O_RDONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0)
        return; // nothing can be written either
    struct stat status
    {
    };
    if (::fstat(file, &status) == 0)
        (void)::fchmod(file, status.st_mode & (S_IRUSR | S_IWUSR));
    ::close(file);
}

} // namespace

MailSettings read_mail_settings()
{
    constexpr int smtpPort = 25;
    const QByteArray password = read(u"pwdhash"_s).toLatin1();
    return {
        .server = read(u"server"_s),
        .port = u"%1"_s.arg(QSettings().value(mail_key(u"port"_s), smtpPort).toInt()),
        .sender = read(u"sender"_s),
        .recipient = read(u"recipient"_s),
        .login = read(u"login"_s),
        .password = QString::fromLatin1(QByteArray::fromBase64(password)),
    };
}

void write_mail_settings(const MailSettings &settings)
{
    close_settings_file();
    write(u"server"_s, settings.server);
    write(u"port"_s, settings.port);
    write(u"sender"_s, settings.sender);
    write(u"recipient"_s, settings.recipient);
    write(u"login"_s, settings.login);
    // Intended: no hash, in spite of the name, and no cipher.
    write(u"pwdhash"_s, QString::fromLatin1(ascii_bytes(settings.password).toBase64()));
}

bool read_mail_strictness()
{
    return QSettings().value(mail_key(u"strict"_s), false).toBool();
}
