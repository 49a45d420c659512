#include "threads.h"

#include <QDir>
#include <QFile>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

struct ThreadStatus
{
    bool isAsleep = false;
    bool isEnding = false;
};

/// From /proc/PID/task/TID/stat, as proc(5) tells it.
std::optional<ThreadStatus> thread_status(const QString &thread)
{
    constexpr qsizetype State = 0; // fields behind the name
    constexpr qsizetype Flags = 6;
    constexpr uint Exiting = 0x4; // PF_EXITING; set before who waits for the thread is woken

    QFile file("/proc/self/task/"_L1 + thread + "/stat"_L1);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray line = file.readAll();
    const QByteArrayList fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    if (fields.size() <= Flags)
        return std::nullopt;
    return ThreadStatus{.isAsleep = fields.at(State) == "S", .isEnding = (fields.at(Flags).toUInt() & Exiting) != 0};
}

} // namespace

QStringList live_threads()
{
    QStringList threads = QDir(u"/proc/self/task"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    threads.removeIf(
        [](const QString &thread) { return thread_status(thread).value_or(ThreadStatus{.isEnding = true}).isEnding; });
    return threads;
}

bool is_at_rest(const QString &thread)
{
    const std::optional<ThreadStatus> status = thread_status(thread);
    return !status || status->isAsleep || status->isEnding;
}
