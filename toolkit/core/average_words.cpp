#include "average_words.h"

#include "average_blocks.h"

#include <algorithm>
#include <array>
#include <bit>

namespace {

constexpr quint32 EvenBytes = 0x00ff00ffU; ///< two channels of a word, with room for the sum of 257 words
constexpr quint32 OnePair = 0x00010001U;
constexpr QRgb Opaque = 0xff000000U;
// Words of a line that are summed at a time. Long pieces: the memory is fast where it is read on and on.
constexpr int BlockWidth = 8192;
constexpr int LinesAtOnce = 4;
constexpr int FetchedAhead = 256; ///< words for which memory is asked in one go
constexpr int WordsOfCacheLine = 16;

/// Sums of the words that stand below each other, channel by channel. Without alpha the words themselves are summed,
/// modulo 2^32, beside their even bytes: what the sums differ by is 256 times the sum of the greens, and what is lost
/// above it belonged to alpha.
template <AlphaChannel Alpha> class BlockSums
{
public:
    explicit BlockSums(const PageRows &rows) : m_rows(rows) { }

    /// Sums @p width words of each line from word @p first on.
    void read(int first, int width);

    [[nodiscard]] const quint32 *even() const { return m_even.data(); } ///< blue and red
    [[nodiscard]] const quint32 *other() const { return m_other.data(); } ///< green and alpha, or whole words

    /// Green and alpha, or green alone, of sums of even() and of other().
    [[nodiscard]] static quint32 odd(quint32 even, quint32 other)
    {
        return Alpha == AlphaChannel::Multiplied ? other : (other - even) >> 8 & 0xffffU;
    }

private:
    using Line = std::array<QRgb, BlockWidth>;

    template <int Lines, bool Add> void sumLines(int row, int first, int width);
    [[nodiscard]] const QRgb *words(int row, int first, int width, std::size_t slot);

    const PageRows &m_rows;
    // Intended: nothing is set beforehand. Each block would pay for that, and read() writes what is read later.
    std::array<quint32, BlockWidth> m_even;
    std::array<quint32, BlockWidth> m_other;
    std::array<Line, Alpha == AlphaChannel::Multiplied ? LinesAtOnce : 0> m_multiplied;
};

template <AlphaChannel Alpha> void BlockSums<Alpha>::read(int first, int width)
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

template <AlphaChannel Alpha>
template <int Lines, bool Add>
void BlockSums<Alpha>::sumLines(int row, int first, int width)
{
    std::array<const QRgb *, Lines> lines;
    for (int i = 0; i < Lines; ++i) {
        const auto slot = static_cast<std::size_t>(i);
        lines[slot] = words(row + i, first, width, slot);
    }
    quint32 *const __restrict even = m_even.data();
    quint32 *const __restrict other = m_other.data();
    for (int from = 0; from < width; from += FetchedAhead) {
        const int end = std::min(from + FetchedAhead, width);
        // The lines that come next: the processor does not see by itself that several are read side by side.
        for (int i = row + Lines; i < std::min(row + 2 * Lines, m_rows.count + m_rows.following); ++i) {
            const auto *const ahead = reinterpret_cast<const QRgb *>(m_rows.row(i)) + first;
            for (int x = from; x < end; x += WordsOfCacheLine)
                __builtin_prefetch(ahead + x);
        }
        for (int x = from; x < end; ++x) {
            quint32 evenSum = Add ? even[x] : 0;
            quint32 otherSum = Add ? other[x] : 0;
            for (const QRgb *const line : lines) {
                evenSum += line[x] & EvenBytes;
                otherSum += Alpha == AlphaChannel::Multiplied ? line[x] >> 8 & EvenBytes : line[x];
            }
            even[x] = evenSum;
            other[x] = otherSum;
        }
    }
}

/// Part of a line as it is to be summed: in place, or multiplied into a slot.
template <AlphaChannel Alpha> const QRgb *BlockSums<Alpha>::words(int row, int first, int width, std::size_t slot)
{
    const QRgb *const line = reinterpret_cast<const QRgb *>(m_rows.row(row)) + first;
    if constexpr (Alpha == AlphaChannel::Multiplied) {
        QRgb common = Opaque;
        for (int x = 0; x < width; ++x)
            common &= line[x];
        if (common != Opaque) {
            Line &multiplied = m_multiplied[slot];
            std::transform(line, line + width, multiplied.begin(), [](QRgb word) { return qPremultiply(word); });
            return multiplied.data();
        }
    }
    return line;
}

/// What the averages have for alpha without having summed it.
template <AlphaChannel Alpha> constexpr QRgb KnownAlpha = Alpha == AlphaChannel::Ignored ? Opaque : 0;

/// The averages of columns of @p Step words that follow one another, from sums over as many lines.
template <int Step, AlphaChannel Alpha> void fold_evenly(const BlockSums<Alpha> &sums, std::span<QRgb> target)
{
    constexpr quint32 half = Step * Step / 2 * OnePair;
    constexpr int shift = std::countr_zero(unsigned{Step * Step});
    const quint32 *const even = sums.even();
    const quint32 *const other = sums.other();
    const auto count = static_cast<int>(target.size());
    QRgb *const __restrict out = target.data();
    for (int i = 0; i < count; ++i) {
        quint32 evenSum = 0;
        quint32 otherSum = 0;
        for (int x = 0; x < Step; ++x) {
            evenSum += even[i * Step + x];
            otherSum += other[i * Step + x];
        }
        const quint32 oddSum = sums.odd(evenSum, otherSum);
        out[i] =
            ((evenSum + half) >> shift & EvenBytes) | ((oddSum + half) >> shift & EvenBytes) << 8 | KnownAlpha<Alpha>;
    }
}

template <AlphaChannel Alpha> void fold_evenly(const BlockSums<Alpha> &sums, int step, std::span<QRgb> target)
{
    switch (step) {
    case 2:
        fold_evenly<2>(sums, target);
        break;
    case 4:
        fold_evenly<4>(sums, target);
        break;
    case 8:
        fold_evenly<8>(sums, target);
        break;
    default:
        fold_evenly<16>(sums, target);
        break;
    }
}

/// The average of the words of @p span, from sums over @p lines that begin at word @p origin.
template <AlphaChannel Alpha> QRgb folded(const BlockSums<Alpha> &sums, PixelSpan span, int origin, int lines)
{
    constexpr int half = 16;
    constexpr quint32 low = 0xffffU;
    quint32 blue = 0, green = 0, red = 0, alpha = 0;
    for (int x = span.first - origin; x < span.end - origin; ++x) {
        const quint32 even = sums.even()[x];
        const quint32 odd = sums.odd(even, sums.other()[x]);
        blue += even & low;
        red += even >> half;
        green += odd & low;
        alpha += odd >> half;
    }
    const int count = span.count() * lines;
    return rounded_mean(alpha, count) << 24 | rounded_mean(red, count) << 16 | rounded_mean(green, count) << 8
        | rounded_mean(blue, count) | KnownAlpha<Alpha>;
}

/// Columns of as many words as there are lines, which follow one another from word @p first on.
template <AlphaChannel Alpha>
void average_evenly(BlockSums<Alpha> &sums, const PageRows &rows, int first, std::span<QRgb> target)
{
    const int step = rows.count;
    if (has_fast_blocks(step, Alpha)) {
        average_blocks(rows, first, Alpha, target);
        return;
    }
    const auto columnsAtOnce = static_cast<std::size_t>(BlockWidth / step);
    while (!target.empty()) {
        const auto part = target.first(std::min(columnsAtOnce, target.size()));
        const int width = static_cast<int>(part.size()) * step;
        sums.read(first, width);
        fold_evenly(sums, step, part);
        first += width;
        target = target.subspan(part.size());
    }
}

template <AlphaChannel Alpha>
void average_with(const PageRows &rows, const ReducedColumns &columns, std::span<QRgb> target)
{
    const std::span<const PixelSpan> spans = columns.spans();
    const PixelSpan even = rows.count == columns.step() ? columns.even() : PixelSpan();
    BlockSums<Alpha> sums(rows);

    const auto averageAny = [&](int from, int end) {
        for (int next = from; from < end; from = next) {
            const int origin = spans[static_cast<std::size_t>(from)].first;
            while (next < end && spans[static_cast<std::size_t>(next)].end - origin <= BlockWidth)
                ++next;
            sums.read(origin, spans[static_cast<std::size_t>(next - 1)].end - origin);
            for (auto i = static_cast<std::size_t>(from); i < static_cast<std::size_t>(next); ++i)
                target[i] = folded(sums, spans[i], origin, rows.count);
        }
    };

    averageAny(0, even.first);
    if (even.count() > 0) {
        const auto from = static_cast<std::size_t>(even.first);
        average_evenly(sums, rows, spans[from].first, target.subspan(from, static_cast<std::size_t>(even.count())));
    }
    averageAny(even.end, static_cast<int>(spans.size()));
}

} // namespace

void average_words(const PageRows &rows, const ReducedColumns &columns, AlphaChannel alpha, std::span<QRgb> target)
{
    if (alpha == AlphaChannel::Ignored)
        average_with<AlphaChannel::Ignored>(rows, columns, target);
    else
        average_with<AlphaChannel::Multiplied>(rows, columns, target);
}
