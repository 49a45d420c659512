#pragma once

#include "private_namespaces.h"

#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <cerrno>
#include <cstring>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <utility>

/// Mounts that this process alone sees: full disks, places that cannot be written to, other system files. Where there
/// can be none the test is skipped; a mount that fails in spite of that ends it, so that it does not pass unrun.

inline void end_for_want_of(const char *what)
{
    qFatal("private_mounts - no %s: %s", what, std::strerror(errno));
}

/// A mount that lasts as long as the object.
class PrivateMount
{
public:
    PrivateMount(const QByteArray &source, QByteArray targetPath, const char *type, unsigned long flags,
                 const char *data = nullptr) :
        target(std::move(targetPath))
    {
        leave_common_mounts();
        if (::mount(source, target, type, flags, data) != 0)
            end_for_want_of(target);
    }
    ~PrivateMount() { ::umount2(target, MNT_DETACH); }
    Q_DISABLE_COPY_MOVE(PrivateMount)

private:
    QByteArray target;
};

/// A disk of 2 MiB in memory.
class SmallDisk
{
public:
    static constexpr int Bytes = 2 * 1024 * 1024;

    [[nodiscard]] QByteArray path() const { return QFile::encodeName(directory.path()); }
    [[nodiscard]] QString filePath(const QString &name) const { return directory.filePath(name); }

private:
    QTemporaryDir directory;
    PrivateMount mount{"none", path(), "tmpfs", 0, "size=2m"};
};

/// A file that takes all room of a disk but some blocks, until the object goes.
class DiskFiller
{
public:
    static constexpr qint64 BlockBytes = 4096;

    explicit DiskFiller(const QString &folder, int freeBlocks = 0) : file(folder + QStringLiteral("/filler"))
    {
        const QByteArray block(BlockBytes, 'x');
        if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            end_for_want_of("filler");
        while (file.write(block) == block.size()) { }
        if (!file.resize(file.size() - freeBlocks * BlockBytes))
            end_for_want_of("free blocks");
    }
    ~DiskFiller() { file.remove(); }
    Q_DISABLE_COPY_MOVE(DiskFiller)

private:
    QFile file;
};

/// A file or directory, with all that is in it, that cannot be written to while the object lives.
class ReadOnlyPlace
{
public:
    explicit ReadOnlyPlace(const QString &path) : name(QFile::encodeName(path)), mount(name, name, nullptr, MS_BIND)
    {
        struct statvfs place
        {
        };
        if (::statvfs(name, &place) != 0)
            end_for_want_of(name);
        // Who is not root may not take these away. They have the same bits as the flags of mount().
        const unsigned long kept = place.f_flag & (ST_NOSUID | ST_NODEV | ST_NOEXEC);
        static_assert(ST_NOSUID == int{MS_NOSUID} && ST_NODEV == int{MS_NODEV} && ST_NOEXEC == int{MS_NOEXEC});
        if (::mount(nullptr, name, nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY | kept, nullptr) != 0)
            end_for_want_of("read-only mount");
    }

private:
    QByteArray name;
    PrivateMount mount;
};

/// A file of other bytes in the place of an existing one while the object lives.
class StandInFile
{
public:
    StandInFile(const QString &existingPath, const QByteArray &bytes) :
        mount(written(bytes), QFile::encodeName(existingPath), nullptr, MS_BIND)
    {
    }

private:
    QByteArray written(const QByteArray &bytes)
    {
        if (!file.open() || file.write(bytes) != bytes.size() || !file.flush())
            end_for_want_of("file to stand in");
        return QFile::encodeName(file.fileName());
    }

    QTemporaryFile file;
    PrivateMount mount;
};
