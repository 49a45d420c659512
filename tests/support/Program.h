#pragma once

#include "Accessible.h"
#include "Desktop.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <optional>

/// A modal box of a running program, as it was when it was read.
struct MessageBox
{
    QString title; ///< null if no box came
    QString text; ///< the labels' texts, a line break between two of them
    QStringList buttons; ///< in the order of the screen
    QString defaultButton; ///< the one that Return presses, empty if none
    Accessible dialog;

    [[nodiscard]] bool press(const QString &button) const;
};

/// A program under test in a process of its own, started as a user's shell would start it.
///
/// Units:     times in milliseconds; every wait ends as soon as what it waits for has happened.
/// Errors:    a wait that runs out answers with false, 0, a null control or no value.
/// Ownership: the process ends with the object, killed if it does not end by itself.
class Program
{
public:
    static constexpr int patienceMs = 30000; ///< generous: sanitizers and a loaded machine are slow

    explicit Program(QString executable);
    ~Program();
    Q_DISABLE_COPY_MOVE(Program)

    // Before start().

    void setHome(const QString &path) { setEnvironment(QStringLiteral("HOME"), path); }
    void setEnvironment(const QString &name, const QString &value) { m_environment.insert(name, value); }
    void unsetEnvironment(const QString &name) { m_environment.remove(name); }
    void setWorkingDirectory(const QString &path) { m_process.setWorkingDirectory(path); }
    /// For a program that writes more than a pipe holds while a test waits for its answer.
    void discardErrors() { setErrorFile(QProcess::nullDevice()); }
    /// Standard error goes to a file, or to a pipe that has a name.
    void setErrorFile(const QString &path) { m_process.setStandardErrorFile(path); }
    /// Makes file permissions count even where tests run as root, who may otherwise read everything.
    void obeyFilePermissions() { m_bObeyPermissions = true; }

    /// @return whether the process runs
    [[nodiscard]] bool start(const QStringList &arguments);

    // While it runs.

    [[nodiscard]] qint64 processId() const { return m_processId; }
    [[nodiscard]] bool isRunning() const { return m_process.state() != QProcess::NotRunning; }
    /// The oldest window of the process, as soon as it has one.
    [[nodiscard]] WindowId waitForWindow() const;
    /// The window with this title, as soon as there is one.
    [[nodiscard]] WindowId waitForWindow(const QString &title) const;
    /// The program as assistive technology sees it, as soon as it has registered.
    [[nodiscard]] Accessible accessible() const;
    /// The modal box on show, as soon as there is one.
    /// @param button  one that it has; a dialog before it may not have gone yet
    [[nodiscard]] MessageBox waitForMessageBox(const QString &button = {}) const;

    // After it has ended.

    /// The exit status; none if the process crashed or still runs when the time is over.
    [[nodiscard]] std::optional<int> waitForExit(int timeoutMs = patienceMs);
    /// The signal that has ended the process; none if it ended by itself or still runs when the time is over.
    [[nodiscard]] std::optional<int> waitForEndBySignal(int timeoutMs = patienceMs);
    /// What the program has written so far.
    [[nodiscard]] QString output();
    [[nodiscard]] QString errors();

private:
    QProcess m_process;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
    QString m_executable;
    QByteArray m_output;
    QByteArray m_errors;
    qint64 m_processId = 0;
    bool m_bObeyPermissions = false;
};
