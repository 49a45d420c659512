#pragma once

#include <QString>

/// What the mail form remembers between uses. A password is among it that anyone can decode who can read the file, so
/// that file becomes one for its owner alone before anything is written.
struct MailSettings
{
    QString server;
    QString port; ///< decimal; read as a number, so that an empty one comes back as "0"
    QString sender;
    QString recipient;
    QString login;
    QString password; ///< characters beyond ASCII do not survive
};

[[nodiscard]] MailSettings read_mail_settings();
void write_mail_settings(const MailSettings &settings);

/// Whether mail goes out by the book. Set in the file alone.
[[nodiscard]] bool read_mail_strictness();
