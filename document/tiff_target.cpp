#include "tiff_target.h"

#include "target_file.h"

#include <tiffio.h>

namespace {

TargetFile &file_of(thandle_t handle)
{
    return *static_cast<TargetFile *>(handle);
}

tmsize_t read_bytes(thandle_t handle, void *bytes, tmsize_t count)
{
    return file_of(handle).read(static_cast<char *>(bytes), count);
}

tmsize_t write_bytes(thandle_t handle, void *bytes, tmsize_t count)
{
    return file_of(handle).write(static_cast<const char *>(bytes), count);
}

toff_t seek_bytes(thandle_t handle, toff_t offset, int whence)
{
    TargetFile &file = file_of(handle);
    // Offsets from elsewhere than the beginning may be negative numbers.
    auto position = static_cast<qint64>(offset);
    if (whence == SEEK_CUR)
        position += file.pos();
    else if (whence == SEEK_END)
        position += file.size();
    return file.seek(position) ? static_cast<toff_t>(position) : static_cast<toff_t>(-1);
}

toff_t size_in_bytes(thandle_t handle)
{
    return static_cast<toff_t>(file_of(handle).size());
}

int leave_open(thandle_t /*handle*/)
{
    return 0;
}

} // namespace

TiffHandle begin_tiff(TargetFile &file, const char *mode)
{
    return TiffHandle(TIFFClientOpen("saved file", mode, &file, read_bytes, write_bytes, seek_bytes, leave_open,
                                     size_in_bytes, nullptr, nullptr));
}
