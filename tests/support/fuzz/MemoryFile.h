#pragma once

#include "fuzz_target.h"

#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <span>
#include <string>

#include <unistd.h>

/// A file of some bytes that lies in memory, while the object lives.
class MemoryFile
{
public:
    explicit MemoryFile(std::span<const std::uint8_t> bytes = {}) : descriptor_(::mkstemp(path_.data()))
    {
        promise(descriptor_ >= 0 && ::write(descriptor_, bytes.data(), bytes.size()) == std::ssize(bytes),
                "there is memory for a small file");
    }
    ~MemoryFile()
    {
        ::close(descriptor_);
        ::unlink(path_.c_str());
    }
    MemoryFile(const MemoryFile &) = delete;
    MemoryFile(MemoryFile &&) = delete;
    MemoryFile &operator=(const MemoryFile &) = delete;
    MemoryFile &operator=(MemoryFile &&) = delete;

    [[nodiscard]] const std::string &path() const { return path_; }
    [[nodiscard]] int descriptor() const { return descriptor_; }

private:
    std::string path_ = "/dev/shm/fuzz-XXXXXX"; // not without a name, which the toolkit would count as gone
    int descriptor_;
};
