#include "headroom.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <limits>
#include <memory>
#include <string_view>

namespace {

constexpr int Unknown = -1;
constexpr int LargestInt = std::numeric_limits<int>::max();

/// The nearest number of 32 bits. A machine with terabytes has much free memory, not a negative amount.
int clamped(long long value)
{
    return static_cast<int>(std::clamp<long long>(value, std::numeric_limits<int>::min(), LargestInt));
}

/// The share of @p kilobytes that the system would give up, less what it is left as a reserve.
int share_to_free(int kilobytes, int tenths, int reserve)
{
    const int share = static_cast<int>(static_cast<long long>(kilobytes) * tenths / 10);
    return share > reserve ? share - reserve : 0;
}

int all_of(int kilobytes)
{
    return kilobytes;
}

int buffers_to_free(int kilobytes)
{
    return share_to_free(kilobytes, 4, 8192);
}

int cached_to_free(int kilobytes)
{
    return share_to_free(kilobytes, 8, 24576);
}

struct Key
{
    std::string_view name; ///< what a line begins with; no colon, so longer names match too
    FreeSpaceMask bit;
    int (*contribution)(int kilobytes);
};

constexpr std::array Keys{
    Key{"MemFree", CountMemFree, all_of},
    Key{"Buffers", CountBuffers, buffers_to_free},
    Key{"Cached", CountCached, cached_to_free},
    Key{"SwapFree", CountSwapFree, all_of},
};

/// The number behind the first word of a line; 0 if there is none.
int number_of(std::string_view line)
{
    const auto *const wordEnd =
        std::ranges::find_if(line, [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; });
    return clamped(std::strtol(wordEnd, nullptr, 10));
}

} // namespace

int free_ram_or_swap_limit()
{
    return affordable_pixels(free_ram());
}

int affordable_pixels(int freeBytes)
{
    constexpr int Reserve = 0x500000;
    constexpr int LimitOf128MiB = 0x7ccccc;
    // Intended: never the case, since a failed probe comes as -1024 and gives 0. Without knowledge of the
    // memory no enlargement is offered.
    if (freeBytes == Unknown)
        return LimitOf128MiB;
    const int share = freeBytes / 10;
    return share > Reserve ? share - Reserve : 0;
}

int get_free_space(int mask)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE *)> meminfo(std::fopen("/proc/meminfo", "r"), std::fclose);
    return meminfo ? count_free_space(meminfo.get(), mask) : Unknown;
}

int count_free_space(std::FILE *meminfo, int mask)
{
    int total = Unknown;
    int ramFree = 0;
    int swapFree = 0;
    std::array<char, 256> buffer{};
    while (std::fgets(buffer.data(), static_cast<int>(buffer.size()), meminfo)) {
        const std::string_view line(buffer.data());
        const auto *const key = std::ranges::find_if(Keys, [line](const Key &k) { return line.starts_with(k.name); });
        if (key == Keys.end())
            continue;
        const int kilobytes = number_of(line);
        if (key->bit == CountMemFree)
            ramFree = kilobytes;
        if (key->bit == CountSwapFree)
            swapFree = kilobytes;
        if ((mask & key->bit) != 0)
            total = clamped(static_cast<long long>(std::max(total, 0)) + key->contribution(kilobytes));
    }
    return mask == LargerOfRamAndSwap ? std::max(ramFree, swapFree) : total;
}

int free_ram()
{
    return kbToBytes(get_free_space(CountAll));
}

int free_swap()
{
    return kbToBytes(get_free_space(CountSwapFree));
}

int free_ram_or_swap()
{
    return kbToBytes(get_free_space(LargerOfRamAndSwap));
}

int kbToBytes(int kilobytes)
{
    constexpr int Largest = 0x1fffff;
    // Intended: a negative number is shifted like any other, so "unknown" becomes -1024.
    return kilobytes > Largest ? LargestInt : kilobytes << 10;
}
