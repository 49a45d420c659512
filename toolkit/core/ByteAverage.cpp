#include "ByteAverage.h"

#include "average_parts.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace {

constexpr quint64 OneEach = 0x0001000100010001U; ///< 1 in each channel
constexpr quint64 Bytes = 0x00ff00ff00ff00ffU;
constexpr int ChannelBits = 16;
constexpr std::size_t BlockColumns = 256; // at a time: their sums stay in the nearest cache
constexpr int LinesAtOnce = 4; // so that sums are fetched and stored less often
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

ByteAverage::ByteAverage(const std::array<QRgb, 256> &colors) : m_ramp(rampOf(colors))
{
    std::ranges::transform(colors, m_colors.begin(), spread);
}

ByteAverage::Ramp ByteAverage::rampOf(const std::array<QRgb, 256> &colors)
{
    bool rises = true;
    bool falls = true;
    for (int i = 0; i < std::ssize(colors); ++i) {
        const QRgb color = colors.at(static_cast<std::size_t>(i));
        rises = rises && color == qRgb(i, i, i);
        falls = falls && color == qRgb(255 - i, 255 - i, 255 - i);
    }
    if (rises)
        return Ramp::Rising;
    return falls ? Ramp::Falling : Ramp::None;
}

void ByteAverage::average(const PageRows &rows, const ReducedColumns &columns, std::span<QRgb> target) const
{
    const PixelSpan even = rows.count == columns.step() ? columns.even() : PixelSpan();
    average_parts(
        columns.spans(), even, target, [&](PixelSpan span) { return averageOf(rows, span); },
        [&](int first, std::span<QRgb> part) { averageEvenly(rows, columns.step(), first, part); });
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
    for (std::size_t from = 0; from < target.size(); from += BlockColumns) {
        const std::size_t count = std::min(BlockColumns, target.size() - from);
        const int origin = first + static_cast<int>(from) * Step;
        if (m_ramp == Ramp::None)
            averageColors<Step>(rows, origin, target.subspan(from, count));
        else
            averageRamp<Step>(rows, origin, target.subspan(from, count));
    }
}

/// At most BlockColumns columns of greys, which need no look-up.
template <int Step> void ByteAverage::averageRamp(const PageRows &rows, int first, std::span<QRgb> target) const
{
    constexpr quint32 half = Step * Step / 2;
    constexpr quint32 white = 255 * Step * Step;
    constexpr QRgb opaque = 0xff000000U;
    constexpr QRgb eachColor = 0x00010101U;
    constexpr int lines = std::min(Step, LinesAtOnce);
    const std::size_t width = target.size() * Step;
    std::array<quint16, BlockColumns * Step> sums;
    for (int y = 0; y < Step; y += lines) {
        std::array<const uchar *, lines> line;
        for (int i = 0; i < lines; ++i)
            line[static_cast<std::size_t>(i)] = rows.row(y + i) + first;
        quint16 *const __restrict sum = sums.data();
        for (std::size_t x = 0; x < width; ++x) {
            int added = y == 0 ? 0 : sum[x];
            for (const uchar *const pixels : line)
                added += pixels[x];
            sum[x] = static_cast<quint16>(added);
        }
    }
    for (std::size_t i = 0; i < target.size(); ++i) {
        quint32 sum = 0;
        for (std::size_t x = 0; x < Step; ++x)
            sum += sums[i * Step + x];
        const quint32 grey = ((m_ramp == Ramp::Rising ? sum : white - sum) + half) / (Step * Step);
        target[i] = opaque | grey * eachColor;
    }
}

/// At most BlockColumns columns of any colours.
template <int Step> void ByteAverage::averageColors(const PageRows &rows, int first, std::span<QRgb> target) const
{
    constexpr quint64 half = Step * Step / 2 * OneEach;
    constexpr int shift = std::countr_zero(unsigned{Step * Step});
    constexpr int lines = std::min(Step, LinesAtOnce);
    constexpr int partWidth = std::min(Step, 8); // of more pixels the compiler makes no straight code
    std::array<quint64, BlockColumns> sums;

    for (int y = 0; y < Step; y += lines) {
        std::array<const uchar *, lines> line;
        for (int i = 0; i < lines; ++i)
            line[static_cast<std::size_t>(i)] = rows.row(y + i) + first;
        for (std::size_t i = 0; i < target.size(); ++i) {
            quint64 sum = y == 0 ? half : sums[i];
            for (const uchar *&pixel : line) {
                for (int part = 0; part < Step; part += partWidth) {
                    for (const uchar *const end = pixel + partWidth; pixel < end; ++pixel)
                        sum += m_colors[*pixel];
                }
            }
            sums[i] = sum;
        }
    }
    std::transform(sums.begin(), sums.begin() + std::ssize(target), target.begin(),
                   [](quint64 sum) { return gathered((sum >> shift) & Bytes); });
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
