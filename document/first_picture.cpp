#include "first_picture.h"

#include "complete_file.h"
#include "file_state.h"
#include "image_memory.h"
#include "mended_file.h"
#include "page_buffers.h"
#include "page_image.h"
#include "tiff_codec.h"
#include "tiff_wide_page.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>

#include <optional>
#include <tiffio.h>
#include <utility>

namespace {

/// An image that the reader will take for its own picture, on memory that pages stood on before; null where
/// the reader had better make one itself.
QImage image_to_fill(const QImageReader &reader)
{
    const QImage::Format format = reader.imageFormat();
    if (format != QImage::Format_RGB32 && format != QImage::Format_ARGB32)
        return {}; // colour tables come with the picture
    const QSize size = reader.size();
    constexpr qint64 MiB = qint64{1024} * 1024;
    const bool isAllowed = qint64{4} * size.width() * size.height() <= MiB * QImageReader::allocationLimit();
    return isAllowed ? new_page(size, format) : QImage();
}

/// What the toolkit's reader of TIFF files does not make, or makes slowly: the large colour pages of scanners, and
/// wide samples that lie in another way than that reader thinks.
/// @return nothing if the file is to be left to the toolkit; null if it cannot be shown
std::optional<QImage> read_tiff(const QImageReader &reader, const QFile &file, QImage &image)
{
    if (!reader.format().startsWith("tif"))
        return std::nullopt;
    const TiffHandle tif = open_tiff(file.fileName(), "rm");
    if (!tif || file_state(TIFFFileno(tif.get())) != file_state(file.handle()))
        return QImage();
    if (has_odd_wide_samples(tif.get()))
        return read_odd_wide_samples(tif.get());
    if (image.format() == QImage::Format_RGB32 && read_plain_rgb_page(tif.get(), image))
        return image;
    return std::nullopt;
}

QImage read_from_file(QFile &file, const QString &imgFormat)
{
    limit_image_readers();
    if (!is_complete_image(file))
        return {};
    MendedFile mended = mended_file(file);
    QBuffer buffer(&mended.bytes);
    const bool isMended = !mended.bytes.isEmpty() && buffer.open(QIODevice::ReadOnly);
    QImageReader reader(isMended ? static_cast<QIODevice *>(&buffer) : &file, imgFormat.toLatin1());
    QImage image = image_to_fill(reader);
    if (std::optional<QImage> page = read_tiff(reader, file, image))
        return to_page_image(*std::move(page));
    if (!reader.read(&image)) {
        image = {};
        drop_spare_page(); // of the size that a broken file has claimed
        return {};
    }
    if (mended.clearColor)
        image = with_clear_color(std::move(image), *mended.clearColor);
    return adopt_page(to_page_image(std::move(image)));
}

} // namespace

QImage read_first_picture(const QString &filePath, const QString &imgFormat)
{
    // Opened here and not by the reader, which would try other suffixes if it may not open this file.
    QFile file(filePath);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const FileState state = file_state(file.handle());
    QImage page = read_from_file(file, imgFormat);
    // The pixels of a file that another program cuts meanwhile are its own only down to some row.
    return file_state(file.handle()) == state ? page : QImage();
}
