#include "FtpSink.h"

#include <QByteArray>

#include <algorithm>
#include <chrono>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

/// A listening socket on any port of the loopback.
int listening_socket(quint16 &port)
{
    const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto *const generic = reinterpret_cast<sockaddr *>(&address);
    if (::bind(listener, generic, size) != 0 || ::listen(listener, 1) != 0
        || ::getsockname(listener, generic, &size) != 0)
        return -1;
    port = ntohs(address.sin_port);
    return listener;
}

bool say(int client, const QByteArray &line)
{
    const QByteArray bytes = line + "\r\n";
    return ::send(client, bytes.constData(), static_cast<std::size_t>(bytes.size()), MSG_NOSIGNAL) == bytes.size();
}

/// One line, without its end; empty at the end of the connection.
QByteArray heard(int client)
{
    QByteArray line;
    char byte = 0;
    while (::recv(client, &byte, 1, 0) == 1 && byte != '\n')
        line += byte;
    return line.trimmed();
}

} // namespace

FtpSink::FtpSink(bool stall) : stalls(stall)
{
    std::fill_n(block.data(), BlockSize, 'x'); // its memory is there before anything is measured
    control = listening_socket(controlPort);
    passive = listening_socket(passivePort);
    thread = std::thread([this] { serve(); });
}

FtpSink::~FtpSink()
{
    ::shutdown(control, SHUT_RDWR); // the thread's accept() returns
    ::shutdown(passive, SHUT_RDWR);
    thread.join();
    ::close(control);
    ::close(passive);
}

std::optional<double> FtpSink::takeSeconds()
{
    const double taken = seconds.exchange(-1);
    return taken < 0 ? std::nullopt : std::optional(taken);
}

void FtpSink::serve()
{
    for (;;) {
        const int client = ::accept4(control, nullptr, nullptr, SOCK_CLOEXEC);
        if (client < 0)
            return;
        serveClient(client);
        ::close(client);
    }
}

void FtpSink::serveClient(int client)
{
    (void)say(client, "220 Sink");
    for (QByteArray line = heard(client); !line.isEmpty(); line = heard(client)) {
        const QByteArray command = line.left(4).toUpper();
        if (command == "STOR") {
            if (!takeData(client))
                return;
        } else if (command == "PASV") {
            (void)say(client,
                      "227 Here (127,0,0,1," + QByteArray::number(passivePort >> 8) + ','
                          + QByteArray::number(passivePort & 0xff) + ')');
        } else {
            (void)say(client,
                      command == "USER"       ? "331 Password"
                          : command == "PASS" ? "230 In"
                          : command == "PWD"  ? "257 \"/\""
                          : command == "EPSV" ? "502 No"
                          : command.isEmpty() ? "500 What?"
                                              : "200 Fine");
        }
    }
}

bool FtpSink::takeData(int client)
{
    const auto start = std::chrono::steady_clock::now();
    const int data = ::accept4(passive, nullptr, nullptr, SOCK_CLOEXEC);
    if (data < 0 || !say(client, "150 Go on"))
        return false;
    if (stalls) {
        (void)heard(client); // until the client has gone
        ::close(data);
        return false;
    }
    bytes = 0;
    for (ssize_t count = 0; (count = ::recv(data, block.data(), BlockSize, 0)) > 0;)
        bytes += count;
    ::close(data);
    const bool isSaid = say(client, "226 Thanks");
    seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return isSaid;
}
