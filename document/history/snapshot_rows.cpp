#include "snapshot_rows.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace {

constexpr std::size_t BgrBytes = 3;

void pack_bgr_plainly(std::span<const QRgb> words, std::span<uchar> bytes)
{
    uchar *byte = bytes.data();
    for (const QRgb word : words) {
        *byte++ = static_cast<uchar>(word);
        *byte++ = static_cast<uchar>(word >> 8);
        *byte++ = static_cast<uchar>(word >> 16);
    }
}

void unpack_bgr_plainly(std::span<const uchar> bytes, std::span<QRgb> words)
{
    const uchar *byte = bytes.data();
    for (QRgb &word : words) {
        word = qRgb(byte[2], byte[1], byte[0]);
        byte += BgrBytes;
    }
}

#if defined(__x86_64__)

// Four pixels at a time by one shuffle of bytes: the plain loops take longer than the disk does. Both
// access 16 bytes of packed pixels where 12 count, so they leave the end of a row to the plain loops.
constexpr std::size_t PixelsAtATime = 4;
constexpr std::size_t PixelsTouched = 6; ///< covers the 16 bytes

bool has_byte_shuffle()
{
    static const bool answer = __builtin_cpu_supports("ssse3");
    return answer;
}

/// @return how many pixels were packed; the caller goes on from there
__attribute__((target("ssse3"))) std::size_t pack_bgr_by_four(std::span<const QRgb> words, uchar *bytes)
{
    const __m128i colours = _mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
    std::size_t i = 0;
    for (; i + PixelsTouched <= words.size(); i += PixelsAtATime) {
        const __m128i four = _mm_loadu_si128(reinterpret_cast<const __m128i *>(words.data() + i));
        _mm_storeu_si128(reinterpret_cast<__m128i *>(bytes + i * BgrBytes), _mm_shuffle_epi8(four, colours));
    }
    return i;
}

/// @return how many pixels were unpacked; the caller goes on from there
__attribute__((target("ssse3"))) std::size_t unpack_bgr_by_four(const uchar *bytes, std::span<QRgb> words)
{
    const __m128i places = _mm_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1);
    const __m128i opaque = _mm_set1_epi32(static_cast<int>(0xff000000U));
    std::size_t i = 0;
    for (; i + PixelsTouched <= words.size(); i += PixelsAtATime) {
        const __m128i packed = _mm_loadu_si128(reinterpret_cast<const __m128i *>(bytes + i * BgrBytes));
        const __m128i four = _mm_or_si128(_mm_shuffle_epi8(packed, places), opaque);
        _mm_storeu_si128(reinterpret_cast<__m128i *>(words.data() + i), four);
    }
    return i;
}

#else

bool has_byte_shuffle()
{
    return false;
}
std::size_t pack_bgr_by_four(std::span<const QRgb> /*words*/, uchar * /*bytes*/)
{
    return 0;
}
std::size_t unpack_bgr_by_four(const uchar * /*bytes*/, std::span<QRgb> /*words*/)
{
    return 0;
}

#endif

constexpr std::array<uchar, 256> reversedBytes = [] {
    std::array<uchar, 256> table{};
    for (unsigned byte = 0; byte < table.size(); ++byte) {
        for (unsigned bit = 0; bit < 8; ++bit) {
            if ((byte & (1U << bit)) != 0)
                table[byte] = static_cast<uchar>(table[byte] | (0x80U >> bit));
        }
    }
    return table;
}();

} // namespace

void pack_bgr(std::span<const QRgb> words, std::span<uchar> bytes)
{
    const std::size_t done = has_byte_shuffle() ? pack_bgr_by_four(words, bytes.data()) : 0;
    pack_bgr_plainly(words.subspan(done), bytes.subspan(done * BgrBytes));
    std::ranges::fill(bytes.subspan(words.size() * BgrBytes), uchar{0});
}

void unpack_bgr(std::span<const uchar> bytes, std::span<QRgb> words)
{
    const std::size_t done = has_byte_shuffle() ? unpack_bgr_by_four(bytes.data(), words) : 0;
    unpack_bgr_plainly(bytes.subspan(done * BgrBytes), words.subspan(done));
}

void pack_nibbles(std::span<const uchar> indices, std::span<uchar> bytes)
{
    const std::size_t pairs = indices.size() / 2;
    for (std::size_t i = 0; i < pairs; ++i)
        bytes[i] = static_cast<uchar>(indices[2 * i] << 4 | (indices[2 * i + 1] & 0x0f));
    std::ranges::fill(bytes.subspan(pairs), uchar{0});
    if (indices.size() % 2 != 0)
        bytes[pairs] = static_cast<uchar>(indices.back() << 4);
}

void unpack_nibbles(std::span<const uchar> bytes, std::span<uchar> indices)
{
    for (std::size_t i = 0; i < indices.size(); ++i)
        indices[i] = i % 2 == 0 ? static_cast<uchar>(bytes[i / 2] >> 4) : static_cast<uchar>(bytes[i / 2] & 0x0f);
}

void reverse_bits(std::span<const uchar> bytes, std::span<uchar> reversed)
{
    std::ranges::transform(bytes, reversed.begin(), [](uchar byte) { return reversedBytes[byte]; });
}

void flip_bits(std::span<const uchar> bytes, std::span<uchar> flipped)
{
    std::ranges::transform(bytes, flipped.begin(), [](uchar byte) { return static_cast<uchar>(~byte); });
}

void copy_bytes(const uchar *from, std::size_t /*width*/, std::span<uchar> to)
{
    std::memcpy(to.data(), from, to.size());
}

void copy_words(const uchar *from, std::size_t width, std::span<uchar> to)
{
    qToLittleEndian<QRgb>(from, static_cast<qsizetype>(width), to.data());
}
