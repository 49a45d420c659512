#pragma once

#include <cstdio>
#include <unistd.h>

/// The status of a test program that did not run: CTest counts it as skipped, and scripts/test names it at its end.
inline constexpr int SkippedTestStatus = 77;

/// Ends a test program whose machine lacks what it needs. For main(), before the toolkit's application exists.
/// @param reason  one line for people: what is missing, and why
[[noreturn]] inline void end_as_skipped(const char *reason)
{
    (void)std::printf("skipped: %s\n", reason);
    (void)std::fflush(stdout);
    ::_exit(SkippedTestStatus);
}
