#include "ChildScope.h"

#include <QDir>

#include <fcntl.h>
#include <limits>
#include <linux/close_range.h>
#include <unistd.h>

namespace {

constexpr int FirstOwnDescriptor = STDERR_FILENO + 1;

/// For systems that do not know the call.
void mark_one_by_one()
{
    const QStringList names = QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries | QDir::System);
    for (const QString &name : names) {
        bool isNumber = false;
        const int descriptor = name.toInt(&isNumber);
        if (isNumber && descriptor >= FirstOwnDescriptor)
            (void)::fcntl(descriptor, F_SETFD, FD_CLOEXEC); // the listing's own one is closed already
    }
}

} // namespace

ChildScope::ChildScope()
{
    if (::close_range(FirstOwnDescriptor, std::numeric_limits<unsigned>::max(), CLOSE_RANGE_CLOEXEC) != 0)
        mark_one_by_one();
    for (int number = 1; number < NSIG; ++number) {
        SignalAction action{};
        if (::sigaction(number, nullptr, &action) != 0 || action.sa_handler != SIG_IGN)
            continue;
        ignored.emplace_back(number, action);
        action.sa_handler = SIG_DFL;
        (void)::sigaction(number, &action, nullptr); // a signal that can be ignored can be reset
    }
}

ChildScope::~ChildScope()
{
    for (const auto &[number, action] : ignored)
        (void)::sigaction(number, &action, nullptr);
}
