// Loaded into a program under test ahead of the C library, it brings about what no test could time from outside. The
// environment says what:
//
//   IM_STOP_AT   the process stops itself, once, before it writes into a file whose path holds this text
//   IM_SECOND    the clock stands still at this second since 1970
//   IM_STOP_BEHIND_LOOK_UP   the process stops itself, once, when it knows who owns a selection
//   IM_STOP_BEHIND_ROOM      the process stops itself, once, when it has asked so many times for the room of a disk
//   IM_NO_ROOM_TOLD          the system cannot tell the room of any disk
//   IM_PLANT_LINK            a link to this path takes the name of the first print file just before it is made

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>
#include <string_view>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/vfs.h>
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

void plant_where_wanted(const char *path, int flags)
{
    static const char *target = std::getenv("IM_PLANT_LINK");
    if (!target || (flags & O_CREAT) == 0 || !std::string_view(path).starts_with("/tmp/file"))
        return;
    (void)::symlink(target, path); // a test that finds none fails
    target = nullptr;
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

extern "C" int open(const char *path, int flags, ...)
{
    std::va_list arguments;
    va_start(arguments, flags);
    const bool hasMode = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    const mode_t mode = hasMode ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    plant_where_wanted(path, flags);
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

extern "C" int statfs(const char *path, struct statfs *room) noexcept
{
    static const bool isUntold = std::getenv("IM_NO_ROOM_TOLD") != nullptr;
    static const char *const look = std::getenv("IM_STOP_BEHIND_ROOM");
    static long looksLeft = look ? std::strtol(look, nullptr, 10) : 0;
    if (isUntold) {
        errno = EIO;
        return -1;
    }
    const auto answer = static_cast<int>(::syscall(SYS_statfs, path, room));
    if (looksLeft > 0 && --looksLeft == 0)
        (void)::raise(SIGSTOP);
    return answer;
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
