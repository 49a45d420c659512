#include "page_dither.h"

#include "page_buffers.h"
#include "PlainSemaphore.h"

#include <QList>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <future>
#include <span>
#include <vector>

#if defined(__x86_64__)
#include <tmmintrin.h>
#endif

#if defined(__x86_64__)

namespace {

// Eight lines are worked on at once, each in a lane of a vector and three pixels behind the line above it. What the line
// above has for a pixel is there behind two, so with three nothing but the pixel before has to be waited for.
constexpr int Lanes = 8;
constexpr int Lag = 3;
constexpr short White = 255; ///< taken off all levels, so that for a white pixel the rest is its error
constexpr short HighestBlack = 127 - White;
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

/// 0 to 255 of eight pixels, as qGray() weighs them.
[[gnu::target("ssse3")]] Lines grays_of_eight(const QRgb *words)
{
    const __m128i weights = _mm_set1_epi32(11 << 16 | 16 << 8 | 5);
    const __m128i left = _mm_loadu_si128(reinterpret_cast<const __m128i *>(words));
    const __m128i right = _mm_loadu_si128(reinterpret_cast<const __m128i *>(words + 4));
    return lines_of(_mm_hadd_epi16(_mm_maddubs_epi16(left, weights), _mm_maddubs_epi16(right, weights))) >> 5;
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

/// What the last pixels of all lines have for others.
struct Errors
{
    Lines toNext{}; ///< 7 sixteenths of the pixel before
    Lines below{}; ///< what has come together for a pixel of the line below each one
    Lines belowNext{}; ///< the same for the pixel after that
    Lines twoOfThree{}; ///< for the second one after that, which waits for its third part
    Lines oneOfThree{}; ///< for the third one

    [[gnu::target("ssse3")]] void add(Lines error)
    {
        toNext = sixteenths(error, 7);
        const Lines toBelow = sixteenths(error, 5);
        const Lines toBelowLeft = sixteenths(error, 3);
        below = belowNext;
        belowNext = twoOfThree + toBelowLeft;
        twoOfThree = oneOfThree + toBelow;
        oneOfThree = error - (toNext + toBelow + toBelowLeft);
    }

private:
    /// Rounded to the nearest number.
    [[gnu::target("ssse3")]] static Lines sixteenths(Lines error, int count)
    {
        const auto factor = static_cast<short>(count << 11); // the product is divided by 2 to the power of 15
        return lines_of(_mm_mulhrs_epi16(bits_of(error), _mm_set1_epi16(factor)));
    }
};

/// The pixels of eight lines in the order in which they are worked on. At a step the line i is at the pixel
/// step - Lag * i, which may lie outside the page.
class Band
{
public:
    explicit Band(int pageWidth) : width(pageWidth), grays(static_cast<std::size_t>(width) + Lead + Lanes) { }

    /// @param lineCount  fewer than eight at the end of the page
    [[gnu::target("ssse3")]] void read(const QImage &page, int top, int lineCount)
    {
        std::array<const QRgb *, Lanes> lines{};
        for (int i = 0; i < Lanes; ++i) { // whatever where there are fewer: nothing comes after it
            const int y = top + (i < lineCount ? i : 0);
            lines.at(static_cast<std::size_t>(i)) = reinterpret_cast<const QRgb *>(page.constScanLine(y));
        }
        for (int step = 0; step < width + Lead; step += Lanes) {
            Block block;
            for (const QRgb *const line : lines)
                __builtin_prefetch(line + step + StepsAhead);
            for (int i = 0; i < Lanes; ++i)
                block[static_cast<std::size_t>(i)] = graysOfLine(lines[static_cast<std::size_t>(i)], step - Lag * i);
            std::ranges::copy(transposed(block), grays.begin() + step);
        }
    }

    [[nodiscard]] std::span<Lines> steps() { return std::span(grays).first(static_cast<std::size_t>(width) + Lead); }

private:
    static constexpr int StepsAhead = 256; ///< whose pixels are asked of the memory; by itself it is too late

    [[gnu::target("ssse3")]] Lines graysOfLine(const QRgb *line, int x) const
    {
        if (x >= 0 && x + Lanes <= width)
            return grays_of_eight(line + x) - White;
        Lines outermost{};
        for (int i = std::max(0, -x); i < std::min(Lanes, width - x); ++i)
            outermost[i] = static_cast<short>(qGray(line[x + i]) - White);
        return outermost;
    }

    int width;
    std::vector<Lines> grays; ///< by steps
};

/// Works through a page from band to band.
class Diffusion
{
public:
    explicit Diffusion(int pageWidth) :
        width(pageWidth),
        below(static_cast<std::size_t>(width) + Lead),
        whites(static_cast<std::size_t>(width) + Lead + sizeof(Lines))
    {
    }

    [[gnu::target("ssse3")]] void diffuse(Band &band)
    {
        const std::span<Lines> steps = band.steps();
        for (int x = 0; x < width; ++x) // all 0 for the first band
            steps[static_cast<std::size_t>(x)][0] += below[static_cast<std::size_t>(x) + Lead].back();
        Errors errors;
        const int inner = std::max(width, Lead); // from where on lines leave the page
        const auto masked = [this](int step) { return inside(step); };
        diffuseSteps(steps, 0, Lead, errors, masked);
        diffuseSteps(steps, Lead, inner, errors, [](int) { return ~Lines{}; });
        diffuseSteps(steps, inner, width + Lead, errors, masked);
    }

    /// @param reversed  whether the leftmost pixel is the lowest bit
    void writeLine(int i, uchar *bytes, bool reversed) const
    {
        const uchar *const from = whites.data() + std::ptrdiff_t{Lag} * i;
        const __m128i toHighest = _mm_cvtsi32_si128(Lanes - 1 - i);
        for (int x = 0; x < width; x += 16) {
            const __m128i sixteen = _mm_loadu_si128(reinterpret_cast<const __m128i *>(from + x));
            const auto bits = static_cast<unsigned>(_mm_movemask_epi8(_mm_sll_epi16(sixteen, toHighest)));
            for (int byte = 0; byte < 2 && x + 8 * byte < width; ++byte)
                *bytes++ = inOrder(~bits >> 8 * byte & lowBits(width - x - 8 * byte), reversed);
        }
    }

private:
    /// @param maskOf  all bits set for the lines that are on the page at a step
    template <typename MaskOf>
    [[gnu::target("ssse3")]] void diffuseSteps(std::span<const Lines> steps, int begin, int end, Errors &errors,
                                               const MaskOf &maskOf)
    {
        // Copies, as what is written might be anything else to the compiler.
        Errors latest = errors;
        auto *const handed = below.data();
        const Lines most = highestBlack; // known to compilers, it makes them compare in two steps
        uchar *const bits = whites.data();
        for (int step = begin; step < end; ++step) {
            const __m128i given = bits_of(latest.below);
            _mm_storeh_pi(reinterpret_cast<__m64 *>(handed[step].data()), _mm_castsi128_ps(given));
            const Lines received = lines_of(_mm_slli_si128(given, sizeof(short))); // to the line that it is for
            const Lines value = steps[static_cast<std::size_t>(step)] + received + latest.toNext; // less 255
            const Lines isWhite = value > most;
            bits[step] = static_cast<uchar>(_mm_movemask_epi8(_mm_packs_epi16(bits_of(isWhite), _mm_setzero_si128())));
            latest.add((value + (~isWhite & 255)) & maskOf(step));
        }
        errors = latest;
    }

    [[nodiscard]] Lines inside(int step) const
    {
        Lines mask{};
        for (int i = 0; i < Lanes; ++i) {
            const int x = step - Lag * i;
            mask[i] = x >= 0 && x < width ? short{-1} : short{0};
        }
        return mask;
    }

    static unsigned lowBits(int count) { return count < 8 ? (1U << count) - 1 : 0xffU; }

    static uchar inOrder(unsigned byte, bool reversed)
    {
        if (reversed)
            return static_cast<uchar>(byte);
        byte = (byte & 0xf0U) >> 4U | (byte & 0x0fU) << 4U;
        byte = (byte & 0xccU) >> 2U | (byte & 0x33U) << 2U;
        return static_cast<uchar>((byte & 0xaaU) >> 1U | (byte & 0x55U) << 1U);
    }

    int width;
    /// What a band has for the first line of the next one, by steps: its last lanes, of which the very last counts.
    std::vector<std::array<short, Lanes / 2>> below;
    Lines highestBlack = Lines{} + HighestBlack;
    std::vector<uchar> whites; ///< by steps, a bit for each line
};

/// The bands of a page, read ahead on another thread where that is worth it. Each is asked for once, from the top on.
class BandReader
{
public:
    explicit BandReader(const QImage &source) :
        page(source),
        bandCount((source.height() + Lanes - 1) / Lanes),
        bands(isLarge(source) ? BandsAhead : 1, Band(source.width()))
    {
        if (isLarge(page))
            reading = std::async(std::launch::async | std::launch::deferred, [this] { readAll(); });
        // Where no thread is to be had, each is read when it is asked for.
        isAhead = isLarge(page) && reading.wait_for(std::chrono::seconds(0)) != std::future_status::deferred;
    }
    ~BandReader()
    {
        if (isAhead)
            reading.wait();
    }
    Q_DISABLE_COPY_MOVE(BandReader)

    [[nodiscard]] int count() const { return bandCount; }
    [[nodiscard]] int lineCount(int number) const { return std::min(Lanes, page.height() - number * Lanes); }

    [[nodiscard]] Band &take(int number)
    {
        if (isAhead)
            full.acquire();
        else
            read(number);
        return bandOf(number);
    }
    /// The one that was taken last is not needed any more.
    void giveBack()
    {
        if (isAhead)
            empty.release();
    }

private:
    static constexpr int BandsAhead = 8;

    static bool isLarge(const QImage &page)
    {
        constexpr qsizetype worthwhilePixels = 200'000;
        return qsizetype{page.width()} * page.height() >= worthwhilePixels;
    }

    [[nodiscard]] Band &bandOf(int number) { return bands[static_cast<std::size_t>(number) % bands.size()]; }
    void read(int number) { bandOf(number).read(page, number * Lanes, lineCount(number)); }

    void readAll()
    {
        for (int number = 0; number < bandCount; ++number) {
            empty.acquire();
            read(number);
            full.release();
        }
    }

    const QImage &page;
    int bandCount;
    std::vector<Band> bands;
    PlainSemaphore empty{BandsAhead};
    PlainSemaphore full{0};
    std::future<void> reading;
    bool isAhead;
};

QImage dithered_by_lanes(const QImage &page, QImage::Format format)
{
    QImage result = new_page_like(page, page.size(), format);
    if (result.isNull())
        return result;
    result.setColorTable({0xffffffff, 0xff000000});
    const bool isReversed = format == QImage::Format_MonoLSB;
    Diffusion diffusion(page.width());
    BandReader bands(page);
    for (int number = 0; number < bands.count(); ++number) {
        diffusion.diffuse(bands.take(number));
        bands.giveBack();
        for (int i = 0; i < bands.lineCount(number); ++i)
            diffusion.writeLine(i, result.scanLine(number * Lanes + i), isReversed);
    }
    return result;
}

} // namespace

#endif

QImage dithered_page(const QImage &page, QImage::Format format)
{
#if defined(__x86_64__)
    if (__builtin_cpu_supports("ssse3"))
        return dithered_by_lanes(page, format);
#endif
    return adopt_page(page.convertToFormat(format));
}
