#pragma once

#include "private_mounts.h"

#include <QProcess>
#include <QString>
#include <QStringList>

/// A real name server on 127.0.0.1 (dnsmasq), and the only one that this process asks. It knows the names it is told
/// and answers that there are no others below "test".
///
/// Needs:  leave_common_network() at the start of main().
/// Errors: a server that does not come up ends the test program.
class NameServer
{
public:
    /// @param options  of dnsmasq, such as "--mx-host=example.test,mail.example.test,10" and
    ///                 "--host-record=mail.example.test,127.0.0.2"
    explicit NameServer(const QStringList &options);
    ~NameServer();
    Q_DISABLE_COPY_MOVE(NameServer)

private:
    StandInFile resolverFile;
    QProcess server;
};

/// Options for 200 exchangers of many.test, 0 to 199 being their priorities.
[[nodiscard]] QStringList many_exchangers();

/// While it lives this process asks a name server that never answers, and gives up after a second.
class SilentNameServer
{
public:
    SilentNameServer();
    ~SilentNameServer();
    Q_DISABLE_COPY_MOVE(SilentNameServer)

private:
    StandInFile resolverFile;
    int socket;
};
