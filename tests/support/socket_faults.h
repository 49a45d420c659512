#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QTcpSocket>

/// What a server does to its clients that no orderly one does.

/// Ends a connection by a reset: the other end gets an error in the place of an end.
void reset_connection(QTcpSocket &socket);

/// Sends one byte after the other over IPv4, each once the other end, on this machine, has read the one before.
/// Errors: a client that reads none for half a minute ends the test program.
void send_byte_by_byte(QTcpSocket &socket, const QByteArray &bytes);

/// Sends one line without holding it: a letter over and over, as fast as the other end takes it. It lives with the
/// socket, which must not be written to meanwhile.
class EndlessLine : public QObject
{
public:
    EndlessLine(QTcpSocket *client, qint64 lineBytes);

    /// What the network has taken so far.
    [[nodiscard]] qint64 sentBytes() const { return bytes - left - (socket ? socket->bytesToWrite() : 0); }
    [[nodiscard]] bool isOut() const { return sentBytes() == bytes; }

private:
    void sendMore();

    QPointer<QTcpSocket> socket;
    qint64 bytes;
    qint64 left;
};

/// The most memory that a process has had so far, in bytes.
[[nodiscard]] qint64 peak_memory(qint64 processId);
