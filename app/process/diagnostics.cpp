#include "diagnostics.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <climits>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

int descriptor = STDERR_FILENO;
bool isLineCut = false; // the last line was not taken to its end

/// A pipe is opened once more, for the flag that is ours alone.
int open_standard_error()
{
    struct stat status = {};
    if (::fstat(STDERR_FILENO, &status) != 0 || !S_ISFIFO(status.st_mode))
        return STDERR_FILENO;
    const int own = ::open("/proc/self/fd/2", O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    return own < 0 ? STDERR_FILENO : own;
}

/// Whether a write of PIPE_BUF bytes returns at once. With a flag of our own it always does; else a look ahead has to
/// do.
bool takes_bytes()
{
    pollfd ready = {.fd = descriptor, .events = POLLOUT, .revents = 0};
    return descriptor != STDERR_FILENO || ::poll(&ready, 1, 0) == 1;
}

/// Writes as much as is taken at once, and answers how much that was.
qsizetype write_what_fits(const QByteArray &bytes)
{
    qsizetype done = 0;
    while (done < bytes.size() && takes_bytes()) {
        // So much at most goes into a pipe as one piece or not at all.
        const auto size = static_cast<size_t>(std::min<qsizetype>(bytes.size() - done, PIPE_BUF));
        const ssize_t written = ::write(descriptor, bytes.constData() + done, size);
        if (written <= 0)
            break;
        done += written;
    }
    return done;
}

void receive(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const QString line = qFormatLogMessage(type, context, text);
    if (!line.isNull()) // the pattern leaves it out
        write_diagnostic_line(line.toLocal8Bit());
}

} // namespace

void write_diagnostics_without_waiting()
{
    descriptor = open_standard_error();
    qInstallMessageHandler(receive);
}

void write_diagnostic_line(const QByteArray &line)
{
    const QByteArray bytes = (isLineCut ? "\n" : "") + line + '\n';
    const qsizetype done = write_what_fits(bytes);
    if (done != 0)
        isLineCut = done < bytes.size();
}
