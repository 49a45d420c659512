#include "png_file.h"

#include "page_buffers.h"
#include "page_image.h"
#include "png_chunks.h"
#include "png_rows.h"
#include "rgb_rows.h"
#include "whole_file.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>

#include <algorithm>
#include <cstring>
#include <libdeflate.h>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace {

using Kind = PngShape::Kind;

QImage::Format page_format(const PngShape &shape)
{
    if (shape.bits == 1)
        return QImage::Format_Mono;
    if (shape.kind == Kind::Color)
        return QImage::Format_RGB32;
    return shape.kind == Kind::ColorAlpha ? QImage::Format_ARGB32 : QImage::Format_Indexed8;
}

/// Whether the toolkit would take a picture of this size.
bool is_affordable(const PngShape &shape)
{
    constexpr qint64 MiB = qint64{1024} * 1024;
    const int limit = QImageReader::allocationLimit();
    const qint64 pageBits =
        qint64{QImage::toPixelFormat(page_format(shape)).bitsPerPixel()} * shape.size.width() * shape.size.height();
    return limit == 0 || (pageBits / 8 <= limit * MiB && shape.storedBytes() <= limit * MiB);
}

/// Exactly as many bytes as there is place for, of a stream that ends with its last byte.
bool inflate(QByteArrayView deflated, std::span<uchar> bytes)
{
    const std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)> decompressor(
        libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
    if (!decompressor)
        return false;
    const auto size = static_cast<std::size_t>(deflated.size());
    std::size_t used = 0;
    return libdeflate_zlib_decompress_ex(decompressor.get(), deflated.data(), size, bytes.data(), bytes.size(), &used,
                                         nullptr)
        == LIBDEFLATE_SUCCESS
        && used == size;
}

/// All rows as they are stored, within the page that they become or, for small ones, elsewhere.
class StoredRows
{
public:
    StoredRows(const PngShape &pngShape, int pngColorCount) : shape(pngShape), colorCount(pngColorCount) { }

    /// The page with its pixels; null if they are damaged, or the memory is short.
    [[nodiscard]] QImage pageOf(QByteArrayView deflated)
    {
        QImage page = new_roomy_page(shape.size, page_format(shape), shape.storedBytes());
        uchar *const memory = page.bits();
        if (!memory)
            return {};
        // At the end of the room: the rows of the page, which grow from its start, never reach those still to be read.
        stored = memory + std::max(page.sizeInBytes() - shape.storedBytes(), qsizetype{0});
        std::vector<uchar> smallRoom;
        if (page.sizeInBytes() < SmallestPooledBytes) {
            smallRoom.resize(static_cast<std::size_t>(shape.storedBytes()));
            stored = smallRoom.data();
        }
        const bool isWhole = inflate(deflated, {stored, static_cast<std::size_t>(shape.storedBytes())});
        return isWhole && fill(memory, page.bytesPerLine()) ? page : QImage();
    }

private:
    [[nodiscard]] bool fill(uchar *line, qsizetype lineBytes) const
    {
        const qsizetype count = shape.rowBytes();
        std::vector<uchar> above(static_cast<std::size_t>(count + PngRowSlack));
        std::vector<uchar> row(above.size());
        const uchar *at = stored;
        for (int y = 0; y < shape.size.height(); ++y, line += lineBytes, at += count + 1) {
            if (*at >= PngFilterCount)
                return false;
            undo_png_filter(*at, at + 1, above.data(), row.data(), count, shape.samples());
            if (!putRow(row.data(), line))
                return false;
            std::fill(line + pageRowBytes(), line + lineBytes, uchar{0});
            std::swap(above, row);
        }
        return true;
    }

    /// Of a line of the page without what fills it up.
    [[nodiscard]] qsizetype pageRowBytes() const
    {
        const bool isByWords = shape.kind == Kind::Color || shape.kind == Kind::ColorAlpha;
        return isByWords ? qsizetype{shape.size.width()} * qsizetype{sizeof(QRgb)} : shape.rowBytes();
    }

    [[nodiscard]] bool putRow(const uchar *row, uchar *line) const
    {
        const qsizetype count = shape.rowBytes();
        if (shape.kind == Kind::Color)
            expand_rgb_row(row, reinterpret_cast<QRgb *>(line), shape.size.width());
        else if (shape.kind == Kind::ColorAlpha)
            pack_rgba_row(row, reinterpret_cast<QRgb *>(line), shape.size.width());
        else if (shape.kind == Kind::Grey && shape.bits == 1) // 0 is black in the file, and white on the page
            std::transform(row, row + count, line, [](uchar bits) { return static_cast<uchar>(~bits); });
        else
            std::memcpy(line, row, static_cast<std::size_t>(count));
        const bool isByte = shape.kind == Kind::Indexed && shape.bits == 8;
        return !isByte || *std::max_element(row, row + count) < colorCount;
    }

    const PngShape shape;
    const int colorCount;
    uchar *stored = nullptr;
};

/// What the toolkit makes of everything but the pixels, as a page of one pixel.
QImage attributes(QByteArray &tale)
{
    QBuffer buffer(&tale);
    QImageReader reader(&buffer, "png");
    reader.setAutoDetectImageFormat(false); // or all plug-ins would be loaded, and asked first
    return buffer.open(QIODevice::ReadOnly) ? to_page_image(reader.read()) : QImage();
}

} // namespace

QImage read_plain_png(QFile &file)
{
    const QByteArray start = file.peek(PngHeaderBytes);
    if (start.size() < PngHeaderBytes || is_named_for_a_scale(file))
        return {};
    const std::optional<PngShape> shape = plain_png_shape(start);
    if (!shape || !is_affordable(*shape))
        return {};
    QByteArray bytes = all_bytes(file);
    std::optional<PngParts> parts = png_parts(bytes, *shape);
    if (!parts)
        return {};
    QImage page = StoredRows(*shape, parts->colorCount).pageOf(parts->deflated);
    if (page.isNull())
        return {};
    // Last, so that the toolkit tells what it has to tell once.
    const QImage pattern = attributes(parts->tale);
    if (pattern.format() != page.format())
        return {};
    copy_page_attributes(pattern, page);
    return page;
}
