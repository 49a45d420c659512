#include "page_turns.h"

#include "page_buffers.h"
#include "two_halves.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

constexpr qsizetype WorthwhileBytes = qsizetype{512} * 1024; ///< of a page that is turned on two threads

template <typename Pixel> const Pixel *pixel_line(const QImage &image, int y)
{
    return reinterpret_cast<const Pixel *>(image.constScanLine(y));
}

template <typename Pixel> Pixel *pixel_line(QImage &image, int y)
{
    return reinterpret_cast<Pixel *>(image.scanLine(y));
}

/// Where the pixels of a turned page come from: the first one, and how far it is from there to the next column
/// and the next line of the result, in pixels of the source.
template <typename Pixel> struct TurnedSource
{
    TurnedSource(const QImage &source, QuarterTurn turn)
    {
        const qsizetype line = source.bytesPerLine() / qsizetype{sizeof(Pixel)};
        const auto *const bits = reinterpret_cast<const Pixel *>(source.constBits());
        const bool isClockwise = turn == QuarterTurn::Clockwise;
        first = isClockwise ? bits + (source.height() - 1) * line : bits + source.width() - 1;
        toNextColumn = isClockwise ? -line : line;
        toNextLine = isClockwise ? 1 : -1;
    }

    const Pixel *first = nullptr;
    qsizetype toNextColumn = 0;
    qsizetype toNextLine = 0;
};

template <typename Pixel> void turn_pixels(const QImage &source, QImage &result, QuarterTurn turn)
{
    constexpr int TileSide = 128; // lines and columns of a tile fit into the cache together
    const TurnedSource<Pixel> from(source, turn);
    auto *const to = reinterpret_cast<Pixel *>(result.bits());
    const qsizetype line = result.bytesPerLine() / qsizetype{sizeof(Pixel)};
    const auto turnTile = [&](int left, int top) {
        const int right = std::min(left + TileSide, result.width());
        const int bottom = std::min(top + TileSide, result.height());
        for (int y = top; y < bottom; ++y) {
            const Pixel *const pixels = from.first + y * from.toNextLine;
            for (int x = left; x < right; ++x)
                to[y * line + x] = pixels[x * from.toNextColumn];
        }
    };
    const int rowsOfTiles = (result.height() + TileSide - 1) / TileSide;
    const std::size_t worthwhile =
        source.sizeInBytes() < WorthwhileBytes ? static_cast<std::size_t>(rowsOfTiles) + 1 : 0;
    in_two_halves(static_cast<std::size_t>(rowsOfTiles), worthwhile, [&](std::size_t begin, std::size_t end) {
        for (int row = static_cast<int>(begin); row < static_cast<int>(end); ++row) {
            for (int left = 0; left < result.width(); left += TileSide)
                turnTile(left, row * TileSide);
        }
    });
}

template <typename Pixel> void mirror_pixels(const QImage &source, QImage &result, bool horizontally, bool vertically)
{
    const int width = source.width();
    for (int y = 0; y < source.height(); ++y) {
        const auto *const from = pixel_line<Pixel>(source, vertically ? source.height() - 1 - y : y);
        auto *const to = pixel_line<Pixel>(result, y);
        if (horizontally)
            std::reverse_copy(from, from + width, to);
        else
            std::copy_n(from, width, to);
    }
}

/// The bits of each byte from the other end on.
std::uint64_t reversed_in_bytes(std::uint64_t bits)
{
    bits = (bits >> 4 & 0x0f0f0f0f0f0f0f0f) | (bits & 0x0f0f0f0f0f0f0f0f) << 4;
    bits = (bits >> 2 & 0x3333333333333333) | (bits & 0x3333333333333333) << 2;
    return (bits >> 1 & 0x5555555555555555) | (bits & 0x5555555555555555) << 1;
}

/// Goes forward through the source, as that is what processors read ahead.
void reverse_line(const uchar *from, uchar *to, qsizetype count)
{
    constexpr qsizetype wordBytes = sizeof(std::uint64_t);
    qsizetype i = 0;
    for (; i + wordBytes <= count; i += wordBytes) {
        std::uint64_t word = 0;
        std::memcpy(&word, from + i, sizeof word);
        word = __builtin_bswap64(reversed_in_bytes(word));
        std::memcpy(to + count - i - wordBytes, &word, sizeof word);
    }
    for (; i < count; ++i)
        to[count - 1 - i] = static_cast<uchar>(reversed_in_bytes(from[i]));
}

/// Takes bits off the left end of a line. What follows it does not count.
template <QImage::Format Format> void drop_bits(uchar *line, qsizetype count, int bits)
{
    for (qsizetype i = 0; i + 1 < count; ++i) {
        line[i] = Format == QImage::Format_Mono ? static_cast<uchar>(line[i] << bits | line[i + 1] >> (8 - bits))
                                                : static_cast<uchar>(line[i] >> bits | line[i + 1] << (8 - bits));
    }
    uchar &last = line[count - 1];
    last = static_cast<uchar>(Format == QImage::Format_Mono ? last << bits : last >> bits);
}

void mirror_bits(const QImage &source, QImage &result, bool horizontally, bool vertically)
{
    const qsizetype byteCount = (qsizetype{source.width()} + 7) / 8;
    const int unused = static_cast<int>(8 * byteCount - source.width());
    for (int y = 0; y < source.height(); ++y) {
        const uchar *const from = source.constScanLine(vertically ? source.height() - 1 - y : y);
        uchar *const to = result.scanLine(y);
        if (!horizontally) {
            std::copy_n(from, byteCount, to);
            continue;
        }
        reverse_line(from, to, byteCount);
        if (unused > 0 && source.format() == QImage::Format_Mono)
            drop_bits<QImage::Format_Mono>(to, byteCount, unused);
        else if (unused > 0)
            drop_bits<QImage::Format_MonoLSB>(to, byteCount, unused);
    }
}

/// Eight lines of eight bits, the bit of line r and column c standing at 8 r + c or, with the high bit first, at
/// 63 less that. Exchanges lines and columns, which is the same for both.
std::uint64_t transposed(std::uint64_t bits)
{
    const auto exchange = [&bits](int distance, std::uint64_t mask) {
        const std::uint64_t differing = (bits ^ (bits >> distance)) & mask;
        bits ^= differing ^ (differing << distance);
    };
    exchange(7, 0x00aa00aa00aa00aa);
    exchange(14, 0x0000cccc0000cccc);
    exchange(28, 0x00000000f0f0f0f0);
    return bits;
}

/// Where line @p line of eight lies in their word. Known when compiling, as it is needed for every eight bits.
template <QImage::Format Format> constexpr int line_shift(int line)
{
    return 8 * (Format == QImage::Format_Mono ? 7 - line : line);
}

/// One byte of each of @p count lines, @p stride bytes apart; further lines are 0.
template <QImage::Format Format> std::uint64_t load_lines(const uchar *byte, qsizetype stride, int count)
{
    std::uint64_t bits = 0;
    for (int i = 0; i < count; ++i)
        bits |= std::uint64_t{byte[i * stride]} << line_shift<Format>(i);
    return bits;
}

template <QImage::Format Format> void store_lines(std::uint64_t bits, uchar *byte, qsizetype stride, int count)
{
    for (int i = 0; i < count; ++i)
        byte[i * stride] = static_cast<uchar>(bits >> line_shift<Format>(i));
}

/// Turns a 1-bit page by squares of eight by eight bits: eight lines of the source make one column of bytes.
template <QImage::Format Format> void turn_bits(const QImage &source, QImage &result, QuarterTurn turn)
{
    const bool isClockwise = turn == QuarterTurn::Clockwise;
    const qsizetype sourceLine = isClockwise ? -source.bytesPerLine() : source.bytesPerLine();
    const qsizetype resultLine = isClockwise ? result.bytesPerLine() : -result.bytesPerLine();
    const uchar *const from = source.constScanLine(isClockwise ? source.height() - 1 : 0);
    uchar *const to = result.scanLine(isClockwise ? 0 : result.height() - 1);
    const auto turnSquare = [&](int x, int y) {
        const int lines = std::min(8, source.height() - y);
        const int columns = std::min(8, source.width() - x);
        const uchar *const square = from + y * sourceLine + x / 8;
        uchar *const turnedSquare = to + x * resultLine + y / 8;
        if (lines == 8 && columns == 8) // a count that compilers know makes this much faster
            store_lines<Format>(transposed(load_lines<Format>(square, sourceLine, 8)), turnedSquare, resultLine, 8);
        else
            store_lines<Format>(transposed(load_lines<Format>(square, sourceLine, lines)), turnedSquare, resultLine,
                                columns);
    };
    constexpr int stripWidth = 256; // its lines of the result stay in the nearest cache until their next byte comes
    const auto strips = static_cast<std::size_t>((source.width() + stripWidth - 1) / stripWidth);
    const std::size_t worthwhile = source.sizeInBytes() < WorthwhileBytes ? strips + 1 : 0;
    in_two_halves(strips, worthwhile, [&](std::size_t begin, std::size_t end) {
        for (int left = static_cast<int>(begin) * stripWidth; left < static_cast<int>(end) * stripWidth;
             left += stripWidth) {
            const int right = std::min(left + stripWidth, source.width());
            for (int y = 0; y < source.height(); y += 8) {
                for (int x = left; x < right; x += 8)
                    turnSquare(x, y);
            }
        }
    });
}

} // namespace

QImage turned(const QImage &source, QuarterTurn turn)
{
    QImage result = new_page_like(source, source.size().transposed());
    if (result.isNull())
        return result;
    result.setDotsPerMeterX(source.dotsPerMeterY());
    result.setDotsPerMeterY(source.dotsPerMeterX());
    if (source.depth() == 32)
        turn_pixels<QRgb>(source, result, turn);
    else if (source.depth() == 8)
        turn_pixels<uchar>(source, result, turn);
    else if (source.format() == QImage::Format_Mono)
        turn_bits<QImage::Format_Mono>(source, result, turn);
    else
        turn_bits<QImage::Format_MonoLSB>(source, result, turn);
    return result;
}

QImage mirrored(const QImage &source, bool horizontally, bool vertically)
{
    QImage result = new_page_like(source, source.size());
    if (result.isNull())
        return result;
    if (source.depth() == 32)
        mirror_pixels<QRgb>(source, result, horizontally, vertically);
    else if (source.depth() == 8)
        mirror_pixels<uchar>(source, result, horizontally, vertically);
    else
        mirror_bits(source, result, horizontally, vertically);
    return result;
}

QImage inverted(const QImage &source)
{
    QImage result = new_page_like(source, source.size());
    for (int y = 0; y < result.height(); ++y) {
        const auto invert = [y, &source, &result]<typename Pixel>(Pixel mask) {
            const auto *const from = pixel_line<Pixel>(source, y);
            const qsizetype count = source.bytesPerLine() / qsizetype{sizeof(Pixel)};
            std::transform(from, from + count, pixel_line<Pixel>(result, y),
                           [mask](Pixel pixel) { return static_cast<Pixel>(pixel ^ mask); });
        };
        if (source.depth() == 32)
            invert(RGB_MASK);
        else
            invert(uchar{0xff});
    }
    return result;
}
