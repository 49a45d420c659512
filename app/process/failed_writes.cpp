#include "failed_writes.h"

#include <csignal>
#include <initializer_list>

namespace {

extern "C" void do_nothing(int /*signal*/) { }

} // namespace

void let_writes_fail()
{
    for (const int number : {SIGPIPE, SIGXFSZ}) {
        struct sigaction former = {};
        ::sigaction(number, nullptr, &former);
        if (former.sa_handler == SIG_IGN)
            continue;
        struct sigaction action = {};
        action.sa_handler = do_nothing;
        action.sa_flags = SA_RESTART;
        ::sigaction(number, &action, nullptr);
    }
}
