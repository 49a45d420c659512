#include "file_room.h"

#include <fcntl.h>

void reserve_room(int fileDescriptor, qint64 bytes)
{
    // Not posix_fallocate(): where the file system cannot do it, that one writes all blocks.
    (void)::fallocate(fileDescriptor, FALLOC_FL_KEEP_SIZE, 0, bytes);
}
