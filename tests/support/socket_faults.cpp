#include "socket_faults.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

#include <algorithm>
#include <chrono>

#include <sys/socket.h>

using namespace Qt::StringLiterals;

void reset_connection(QTcpSocket &socket)
{
    const linger noTime{.l_onoff = 1, .l_linger = 0};
    if (::setsockopt(static_cast<int>(socket.socketDescriptor()), SOL_SOCKET, SO_LINGER, &noTime, sizeof noTime) != 0)
        qFatal("reset_connection - the connection has gone");
    socket.abort();
}

namespace {

/// Whether the other end of a connection has read all that has come. The system tells of each connection in a line:
/// its number, both addresses, its state, and what waits at either side.
bool has_been_read(quint16 ownPort, quint16 peerPort)
{
    QFile table(u"/proc/net/tcp"_s);
    if (!table.open(QIODevice::ReadOnly))
        qFatal("has_been_read - no table of connections");
    const QByteArray local = ':' + QByteArray::number(peerPort, 16).rightJustified(4, '0').toUpper();
    const QByteArray remote = ':' + QByteArray::number(ownPort, 16).rightJustified(4, '0').toUpper();
    const QList<QByteArray> lines = table.readAll().split('\n');
    for (const QByteArray &line : lines) {
        const QList<QByteArray> words = line.simplified().split(' ');
        if (words.value(1).endsWith(local) && words.value(2).endsWith(remote))
            return words.value(4).endsWith(":00000000");
    }
    return true; // it has gone
}

} // namespace

void send_byte_by_byte(QTcpSocket &socket, const QByteArray &bytes)
{
    const QDeadlineTimer deadline(std::chrono::seconds(30));
    socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    for (const char byte : bytes) {
        socket.putChar(byte);
        socket.flush();
        while (!has_been_read(socket.localPort(), socket.peerPort())) {
            if (deadline.hasExpired())
                qFatal("send_byte_by_byte - nobody reads");
            QThread::yieldCurrentThread();
        }
    }
}

EndlessLine::EndlessLine(QTcpSocket *client, qint64 lineBytes) :
    QObject(client),
    socket(client),
    bytes(lineBytes),
    left(lineBytes)
{
    connect(client, &QTcpSocket::bytesWritten, this, &EndlessLine::sendMore);
    sendMore();
}

void EndlessLine::sendMore()
{
    constexpr qint64 PieceBytes = qint64{256} * 1024;
    static const QByteArray piece(PieceBytes, 'x');
    while (left > 0 && socket->bytesToWrite() < PieceBytes)
        left -= socket->write(piece.constData(), std::min(PieceBytes, left));
}

qint64 peak_memory(qint64 processId)
{
    QFile file(u"/proc/%1/status"_s.arg(processId));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("peak_memory - no process");
    const QByteArray status = file.readAll();
    const qsizetype begin = status.indexOf("VmHWM:") + 6;
    return status.mid(begin, status.indexOf(" kB", begin) - begin).trimmed().toLongLong() * 1024;
}
