#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

/// What a test takes away from its own process, and gives back when the object goes.

/// No file grows beyond some bytes: writing more fails.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes) : formerAction(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &former);
        const rlimit limit{.rlim_cur = bytes, .rlim_max = former.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &former);
        (void)std::signal(SIGXFSZ, formerAction);
    }
    Q_DISABLE_COPY_MOVE(FileSizeLimit)

private:
    rlimit former{};
    void (*formerAction)(int);
};

/// Another directory is the home. Made while a TemporaryHome lives.
class OtherHome
{
public:
    explicit OtherHome(const QByteArray &path) : former(qgetenv("HOME")) { qputenv("HOME", path); }
    ~OtherHome() { qputenv("HOME", former); }
    Q_DISABLE_COPY_MOVE(OtherHome)

private:
    QByteArray former;
};
