#include "png_rows.h"

#include <QtEndian>

#include <algorithm>
#include <cstdlib>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace {

enum Filter { None, Sub, Up, Average, Paeth };

/// The neighbour that is nearest to left + above - corner: the one to the left at a tie, then the one above.
int nearest_neighbor(int left, int above, int corner)
{
    const int toLeft = std::abs(above - corner);
    const int toAbove = std::abs(left - corner);
    const int toCorner = std::abs(left + above - 2 * corner);
    if (toLeft <= toAbove && toLeft <= toCorner)
        return left;
    return toAbove <= toCorner ? above : corner;
}

#ifdef __SSE2__

using Bytes [[gnu::vector_size(16)]] = uchar;
using Words [[gnu::vector_size(16)]] = short;

Bytes as_bytes(__m128i vector)
{
    return reinterpret_cast<Bytes>(vector);
}

Words as_words(__m128i vector)
{
    return reinterpret_cast<Words>(vector);
}

__m128i sum_of_bytes(__m128i first, __m128i second)
{
    return reinterpret_cast<__m128i>(as_bytes(first) + as_bytes(second));
}

/// Loads, up to four, the bytes that are there.
__m128i pixel_at(const uchar *bytes, qsizetype left)
{
    int word = 0;
    std::memcpy(&word, bytes, left < qsizetype{sizeof word} ? static_cast<std::size_t>(left) : sizeof word);
    return _mm_cvtsi32_si128(word);
}

__m128i pixel_at(const uchar *bytes)
{
    int word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return _mm_cvtsi32_si128(word);
}

void put_pixel(uchar *bytes, __m128i pixel)
{
    const int word = _mm_cvtsi128_si32(pixel);
    std::memcpy(bytes, &word, sizeof word);
}

struct SubStep
{
    __m128i operator()(__m128i stored, __m128i left, __m128i /*above*/, __m128i /*corner*/) const
    {
        return sum_of_bytes(stored, left);
    }
};

struct AverageStep
{
    __m128i operator()(__m128i stored, __m128i left, __m128i above, __m128i /*corner*/) const
    {
        // The processor rounds up, the filter down.
        const __m128i odd = _mm_and_si128(_mm_xor_si128(left, above), _mm_set1_epi8(1));
        const Bytes average = as_bytes(_mm_avg_epu8(left, above)) - as_bytes(odd);
        return sum_of_bytes(stored, reinterpret_cast<__m128i>(average));
    }
};

Words absolute(Words words)
{
    const Words negative = -words;
    return words > negative ? words : negative;
}

Words either(Words isFirst, Words first, Words second)
{
    return (first & isFirst) | (second & ~isFirst);
}

/// All samples as words. The one to the left is what the next pixel waits for, so as little as can be depends on it.
struct PaethStep
{
    __m128i operator()(__m128i stored, __m128i left, __m128i above, __m128i corner) const
    {
        const Words toLeft = as_words(above) - as_words(corner);
        const Words toLeftSize = absolute(toLeft);
        const Words toAbove = as_words(left) - as_words(corner);
        const Words toAboveSize = absolute(toAbove);
        const Words toCornerSize = absolute(toLeft + toAbove);
        const Words other = either(toAboveSize > toCornerSize, as_words(corner), as_words(above));
        const Words isOther = (toLeftSize > toAboveSize) | (toLeftSize > toCornerSize);
        return sum_of_bytes(stored, reinterpret_cast<__m128i>(either(isOther, other, as_words(left))));
    }
};

/// Pixel by pixel, all bytes of one at a time. Each store reaches four bytes; the next one covers what is too much.
template <int PixelBytes, typename Step>
void undo_by_pixels(const uchar *stored, const uchar *above, uchar *row, qsizetype count, Step step)
{
    constexpr qsizetype reach = 4;
    __m128i left = _mm_setzero_si128();
    __m128i corner = _mm_setzero_si128();
    qsizetype at = 0;
    for (; at + reach <= count; at += PixelBytes) {
        const __m128i aboveNow = pixel_at(above + at);
        left = step(pixel_at(stored + at), left, aboveNow, corner);
        corner = aboveNow;
        put_pixel(row + at, left);
    }
    if (at < count)
        put_pixel(row + at, step(pixel_at(stored + at, count - at), left, pixel_at(above + at), corner));
}

__m128i widened(__m128i bytes)
{
    return _mm_unpacklo_epi8(bytes, _mm_setzero_si128());
}

/// The same with a step that works on words.
template <int PixelBytes, typename Step>
void undo_by_wide_pixels(const uchar *stored, const uchar *above, uchar *row, qsizetype count, Step step)
{
    constexpr qsizetype reach = 4;
    __m128i left = _mm_setzero_si128();
    __m128i corner = _mm_setzero_si128();
    const auto take = [&](__m128i storedNow, qsizetype at) {
        const __m128i aboveNow = widened(pixel_at(above + at));
        left = step(widened(storedNow), left, aboveNow, corner);
        corner = aboveNow;
        put_pixel(row + at, _mm_packus_epi16(left, left));
    };
    qsizetype at = 0;
    for (; at + reach <= count; at += PixelBytes)
        take(pixel_at(stored + at), at);
    if (at < count)
        take(pixel_at(stored + at, count - at), at);
}

template <int PixelBytes>
void undo_by_vectors(int filter, const uchar *stored, const uchar *above, uchar *row, qsizetype count)
{
    if (filter == Sub)
        undo_by_pixels<PixelBytes>(stored, above, row, count, SubStep());
    else if (filter == Average)
        undo_by_pixels<PixelBytes>(stored, above, row, count, AverageStep());
    else
        undo_by_wide_pixels<PixelBytes>(stored, above, row, count, PaethStep());
}

#endif

void add_rows(const uchar *stored, const uchar *above, uchar *row, qsizetype count)
{
    qsizetype at = 0;
#ifdef __SSE2__
    constexpr qsizetype step = sizeof(__m128i);
    for (; at + step <= count; at += step) {
        const __m128i sum = sum_of_bytes(_mm_loadu_si128(reinterpret_cast<const __m128i *>(stored + at)),
                                         _mm_loadu_si128(reinterpret_cast<const __m128i *>(above + at)));
        _mm_storeu_si128(reinterpret_cast<__m128i *>(row + at), sum);
    }
#endif
    for (; at < count; ++at)
        row[at] = static_cast<uchar>(stored[at] + above[at]);
}

} // namespace

void undo_png_filter(int filter, const uchar *stored, const uchar *above, uchar *row, qsizetype count, int pixelBytes)
{
    if (filter == None)
        std::memcpy(row, stored, static_cast<std::size_t>(count));
    else if (filter == Up)
        add_rows(stored, above, row, count);
#ifdef __SSE2__
    else if (pixelBytes == 3)
        undo_by_vectors<3>(filter, stored, above, row, count);
    else if (pixelBytes == 4)
        undo_by_vectors<4>(filter, stored, above, row, count);
#endif
    else
        plain_rows::undo_png_filter(filter, stored, above, row, count, pixelBytes);
}

void pack_rgba_row(const uchar *rgba, QRgb *words, int width)
{
    constexpr qsizetype pixelBytes = 4;
    for (int x = 0; x < width; ++x) {
        const auto stored = qFromLittleEndian<quint32>(rgba + x * pixelBytes);
        words[x] = (stored & 0xff00ff00U) | (stored & 0xffU) << 16 | (stored >> 16 & 0xffU);
    }
}

namespace plain_rows {

void undo_png_filter(int filter, const uchar *stored, const uchar *above, uchar *row, qsizetype count, int pixelBytes)
{
    const auto undo = [=](const auto &told) {
        const qsizetype first = std::min(count, qsizetype{pixelBytes});
        for (qsizetype at = 0; at < first; ++at)
            row[at] = static_cast<uchar>(stored[at] + told(0, above[at], 0));
        for (qsizetype at = first; at < count; ++at)
            row[at] = static_cast<uchar>(stored[at] + told(row[at - pixelBytes], above[at], above[at - pixelBytes]));
    };
    if (filter == Sub)
        undo([](int left, int /*up*/, int /*corner*/) { return left; });
    else if (filter == Up)
        undo([](int /*left*/, int up, int /*corner*/) { return up; });
    else if (filter == Average)
        undo([](int left, int up, int /*corner*/) { return (left + up) / 2; });
    else if (filter == Paeth)
        undo(nearest_neighbor);
    else
        undo([](int /*left*/, int /*up*/, int /*corner*/) { return 0; });
}

} // namespace plain_rows
