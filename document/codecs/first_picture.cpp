#include "first_picture.h"

#include "complete_file.h"
#include "file_state.h"
#include "image_memory.h"
#include "jpeg_page.h"
#include "mended_file.h"
#include "page_buffers.h"
#include "page_image.h"
#include "picture_word.h"
#include "png_file.h"
#include "tiff_codec.h"
#include "tiff_tiles.h"
#include "tiff_wide_page.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>

#include <algorithm>
#include <array>
#include <optional>
#include <tiffio.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// By content: a reader only repeats the word that it was given, in any spelling.
bool starts_like_tiff(QIODevice &file)
{
    const QByteArray start = file.peek(4);
    constexpr std::array<QByteArrayView, 4> starts{{{"II*\0", 4}, {"MM\0*", 4}, {"II+\0", 4}, {"MM\0+", 4}}};
    return std::ranges::count(starts, QByteArrayView(start)) > 0;
}

/// Of a size that the readers themselves would make, or null.
QImage cleared_image(QSize size, QImage::Format format)
{
    QImage image(size, format);
    if (!image.isNull())
        std::fill_n(image.bits(), image.sizeInBytes(), uchar{0});
    return image;
}

/// An image that the reader will take for its own picture, on memory that pages stood on before; null where
/// the reader had better make one itself.
QImage image_to_fill(const QImageReader &reader, bool isTiff)
{
    const QSize size = reader.size();
    if (!size.isValid())
        return {}; // for a broken header the toolkit's JPEG reader tells a format out of the blue
    const QImage::Format format = reader.imageFormat();
    const bool isPageFormat = format == QImage::Format_RGB32 || format == QImage::Format_ARGB32;
    if (format == QImage::Format_Invalid || (!isPageFormat && !isTiff))
        return {}; // colour tables come with the picture
    const qint64 bits = qint64{QImage::toPixelFormat(format).bitsPerPixel()} * size.width() * size.height();
    constexpr qint64 MiB = qint64{1024} * 1024;
    if (bits / 8 > MiB * QImageReader::allocationLimit())
        return {};
    // Damaged rows of a TIFF file may leave some bytes as they were.
    return isPageFormat ? new_page(size, format) : cleared_image(size, format);
}

/// What the toolkit's reader of TIFF files does not make, or makes slowly: the large colour pages of scanners, and
/// wide samples that lie in another way than that reader thinks.
/// @return nothing if the file is to be left to the toolkit; null if it cannot be shown
std::optional<QImage> read_tiff(const QFile &file, QImage &image)
{
    const TiffHandle tif = open_tiff(file.fileName(), "rm");
    if (!tif || file_state(TIFFFileno(tif.get())) != file_state(file.handle()))
        return QImage();
    if (has_odd_wide_samples(tif.get()))
        return read_odd_wide_samples(tif.get());
    if (image.format() == QImage::Format_RGB32 && read_plain_rgb_page(tif.get(), image))
        return image;
    return has_whole_tiles(tif.get()) ? std::nullopt : std::optional(QImage());
}

/// Who is there to read a picture.
enum class Readers { All, QuietOnes };

bool is_jpeg_word(const QString &imgFormat)
{
    return imgFormat.compare("jpeg"_L1, Qt::CaseInsensitive) == 0
        || imgFormat.compare("jpg"_L1, Qt::CaseInsensitive) == 0;
}

QImage read_from_file(QFile &file, const QString &imgFormat, Readers readers)
{
    if (is_jpeg_word(imgFormat)) {
        QImage page = read_plain_jpeg(file); // looks whether the file is whole by itself
        if (!page.isNull() || !file.seek(0))
            return page;
    }
    if (!is_complete_image(file))
        return {};
    MendedFile mended = mended_file(file);
    QBuffer buffer(&mended.bytes);
    if (mended.bytes.isEmpty() && imgFormat.compare("png"_L1, Qt::CaseInsensitive) == 0) {
        QImage page = read_plain_png(file);
        if (!page.isNull() || readers == Readers::QuietOnes || !file.seek(0))
            return page;
    }
    const bool isMended = !mended.bytes.isEmpty() && buffer.open(QIODevice::ReadOnly);
    QIODevice &device = isMended ? static_cast<QIODevice &>(buffer) : file;
    const bool startsLikeTiff = starts_like_tiff(device);
    QImageReader reader(&device, imgFormat.toLatin1());
    // Otherwise all plug-ins before the one of that name are loaded, and asked for it.
    reader.setAutoDetectImageFormat(imgFormat != (startsLikeTiff ? u"tiff"_s : single_picture_word(device)));
    const bool isTiff = startsLikeTiff && reader.canRead();
    QImage image = image_to_fill(reader, isTiff);
    if (isTiff) {
        if (std::optional<QImage> page = read_tiff(file, image))
            return to_page_image(*std::move(page));
    }
    if (!reader.read(&image)) {
        image = {};
        drop_spare_page(); // of the size that a broken file has claimed
        return {};
    }
    if (mended.clearColor)
        image = with_clear_color(std::move(image), *mended.clearColor);
    return adopt_page(to_page_image(std::move(image)));
}

QImage read_whole_file(const QString &filePath, const QString &imgFormat, Readers readers)
{
    // Opened here and not by the reader, which would try other suffixes if it may not open this file.
    QFile file(filePath);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const FileState state = file_state(file.handle());
    QImage page = read_from_file(file, imgFormat, readers);
    // The pixels of a file that another program cuts meanwhile are its own only down to some row.
    return file_state(file.handle()) == state ? page : QImage();
}

} // namespace

QImage read_first_picture(const QString &filePath, const QString &imgFormat)
{
    limit_image_readers();
    return read_whole_file(filePath, imgFormat, Readers::All);
}

QImage read_first_picture_apart(const QString &filePath, const QString &imgFormat)
{
    return read_whole_file(filePath, imgFormat, Readers::QuietOnes);
}
