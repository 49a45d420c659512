#include "snapshot_shape.h"

#include <QtEndian>

#include <algorithm>
#include <cstddef>
#include <limits>

namespace {

constexpr int LargestNibbleTable = 16;
constexpr int LargestByteTable = 256;
constexpr qint64 LargestFileBytes = std::numeric_limits<int>::max(); ///< the header has no room for more

// Places in the header, as far as they are read again.
constexpr std::size_t WidthAt = 18;
constexpr std::size_t HeightAt = 22;
constexpr std::size_t BitsAt = 28;
constexpr std::size_t DotsPerMeterXAt = 38;
constexpr std::size_t DotsPerMeterYAt = 42;
constexpr std::size_t ColorCountAt = 46;

bool isPageFormat(QImage::Format format)
{
    constexpr std::array Formats{QImage::Format_Mono, QImage::Format_MonoLSB, QImage::Format_Indexed8,
                                 QImage::Format_RGB32, QImage::Format_ARGB32};
    return std::ranges::find(Formats, format) != Formats.end();
}

int bitsInFile(const QImage &page)
{
    if (page.depth() == 8)
        return page.colorCount() <= LargestNibbleTable ? 4 : 8;
    return page.depth() == 1 ? 1 : 24;
}

bool hasFittingTable(const SnapshotShape &shape)
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
        return lies(0, 0);
    default:
        return false;
    }
}

bool isPlausible(const SnapshotShape &shape)
{
    return shape.width > 0 && shape.height > 0 && hasFittingTable(shape)
        && shape.rowBytes() <= LargestFileBytes / shape.height && shape.fileBytes() <= LargestFileBytes;
}

} // namespace

std::optional<SnapshotShape> snapshot_shape(const QImage &page)
{
    const qint64 usualLineBytes = (qint64{page.width()} * page.depth() + 31) / 32 * 4;
    if (!isPageFormat(page.format()) || page.bytesPerLine() != usualLineBytes)
        return std::nullopt;
    const SnapshotShape shape{.width = page.width(),
                              .height = page.height(),
                              .bits = bitsInFile(page),
                              .colorCount = page.colorCount(),
                              .dotsPerMeterX = page.dotsPerMeterX(),
                              .dotsPerMeterY = page.dotsPerMeterY()};
    if (shape.fileBytes() > LargestFileBytes)
        return std::nullopt;
    return shape;
}

std::optional<SnapshotShape> snapshot_shape(const SnapshotHeader &header)
{
    const auto number = [&header](std::size_t at) { return qFromLittleEndian<qint32>(&header.at(at)); };
    const SnapshotShape shape{.width = number(WidthAt),
                              .height = number(HeightAt),
                              .bits = qFromLittleEndian<qint16>(&header.at(BitsAt)),
                              .colorCount = number(ColorCountAt),
                              .dotsPerMeterX = number(DotsPerMeterXAt),
                              .dotsPerMeterY = number(DotsPerMeterYAt)};
    if (!isPlausible(shape) || snapshot_header(shape) != header)
        return std::nullopt;
    return shape;
}

SnapshotHeader snapshot_header(const SnapshotShape &shape)
{
    constexpr qint32 InfoHeaderBytes = 40;
    SnapshotHeader header{'B', 'M'};
    const auto put = [&header](std::size_t at, auto value) { qToLittleEndian(value, &header.at(at)); };
    put(2, static_cast<qint32>(shape.fileBytes()));
    put(10, static_cast<qint32>(SnapshotShape::HeaderBytes + shape.tableBytes())); // where the pixels begin
    put(14, InfoHeaderBytes);
    put(WidthAt, shape.width);
    put(HeightAt, shape.height);
    put(26, qint16{1}); // planes
    put(BitsAt, static_cast<qint16>(shape.bits));
    put(34, static_cast<qint32>(shape.pixelBytes()));
    put(DotsPerMeterXAt, shape.dotsPerMeterX);
    put(DotsPerMeterYAt, shape.dotsPerMeterY);
    put(ColorCountAt, shape.colorCount);
    put(50, shape.colorCount); // all of them are important
    return header;
}
