#include "private_file.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

Descriptor make_private_file(const QString &path)
{
    constexpr mode_t OwnerOnly = 0600;
    constexpr int Flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    Descriptor file(::open(QFile::encodeName(path).constData(), Flags, OwnerOnly));
    // Again, as the user's mask may have taken rights away.
    if (file.isOpen() && ::fchmod(file.get(), OwnerOnly) != 0)
        return {};
    return file;
}

Descriptor open_own_file(const QString &path)
{
    // A pipe would wait for its other end.
    constexpr int Flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    Descriptor file(::open(QFile::encodeName(path).constData(), Flags));
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0)
        return {};
    if (S_ISREG(status.st_mode) && status.st_uid == ::geteuid())
        return file;
    errno = EACCES;
    return {};
}

bool make_private_directory(const QString &path)
{
    constexpr mode_t OwnerOnly = 0700;
    const QByteArray name = QFile::encodeName(path);
    return ::mkdir(name.constData(), OwnerOnly) == 0 && ::chmod(name.constData(), OwnerOnly) == 0;
}
