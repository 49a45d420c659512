#include "page_depth.h"

#include "page_buffers.h"
#include "page_colors.h"
#include "page_dither.h"
#include "two_halves.h"

#include <QList>

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr QRgb White = 0xffffffff;
constexpr QRgb Black = 0xff000000;

bool is_black(QRgb color)
{
    constexpr int LowestWhiteSum = 387; // an average of 129
    return qRed(color) + qGreen(color) + qBlue(color) < LowestWhiteSum;
}

bool is_bit_set(unsigned byte, int column, QImage::Format format)
{
    return (byte >> (format == QImage::Format_Mono ? 7 - column : column) & 1U) != 0;
}

/// Eight words for each byte of a 1-bit page.
using EightWords = std::array<QRgb, 8>;
using WordTable = std::array<EightWords, 256>;

WordTable words_of_bytes(const QImage &page)
{
    const std::array<QRgb, 2> colors = two_colors(page);
    WordTable table{};
    for (unsigned byte = 0; byte < table.size(); ++byte) {
        for (int column = 0; column < 8; ++column)
            table[byte][static_cast<std::size_t>(column)] =
                colors[is_bit_set(byte, column, page.format()) ? 1 : 0] | Black;
    }
    return table;
}

/// The page in RGB32, from depth 1.
QImage widened(const QImage &page)
{
    QImage result = new_page_like(page, page.size(), QImage::Format_RGB32);
    if (result.isNull())
        return result;
    const WordTable table = words_of_bytes(page);
    uchar *const lines = result.bits();
    const int wholeBytes = page.width() / 8;
    constexpr std::size_t worthwhilePixels = 100'000;
    in_two_halves(static_cast<std::size_t>(page.height()), worthwhilePixels / static_cast<std::size_t>(page.width()),
                  [&](std::size_t begin, std::size_t end) {
                      for (int y = static_cast<int>(begin); y < static_cast<int>(end); ++y) {
                          const uchar *const bytes = page.constScanLine(y);
                          auto *words = reinterpret_cast<QRgb *>(lines + y * result.bytesPerLine());
                          for (int i = 0; i < wholeBytes; ++i, words += 8)
                              std::ranges::copy(table[bytes[i]], words);
                          if (page.width() % 8 != 0)
                              std::copy_n(table[bytes[wholeBytes]].begin(), page.width() % 8, words);
                      }
                  });
    return result;
}

/// One byte of black and white for each of a 1-bit page.
using ByteTable = std::array<uchar, 256>;

ByteTable mono_bytes(const QImage &page)
{
    const std::array<QRgb, 2> colors = two_colors(page);
    ByteTable table{};
    for (unsigned byte = 0; byte < table.size(); ++byte) {
        unsigned bits = 0;
        for (int column = 0; column < 8; ++column)
            bits = bits << 1 | unsigned{is_black(colors[is_bit_set(byte, column, page.format()) ? 1 : 0])};
        table[byte] = static_cast<uchar>(bits);
    }
    return table;
}

void bits_to_mono(const QImage &page, QImage &mono)
{
    const int byteCount = (page.width() + 7) / 8;
    const auto mapRows = [&](const auto &map) {
        for (int y = 0; y < page.height(); ++y) {
            const uchar *const from = page.constScanLine(y);
            std::transform(from, from + byteCount, mono.scanLine(y), map);
        }
    };
    if (page.format() == QImage::Format_Mono) {
        // The bits keep their places, and many bytes are mapped at once.
        const auto [zero, one] = two_colors(page);
        const unsigned ofZeros = is_black(zero) ? 0xffU : 0U;
        const unsigned ofOnes = is_black(one) ? 0xffU : 0U;
        mapRows([ofZeros, ofOnes](uchar byte) { return static_cast<uchar>((ofOnes & byte) | (ofZeros & ~byte)); });
    } else {
        const ByteTable table = mono_bytes(page);
        mapRows([&table](uchar byte) { return table[byte]; });
    }
}

void words_to_mono(const QImage &page, QImage &mono)
{
    for (int y = 0; y < page.height(); ++y) {
        const auto *const words = reinterpret_cast<const QRgb *>(page.constScanLine(y));
        uchar *const bytes = mono.scanLine(y);
        for (int x = 0; x < page.width(); x += 8) {
            const int count = std::min(8, page.width() - x);
            unsigned bits = 0;
            for (int i = 0; i < count; ++i)
                bits |= unsigned{is_black(words[x + i])} << (7 - i);
            bytes[x / 8] = static_cast<uchar>(bits);
        }
    }
}

} // namespace

std::array<QRgb, 2> two_colors(const QImage &page)
{
    return {page.colorCount() > 0 ? page.color(0) : Black, page.colorCount() > 1 ? page.color(1) : White};
}

QImage converted_to_depth(const QImage &page, int depth)
{
    if (page.depth() == depth)
        return page;
    switch (depth) {
    case 1:
        return page.depth() == 32 ? dithered_page(page, QImage::Format_MonoLSB)
                                  : adopt_page(page.convertToFormat(QImage::Format_MonoLSB));
    case 8:
        return page.format() == QImage::Format_RGB32 ? indexed_page(page)
                                                     : adopt_page(page.convertToFormat(QImage::Format_Indexed8));
    case 32:
        return page.depth() == 1 ? widened(page) : adopt_page(page.convertToFormat(QImage::Format_RGB32));
    default:
        return {};
    }
}

QImage toMono(const QImage &page)
{
    QImage mono = new_page_like(page, page.size(), QImage::Format_Mono);
    if (mono.isNull())
        return mono;
    mono.setColorTable({White, Black});
    if (page.depth() == 1)
        bits_to_mono(page, mono);
    else
        words_to_mono(page, mono);
    return mono;
}
