#pragma once

#include <QtGlobal>

/// Has the disk find room for the first @p bytes of an open file at once, which is faster than block after block as
/// they are written. The size of the file stays. A refusal is not told: it matters to the writing alone, which meets
/// it too.
void reserve_room(int fileDescriptor, qint64 bytes);
