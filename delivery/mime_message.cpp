#include "mime_message.h"

#include <QFileInfo>
#include <QHash>
#include <QUrl>

#include <algorithm>
#include <istream>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype LineBytes = 57; ///< of the attachment: 76 characters

bool is_printable(QChar character)
{
    return character >= u' ' && character <= u'~';
}

QString without_controls(QString text)
{
    for (QChar &character : text)
        if (character < u' ' || (character >= QChar(0x7f) && character <= QChar(0x9f)))
            character = u' ';
    return text;
}

/// The longest beginning of UTF-8 of at most @p limit bytes that cuts no character.
QByteArray take_characters(QByteArray &utf8, qsizetype limit)
{
    qsizetype length = std::min(limit, utf8.size());
    while (length < utf8.size() && (utf8.at(length) & 0xc0) == 0x80)
        --length;
    QByteArray taken = utf8.first(length);
    utf8.remove(0, length);
    return taken;
}

QByteArray hexadecimal(char byte)
{
    return "=" + QByteArray(1, byte).toHex().toUpper();
}

QByteArray quoted_printable_line(const QByteArray &line)
{
    constexpr qsizetype roomBeforeSoftBreak = 75;
    QByteArray encoded;
    qsizetype column = 0;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const char byte = line.at(i);
        const bool isBlank = byte == ' ' || byte == '\t';
        const bool standsAsItIs = isBlank ? i + 1 < line.size() : byte > ' ' && byte <= '~' && byte != '=';
        const QByteArray piece = standsAsItIs ? QByteArray(1, byte) : hexadecimal(byte);
        if (column + piece.size() > roomBeforeSoftBreak) {
            encoded += "=\r\n";
            column = 0;
        }
        encoded += piece;
        column += piece.size();
    }
    return encoded + "\r\n";
}

/// Doubles the full stops that lines begin with.
QByteArray stuffed(QByteArray lines)
{
    lines.replace("\n.", "\n..");
    return lines.startsWith('.') ? "." + lines : lines;
}

} // namespace

QString ascii_address(const QString &address)
{
    const qsizetype at = address.lastIndexOf(u'@');
    const QString local = address.left(at);
    const QByteArray domain = QUrl::toAce(address.mid(at + 1));
    const bool isPlain = std::all_of(local.begin(), local.end(), [](QChar character) {
        return is_printable(character) && !u" <>@\"\\(),:;[]"_s.contains(character);
    });
    if (at < 1 || domain.isEmpty() || !isPlain)
        return {};
    return local + u'@' + QString::fromLatin1(domain);
}

QByteArray quoted_printable(const QString &text)
{
    QString lines = text;
    lines.replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n');
    QByteArray encoded;
    for (const QString &line : lines.split(u'\n'))
        encoded += quoted_printable_line(line.toUtf8());
    return encoded;
}

QByteArray text_header(const QByteArray &name, const QString &text)
{
    constexpr qsizetype roomForText = 65;
    constexpr qsizetype bytesOfWord = 39; // 64 characters as a word, 76 with a name of 10 and ": "
    const QString clean = without_controls(text);
    const bool isPlain = clean.size() <= roomForText && !clean.contains("=?"_L1)
        && std::all_of(clean.begin(), clean.end(), is_printable);
    if (isPlain)
        return name + ": " + clean.toLatin1() + "\r\n";
    QByteArray utf8 = clean.toUtf8();
    QByteArrayList words;
    while (!utf8.isEmpty())
        words.append("=?UTF-8?B?" + take_characters(utf8, bytesOfWord).toBase64() + "?=");
    return name + ": " + words.join("\r\n ") + "\r\n";
}

QByteArray file_name_parameter(const QByteArray &parameter, const QString &fileName)
{
    constexpr qsizetype roomForName = 60;
    const QString clean = without_controls(fileName);
    const bool isPlain = clean.size() <= roomForName && !clean.contains(u'"') && !clean.contains(u'\\')
        && std::all_of(clean.begin(), clean.end(), is_printable);
    if (isPlain)
        return ";\r\n " + parameter + "=\"" + clean.toLatin1() + '"';

    constexpr qsizetype bytesOfPiece = 18; // up to 54 characters
    QByteArray utf8 = clean.toUtf8();
    QByteArray pieces;
    for (int i = 0; !utf8.isEmpty(); ++i) {
        const QByteArray encoded = take_characters(utf8, bytesOfPiece).toPercentEncoding();
        pieces += ";\r\n " + parameter + '*' + QByteArray::number(i) + "*=" + (i == 0 ? "UTF-8''" : "") + encoded;
    }
    return pieces;
}

QByteArray media_type(const QString &suffix)
{
    static const QHash<QString, QByteArray> types{
        {u"avif"_s, "image/avif"_ba},         {u"bmp"_s, "image/bmp"_ba},   {u"gif"_s, "image/gif"_ba},
        {u"heic"_s, "image/heic"_ba},         {u"heif"_s, "image/heif"_ba}, {u"ico"_s, "image/vnd.microsoft.icon"_ba},
        {u"jp2"_s, "image/jp2"_ba},           {u"jpe"_s, "image/jpeg"_ba},  {u"jpeg"_s, "image/jpeg"_ba},
        {u"jpg"_s, "image/jpeg"_ba},          {u"jxl"_s, "image/jxl"_ba},   {u"png"_s, "image/png"_ba},
        {u"svg"_s, "image/svg+xml"_ba},       {u"tif"_s, "image/tiff"_ba},  {u"tiff"_s, "image/tiff"_ba},
        {u"wbmp"_s, "image/vnd.wap.wbmp"_ba}, {u"webp"_s, "image/webp"_ba},
    };
    return types.value(suffix.toLower(), "application/octet-stream"_ba);
}

QString compose_mime_message(const MailContent &content, std::istream &attachment, std::time_t now,
                             const QString &unique)
{
    const QFileInfo file(content.attachmentPath);
    const QByteArray from = ascii_address(content.from).toLatin1();
    const QByteArray to = ascii_address(content.to).toLatin1();
    // In neither encoding is there a "=_".
    const QByteArray boundary = "=_" + unique.toLatin1();

    QByteArray head = "From: <" + from + ">\r\nTo: <" + to + ">\r\n";
    head += text_header("Subject", content.subject);
    head += "Date: " + mail_date(now).toLatin1() + "\r\n";
    head += "Message-ID: <" + unique.toLatin1() + from.mid(from.lastIndexOf('@')) + ">\r\n";
    head += "X-Mailer: Varden frontend\r\nMIME-Version: 1.0\r\n";
    head += "Content-Type: multipart/mixed;\r\n boundary=\"" + boundary + "\"\r\n\r\n";
    head += "This is a multi-part message in MIME format.\r\n\r\n--" + boundary + "\r\n";
    head += "Content-Type: text/plain; charset=UTF-8\r\nContent-Transfer-Encoding: quoted-printable\r\n";
    head += "Content-Disposition: inline\r\n\r\n";
    head += stuffed(quoted_printable(content.body));
    head += "\r\n--" + boundary + "\r\nContent-Type: " + media_type(file.suffix());
    head += "\r\nContent-Transfer-Encoding: base64\r\nContent-Disposition: attachment";
    head += file_name_parameter("filename", file.fileName()) + "\r\n\r\n";

    QString text = QString::fromLatin1(head);
    append_base64_lines(text, attachment, LineBytes, file.isFile() ? file.size() : 0);
    text += "\r\n--"_L1 + QString::fromLatin1(boundary) + "--\r\n."_L1;
    return text;
}
