#include "snapshot_file.h"

#include "complete_file.h"
#include "image_memory.h"
#include "page_buffers.h"
#include "page_image.h"
#include "snapshot_rows.h"
#include "snapshot_shape.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QList>
#include <QtEndian>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <future>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace {

constexpr const char *FormatWord = "BMP";
constexpr int DefaultQuality = -1;

/// One row from page to file or back; the width is in pixels, the span covers the whole target.
using RowCopy = void (*)(const uchar *from, std::size_t width, std::span<uchar> to);

/// A buffer for some whole rows of the file.
class RowBlock
{
public:
    explicit RowBlock(const SnapshotShape &shape) :
        rowBytes(static_cast<std::size_t>(shape.rowBytes())),
        rows(static_cast<int>(std::clamp<qint64>(WantedBytes / shape.rowBytes(), 1, shape.height))),
        bytes(std::make_unique_for_overwrite<uchar[]>(rowBytes * static_cast<std::size_t>(rows)))
    {
    }

    [[nodiscard]] int capacity() const { return rows; }
    [[nodiscard]] uchar *data() { return bytes.get(); }
    [[nodiscard]] qint64 size(int rowCount) const { return static_cast<qint64>(rowBytes) * rowCount; }
    [[nodiscard]] std::span<uchar> row(int i) { return {data() + size(i), rowBytes}; }

private:
    static constexpr qint64 WantedBytes = qint64{1024} * 1024;

    std::size_t rowBytes;
    int rows;
    std::unique_ptr<uchar[]> bytes;
};

bool writeAll(QFile &file, const void *bytes, qint64 count)
{
    return file.write(static_cast<const char *>(bytes), count) == count;
}

bool readAll(QFile &file, void *bytes, qint64 count)
{
    return file.read(static_cast<char *>(bytes), count) == count;
}

/// Some systems say only now that they cannot keep what they were given.
bool closeSafely(QFile &file)
{
    const bool good = file.error() == QFileDevice::NoError; // closing forgets it
    file.close();
    return good && file.error() == QFileDevice::NoError;
}

void copyBytes(const uchar *from, std::size_t /*width*/, std::span<uchar> to)
{
    std::memcpy(to.data(), from, to.size());
}

RowCopy rowPacker(const SnapshotShape &shape, QImage::Format format)
{
    if (format == QImage::Format_MonoLSB)
        return [](const uchar *from, std::size_t, std::span<uchar> to) { reverse_bits({from, to.size()}, to); };
    if (shape.bits == 4)
        return [](const uchar *from, std::size_t width, std::span<uchar> to) { pack_nibbles({from, width}, to); };
    if (shape.bits == 24) {
        return [](const uchar *from, std::size_t width, std::span<uchar> to) {
            pack_bgr({reinterpret_cast<const QRgb *>(from), width}, to);
        };
    }
    return copyBytes;
}

bool writeTable(QFile &file, const QList<QRgb> &table)
{
    std::vector<quint32> entries;
    entries.reserve(static_cast<std::size_t>(table.size()));
    for (const QRgb color : table)
        entries.push_back(qToLittleEndian(color & RGB_MASK));
    return writeAll(file, entries.data(), SnapshotShape::TableEntryBytes * table.size());
}

bool writeRows(QFile &file, const QImage &image, const SnapshotShape &shape)
{
    const auto pack = [copy = rowPacker(shape, image.format()), lines = image.constBits(),
                       lineBytes = image.bytesPerLine(),
                       width = static_cast<std::size_t>(shape.width)](RowBlock *block, int below) {
        const int count = std::min(below, block->capacity());
        for (int i = 0; i < count; ++i)
            copy(lines + lineBytes * --below, width, block->row(i));
        return count;
    };
    RowBlock block(shape);
    RowBlock ahead(shape);
    int below = shape.height;
    for (int count = pack(&block, below); count > 0; std::swap(block, ahead)) {
        below -= count;
        // Colours are packed ahead while the rows before are written, as both take their time. Where no
        // thread is to be had, and for rows that are only copied, that is done afterwards.
        const bool worthThread = shape.bits == 24 && below > 0;
        std::future<int> packed = std::async(
            worthThread ? std::launch::async | std::launch::deferred : std::launch::deferred, pack, &ahead, below);
        if (!writeAll(file, block.data(), block.size(count)))
            return false;
        count = packed.get();
    }
    return true;
}

bool writePage(QFile &file, const QImage &image, const SnapshotShape &shape)
{
    const SnapshotHeader header = snapshot_header(shape);
    return writeAll(file, header.data(), SnapshotShape::HeaderBytes) && writeTable(file, image.colorTable())
        && writeRows(file, image, shape);
}

QImage::Format pageFormat(const SnapshotShape &shape)
{
    if (shape.bits == 24)
        return QImage::Format_RGB32;
    return shape.bits == 1 ? QImage::Format_Mono : QImage::Format_Indexed8;
}

RowCopy rowUnpacker(const SnapshotShape &shape, bool flipsBits)
{
    if (flipsBits)
        return [](const uchar *from, std::size_t, std::span<uchar> to) { flip_bits({from, to.size()}, to); };
    if (shape.bits == 4) {
        return [](const uchar *from, std::size_t width, std::span<uchar> to) {
            unpack_nibbles({from, (width + 1) / 2}, to.first(width));
        };
    }
    if (shape.bits == 24) {
        return [](const uchar *from, std::size_t width, std::span<uchar> to) {
            unpack_bgr({from, 3 * width}, {reinterpret_cast<QRgb *>(to.data()), width});
        };
    }
    return copyBytes;
}

bool isAffordable(const SnapshotShape &shape)
{
    const int bytesOfFour = shape.bits == 24 ? 16 : shape.bits == 1 ? 1 : 4;
    const qint64 bytes = qint64{shape.width} * shape.height / 4 * bytesOfFour;
    return bytes <= spare_page_bytes() || bytes <= affordable_image_bytes();
}

std::optional<QList<QRgb>> readTable(QFile &file, const SnapshotShape &shape)
{
    QList<QRgb> table(shape.colorCount);
    if (!readAll(file, table.data(), shape.tableBytes()))
        return std::nullopt;
    for (QRgb &color : table)
        color = qFromLittleEndian(color) | ~RGB_MASK;
    return table;
}

/// Whether the toolkit would exchange the colours of a page of one bit.
bool hasDarkColorFirst(const SnapshotShape &shape, const QList<QRgb> &table)
{
    return shape.bits == 1 && table.size() == 2 && qGray(table[0]) < qGray(table[1]);
}

bool readRows(QFile &file, const SnapshotShape &shape, RowCopy unpack, QImage *page)
{
    const qsizetype lineBytes = page->bytesPerLine();
    uchar *const pixels = page->bits();
    RowBlock block(shape);
    for (int below = shape.height; below > 0;) {
        const int count = std::min(below, block.capacity());
        if (!readAll(file, block.data(), block.size(count)))
            return false;
        for (int i = 0; i < count; ++i) {
            uchar *const line = pixels + lineBytes * --below;
            unpack(block.row(i).data(), static_cast<std::size_t>(shape.width),
                   {line, static_cast<std::size_t>(lineBytes)});
        }
    }
    return true;
}

/// The page of a file whose header has been read.
QImage readPage(QFile &file, const SnapshotShape &shape)
{
    if (!isAffordable(shape))
        return {};
    std::optional<QList<QRgb>> table = readTable(file, shape);
    QImage page = new_page({shape.width, shape.height}, pageFormat(shape));
    if (!table || page.isNull())
        return {};
    // Intended: a page of one bit comes back with the lighter colour first. It looks the same, but its bits
    // and its table do not stay what they were; that is how the toolkit reads it.
    const bool flipsBits = hasDarkColorFirst(shape, *table);
    if (flipsBits)
        table->swapItemsAt(0, 1);
    if (!readRows(file, shape, rowUnpacker(shape, flipsBits), &page))
        return {};
    page.setColorTable(*table);
    page.setDotsPerMeterX(shape.dotsPerMeterX);
    page.setDotsPerMeterY(shape.dotsPerMeterY);
    return page;
}

/// What the toolkit makes of a file that write_snapshot() left to it, or that somebody else has put there.
QImage readByToolkit(QFile &file)
{
    if (!file.seek(0) || !is_complete_image(file))
        return {};
    limit_image_readers();
    QImage image;
    if (!QImageReader(&file, FormatWord).read(&image))
        return {};
    return to_page_image(std::move(image));
}

} // namespace

bool write_snapshot(const QString &fileName, const QImage &image)
{
    if (image.isNull())
        return false;
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    const std::optional<SnapshotShape> shape = snapshot_shape(image);
    const bool written = shape ? writePage(file, image, *shape) : image.save(&file, FormatWord, DefaultQuality);
    return closeSafely(file) && written;
}

QImage read_snapshot(const QString &fileName)
{
    // Asked first, since opening a pipe would wait for its other end.
    if (!QFileInfo(fileName).isFile())
        return {};
    QFile file(fileName);
    SnapshotHeader header{};
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)
        || !readAll(file, header.data(), SnapshotShape::HeaderBytes))
        return {};
    const std::optional<SnapshotShape> shape = snapshot_shape(header);
    if (!shape || file.size() > shape->fileBytes())
        return readByToolkit(file);
    // The toolkit would make a page of a file that has been cut short, with noise where pixels are missing.
    return file.size() < shape->fileBytes() ? QImage() : readPage(file, *shape);
}
