#include "plain_mail_reader.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <vector>

namespace {

using Lines = std::vector<std::string>;

constexpr std::size_t LongestLine = 998;

/// @return nothing if a line does not end in "\r\n" or is no line for a mail
std::optional<Lines> lines_of(std::string_view sent)
{
    if (!sent.ends_with("\r\n."))
        return std::nullopt;
    sent.remove_suffix(1);
    Lines lines;
    while (!sent.empty()) {
        const std::size_t end = sent.find("\r\n");
        std::string line(sent.substr(0, end));
        const bool isPlain = std::ranges::all_of(line, [](char c) { return c == '\t' || (c >= ' ' && c <= '~'); });
        if (end == std::string_view::npos || !isPlain || line.size() > LongestLine || line == ".")
            return std::nullopt;
        if (line.starts_with('.'))
            line.erase(0, 1);
        lines.push_back(line);
        sent.remove_prefix(end + 2);
    }
    return lines;
}

/// The headers up to an empty line, which are taken off the lines; folded ones are put together.
std::map<std::string, std::string> take_headers(Lines &lines)
{
    std::map<std::string, std::string> headers;
    std::string name;
    std::size_t read = 0;
    for (; read < lines.size() && !lines[read].empty(); ++read) {
        const std::string &line = lines[read];
        if (line.starts_with(' ')) {
            headers[name] += line;
            continue;
        }
        const std::size_t colon = line.find(": ");
        name = line.substr(0, colon);
        headers[name] = colon == std::string::npos ? "" : line.substr(colon + 2);
    }
    lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(std::min(read + 1, lines.size())));
    return headers;
}

/// What stands between the boundaries; the last line end belongs to the boundary.
std::vector<Lines> parts_of(const Lines &lines, const std::string &boundary)
{
    std::vector<Lines> parts(1);
    for (const std::string &line : lines) {
        if (line == "--" + boundary + "--")
            return parts;
        if (line == "--" + boundary)
            parts.emplace_back();
        else
            parts.back().push_back(line);
    }
    return {};
}

int hex_value(char c)
{
    return std::string_view("0123456789ABCDEF").find(c) != std::string_view::npos
        ? static_cast<int>(std::string_view("0123456789ABCDEF").find(c))
        : -1;
}

std::string decoded_bytes(std::string_view text, char mark)
{
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == mark && at + 2 < text.size() && hex_value(text[at + 1]) >= 0 && hex_value(text[at + 2]) >= 0) {
            result += static_cast<char>(hex_value(text[at + 1]) * 16 + hex_value(text[at + 2]));
            at += 2;
        } else {
            result += text[at];
        }
    }
    return result;
}

std::string decoded_text(const Lines &lines)
{
    std::string text;
    for (const std::string &line : lines) {
        const bool goesOn = line.ends_with('=');
        text += decoded_bytes(goesOn ? line.substr(0, line.size() - 1) : line, '=');
        text += goesOn ? "" : "\n";
    }
    return text;
}

std::optional<std::string> decoded_base64(std::string_view text)
{
    constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string result;
    unsigned bits = 0;
    int count = 0;
    while (text.ends_with('='))
        text.remove_suffix(1);
    for (const char c : text) {
        const std::size_t value = alphabet.find(c);
        if (value == std::string_view::npos)
            return std::nullopt;
        bits = bits << 6U | static_cast<unsigned>(value);
        count += 6;
        if (count >= 8) {
            count -= 8;
            result += static_cast<char>(bits >> static_cast<unsigned>(count) & 0xffU);
        }
    }
    return result;
}

/// Words such as "=?UTF-8?B?w6k=?=" with blanks between, or plain text.
std::string decoded_header(std::string_view text)
{
    constexpr std::string_view opening = "=?UTF-8?B?";
    if (!text.starts_with(opening))
        return std::string(text);
    std::string result;
    while (text.starts_with(opening)) {
        const std::size_t end = text.find("?=", opening.size());
        result += decoded_base64(text.substr(opening.size(), end - opening.size())).value_or("?");
        text.remove_prefix(std::min(end + 2, text.size()));
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    }
    return result;
}

/// A parameter as it stands, or its numbered pieces.
std::string parameter_of(const std::string &header, const std::string &name)
{
    const std::string plain = "; " + name + "=\"";
    if (const std::size_t at = header.find(plain); at != std::string::npos)
        return header.substr(at + plain.size(), header.rfind('"') - at - plain.size());
    std::string value;
    for (int i = 0;; ++i) {
        const std::string piece = "; " + name + '*' + std::to_string(i) + "*=";
        const std::size_t at = header.find(piece);
        if (at == std::string::npos)
            return decoded_bytes(value.starts_with("UTF-8''") ? value.substr(7) : value, '%');
        const std::size_t begin = at + piece.size();
        value += header.substr(begin, header.find(';', begin) - begin);
    }
}

std::string address_in(const std::string &header)
{
    return header.size() < 2 ? "" : header.substr(1, header.size() - 2);
}

} // namespace

std::optional<PlainMail> read_plain_mail(std::string_view sent)
{
    std::optional<Lines> lines = lines_of(sent);
    if (!lines)
        return std::nullopt;
    auto headers = take_headers(*lines);
    std::vector<Lines> parts = parts_of(*lines, parameter_of(headers["Content-Type"], "boundary"));
    if (parts.size() != 3)
        return std::nullopt;
    (void)take_headers(parts[1]);
    auto fileHeaders = take_headers(parts[2]);
    if (parts[1].empty() || !parts[1].back().empty())
        return std::nullopt;
    parts[1].pop_back(); // the line end before the boundary
    std::string base64;
    for (const std::string &line : parts[2]) {
        constexpr std::size_t longestLine = 76;
        if (line.size() > longestLine)
            return std::nullopt;
        base64 += line;
    }
    const std::optional<std::string> file = decoded_base64(base64);
    if (!file)
        return std::nullopt;
    return PlainMail{.from = address_in(headers["From"]),
                     .to = address_in(headers["To"]),
                     .subject = decoded_header(headers["Subject"]),
                     .text = decoded_text(parts[1]),
                     .fileName = parameter_of(fileHeaders["Content-Disposition"], "filename"),
                     .file = *file};
}
