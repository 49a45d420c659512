// Loaded into a program under test ahead of the C library, it brings about what no test could time from outside. The
// environment says what:
//
//   IM_STOP_AT   the process stops itself, once, before it writes into a file whose path holds this text
//   IM_SECOND    the clock stands still at this second since 1970
//   IM_STOP_BEHIND_LOOK_UP   the process stops itself, once, when it knows who owns a selection

#include <array>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>

#include <dlfcn.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <X11/Xlib.h>

namespace {

bool is_named(int fd, const char *text)
{
    const std::string link = "/proc/self/fd/" + std::to_string(fd);
    std::array<char, 4096> path{};
    return ::readlink(link.c_str(), path.data(), path.size() - 1) > 0 && std::strstr(path.data(), text) != nullptr;
}

void stop_where_wanted(int fd)
{
    static const char *text = std::getenv("IM_STOP_AT");
    if (!text || !is_named(fd, text))
        return;
    text = nullptr;
    (void)::raise(SIGSTOP);
}

} // namespace

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the C library reserves the names it gives

extern "C" ssize_t write(int fd, const void *bytes, size_t count)
{
    stop_where_wanted(fd);
    return ::syscall(SYS_write, fd, bytes, count);
}

extern "C" ssize_t pwrite64(int fd, const void *bytes, size_t count, off64_t position)
{
    stop_where_wanted(fd);
    return ::syscall(SYS_pwrite64, fd, bytes, count, position);
}

extern "C" ssize_t pwrite(int fd, const void *bytes, size_t count, off_t position)
{
    return ::pwrite64(fd, bytes, count, position);
}

extern "C" time_t time(time_t *seconds) noexcept
{
    static const char *const given = std::getenv("IM_SECOND");
    timespec now{};
    (void)::clock_gettime(CLOCK_REALTIME, &now);
    const time_t answer = given ? std::strtoll(given, nullptr, 10) : now.tv_sec;
    if (seconds)
        *seconds = answer;
    return answer;
}

extern "C" Window XGetSelectionOwner(Display *display, Atom selection)
{
    using Function = Window (*)(Display *, Atom);
    static const auto real = reinterpret_cast<Function>(::dlsym(RTLD_NEXT, "XGetSelectionOwner"));
    static bool isToStop = std::getenv("IM_STOP_BEHIND_LOOK_UP") != nullptr;
    const Window owner = real(display, selection);
    if (isToStop && owner != 0) {
        isToStop = false;
        (void)::raise(SIGSTOP);
    }
    return owner;
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
