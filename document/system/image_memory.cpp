#include "image_memory.h"

#include <QImageReader>

#include <algorithm>
#include <fstream>
#include <limits>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr qint64 MiB = qint64{1024} * 1024;
constexpr qint64 Unlimited = std::numeric_limits<qint64>::max();
constexpr qint64 ReservedBytes = 64 * MiB; ///< for the decoder and the rest of the program

/// What the process may still add to its address space.
qint64 address_space_left()
{
    rlimit limit{};
    if (getrlimit(RLIMIT_AS, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY)
        return Unlimited;
    std::ifstream statm("/proc/self/statm");
    qint64 pages = 0;
    statm >> pages;
    return static_cast<qint64>(limit.rlim_cur) - pages * sysconf(_SC_PAGESIZE);
}

} // namespace

qint64 affordable_image_bytes()
{
    std::ifstream meminfo("/proc/meminfo");
    return image_share(std::min(count_available_bytes(meminfo), address_space_left()));
}

void limit_image_readers()
{
    constexpr qint64 LargestLimit = std::numeric_limits<int>::max();
    QImageReader::setAllocationLimit(static_cast<int>(std::min(affordable_image_bytes() / MiB, LargestLimit)));
}

qint64 count_available_bytes(std::istream &meminfo)
{
    // Lines such as "MemAvailable:   23604496 kB".
    qint64 memory = -1;
    qint64 swap = 0;
    std::string name;
    qint64 kibibytes = 0;
    while (meminfo >> name >> kibibytes) {
        if (name == "MemAvailable:")
            memory = kibibytes;
        else if (name == "SwapFree:")
            swap = kibibytes;
        meminfo.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    }
    if (memory < 0)
        return Unlimited;
    constexpr qint64 most = Unlimited / 2048; // so that the sum does not run over
    return (std::min(memory, most) + std::clamp(swap, qint64{0}, most)) * 1024;
}

qint64 image_share(qint64 availableBytes)
{
    // A third stays free: a picture of 16 bits a channel takes half its size again when it becomes a
    // page. Never 0, which the readers would take for "no limit".
    return std::max(MiB, (availableBytes - ReservedBytes) / 3 * 2);
}
