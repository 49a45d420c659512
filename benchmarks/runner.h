#pragma once

#include "Row.h"

/// What came of a bar.
struct Outcome
{
    std::optional<double> value; ///< in the unit of the goal; nothing if a side failed
    double lowerQuartile = 0; ///< of the rounds' values, as value
    double upperQuartile = 0;
    double job = 0; ///< median of the job alone, in seconds, bytes or counts
    double yardstick = 0; ///< the same of the yardstick, 0 without one

    [[nodiscard]] bool met(double goal) const { return value && *value <= goal; }
};

struct Rounds
{
    int count; ///< at least 1
    std::size_t lentBytes; ///< memory that the machine has at hand before each round of a side; 0: as it comes
};

/// Runs both sides of a bar in turns, after one round of each that does not count.
/// @param barIndex  which of the row's bars
[[nodiscard]] Outcome run_bar(const Row &row, int barIndex, const Rounds &rounds, const Surroundings &surroundings);

/// The other end, in a process of its own: prepares a side, then answers each line on standard input with one round.
/// @return the exit status
int serve_side(const Side &side, const Surroundings &surroundings);
