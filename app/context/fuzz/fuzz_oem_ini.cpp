// Reads any bytes as an OEM.ini: the record must stay sound and equal to what the plain way makes of them.

#include "AppContext.h"
#include "plain_oem_ini.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <sys/mman.h>
#include <unistd.h>

namespace {

/// A file of these bytes that lies in memory alone, while the object lives.
class MemoryFile
{
public:
    MemoryFile(const std::uint8_t *bytes, std::size_t size) : descriptor(::memfd_create("OEM.ini", 0))
    {
        if (descriptor < 0 || ::write(descriptor, bytes, size) != static_cast<ssize_t>(size)) {
            std::perror("fuzz_oem_ini");
            std::exit(2);
        }
    }
    ~MemoryFile() { ::close(descriptor); }
    MemoryFile(const MemoryFile &) = delete;
    MemoryFile(MemoryFile &&) = delete;
    MemoryFile &operator=(const MemoryFile &) = delete;
    MemoryFile &operator=(MemoryFile &&) = delete;

    [[nodiscard]] std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor); }

private:
    int descriptor;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    const MemoryFile file(bytes, size);
    const AppContext before = actx; // what the inputs before have left, which is one more thing to vary

    if (read_oem_ini(file.path().c_str()) != 0)
        std::abort();

    if (!is_sound(actx) || !is_same(actx, plain_oem_ini(file.path().c_str(), before)))
        std::abort();
    return 0;
}
