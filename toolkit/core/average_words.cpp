#include "average_words.h"

#include <algorithm>
#include <array>
#include <bit>

namespace {

constexpr quint32 EvenBytes = 0x00ff00ffU; ///< two channels of a word, with room for the sum of 257 words
constexpr quint32 OnePair = 0x00010001U;
constexpr QRgb Opaque = 0xff000000U;
constexpr int BlockWidth = 1024; ///< words of a line that are summed at a time: the sums stay in the nearest cache
constexpr int LinesAtOnce = 4;

/// Sums of the words that stand below each other, channel by channel.
class BlockSums
{
public:
    BlockSums(const PageRows &rows, AlphaChannel alpha) : m_rows(rows), m_alpha(alpha) { }

    /// Sums @p width words of each line from word @p first on.
    void read(int first, int width);

    [[nodiscard]] const quint32 *even() const { return m_even.data(); } ///< blue and red
    [[nodiscard]] const quint32 *odd() const { return m_odd.data(); } ///< green and alpha

private:
    using Line = std::array<QRgb, BlockWidth>;

    template <int Lines, bool Add> void sumLines(int row, int first, int width);
    [[nodiscard]] const QRgb *words(int row, int first, int width, Line &multiplied) const;

    const PageRows &m_rows;
    AlphaChannel m_alpha;
    // Intended: nothing is set beforehand. Each block would pay for that, and read() writes what is read later.
    std::array<quint32, BlockWidth> m_even;
    std::array<quint32, BlockWidth> m_odd;
    std::array<Line, LinesAtOnce> m_multiplied;
};

void BlockSums::read(int first, int width)
{
    int row = 1;
    if (m_rows.count >= LinesAtOnce) {
        sumLines<LinesAtOnce, false>(0, first, width);
        row = LinesAtOnce;
    } else if (m_rows.count >= 2) {
        sumLines<2, false>(0, first, width);
        row = 2;
    } else {
        sumLines<1, false>(0, first, width);
    }
    for (; row + LinesAtOnce <= m_rows.count; row += LinesAtOnce)
        sumLines<LinesAtOnce, true>(row, first, width);
    for (; row < m_rows.count; ++row)
        sumLines<1, true>(row, first, width);
}

template <int Lines, bool Add> void BlockSums::sumLines(int row, int first, int width)
{
    std::array<const QRgb *, Lines> lines;
    for (int i = 0; i < Lines; ++i) {
        const auto slot = static_cast<std::size_t>(i);
        lines[slot] = words(row + i, first, width, m_multiplied[slot]);
    }
    quint32 *const __restrict even = m_even.data();
    quint32 *const __restrict odd = m_odd.data();
    for (int x = 0; x < width; ++x) {
        quint32 evenSum = Add ? even[x] : 0;
        quint32 oddSum = Add ? odd[x] : 0;
        for (const QRgb *const line : lines) {
            evenSum += line[x] & EvenBytes;
            oddSum += (line[x] >> 8) & EvenBytes;
        }
        even[x] = evenSum;
        odd[x] = oddSum;
    }
}

/// Part of a line as it is to be summed: in place, or multiplied into @p multiplied.
const QRgb *BlockSums::words(int row, int first, int width, Line &multiplied) const
{
    const QRgb *const line = reinterpret_cast<const QRgb *>(m_rows.row(row)) + first;
    if (m_alpha == AlphaChannel::Ignored)
        return line;
    QRgb common = Opaque;
    for (int x = 0; x < width; ++x)
        common &= line[x];
    if (common == Opaque)
        return line;
    std::transform(line, line + width, multiplied.begin(), [](QRgb word) { return qPremultiply(word); });
    return multiplied.data();
}

/// The averages of columns of @p Step words that follow one another, from sums over as many lines.
template <int Step> void fold_evenly(const BlockSums &sums, std::span<QRgb> target, QRgb alpha)
{
    constexpr quint32 half = Step * Step / 2 * OnePair;
    constexpr int shift = std::countr_zero(unsigned{Step * Step});
    const quint32 *const even = sums.even();
    const quint32 *const odd = sums.odd();
    const auto count = static_cast<int>(target.size());
    QRgb *const __restrict out = target.data();
    for (int i = 0; i < count; ++i) {
        quint32 evenSum = half;
        quint32 oddSum = half;
        for (int x = 0; x < Step; ++x) {
            evenSum += even[i * Step + x];
            oddSum += odd[i * Step + x];
        }
        out[i] = ((evenSum >> shift) & EvenBytes) | ((oddSum >> shift) & EvenBytes) << 8 | alpha;
    }
}

void fold_evenly(const BlockSums &sums, int step, std::span<QRgb> target, QRgb alpha)
{
    switch (step) {
    case 2:
        fold_evenly<2>(sums, target, alpha);
        break;
    case 4:
        fold_evenly<4>(sums, target, alpha);
        break;
    case 8:
        fold_evenly<8>(sums, target, alpha);
        break;
    default:
        fold_evenly<16>(sums, target, alpha);
        break;
    }
}

/// The average of the words of @p span, from sums over @p lines that begin at word @p origin.
QRgb folded(const BlockSums &sums, PixelSpan span, int origin, int lines)
{
    constexpr int half = 16;
    constexpr quint32 low = 0xffffU;
    quint32 blue = 0, green = 0, red = 0, alpha = 0;
    for (int x = span.first - origin; x < span.end - origin; ++x) {
        blue += sums.even()[x] & low;
        red += sums.even()[x] >> half;
        green += sums.odd()[x] & low;
        alpha += sums.odd()[x] >> half;
    }
    const int count = span.count() * lines;
    return rounded_mean(alpha, count) << 24 | rounded_mean(red, count) << 16 | rounded_mean(green, count) << 8
        | rounded_mean(blue, count);
}

} // namespace

void average_words(const PageRows &rows, const ReducedColumns &columns, AlphaChannel alpha, std::span<QRgb> target)
{
    const std::span<const PixelSpan> spans = columns.spans();
    const QRgb opaque = alpha == AlphaChannel::Ignored ? Opaque : 0;
    const PixelSpan even = rows.count == columns.step() ? columns.even() : PixelSpan();
    BlockSums sums(rows, alpha);

    const auto averageAny = [&](int from, int end) {
        for (int next = from; from < end; from = next) {
            const int origin = spans[static_cast<std::size_t>(from)].first;
            while (next < end && spans[static_cast<std::size_t>(next)].end - origin <= BlockWidth)
                ++next;
            sums.read(origin, spans[static_cast<std::size_t>(next - 1)].end - origin);
            for (auto i = static_cast<std::size_t>(from); i < static_cast<std::size_t>(next); ++i)
                target[i] = folded(sums, spans[i], origin, rows.count) | opaque;
        }
    };

    averageAny(0, even.first);
    for (int from = even.first, count = 0; from < even.end; from += count) {
        count = std::min(BlockWidth / columns.step(), even.end - from);
        sums.read(spans[static_cast<std::size_t>(from)].first, count * columns.step());
        const auto part = target.subspan(static_cast<std::size_t>(from), static_cast<std::size_t>(count));
        fold_evenly(sums, columns.step(), part, opaque);
    }
    averageAny(even.end, static_cast<int>(spans.size()));
}
