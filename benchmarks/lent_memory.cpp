#include "lent_memory.h"

#include <sys/mman.h>
#include <sys/sysinfo.h>

void have_memory_lent(std::size_t bytes)
{
    struct sysinfo machine
    {
    };
    if (bytes == 0 || sysinfo(&machine) != 0 || std::size_t{machine.freeram} * machine.mem_unit < bytes)
        return;
    void *const memory = ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        return;
    ::madvise(memory, bytes, MADV_HUGEPAGE); // in blocks of the size in which it was taken away
    ::madvise(memory, bytes, MADV_POPULATE_WRITE);
    ::munmap(memory, bytes);
}
