#include "bmp_file.h"

#include "bmp_shape.h"
#include "byte_reader.h"
#include "image_memory.h"

#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <optional>

namespace {

/// Where table and pixels of a file are.
struct Places
{
    qint64 tableEntries = 0;
    qint64 pixelStart = 0;
};

/// Runs through coded pixels, from the first row of the file on.
/// @param paint  called with column, row, index and count for each run; what lies beside the picture is its matter
/// @return where they end, or nothing if the file ends before the last pixel
template <typename Paint>
std::optional<qint64> follow_run_lengths(QIODevice &file, qint64 start, const BmpShape &shape, const Paint &paint)
{
    if (!file.seek(start))
        return std::nullopt;
    ByteReader bytes(file);
    const bool inNibbles = shape.compression == BmpShape::RunLengths4;
    const auto index = [inNibbles](int byte, int i) {
        return static_cast<uchar>(!inNibbles ? byte : (i % 2 == 0 ? byte >> 4 : byte & 0xf));
    };
    qint64 x = 0;
    qint64 y = 0;
    while (y < shape.rowCount()) {
        const int count = bytes.next();
        const int value = bytes.next();
        if (value < 0) {
            const bool isLastRowThere = y == shape.rowCount() - 1 && x >= shape.width;
            return isLastRowThere ? std::optional(start + bytes.count()) : std::nullopt;
        }
        if (count > 0) { // a run of one value, or of two in turn
            for (int i = 0; i < count; ++i)
                paint(x++, y, index(value, i));
        } else if (value == 0) { // end of the row
            x = 0;
            ++y;
        } else if (value == 1) { // end of the picture
            break;
        } else if (value == 2) { // a step
            const int right = bytes.next();
            const int on = bytes.next();
            if (on < 0)
                return std::nullopt;
            x += right;
            y += on;
        } else { // so many pixels as they are, in pairs of bytes
            int byte = 0;
            for (int i = 0; i < value; ++i) {
                if (!inNibbles || i % 2 == 0)
                    byte = bytes.next();
                if (byte < 0)
                    return std::nullopt;
                paint(x++, y, index(byte, i));
            }
            const int read = inNibbles ? (value + 1) / 2 : value;
            if (read % 2 != 0)
                (void)bytes.next(); // the file may end with the last pixel
        }
    }
    return start + bytes.count();
}

/// Where the pixels end if they begin there; nothing if the file ends before.
std::optional<qint64> end_of_pixels(QIODevice &file, const BmpShape &shape, qint64 start)
{
    if (shape.hasRunLengths())
        return follow_run_lengths(file, start, shape, [](qint64, qint64, uchar) {});
    const double end = static_cast<double>(start) + shape.pixelBytes();
    if (end > static_cast<double>(shape.fileBytes))
        return std::nullopt;
    const double paddedEnd = static_cast<double>(start) + shape.rowBytes() * static_cast<double>(shape.rowCount());
    return static_cast<qint64>(std::min(paddedEnd, static_cast<double>(shape.fileBytes)));
}

/// @return nothing if pixels are missing
std::optional<Places> find_places(QIODevice &file, const BmpShape &shape)
{
    // A short table: the header says where the pixels are, but not how few colours there are. Only a file that ends
    // with its pixels then is taken for that; else the header tells a wrong place.
    const qint64 shortTable = (shape.dataStart - shape.tableStart()) / shape.colorBytes();
    const bool isWhole = (shape.dataStart - shape.tableStart()) % shape.colorBytes() == 0;
    if (shortTable > 0 && isWhole && shortTable < shape.tableEntries()) {
        constexpr qint64 padding = 3;
        const std::optional<qint64> end = end_of_pixels(file, shape, shape.dataStart);
        if (end && shape.fileBytes - *end <= padding)
            return Places{.tableEntries = shortTable, .pixelStart = shape.dataStart};
    }
    const qint64 start = std::max(shape.dataStart, shape.tableEnd());
    if (!end_of_pixels(file, shape, start))
        return std::nullopt;
    return Places{.tableEntries = shape.tableEntries(), .pixelStart = start};
}

/// Whether the toolkit's reader takes a picture of this size and kind at all.
bool is_known(const BmpShape &shape)
{
    constexpr std::array depths{1, 4, 8, 16, 24, 32};
    constexpr double mostPixels = 16384.0 * 16384.0;
    const bool isCoded = shape.hasRunLengths() && shape.bits == (shape.compression == BmpShape::RunLengths8 ? 8 : 4);
    const bool hasMasks = shape.compression == BmpShape::BitFields && (shape.bits == 16 || shape.bits == 32);
    return std::ranges::find(depths, shape.bits) != depths.end()
        && (shape.compression == BmpShape::Plain || isCoded || hasMasks) && shape.width > 0 && shape.height != 0
        && static_cast<double>(shape.width) * static_cast<double>(shape.rowCount()) <= mostPixels;
}

bool has_wide_mask(const BmpShape &shape)
{
    return std::ranges::any_of(shape.masks, [](quint32 mask) { return std::popcount(mask) > 8; });
}

bool has_header_of_its_own(const BmpShape &shape)
{
    return shape.headerBytes == 52 || shape.headerBytes == 56; // with masks alone behind the usual one
}

/// The colours, four bytes each.
QByteArray read_table(QIODevice &file, const BmpShape &shape, qint64 entries)
{
    if (!file.seek(shape.tableStart()))
        return {};
    QByteArray stored = file.read(entries * shape.colorBytes());
    if (shape.colorBytes() == 4)
        return stored;
    QByteArray table;
    for (qsizetype at = 0; at + 3 <= stored.size(); at += 3)
        table += stored.sliced(at, 3) + '\0';
    return table;
}

/// The rows as bytes of one pixel each, padded to four.
QByteArray read_run_lengths(QIODevice &file, const BmpShape &shape, qint64 start)
{
    const qint64 rowBytes = (shape.width + 3) / 4 * 4;
    QByteArray rows(rowBytes * shape.rowCount(), '\0'); // what is skipped has the first colour
    char *const bytes = rows.data();
    (void)follow_run_lengths(file, start, shape, [&](qint64 x, qint64 y, uchar index) {
        if (x < shape.width && y < shape.rowCount())
            bytes[y * rowBytes + x] = static_cast<char>(index);
    });
    return rows;
}

QByteArray read_plain_rows(QIODevice &file, const BmpShape &shape, qint64 start)
{
    const auto wanted = static_cast<qint64>(shape.rowBytes()) * shape.rowCount();
    if (!file.seek(start))
        return {};
    QByteArray rows = file.read(wanted);
    rows.append(wanted - rows.size(), '\0');
    return rows;
}

/// A channel of a pixel, brought to eight bits.
quint32 channel(quint32 pixel, quint32 mask)
{
    if (mask == 0)
        return 0;
    const int shift = std::countr_zero(mask);
    const quint64 most = mask >> shift;
    return static_cast<quint32>((quint64{(pixel & mask) >> shift} * 255 + most / 2) / most);
}

/// Rows of 16 or 32 bits a pixel with channels of any width, as 32 bits with alpha in the highest byte.
QByteArray with_channels_of_bytes(const QByteArray &rows, const BmpShape &shape)
{
    const auto rowBytes = static_cast<qsizetype>(shape.rowBytes());
    const qsizetype pixelBytes = shape.bits / 8;
    QByteArray result(shape.width * 4 * shape.rowCount(), '\0');
    char *to = result.data();
    for (qint64 y = 0; y < shape.rowCount(); ++y) {
        const char *from = rows.constData() + y * rowBytes;
        for (qint64 x = 0; x < shape.width; ++x, from += pixelBytes, to += 4) {
            const quint32 pixel = pixelBytes == 2 ? qFromLittleEndian<quint16>(from) : qFromLittleEndian<quint32>(from);
            const auto &[red, green, blue, alpha] = shape.masks;
            qToLittleEndian(channel(pixel, blue) | channel(pixel, green) << 8 | channel(pixel, red) << 16
                                | channel(pixel, alpha) << 24,
                            to);
        }
    }
    return result;
}

class LittleEndianBytes
{
public:
    LittleEndianBytes &add16(quint16 value) { return add(value); }
    LittleEndianBytes &add32(quint32 value) { return add(value); }
    [[nodiscard]] QByteArray bytes() const { return collected; }

private:
    template <typename Number> LittleEndianBytes &add(Number value)
    {
        std::array<char, sizeof(Number)> bytes{};
        qToLittleEndian(value, bytes.data());
        collected.append(bytes.data(), bytes.size());
        return *this;
    }

    QByteArray collected;
};

/// A file whose headers agree with its table and rows.
QByteArray bmp_of(const BmpShape &shape, const QByteArray &table, const QByteArray &rows)
{
    // Masks stand in a header of the fourth version, whose further fields say nothing.
    constexpr qsizetype largeHeaderBytes = 108;
    const bool hasMasks = shape.compression == BmpShape::BitFields;
    const qsizetype headerBytes = hasMasks ? largeHeaderBytes : BmpShape::UsualHeaderBytes;
    const qsizetype start = BmpShape::FileHeaderBytes + headerBytes + table.size();
    LittleEndianBytes header;
    header.add16(0x4d42).add32(static_cast<quint32>(start + rows.size())).add32(0);
    header.add32(static_cast<quint32>(start)).add32(static_cast<quint32>(headerBytes));
    header.add32(static_cast<quint32>(shape.width)).add32(static_cast<quint32>(shape.height));
    header.add16(1).add16(static_cast<quint16>(shape.bits)).add32(shape.compression);
    header.add32(static_cast<quint32>(rows.size())).add32(shape.columnsPerMeter).add32(shape.linesPerMeter);
    header.add32(static_cast<quint32>(table.size() / 4)).add32(0);
    if (hasMasks) {
        for (const quint32 mask : shape.masks)
            header.add32(mask);
    }
    QByteArray file = header.bytes();
    file.append(BmpShape::FileHeaderBytes + headerBytes - file.size(), '\0');
    return file + table + rows;
}

} // namespace

bool is_complete_bmp(QIODevice &file)
{
    const std::optional<BmpShape> shape = read_bmp_shape(file);
    if (!shape || !find_places(file, *shape))
        return false;
    if (!shape->hasRunLengths() || !is_known(*shape))
        return true;
    // The rows are held once more beside the page.
    return 2 * shape->width * shape->rowCount() <= affordable_image_bytes();
}

QByteArray mended_bmp(QIODevice &file)
{
    const std::optional<BmpShape> shape = read_bmp_shape(file);
    if (!shape || !is_known(*shape))
        return {};
    const std::optional<Places> places = find_places(file, *shape);
    if (!places)
        return {};
    const double paddedBytes = shape->rowBytes() * static_cast<double>(shape->rowCount());
    const bool lacksPadding =
        static_cast<double>(shape->fileBytes) < static_cast<double>(places->pixelStart) + paddedBytes;
    const bool isWide = has_wide_mask(*shape);
    const bool isTableAsTold =
        places->tableEntries == shape->tableEntries() && (shape->bits > 8 || shape->colors <= 256);
    if (!shape->hasRunLengths() && !lacksPadding && !isWide && !has_header_of_its_own(*shape) && isTableAsTold)
        return {};

    const QByteArray table = read_table(file, *shape, places->tableEntries);
    BmpShape mended = *shape;
    if (shape->hasRunLengths()) {
        mended.bits = 8;
        mended.compression = BmpShape::Plain;
        return bmp_of(mended, table, read_run_lengths(file, *shape, places->pixelStart));
    }
    const QByteArray rows = read_plain_rows(file, *shape, places->pixelStart);
    if (!isWide)
        return bmp_of(mended, table, rows);
    mended.bits = 32;
    mended.masks = {0x00ff0000, 0x0000ff00, 0x000000ff, shape->masks[3] == 0 ? 0 : 0xff000000};
    return bmp_of(mended, table, with_channels_of_bytes(rows, *shape));
}
