#pragma once

#include "Row.h"

/// What came of a bar.
struct Outcome
{
    std::optional<double> value; ///< in the unit of the goal; nothing if a side failed
    double job = 0; ///< median of the job alone, in seconds, bytes or counts
    double yardstick = 0; ///< the same of the yardstick, 0 without one

    [[nodiscard]] bool met(double goal) const { return value && *value <= goal; }
};

/// Runs both sides of a bar in turns, after one round of each that does not count.
/// @param barIndex  which of the row's bars
/// @param rounds    at least 1
[[nodiscard]] Outcome run_bar(const Row &row, int barIndex, int rounds, const Surroundings &surroundings);

/// The other end, in a process of its own: prepares a side, then answers each line on standard input with one round.
/// @return the exit status
int serve_side(const Side &side, const Surroundings &surroundings);
