#include "scale_sides.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

constexpr int Half = 0x8000; // of a pixel, as places are in 65536ths

std::int64_t distance(int from, int to)
{
    return (std::int64_t{from} << 16) / to;
}

} // namespace

std::vector<PlaceBetween> places_between(int from, int to)
{
    std::vector<PlaceBetween> places(static_cast<std::size_t>(to));
    std::int64_t at = std::int64_t{Half} * from / to - Half;
    for (PlaceBetween &place : places) {
        const int pixel = static_cast<int>(at >> 16);
        const bool hasSecond = pixel >= 0 && pixel < from - 1;
        place = {.first = std::max(pixel, 0), .share = hasSecond ? static_cast<int>(at >> 8 & 0xff) : 0};
        at += distance(from, to);
    }
    return places;
}

std::optional<CoveredSpans> covered_spans(int from, int to)
{
    constexpr int whole = CoveredSpans::WholeShare;
    const int inner = (to * whole + from - 1) / from;
    CoveredSpans result{.spans = std::vector<CoveredSpan>(static_cast<std::size_t>(to)), .innerShare = inner};
    std::int64_t at = 0;
    for (CoveredSpan &span : result.spans) {
        const int first = static_cast<int>(((0x10000 - (at & 0xffff)) * inner) >> 16);
        const int innerCount = std::max(0, (whole - first - 1) / inner);
        span = {.first = static_cast<int>(at >> 16),
                .count = innerCount + 2,
                .firstShare = first,
                .lastShare = whole - first - innerCount * inner};
        if (span.first + span.count > from)
            return std::nullopt;
        at += distance(from, to);
    }
    return result;
}
