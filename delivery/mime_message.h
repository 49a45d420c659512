#pragma once

#include "mail_message.h"

#include <QByteArray>
#include <QString>

/// A message that every mail reader understands, whatever is in it, in ASCII throughout.
///
/// Sources: RFC 5322, RFC 2045 (quoted-printable, Base64), RFC 2047 (subject), RFC 2231 (file names), RFC 5321 4.5.2
///          (full stops).

/// The text that goes out after DATA, up to the full stop that ends it, which has no line end yet.
/// @param attachment  read up to its end; afterwards bad() tells whether it could be read
/// @param unique      letters and digits that no other message has
[[nodiscard]] QString compose_mime_message(const MailContent &content, std::istream &attachment, std::time_t now,
                                           const QString &unique);

/// An address with the domain as name servers know it; empty if there is none in ASCII, or if it would be more than
/// an address in a header or command.
[[nodiscard]] QString ascii_address(const QString &address);

/// Text in lines of at most 76 characters, each ending in "\r\n".
[[nodiscard]] QByteArray quoted_printable(const QString &text);

/// A header line with its end, folded where it is encoded. Characters that control something become blanks.
[[nodiscard]] QByteArray text_header(const QByteArray &name, const QString &text);

/// The parameter of a header that names a file, with the ";" and the line break in front of it.
[[nodiscard]] QByteArray file_name_parameter(const QByteArray &parameter, const QString &fileName);

/// The registered type for the suffix of a picture file, or that of bytes of any kind.
[[nodiscard]] QByteArray media_type(const QString &suffix);
