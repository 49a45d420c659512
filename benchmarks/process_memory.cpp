#include "process_memory.h"

#include <QFile>

#include <unistd.h>

namespace {

/// A field of /proc/PID/status such as "VmHWM:".
double memory_field(int pid, const char *field)
{
    constexpr double kilobyte = 1024;
    QFile status(QStringLiteral("/proc/%1/status").arg(pid));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(field))
            return kilobyte * line.simplified().split(' ').value(1).toDouble();
    }
    return 0;
}

} // namespace

double resident_memory()
{
    return memory_field(getpid(), "VmRSS:");
}

double peak_memory()
{
    return peak_memory_of(getpid());
}

double peak_memory_of(int pid)
{
    return memory_field(pid, "VmHWM:");
}

void restart_peak_count()
{
    QFile marks(QStringLiteral("/proc/self/clear_refs"));
    if (marks.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        marks.write("5"); // the peak alone
}
