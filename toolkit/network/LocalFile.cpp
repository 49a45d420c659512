#include "LocalFile.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::size_t SkimmedPiece = 65536;

} // namespace

template <typename Stat> LocalFile::Stamp LocalFile::stampOf(const Stat &status)
{
    return {.device = status.st_dev,
            .number = status.st_ino,
            .size = status.st_size,
            .seconds = status.st_mtim.tv_sec,
            .nanoseconds = status.st_mtim.tv_nsec};
}

bool LocalFile::open(const QString &wanted)
{
    path = wanted;
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)
        || !file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle)) {
        ::close(descriptor);
        return false;
    }
    return rewind();
}

std::optional<QByteArray> LocalFile::read(qint64 atMost)
{
    QByteArray bytes(atMost, Qt::Uninitialized);
    const qint64 count = file.read(bytes.data(), atMost);
    if (count < 0)
        return std::nullopt;
    bytes.truncate(count);
    return bytes;
}

std::optional<qint64> LocalFile::skim(qint64 atMost)
{
    std::array<char, SkimmedPiece> piece = {};
    qint64 total = 0;
    while (total < atMost) {
        const qint64 count = file.read(piece.data(), std::min<qint64>(SkimmedPiece, atMost - total));
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            break;
        total += count;
    }
    return total;
}

bool LocalFile::rewind()
{
    struct stat status = {};
    if (::fstat(file.handle(), &status) != 0)
        return false;
    stamp = stampOf(status);
    return file.seek(0);
}

bool LocalFile::remove()
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 && stampOf(status) == stamp && QFile::remove(path);
}
