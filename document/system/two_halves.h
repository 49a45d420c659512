#pragma once

#include <cstddef>
#include <future>

/// Runs a pure loop over steps 0 to @p count as two halves at the same time: one on a thread of its own, which has
/// ended when this returns, the other here. Where no thread is to be had both run here.
///
/// @param worthwhile  fewer steps than this run here in one go: a thread costs about as much as copying 200 KB
/// @param work        called with the first step and the one behind the last; must not throw, nor touch what the
///                    other half touches
template <typename Work> void in_two_halves(std::size_t count, std::size_t worthwhile, const Work &work)
{
    if (count < worthwhile || count < 2) {
        work(std::size_t{0}, count);
        return;
    }
    const std::size_t half = count / 2;
    const std::future<void> first =
        std::async(std::launch::async | std::launch::deferred, [&work, half] { work(std::size_t{0}, half); });
    work(half, count);
    first.wait(); // also begins it where there was no thread
}
