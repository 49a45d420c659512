// Opening and saving.
#include "file_room.h"
#include "file_state.h"
#include "first_picture.h"
#include "ImageDocument.h"
#include "ImageFormat.h"
#include "tiff_codec.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QImageWriter>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <numeric>
#include <sys/stat.h>
#include <tiffio.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 LargestFileBytes = 0x20000000;

/// A file that remembers the first of its bytes that did not reach the disk. The toolkit forgets it with the next
/// call that succeeds, and some writers go on and look at the last call alone.
class WatchedFile : public QFile
{
public:
    using QFile::QFile;

    /// Why it failed; empty if it did not.
    [[nodiscard]] QString firstError() const { return error; }

    bool seek(qint64 position) override { return noted(QFile::seek(position)); }

protected:
    qint64 writeData(const char *data, qint64 count) override
    {
        const qint64 written = QFile::writeData(data, count);
        (void)noted(written == count);
        return written;
    }

private:
    bool noted(bool good)
    {
        if (!good && error.isEmpty())
            error = errorString();
        return good;
    }

    QString error;
};

/// Why the toolkit cannot write this format; empty if it can.
QString writer_refusal(const QString &imgFormat)
{
    // Asked of a device in memory: on a file the question would empty it.
    QBuffer nowhere;
    QImageWriter writer(&nowhere, imgFormat.toLatin1());
    return writer.canWrite() ? QString() : writer.errorString();
}

/// A file descriptor that is closed at the end of its scope.
class Descriptor
{
public:
    Descriptor(const QString &path, int flags) : fd(::open(path.toUtf8().constData(), flags | O_CLOEXEC, 0644)) { }
    ~Descriptor()
    {
        if (fd >= 0)
            ::close(fd);
    }
    Q_DISABLE_COPY_MOVE(Descriptor)

    [[nodiscard]] int get() const { return fd; }

private:
    int fd;
};

bool is_same_file(const QString &path1, const QString &path2)
{
    using FileStatus = struct stat;
    FileStatus status1{};
    FileStatus status2{};
    return ::stat(path1.toUtf8().constData(), &status1) == 0 && ::stat(path2.toUtf8().constData(), &status2) == 0
        && status1.st_dev == status2.st_dev && status1.st_ino == status2.st_ino;
}

/// Copies to the end of the source.
/// @return false if the source could not be read to its end
bool copy_bytes(int from, int to)
{
    std::array<char, std::size_t{64} * 1024> block{};
    for (;;) {
        const ssize_t count = ::read(from, block.data(), block.size());
        if (count == 0)
            return true;
        if (count > 0) {
            // Intended: what the target does not take is lost without a word.
            [[maybe_unused]] const ssize_t written = ::write(to, block.data(), static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            return false;
        }
    }
}

} // namespace

bool ImageDocument::load(const QString &filePath, const QString &imgFormat)
{
    if (filePath.isEmpty() || !QFile::exists(filePath)) {
        loadStatus = LoadNoFile;
        return false;
    }
    // Named before the size is judged: a file that is too large is copied from here by save().
    fileInfo.setFile(filePath);
    // Looking into a pipe would wait for a writer.
    const bool isRegular = fileInfo.isFile();
    imgFormat_ =
        imgFormat.isEmpty() && isRegular ? QString::fromLatin1(QImageReader::imageFormat(filePath)) : imgFormat;
    if (QFile(filePath).size() > LargestFileBytes) {
        loadStatus = LoadTooBig;
        return false;
    }
    if (!isRegular)
        return false;

    // Intended: only this spelling. The word read off a file's content is "tiff" and takes one page.
    const bool loaded =
        imgFormat_ == TiffFormatKey ? loadTiff(filePath) : addPage(read_first_picture(filePath, imgFormat_));
    // Intended: after a failure the flag stays as addPage() left it, so a half loaded file is modified.
    if (loaded)
        setModified(false);
    return loaded;
}

bool ImageDocument::save(const QString &filePath, const QString &imgFormat)
{
    lastError.clear();
    if (filePath.isEmpty() || imgFormat.isEmpty())
        return false;
    if (isEmpty())
        return copyFile(filePath);

    if (!savePages(filePath, imgFormat))
        return false;
    fileInfo.setFile(filePath);
    imgFormat_ = imgFormat;
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

bool ImageDocument::saveSinglePage(const QString &filePath, const QString &imgFormat)
{
    // Before the file is opened, which empties it.
    lastError = writer_refusal(imgFormat);
    if (!lastError.isEmpty())
        return false;

    WatchedFile file(filePath);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Truncate)) {
        lastError = tr("Can not open file for write: \n%1").arg(file.errorString());
        return false;
    }
    QImageWriter writer(&file, imgFormat.toLatin1());
    if (!writer.write(page(1))) {
        lastError = writer.errorString();
        return false;
    }
    // The writer is content when the bytes are in the file's buffer; the disk may still refuse them.
    lastError = file.flush() ? file.firstError() : file.errorString();
    return lastError.isEmpty();
}

bool ImageDocument::copyFile(const QString &filePath)
{
    // Opening a file to copy it onto itself would empty it.
    if (is_same_file(fileInfo.filePath(), filePath))
        return true;
    const Descriptor source(fileInfo.filePath(), O_RDONLY);
    if (source.get() < 0) {
        lastError = qt_error_string(errno);
        return false;
    }
    // Intended: whether the target could be opened is not asked. The user is offered this copy instead of
    // the picture, and it answers true once the source has been read.
    const Descriptor target(filePath, O_WRONLY | O_CREAT | O_TRUNC);
    if (copy_bytes(source.get(), target.get()))
        return true;
    lastError = qt_error_string(errno);
    return false;
}

bool ImageDocument::loadTiff(const QString &filePath)
{
    // "m": reading into our own rows is faster than the page faults of a mapped file.
    const TiffHandle tif = open_tiff(filePath, "rm");
    if (!tif)
        return false;
    const FileState state = file_state(TIFFFileno(tif.get()));
    for (;;) {
        QImage image;
        if (!readTiffPage(tif.get(), image) || file_state(TIFFFileno(tif.get())) != state || !addPage(image))
            return false;
        if (TIFFLastDirectory(tif.get()) != 0)
            return true;
        if (TIFFReadDirectory(tif.get()) != 1)
            return false;
    }
}

bool ImageDocument::saveTiff(const QString &filePath)
{
    const TiffHandle tif = open_tiff(filePath, "w");
    if (!tif)
        return false;
    reserve_room(TIFFFileno(tif.get()),
                 std::transform_reduce(pages.cbegin(), pages.cend(), qint64{0}, std::plus{}, tiff_row_bytes));
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
