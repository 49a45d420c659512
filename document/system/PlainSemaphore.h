#pragma once

#include <condition_variable>
#include <cstddef>
#include <mutex>

/// Counts what one thread leaves for another: acquire() waits until there is something, and takes one.
///
/// Of plain parts, since the thread sanitizer does not see into the toolkit's semaphore, and the one of GCC 12's library
/// may sleep through a release (its bug 104928).
class PlainSemaphore
{
public:
    explicit PlainSemaphore(std::size_t initial) : count(initial) { }

    void acquire()
    {
        std::unique_lock lock(mutex);
        isThere.wait(lock, [this] { return count > 0; });
        --count;
    }

    void release()
    {
        const std::scoped_lock lock(mutex);
        ++count;
        isThere.notify_one(); // under the lock: whoever takes the last one may end the semaphore
    }

private:
    std::mutex mutex;
    std::condition_variable isThere;
    std::size_t count;
};
