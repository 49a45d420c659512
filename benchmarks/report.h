#pragma once

#include "runner.h"

#include <QString>

/// The lines of the table that people read, one for each bar.
[[nodiscard]] QString table_head();
[[nodiscard]] QString table_line(const Row &row, const Bar &bar, const Outcome &outcome);

/// The same for programs: fields parted by tabs, seconds, bytes and counts as plain numbers.
[[nodiscard]] QString tsv_head();
[[nodiscard]] QString tsv_line(const Row &row, const Bar &bar, const Outcome &outcome);
