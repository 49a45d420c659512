#include "rgb_rows.h"

#ifdef __x86_64__
#include <tmmintrin.h>
#endif

namespace {

constexpr int RgbBytes = 3;

#ifdef __x86_64__

// Four pixels a step. A step touches sixteen bytes of the row but means twelve of them, so the loops end
// where the rest of the row would not cover the four.
constexpr int StepPixels = 4;
constexpr int StepReach = 6;

bool has_byte_shuffle()
{
    static const bool answer = __builtin_cpu_supports("ssse3");
    return answer;
}

__attribute__((target("ssse3"))) void expand_by_shuffle(const uchar *rgb, QRgb *words, int width)
{
    const __m128i order = _mm_setr_epi8(2, 1, 0, -1, 5, 4, 3, -1, 8, 7, 6, -1, 11, 10, 9, -1);
    const __m128i opaque = _mm_set1_epi32(static_cast<int>(0xff000000U));
    int x = 0;
    for (; x + StepReach <= width; x += StepPixels) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(rgb + x * qsizetype{RgbBytes}));
        const __m128i pixels = _mm_or_si128(_mm_shuffle_epi8(bytes, order), opaque);
        _mm_storeu_si128(reinterpret_cast<__m128i *>(words + x), pixels);
    }
    plain_rows::expand(rgb + x * qsizetype{RgbBytes}, words + x, width - x);
}

__attribute__((target("ssse3"))) void pack_by_shuffle(const QRgb *words, uchar *rgb, int width)
{
    const __m128i order = _mm_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1);
    int x = 0;
    for (; x + StepReach <= width; x += StepPixels) {
        const __m128i pixels = _mm_loadu_si128(reinterpret_cast<const __m128i *>(words + x));
        const __m128i bytes = _mm_shuffle_epi8(pixels, order);
        _mm_storeu_si128(reinterpret_cast<__m128i *>(rgb + x * qsizetype{RgbBytes}), bytes);
    }
    plain_rows::pack(words + x, rgb + x * qsizetype{RgbBytes}, width - x);
}

#endif

} // namespace

void expand_rgb_row(const uchar *rgb, QRgb *words, int width)
{
#ifdef __x86_64__
    if (has_byte_shuffle()) {
        expand_by_shuffle(rgb, words, width);
        return;
    }
#endif
    plain_rows::expand(rgb, words, width);
}

void pack_rgb_row(const QRgb *words, uchar *rgb, int width)
{
#ifdef __x86_64__
    if (has_byte_shuffle()) {
        pack_by_shuffle(words, rgb, width);
        return;
    }
#endif
    plain_rows::pack(words, rgb, width);
}

namespace plain_rows {

void expand(const uchar *rgb, QRgb *words, int width)
{
    for (int x = 0; x < width; ++x, rgb += RgbBytes)
        words[x] = qRgb(rgb[0], rgb[1], rgb[2]);
}

void pack(const QRgb *words, uchar *rgb, int width)
{
    for (int x = 0; x < width; ++x, rgb += RgbBytes) {
        rgb[0] = static_cast<uchar>(qRed(words[x]));
        rgb[1] = static_cast<uchar>(qGreen(words[x]));
        rgb[2] = static_cast<uchar>(qBlue(words[x]));
    }
}

} // namespace plain_rows
