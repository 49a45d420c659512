#include "snapshot_file.h"

#include "file_room.h"
#include "PlainSemaphore.h"
#include "private_file.h"
#include "snapshot_rows.h"
#include "snapshot_shape.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <future>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace {

constexpr int DefaultQuality = -1;

bool write_all(QFile &file, const void *bytes, qint64 count)
{
    return file.write(static_cast<const char *>(bytes), count) == count;
}

/// Some systems say only now that they cannot keep what they were given.
bool close_safely(QFile &file)
{
    const bool good = file.error() == QFileDevice::NoError; // closing forgets it
    file.close();
    return good && file.error() == QFileDevice::NoError;
}

RowCopy row_packer(const SnapshotShape &shape, QImage::Format format)
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
    return shape.bits == 32 ? copy_words : copy_bytes;
}

/// The bytes of a snapshot file in order: header, table, and the rows of the page from the lowest on.
class SnapshotBytes
{
public:
    SnapshotBytes(const QImage &image, const SnapshotShape &shape) :
        copy(row_packer(shape, image.format())),
        lines(image.constBits()),
        lineBytes(image.bytesPerLine()),
        width(static_cast<std::size_t>(shape.width)),
        rowBytes(static_cast<std::size_t>(shape.rowBytes())),
        below(shape.height)
    {
        const SnapshotHeader header = snapshot_header(shape);
        waiting.assign(header.begin(), header.begin() + shape.headerBytes());
        for (const QRgb color : image.colorTable()) {
            const quint32 entry = qToLittleEndian(shape.hasTableAlpha ? color : color & RGB_MASK);
            const auto bytes = std::bit_cast<std::array<uchar, SnapshotShape::TableEntryBytes>>(entry);
            waiting.insert(waiting.end(), bytes.begin(), bytes.end());
        }
    }

    /// Fills the block with the next bytes.
    /// @return how many there were; fewer than the block takes at the end of the file
    [[nodiscard]] std::size_t fill(std::span<uchar> block)
    {
        std::size_t done = takeWaiting(block);
        while (done < block.size() && below > 0) {
            const std::span<uchar> rest = block.subspan(done);
            if (rest.size() >= rowBytes) {
                packRow(rest.first(rowBytes));
                done += rowBytes;
            } else {
                waiting.resize(rowBytes);
                packRow(waiting);
                done += takeWaiting(rest);
            }
        }
        return done;
    }

private:
    void packRow(std::span<uchar> row) { copy(lines + lineBytes * --below, width, row); }

    std::size_t takeWaiting(std::span<uchar> block)
    {
        const std::size_t count = std::min(block.size(), waiting.size() - taken);
        std::memcpy(block.data(), waiting.data() + taken, count);
        taken += count;
        if (taken == waiting.size()) {
            waiting.clear();
            taken = 0;
        }
        return count;
    }

    RowCopy copy;
    const uchar *lines;
    qsizetype lineBytes;
    std::size_t width;
    std::size_t rowBytes;
    int below; ///< rows that are still to come
    std::vector<uchar> waiting; ///< what comes before the next row: header and table, or a row that did not fit
    std::size_t taken = 0; ///< how much of that is gone
};

/// Blocks are written to multiples of their size, as whole pages of the system's memory go to the file fastest, and
/// stay in the cache between packing and writing.
constexpr std::size_t WrittenBlockBytes = std::size_t{256} * 1024;

bool write_by_turns(QFile &file, SnapshotBytes &source)
{
    std::vector<uchar> block(WrittenBlockBytes);
    for (std::size_t size = source.fill(block); size > 0; size = source.fill(block)) {
        if (!write_all(file, block.data(), static_cast<qint64>(size)))
            return false;
    }
    return true;
}

/// A block on its way from the thread that packs to the one that writes.
struct PackedBlock
{
    std::vector<uchar> bytes = std::vector<uchar>(WrittenBlockBytes);
    std::size_t size = 0; ///< 0 after the last byte
};

/// Packs ahead on another thread while the bytes before are written, as both take their time.
bool write_packed_ahead(QFile &file, SnapshotBytes &source)
{
    std::array<PackedBlock, 3> blocks;
    PlainSemaphore empty(blocks.size());
    PlainSemaphore packed(0);
    std::atomic<bool> isWanted = true;
    const auto packAll = [&] {
        for (std::size_t i = 0; isWanted; i = (i + 1) % blocks.size()) {
            empty.acquire();
            PackedBlock &block = blocks.at(i);
            block.size = source.fill(block.bytes);
            packed.release();
            if (block.size == 0)
                return;
        }
    };
    const std::future<void> packing = std::async(std::launch::async | std::launch::deferred, packAll);
    // Where no thread is to be had, the same is done by turns.
    if (packing.wait_for(std::chrono::seconds(0)) == std::future_status::deferred)
        return write_by_turns(file, source);

    bool good = true;
    for (std::size_t i = 0; good; i = (i + 1) % blocks.size()) {
        packed.acquire();
        const PackedBlock &block = blocks.at(i);
        if (block.size == 0)
            break;
        good = write_all(file, block.bytes.data(), static_cast<qint64>(block.size));
        empty.release();
    }
    isWanted = false;
    empty.release(); // the packing may wait for a block, and has to end before the blocks do
    packing.wait();
    return good;
}

bool write_page(QFile &file, const QImage &image, const SnapshotShape &shape)
{
    SnapshotBytes source(image, shape);
    reserve_room(file.handle(), shape.fileBytes());
    // Rows that are only copied are hardly worth a thread, nor are few blocks.
    const bool isWorthThread = shape.bits == 24 && shape.pixelBytes() > qint64{16 * WrittenBlockBytes};
    return isWorthThread ? write_packed_ahead(file, source) : write_by_turns(file, source);
}

/// A shape that is not known leaves the image to the toolkit. Closes the file.
bool write_shaped(QFile &file, const QImage &image, const std::optional<SnapshotShape> &shape)
{
    const bool written =
        shape ? write_page(file, image, *shape) : image.save(&file, SnapshotFormatWord, DefaultQuality);
    return close_safely(file) && written;
}

/// Pages with rows of unusual length are left to the toolkit, which drops transparency; so they get usual ones.
QImage with_usual_rows(const QImage &image)
{
    const bool isUsual = image.bytesPerLine() == (qsizetype{image.width()} * image.depth() + 31) / 32 * 4;
    return isUsual || image.depth() > 8 || !image.hasAlphaChannel() ? image : image.copy();
}

} // namespace

bool write_snapshot(const QString &fileName, const QImage &image, bool *isTaken)
{
    if (isTaken)
        *isTaken = false;
    if (image.isNull())
        return false;
    Descriptor made = make_private_file(fileName);
    if (!made.isOpen()) {
        if (isTaken)
            *isTaken = errno == EEXIST;
        return false;
    }
    QFile file;
    if (!file.open(made.release(), QIODevice::WriteOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle))
        return false;
    const QImage page = with_usual_rows(image);
    return write_shaped(file, page, snapshot_shape(page));
}

bool write_bmp(QFile &file, const QImage &image)
{
    return write_shaped(file, image, bmp_shape(image));
}
