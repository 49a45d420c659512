#pragma once

#include <QStringList>

#include <chrono>
#include <optional>
#include <sys/types.h>

/// A program with a window, from its start to the end of this object, which kills it: viewers have nothing to save.
/// Its output goes nowhere.
class StartedProgram
{
public:
    /// @param command  the program, looked for in PATH, and its arguments
    explicit StartedProgram(const QStringList &command);
    ~StartedProgram();

    Q_DISABLE_COPY_MOVE(StartedProgram)

    /// False if it could not be started or has ended.
    [[nodiscard]] bool isRunning() const;

    /// Seconds since the start.
    [[nodiscard]] double age() const;

    /// The most memory that was in use so far, in bytes; 0 if the system does not tell.
    [[nodiscard]] double peakMemory() const;

    /// Waits until it ends by itself.
    /// @return seconds since the start; nothing if it failed
    [[nodiscard]] std::optional<double> secondsToEnd() const;

private:
    std::chrono::steady_clock::time_point start;
    pid_t pid = -1;
};
