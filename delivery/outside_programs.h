#pragma once

#include <QString>

#include <cstdio>

// Programs outside, as command lines for a shell. They inherit the environment, the current directory and the standard
// streams, and nothing else that this process has open.
//
// Threads: GUI thread only.

/// Has a shell start a command in the background and returns at once. The shell alone hears of a wrong command.
/// @return what system() answers: -1 if there was no shell to be had
[[nodiscard]] int start_in_background(const QString &command);

enum class ProgramRun {
    NotStarted, ///< there was no shell to be had
    NotRead, ///< its output could not be read; it has ended
    Ended, ///< in whatever way
};

/// Runs a command to its end and drops what it writes to its standard output. Blocks the thread meanwhile.
[[nodiscard]] ProgramRun run_to_end(const QString &command);

/// Reads and drops all that is left of a stream.
/// @return false if that has failed
[[nodiscard]] bool read_to_end(std::FILE *stream);
