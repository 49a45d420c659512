#pragma once

#include <QtGlobal>

#include <csignal>
#include <utility>
#include <vector>

/// While it lives, a program that this process starts, by whatever call, gets nothing of ours but the environment, the
/// current directory and the standard streams: every other descriptor, also those that our own caller left open, is
/// closed in it, and no signal is ignored.
///
/// The descriptors stay marked so afterwards; signals are ignored again.
///
/// Threads: GUI thread, for as long as the start takes. A signal that this process ignores would end it meanwhile.
class ChildScope
{
public:
    ChildScope();
    ~ChildScope();
    Q_DISABLE_COPY_MOVE(ChildScope)

private:
    using SignalAction = struct sigaction;
    std::vector<std::pair<int, SignalAction>> ignored; ///< signals, and how they were ignored
};
