#pragma once

#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <sched.h>
#include <sys/mount.h>

/// Mounts that this process alone sees. Not every process may make one: who tests with them asks isReal().

/// Takes the process out of the mounts of the others. To be called first thing in main(), as threads that exist
/// already would stay behind.
/// @return false where that is not allowed
inline bool leave_common_mounts()
{
    static const bool hasLeft =
        ::unshare(CLONE_NEWNS) == 0 && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    return hasLeft;
}

/// A disk of 2 MiB in memory.
class SmallDisk
{
public:
    static constexpr int Bytes = 2 * 1024 * 1024;

    SmallDisk() : isMounted(leave_common_mounts() && ::mount("none", path(), "tmpfs", 0, "size=2m") == 0) { }
    ~SmallDisk()
    {
        if (isMounted)
            ::umount2(path(), MNT_DETACH);
    }
    Q_DISABLE_COPY_MOVE(SmallDisk)

    [[nodiscard]] bool isReal() const { return isMounted; }
    [[nodiscard]] QByteArray path() const { return QFile::encodeName(directory.path()); }
    [[nodiscard]] QString filePath(const QString &name) const { return directory.filePath(name); }

private:
    QTemporaryDir directory;
    bool isMounted;
};

/// A file or directory, with all that is in it, that cannot be written to while the object lives.
class ReadOnlyPlace
{
public:
    explicit ReadOnlyPlace(const QString &path) :
        name(QFile::encodeName(path)),
        isMounted(leave_common_mounts() && ::mount(name, name, nullptr, MS_BIND, nullptr) == 0),
        isReadOnly(isMounted && ::mount(nullptr, name, nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) == 0)
    {
    }
    ~ReadOnlyPlace()
    {
        if (isMounted)
            ::umount2(name, MNT_DETACH);
    }
    Q_DISABLE_COPY_MOVE(ReadOnlyPlace)

    [[nodiscard]] bool isReal() const { return isReadOnly; }

private:
    QByteArray name;
    bool isMounted;
    bool isReadOnly;
};

/// A file of other bytes in the place of an existing one while the object lives.
class StandInFile
{
public:
    StandInFile(const QString &existingPath, const QByteArray &bytes) : name(QFile::encodeName(existingPath))
    {
        if (!file.open() || file.write(bytes) != bytes.size() || !file.flush())
            return;
        isMounted =
            leave_common_mounts() && ::mount(QFile::encodeName(file.fileName()), name, nullptr, MS_BIND, nullptr) == 0;
    }
    ~StandInFile()
    {
        if (isMounted)
            ::umount2(name, MNT_DETACH);
    }
    Q_DISABLE_COPY_MOVE(StandInFile)

    [[nodiscard]] bool isReal() const { return isMounted; }

private:
    QTemporaryFile file;
    QByteArray name;
    bool isMounted = false;
};
