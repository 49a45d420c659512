// How snapshots are read.
#include "complete_file.h"
#include "image_memory.h"
#include "page_buffers.h"
#include "page_image.h"
#include "private_file.h"
#include "snapshot_file.h"
#include "snapshot_rows.h"
#include "snapshot_shape.h"
#include "two_halves.h"

#include <QFile>
#include <QImageReader>
#include <QList>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <unistd.h>
#include <utility>

namespace {

/// A buffer for some whole rows of the file.
class RowBlock
{
public:
    explicit RowBlock(const SnapshotShape &shape) :
        rowBytes(static_cast<std::size_t>(shape.rowBytes())),
        rows(static_cast<int>(std::clamp<qint64>(WantedBytes / shape.rowBytes(), 1, shape.height))),
        // NOLINTNEXTLINE(modernize-avoid-c-arrays): a vector would be cleared
        bytes(std::make_unique_for_overwrite<uchar[]>(rowBytes * static_cast<std::size_t>(rows)))
    {
    }

    [[nodiscard]] int capacity() const { return rows; }
    [[nodiscard]] uchar *data() { return bytes.get(); }
    [[nodiscard]] qint64 size(int rowCount) const { return static_cast<qint64>(rowBytes) * rowCount; }
    [[nodiscard]] std::span<uchar> row(int i) { return {data() + size(i), rowBytes}; }

private:
    /// Small enough to stay in the cache between packing and writing.
    static constexpr qint64 WantedBytes = qint64{256} * 1024;

    std::size_t rowBytes;
    int rows;
    std::unique_ptr<uchar[]> bytes; // NOLINT(modernize-avoid-c-arrays)
};

bool read_all(QFile &file, void *bytes, qint64 count)
{
    return file.read(static_cast<char *>(bytes), count) == count;
}

QImage::Format page_format(const SnapshotShape &shape)
{
    if (shape.bits == 24)
        return QImage::Format_RGB32;
    if (shape.bits == 32)
        return QImage::Format_ARGB32;
    return shape.bits == 1 ? QImage::Format_Mono : QImage::Format_Indexed8;
}

RowCopy row_unpacker(const SnapshotShape &shape, bool flipsBits)
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
    return shape.bits == 32 ? copy_words : copy_bytes;
}

bool is_affordable(const SnapshotShape &shape)
{
    const int bytesOfFour = shape.bits >= 24 ? 16 : shape.bits == 1 ? 1 : 4;
    const qint64 bytes = qint64{shape.width} * shape.height / 4 * bytesOfFour;
    return bytes <= spare_page_bytes() || bytes <= affordable_image_bytes();
}

std::optional<QList<QRgb>> read_table(QFile &file, const SnapshotShape &shape)
{
    QList<QRgb> table(shape.colorCount);
    if (!read_all(file, table.data(), shape.tableBytes()))
        return std::nullopt;
    for (QRgb &color : table)
        color = qFromLittleEndian(color) | (shape.hasTableAlpha ? 0 : ~RGB_MASK);
    return table;
}

/// Whether the toolkit would exchange the colours of a page of one bit.
bool has_dark_color_first(const SnapshotShape &shape, const QList<QRgb> &table)
{
    return shape.bits == 1 && table.size() == 2 && qGray(table[0]) < qGray(table[1]);
}

/// Reads at a place of its own, so that two threads can.
bool read_all_at(int file, void *bytes, qint64 count, qint64 offset)
{
    auto *to = static_cast<char *>(bytes);
    while (count > 0) {
        const ssize_t done = ::pread(file, to, static_cast<std::size_t>(count), offset);
        if (done == 0 || (done < 0 && errno != EINTR))
            return false;
        const qint64 taken = std::max<qint64>(done, 0);
        to += taken;
        count -= taken;
        offset += taken;
    }
    return true;
}

/// Reads the rows of the file from where it is, each half on a thread of its own.
bool read_rows(QFile &file, const SnapshotShape &shape, RowCopy unpack, QImage *page)
{
    const qsizetype lineBytes = page->bytesPerLine();
    uchar *const pixels = page->bits();
    const qint64 start = file.pos();
    const int handle = file.handle();
    std::array<RowBlock, 2> blocks{RowBlock(shape), RowBlock(shape)};
    std::atomic<bool> good = true;
    const auto readSome = [&](std::size_t begin, std::size_t end) {
        RowBlock &block = blocks.at(begin == 0 ? 0 : 1);
        const auto behind = static_cast<int>(end);
        for (auto row = static_cast<int>(begin); row < behind && good;) {
            const int count = std::min(behind - row, block.capacity());
            if (!read_all_at(handle, block.data(), block.size(count), start + block.size(row)))
                good = false;
            for (int i = 0; good && i < count; ++i, ++row) {
                uchar *const line = pixels + lineBytes * (shape.height - 1 - row);
                unpack(block.row(i).data(), static_cast<std::size_t>(shape.width),
                       {line, static_cast<std::size_t>(lineBytes)});
            }
        }
    };
    constexpr qint64 worthwhileBytes = qint64{1024} * 1024;
    in_two_halves(static_cast<std::size_t>(shape.height), static_cast<std::size_t>(worthwhileBytes / shape.rowBytes()),
                  readSome);
    return good;
}

/// The page of a file whose header has been read.
QImage read_page(QFile &file, const SnapshotShape &shape)
{
    if (!is_affordable(shape))
        return {};
    std::optional<QList<QRgb>> table = read_table(file, shape);
    QImage page = new_page({shape.width, shape.height}, page_format(shape));
    if (!table || page.isNull())
        return {};
    // Intended: a page of one bit comes back with the lighter colour first. It looks the same, but its bits
    // and its table do not stay what they were; that is how the toolkit reads it.
    const bool flipsBits = has_dark_color_first(shape, *table);
    if (flipsBits)
        table->swapItemsAt(0, 1);
    if (shape.bits == 1 && table->size() == 1)
        table->append(qRgb(0, 0, 0)); // as whatever is read has it
    if (!read_rows(file, shape, row_unpacker(shape, flipsBits), &page))
        return {};
    page.setColorTable(*table);
    page.setDotsPerMeterX(shape.dotsPerMeterX);
    page.setDotsPerMeterY(shape.dotsPerMeterY);
    return with_positive_resolution(std::move(page)); // as for whatever is read
}

/// What the toolkit makes of a file that write_snapshot() left to it, or that somebody else has put there.
QImage read_by_toolkit(QFile &file)
{
    if (!file.seek(0) || !is_complete_image(file))
        return {};
    limit_image_readers();
    QImage image;
    if (!QImageReader(&file, SnapshotFormatWord).read(&image))
        return {};
    return to_page_image(std::move(image));
}

} // namespace

QImage read_snapshot(const QString &fileName)
{
    Descriptor opened = open_own_file(fileName);
    QFile file;
    SnapshotHeader header{};
    if (!opened.isOpen()
        || !file.open(opened.release(), QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle)
        || file.read(reinterpret_cast<char *>(header.data()), header.size()) <= 0)
        return {};
    const std::optional<SnapshotShape> shape = snapshot_shape(header);
    if (!shape || file.size() > shape->fileBytes())
        return read_by_toolkit(file);
    // The toolkit would make a page of a file that has been cut short, with noise where pixels are missing.
    return file.size() < shape->fileBytes() || !file.seek(shape->headerBytes()) ? QImage() : read_page(file, *shape);
}
