#pragma once

#include "socket_faults.h"

#include <QByteArrayList>
#include <QHostAddress>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>

/// A mail server that says what it is told to, line by line, and keeps every byte that it gets.
///
/// It greets with the first reply, answers each line with the next one, and the lines of a message, which follow a
/// reply that begins with "354", with one together. An empty reply says nothing. Behind the last one it is silent.
///
/// Errors: an address that is taken ends the test program.
class ScriptedMailServer : public QObject
{
    Q_OBJECT

public:
    explicit ScriptedMailServer(const QString &address, QByteArrayList replies = {}, quint16 port = 25);

    [[nodiscard]] QByteArray received() const { return m_received; }
    [[nodiscard]] bool hasEnded() const { return m_bEnded; } ///< by the client
    [[nodiscard]] int connections() const { return m_connections; }
    [[nodiscard]] quint16 port() const { return m_server.serverPort(); }
    /// All bytes between the reply "354" and the line with the full stop, that line included.
    [[nodiscard]] QByteArray message() const { return m_message; }

    /// Takes a message as ended only by "\r\n.\r\n", as hardened servers do.
    void refuseBareLineFeeds() { m_bHardened = true; }
    /// Behind its last reply it ends the connection by a reset, where it would be silent.
    void resetAtTheEnd() { m_bResetting = true; }
    /// Takes nothing more once it has asked for the message.
    void stopReadingInMessage() { m_bStopping = true; }
    /// Leaves what comes in with the system.
    void stopReading();
    void goOnReading();
    /// Says something out of turn.
    void say(const QByteArray &bytes);
    /// Says a line of so many bytes, as the client takes them. It belongs to the connection.
    [[nodiscard]] EndlessLine *sayEndlessLine(qint64 bytes) { return new EndlessLine(m_client, bytes); }
    [[nodiscard]] bool hasClient() const { return !m_client.isNull(); }
    void hangUp();
    void stopListening() { m_server.close(); }

private:
    void greet();
    void read();
    void take(const QByteArray &line);
    void answer();

    QTcpServer m_server;
    QPointer<QTcpSocket> m_client;
    QByteArrayList m_replies;
    QByteArray m_received;
    QByteArray m_line; ///< as far as it has come
    QByteArray m_message;
    int m_connections = 0;
    bool m_bInMessage = false;
    bool m_bHardened = false;
    bool m_bReading = true;
    bool m_bEnded = false;
    bool m_bResetting = false;
    bool m_bStopping = false;
};
