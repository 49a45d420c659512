// Opening; saving is in ImageDocument_save.cpp.
#include "descriptor.h"
#include "early_picture.h"
#include "file_state.h"
#include "first_picture.h"
#include "ImageDocument.h"
#include "ImageFormat.h"
#include "picture_word.h"
#include "tiff_codec.h"
#include "tiff_pages_ahead.h"

#include <QFile>
#include <QScopeGuard>

#include <fcntl.h>
#include <tiffio.h>

namespace {

/// The page that was decoded early, or read now.
QImage read_page(const QString &filePath, const QString &imgFormat, int file)
{
    QImage page = take_early_picture(filePath, imgFormat, file);
    return page.isNull() ? read_first_picture(filePath, imgFormat) : page;
}

} // namespace

bool ImageDocument::load(const QString &filePath, const QString &imgFormat)
{
    // A picture decoded early is for the first load, whatever comes of it.
    const auto ended = qScopeGuard(end_early_picture);
    if (filePath.isEmpty() || !QFile::exists(filePath)) {
        loadStatus = LoadNoFile;
        return false;
    }
    // Named before the size is judged: a file that is too large is copied from here by save().
    fileInfo.setFile(filePath);
    // Looking into a pipe would wait for a writer.
    const bool isRegular = fileInfo.isFile();
    imgFormat_ = imgFormat.isEmpty() && isRegular ? picture_word(filePath) : imgFormat;
    if (QFile(filePath).size() > LargestFileBytes) {
        loadStatus = LoadTooBig;
        return false;
    }
    if (!isRegular)
        return false;

    // Open before the page is read, so that what is counted and what is shown are one file.
    const Descriptor file(::open(QFile::encodeName(filePath).constData(), O_RDONLY | O_CLOEXEC));
    const FileState state = file.isOpen() ? file_state(file.get()) : FileState();
    // Intended: only this spelling. The word read off a file's content is "tiff" and takes one page.
    const bool loaded =
        imgFormat_ == TiffFormatKey ? loadTiff(filePath) : addPage(read_page(filePath, imgFormat_, file.get()));
    // Intended: after a failure the flag stays as addPage() left it, so a half loaded file is modified.
    if (loaded)
        setModified(false);
    if (!isEmpty() && file.isOpen())
        notePictures(filePath, file.get(), state);
    return loaded;
}

bool ImageDocument::loadTiff(const QString &filePath)
{
    // "m": reading into our own rows is faster than the page faults of a mapped file.
    const TiffHandle tif = open_tiff(filePath, "rm");
    if (!tif)
        return false;
    const FileState state = file_state(TIFFFileno(tif.get()));
    TiffPagesAhead reader(tif.get());
    for (;;) {
        QImage image;
        if (!reader.readPage(image) || file_state(TIFFFileno(tif.get())) != state || !addPage(image))
            return false;
        if (TIFFLastDirectory(tif.get()) != 0)
            return true;
        if (TIFFReadDirectory(tif.get()) != 1)
            return false;
    }
}
