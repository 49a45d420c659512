#include "reduced_axis.h"

#include <algorithm>
#include <cmath>

namespace {

/// Page pixels by which an edge may miss the border between two of them and still lie on it: scales such as 1.1 are
/// not exact.
constexpr double Slack = 1e-6;

/// The page pixels of an axis a screen pixel if that is a power of two that the kernels know and if their borders are
/// borders of page pixels, else 0.
int even_step(const ReducedAxis &axis)
{
    for (const int step : {2, 4, 8, 16}) {
        if (axis.scale * step == 1.0 && std::floor(axis.phase * step) == axis.phase * step)
            return step;
    }
    return 0;
}

} // namespace

int ReducedAxis::first() const
{
    return static_cast<int>(std::floor(phase + 0.5));
}

int ReducedAxis::end() const
{
    return static_cast<int>(std::floor(phase + length * scale + 0.5));
}

PixelSpan ReducedAxis::covered(int index) const
{
    const double from = (index - phase) / scale;
    const double to = (index + 1 - phase) / scale;
    return {.first = std::clamp(static_cast<int>(std::floor(from + Slack)), 0, length),
            .end = std::clamp(static_cast<int>(std::ceil(to - Slack)), 0, length)};
}

ReducedColumns::ReducedColumns(const ReducedAxis &axis, int from, int end) : m_step(even_step(axis))
{
    m_spans.reserve(static_cast<std::size_t>(end - from));
    for (int i = from; i < end; ++i)
        m_spans.push_back(axis.covered(i));
    if (m_step == 0 || m_spans.empty())
        return;
    const bool cutFirst = m_spans.front().count() < m_step;
    const bool cutLast = m_spans.back().count() < m_step;
    const int count = end - from;
    m_even = {.first = cutFirst ? 1 : 0, .end = cutLast ? count - 1 : count};
    if (m_even.count() <= 0)
        m_even = {};
}
