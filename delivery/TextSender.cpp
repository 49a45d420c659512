#include "TextSender.h"

#include "Q3Socket.h"

#include <algorithm>
#include <utility>

namespace {

constexpr qsizetype PieceCharacters = qsizetype{64} * 1024;
constexpr qint64 EnoughBytes = qint64{256} * 1024; ///< that wait in the socket

} // namespace

TextSender::TextSender(Q3Socket *connectedSocket, QString end) :
    socket(connectedSocket),
    t(connectedSocket),
    lineEnd(std::move(end))
{
    t.setEncoding(QStringConverter::System);
    connect(socket, &Q3Socket::bytesWritten, this, &TextSender::writeNextPieces);
}

void TextSender::send(const QString &text)
{
    texts.enqueue(text);
    writeNextPieces();
}

bool TextSender::isBusy() const
{
    return !texts.isEmpty() || socket->bytesToWrite() > 0;
}

void TextSender::writeNextPieces()
{
    while (!texts.isEmpty() && socket->bytesToWrite() < EnoughBytes) {
        const QString &text = texts.first();
        const qsizetype length = std::min(PieceCharacters, text.size() - written);
        t << QStringView(text).mid(written, length);
        written += length;
        if (written == text.size()) {
            t << lineEnd;
            texts.dequeue();
            written = 0;
        }
        t.flush();
    }
}
