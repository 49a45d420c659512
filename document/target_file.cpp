#include "target_file.h"

#include "descriptor.h"
#include "file_likeness.h"
#include "UndoHistory.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using FileStatus = struct stat;
using Writer = std::function<bool(TargetFile &file)>;

constexpr mode_t OwnerOnly = 0600;
constexpr mode_t AsTheUserWants = 0666; ///< less what the user's mask takes away
constexpr qint64 StatusBlockBytes = 512; ///< of st_blocks, whatever the blocks of the disk are

TargetOutcome failure(TargetOutcome::Step step, int error)
{
    return {.step = step, .reason = qt_error_string(error)};
}

/// A file of ours, which goes with its object unless it is kept.
class DraftFile
{
public:
    DraftFile(const QString &directory, mode_t mode)
    {
        do {
            const QString number = QString::number(QRandomGenerator::system()->generate64(), 36);
            name = QFile::encodeName(directory + "/.imagemanager-"_L1 + number);
            constexpr int Flags = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
            fd = Descriptor(::open(name.constData(), Flags, mode));
        } while (!fd.isOpen() && errno == EEXIST);
        openError_ = fd.isOpen() ? 0 : errno;
    }
    ~DraftFile()
    {
        if (fd.isOpen() && !isKept)
            ::unlink(name.constData());
    }
    Q_DISABLE_COPY_MOVE(DraftFile)

    [[nodiscard]] bool isOpen() const { return fd.isOpen(); }
    [[nodiscard]] int openError() const { return openError_; }
    [[nodiscard]] int descriptor() const { return fd.get(); }
    [[nodiscard]] const QByteArray &path() const { return name; }
    void keep() { isKept = true; }

    /// Has the writer fill it, and sees all of it to the disk.
    [[nodiscard]] TargetOutcome fill(const Writer &write)
    {
        TargetFile file(fd.get());
        const bool isWritten = write(file);
        const QString error = file.finish();
        if (!isWritten || !error.isEmpty())
            return {.step = TargetOutcome::NotWritten, .reason = error};
        return ::fsync(fd.get()) == 0 || errno == EINVAL ? TargetOutcome() : failure(TargetOutcome::NotWritten, errno);
    }

private:
    QByteArray name;
    Descriptor fd;
    int openError_ = 0;
    bool isKept = false;
};

/// What has the name that is saved to.
struct OldFile
{
    Descriptor file; ///< for writing; not open where there is none
    FileStatus status{};
    QString realPath; ///< links followed; empty if it went elsewhere meanwhile
};

/// @return why it cannot be saved to; Done also where there is no such file
TargetOutcome open_old_file(const QByteArray &name, OldFile &old)
{
    // Asked before it is opened: opening alone does something to a device.
    if (::stat(name.constData(), &old.status) == 0 && !S_ISREG(old.status.st_mode))
        return S_ISDIR(old.status.st_mode) ? failure(TargetOutcome::NotOpened, EISDIR)
                                           : TargetOutcome{.step = TargetOutcome::NotPlain, .reason = {}};
    old.file = Descriptor(::open(name.constData(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!old.file.isOpen())
        return errno == ENOENT ? TargetOutcome() : failure(TargetOutcome::NotOpened, errno);
    if (::fstat(old.file.get(), &old.status) != 0 || !S_ISREG(old.status.st_mode))
        return {.step = TargetOutcome::NotPlain, .reason = {}};

    const std::unique_ptr<char, decltype(&std::free)> path(::realpath(name.constData(), nullptr), &std::free);
    FileStatus there{};
    if (path && ::lstat(path.get(), &there) == 0 && there.st_dev == old.status.st_dev
        && there.st_ino == old.status.st_ino)
        old.realPath = QFile::decodeName(path.get());
    return {};
}

/// Where a file is made that does not exist: a link may name it.
QString new_file_path(QString path)
{
    constexpr int MostLinks = 40; // as the system has it
    for (int i = 0; i < MostLinks && QFileInfo(path).isSymbolicLink(); ++i)
        path = QFileInfo(path).symLinkTarget();
    return path;
}

void flush_directory(const QString &path)
{
    const Descriptor directory(::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // Who may not read it leaves the time of the rename to the system.
    if (directory.isOpen())
        (void)::fsync(directory.get());
}

bool take_place(DraftFile &draft, const QString &path)
{
    if (::rename(draft.path().constData(), QFile::encodeName(path).constData()) != 0)
        return false;
    draft.keep();
    flush_directory(QFileInfo(path).path());
    return true;
}

TargetOutcome make_file(const QString &path, const Writer &write)
{
    DraftFile draft(QFileInfo(path).path(), AsTheUserWants);
    if (!draft.isOpen())
        return failure(TargetOutcome::NotOpened, draft.openError());
    TargetOutcome outcome = draft.fill(write);
    if (outcome.step != TargetOutcome::Done)
        return outcome;
    return take_place(draft, path) ? TargetOutcome() : failure(TargetOutcome::NotWritten, errno);
}

/// Finds room for all of the new bytes before the first of the old ones is lost.
/// @return 0, or the error of the system
int reserve_all_room(const OldFile &old, qint64 bytes)
{
    if (::fallocate(old.file.get(), FALLOC_FL_KEEP_SIZE, 0, bytes) == 0)
        return 0;
    const int error = errno;
    if (error == ENOSPC || error == EDQUOT || error == EFBIG) {
        // Gives back what it had got; the size is its own.
        if (::ftruncate(old.file.get(), old.status.st_size) != 0)
            qDebug("target_file - room that was reserved stays with the file");
        return error;
    }
    // A file system that knows no reserving.
    struct statvfs disk = {};
    if (::fstatvfs(old.file.get(), &disk) != 0)
        return errno;
    const qint64 room = static_cast<qint64>(disk.f_bavail) * static_cast<qint64>(disk.f_frsize);
    return old.status.st_blocks * StatusBlockBytes + room < bytes ? ENOSPC : 0;
}

bool write_all(int fd, const char *bytes, ssize_t count)
{
    while (count > 0) {
        const ssize_t written = ::write(fd, bytes, static_cast<std::size_t>(count));
        if (written < 0 && errno != EINTR)
            return false;
        bytes += std::max<ssize_t>(written, 0);
        count -= std::max<ssize_t>(written, 0);
    }
    return true;
}

bool copy_all(int from, int to)
{
    std::array<char, std::size_t{64} * 1024> block{};
    if (::lseek(from, 0, SEEK_SET) != 0)
        return false;
    for (;;) {
        const ssize_t count = ::read(from, block.data(), block.size());
        if (count == 0)
            return true;
        if (count > 0 ? !write_all(to, block.data(), count) : errno != EINTR)
            return false;
    }
}

/// The way for what no rename can replace.
TargetOutcome copy_over(DraftFile &draft, const OldFile &old)
{
    FileStatus status{};
    if (::fstat(draft.descriptor(), &status) != 0)
        return failure(TargetOutcome::NotWritten, errno);
    if (const int error = reserve_all_room(old, status.st_size); error != 0)
        return failure(TargetOutcome::NotWritten, error);
    if (copy_all(draft.descriptor(), old.file.get()) && ::ftruncate(old.file.get(), status.st_size) == 0
        && (::fsync(old.file.get()) == 0 || errno == EINVAL))
        return {};
    const int error = errno;
    draft.keep();
    qWarning("write_target - the whole new file is %s", draft.path().constData());
    return failure(TargetOutcome::NotWritten, error);
}

/// @return nothing if it has to be done the other way
std::optional<TargetOutcome> replace_by_rename(const OldFile &old, const QString &otherDirectory, const Writer &write)
{
    if (old.realPath.isEmpty() || old.status.st_nlink > 1)
        return std::nullopt;
    DraftFile draft(QFileInfo(old.realPath).path(), OwnerOnly);
    if (!draft.isOpen() || !copy_likeness(old.file.get(), draft.descriptor()))
        return std::nullopt;
    const TargetOutcome outcome = draft.fill(write);
    if (outcome.step == TargetOutcome::Done)
        return take_place(draft, old.realPath) ? TargetOutcome() : copy_over(draft, old); // a mount point
    // What the system refused here it may take on another disk.
    FileStatus other{};
    const bool isOtherDisk =
        ::stat(QFile::encodeName(otherDirectory).constData(), &other) == 0 && other.st_dev != old.status.st_dev;
    return outcome.reason.isEmpty() || !isOtherDisk ? std::optional(outcome) : std::nullopt;
}

} // namespace

TargetFile::TargetFile(int fileDescriptor) : fd(fileDescriptor)
{
    open(QIODevice::ReadWrite | QIODevice::Unbuffered);
}

QString TargetFile::finish()
{
    (void)drain(); // the error is what is asked for
    return error;
}

qint64 TargetFile::size() const
{
    FileStatus status{};
    (void)::fstat(fd, &status); // an open file has one
    return std::max<qint64>(status.st_size, waitingFrom + waiting.size());
}

qint64 TargetFile::readData(char *data, qint64 count)
{
    if (!drain())
        return -1;
    return ::pread(fd, data, static_cast<std::size_t>(count), pos());
}

qint64 TargetFile::writeData(const char *data, qint64 count)
{
    constexpr qint64 LongestWaiting = qint64{64} * 1024;
    const bool goesOn = pos() == waitingFrom + waiting.size();
    if ((!goesOn || waiting.size() + count > LongestWaiting) && !drain())
        return -1;
    if (count > LongestWaiting)
        return put(data, count, pos()) ? count : -1;
    if (waiting.isEmpty())
        waitingFrom = pos();
    waiting.append(data, count);
    return count;
}

bool TargetFile::drain()
{
    const bool isGood = put(waiting.constData(), waiting.size(), waitingFrom);
    waiting.resize(0); // the memory stays
    return isGood;
}

bool TargetFile::put(const char *data, qint64 count, qint64 position)
{
    while (count > 0 && error.isEmpty()) {
        const ssize_t written = ::pwrite(fd, data, static_cast<std::size_t>(count), position);
        if (written < 0 && errno != EINTR)
            error = qt_error_string(errno);
        const qint64 step = std::max<ssize_t>(written, 0);
        data += step;
        position += step;
        count -= step;
    }
    return error.isEmpty();
}

TargetOutcome write_target(const QString &path, const std::function<bool(TargetFile &file)> &write)
{
    OldFile old;
    if (TargetOutcome outcome = open_old_file(QFile::encodeName(path), old); outcome.step != TargetOutcome::Done)
        return outcome;
    if (!old.file.isOpen())
        return make_file(new_file_path(path), write);

    const QString otherDirectory = safeCreateTempDir();
    if (const auto outcome = replace_by_rename(old, otherDirectory, write))
        return *outcome;
    DraftFile draft(otherDirectory, OwnerOnly);
    if (!draft.isOpen())
        return failure(TargetOutcome::NotWritten, draft.openError());
    const TargetOutcome outcome = draft.fill(write);
    return outcome.step == TargetOutcome::Done ? copy_over(draft, old) : outcome;
}
