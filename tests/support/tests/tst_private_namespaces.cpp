#include "private_mounts.h"
#include "private_namespaces.h"
#include "skipped_test.h"

#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <functional>
#include <ifaddrs.h>
#include <linux/capability.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <netinet/in.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

struct Ended
{
    int status = -1;
    QByteArray said;
};

/// Does something in a process of its own, which ends with status 0 if that answers true.
Ended in_a_process(const std::function<bool()> &work)
{
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0)
        qFatal("no pipe");
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(ends[1], STDOUT_FILENO);
        ::_exit(work() ? 0 : 1);
    }
    ::close(ends[1]);
    Ended ended;
    std::array<char, 1000> text{};
    for (ssize_t count = 1; count > 0;) {
        count = ::read(ends[0], text.data(), text.size());
        ended.said.append(text.data(), std::max<ssize_t>(count, 0));
    }
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    ended.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return ended;
}

/// As a container does: from now on every unshare() of this process is refused.
bool forbid_namespaces()
{
    std::array<sock_filter, 4> steps{{
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_unshare, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    }};
    const sock_fprog filter{static_cast<unsigned short>(steps.size()), steps.data()};
    return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

/// What root lacks in an ordinary container: mounting and the like.
bool may_no_longer_administrate()
{
    __user_cap_header_struct header{.version = _LINUX_CAPABILITY_VERSION_3, .pid = 0};
    std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> rights{};
    if (::syscall(SYS_capget, &header, rights.data()) != 0)
        return false;
    rights.front().effective &= ~CAP_TO_MASK(CAP_SYS_ADMIN);
    rights.front().permitted &= ~CAP_TO_MASK(CAP_SYS_ADMIN);
    return ::syscall(SYS_capset, &header, rights.data()) == 0;
}

bool is_file(const QByteArray &path)
{
    struct stat file
    {
    };
    return ::stat(path, &file) == 0;
}

/// Mounts a disk on the directory and leaves a file there.
bool leave_a_file_on_a_disk(const QByteArray &directory)
{
    const PrivateMount disk("none", directory, "tmpfs", 0);
    return QFile(directory + "/file").open(QIODevice::WriteOnly) && is_file(directory + "/file");
}

bool can_connect(in_addr_t address, in_port_t port)
{
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in peer{};
    peer.sin_family = AF_INET;
    peer.sin_port = port;
    peer.sin_addr.s_addr = htonl(address);
    const bool is_connected = ::connect(socket, reinterpret_cast<const sockaddr *>(&peer), sizeof peer) == 0;
    ::close(socket);
    return is_connected;
}

/// A listening socket on the loopback device.
/// @return its port as the network writes it, 0 if there is none
in_port_t listening_port()
{
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in own{};
    own.sin_family = AF_INET;
    own.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof own;
    auto *const address = reinterpret_cast<sockaddr *>(&own);
    const bool listens = ::bind(socket, address, size) == 0 && ::listen(socket, 1) == 0;
    return listens && ::getsockname(socket, address, &size) == 0 ? own.sin_port : in_port_t{0};
}

QList<QByteArray> network_devices()
{
    ifaddrs *first = nullptr;
    QList<QByteArray> names;
    if (::getifaddrs(&first) != 0)
        return names;
    for (const ifaddrs *device = first; device != nullptr; device = device->ifa_next) {
        if (!names.contains(device->ifa_name))
            names.append(device->ifa_name);
    }
    ::freeifaddrs(first);
    return names;
}

} // namespace

class tst_private_namespaces : public QObject
{
    Q_OBJECT

private slots:
    void init() { directory.emplace(); }
    void cleanup() { directory.reset(); }

    void whatIsMountedInsideIsNotSeenOutside()
    {
        verifyOnlyInside([this] {
            leave_common_mounts();
            return leave_a_file_on_a_disk(path());
        });
    }

    void rootWithoutTheRightToMountDoesSoInAUserNamespace()
    {
        verifyOnlyInside([this] {
            const bool dropped = may_no_longer_administrate();
            leave_common_mounts();
            return dropped && leave_a_file_on_a_disk(path());
        });
    }

    void mountsInARootDirectoryThatIsNoMountPoint()
    {
        QVERIFY(QDir(directory->path()).mkpath(u"tmp/disk"_s));
        verifyOnlyInside(
            [this] {
                leave_common_network(); // gives a user the right to change the root directory
                const bool moved = ::chroot(path()) == 0 && ::chdir("/tmp") == 0 && ::unsetenv("TMPDIR") == 0;
                leave_common_mounts();
                return moved && leave_a_file_on_a_disk("/tmp/disk") && leave_a_file_on_a_disk("disk")
                    && !is_file("/proc/self") && QDir::currentPath() == u"/tmp";
            },
            "/tmp/disk/file");
    }

    void networkOfItsOwnHasALoopbackDeviceAlone()
    {
        const Ended ended = in_a_process([] {
            leave_common_network();
            constexpr in_addr_t documentation = 0xC0000201; // 192.0.2.1, RFC 5737: nobody's
            const in_port_t port = listening_port();
            return port != 0 && can_connect(INADDR_LOOPBACK, port) && !can_connect(documentation, port)
                && errno == ENETUNREACH && network_devices() == QList<QByteArray>{"lo"};
        });

        if (ended.status == SkippedTestStatus)
            QSKIP(ended.said.trimmed());
        QCOMPARE(ended.status, 0);
    }

    void machineWithoutNamespacesSkipsTheTest_data()
    {
        QTest::addColumn<void (*)()>("leave");
        QTest::addColumn<QByteArray>("reason");
        QTest::newRow("mounts") << &leave_common_mounts
                                << QByteArray(
                                       "skipped: no mounts of its own (mount namespace: Operation not permitted; "
                                       "user namespace: Operation not permitted)\n");
        QTest::newRow("network") << &leave_common_network
                                 << QByteArray("skipped: no network of its own (network namespace: Operation not "
                                               "permitted; user namespace: Operation not permitted)\n");
    }

    void machineWithoutNamespacesSkipsTheTest()
    {
        using Leave = void (*)();
        QFETCH(const Leave, leave);

        const Ended ended = in_a_process([leave] {
            if (!forbid_namespaces())
                return false;
            leave();
            return true;
        });

        QCOMPARE(ended.status, SkippedTestStatus);
        QTEST(ended.said, "reason");
    }

    void privilegesAreGivenUpInEitherKindOfNamespace_data()
    {
        QTest::addColumn<bool>("plainly");
        QTest::newRow("plain") << true;
        QTest::newRow("user namespace") << false;
    }

    void privilegesAreGivenUpInEitherKindOfNamespace()
    {
        QFETCH(const bool, plainly);
        const Ended ended = in_a_process([this, plainly] {
            const bool ready = plainly || may_no_longer_administrate();
            leave_common_mounts();
            const PrivateMount disk("none", path(), "tmpfs", 0, "mode=555");
            return ready && QFile(path() + "/before").open(QIODevice::WriteOnly) && give_up_privileges()
                && !QFile(path() + "/after").open(QIODevice::WriteOnly);
        });

        if (ended.status == SkippedTestStatus)
            QSKIP(ended.said.trimmed());
        QCOMPARE(ended.status, 0);
    }

private:
    [[nodiscard]] QByteArray path() const { return QFile::encodeName(directory->path()); }

    void verifyOnlyInside(const std::function<bool()> &mounting, const QByteArray &file = "/file")
    {
        const Ended ended = in_a_process(mounting);

        if (ended.status == SkippedTestStatus)
            QSKIP(ended.said.trimmed());
        QCOMPARE(ended.status, 0);
        QVERIFY(!is_file(path() + file));
        QVERIFY(directory->remove()); // which nothing mounted there keeps
    }

    std::optional<QTemporaryDir> directory;
};

QTEST_GUILESS_MAIN(tst_private_namespaces)

#include "tst_private_namespaces.moc"
