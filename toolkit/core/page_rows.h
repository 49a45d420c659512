#pragma once

#include <QtGlobal>

/// Neighbouring lines of a page, bytesPerLine from one to the next.
struct PageRows
{
    const uchar *first = nullptr;
    qsizetype bytesPerLine = 0;
    int count = 0;
    int following = 0; ///< lines of the page behind these, which are likely to be next

    [[nodiscard]] const uchar *row(int index) const { return first + index * bytesPerLine; }
};

/// @p sum by @p count, rounded to nearest, halves upwards.
[[nodiscard]] constexpr quint32 rounded_mean(quint32 sum, int count)
{
    const auto divisor = static_cast<quint32>(count);
    return (sum + divisor / 2) / divisor;
}
