#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

class QProcess;

/// A program to be started; it can be waited for, or left to itself.
///
/// The program is searched in PATH, starts in the current directory with this process's environment, and finds its
/// standard input empty; what it writes to standard output and error is dropped. No other descriptor and no ignored
/// signal of this process reaches it (ChildScope).
///
/// Ownership: destroying the object neither ends the program nor waits for it.
/// Threads:   GUI thread; start() tells of the end through the event loop.
class Q3Process : public QObject
{
    Q_OBJECT

public:
    explicit Q3Process(QObject *parent = nullptr) : QObject(parent) { }
    ~Q3Process() override;
    Q_DISABLE_COPY_MOVE(Q3Process)

    /// Appends one argument, as it stands: no shell reads it. The first one is the program.
    void addArgument(const QString &argument) { m_arguments.append(argument); }
    [[nodiscard]] QStringList arguments() const { return m_arguments; }

    /// Starts the program, and returns once it is known whether that has worked. Its end is told by processExited(),
    /// unless the object has gone before; the program is reaped then too.
    /// @return false if there is no such program, nothing to start, or a program that was started before still runs;
    ///         no signal comes then
    [[nodiscard]] bool start();

    /// Number of the process that start() has started, until its end is told; 0 for none.
    [[nodiscard]] qint64 processIdentifier() const;

    /// Starts the program as one that is no child of this process: nobody waits for it, and it lives on when this
    /// process ends. Again at each call; returns once it is known whether that has worked.
    /// @return false if there is no such program or nothing to start; nothing has happened then
    [[nodiscard]] bool launch() const;

signals:
    /// The program of start() has ended, in whatever way. The object may be deleted by the slot.
    void processExited();

private:
    QStringList m_arguments;
    QPointer<QProcess> m_process; ///< deletes itself once its program has ended
};
