#include "MailSink.h"

#include <QByteArray>

#include <chrono>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

void say(int client, const QByteArray &line)
{
    (void)::send(client, line.constData(), static_cast<size_t>(line.size()), MSG_NOSIGNAL);
}

/// Appends what comes next. False at the end of the connection.
bool receive(int client, QByteArray &buffer)
{
    static thread_local QByteArray block(qsizetype{256} * 1024, Qt::Uninitialized);
    const ssize_t count = ::recv(client, block.data(), static_cast<size_t>(block.size()), 0);
    if (count <= 0)
        return false;
    buffer.append(block.constData(), count);
    return true;
}

} // namespace

MailSink::MailSink() : listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address{};
    socklen_t length = sizeof address;
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto *const plain = reinterpret_cast<sockaddr *>(&address);
    if (::bind(listener, plain, length) != 0 || ::listen(listener, 8) != 0
        || ::getsockname(listener, plain, &length) != 0)
        return;
    listeningPort = ntohs(address.sin_port);
    thread = std::thread([this] { serve(); });
}

MailSink::~MailSink()
{
    ::shutdown(listener, SHUT_RDWR); // ends accept()
    if (thread.joinable())
        thread.join();
    ::close(listener);
}

std::optional<double> MailSink::takeSeconds()
{
    const double taken = seconds.exchange(-1);
    return taken < 0 ? std::nullopt : std::optional(taken);
}

void MailSink::serve()
{
    for (int client = ::accept(listener, nullptr, nullptr); client >= 0;
         client = ::accept(listener, nullptr, nullptr)) {
        serveClient(client);
        ::close(client);
    }
}

void MailSink::serveClient(int client)
{
    say(client, "220 sink\r\n");
    QByteArray buffer;
    while (receive(client, buffer)) {
        for (qsizetype end = buffer.indexOf('\n'); end >= 0; end = buffer.indexOf('\n')) {
            const QByteArray line = buffer.left(end).trimmed();
            buffer.remove(0, end + 1);
            if (line == "DATA") {
                takeMessage(client);
            } else if (line == "QUIT") {
                say(client, "221 bye\r\n");
                return;
            } else {
                say(client, "250 sink\r\n");
            }
        }
    }
}

void MailSink::takeMessage(int client)
{
    say(client, "354 go on\r\n");
    const auto start = std::chrono::steady_clock::now();
    qint64 count = 0;
    QByteArray tail; // the last bytes alone
    do {
        tail = tail.last(qMin(tail.size(), qsizetype{8}));
        const qsizetype former = tail.size();
        if (!receive(client, tail))
            return;
        count += tail.size() - former;
    } while (!tail.endsWith("\n.\n") && !tail.endsWith("\n.\r\n"));
    bytes = count;
    seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    say(client, "250 taken\r\n");
}
