#include "StartedProgram.h"

#include "process_memory.h"

#include <QFile>

#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

StartedProgram::StartedProgram(const QStringList &command)
{
    QList<QByteArray> words;
    for (const QString &word : command)
        words.append(QFile::encodeName(word));
    std::vector<char *> arguments;
    for (QByteArray &word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    // A group of its own, so that helpers of the program end with it.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);

    start = std::chrono::steady_clock::now();
    if (posix_spawnp(&pid, arguments.front(), &files, &attributes, arguments.data(), environ) != 0)
        pid = -1;
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
}

StartedProgram::~StartedProgram()
{
    if (pid < 0)
        return;
    kill(-pid, SIGKILL);
    waitpid(pid, nullptr, 0);
}

bool StartedProgram::isRunning() const
{
    if (pid < 0)
        return false;
    siginfo_t ended{};
    // The dead are left to be reaped by the destructor, so that the number stays ours.
    return waitid(P_PID, static_cast<id_t>(pid), &ended, WEXITED | WNOHANG | WNOWAIT) == 0 && ended.si_pid == 0;
}

double StartedProgram::age() const
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double StartedProgram::peakMemory() const
{
    return peak_memory_of(pid);
}

std::optional<double> StartedProgram::secondsToEnd() const
{
    if (pid < 0)
        return {};
    siginfo_t ended{};
    if (waitid(P_PID, static_cast<id_t>(pid), &ended, WEXITED | WNOWAIT) != 0)
        return {};
    const bool succeeded = ended.si_code == CLD_EXITED && ended.si_status == 0;
    return succeeded ? std::optional(age()) : std::nullopt;
}
