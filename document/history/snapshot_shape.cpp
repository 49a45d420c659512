#include "snapshot_shape.h"

#include <QtEndian>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <limits>
#include <numeric>

namespace {

constexpr int LargestNibbleTable = 16;
constexpr int LargestByteTable = 256;
constexpr qint64 LargestFileBytes = std::numeric_limits<int>::max(); ///< the header has no room for more

// Places in the header, as far as they are read again.
constexpr std::size_t TableAlphaAt = 6; ///< reserved, and 0 in other files
constexpr std::array<uchar, 4> TableAlphaMark{'A', 'L', 'P', 'H'};
constexpr std::size_t WidthAt = 18;
constexpr std::size_t HeightAt = 22;
constexpr std::size_t BitsAt = 28;
constexpr std::size_t DotsPerMeterXAt = 38;
constexpr std::size_t DotsPerMeterYAt = 42;
constexpr std::size_t ColorCountAt = 46;

bool is_page_format(QImage::Format format)
{
    constexpr std::array Formats{QImage::Format_Mono, QImage::Format_MonoLSB, QImage::Format_Indexed8,
                                 QImage::Format_RGB32, QImage::Format_ARGB32};
    return std::ranges::find(Formats, format) != Formats.end();
}

bool has_transparent_pixel(const QImage &page)
{
    if (page.format() != QImage::Format_ARGB32)
        return false;
    const auto isOpaqueRow = [&page](int y) {
        const auto *const words = reinterpret_cast<const QRgb *>(page.constScanLine(y));
        return std::reduce(words, words + page.width(), ~QRgb{0}, std::bit_and{}) >= ~RGB_MASK;
    };
    for (int y = 0; y < page.height(); ++y)
        if (!isOpaqueRow(y))
            return true;
    return false;
}

int bits_in_file(const QImage &page)
{
    if (page.depth() == 8)
        return page.colorCount() <= LargestNibbleTable ? 4 : 8;
    return page.depth() == 1 ? 1 : 24;
}

bool has_fitting_table(const SnapshotShape &shape)
{
    const auto lies = [count = shape.colorCount](int least, int most) { return least <= count && count <= most; };
    switch (shape.bits) {
    case 1:
        return lies(1, 2);
    case 4:
        return lies(1, LargestNibbleTable);
    case 8:
        return lies(LargestNibbleTable + 1, LargestByteTable);
    case 24:
    case 32:
        return lies(0, 0);
    default:
        return false;
    }
}

bool is_plausible(const SnapshotShape &shape)
{
    return shape.width > 0 && shape.height > 0 && has_fitting_table(shape)
        && shape.rowBytes() <= LargestFileBytes / shape.height && shape.fileBytes() <= LargestFileBytes;
}

} // namespace

std::optional<SnapshotShape> bmp_shape(const QImage &page)
{
    const qint64 usualLineBytes = (qint64{page.width()} * page.depth() + 31) / 32 * 4;
    if (!is_page_format(page.format()) || page.bytesPerLine() != usualLineBytes)
        return std::nullopt;
    const SnapshotShape shape{.width = page.width(),
                              .height = page.height(),
                              .bits = bits_in_file(page),
                              .colorCount = page.colorCount(),
                              .dotsPerMeterX = page.dotsPerMeterX(),
                              .dotsPerMeterY = page.dotsPerMeterY()};
    return shape.fileBytes() <= LargestFileBytes ? std::optional(shape) : std::nullopt;
}

std::optional<SnapshotShape> snapshot_shape(const QImage &page)
{
    std::optional<SnapshotShape> shape = bmp_shape(page);
    if (!shape)
        return std::nullopt;
    if (has_transparent_pixel(page))
        shape->bits = 32;
    // Intended: not the table itself is asked. One that nobody filled counts as opaque black.
    shape->hasTableAlpha = page.depth() <= 8 && page.hasAlphaChannel();
    return shape->fileBytes() <= LargestFileBytes ? shape : std::nullopt;
}

std::optional<SnapshotShape> snapshot_shape(const SnapshotHeader &header)
{
    const auto number = [&header](std::size_t at) { return qFromLittleEndian<qint32>(&header.at(at)); };
    const SnapshotShape shape{.width = number(WidthAt),
                              .height = number(HeightAt),
                              .bits = qFromLittleEndian<qint16>(&header.at(BitsAt)),
                              .colorCount = number(ColorCountAt),
                              .dotsPerMeterX = number(DotsPerMeterXAt),
                              .dotsPerMeterY = number(DotsPerMeterYAt),
                              .hasTableAlpha = number(TableAlphaAt) != 0};
    if (!is_plausible(shape))
        return std::nullopt;
    const SnapshotHeader expected = snapshot_header(shape);
    const bool isOurs = std::equal(expected.begin(), expected.begin() + shape.headerBytes(), header.begin());
    return isOurs ? std::optional(shape) : std::nullopt;
}

SnapshotHeader snapshot_header(const SnapshotShape &shape)
{
    constexpr qint32 FileHeaderBytes = 14;
    SnapshotHeader header{'B', 'M'};
    const auto put = [&header](std::size_t at, auto value) { qToLittleEndian(value, &header.at(at)); };
    put(2, static_cast<qint32>(shape.fileBytes()));
    if (shape.hasTableAlpha)
        std::ranges::copy(TableAlphaMark, header.begin() + TableAlphaAt);
    put(10, static_cast<qint32>(shape.headerBytes() + shape.tableBytes())); // where the pixels begin
    put(14, static_cast<qint32>(shape.headerBytes() - FileHeaderBytes));
    put(WidthAt, shape.width);
    put(HeightAt, shape.height);
    put(26, qint16{1}); // planes
    put(BitsAt, static_cast<qint16>(shape.bits));
    put(34, static_cast<qint32>(shape.pixelBytes()));
    put(DotsPerMeterXAt, shape.dotsPerMeterX);
    put(DotsPerMeterYAt, shape.dotsPerMeterY);
    put(ColorCountAt, shape.colorCount);
    put(50, shape.colorCount); // all of them are important
    if (shape.bits == 32) {
        constexpr quint32 BitFields = 3;
        constexpr quint32 Srgb = 0x73524742;
        put(30, BitFields);
        put(54, quint32{0x00ff0000}); // where a pixel has its red, green, blue and alpha
        put(58, quint32{0x0000ff00});
        put(62, quint32{0x000000ff});
        put(66, quint32{0xff000000});
        put(70, Srgb); // what the colours mean
    }
    return header;
}
