#include "bit_scale.h"

#include "scale_sides.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <optional>
#include <vector>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

#if defined(__x86_64__)

namespace {

constexpr quint32 LowestWhite = 129;
constexpr std::size_t WorthwhilePixels = 200'000; ///< of the larger page, for a second thread

using Levels = std::array<int, 2>;

/// Something about each bit of a byte, from the leftmost pixel on.
template <typename Value> using ByBytes = std::array<std::array<Value, 8>, 256>;

template <typename Value, typename ValueOf> ByBytes<Value> by_bytes(QImage::Format format, const ValueOf &valueOf)
{
    ByBytes<Value> table{};
    for (unsigned byte = 0; byte < table.size(); ++byte) {
        unsigned count = 0;
        for (unsigned i = 0; i < 8; ++i) {
            const unsigned bit = byte >> (format == QImage::Format_Mono ? 7 - i : i) & 1U;
            count += bit;
            table[byte][i] = valueOf(bit, count);
        }
    }
    return table;
}

/// Writes a line of black and white.
/// @param isBlack  asked for each column
template <typename IsBlack> void write_bits(uchar *bytes, std::size_t width, const IsBlack &isBlack)
{
    for (std::size_t x = 0; x < width; x += 8) {
        const std::size_t count = std::min<std::size_t>(8, width - x);
        unsigned bits = 0;
        for (std::size_t i = 0; i < count; ++i)
            bits |= unsigned{isBlack(x + i)} << (7 - i);
        *bytes++ = static_cast<uchar>(bits);
    }
}

std::size_t byte_count(const QImage &page)
{
    return (static_cast<std::size_t>(page.width()) + 7) / 8;
}

class BitEnlargement
{
public:
    BitEnlargement(const QImage &source, Levels levels, QImage &result) :
        page(source),
        lines(places_between(source.height(), result.height())),
        columns(places_between(source.width(), result.width())),
        levelsOf(by_bytes<uchar>(source.format(),
                                 [&](unsigned bit, unsigned) { return static_cast<uchar>(levels.at(bit)); })),
        bytes(result.bits()),
        lineBytes(result.bytesPerLine())
    {
        for (Buffers &one : buffers) {
            one.first.resize(byte_count(page) * 8);
            one.second.resize(byte_count(page) * 8);
            one.mixed.resize(byte_count(page) * 8 + 1); // one more for what is not there, and counts nothing
        }
    }

    void work(std::size_t begin, std::size_t end)
    {
        Buffers &own = buffers.at(begin == 0 ? 0 : 1); // one for each thread
        for (std::size_t y = begin; y < end; ++y) {
            mixLines(lines[y], own);
            const uchar *const mixed = own.mixed.data();
            const PlaceBetween *const places = columns.data();
            write_bits(bytes + static_cast<qsizetype>(y) * lineBytes, columns.size(), [mixed, places](std::size_t x) {
                const PlaceBetween place = places[x];
                const int left = mixed[place.first];
                return (256 * left + (mixed[place.first + 1] - left) * place.share) < 256 * int{LowestWhite};
            });
        }
    }

private:
    struct Buffers
    {
        std::vector<uchar> first; ///< levels of the two lines of the page
        std::vector<uchar> second;
        std::vector<uchar> mixed; ///< a line between them
    };

    void fetch(int y, std::vector<uchar> &line) const
    {
        const uchar *const from = page.constScanLine(y);
        const std::size_t byteCount = byte_count(page);
        for (std::size_t i = 0; i < byteCount; ++i)
            std::memcpy(line.data() + 8 * i, levelsOf[from[i]].data(), 8);
    }

    void mixLines(const PlaceBetween &place, Buffers &own) const
    {
        fetch(place.first, own.first);
        fetch(place.share > 0 ? place.first + 1 : place.first, own.second);
        const auto share = static_cast<quint16>(place.share);
        const auto otherShare = static_cast<quint16>(256 - share);
        const uchar *__restrict first = own.first.data();
        const uchar *__restrict second = own.second.data();
        uchar *__restrict mixed = own.mixed.data();
        const std::size_t count = own.first.size();
        for (std::size_t i = 0; i < count; ++i)
            mixed[i] = static_cast<uchar>(static_cast<quint16>(first[i] * otherShare + second[i] * share) >> 8);
    }

    const QImage &page;
    std::vector<PlaceBetween> lines;
    std::vector<PlaceBetween> columns;
    ByBytes<uchar> levelsOf;
    uchar *bytes;
    qsizetype lineBytes;
    std::array<Buffers, 2> buffers;
};

/// What is looked up for each pixel of the result: how many bits are set before and behind the first and the last one
/// that it covers, and their shares.
struct CountedColumns
{
    struct Places
    {
        int first;
        int last;
    };
    using Shares = std::array<short, 4>;

    static constexpr std::size_t AtATime = 4;

    /// Padded to whole groups by columns that count nothing.
    explicit CountedColumns(const CoveredSpans &columns)
    {
        for (const CoveredSpan &span : columns.spans) {
            places.push_back({.first = span.first, .last = span.first + span.count - 1});
            const auto inner = columns.innerShare;
            shares.push_back({static_cast<short>(-span.firstShare), static_cast<short>(span.firstShare - inner),
                              static_cast<short>(inner - span.lastShare), static_cast<short>(span.lastShare)});
        }
        while (places.size() % AtATime != 0) {
            places.push_back({});
            shares.push_back({});
        }
    }

    std::vector<Places> places;
    std::vector<Shares> shares;
};

/// The two colours along a line: the sum of the first one alone, and what each share of the second one adds.
struct LineLevels
{
    quint32 zero;
    quint32 rise; ///< or fall, as what the sum comes to be is not below 0
};

using Sums [[gnu::vector_size(16)]] = unsigned;

/// @return the four counts of each of two columns
__m128i counts_of_two(const quint16 *counts, const CountedColumns::Places *places)
{
    const auto pairAt = [counts](int place) {
        int pair = 0;
        std::memcpy(&pair, counts + place, sizeof pair);
        return pair;
    };
    return _mm_setr_epi32(pairAt(places[0].first), pairAt(places[0].last), pairAt(places[1].first),
                          pairAt(places[1].last));
}

/// Adds a line of the page: its sums along the line, cut by 4 bits, times its share.
/// @param counts  how many bits of the line are set before each of its pixels, and behind the last
/// @param totals  of the result's line, for the padded columns too
[[gnu::target("sse4.1")]] void add_line(const quint16 *counts, const CountedColumns &columns, LineLevels levels,
                                        quint32 lineShare, quint32 *totals)
{
    const auto *shares = reinterpret_cast<const __m128i *>(columns.shares.data());
    for (std::size_t x = 0; x < columns.places.size(); x += CountedColumns::AtATime, shares += 2) {
        const CountedColumns::Places *const places = columns.places.data() + x;
        const __m128i left = _mm_madd_epi16(counts_of_two(counts, places), _mm_loadu_si128(shares));
        const __m128i right = _mm_madd_epi16(counts_of_two(counts, places + 2), _mm_loadu_si128(shares + 1));
        const auto ones = reinterpret_cast<Sums>(_mm_hadd_epi32(left, right));
        const Sums sums = (ones * levels.rise + levels.zero) >> 4;
        auto *const four = reinterpret_cast<__m128i *>(totals + x);
        const Sums total = reinterpret_cast<Sums>(_mm_loadu_si128(four)) + sums * lineShare;
        _mm_storeu_si128(four, reinterpret_cast<__m128i>(total));
    }
}

class BitReduction
{
public:
    BitReduction(const QImage &source, Levels levels, QImage &result, const CoveredSpans &lineSpans,
                 const CoveredSpans &columnSpans) :
        page(source),
        lineLevels{.zero = static_cast<quint32>(levels[0] * CoveredSpans::WholeShare),
                   .rise = static_cast<quint32>(levels[1] - levels[0])},
        lines(lineSpans),
        columns(columnSpans),
        width(columnSpans.spans.size()),
        countsOf(
            by_bytes<quint16>(source.format(), [](unsigned, unsigned count) { return static_cast<quint16>(count); })),
        bytes(result.bits()),
        lineBytes(result.bytesPerLine())
    {
        for (Buffers &one : buffers) {
            one.counts.resize(byte_count(page) * 8 + 1);
            one.totals.resize(columns.places.size());
        }
    }

    void work(std::size_t begin, std::size_t end)
    {
        Buffers &own = buffers.at(begin == 0 ? 0 : 1); // one for each thread
        for (std::size_t y = begin; y < end; ++y) {
            const CoveredSpan &span = lines.spans[y];
            std::ranges::fill(own.totals, 0U);
            for (int i = 0; i < span.count; ++i) {
                count(span.first + i, own.counts);
                add_line(own.counts.data(), columns, lineLevels, static_cast<quint32>(lines.share(span, i)),
                         own.totals.data());
            }
            const quint32 *const totals = own.totals.data();
            write_bits(bytes + static_cast<qsizetype>(y) * lineBytes, width,
                       [totals](std::size_t x) { return totals[x] >> 24 < LowestWhite; });
        }
    }

private:
    struct Buffers
    {
        std::vector<quint16> counts;
        std::vector<quint32> totals; ///< of the line at work
    };

    void count(int y, std::vector<quint16> &counts) const
    {
        const uchar *const from = page.constScanLine(y);
        const std::size_t byteCount = byte_count(page);
        quint16 *to = counts.data() + 1;
        for (std::size_t i = 0; i < byteCount; ++i, to += 8) {
            const std::array<quint16, 8> &inByte = countsOf[from[i]];
            const quint16 before = to[-1];
            for (std::size_t bit = 0; bit < 8; ++bit)
                to[bit] = static_cast<quint16>(before + inByte[bit]);
        }
    }

    const QImage &page;
    LineLevels lineLevels;
    const CoveredSpans &lines;
    CountedColumns columns;
    std::size_t width; ///< of the result
    ByBytes<quint16> countsOf;
    uchar *bytes;
    qsizetype lineBytes;
    std::array<Buffers, 2> buffers;
};

} // namespace

void scale_bits(const QImage &page, std::array<int, 2> levels, QImage &result)
{
    if (result.width() >= page.width()) {
        scale_in_halves(page, result, WorthwhilePixels, BitEnlargement(page, levels, result));
        return;
    }
    const std::optional<CoveredSpans> lines = covered_spans(page.height(), result.height());
    const std::optional<CoveredSpans> columns = covered_spans(page.width(), result.width());
    if (lines && columns)
        scale_in_halves(page, result, WorthwhilePixels, BitReduction(page, levels, result, *lines, *columns));
}

#else

void scale_bits(const QImage & /*page*/, std::array<int, 2> /*levels*/, QImage & /*result*/) { }

#endif
