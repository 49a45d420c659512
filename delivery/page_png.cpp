#include "page_png.h"

#include "page_image.h"
#include "rgb_rows.h"
#include "snapshot_rows.h"

#include <QByteArrayView>
#include <QIODevice>
#include <QList>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <functional>
#include <span>
#include <utility>
#include <vector>
#include <zlib.h>

namespace {

using Bytes = std::vector<uchar>;

constexpr std::size_t BlockBytes = std::size_t{256} * 1024;
constexpr std::size_t MostColors = 256;

enum ColorType : uchar { Rgb = 2, Palette = 3, Rgba = 6 };

/// The kinds of what precedes each line, telling how its bytes were changed before they are compressed.
enum LineFilter : uchar { NoFilter = 0, FromAbove = 2 };

/// Speed decides. Scanned colours differ by noise from those above them, which leaves small numbers that repeat at no
/// distance: looking for repetitions further back would take time and find nothing. Black and white repeats.
struct Compression
{
    int level;
    int strategy;
};
constexpr Compression ForColors{.level = 1, .strategy = Z_RLE};
constexpr Compression ForIndices{.level = 1, .strategy = Z_DEFAULT_STRATEGY};

template <typename Number> void append(Bytes &bytes, Number number)
{
    const auto at = static_cast<std::ptrdiff_t>(bytes.size());
    bytes.resize(bytes.size() + sizeof number);
    qToBigEndian(number, &*(bytes.begin() + at));
}

bool write_bytes(QIODevice &device, std::span<const uchar> bytes)
{
    const auto size = static_cast<qint64>(bytes.size());
    return device.write(reinterpret_cast<const char *>(bytes.data()), size) == size;
}

/// @param type  four letters
bool write_chunk(QIODevice &device, QByteArrayView type, std::span<const uchar> content)
{
    Bytes bytes;
    bytes.reserve(content.size() + 12);
    append(bytes, static_cast<quint32>(content.size()));
    bytes.insert(bytes.end(), type.begin(), type.end());
    bytes.insert(bytes.end(), content.begin(), content.end());
    append(bytes, static_cast<quint32>(crc32_z(0, bytes.data() + 4, bytes.size() - 4)));
    return write_bytes(device, bytes);
}

/// Compresses what it is given, and writes it in chunks.
class PixelStream
{
public:
    PixelStream(QIODevice &target, Compression compression) : device(target), block(BlockBytes)
    {
        constexpr int LargestWindow = 15;
        constexpr int Memory = 9;
        isGood =
            deflateInit2(&stream, compression.level, Z_DEFLATED, LargestWindow, Memory, compression.strategy) == Z_OK;
        clear();
    }
    ~PixelStream() { deflateEnd(&stream); }
    Q_DISABLE_COPY_MOVE(PixelStream)

    /// @return false if the bytes could not be written; the rest is not worth trying then
    bool add(std::span<uchar> bytes) { return work(bytes, Z_NO_FLUSH); }
    bool finish() { return work({}, Z_FINISH) && writeBlock(); }

private:
    bool work(std::span<uchar> bytes, int flush)
    {
        stream.next_in = bytes.data();
        stream.avail_in = static_cast<uInt>(bytes.size());
        int state = Z_OK;
        while (isGood && (stream.avail_in > 0 || (flush == Z_FINISH && state != Z_STREAM_END))) {
            if (stream.avail_out == 0 && !writeBlock())
                break;
            state = deflate(&stream, flush);
            isGood = state == Z_OK || state == Z_STREAM_END || state == Z_BUF_ERROR;
        }
        return isGood;
    }

    bool writeBlock()
    {
        const std::span<const uchar> filled(block.data(), block.size() - stream.avail_out);
        isGood = isGood && (filled.empty() || write_chunk(device, "IDAT", filled));
        clear();
        return isGood;
    }

    void clear()
    {
        stream.next_out = block.data();
        stream.avail_out = static_cast<uInt>(block.size());
    }

    QIODevice &device;
    Bytes block;
    z_stream stream{};
    bool isGood = false;
};

/// Puts a line of the page into bytes as the file has them.
using PackLine = std::function<void(const uchar *line, std::span<uchar> bytes)>;

void pack_rgba_row(const QRgb *words, std::span<uchar> bytes)
{
    for (std::size_t i = 0; i + sizeof(QRgb) <= bytes.size(); i += sizeof(QRgb), ++words)
        qToBigEndian<quint32>(*words << 8 | *words >> 24, &bytes[i]);
}

/// How a page's pixels lie in the file.
struct PngShape
{
    explicit PngShape(const QImage &page) : width(page.width())
    {
        switch (page.format()) {
        case QImage::Format_Mono:
        case QImage::Format_Indexed8:
            pack = [](const uchar *line, std::span<uchar> bytes) { std::memcpy(bytes.data(), line, bytes.size()); };
            break;
        case QImage::Format_MonoLSB:
            pack = [](const uchar *line, std::span<uchar> bytes) { reverse_bits({line, bytes.size()}, bytes); };
            break;
        case QImage::Format_ARGB32:
            type = Rgba;
            bitsOfPixel = 32;
            pack = [](const uchar *line, std::span<uchar> bytes) {
                pack_rgba_row(reinterpret_cast<const QRgb *>(line), bytes);
            };
            break;
        default:
            type = Rgb;
            bitsOfPixel = 24;
            pack = [columns = width](const uchar *line, std::span<uchar> bytes) {
                pack_rgb_row(reinterpret_cast<const QRgb *>(line), bytes.data(), columns);
            };
        }
        if (type == Palette)
            bitsOfPixel = page.depth();
    }

    [[nodiscard]] uchar bitDepth() const { return type == Palette ? static_cast<uchar>(bitsOfPixel) : uchar{8}; }
    [[nodiscard]] std::size_t lineBytes() const
    {
        return (static_cast<std::size_t>(width) * static_cast<std::size_t>(bitsOfPixel) + 7) / 8;
    }

    int width;
    ColorType type = Palette;
    int bitsOfPixel = 0;
    PackLine pack;
};

bool write_header(QIODevice &device, const QImage &page, const PngShape &shape)
{
    constexpr std::array<uchar, 8> Signature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
    Bytes header;
    append(header, static_cast<quint32>(page.width()));
    append(header, static_cast<quint32>(page.height()));
    header.insert(header.end(), {shape.bitDepth(), shape.type, 0, 0, 0});
    return write_bytes(device, Signature) && write_chunk(device, "IHDR", header);
}

/// A colour for every index that a pixel can have, and no more. The toolkit shows indices behind the table in black, and without
/// a table in greys, or black and white.
QList<QRgb> whole_table(const QImage &page)
{
    QList<QRgb> table = page.colorTable();
    const auto size = static_cast<qsizetype>(page.depth() == 1 ? 2 : MostColors);
    table.resize(std::min(table.size(), size)); // a reader may refuse the file, or its alphas, for colours too many
    if (table.isEmpty()) {
        for (qsizetype i = 0; i < size; ++i) {
            const int gray = static_cast<int>(i * 255 / (size - 1));
            table.append(qRgb(gray, gray, gray));
        }
    }
    return table + QList<QRgb>(std::max(size - table.size(), qsizetype{0}), 0xff000000);
}

bool write_table(QIODevice &device, const QImage &page)
{
    Bytes colors;
    Bytes alphas;
    for (const QRgb color : whole_table(page)) {
        for (const int channel : {qRed(color), qGreen(color), qBlue(color)})
            colors.push_back(static_cast<uchar>(channel));
        alphas.push_back(static_cast<uchar>(qAlpha(color)));
    }
    const bool isOpaque = std::ranges::all_of(alphas, [](uchar alpha) { return alpha == 0xff; });
    return write_chunk(device, "PLTE", colors) && (isOpaque || write_chunk(device, "tRNS", alphas));
}

bool write_resolution(QIODevice &device, const QImage &page)
{
    constexpr uchar PerMeter = 1;
    if (page.dotsPerMeterX() <= 0 || page.dotsPerMeterY() <= 0)
        return true;
    Bytes resolution;
    append(resolution, static_cast<quint32>(page.dotsPerMeterX()));
    append(resolution, static_cast<quint32>(page.dotsPerMeterY()));
    resolution.push_back(PerMeter);
    return write_chunk(device, "pHYs", resolution);
}

bool write_pixels(QIODevice &device, const QImage &page, const PngShape &shape)
{
    const bool isFiltered = shape.type != Palette;
    PixelStream stream(device, isFiltered ? ForColors : ForIndices);
    Bytes above(shape.lineBytes());
    Bytes line(shape.lineBytes());
    Bytes filtered(1 + shape.lineBytes());
    filtered[0] = isFiltered ? FromAbove : NoFilter;
    for (int y = 0; y < page.height(); ++y) {
        shape.pack(page.constScanLine(y), line);
        if (isFiltered) {
            std::ranges::transform(line, above, filtered.begin() + 1,
                                   [](uchar here, uchar there) { return static_cast<uchar>(here - there); });
        } else {
            std::ranges::copy(line, filtered.begin() + 1);
        }
        if (!stream.add(filtered))
            return false;
        std::swap(above, line);
    }
    return stream.finish();
}

} // namespace

bool write_png(QIODevice &device, const QImage &image)
{
    const QImage page = to_page_image(image);
    if (page.isNull())
        return false;
    const PngShape shape(page);
    return write_header(device, page, shape) && write_resolution(device, page)
        && (shape.type != Palette || write_table(device, page)) && write_pixels(device, page, shape)
        && write_chunk(device, "IEND", {});
}
