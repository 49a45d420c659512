#include "smtp_transitions.h"

#include <algorithm>
#include <array>

namespace {

using Command = SmtpCommand;
using Progress = SmtpProgress;
using State = SmtpState;

constexpr bool yes = true;
constexpr bool no = false;

// clang-format off
constexpr auto transitions = std::to_array<SmtpTransition>({
    // Reply  in state        none LOGIN PLAIN  is answered by          and leads to      the user is told      the end
    {220, State::Init,      yes, no,  no,  Command::Helo,          State::Helo,      Progress::Authentication, no},
    {220, State::Init,      no,  yes, yes, Command::Ehlo,          State::Ehlo,      Progress::Authentication, no},
    {250, State::Ehlo,      yes, yes, no,  Command::AuthLogin,     State::AuthLogin, Progress::None,           no},
    {334, State::AuthLogin, yes, yes, no,  Command::User,          State::AuthUser,  Progress::None,           no},
    {334, State::AuthUser,  yes, yes, no,  Command::Password,      State::AuthPass,  Progress::None,           no},
    {250, State::Ehlo,      no,  no,  yes, Command::AuthPlain,     State::AuthUser,  Progress::None,           no},
    {334, State::AuthUser,  no,  no,  yes, Command::PlainResponse, State::AuthPass,  Progress::None,           no},
    {235, State::AuthPass,  yes, yes, yes, Command::MailFrom,      State::Mail,      Progress::Sending,        no},
    // Intended: a refused password ends the session as if the mail had gone, and no box tells otherwise.
    {535, State::AuthPass,  yes, yes, yes, Command::Quit,          State::Close,     Progress::Sent,           yes},
    {250, State::Helo,      yes, yes, yes, Command::MailFrom,      State::Mail,      Progress::Sending,        no},
    {250, State::Mail,      yes, yes, yes, Command::RcptTo,        State::Rcpt,      Progress::None,           no},
    {250, State::Rcpt,      yes, yes, yes, Command::Data,          State::Data,      Progress::None,           no},
    {354, State::Data,      yes, yes, yes, Command::Message,       State::Body,      Progress::None,           no},
    {250, State::Body,      yes, yes, yes, Command::Quit,          State::Close,     Progress::Sent,           yes},
    {221, State::Close,     yes, yes, yes, Command::None,          State::Close,     Progress::None,           no},
});
// clang-format on

bool holds_for(const SmtpTransition &row, SmtpAuthentication authentication)
{
    switch (authentication) {
    case SmtpAuthentication::None:
        return row.withoutLogin;
    case SmtpAuthentication::Login:
        return row.withLogin;
    case SmtpAuthentication::Plain:
        return row.withPlain;
    }
    return false;
}

} // namespace

const SmtpTransition *find_transition(int code, SmtpState state, SmtpAuthentication authentication)
{
    for (const SmtpTransition &row : transitions)
        if (row.code == code && row.state == state && holds_for(row, authentication))
            return &row;
    return nullptr;
}

bool has_handler(int code)
{
    constexpr std::array codes{220, 235, 250, 334, 354, 535}; // a lone 221 goes without a word
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}
