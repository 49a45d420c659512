#pragma once

#include <QObject>

/// Tells of the signals by which others ask the process to end - SIGTERM, SIGHUP and SIGINT - from the event loop,
/// so that it can end by its ordinary road. What the caller has chosen to ignore stays ignored.
///
/// Ownership: one object a process, on the stack of main. The signals stay caught when it has gone.
/// Errors:    without a pipe of its own, which takes a process without a free descriptor, nothing is caught.
/// Threads:   the thread that runs the event loop.
class EndSignals : public QObject
{
    Q_OBJECT

public:
    /// Catches the signals from now on. Needs an application object.
    EndSignals();

    /// The first of the signals that came, 0 for none. Known before came() is emitted.
    [[nodiscard]] static int number();

    /// Ends the process by the signal that came, as its caller expects. Comes back if none has come.
    static void passOn();

signals:
    /// One of the signals has come.
    void came();
};
