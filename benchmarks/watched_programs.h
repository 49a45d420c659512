#pragma once

#include "mark.h"
#include "Row.h"

class Screen;
class StartedProgram;

/// Our own programs lie beside this one, the others in PATH.
[[nodiscard]] QString program_path(const QString &name, const Surroundings &surroundings);

/// Starts a program, watches the screen until the mark of its picture stands, and kills it. Nothing if none comes.
[[nodiscard]] std::optional<double> seconds_to_picture(const QStringList &command, Mark mark, const Screen &screen);
/// The most memory that it takes for that, in bytes.
[[nodiscard]] std::optional<double> bytes_with_picture(const QStringList &command, Mark mark, const Screen &screen);

/// Waits until the most memory that a program ever had stays the same.
[[nodiscard]] std::optional<double> settled_peak(const StartedProgram &program);
