// Saving.
#include "descriptor.h"
#include "file_room.h"
#include "ImageDocument.h"
#include "ImageFormat.h"
#include "page_refusal.h"
#include "target_file.h"
#include "tiff_target.h"

#include <QBuffer>
#include <QImageWriter>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <numeric>
#include <sys/stat.h>
#include <tiffio.h>
#include <unistd.h>

namespace {

/// Why the toolkit cannot write this format; empty if it can.
QString writer_refusal(const QString &imgFormat)
{
    // Asked of a device in memory: on a file the question would empty it.
    QBuffer nowhere;
    QImageWriter writer(&nowhere, imgFormat.toLatin1());
    return writer.canWrite() ? QString() : writer.errorString();
}

bool is_same_file(const QString &path1, const QString &path2)
{
    using FileStatus = struct stat;
    FileStatus status1{};
    FileStatus status2{};
    return ::stat(path1.toUtf8().constData(), &status1) == 0 && ::stat(path2.toUtf8().constData(), &status2) == 0
        && status1.st_dev == status2.st_dev && status1.st_ino == status2.st_ino;
}

/// Copies to the end of the source.
/// @param[out] readError  what the system said if it was the source that failed
bool copy_bytes(int from, QIODevice &to, QString *readError)
{
    std::array<char, std::size_t{64} * 1024> block{};
    for (;;) {
        const ssize_t count = ::read(from, block.data(), block.size());
        if (count == 0)
            return true;
        if (count > 0) {
            if (to.write(block.data(), count) != count)
                return false;
        } else if (errno != EINTR) {
            *readError = qt_error_string(errno);
            return false;
        }
    }
}

bool write_tiff(TargetFile &file, const std::list<QImage> &pages, qint64 rowBytes)
{
    const TiffHandle tif = begin_tiff(file, "w");
    if (!tif)
        return false;
    reserve_room(file.handle(), rowBytes);
    bool first = true;
    for (const QImage &image : pages) {
        if (!first && TIFFWriteDirectory(tif.get()) != 1)
            return false;
        if (!writeTiffPage(tif.get(), image))
            return false;
        first = false;
    }
    // Closing would write the last directory too, but could not tell of a failure.
    return TIFFFlush(tif.get()) == 1;
}

qint64 row_bytes_of(const std::list<QImage> &pages)
{
    return std::transform_reduce(pages.cbegin(), pages.cend(), qint64{0}, std::plus{}, tiff_row_bytes);
}

/// Why the name could not be opened; empty if it could.
QString opening_refusal(const TargetOutcome &outcome)
{
    return outcome.step == TargetOutcome::NotPlain ? ImageDocument::tr("This is no plain file.") : outcome.reason;
}

} // namespace

bool ImageDocument::save(const QString &filePath, const QString &imgFormat)
{
    lastError.clear();
    lastErrorReason.clear();
    if (filePath.isEmpty() || imgFormat.isEmpty())
        return false;
    if (isEmpty())
        return copyFile(filePath);

    const bool isTiff = is_tiff_word(imgFormat);
    const QString word = isTiff && pageCount() > 1 ? TiffFormatKey : imgFormat; // the one writer of several pages
    const bool isKeeping = isTiff && hasKeptPages();
    if (isKeeping ? !saveWithKeptPages(filePath, word) : !savePages(filePath, word))
        return false;
    fileInfo.setFile(filePath);
    imgFormat_ = word;
    noteSavedPictures(filePath, isKeeping);
    setModified(false);
    return true;
}

bool ImageDocument::savePages(const QString &filePath, const QString &imgFormat)
{
    if (imgFormat == TiffFormatKey) {
        const bool saved = saveTiff(filePath);
        if (!saved)
            lastError = tr("Error saving TIFF image!");
        return saved;
    }
    if (pageCount() > 1) {
        lastError = tr("Multipage image doesn't supported with format <%1>").arg(imgFormat);
        return false;
    }
    return saveSinglePage(filePath, imgFormat);
}

QString ImageDocument::refusalOf(const QString &imgFormat) const
{
    if (imgFormat == TiffFormatKey)
        return tiff_refusal(row_bytes_of(pages));
    const QString refusal = writer_refusal(imgFormat);
    return refusal.isEmpty() ? page_refusal(page(1), imgFormat) : refusal;
}

/// @param[out] writerError  what the toolkit's writer said
bool ImageDocument::writePages(TargetFile &file, const QString &imgFormat, QString *writerError) const
{
    if (imgFormat == TiffFormatKey)
        return write_tiff(file, pages, row_bytes_of(pages));
    QImageWriter writer(&file, imgFormat.toLatin1());
    const bool isWritten = writer.write(without_bad_texts(page(1), imgFormat));
    *writerError = isWritten ? QString() : writer.errorString();
    return isWritten;
}

bool ImageDocument::saveSinglePage(const QString &filePath, const QString &imgFormat)
{
    lastError = refusalOf(imgFormat);
    if (!lastError.isEmpty())
        return false;
    QString writerError;
    const TargetOutcome outcome =
        write_target(filePath, [&](TargetFile &file) { return writePages(file, imgFormat, &writerError); });
    lastError = wordsFor(outcome, writerError);
    return outcome.step == TargetOutcome::Done;
}

bool ImageDocument::copyFile(const QString &filePath)
{
    // Nothing to be done, and an owner may be lost by doing it.
    if (is_same_file(fileInfo.filePath(), filePath))
        return true;
    QString readError;
    const Descriptor source(::open(fileInfo.filePath().toUtf8().constData(), O_RDONLY | O_CLOEXEC));
    if (!source.isOpen()) {
        lastError = qt_error_string(errno);
        return false;
    }
    const TargetOutcome outcome = write_target(filePath, [&](TargetFile &file) {
        return ::lseek(source.get(), 0, SEEK_SET) == 0 && copy_bytes(source.get(), file, &readError);
    });
    lastError = wordsFor(outcome, readError);
    return outcome.step == TargetOutcome::Done;
}

bool ImageDocument::saveTiff(const QString &filePath)
{
    lastErrorReason = refusalOf(TiffFormatKey);
    if (!lastErrorReason.isEmpty())
        return false;
    QString writerError;
    const TargetOutcome outcome =
        write_target(filePath, [&](TargetFile &file) { return writePages(file, TiffFormatKey, &writerError); });
    lastErrorReason = opening_refusal(outcome);
    return outcome.step == TargetOutcome::Done;
}

/// What lastError says. The system knows more than a writer, which takes its refusal for an unknown error.
QString ImageDocument::wordsFor(const TargetOutcome &outcome, const QString &writerError)
{
    if (outcome.step == TargetOutcome::NotPlain || outcome.step == TargetOutcome::NotOpened)
        return tr("Can not open file for write: \n%1").arg(opening_refusal(outcome));
    return outcome.reason.isEmpty() ? writerError : outcome.reason;
}
