#include "private_namespaces.h"

#include "skipped_test.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <linux/capability.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

/// What a step that failed says of itself; empty if it did not fail.
using Failure = QByteArray;

Failure failure_of(const char *step)
{
    return QByteArray(step) + ": " + std::strerror(errno);
}

/// A descriptor that is closed at the end.
class Descriptor
{
public:
    explicit Descriptor(int opened) : number(opened) { }
    ~Descriptor() { ::close(number); }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    Descriptor(Descriptor &&) = delete;
    Descriptor &operator=(Descriptor &&) = delete;

    [[nodiscard]] int value() const { return number; }

private:
    int number;
};

Failure write_own_file(const char *path, const QByteArray &bytes)
{
    const Descriptor file(::open(path, O_WRONLY | O_CLOEXEC));
    const bool written = ::write(file.value(), bytes.constData(), static_cast<size_t>(bytes.size())) == bytes.size();
    return written ? Failure() : failure_of(path);
}

/// An empty directory while the object lives.
class ScratchDirectory
{
public:
    ScratchDirectory()
    {
        if (const char *const place = std::getenv("TMPDIR"))
            name = place;
        name += "/namespace-XXXXXX";
        if (::mkdtemp(name.data()) == nullptr)
            name.clear();
    }
    ~ScratchDirectory() { ::rmdir(name); }
    ScratchDirectory(const ScratchDirectory &) = delete;
    ScratchDirectory &operator=(const ScratchDirectory &) = delete;
    ScratchDirectory(ScratchDirectory &&) = delete;
    ScratchDirectory &operator=(ScratchDirectory &&) = delete;

    [[nodiscard]] const char *path() const { return name; }

private:
    QByteArray name{"/tmp"};
};

/// A user namespace in which the process keeps its numbers, see user_namespaces(7), and may administrate what it
/// takes along.
Failure enter_user_namespace(int namespaces)
{
    const QByteArray user = QByteArray::number(::geteuid());
    const QByteArray group = QByteArray::number(::getegid());
    if (::unshare(namespaces | CLONE_NEWUSER) != 0)
        return failure_of("user namespace");
    if (Failure failure = write_own_file("/proc/self/setgroups", "deny"); !failure.isEmpty())
        return failure;
    if (Failure failure = write_own_file("/proc/self/uid_map", user + ' ' + user + " 1"); !failure.isEmpty())
        return failure;
    return write_own_file("/proc/self/gid_map", group + ' ' + group + " 1");
}

/// Goes up from the directory that @p outside is to the one that has none above it.
bool climb_from(int outside)
{
    if (::fchdir(outside) != 0)
        return false;
    struct stat here
    {
    };
    struct stat above
    {
    };
    do {
        if (::stat(".", &here) != 0 || ::chdir("..") != 0 || ::stat(".", &above) != 0)
            return false;
    } while (here.st_ino != above.st_ino || here.st_dev != above.st_dev);
    return true;
}

/// Cuts the process' copy of all mounts off from the common ones. In a plain chroot "/" is no mount point, and none of
/// those that count can be named: the way up is open to one who stands outside of his root.
Failure keep_mounts_to_oneself()
{
    const Descriptor root(::open("/", O_PATH | O_DIRECTORY | O_CLOEXEC));
    const Descriptor place(::open(".", O_PATH | O_DIRECTORY | O_CLOEXEC));
    const ScratchDirectory lowerRoot;
    if (::chroot(lowerRoot.path()) != 0)
        return failure_of("change of the root directory");
    const bool isCut = climb_from(root.value()) && ::mount("none", ".", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    Failure failure = isCut ? Failure() : failure_of("mounts of its own");
    if (::fchdir(root.value()) != 0 || ::chroot(".") != 0 || ::fchdir(place.value()) != 0)
        return failure_of("way back to the root directory");
    return failure;
}

/// Some systems hand out the namespace and refuse the mounts in it.
Failure try_a_mount()
{
    const ScratchDirectory place;
    if (::mount("none", place.path(), "tmpfs", 0, "size=64k") != 0)
        return failure_of("mount");
    return ::umount2(place.path(), MNT_DETACH) == 0 ? Failure() : failure_of("unmount");
}

Failure leave_mounts_plainly()
{
    if (::unshare(CLONE_NEWNS) != 0)
        return failure_of("mount namespace");
    Failure failure = keep_mounts_to_oneself();
    return failure.isEmpty() ? try_a_mount() : failure;
}

/// Mounts in a namespace of another user reach nobody else from the start.
Failure leave_mounts_as_user()
{
    Failure failure = enter_user_namespace(CLONE_NEWNS);
    return failure.isEmpty() ? try_a_mount() : failure;
}

Failure raise_loopback()
{
    const Descriptor socket(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    ifreq request{};
    std::copy_n("lo", 3, request.ifr_name);
    request.ifr_flags = IFF_UP;
    return ::ioctl(socket.value(), SIOCSIFFLAGS, &request) == 0 ? Failure() : failure_of("loopback device");
}

Failure leave_network_plainly()
{
    return ::unshare(CLONE_NEWNET) == 0 ? raise_loopback() : failure_of("network namespace");
}

Failure leave_network_as_user()
{
    Failure failure = enter_user_namespace(CLONE_NEWNET);
    return failure.isEmpty() ? raise_loopback() : failure;
}

/// The first way that works; a skipped test if none does.
void leave(const char *what, Failure (*plainly)(), Failure (*asUser)())
{
    const Failure first = plainly();
    if (first.isEmpty())
        return;
    const Failure second = asUser();
    if (!second.isEmpty())
        end_as_skipped("no " + QByteArray(what) + " of its own (" + first + "; " + second + ')');
}

} // namespace

void leave_common_mounts()
{
    static bool hasLeft = false;
    if (!hasLeft)
        leave("mounts", leave_mounts_plainly, leave_mounts_as_user);
    hasLeft = true;
}

void leave_common_network()
{
    static bool hasLeft = false;
    if (!hasLeft)
        leave("network", leave_network_plainly, leave_network_as_user);
    hasLeft = true;
}

bool give_up_privileges()
{
    constexpr uid_t nobody = 65534;
    if (::geteuid() == 0 && ::setuid(nobody) == 0)
        return true;
    __user_cap_header_struct header{.version = _LINUX_CAPABILITY_VERSION_3, .pid = 0};
    const std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> none{};
    return ::syscall(SYS_capset, &header, none.data()) == 0;
}
