#include "EndSignals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <initializer_list>

#include <fcntl.h>
#include <unistd.h>

namespace {

// A handler may touch little else: the first signal that came, and a pipe that wakes the event loop.
volatile std::sig_atomic_t firstNumber = 0;
std::array<int, 2> wakeUp = {-1, -1}; // both ends are non-blocking

extern "C" void note_signal(int number)
{
    const int formerError = errno;
    if (firstNumber == 0)
        firstNumber = number;
    [[maybe_unused]] const ssize_t written = ::write(wakeUp[1], "", 1); // a full pipe wakes the loop as well
    errno = formerError;
}

void catch_signal(int number)
{
    struct sigaction former = {};
    ::sigaction(number, nullptr, &former);
    if (former.sa_handler == SIG_IGN) // as nohup and shells do for what shall outlive them
        return;
    struct sigaction action = {};
    action.sa_handler = note_signal;
    action.sa_flags = SA_RESTART;
    ::sigaction(number, &action, nullptr);
}

} // namespace

EndSignals::EndSignals()
{
    if (::pipe2(wakeUp.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto *const notifier = new QSocketNotifier(wakeUp[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false); // the process ends once
        emit came();
    });
    for (const int number : {SIGTERM, SIGHUP, SIGINT})
        catch_signal(number);
}

int EndSignals::number()
{
    return firstNumber;
}

void EndSignals::passOn()
{
    const int number = firstNumber;
    if (number == 0)
        return;
    (void)std::fflush(nullptr); // a signal leaves what stands in buffers
    struct sigaction action = {};
    action.sa_handler = SIG_DFL;
    ::sigaction(number, &action, nullptr);
    (void)std::raise(number);
}
