#include "FtpReplyReader.h"

#include <QStringDecoder>

#include <algorithm>
#include <utility>

namespace {

constexpr qsizetype CodeLength = 3;
constexpr int LargestCode = 599;
constexpr int SmallestCode = 100;

/// The number that a line begins with, 0 if it is none of a reply's.
int code_of(QByteArrayView line)
{
    if (line.size() < CodeLength)
        return 0;
    int code = 0;
    for (const char character : line.first(CodeLength)) {
        if (character < '0' || character > '9')
            return 0;
        code = code * 10 + (character - '0');
    }
    const char behind = line.size() > CodeLength ? line.at(CodeLength) : ' ';
    return code >= SmallestCode && code <= LargestCode && (behind == ' ' || behind == '-') ? code : 0;
}

bool is_continued(QByteArrayView line)
{
    return line.size() > CodeLength && line.at(CodeLength) == '-';
}

QByteArrayView without_code(QByteArrayView line)
{
    return line.sliced(std::min(CodeLength + 1, line.size()));
}

QString shown_text(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder.decode(bytes);
    if (decoder.hasError())
        text = QString::fromLatin1(bytes);
    for (QChar &character : text) {
        if (character != u'\n' && character.category() == QChar::Other_Control)
            character = u' ';
    }
    return text.trimmed();
}

} // namespace

std::optional<FtpReply> FtpReplyReader::take(QByteArrayView &bytes)
{
    while (!bytes.isEmpty()) {
        const qsizetype end = bytes.indexOf('\n');
        const QByteArrayView piece = end < 0 ? bytes : bytes.first(end);
        line.append(piece.first(std::min(piece.size(), TextLimit - line.size())));
        bytes = end < 0 ? QByteArrayView() : bytes.sliced(end + 1);
        if (end < 0)
            break;
        if (std::optional<FtpReply> reply = endLine())
            return reply;
    }
    return std::nullopt;
}

std::optional<FtpReply> FtpReplyReader::unfinished()
{
    const int lineCode = code_of(line);
    const int replyCode = code != 0 ? code : lineCode;
    if (replyCode == 0)
        return std::nullopt;
    addText(lineCode == replyCode ? without_code(line) : QByteArrayView(line));
    line.clear();
    return takeReply(replyCode);
}

std::optional<FtpReply> FtpReplyReader::endLine()
{
    QByteArray ended = std::exchange(line, QByteArray());
    if (ended.endsWith('\r'))
        ended.chop(1);
    const int lineCode = code_of(ended);
    if (code == 0) {
        if (ended.trimmed().isEmpty())
            return std::nullopt; // it stands between replies and says nothing
        addText(lineCode == 0 ? QByteArrayView(ended) : without_code(ended));
        if (lineCode == 0 || !is_continued(ended))
            return takeReply(lineCode);
        code = lineCode;
        return std::nullopt;
    }
    addText(lineCode == code ? without_code(ended) : QByteArrayView(ended));
    if (lineCode != code || is_continued(ended))
        return std::nullopt;
    return takeReply(code);
}

void FtpReplyReader::addText(QByteArrayView added)
{
    if (lines == LineLimit)
        return;
    if (lines++ > 0 && text.size() < TextLimit)
        text += '\n';
    text.append(added.first(std::min(added.size(), TextLimit - text.size())));
}

FtpReply FtpReplyReader::takeReply(int replyCode)
{
    code = 0;
    lines = 0;
    return {.code = replyCode, .text = shown_text(std::exchange(text, QByteArray()))};
}
