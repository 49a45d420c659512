#include "average_blocks.h"

#include <algorithm>
#include <array>
#include <bit>

#ifdef __SSE2__

#include <emmintrin.h>

namespace {

constexpr int WordsAtOnce = 4;
constexpr std::size_t MostBlocks = 1024; ///< whose sums stay in the processor's nearest cache

using Channels [[gnu::vector_size(16)]] = quint16; ///< of two words

/// Sums of the channels of a block: of its words at even places, then of those at odd ones. 16 bits have room for
/// 16 by 16 words in all.
struct BlockSum
{
    Channels channels;

    void add(__m128i words) { channels += firstTwo(words) + lastTwo(words); }

    void addMultiplied(__m128i words)
    {
        const __m128i alphas = _mm_srli_epi32(words, 24);
        if (isEach(alphas, 0xff))
            add(words);
        else if (!isEach(alphas, 0))
            channels += multiplied(firstTwo(words)) + multiplied(lastTwo(words));
    }

private:
    [[nodiscard]] static Channels firstTwo(__m128i words)
    {
        return reinterpret_cast<Channels>(_mm_unpacklo_epi8(words, _mm_setzero_si128()));
    }

    [[nodiscard]] static Channels lastTwo(__m128i words)
    {
        return reinterpret_cast<Channels>(_mm_unpackhi_epi8(words, _mm_setzero_si128()));
    }

    [[nodiscard]] static bool isEach(__m128i words, int value)
    {
        return _mm_movemask_epi8(_mm_cmpeq_epi32(words, _mm_set1_epi32(value))) == 0xffff;
    }

    /// The channels of two words, multiplied as qPremultiply() does it.
    [[nodiscard]] static Channels multiplied(Channels two)
    {
        constexpr int alpha = _MM_SHUFFLE(3, 3, 3, 3);
        constexpr Channels alphaItself = {0, 0, 0, 255, 0, 0, 0, 255}; // stays what it is
        const __m128i alphas = _mm_shufflehi_epi16(_mm_shufflelo_epi16(reinterpret_cast<__m128i>(two), alpha), alpha);
        const Channels products = two * (reinterpret_cast<Channels>(alphas) | alphaItself);
        return (products + (products >> 8) + 128) >> 8;
    }
};

// One line after the other, each from its begin to its end: so the memory is fastest. But small blocks go at once, as
// their sums would be fetched and stored too often.
template <int Step> constexpr int LinesAtOnce = Step == 4 ? 4 : 1;

/// Adds lines, LinesAtOnce from line @p y on, to the blocks that they go through.
template <int Step, AlphaChannel Alpha> void add_lines(const PageRows &rows, int y, int first, std::span<BlockSum> sums)
{
    std::array<const QRgb *, LinesAtOnce<Step>> lines;
    for (std::size_t i = 0; i < lines.size(); ++i)
        lines[i] = reinterpret_cast<const QRgb *>(rows.row(y + static_cast<int>(i))) + first;
    for (BlockSum &sum : sums) {
        BlockSum with = sum;
        for (const QRgb *&line : lines) {
            for (const QRgb *const end = line + Step; line < end; line += WordsAtOnce) {
                const __m128i words = _mm_loadu_si128(reinterpret_cast<const __m128i *>(line));
                if (Alpha == AlphaChannel::Multiplied)
                    with.addMultiplied(words);
                else
                    with.add(words);
            }
        }
        sum = with;
    }
}

template <int Step, AlphaChannel Alpha> QRgb average_of(const BlockSum &sum)
{
    constexpr QRgb known = Alpha == AlphaChannel::Ignored ? 0xff000000U : 0;
    constexpr quint16 half = Step * Step / 2;
    constexpr int shift = std::countr_zero(unsigned{Step * Step});
    const __m128i odd = _mm_srli_si128(reinterpret_cast<__m128i>(sum.channels), sizeof(quint64));
    const Channels total = sum.channels + reinterpret_cast<Channels>(odd);
    const auto mean = reinterpret_cast<__m128i>((total + half) >> shift);
    return static_cast<QRgb>(_mm_cvtsi128_si32(_mm_packus_epi16(mean, mean))) | known;
}

template <int Step, AlphaChannel Alpha> void average(const PageRows &rows, int first, std::span<QRgb> target)
{
    std::array<BlockSum, MostBlocks> room;
    while (!target.empty()) {
        const std::span sums = std::span(room).first(std::min(MostBlocks, target.size()));
        std::ranges::fill(sums, BlockSum{});
        for (int y = 0; y < Step; y += LinesAtOnce<Step>)
            add_lines<Step, Alpha>(rows, y, first, sums);
        std::ranges::transform(sums, target.begin(), average_of<Step, Alpha>);
        first += static_cast<int>(sums.size()) * Step;
        target = target.subspan(sums.size());
    }
}

template <AlphaChannel Alpha> void average(const PageRows &rows, int first, std::span<QRgb> target)
{
    if (rows.count == 4)
        average<4, Alpha>(rows, first, target);
    else if (rows.count == 8)
        average<8, Alpha>(rows, first, target);
    else
        average<16, Alpha>(rows, first, target);
}

} // namespace

bool has_fast_blocks(int step, AlphaChannel alpha)
{
    return step >= 8 || (step == 4 && alpha == AlphaChannel::Multiplied);
}

void average_blocks(const PageRows &rows, int first, AlphaChannel alpha, std::span<QRgb> target)
{
    if (alpha == AlphaChannel::Ignored)
        average<AlphaChannel::Ignored>(rows, first, target);
    else
        average<AlphaChannel::Multiplied>(rows, first, target);
}

#else

bool has_fast_blocks(int /*step*/, AlphaChannel /*alpha*/)
{
    return false;
}

void average_blocks(const PageRows & /*rows*/, int /*first*/, AlphaChannel /*alpha*/, std::span<QRgb> /*target*/) { }

#endif
