#pragma once

#include <QtGlobal>

#include <array>
#include <cstddef>

class QIODevice;

/// Reads a file forward by blocks. A file that another program cuts meanwhile just ends earlier, which
/// a mapped one would not survive.
class ByteReader
{
public:
    /// @param device  open for reading; it is read from where it stands
    explicit ByteReader(QIODevice &device) : file(device) { }

    /// The next byte, or -1 at the end.
    int next()
    {
        if (position == filled && !fill())
            return -1;
        return static_cast<uchar>(buffer[position++]);
    }

    /// @return false if the file ends before
    bool skip(qint64 count);

    /// Goes behind the next byte of this value.
    /// @return false if there is none
    bool skipPast(char wanted);

    /// A number of two bytes, the high one first, or -1 at the end.
    int nextBigEndian16();

    /// Bytes that were read or skipped so far.
    [[nodiscard]] qint64 count() const { return earlierBytes + static_cast<qint64>(position); }

private:
    bool fill();

    QIODevice &file;
    std::array<char, std::size_t{64} * 1024> buffer{};
    std::size_t position = 0;
    std::size_t filled = 0;
    qint64 earlierBytes = 0; ///< of blocks before this one
};
