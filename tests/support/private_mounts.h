#pragma once

#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <array>
#include <cerrno>
#include <cstring>
#include <linux/capability.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

/// Mounts that this process alone sees: full disks, places that cannot be written to, other system files. A process
/// that may not make them ends, so that no such test passes by not being run.

inline void end_for_want_of(const char *what)
{
    qFatal("private_mounts - no %s: %s", what, std::strerror(errno));
}

inline void write_own_file(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || file.write(bytes) != bytes.size())
        end_for_want_of(qPrintable(path));
}

/// Takes the process out of the mounts of the others; who is not root needs a user namespace for that. To be called
/// first thing in main(), as threads that exist already would stay behind.
inline void leave_common_mounts()
{
    static bool hasLeft = false;
    if (hasLeft)
        return;
    hasLeft = true;
    const uid_t user = ::geteuid();
    const gid_t group = ::getegid();
    if (::unshare(user == 0 ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER) != 0)
        end_for_want_of("mount namespace");
    if (user != 0) { // it keeps its numbers, see user_namespaces(7)
        write_own_file(QStringLiteral("/proc/self/setgroups"), "deny");
        write_own_file(QStringLiteral("/proc/self/uid_map"), QStringLiteral("%1 %1 1").arg(user).toLatin1());
        write_own_file(QStringLiteral("/proc/self/gid_map"), QStringLiteral("%1 %1 1").arg(group).toLatin1());
    }
    if (::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        end_for_want_of("mounts of its own");
}

/// Makes a process that may mount one that may do no more than others: nobody instead of root, or without what it
/// may do in its user namespace.
/// @return false if it stays what it was
inline bool give_up_privileges()
{
    constexpr uid_t nobody = 65534;
    if (::geteuid() == 0)
        return ::setuid(nobody) == 0;
    __user_cap_header_struct header{.version = _LINUX_CAPABILITY_VERSION_3, .pid = 0};
    const std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> none{};
    return ::syscall(SYS_capset, &header, none.data()) == 0;
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
