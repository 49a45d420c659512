#pragma once

#include <QString>
#include <QtGlobal>

#include <memory>

#include <sys/types.h>

/// Removes a file that this process leaves behind, however it ends, once another program has no use for it any more.
///
/// The watch is a small shell of its own, started with the object. It holds no descriptor of this process but the end
/// of a connection, by which it is told that this process has ended, and sleeps until then. It cares for no terminal, no
/// logout and no directory.
///
/// Destroying the object without dismiss() counts as the end of this process.
///
/// Threads: GUI thread only.
class LeftoverWatch
{
public:
    /// @param path  absolute
    /// @return null if no shell can be started
    [[nodiscard]] static std::unique_ptr<LeftoverWatch> start(const QString &path);
    ~LeftoverWatch();
    Q_DISABLE_COPY_MOVE(LeftoverWatch)

    /// From now on the file stays for as long as this process runs, too, even if that is longer than ours.
    /// @param process  a child of ours that was not waited for yet
    void setReader(qint64 process) const;

    /// Ends the watch. The file stays: the caller has removed it, or does.
    void dismiss();

private:
    LeftoverWatch(pid_t shell, int ownEnd) : m_shell(shell), m_ownEnd(ownEnd) { }

    pid_t m_shell; ///< 0 once it was dismissed
    int m_ownEnd; ///< of a connection; the other end is the shell's standard input
};
