#include "page_dither.h"

#include "page_buffers.h"

#include <QList>

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#if defined(__x86_64__)
#include <emmintrin.h>
#endif

#if defined(__x86_64__)

namespace {

// Eight lines are worked on at once, each in a lane of a vector and two pixels behind the line above it: by then all
// that the line above has for a pixel is there.
constexpr int Lanes = 8;
constexpr int Lag = 2;
constexpr int Lead = Lanes * Lag; ///< how far the first line is ahead of the one below the last

/// One number for each of the lines. Errors stay far below the 4600 that 16 bits have room for when taken seven times.
using Lines [[gnu::vector_size(16)]] = short;

Lines lines_of(__m128i bits)
{
    return reinterpret_cast<Lines>(bits);
}

__m128i bits_of(Lines lines)
{
    return reinterpret_cast<__m128i>(lines);
}

using Words [[gnu::vector_size(16)]] = int;

/// 0 to 255 of four pixels, as qGray() weighs them, in 32 bits each.
__m128i grays_of_four(const QRgb *words)
{
    const __m128i pixels = _mm_loadu_si128(reinterpret_cast<const __m128i *>(words));
    const __m128i blueAndRed =
        _mm_madd_epi16(_mm_and_si128(pixels, _mm_set1_epi32(0x00ff00ff)), _mm_set1_epi32(11 << 16 | 5));
    const __m128i green = _mm_srli_epi32(_mm_and_si128(pixels, _mm_set1_epi32(0x0000ff00)), 4); // 16 times
    const Words sum = reinterpret_cast<Words>(blueAndRed) + reinterpret_cast<Words>(green);
    return _mm_srli_epi32(reinterpret_cast<__m128i>(sum), 5);
}

using Block = std::array<Lines, Lanes>;

/// Eight lines of eight pixels to eight steps of eight lines.
Block transposed(const Block &in)
{
    Block pairs;
    Block fours;
    Block out;
    for (std::size_t i = 0; i < 8; i += 2) {
        pairs[i] = lines_of(_mm_unpacklo_epi16(bits_of(in[i]), bits_of(in[i + 1])));
        pairs[i + 1] = lines_of(_mm_unpackhi_epi16(bits_of(in[i]), bits_of(in[i + 1])));
    }
    for (const std::size_t i : {0U, 1U, 4U, 5U}) {
        const std::size_t to = i < 4 ? 2 * i : 2 * i - 4;
        fours[to] = lines_of(_mm_unpacklo_epi32(bits_of(pairs[i]), bits_of(pairs[i + 2])));
        fours[to + 1] = lines_of(_mm_unpackhi_epi32(bits_of(pairs[i]), bits_of(pairs[i + 2])));
    }
    for (std::size_t i = 0; i < 4; ++i) {
        out[2 * i] = lines_of(_mm_unpacklo_epi64(bits_of(fours[i]), bits_of(fours[i + 4])));
        out[2 * i + 1] = lines_of(_mm_unpackhi_epi64(bits_of(fours[i]), bits_of(fours[i + 4])));
    }
    return out;
}

/// The errors of the last pixels of all lines, as far as they still matter.
struct Errors
{
    Lines toNext{}; ///< 7 sixteenths of the pixel before
    Lines toBelowLeft{}; ///< 3 sixteenths of the pixel before
    std::array<Lines, 2> toBelow{}; ///< 5 sixteenths, the latest first
    std::array<Lines, 3> toBelowRight{}; ///< the rest, the latest first

    /// What has come together for a pixel of the line below each one.
    [[nodiscard]] Lines below() const { return toBelowLeft + toBelow[1] + toBelowRight[2]; }

    void add(Lines error)
    {
        toBelow[1] = toBelow[0];
        toBelowRight[2] = toBelowRight[1];
        toBelowRight[1] = toBelowRight[0];
        // Multiplied by shifts, which are sooner done.
        toNext = ((error << 3) - error + 8) >> 4;
        toBelow[0] = ((error << 2) + error + 8) >> 4;
        toBelowLeft = ((error << 1) + error + 8) >> 4;
        toBelowRight[0] = error - (toNext + toBelow[0] + toBelowLeft);
    }
};

/// Works through a page in bands of eight lines. At a step the line i of the band is at the pixel step - Lag * i,
/// which may lie outside the page.
class Diffusion
{
public:
    explicit Diffusion(int pageWidth) :
        width(pageWidth),
        grays(static_cast<std::size_t>(width) + Lead + Lanes),
        inside(static_cast<std::size_t>(width) + Lead),
        fromAbove(static_cast<std::size_t>(width) + Lead),
        blacks(static_cast<std::size_t>(width) + Lead + sizeof(Lines))
    {
        for (int step = 0; step < width + Lead; ++step) {
            for (int i = 0; i < Lanes; ++i) {
                const int x = step - Lag * i;
                inside[static_cast<std::size_t>(step)][i] = x >= 0 && x < width ? short{-1} : short{0};
            }
        }
    }

    /// @param count  lines that the band has, fewer than eight at the end of the page
    void readBand(const QImage &page, int top, int count)
    {
        for (int i = 0; i < count; ++i)
            lines.at(static_cast<std::size_t>(i)) = reinterpret_cast<const QRgb *>(page.constScanLine(top + i));
        for (int i = count; i < Lanes; ++i) // whatever: nothing comes after it
            lines.at(static_cast<std::size_t>(i)) = lines[0];
        for (int step = 0; step < width + Lead; step += Lanes) {
            Block block;
            for (int i = 0; i < Lanes; ++i)
                block[static_cast<std::size_t>(i)] = grays_of_line(lines[static_cast<std::size_t>(i)], step - Lag * i);
            std::ranges::copy(transposed(block), grays.begin() + step);
        }
    }

    void diffuseBand()
    {
        Errors errors;
        for (std::size_t step = 0; step < inside.size(); ++step) {
            const Lines below = errors.below();
            if (step >= Lead) // the place was read long ago
                fromAbove[step - Lead] = static_cast<short>(_mm_extract_epi16(bits_of(below), Lanes - 1));
            const __m128i shifted = _mm_slli_si128(bits_of(below), sizeof(short)); // to the line that it is for
            const Lines received = lines_of(_mm_insert_epi16(shifted, fromAbove[step], 0));
            const Lines value = grays[step] + received + errors.toNext;
            const Lines isBlack = value < 128;
            blacks[step] =
                static_cast<uchar>(_mm_movemask_epi8(_mm_packs_epi16(bits_of(isBlack), _mm_setzero_si128())));
            errors.add((value - (~isBlack & 255)) & inside[step]);
        }
        std::ranges::fill(fromAbove.begin() + width, fromAbove.end(), short{0});
    }

    /// @param reversed  whether the leftmost pixel is the lowest bit
    void writeLine(int i, uchar *bytes, bool reversed) const
    {
        const uchar *const from = blacks.data() + std::ptrdiff_t{Lag} * i;
        const __m128i toHighest = _mm_cvtsi32_si128(Lanes - 1 - i);
        for (int x = 0; x < width; x += 16) {
            const __m128i sixteen = _mm_loadu_si128(reinterpret_cast<const __m128i *>(from + x));
            const auto bits = static_cast<unsigned>(_mm_movemask_epi8(_mm_sll_epi16(sixteen, toHighest)));
            for (int byte = 0; byte < 2 && x + 8 * byte < width; ++byte)
                *bytes++ = in_order(bits >> 8 * byte & low_bits(width - x - 8 * byte), reversed);
        }
    }

private:
    Lines grays_of_line(const QRgb *line, int x) const
    {
        if (x >= 0 && x + Lanes <= width)
            return lines_of(_mm_packs_epi32(grays_of_four(line + x), grays_of_four(line + x + 4)));
        Lines outermost{};
        for (int i = std::max(0, -x); i < std::min(Lanes, width - x); ++i)
            outermost[i] = static_cast<short>(qGray(line[x + i]));
        return outermost;
    }

    static unsigned low_bits(int count) { return count < 8 ? (1U << count) - 1 : 0xffU; }

    static uchar in_order(unsigned byte, bool reversed)
    {
        if (reversed)
            return static_cast<uchar>(byte);
        byte = (byte & 0xf0U) >> 4U | (byte & 0x0fU) << 4U;
        byte = (byte & 0xccU) >> 2U | (byte & 0x33U) << 2U;
        return static_cast<uchar>((byte & 0xaaU) >> 1U | (byte & 0x55U) << 1U);
    }

    int width;
    std::array<const QRgb *, Lanes> lines{};
    std::vector<Lines> grays; ///< by steps
    std::vector<Lines> inside; ///< all bits set where a line's pixel is on the page
    std::vector<short> fromAbove; ///< what the band above has for the first line of this one
    std::vector<uchar> blacks; ///< by steps, a bit for each line
};

} // namespace

QImage dithered_page(const QImage &page, QImage::Format format)
{
    QImage result = new_page_like(page, page.size(), format);
    if (result.isNull())
        return result;
    result.setColorTable({0xffffffff, 0xff000000});
    Diffusion diffusion(page.width());
    for (int top = 0; top < page.height(); top += Lanes) {
        const int count = std::min(Lanes, page.height() - top);
        diffusion.readBand(page, top, count);
        diffusion.diffuseBand();
        for (int i = 0; i < count; ++i)
            diffusion.writeLine(i, result.scanLine(top + i), format == QImage::Format_MonoLSB);
    }
    return result;
}

#else

QImage dithered_page(const QImage &page, QImage::Format format)
{
    return adopt_page(page.convertToFormat(format));
}

#endif
