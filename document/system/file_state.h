#pragma once

#include <QtGlobal>

/// What tells whether a file is still the one that it was: another program may cut it, write into it or put a new
/// one in its place at any moment.
struct FileState
{
    quint64 device = 0;
    quint64 inode = 0;
    qint64 bytes = -1; ///< negative if the system does not tell
    qint64 modifiedSeconds = 0;
    qint64 modifiedNanoseconds = 0;

    [[nodiscard]] bool operator==(const FileState &) const = default;
};

/// The state of an open file now.
[[nodiscard]] FileState file_state(int fileDescriptor);
