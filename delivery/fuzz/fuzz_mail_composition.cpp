// Mails of any words and any file: what is composed by the book comes apart again by the book, and what is composed in
// the old way has its lines, its Base64 and its end where they belong.

#include "fuzz_target.h"
#include "FuzzInput.h"
#include "mail_message.h"
#include "mime_message.h"
#include "plain_mail_reader.h"

#include <sstream>

using namespace Qt::StringLiterals;

namespace {

/// A mail as a user may have filled it in.
struct Typed
{
    explicit Typed(FuzzInput &input) :
        content{.from = text(input),
                .to = text(input),
                .subject = text(input),
                .body = text(input),
                .attachmentPath = u"/nowhere/"_s + text(input).remove(u'/')},
        file(input.rest())
    {
    }

    MailContent content;
    std::string file;

private:
    static QString text(FuzzInput &input)
    {
        const QByteArray bytes = QByteArray::fromStdString(input.text());
        return QString::fromUtf8(bytes).remove(QChar(0));
    }
};

std::string utf8(const QString &text)
{
    return text.toStdString();
}

QString with_blanks_for_controls(QString text)
{
    for (QChar &character : text)
        if (character.category() == QChar::Other_Control)
            character = u' ';
    return text;
}

void check_by_the_book(const Typed &typed)
{
    const QString from = ascii_address(typed.content.from);
    const QString to = ascii_address(typed.content.to);
    if (from.isEmpty() || to.isEmpty())
        return; // is not sent
    std::istringstream file(typed.file);
    const QString sent = compose_mime_message(typed.content, file, 1163332800, u"0a1b"_s);
    promise(sent == QString::fromLatin1(sent.toLatin1()), "a mail by the book is of bytes");

    const std::optional<PlainMail> mail = read_plain_mail(sent.toLatin1().toStdString());
    promise(mail.has_value(), "a mail by the book comes apart");
    promise(mail->from == utf8(from) && mail->to == utf8(to), "the addresses are those that were typed");
    promise(mail->subject == utf8(with_blanks_for_controls(typed.content.subject)), "the subject is what was typed");
    QString body = typed.content.body;
    body.replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n');
    promise(mail->text == utf8(body) + '\n', "the text is what was typed");
    const QString name = typed.content.attachmentPath.sliced(9);
    promise(mail->fileName == utf8(with_blanks_for_controls(name)), "the file has its name");
    promise(mail->file == typed.file, "the file has its bytes");
}

std::string plain_base64_lines(const std::string &bytes, std::size_t lineBytes)
{
    std::string lines;
    for (std::size_t at = 0; at <= bytes.size(); at += lineBytes)
        lines += QByteArray::fromStdString(bytes.substr(at, lineBytes)).toBase64().toStdString() + "\r\n";
    return lines;
}

void check_the_old_way(const Typed &typed)
{
    std::istringstream file(typed.file);
    const QString sent = compose_message(typed.content, file, 1163332800);
    const QString end = QString::fromStdString(plain_base64_lines(typed.file, 60))
        + "\r\n\r\n--NextPart_KOLMA_Boundary.7976494--\r\n."_L1;
    promise(sent.endsWith(end), "the file is in lines of 80 characters, and a full stop ends the mail");
    const QString head = sent.chopped(end.size());
    for (qsizetype at = head.indexOf(u'\n'); at >= 0; at = head.indexOf(u'\n', at + 1))
        promise(at > 0 && head.at(at - 1) == u'\r', "each line feed follows a return");
    QString body = typed.content.body;
    promise(head.contains("\r\n\r\n"_L1 + body.replace("\n"_L1, "\r\n"_L1) + "\r\n\r\n"_L1),
            "the text stands as typed");
}

std::string field(std::string_view text)
{
    return static_cast<char>(text.size()) + std::string(text);
}

} // namespace

std::vector<std::string> fuzz_seeds()
{
    const std::string parties = field("ann@example.test") + field("bob@example.test");
    return {
        parties + field("scan") + field("Hello\n.\n..x\n") + field("scan.png") + std::string(200, 'x'),
        parties + field("Gr\xc3\xbc\xc3\x9f=?UTF-8?B?w6k=?=\r\nBcc: c@d")
            + field("\xe2\x82\xac =\t\r\n \r" + std::string(90, '.')) + field("a \"b\"\\%2\xc3\xa9;.jpg")
            + std::string(60, '\xff'),
        field("ann@b\xc3\xbc"
              "cher.example")
            + field("b:c@d") + field("") + field("") + field("") + "abc",
    };
}

void try_input(std::span<const std::uint8_t> bytes)
{
    FuzzInput input(bytes);
    const Typed typed(input);
    check_by_the_book(typed);
    check_the_old_way(typed);
}
