#pragma once

#include <sys/wait.h>
#include <unistd.h>

/// Children of the test's own process.

/// Runs work in a child, which ends with what that answers.
/// @return the status as waitpid() tells it; -1 if there was no child
template <typename Work> [[nodiscard]] int status_of_child(const Work &work)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(work());
    int status = 0;
    return ::waitpid(child, &status, 0) == child ? status : -1;
}

/// Whether there are children that nobody has waited for.
[[nodiscard]] inline bool has_children()
{
    siginfo_t info{};
    return ::waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) == 0;
}

inline void wait_for_children()
{
    while (::waitpid(-1, nullptr, 0) > 0) { }
}
