#include "LeftoverWatch.h"

#include <QByteArray>
#include <QFile>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// A process is told by its number and, as numbers are used again, by the time of its start. In its line of /proc the
// name, which may hold anything, ends with the last bracket; then come the state and, in place 20, that time.
constexpr auto Script = R"(
PATH=/usr/bin:/bin
trap '' HUP INT QUIT TERM
set -f
file=$1
reader=
while read -r line; do reader=$line; done
runs() {
    { read -r line <"/proc/$1/stat"; } 2>/dev/null || return
    started=$2
    set -- ${line##*)}
    [ "$1" != Z ] && [ "$1" != X ] && [ "${20}" = "$started" ]
}
[ -z "$reader" ] || while runs $reader; do sleep 0.1; done
rm -f -- "$file"
)";

/// When a process was started, as the system counts; empty if there is none.
QByteArray start_time(qint64 process)
{
    constexpr qsizetype PlaceBehindName = 19;
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray line = file.readAll();
    return line.mid(line.lastIndexOf(')') + 2).split(' ').value(PlaceBehindName);
}

/// What a new process is given; both parts are freed.
class SpawnPlan
{
public:
    SpawnPlan()
    {
        posix_spawn_file_actions_init(&actions);
        posix_spawnattr_init(&attributes);
    }
    ~SpawnPlan()
    {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }
    Q_DISABLE_COPY_MOVE(SpawnPlan)

    [[nodiscard]] bool setUp(int input)
    {
        sigset_t all;
        sigfillset(&all);
        sigset_t none;
        sigemptyset(&none);
        return posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO) == 0
            && posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0) == 0
            && posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0) == 0
            && posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1) == 0
            && posix_spawn_file_actions_addchdir_np(&actions, "/") == 0
            && posix_spawnattr_setsigdefault(&attributes, &all) == 0
            && posix_spawnattr_setsigmask(&attributes, &none) == 0
            && posix_spawnattr_setflags(&attributes,
                                        POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSID)
            == 0;
    }

    posix_spawn_file_actions_t actions{};
    posix_spawnattr_t attributes{};
};

/// @return 0 if it could not be started
pid_t start_shell(const QByteArray &path, int input)
{
    SpawnPlan plan;
    if (!plan.setUp(input))
        return 0;
    std::array words{QByteArray("sh"), QByteArray("-c"), QByteArray(Script), QByteArray("sh"), path};
    const std::array arguments{words[0].data(), words[1].data(), words[2].data(),
                               words[3].data(), words[4].data(), static_cast<char *>(nullptr)};
    pid_t shell = 0;
    return posix_spawn(&shell, "/bin/sh", &plan.actions, &plan.attributes, arguments.data(), environ) == 0 ? shell : 0;
}

} // namespace

std::unique_ptr<LeftoverWatch> LeftoverWatch::start(const QString &path)
{
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        return nullptr;
    const pid_t shell = start_shell(QFile::encodeName(path), ends[0]);
    ::close(ends[0]);
    if (shell == 0) {
        ::close(ends[1]);
        return nullptr;
    }
    return std::unique_ptr<LeftoverWatch>(new LeftoverWatch(shell, ends[1]));
}

LeftoverWatch::~LeftoverWatch()
{
    ::close(m_ownEnd);
}

void LeftoverWatch::setReader(qint64 process) const
{
    const QByteArray line = QByteArray::number(process) + ' ' + start_time(process) + '\n';
    // Fits in at once. Where somebody has killed the shell there is no watch, and no signal for us either.
    (void)::send(m_ownEnd, line.constData(), static_cast<size_t>(line.size()), MSG_NOSIGNAL);
}

void LeftoverWatch::dismiss()
{
    if (m_shell == 0)
        return;
    ::kill(m_shell, SIGKILL); // a child that was not waited for: the number is still its own
    ::waitpid(m_shell, nullptr, 0);
    m_shell = 0;
}
