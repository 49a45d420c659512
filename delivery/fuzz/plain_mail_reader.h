#pragma once

#include <optional>
#include <string>
#include <string_view>

/// A mail of two parts, a text in quoted-printable and a file in Base64, taken apart by the standards alone: RFC 5321
/// 4.5.2 (full stops), RFC 2045, 2046 and 2047 (parts and their encodings), RFC 2231 (file names).
struct PlainMail
{
    std::string from;
    std::string to;
    std::string subject; ///< UTF-8
    std::string text;
    std::string fileName; ///< UTF-8
    std::string file;
};

/// @param sent  what follows DATA, up to the full stop that ends it
/// @return nothing if it is not such a mail: a line too long or wrongly ended, a byte that is not ASCII, a full stop
///         alone in a line before the end, a header or a part that is missing
[[nodiscard]] std::optional<PlainMail> read_plain_mail(std::string_view sent);
