#include "NameServer.h"

#include <netinet/in.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int patienceMs = 30000;
const QByteArray resolverOptions = "nameserver 127.0.0.1\noptions timeout:1 attempts:1\n"_ba;

} // namespace

NameServer::NameServer(const QStringList &options) : resolverFile(u"/etc/resolv.conf"_s, resolverOptions)
{
    server.setProcessChannelMode(QProcess::MergedChannels);
    server.start(u"dnsmasq"_s,
                 QStringList{u"--keep-in-foreground"_s, u"--log-facility=-"_s, u"--conf-file=/dev/null"_s,
                             u"--pid-file="_s, u"--user="_s, u"--group="_s, u"--no-resolv"_s, u"--no-hosts"_s,
                             u"--listen-address=127.0.0.1"_s, u"--bind-interfaces"_s, u"--local=/test/"_s,
                             u"--local-ttl=0"_s}
                     + options);
    QByteArray told;
    while (!told.contains("started")) { // its first line, after it has bound the port
        if (!server.waitForReadyRead(patienceMs))
            end_for_want_of(told.isEmpty() ? "dnsmasq" : told.constData());
        told += server.readAll();
    }
}

NameServer::~NameServer()
{
    server.kill();
    server.waitForFinished(patienceMs);
}

SilentNameServer::SilentNameServer() :
    resolverFile(u"/etc/resolv.conf"_s, resolverOptions),
    socket(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(53);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the interface of sockets
    if (socket < 0 || ::bind(socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0)
        end_for_want_of("port of name servers");
}

SilentNameServer::~SilentNameServer()
{
    ::close(socket);
}

QStringList many_exchangers()
{
    QStringList options;
    for (int i = 0; i < 200; ++i)
        options.append(QStringLiteral("--mx-host=many.test,relay-%1.many.test,%1").arg(i));
    return options;
}
