#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

/// An input taken as a row of choices. What lies behind its end counts as zeros.
class FuzzInput
{
public:
    explicit FuzzInput(std::span<const std::uint8_t> bytes) : left(bytes) { }

    [[nodiscard]] bool isAtEnd() const { return left.empty(); }

    [[nodiscard]] std::uint8_t byte()
    {
        if (left.empty())
            return 0;
        const std::uint8_t value = left.front();
        left = left.subspan(1);
        return value;
    }
    [[nodiscard]] std::uint32_t word()
    {
        std::uint32_t value = 0;
        for (int shift = 0; shift < 32; shift += 8)
            value |= std::uint32_t{byte()} << shift;
        return value;
    }

    [[nodiscard]] bool flag() { return (byte() & 1U) != 0; }
    /// A number of 0 to @p limit - 1.
    [[nodiscard]] int below(int limit)
    {
        const auto size = static_cast<std::uint32_t>(limit);
        return static_cast<int>((size <= 256 ? byte() : word()) % size);
    }
    /// A number within both bounds.
    [[nodiscard]] int within(int least, int most) { return least + below(most - least + 1); }

    /// As many bytes as a first one tells.
    [[nodiscard]] std::string text()
    {
        const std::size_t length = byte();
        return take(length);
    }
    [[nodiscard]] std::string rest() { return take(left.size()); }

private:
    [[nodiscard]] std::string take(std::size_t length)
    {
        const auto bytes = left.first(std::min(length, left.size()));
        left = left.subspan(bytes.size());
        return {bytes.begin(), bytes.end()};
    }

    std::span<const std::uint8_t> left;
};
