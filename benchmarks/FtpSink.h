#pragma once

#include <QtGlobal>

#include <atomic>
#include <cstddef>
#include <optional>
#include <thread>
#include <vector>

/// An FTP server on the loopback that takes every upload and forgets it, one session after the other, on a thread of
/// its own. It measures what it sees of an upload: from STOR to its own 226.
class FtpSink
{
public:
    /// @param stall  never reads data nor ends a session, once it has said 150
    explicit FtpSink(bool stall = false);
    ~FtpSink();
    Q_DISABLE_COPY_MOVE(FtpSink)

    /// 0 if it could not be made.
    [[nodiscard]] quint16 port() const { return controlPort; }
    /// Of the last upload; nothing if none has ended since the last call.
    [[nodiscard]] std::optional<double> takeSeconds();
    [[nodiscard]] qint64 byteCount() const { return bytes; }

private:
    void serve();
    void serveClient(int client);
    [[nodiscard]] bool takeData(int client);

    static constexpr std::size_t BlockSize = 262144;

    bool stalls;
    std::vector<char> block = std::vector<char>(BlockSize);
    int control = -1;
    int passive = -1;
    quint16 controlPort = 0;
    quint16 passivePort = 0;
    std::atomic<double> seconds = -1;
    std::atomic<qint64> bytes = 0;
    std::thread thread;
};
