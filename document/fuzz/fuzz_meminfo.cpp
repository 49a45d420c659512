// Any bytes in place of /proc/meminfo: what is counted is what a plain reading counts, and nothing runs over.

#include "fuzz_target.h"
#include "headroom.h"
#include "image_memory.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <memory>
#include <sstream>
#include <string_view>

namespace {

constexpr std::size_t LongestPiece = 255; ///< of a line that is read at once

long long to_int_range(long long value)
{
    return std::clamp<long long>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
}

/// The number behind the first word, as far as it can be told in 32 bits.
long long plain_number(std::string_view line)
{
    constexpr std::string_view blanks = " \t\n\v\f\r";
    line.remove_prefix(std::min(line.find_first_of(blanks), line.size()));
    line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
    const bool isNegative = line.starts_with('-');
    if (isNegative || line.starts_with('+'))
        line.remove_prefix(1);
    long long value = 0;
    for (; !line.empty() && line.front() >= '0' && line.front() <= '9'; line.remove_prefix(1))
        value = std::min(value * 10 + (line.front() - '0'), 1LL << 40U);
    return to_int_range(isNegative ? -value : value);
}

long long plain_share(long long kilobytes, long long tenths, long long reserve)
{
    return std::max(kilobytes * tenths / 10 - reserve, 0LL);
}

int plain_count(std::string_view text, int mask)
{
    long long total = -1;
    long long memory = 0;
    long long swap = 0;
    while (!text.empty()) {
        const std::string_view piece = text.substr(0, std::min(text.find('\n', 0), LongestPiece - 1) + 1);
        text.remove_prefix(piece.size());
        const std::string_view line = piece.substr(0, piece.find('\0'));
        const long long number = plain_number(line);
        const bool isMemory = line.starts_with("MemFree");
        const bool isSwap = line.starts_with("SwapFree");
        const bool isBuffers = line.starts_with("Buffers");
        const bool isCached = line.starts_with("Cached");
        memory = isMemory ? number : memory;
        swap = isSwap ? number : swap;
        const bool counts = (isMemory && (mask & CountMemFree) != 0) || (isSwap && (mask & CountSwapFree) != 0)
            || (isBuffers && (mask & CountBuffers) != 0) || (isCached && (mask & CountCached) != 0);
        const long long share = isBuffers ? plain_share(number, 4, 8192)
            : isCached                    ? plain_share(number, 8, 24576)
                                          : number;
        total = counts ? to_int_range(std::max(total, 0LL) + share) : total;
    }
    return static_cast<int>(mask == LargerOfRamAndSwap ? std::max(memory, swap) : total);
}

int counted(std::string text, int mask)
{
    if (text.empty())
        return plain_count(text, mask); // the system opens no empty memory
    const std::unique_ptr<std::FILE, int (*)(std::FILE *)> stream(fmemopen(text.data(), text.size(), "r"), std::fclose);
    promise(stream != nullptr, "memory can be read as a file");
    return count_free_space(stream.get(), mask);
}

} // namespace

std::vector<std::string> fuzz_seeds()
{
    return {
        "MemTotal:         500000 kB\nMemFree:          100000 kB\nMemAvailable:   23604496 kB\n"
        "Buffers:           30000 kB\nCached:            40000 kB\nSwapCached:       999999 kB\n"
        "SwapTotal:        700000 kB\nSwapFree:          70000 kB\n",
        "MemFree: -5 kB\nMemFree:99999999999999999999 kB\nCached\t1\nSwapFree: 2147483648\n",
        "MemAvailable: 9223372036854775807 kB\nSwapFree: 9223372036854775807 kB\n",
    };
}

void try_input(std::span<const std::uint8_t> bytes)
{
    const std::string text(bytes.begin(), bytes.end());
    for (const int mask : {1, 2, 4, 8, 15, 31})
        promise(counted(text, mask) == plain_count(text, mask), "free space is what a plain reading counts");

    const int kilobytes = counted(text, CountAll);
    promise(kbToBytes(kilobytes) >= -1024 || kilobytes < -1, "bytes of kilobytes do not run over");
    const int pixels = affordable_pixels(kbToBytes(kilobytes));
    promise(pixels >= 0 && pixels <= 209505484, "pixels are within their bounds");

    std::istringstream stream(text);
    promise(image_share(count_available_bytes(stream)) >= qint64{1024} * 1024, "a picture may take a mebibyte");
}
