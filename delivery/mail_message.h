#pragma once

#include <QString>

#include <ctime>
#include <iosfwd>

/// What a message is made of, as the user has typed it.
struct MailContent
{
    QString from;
    QString to;
    QString subject;
    QString body; ///< lines end in "\n"
    QString attachmentPath; ///< gives the attachment its name and type; the bytes come from a stream
};

/// The text that goes out after DATA: a short plain text and one picture in Base64, up to the full stop that ends it.
/// The line end behind the full stop is left to whoever sends it.
///
/// Nothing is encoded or escaped but the attachment, so the text holds whatever the user has typed.
///
/// @param attachment  read up to its end, or up to the first error, which counts as its end
/// @param now         becomes the date, in the zone of this machine
/// Sources: RFC 2045, RFC 2046
[[nodiscard]] QString compose_message(const MailContent &content, std::istream &attachment, std::time_t now);

/// A date as RFC 5322 has it, such as "Sat, 21 Nov 2026 20:50:57 +0000", in English whatever the locale.
[[nodiscard]] QString mail_date(std::time_t time);

/// Appends the rest of @p input in Base64, each line ending in "\r\n".
/// @param lineBytes     bytes to a line, a multiple of 3; the last line has what is left, which may be nothing
/// @param expectedSize  of the rest, in bytes: no memory is moved unless it is longer
void append_base64_lines(QString &text, std::istream &input, qsizetype lineBytes, qsizetype expectedSize);
