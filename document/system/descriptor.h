#pragma once

#include <QtGlobal>

#include <unistd.h>
#include <utility>

/// A file descriptor of the system, closed with its scope.
class Descriptor
{
public:
    Descriptor() = default;
    /// @param opened  what open() answered, -1 for a failure included
    explicit Descriptor(int opened) : fd(opened) { }
    Descriptor(Descriptor &&other) noexcept : fd(std::exchange(other.fd, -1)) { }
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(fd, other.fd);
        return *this;
    }
    ~Descriptor()
    {
        if (fd >= 0)
            ::close(fd);
    }
    Q_DISABLE_COPY(Descriptor)

    [[nodiscard]] bool isOpen() const { return fd >= 0; }
    [[nodiscard]] int get() const { return fd; }
    /// Leaves the closing to the caller.
    [[nodiscard]] int release() { return std::exchange(fd, -1); }

private:
    int fd = -1;
};
