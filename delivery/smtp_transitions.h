#pragma once

/// A mail session as a table: what a reply brings about in each state. It knows no sockets and no texts.
///
/// Sources: RFC 5321, RFC 4954.

/// What the client waits for. The values are fixed.
enum class SmtpState : int {
    Init = 0, ///< the greeting of the server
    Helo = 1,
    Ehlo = 2,
    AuthLogin = 3, ///< the prompt for the user name
    AuthUser = 4, ///< the prompt for the password, or for all at once
    AuthPass = 5, ///< the verdict on the password
    Rcpt = 6,
    Mail = 7,
    Data = 8,
    Body = 9, ///< the verdict on the message
    Close = 10, ///< nothing more
};

/// How the client proves who it is.
enum class SmtpAuthentication { None, Login, Plain };

enum class SmtpCommand {
    None,
    Helo,
    Ehlo,
    AuthLogin,
    User,
    Password,
    AuthPlain,
    PlainResponse,
    MailFrom,
    RcptTo,
    Data,
    Message,
    Quit
};

/// What the user is told.
enum class SmtpProgress { None, Authentication, Sending, Sent };

struct SmtpTransition
{
    int code; ///< of the reply
    SmtpState state;
    bool withoutLogin; ///< whether it holds for a session that proves nothing
    bool withLogin; ///< whether it holds for AUTH LOGIN
    bool withPlain; ///< whether it holds for AUTH PLAIN
    SmtpCommand command; ///< is sent
    SmtpState next;
    SmtpProgress progress;
    bool completes; ///< whether the session is over for its owner
};

/// The one row that applies, null if there is none. It stays valid.
[[nodiscard]] const SmtpTransition *find_transition(int code, SmtpState state, SmtpAuthentication authentication);

/// Whether a reply of this code that comes in a wrong state has a diagnostic line of its own.
[[nodiscard]] bool has_handler(int code);
