#include "SmtpPolicy.h"

using namespace Qt::StringLiterals;

namespace {

QString base64(const QString &text)
{
    return QString::fromLatin1(text.toLatin1().toBase64());
}

} // namespace

QString SmtpPolicy::obstacle(const SmtpParties & /*parties*/, const QString & /*server*/) const
{
    return {};
}

QString SmtpPolicy::compose(const MailContent &content, std::istream &attachment, std::time_t now) const
{
    return compose_message(content, attachment, now);
}

bool SmtpPolicy::asksForExchangers(const QString & /*server*/) const
{
    return true;
}

QStringList SmtpPolicy::hosts(const QList<Q3Dns::MailServer> &exchangers, const QString &server,
                              const QString &domain) const
{
    QStringList names;
    for (const Q3Dns::MailServer &exchanger : exchangers)
        names.append(exchanger.name);
    for (const QString &name : {server, domain, u"smtp."_s + domain})
        if (!names.contains(name))
            names.append(name); // Intended: an empty server is a name like any other
    return names;
}

SmtpAuthentication SmtpPolicy::authentication(const SmtpParties &parties) const
{
    // Intended: with only one of the two filled in, the session goes on without a login.
    return parties.login.isEmpty() || parties.password.isEmpty() ? SmtpAuthentication::None : SmtpAuthentication::Login;
}

SmtpAuthentication SmtpPolicy::offered(SmtpAuthentication wanted, const QString & /*reply*/) const
{
    return wanted;
}

QString SmtpPolicy::line(SmtpCommand command, const SmtpParties &parties) const
{
    switch (command) {
    case SmtpCommand::Helo:
        return u"HELO there"_s; // Intended: no host name of this machine is ever told
    case SmtpCommand::Ehlo:
        return u"EHLO there"_s;
    case SmtpCommand::AuthLogin:
        return u"AUTH LOGIN"_s;
    case SmtpCommand::User:
        return base64(parties.login);
    case SmtpCommand::Password:
        return base64(parties.password);
    case SmtpCommand::MailFrom:
        return u"MAIL FROM: <"_s + parties.from + u">"_s;
    case SmtpCommand::RcptTo:
        return u"RCPT TO: <"_s + parties.to + u">"_s;
    case SmtpCommand::Data:
        return u"DATA"_s;
    case SmtpCommand::Quit:
        return u"QUIT"_s;
    case SmtpCommand::None:
    case SmtpCommand::AuthPlain:
    case SmtpCommand::PlainResponse:
    case SmtpCommand::Message:
        break;
    }
    return {};
}

QString SmtpPolicy::lineEnd() const
{
    return u"\n"_s; // Intended: also behind the full stop that ends the message
}

bool SmtpPolicy::isLastLine(const QString &line) const
{
    return line.size() > 3 && line.at(3) == u' ';
}

int SmtpPolicy::tabledCode(int code, SmtpState /*state*/) const
{
    return code;
}

std::chrono::milliseconds SmtpPolicy::patience(SmtpState /*state*/, bool /*isSending*/) const
{
    return {};
}
