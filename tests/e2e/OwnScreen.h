#pragma once

#include <QByteArray>
#include <QProcess>

#include <sys/types.h>

/// An X server and a window manager of their own beside those of the test, for programs that are begun while the
/// object lives, and for every Desktop that is made meanwhile. The server may be killed; a Desktop must then be used
/// no more, but may be destroyed.
///
/// Errors: without a server the test program ends.
class OwnScreen
{
public:
    OwnScreen();
    ~OwnScreen();
    Q_DISABLE_COPY_MOVE(OwnScreen)

    /// Kills the server and returns when it is no more.
    void killServer() const;

private:
    QByteArray formerDisplay;
    QProcess session;
    pid_t server = 0;
};
