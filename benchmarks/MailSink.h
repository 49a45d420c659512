#pragma once

#include <QtGlobal>

#include <atomic>
#include <optional>
#include <thread>

/// A mail server on the loopback that takes every message and forgets it, one session after the other, on a thread of
/// its own. It measures what it sees of a message: from its own 354 to the last byte.
class MailSink
{
public:
    MailSink();
    ~MailSink();
    Q_DISABLE_COPY_MOVE(MailSink)

    /// 0 if it could not be made.
    [[nodiscard]] quint16 port() const { return listeningPort; }
    /// Of the last message; nothing if none has ended since the last call.
    [[nodiscard]] std::optional<double> takeSeconds();
    [[nodiscard]] qint64 byteCount() const { return bytes; }

private:
    void serve();
    void serveClient(int client);
    void takeMessage(int client);

    int listener = -1;
    quint16 listeningPort = 0;
    std::atomic<double> seconds = -1;
    std::atomic<qint64> bytes = 0;
    std::thread thread;
};
