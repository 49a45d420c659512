#include "ByteAverage.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace {

constexpr quint64 OneEach = 0x0001000100010001U; ///< 1 in each channel
constexpr quint64 Bytes = 0x00ff00ff00ff00ffU;
constexpr int ChannelBits = 16;
constexpr quint64 LowChannel = 0xffffU;

quint64 spread(QRgb color)
{
    const quint64 blue = color & 0xffU, green = color >> 8 & 0xffU, red = color >> 16 & 0xffU, alpha = color >> 24;
    return alpha << 48 | red << 32 | green << 16 | blue;
}

/// The lowest bytes of four channels, side by side.
QRgb gathered(quint64 channels)
{
    const quint64 pairs = channels | channels >> 8; // blue and green, then red and alpha, 32 bits apart
    return static_cast<QRgb>((pairs & 0xffffU) | (pairs >> 16 & 0xffff0000U));
}

} // namespace

ByteAverage::ByteAverage(const std::array<QRgb, 256> &colors)
{
    std::ranges::transform(colors, m_colors.begin(), spread);
}

void ByteAverage::average(const PageRows &rows, const ReducedColumns &columns, std::span<QRgb> target) const
{
    const std::vector<PixelSpan> &spans = columns.spans();
    const PixelSpan even = rows.count == columns.step() ? columns.even() : PixelSpan();
    const auto from = static_cast<std::size_t>(even.first);
    const auto end = static_cast<std::size_t>(even.end);

    for (std::size_t i = 0; i < from; ++i)
        target[i] = averageOf(rows, spans[i]);
    if (end > from)
        averageEvenly(rows, columns.step(), spans[from].first, target.subspan(from, end - from));
    for (std::size_t i = end; i < spans.size(); ++i)
        target[i] = averageOf(rows, spans[i]);
}

void ByteAverage::averageEvenly(const PageRows &rows, int step, int first, std::span<QRgb> target) const
{
    switch (step) {
    case 2:
        averageEvenly<2>(rows, first, target);
        break;
    case 4:
        averageEvenly<4>(rows, first, target);
        break;
    case 8:
        averageEvenly<8>(rows, first, target);
        break;
    default:
        averageEvenly<16>(rows, first, target);
        break;
    }
}

/// Columns of @p Step pixels that follow one another from pixel @p first on, over as many lines.
template <int Step> void ByteAverage::averageEvenly(const PageRows &rows, int first, std::span<QRgb> target) const
{
    constexpr std::size_t block = 256; // columns at a time: their sums stay in the nearest cache
    constexpr quint64 half = Step * Step / 2 * OneEach;
    constexpr int shift = std::countr_zero(unsigned{Step * Step});
    std::array<quint64, block> sums;

    for (std::size_t from = 0; from < target.size(); from += block) {
        const std::size_t count = std::min(block, target.size() - from);
        std::fill_n(sums.begin(), count, half);
        for (int y = 0; y < Step; ++y) {
            const uchar *pixel = rows.row(y) + first + from * Step;
            for (std::size_t i = 0; i < count; ++i, pixel += Step) {
                quint64 sum = 0;
                for (int x = 0; x < Step; ++x)
                    sum += m_colors[pixel[x]];
                sums[i] += sum;
            }
        }
        for (std::size_t i = 0; i < count; ++i)
            target[from + i] = gathered((sums[i] >> shift) & Bytes);
    }
}

QRgb ByteAverage::averageOf(const PageRows &rows, PixelSpan span) const
{
    std::array<quint32, 4> channels{};
    for (int y = 0; y < rows.count; ++y) {
        const uchar *const row = rows.row(y);
        quint64 sum = 0;
        for (int x = span.first; x < span.end; ++x)
            sum += m_colors[row[x]];
        for (quint32 &channel : channels) {
            channel += static_cast<quint32>(sum & LowChannel);
            sum >>= ChannelBits;
        }
    }
    QRgb color = 0;
    for (int i = 0; i < std::ssize(channels); ++i)
        color |= rounded_mean(channels[static_cast<std::size_t>(i)], span.count() * rows.count) << (8 * i);
    return color;
}
