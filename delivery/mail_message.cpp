#include "mail_message.h"

#include <QFileInfo>

#include <array>
#include <clocale>
#include <istream>
#include <string_view>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

const QString multipartHeader = u"Content-Type: multipart/mixed;\n  boundary=\"NextPart_KOLMA_Boundary.7976494\"\n\n"_s;
const QString preamble = u"This is a multi-part message in MIME format.\n"
                         "If the remainder of this message appears as random characters in the message body,\n"
                         "instead of as attachments, then your mail reader doesn't support MIME correctly.\n"
                         "You'll have to extract message parts and decode them manually.\n\n"_s;
const QString textHeader = u"--NextPart_KOLMA_Boundary.7976494\n"
                           "Content-Type: text/plain;\n name=\"message.txt\";\n charset=US-ASCII\n"
                           "Content-Transfer-Encoding: 7bit\n"
                           "Content-Disposition: inline; filename=\"message.txt\"\n\n"_s;
const QString imageHeader = u"--NextPart_KOLMA_Boundary.7976494\n"
                            "Content-Type: image/x-%1;\n\tname=\"%2\"\n"
                            "Content-Transfer-Encoding: base64\n"
                            "Content-Disposition: attachment;\n\tfilename=\"%3\"\n\n"_s;
const QString lastBoundary = u"\r\n--NextPart_KOLMA_Boundary.7976494--\r\n"_s;

constexpr qsizetype LineBytes = 60; ///< 80 characters

using CharacterPair = std::array<char16_t, 2>;

/// The two characters that stand for twelve bits, for each value of these (RFC 4648 section 4).
std::array<CharacterPair, 4096> make_base64_pairs()
{
    constexpr std::u16string_view alphabet = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::array<CharacterPair, 4096> pairs{};
    for (size_t bits = 0; bits < pairs.size(); ++bits)
        pairs[bits] = {alphabet[bits >> 6], alphabet[bits & 63]};
    return pairs;
}

/// Writes up to a line of bytes, without a line end.
/// @return behind the last character written
QChar *write_base64(QChar *out, const uchar *bytes, qsizetype count)
{
    static const std::array<CharacterPair, 4096> pairs = make_base64_pairs();
    const auto put = [&out](const CharacterPair &pair) {
        *out++ = QChar(pair[0]);
        *out++ = QChar(pair[1]);
    };
    for (; count >= 3; count -= 3, bytes += 3) {
        const uint word = uint{bytes[0]} << 16 | uint{bytes[1]} << 8 | bytes[2];
        put(pairs[word >> 12]);
        put(pairs[word & 0xfff]);
    }
    if (count == 0)
        return out;
    const uint word = uint{bytes[0]} << 16 | (count == 2 ? uint{bytes[1]} << 8 : 0U);
    put(pairs[word >> 12]);
    *out++ = count == 2 ? QChar(pairs[word & 0xfff][0]) : u'=';
    *out++ = u'=';
    return out;
}

/// Characters of so many bytes in lines, with their line ends.
qsizetype base64_length(qsizetype bytes, qsizetype lineBytes)
{
    return (bytes + 2) / 3 * 4 + (bytes / lineBytes + 1) * 2;
}

} // namespace

QString mail_date(std::time_t time)
{
    static const locale_t english = newlocale(LC_ALL_MASK, "C", nullptr);
    tzset();
    std::tm local{};
    localtime_r(&time, &local);
    std::array<char, 256> buffer{};
    const size_t length = strftime_l(buffer.data(), buffer.size(), "%a, %d %h %Y %H:%M:%S %z", &local, english);
    return QString::fromLatin1(buffer.data(), static_cast<qsizetype>(length));
}

void append_base64_lines(QString &text, std::istream &input, qsizetype lineBytes, qsizetype expectedSize)
{
    constexpr qsizetype roomBehind = 256; // for what the caller puts at the end
    text.reserve(text.size() + base64_length(expectedSize, lineBytes) + roomBehind);
    std::vector<char> line(static_cast<size_t>(lineBytes));
    do {
        input.read(line.data(), lineBytes);
        const qsizetype former = text.size();
        text.resize(former + base64_length(lineBytes, lineBytes));
        QChar *end = write_base64(text.data() + former, reinterpret_cast<const uchar *>(line.data()), input.gcount());
        *end++ = u'\r';
        *end++ = u'\n';
        text.truncate(end - text.constData());
    } while (input.good()); // the end shows in a read that is not full: there is an empty line behind a full one
}

QString compose_message(const MailContent &content, std::istream &attachment, std::time_t now)
{
    const QFileInfo file(content.attachmentPath);
    QString text = u"Return-Path: <%1>\n"_s.arg(content.from);
    text += u"From: <%1>\n"_s.arg(content.from);
    text += u"To: <%1>\n"_s.arg(content.to);
    text += u"Subject: %1\n"_s.arg(content.subject);
    text += u"Date: %1\n"_s.arg(mail_date(now));
    text += "X-Mailer: Varden frontend\n"_L1;
    text += "Mime-Version: 1.0\n"_L1;
    text += multipartHeader + preamble + textHeader;
    text += content.body + "\n\n"_L1;
    // Intended: one after the other, so a suffix that holds "%2" takes the file name in.
    text += imageHeader.arg(file.suffix()).arg(file.fileName()).arg(file.fileName());

    // Intended: also in the body, where a "\r\n" thus becomes "\r\r\n".
    text.replace("\n"_L1, "\r\n"_L1);

    append_base64_lines(text, attachment, LineBytes, file.isFile() ? file.size() : 0);
    text += "\r\n"_L1;
    text += lastBoundary;
    text += '.'_L1; // Intended: without a line end, which the sender adds
    return text;
}
