#include "byte_reader.h"

#include <QIODevice>

#include <algorithm>
#include <cstring>

bool ByteReader::skip(qint64 count)
{
    while (count > 0) {
        if (position == filled && !fill())
            return false;
        const qint64 step = std::min(count, static_cast<qint64>(filled - position));
        position += static_cast<std::size_t>(step);
        count -= step;
    }
    return true;
}

bool ByteReader::skipPast(char wanted)
{
    while (position != filled || fill()) {
        const char *const start = buffer.data() + position;
        if (const void *hit = std::memchr(start, wanted, filled - position)) {
            position += static_cast<std::size_t>(static_cast<const char *>(hit) - start) + 1;
            return true;
        }
        position = filled;
    }
    return false;
}

int ByteReader::nextBigEndian16()
{
    const int high = next();
    const int low = next();
    return low < 0 ? -1 : high << 8 | low;
}

bool ByteReader::fill()
{
    earlierBytes += static_cast<qint64>(position);
    position = 0;
    const qint64 count = file.read(buffer.data(), static_cast<qint64>(buffer.size()));
    filled = static_cast<std::size_t>(std::max<qint64>(count, 0));
    return filled > 0;
}
