#include "file_state.h"

#include <sys/stat.h>

FileState file_state(int fileDescriptor)
{
    struct stat status
    {
    };
    if (::fstat(fileDescriptor, &status) != 0)
        return {};
    return {.device = status.st_dev,
            .inode = status.st_ino,
            .bytes = status.st_size,
            .modifiedSeconds = status.st_mtim.tv_sec,
            .modifiedNanoseconds = status.st_mtim.tv_nsec};
}
