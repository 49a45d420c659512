#pragma once

#include "mail_message.h"
#include "Q3Dns.h"
#include "smtp_transitions.h"

#include <QHostAddress>
#include <QString>
#include <QStringList>

#include <chrono>

/// Who sends to whom, and from where.
struct SmtpParties
{
    QString login;
    QString password;
    QString from;
    QString to;
    QHostAddress ownAddress; ///< this end of the connection
};

/// What a mail client leaves to choice: the words that it sends, the hosts that it tries, and how it takes what comes
/// back. The session itself is the same for all; a policy holds no state.
///
/// This one is the way of old: every host is tried at once, the first that answers gets the mail and the login, lines
/// end in a bare line feed, nothing ever runs out of time, and only a reply that fits nowhere is told.
class SmtpPolicy
{
public:
    SmtpPolicy() = default;
    virtual ~SmtpPolicy() = default;
    Q_DISABLE_COPY_MOVE(SmtpPolicy)

    // Before the session.

    /// Why this mail cannot be sent, null if nothing is known against it.
    [[nodiscard]] virtual QString obstacle(const SmtpParties &parties, const QString &server) const;
    /// The text that goes out after DATA, see compose_message().
    [[nodiscard]] virtual QString compose(const MailContent &content, std::istream &attachment, std::time_t now) const;
    /// Whether the exchangers of the domain are wanted.
    [[nodiscard]] virtual bool asksForExchangers(const QString &server) const;
    /// The hosts to be tried, in order. Empty: the domain takes no mail.
    /// @param server  as typed, may be empty
    [[nodiscard]] virtual QStringList hosts(const QList<Q3Dns::MailServer> &exchangers, const QString &server,
                                            const QString &domain) const;
    [[nodiscard]] virtual bool triesAllHostsAtOnce() const { return true; }

    // During the session.

    [[nodiscard]] virtual SmtpAuthentication authentication(const SmtpParties &parties) const;
    /// What remains possible after the server has told its abilities.
    /// @param reply  all lines of the reply to EHLO
    [[nodiscard]] virtual SmtpAuthentication offered(SmtpAuthentication wanted, const QString &reply) const;
    /// The line of a command, without its end; Message has none.
    [[nodiscard]] virtual QString line(SmtpCommand command, const SmtpParties &parties) const;
    [[nodiscard]] virtual QString lineEnd() const;

    /// Whether nothing of the same reply follows this line.
    [[nodiscard]] virtual bool isLastLine(const QString &line) const;
    /// Whether a reply counts as soon as there are no more lines at the moment.
    [[nodiscard]] virtual bool takesPartsOfReplies() const { return true; }
    /// The code under which a reply stands in the table of transitions.
    [[nodiscard]] virtual int tabledCode(int code, SmtpState state) const;

    /// How long the server may be silent; none means for ever.
    /// @param isSending  whether bytes of the message are still on their way out
    [[nodiscard]] virtual std::chrono::milliseconds patience(SmtpState state, bool isSending) const;
    /// Whether the user hears of everything that keeps the mail from being delivered.
    [[nodiscard]] virtual bool tellsFailures() const { return false; }
};
