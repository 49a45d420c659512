#pragma once

#include "SmtpPolicy.h"

/// A client by RFC 5321 and RFC 4954, whose messages are by RFC 5322 and MIME: one host at a time, lines that end in
/// CRLF, replies taken whole, time-outs, a login for the typed server alone, and nothing that fails in silence.
class StrictSmtpPolicy : public SmtpPolicy
{
public:
    [[nodiscard]] QString obstacle(const SmtpParties &parties, const QString &server) const override;
    [[nodiscard]] QString compose(const MailContent &content, std::istream &attachment, std::time_t now) const override;
    [[nodiscard]] bool asksForExchangers(const QString &server) const override;
    [[nodiscard]] QStringList hosts(const QList<Q3Dns::MailServer> &exchangers, const QString &server,
                                    const QString &domain) const override;
    [[nodiscard]] bool triesAllHostsAtOnce() const override { return false; }

    [[nodiscard]] SmtpAuthentication authentication(const SmtpParties &parties) const override;
    [[nodiscard]] SmtpAuthentication offered(SmtpAuthentication wanted, const QString &reply) const override;
    [[nodiscard]] QString line(SmtpCommand command, const SmtpParties &parties) const override;
    [[nodiscard]] QString lineEnd() const override;

    [[nodiscard]] bool isLastLine(const QString &line) const override;
    [[nodiscard]] bool takesPartsOfReplies() const override { return false; }
    /// By the first digit alone, as servers choose the others freely.
    [[nodiscard]] int tabledCode(int code, SmtpState state) const override;

    [[nodiscard]] std::chrono::milliseconds patience(SmtpState state, bool isSending) const override;
    [[nodiscard]] bool tellsFailures() const override { return true; }
};

/// The policy for the setting "strict", off and on. It lives as long as the program.
[[nodiscard]] const SmtpPolicy &smtp_policy(bool strict);
