#pragma once

#include "AppContext.h"

/// What a reading of OEM.ini must come to, worked out line by line with the C library's own functions and
/// without regard to speed: the other side of comparisons with read_oem_ini().
/// @param context  the record before the reading
/// @return the record after it; as it was when the file does not open
[[nodiscard]] AppContext plain_oem_ini(const char *path, const AppContext &context);

/// Whether every string of the record ends within its field and every count is within its list.
[[nodiscard]] bool is_sound(const AppContext &context);

/// Whether both records say the same: what lies behind the end of a string or of a list does not count.
[[nodiscard]] bool is_same(const AppContext &left, const AppContext &right);
