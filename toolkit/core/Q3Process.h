#pragma once

#include <QString>
#include <QStringList>

/// A program to be started, and then left to itself.
///
/// The program is searched in PATH, starts in the current directory with this process's environment, and finds its
/// standard input empty; what it writes to standard output and error is dropped. It is no child of this process:
/// nobody waits for it, and it lives on when this object or this process ends.
///
/// Threads: any, one at a time.
class Q3Process
{
public:
    Q3Process() = default;
    ~Q3Process() = default;
    Q_DISABLE_COPY_MOVE(Q3Process)

    /// Appends one argument, as it stands: no shell reads it. The first one is the program.
    void addArgument(const QString &argument) { m_arguments.append(argument); }
    [[nodiscard]] QStringList arguments() const { return m_arguments; }

    /// Starts the program, again at each call, and returns once it is known whether that has worked.
    /// @return false if there is no such program or nothing to start; nothing has happened then
    [[nodiscard]] bool launch() const;

private:
    QStringList m_arguments;
};
