#include "bmp_shape.h"

#include <QByteArray>
#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <cstdlib>

namespace {

quint16 number16(const QByteArray &bytes, qsizetype at)
{
    return qFromLittleEndian<quint16>(bytes.constData() + at);
}

quint32 number32(const QByteArray &bytes, qsizetype at)
{
    return qFromLittleEndian<quint32>(bytes.constData() + at);
}

} // namespace

double BmpShape::rowBytes() const
{
    const qint64 rowBits = std::abs(width) * bits;
    const qint64 words = (rowBits + 31) / 32;
    return static_cast<double>(words * 4);
}

double BmpShape::pixelBytes() const
{
    const qint64 rowBits = std::abs(width) * bits;
    const qint64 otherRows = std::max<qint64>(0, rowCount() - 1);
    const qint64 lastRowBytes = (rowBits + 7) / 8;
    return static_cast<double>(otherRows) * rowBytes() + static_cast<double>(lastRowBytes);
}

qint64 BmpShape::tableEntries() const
{
    if (bits > 8)
        return 0;
    const qint64 most = qint64{1} << bits;
    return colors == 0 ? most : std::min<qint64>(colors, 256);
}

qint64 BmpShape::tableEnd() const
{
    const bool hasMasksBehind = compression == BitFields && headerBytes == UsualHeaderBytes;
    return tableStart() + (hasMasksBehind ? 12 : 0) + tableEntries() * colorBytes();
}

std::optional<BmpShape> read_bmp_shape(QIODevice &file)
{
    constexpr qint64 largestHeader = 14 + 56; // as far as anything here is asked for
    constexpr qint64 oldHeader = 26;
    constexpr qint64 usualHeader = 54;
    if (!file.seek(0))
        return std::nullopt;
    QByteArray bytes = file.read(largestHeader);
    if (bytes.size() < oldHeader)
        return std::nullopt;
    BmpShape shape{.fileBytes = file.size(), .dataStart = number32(bytes, 10), .headerBytes = number32(bytes, 14)};
    if (shape.headerBytes == BmpShape::OldHeaderBytes) {
        shape.width = number16(bytes, 18);
        shape.height = number16(bytes, 20);
        shape.bits = number16(bytes, 24);
        return shape;
    }
    constexpr std::array knownHeaders{
        BmpShape::UsualHeaderBytes, qint64{52}, qint64{56}, qint64{64}, qint64{108}, qint64{124}};
    if (bytes.size() < usualHeader || std::ranges::find(knownHeaders, shape.headerBytes) == knownHeaders.end())
        return std::nullopt;
    bytes.append(largestHeader - bytes.size(), '\0');
    shape.width = static_cast<qint32>(number32(bytes, 18));
    shape.height = static_cast<qint32>(number32(bytes, 22));
    shape.bits = number16(bytes, 28);
    shape.compression = number32(bytes, 30);
    shape.columnsPerMeter = number32(bytes, 38);
    shape.linesPerMeter = number32(bytes, 42);
    shape.colors = number32(bytes, 46);
    if (shape.compression == BmpShape::BitFields) {
        shape.masks = {number32(bytes, 54), number32(bytes, 58), number32(bytes, 62), number32(bytes, 66)};
        if (shape.headerBytes < 56)
            shape.masks[3] = 0; // no place for it
    }
    return shape;
}
