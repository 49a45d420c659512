#pragma once

#include <cstdio>

/// How much larger a picture may become on this machine. Asked of /proc/meminfo, not of any allocation.

/// Which lines count towards free space. The values are bits of a mask.
enum FreeSpaceMask : int {
    CountMemFree = 1,
    CountSwapFree = 2,
    CountBuffers = 4, ///< 40 % of them, less 8 MiB
    CountCached = 8, ///< 80 % of it, less 24 MiB
    CountAll = 15,
    LargerOfRamAndSwap = 31, ///< no sum: the greater of MemFree and SwapFree
};

/// @return pixels that a picture may have after enlarging, 0 to 209505484; 0 without /proc/meminfo
[[nodiscard]] int free_ram_or_swap_limit();

/// @return the limit that @p freeBytes give: a tenth of them, less 5 MiB
[[nodiscard]] int affordable_pixels(int freeBytes);

/// @return kilobytes, or -1 if /proc/meminfo cannot be opened or has none of the lines
[[nodiscard]] int get_free_space(int mask);
/// The same of any stream in the form of /proc/meminfo, which stays open.
[[nodiscard]] int count_free_space(std::FILE *meminfo, int mask);

/// @return bytes, at most 2147483647; -1024 if get_free_space() knows nothing. Nobody asks for those with swap so far.
[[nodiscard]] int free_ram();
[[nodiscard]] int free_swap();
[[nodiscard]] int free_ram_or_swap();
[[nodiscard]] int kbToBytes(int kilobytes);
