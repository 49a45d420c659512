#include "StrictSmtpPolicy.h"

#include "mime_message.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QUuid>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString base64(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.toBase64());
}

/// This end of the connection for a greeting, as it has no name that is sure to mean anything there.
/// Source: RFC 5321 section 4.1.3.
QString address_literal(const QHostAddress &address)
{
    bool isVersion4 = false;
    const quint32 version4 = address.toIPv4Address(&isVersion4);
    if (isVersion4)
        return u"[%1]"_s.arg(QHostAddress(version4).toString());
    QHostAddress plain = address;
    plain.setScopeId(QString());
    return u"[IPv6:%1]"_s.arg(plain.toString());
}

} // namespace

const SmtpPolicy &smtp_policy(bool strict)
{
    static const SmtpPolicy old;
    static const StrictSmtpPolicy byTheBook;
    return strict ? static_cast<const SmtpPolicy &>(byTheBook) : old;
}

QString StrictSmtpPolicy::obstacle(const SmtpParties &parties, const QString &server) const
{
    if (!parties.login.isEmpty() && server.isEmpty())
        return QCoreApplication::translate("Smtp",
                                           "A login is sent to no server but the one that is filled in.\n"
                                           "Fill in \"Server\", or empty \"Login\".");
    for (const QString &address : {parties.from, parties.to})
        if (ascii_address(address).isEmpty())
            return QCoreApplication::translate("Smtp", "This address cannot be used:\n%1").arg(address);
    return {};
}

QString StrictSmtpPolicy::compose(const MailContent &content, std::istream &attachment, std::time_t now) const
{
    return compose_mime_message(content, attachment, now, QUuid::createUuid().toString(QUuid::Id128));
}

bool StrictSmtpPolicy::asksForExchangers(const QString &server) const
{
    return server.isEmpty();
}

QStringList StrictSmtpPolicy::hosts(const QList<Q3Dns::MailServer> &exchangers, const QString &server,
                                    const QString &domain) const
{
    if (!server.isEmpty())
        return {server};
    if (exchangers.isEmpty())
        return {domain};
    QStringList names;
    for (const Q3Dns::MailServer &exchanger : exchangers)
        if (!exchanger.name.isEmpty()) // the null exchanger (RFC 7505)
            names.append(exchanger.name);
    return names;
}

SmtpAuthentication StrictSmtpPolicy::authentication(const SmtpParties &parties) const
{
    return parties.login.isEmpty() ? SmtpAuthentication::None : SmtpAuthentication::Login;
}

SmtpAuthentication StrictSmtpPolicy::offered(SmtpAuthentication /*wanted*/, const QString &reply) const
{
    // "AUTH=" is how servers told it before RFC 2554.
    static const QRegularExpression ability(
        u"^250[ -]AUTH[ =](.*)$"_s, QRegularExpression::CaseInsensitiveOption | QRegularExpression::MultilineOption);
    QStringList mechanisms;
    for (const QRegularExpressionMatch &match : ability.globalMatch(reply))
        mechanisms += match.captured(1).toUpper().simplified().split(u' ');
    if (mechanisms.contains("LOGIN"_L1))
        return SmtpAuthentication::Login;
    return mechanisms.contains("PLAIN"_L1) ? SmtpAuthentication::Plain : SmtpAuthentication::None;
}

QString StrictSmtpPolicy::line(SmtpCommand command, const SmtpParties &parties) const
{
    switch (command) {
    case SmtpCommand::Helo:
        return u"HELO "_s + address_literal(parties.ownAddress);
    case SmtpCommand::Ehlo:
        return u"EHLO "_s + address_literal(parties.ownAddress);
    case SmtpCommand::User:
        return base64(parties.login.toUtf8());
    case SmtpCommand::Password:
        return base64(parties.password.toUtf8());
    case SmtpCommand::AuthPlain: // alone, as the response would make the line too long (RFC 4954 section 4)
        return u"AUTH PLAIN"_s;
    case SmtpCommand::PlainResponse: // RFC 4616
        return base64('\0' + parties.login.toUtf8() + '\0' + parties.password.toUtf8());
    case SmtpCommand::MailFrom:
        return u"MAIL FROM:<%1>"_s.arg(ascii_address(parties.from));
    case SmtpCommand::RcptTo:
        return u"RCPT TO:<%1>"_s.arg(ascii_address(parties.to));
    case SmtpCommand::None:
    case SmtpCommand::AuthLogin:
    case SmtpCommand::Data:
    case SmtpCommand::Message:
    case SmtpCommand::Quit:
        break;
    }
    return SmtpPolicy::line(command, parties);
}

QString StrictSmtpPolicy::lineEnd() const
{
    return u"\r\n"_s;
}

bool StrictSmtpPolicy::isLastLine(const QString &line) const
{
    return line.size() <= 3 || line.at(3) != u'-';
}

int StrictSmtpPolicy::tabledCode(int code, SmtpState state) const
{
    constexpr int refused = 0; // stands nowhere in the table
    switch (code / 100) {
    case 2:
        if (state == SmtpState::Init)
            return 220;
        if (state == SmtpState::AuthPass)
            return 235;
        return state == SmtpState::Close ? 221 : 250;
    case 3:
        return state == SmtpState::Data ? 354 : 334;
    default:
        return refused;
    }
}

std::chrono::milliseconds StrictSmtpPolicy::patience(SmtpState state, bool isSending) const
{
    using std::chrono::minutes;
    // RFC 5321 section 4.5.3.2
    switch (state) {
    case SmtpState::Init:
    case SmtpState::Helo:
    case SmtpState::Ehlo:
    case SmtpState::AuthLogin:
    case SmtpState::AuthUser:
    case SmtpState::AuthPass:
    case SmtpState::Mail:
    case SmtpState::Rcpt:
        return minutes(5);
    case SmtpState::Data:
        return minutes(2);
    case SmtpState::Body:
        return isSending ? minutes(3) : minutes(10);
    case SmtpState::Close:
        break;
    }
    return {};
}
