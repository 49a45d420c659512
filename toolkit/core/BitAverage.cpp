#include "BitAverage.h"

#include "average_parts.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>

namespace {

constexpr int BitsPerByte = 8;
constexpr int FieldBits = 8; ///< of a count
constexpr quint32 Field = 0xffU;

/// The number of ones in each byte, in that byte.
quint64 ones_of_bytes(quint64 bits)
{
    constexpr quint64 pairs = 0x5555555555555555U;
    constexpr quint64 fours = 0x3333333333333333U;
    constexpr quint64 bytes = 0x0f0f0f0f0f0f0f0fU;
    bits -= bits >> 1 & pairs;
    bits = (bits & fours) + (bits >> 2 & fours);
    return (bits + (bits >> 4)) & bytes;
}

} // namespace

BitAverage::BitAverage(QRgb zero, QRgb one, BitOrder order) : m_zero(zero), m_one(one), m_order(order)
{
    for (int first = 0; first <= BitsPerByte; ++first) {
        for (int end = first; end <= BitsPerByte; ++end) {
            for (int x = first; x < end; ++x)
                m_masks.at(static_cast<std::size_t>(first)).at(static_cast<std::size_t>(end)) |=
                    static_cast<uchar>(1U << bitOf(x));
        }
    }
}

void BitAverage::average(const PageRows &rows, const ReducedColumns &columns, std::span<QRgb> target)
{
    const std::vector<PixelSpan> &spans = columns.spans();
    PixelSpan even = rows.count == columns.step() ? columns.even() : PixelSpan();
    // Blocks have to end with their bytes.
    if (even.count() > 0 && spans[static_cast<std::size_t>(even.first)].first % std::min(columns.step(), BitsPerByte))
        even = {};
    average_parts(
        spans, even, target, [&](PixelSpan span) { return averageOf(rows, span); },
        [&](int first, std::span<QRgb> part) { averageEvenly(rows, columns.step(), first, part); });
}

void BitAverage::averageEvenly(const PageRows &rows, int step, int first, std::span<QRgb> target)
{
    if (step != m_step)
        prepare(step);
    const int firstByte = first / BitsPerByte;
    const int endByte = (first + step * static_cast<int>(target.size()) + BitsPerByte - 1) / BitsPerByte;
    const auto byteCount = static_cast<std::size_t>(endByte - firstByte);
    if (step < BitsPerByte)
        countBlocks(rows, firstByte, byteCount);
    else
        countBytes(rows, firstByte, byteCount);
    switch (step) {
    case 2:
        mixBlocks<2>(first, target);
        break;
    case 4:
        mixBlocks<4>(first, target);
        break;
    case 8:
        mixBlocks<8>(first, target);
        break;
    default:
        mixBlocks<16>(first, target);
        break;
    }
}

/// Counts the ones of neighbouring bytes, over at most 16 rows.
void BitAverage::countBytes(const PageRows &rows, int firstByte, std::size_t byteCount)
{
    m_ones.assign(byteCount, 0);
    for (int y = 0; y < rows.count; ++y) {
        const uchar *const row = rows.row(y) + firstByte;
        std::size_t i = 0;
        for (; i + sizeof(quint64) <= byteCount; i += sizeof(quint64)) {
            quint64 bits = 0;
            quint64 sums = 0;
            std::memcpy(&bits, row + i, sizeof bits);
            std::memcpy(&sums, &m_ones[i], sizeof sums);
            sums += ones_of_bytes(bits);
            std::memcpy(&m_ones[i], &sums, sizeof sums);
        }
        for (; i < byteCount; ++i)
            m_ones[i] = static_cast<uchar>(m_ones[i] + std::popcount(row[i]));
    }
}

/// Counts the ones of the blocks in neighbouring bytes, over all rows.
void BitAverage::countBlocks(const PageRows &rows, int firstByte, std::size_t byteCount)
{
    m_sums.assign(byteCount, 0);
    for (int y = 0; y < rows.count; ++y) {
        const uchar *const row = rows.row(y) + firstByte;
        for (std::size_t i = 0; i < byteCount; ++i)
            m_sums[i] += m_counts[row[i]];
    }
}

/// The averages of blocks of @p Step pixels that follow one another from pixel @p first on, from the counts.
template <int Step> void BitAverage::mixBlocks(int first, std::span<QRgb> target) const
{
    auto bit = static_cast<std::size_t>(first % BitsPerByte);
    for (QRgb &color : target) {
        const std::size_t byte = bit / BitsPerByte;
        if constexpr (Step < BitsPerByte)
            color = m_mixtures[m_sums[byte] >> (bit % BitsPerByte / Step * FieldBits) & Field];
        else if constexpr (Step == BitsPerByte)
            color = m_mixtures[m_ones[byte]];
        else
            color = m_mixtures[static_cast<std::size_t>(m_ones[byte] + m_ones[byte + 1])];
        bit += Step;
    }
}

void BitAverage::prepare(int step)
{
    m_step = step;
    m_mixtures.clear();
    for (int count = 0; count <= step * step; ++count)
        m_mixtures.push_back(mixed(count, step * step));

    const int width = std::min(step, BitsPerByte);
    for (std::size_t byte = 0; byte < m_counts.size(); ++byte) {
        const auto pixels = static_cast<uchar>(byte);
        quint32 counts = 0;
        for (int x = 0; x < BitsPerByte; x += width)
            counts |= static_cast<quint32>(ones(&pixels, {x, x + width})) << (x / width * FieldBits);
        m_counts[byte] = counts;
    }
}

QRgb BitAverage::averageOf(const PageRows &rows, PixelSpan span) const
{
    int sum = 0;
    for (int y = 0; y < rows.count; ++y)
        sum += ones(rows.row(y), span);
    return mixed(sum, span.count() * rows.count);
}

/// The ones among the pixels of @p span.
int BitAverage::ones(const uchar *row, PixelSpan span) const
{
    int sum = 0;
    for (int byte = span.first / BitsPerByte; byte * BitsPerByte < span.end; ++byte) {
        const auto from = static_cast<std::size_t>(std::max(span.first - byte * BitsPerByte, 0));
        const auto end = static_cast<std::size_t>(std::min(span.end - byte * BitsPerByte, BitsPerByte));
        sum += std::popcount(static_cast<uchar>(row[byte] & m_masks[from][end]));
    }
    return sum;
}

/// Which bit of its byte pixel @p x of the eight is.
int BitAverage::bitOf(int x) const
{
    return m_order == BitOrder::LowFirst ? x : BitsPerByte - 1 - x;
}

/// The average of @p count pixels of which @p ones are one.
QRgb BitAverage::mixed(int ones, int count) const
{
    QRgb color = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const quint32 sum = (m_zero >> shift & 0xffU) * static_cast<quint32>(count - ones)
            + (m_one >> shift & 0xffU) * static_cast<quint32>(ones);
        color |= rounded_mean(sum, count) << shift;
    }
    return color;
}
