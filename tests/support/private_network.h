#pragma once

#include "private_mounts.h"

#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

/// Takes the process into a network of its own: no neighbour but itself, every port its own, and 127.0.0.0/8 all its
/// addresses. To be called first thing in main(), as threads that exist already would stay behind.
inline void leave_common_network()
{
    leave_common_mounts();
    if (::unshare(CLONE_NEWNET) != 0)
        end_for_want_of("network namespace");
    const int any = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ifreq loopback{};
    std::strcpy(static_cast<char *>(loopback.ifr_name), "lo");
    loopback.ifr_flags = IFF_UP | IFF_RUNNING;
    if (any < 0 || ::ioctl(any, SIOCSIFFLAGS, &loopback) != 0)
        end_for_want_of("loopback interface");
    ::close(any);
}
