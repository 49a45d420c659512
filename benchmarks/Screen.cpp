#include "Screen.h"

#include <QtEndian>

#include <array>
#include <cstdlib>

namespace {

// Far enough apart in a line to be cheap, close enough to meet the mark at its smallest.
constexpr int LineStep = 16;

// Noise and lossy compression move the colours of a mark a little.
bool is_near(QRgb pixel, QRgb colour)
{
    constexpr int tolerance = 60;
    return std::abs(qRed(pixel) - qRed(colour)) < tolerance && std::abs(qGreen(pixel) - qGreen(colour)) < tolerance
        && std::abs(qBlue(pixel) - qBlue(colour)) < tolerance;
}

int run_length(std::span<const QRgb> line, std::size_t start, QRgb colour)
{
    std::size_t end = start;
    while (end < line.size() && is_near(line[end], colour))
        ++end;
    return static_cast<int>(end - start);
}

bool starts_with_mark(std::span<const QRgb> line, Mark mark)
{
    constexpr std::size_t blurred = 3; // a reduced picture has mixed colours between two stripes
    const int width = run_length(line, 0, mark.first);
    if (width < LeastStripeWidth)
        return false;
    auto at = static_cast<std::size_t>(width);
    for (int i = 1; i < MarkStripes; ++i) {
        const QRgb colour = i % 2 == 0 ? mark.first : mark.second;
        for (std::size_t skipped = 0; skipped < blurred && at < line.size() && !is_near(line[at], colour); ++skipped)
            ++at;
        const int length = run_length(line, at, colour);
        const bool mayGoOn = i == MarkStripes - 1; // into paper of the same white
        if (length < width - 2 || (length > width + 2 && !mayGoOn))
            return false;
        at += static_cast<std::size_t>(length);
    }
    return true;
}

} // namespace

bool has_mark(std::span<const QRgb> line, Mark mark)
{
    bool wasFirst = false;
    for (std::size_t x = 0; x < line.size(); ++x) {
        const bool isFirst = is_near(line[x], mark.first);
        if (isFirst && !wasFirst && starts_with_mark(line.subspan(x), mark))
            return true;
        wasFirst = isFirst;
    }
    return false;
}

Screen::Screen(const QString &frameBuffer) : file(frameBuffer)
{
    if (!file.open(QIODevice::ReadOnly))
        return;
    const uchar *const map = file.map(0, file.size());
    if (!map)
        return;
    // The header of an XWD file: words of 32 bits, the high byte first. A table of colours follows it.
    const auto word = [map](int index) { return qFromBigEndian<qint32>(map + qsizetype{4} * index); };
    enum { HeaderSize = 0, PixelWidth = 4, PixelHeight = 5, BitsPerPixel = 11, BytesPerLine = 12, Colours = 19 };
    constexpr qsizetype colourSize = 12;
    if (word(BitsPerPixel) != 32)
        return;
    width = word(PixelWidth);
    height = word(PixelHeight);
    bytesPerLine = word(BytesPerLine);
    pixels = map + word(HeaderSize) + colourSize * word(Colours);
}

bool Screen::shows(Mark mark) const
{
    for (int y = 0; y < height; y += LineStep) {
        const auto *const line = reinterpret_cast<const QRgb *>(pixels + qsizetype{y} * bytesPerLine);
        if (has_mark({line, static_cast<std::size_t>(width)}, mark))
            return true;
    }
    return false;
}
