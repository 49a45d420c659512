#include "smooth_scale.h"

#include "scale_sides.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <vector>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

#if defined(__x86_64__)

namespace {

constexpr int ChannelCount = 4;
constexpr std::size_t WorthwhilePixels = 100'000; ///< of the larger page, for a second thread

const QRgb *words_of_line(const QImage &page, int y)
{
    return reinterpret_cast<const QRgb *>(page.constScanLine(y));
}

using Shorts [[gnu::vector_size(16)]] = short;
Shorts shorts_of(__m128i bits)
{
    return reinterpret_cast<Shorts>(bits);
}

__m128i bits_of(Shorts shorts)
{
    return reinterpret_cast<__m128i>(shorts);
}

/// Makes a page larger: first a line between two of the page, then the pixels between two of that line.
class Enlargement
{
public:
    Enlargement(const QImage &source, QImage &result) :
        page(source),
        lines(places_between(source.height(), result.height())),
        columns(places_between(source.width(), result.width())),
        shares(columns.size() * ChannelCount),
        bytes(result.bits()),
        lineBytes(result.bytesPerLine())
    {
        for (std::size_t i = 0; i < shares.size(); ++i)
            shares[i] = static_cast<short>(columns[i / ChannelCount].share * Fine);
        for (std::vector<short> &line : between) // one more for what is not there, and counts nothing
            line.resize((static_cast<std::size_t>(page.width()) + 1) * ChannelCount);
    }

    void work(std::size_t begin, std::size_t end)
    {
        std::vector<short> &line = between.at(begin == 0 ? 0 : 1); // one for each thread
        for (std::size_t y = begin; y < end; ++y) {
            mixLines(lines[y], line);
            mixColumns(line, reinterpret_cast<QRgb *>(bytes + static_cast<qsizetype>(y) * lineBytes));
        }
    }

private:
    /// Channels and shares are kept at 16 times their value, whose product then stands in the upper half of its word.
    static constexpr int Fine = 16;

    void mixLines(const PlaceBetween &place, std::vector<short> &line) const
    {
        const uchar *__restrict first = page.constScanLine(place.first);
        const uchar *__restrict second = place.share > 0 ? page.constScanLine(place.first + 1) : first;
        const auto share = static_cast<quint16>(place.share);
        const auto otherShare = static_cast<quint16>(256 - share);
        short *__restrict mixed = line.data();
        const qsizetype count = qsizetype{page.width()} * ChannelCount;
        for (qsizetype i = 0; i < count; ++i) {
            const auto sum = static_cast<quint16>(first[i] * otherShare + second[i] * share);
            mixed[i] = static_cast<short>(sum >> 4 & 0xff0);
        }
    }

    [[nodiscard]] __m128i twoPixels(const std::vector<short> &line, std::size_t x) const
    {
        const auto pairAt = [&](std::size_t column) {
            const auto first = static_cast<std::size_t>(columns[column].first);
            return _mm_loadu_si128(reinterpret_cast<const __m128i *>(line.data() + first * ChannelCount));
        };
        const __m128i one = pairAt(x);
        const __m128i other = pairAt(x + 1);
        const __m128i left = _mm_unpacklo_epi64(one, other);
        const __m128i difference = bits_of(shorts_of(_mm_unpackhi_epi64(one, other)) - shorts_of(left));
        const __m128i share = _mm_loadu_si128(reinterpret_cast<const __m128i *>(shares.data() + x * ChannelCount));
        return bits_of(shorts_of(_mm_srli_epi16(left, 4)) + shorts_of(_mm_mulhi_epi16(difference, share)));
    }

    void mixColumns(const std::vector<short> &line, QRgb *words) const
    {
        std::size_t x = 0;
        for (; x + 4 <= columns.size(); x += 4) {
            const __m128i four = _mm_packus_epi16(twoPixels(line, x), twoPixels(line, x + 2));
            _mm_storeu_si128(reinterpret_cast<__m128i *>(words + x), four);
        }
        for (; x < columns.size(); ++x) {
            const PlaceBetween &place = columns[x];
            const short *const channels = line.data() + static_cast<std::size_t>(place.first) * ChannelCount;
            words[x] = 0;
            for (int i = 0; i < ChannelCount; ++i) {
                const int mixed = (channels[i] * (256 - place.share) + channels[i + ChannelCount] * place.share) >> 12;
                words[x] |= static_cast<QRgb>(mixed) << (8 * i);
            }
        }
    }

    const QImage &page;
    std::vector<PlaceBetween> lines;
    std::vector<PlaceBetween> columns;
    std::vector<short> shares; ///< of the second pixel, for each channel
    uchar *bytes;
    qsizetype lineBytes;
    std::array<std::vector<short>, 2> between; ///< a line between two of the page
};

/// The pixels of a page that come together in a line of a smaller one.
struct CoveredLines
{
    const QRgb *words; ///< of the first line
    qsizetype length; ///< from a line to the next, in words
    std::span<const int> shares;
};

/// Shares of two neighbours in one word, the first one in its lower half.
constexpr int pair_of(int first, int second)
{
    return second << 16 | first;
}

/// An even number of columns that are worked on by pairs of pixels, the same number of pairs for each.
struct PairedColumns
{
    std::size_t pairCount;
    std::vector<int> firsts;
    std::vector<int> pairs; ///< padded by shares of 0
};

constexpr std::size_t WordsAhead = 512; ///< that are asked of the memory; by itself it is too late

using WideSums [[gnu::vector_size(32)]] = unsigned;

/// The sums of the toolkit: along each line, cut by 4 bits, and then over the lines. Two columns at a time.
template <std::size_t Pairs>
[[gnu::target("avx2")]] void reduce_pairs(const CoveredLines &lines, const PairedColumns &columns, QRgb *result)
{
    const std::size_t pairCount = Pairs > 0 ? Pairs : columns.pairCount;
    const __m128i byChannels = _mm_setr_epi8(0, 4, 1, 5, 2, 6, 3, 7, 8, 12, 9, 13, 10, 14, 11, 15);
    const __m128i lowBytes = _mm_setr_epi8(0, 4, 8, 12, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1);
    const __m128i opaque = _mm_set1_epi32(static_cast<int>(~RGB_MASK));
    const int *leftPairs = columns.pairs.data();
    for (std::size_t x = 0; x < columns.firsts.size(); x += 2) {
        const QRgb *left = lines.words + columns.firsts[x];
        const QRgb *right = lines.words + columns.firsts[x + 1];
        const int *const rightPairs = leftPairs + pairCount;
        WideSums total{};
        for (const int share : lines.shares) {
            __builtin_prefetch(left + WordsAhead);
            WideSums sum{};
            for (std::size_t i = 0; i < pairCount; ++i) {
                const __m128 two = _mm_loadl_pi(_mm_setzero_ps(), reinterpret_cast<const __m64 *>(left + 2 * i));
                const __m128 four = _mm_loadh_pi(two, reinterpret_cast<const __m64 *>(right + 2 * i));
                const __m256i pairs = _mm256_cvtepu8_epi16(_mm_shuffle_epi8(_mm_castps_si128(four), byChannels));
                const __m256i shares = _mm256_set_m128i(_mm_set1_epi32(rightPairs[i]), _mm_set1_epi32(leftPairs[i]));
                sum += reinterpret_cast<WideSums>(_mm256_madd_epi16(pairs, shares));
            }
            total += (sum >> 4) * static_cast<unsigned>(share);
            left += lines.length;
            right += lines.length;
        }
        leftPairs = rightPairs + pairCount;
        const auto bytes = reinterpret_cast<__m256i>(total >> 24);
        const __m128i leftWord = _mm_shuffle_epi8(_mm256_castsi256_si128(bytes), lowBytes);
        const __m128i rightWord = _mm_shuffle_epi8(_mm256_extracti128_si256(bytes, 1), lowBytes);
        const __m128i words = _mm_or_si128(_mm_unpacklo_epi32(leftWord, rightWord), opaque);
        _mm_storel_epi64(reinterpret_cast<__m128i *>(result + x), words);
    }
}

using PairReducer = void (*)(const CoveredLines &lines, const PairedColumns &columns, QRgb *result);

PairReducer pair_reducer(std::size_t pairCount)
{
    constexpr std::array<PairReducer, 4> reducers{reduce_pairs<0>, reduce_pairs<1>, reduce_pairs<2>, reduce_pairs<3>};
    return reducers.at(pairCount < reducers.size() ? pairCount : 0);
}

/// Makes a page smaller.
class Reduction
{
public:
    Reduction(const QImage &source, QImage &result, const CoveredSpans &lineSpans, const CoveredSpans &columnSpans) :
        page(source),
        lines(lineSpans),
        columns(columnSpans),
        bytes(result.bits()),
        lineBytes(result.bytesPerLine())
    {
        pairColumns();
        const auto most = std::ranges::max(lines.spans, {}, &CoveredSpan::count).count;
        for (auto &some : lineShares)
            some.resize(static_cast<std::size_t>(most));
    }

    void work(std::size_t begin, std::size_t end)
    {
        const PairReducer reduce = pair_reducer(paired.pairCount);
        auto &shares = lineShares.at(begin == 0 ? 0 : 1); // one for each thread
        for (std::size_t y = begin; y < end; ++y) {
            const CoveredSpan &span = lines.spans[y];
            for (int i = 0; i < span.count; ++i)
                shares[static_cast<std::size_t>(i)] = lines.share(span, i);
            const CoveredLines covered{
                .words = words_of_line(page, span.first),
                .length = page.bytesPerLine() / qsizetype{sizeof(QRgb)},
                .shares = std::span(shares).first(static_cast<std::size_t>(span.count)),
            };
            auto *const words = reinterpret_cast<QRgb *>(bytes + static_cast<qsizetype>(y) * lineBytes);
            reduce(covered, paired, words);
            for (std::size_t x = paired.firsts.size(); x < columns.spans.size(); ++x)
                words[x] = reduced(covered, columns.spans[x]);
        }
    }

private:
    /// Columns at the right end, from where pairs would reach beyond the page, are left out.
    void pairColumns()
    {
        const auto most = static_cast<std::size_t>(std::ranges::max(columns.spans, {}, &CoveredSpan::count).count);
        paired.pairCount = (most + 1) / 2;
        for (const CoveredSpan &span : columns.spans) {
            if (static_cast<std::size_t>(span.first) + 2 * paired.pairCount > static_cast<std::size_t>(page.width()))
                break;
            paired.firsts.push_back(span.first);
            const auto share = [&](std::size_t i) {
                return i < static_cast<std::size_t>(span.count) ? columns.share(span, static_cast<int>(i)) : 0;
            };
            for (std::size_t i = 0; i < paired.pairCount; ++i)
                paired.pairs.push_back(pair_of(share(2 * i), share(2 * i + 1)));
        }
        paired.firsts.resize(paired.firsts.size() / 2 * 2);
    }

    [[nodiscard]] QRgb reduced(const CoveredLines &covered, const CoveredSpan &span) const
    {
        std::array<quint32, 3> total{};
        const QRgb *words = covered.words + span.first;
        for (const int lineShare : covered.shares) {
            for (std::size_t channel = 0; channel < total.size(); ++channel) {
                quint32 sum = 0;
                for (int i = 0; i < span.count; ++i)
                    sum += (words[i] >> 8 * channel & 0xffU) * static_cast<quint32>(columns.share(span, i));
                total.at(channel) += (sum >> 4) * static_cast<quint32>(lineShare);
            }
            words += covered.length;
        }
        return qRgb(static_cast<int>(total[2] >> 24), static_cast<int>(total[1] >> 24),
                    static_cast<int>(total[0] >> 24));
    }

    const QImage &page;
    const CoveredSpans &lines;
    const CoveredSpans &columns;
    PairedColumns paired{};
    uchar *bytes;
    qsizetype lineBytes;
    std::array<std::vector<int>, 2> lineShares; ///< of the line at work
};

bool is_enlarged(QSize from, QSize to)
{
    return to.width() >= from.width() && to.height() >= from.height();
}

} // namespace

bool can_scale_words(QSize from, QSize to)
{
    const QSize longest = from.expandedTo(to);
    if (longest.width() > LongestScaledSide || longest.height() > LongestScaledSide)
        return false;
    if (is_enlarged(from, to))
        return true;
    return to.width() < from.width() && to.height() < from.height() && __builtin_cpu_supports("avx2")
        && covered_spans(from.width(), to.width()) && covered_spans(from.height(), to.height());
}

void scale_words(const QImage &page, QImage &result)
{
    if (is_enlarged(page.size(), result.size())) {
        scale_in_halves(page, result, WorthwhilePixels, Enlargement(page, result));
        return;
    }
    const std::optional<CoveredSpans> lines = covered_spans(page.height(), result.height());
    const std::optional<CoveredSpans> columns = covered_spans(page.width(), result.width());
    if (lines && columns)
        scale_in_halves(page, result, WorthwhilePixels, Reduction(page, result, *lines, *columns));
}

#else

bool can_scale_words(QSize /*from*/, QSize /*to*/)
{
    return false;
}

void scale_words(const QImage & /*page*/, QImage & /*result*/) { }

#endif
