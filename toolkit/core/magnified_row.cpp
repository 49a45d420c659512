#include "magnified_row.h"

#include <algorithm>

namespace {

/// Repeats whole pixels. The compiler knows how often, which makes this several times faster.
/// @return the first of the pixels that are left
template <int Factor> const QRgb *repeat(const QRgb *pixels, QRgb *&target, int &count)
{
    for (; count >= Factor; count -= Factor, target += Factor, ++pixels) {
        for (int i = 0; i < Factor; ++i)
            target[i] = *pixels;
    }
    return pixels;
}

} // namespace

void magnify_row(const QRgb *pixels, int factor, int skipped, QRgb *target, int count)
{
    if (skipped > 0) {
        const int first = std::min(factor - skipped, count);
        target = std::fill_n(target, first, *pixels++);
        count -= first;
    }
    switch (factor) {
    case 2:
        pixels = repeat<2>(pixels, target, count);
        break;
    case 4:
        pixels = repeat<4>(pixels, target, count);
        break;
    case 8:
        pixels = repeat<8>(pixels, target, count);
        break;
    default:
        for (; count >= factor; count -= factor)
            target = std::fill_n(target, factor, *pixels++);
        break;
    }
    if (count > 0)
        std::fill_n(target, count, *pixels);
}
