#include "complete_file.h"

#include <QByteArray>
#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

namespace {

/// Reads a file forward by blocks. A file that another program cuts meanwhile just ends earlier, which
/// a mapped one would not survive.
class ByteReader
{
public:
    explicit ByteReader(QIODevice &device) : file(device) { }

    /// The next byte, or -1 at the end.
    int next()
    {
        if (position == filled && !fill())
            return -1;
        return static_cast<uchar>(buffer[position++]);
    }

    /// @return false if the file ends before
    bool skip(qint64 count)
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

    /// Goes behind the next byte of this value.
    bool skipPast(char wanted)
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

    /// A number of two bytes, the high one first, or -1 at the end.
    int nextBigEndian16()
    {
        const int high = next();
        const int low = next();
        return low < 0 ? -1 : high << 8 | low;
    }

private:
    bool fill()
    {
        position = 0;
        const qint64 count = file.read(buffer.data(), static_cast<qint64>(buffer.size()));
        filled = static_cast<std::size_t>(std::max<qint64>(count, 0));
        return filled > 0;
    }

    QIODevice &file;
    std::array<char, std::size_t{64} * 1024> buffer{};
    std::size_t position = 0;
    std::size_t filled = 0;
};

/// Whether the end marker comes behind a scan. The markers are walked one by one, since a thumbnail in a
/// segment ends with the same two bytes.
bool isCompleteJpeg(QIODevice &file)
{
    constexpr int StartOfImage = 0xd8;
    constexpr int EndOfImage = 0xd9;
    constexpr int StartOfScan = 0xda;
    ByteReader bytes(file);
    bool scanSeen = false;
    while (bytes.skipPast('\xff')) {
        int marker = bytes.next();
        while (marker == 0xff) // fill bytes
            marker = bytes.next();
        if (marker == EndOfImage)
            return scanSeen;
        // Within a scan 0 is a byte of data, and the markers below the start of the image are restarts.
        if (marker <= 0x01 || (marker >= 0xd0 && marker <= StartOfImage))
            continue;
        scanSeen = scanSeen || marker == StartOfScan;
        const int length = bytes.nextBigEndian16();
        if (length < 2 || !bytes.skip(length - 2))
            return false;
    }
    return false;
}

/// Bytes from the first row to the last pixel, padding between the rows included. As a real number: the
/// sides that a header can claim are too large for whole ones.
double bmpRowsEnd(qint64 width, qint64 height, int bits)
{
    const qint64 rowBits = std::abs(width) * bits;
    const qint64 otherRows = std::max<qint64>(0, std::abs(height) - 1);
    const qint64 paddedBytes = (rowBits + 31) / 32 * 4;
    const qint64 lastRowBytes = (rowBits + 7) / 8;
    return static_cast<double>(otherRows) * static_cast<double>(paddedBytes) + static_cast<double>(lastRowBytes);
}

/// Whether the last row reaches its end. The size in the file's header is not asked: many programs
/// write a wrong one.
bool isCompleteBmp(QIODevice &file)
{
    constexpr qint64 OldHeaderBytes = 26;
    constexpr quint32 OldHeaderMark = 12;
    constexpr quint32 Rle8 = 1;
    constexpr quint32 Rle4 = 2;
    std::array<char, 54> header{};
    const qint64 present = file.read(header.data(), static_cast<qint64>(header.size()));
    const auto number16 = [&header](std::size_t at) { return qFromLittleEndian<quint16>(&header.at(at)); };
    const auto number32 = [&header](std::size_t at) { return qFromLittleEndian<quint32>(&header.at(at)); };
    if (present < OldHeaderBytes)
        return false;
    const quint32 dataStart = number32(10);
    if (number32(14) == OldHeaderMark)
        return static_cast<double>(file.size()) >= dataStart + bmpRowsEnd(number16(18), number16(20), number16(24));
    if (present < static_cast<qint64>(header.size()))
        return false;
    const quint32 compression = number32(30);
    if (compression == Rle8 || compression == Rle4)
        return file.size() >= qint64{dataStart} + number32(34);
    const auto width = static_cast<qint32>(number32(18));
    const auto height = static_cast<qint32>(number32(22)); // negative for rows from the top
    return static_cast<double>(file.size()) >= dataStart + bmpRowsEnd(width, height, number16(28));
}

/// Goes behind a chain of blocks, each led by its length, which a length of 0 ends.
bool skipGifBlocks(ByteReader &bytes)
{
    int length = bytes.next();
    while (length > 0 && bytes.skip(length))
        length = bytes.next();
    return length == 0;
}

bool skipGifColorTable(ByteReader &bytes, int flags)
{
    constexpr int HasTable = 0x80;
    return (flags & HasTable) == 0 || bytes.skip(qint64{3} << ((flags & 7) + 1));
}

/// Whether the first picture comes to its end; further ones are not shown.
bool isCompleteGif(QIODevice &file)
{
    constexpr int Extension = 0x21;
    constexpr int Picture = 0x2c;
    constexpr int Trailer = 0x3b;
    ByteReader bytes(file);
    if (!bytes.skip(10))
        return false;
    const int fileFlags = bytes.next();
    if (!bytes.skip(2) || !skipGifColorTable(bytes, fileFlags))
        return false;
    for (int block = bytes.next(); block >= 0 && block != Trailer; block = bytes.next()) {
        if (block == Extension && !(bytes.skip(1) && skipGifBlocks(bytes)))
            return false;
        if (block == Picture) {
            if (!bytes.skip(8))
                return false;
            const int pictureFlags = bytes.next();
            return skipGifColorTable(bytes, pictureFlags) && bytes.skip(1) && skipGifBlocks(bytes);
        }
    }
    return false;
}

/// Whether there is a number for every eight pixels of a row.
bool isCompleteXbm(QIODevice &file)
{
    constexpr qint64 LongestLine = 1024;
    const auto lastNumber = [&file] { return file.readLine(LongestLine).simplified().split(' ').last().toLongLong(); };
    const qint64 width = lastNumber();
    const qint64 height = lastNumber();
    ByteReader bytes(file);
    if (!bytes.skipPast('{'))
        return false;
    const qint64 wanted = (width + 7) / 8 * height;
    qint64 found = 0;
    while (found < wanted && bytes.skipPast('x') && bytes.skip(2)) // each number is written as "0x12"
        ++found;
    return found >= wanted;
}

/// Whether the colour map lies within the file. Its loss turns a coloured page into a grey one, and it
/// is often the last thing in a file.
bool hasWholeTiffColorMap(QIODevice &file)
{
    constexpr qsizetype EntryBytes = 12;
    constexpr quint16 ColorMapTag = 320;
    const QByteArray header = file.read(8);
    if (header.size() < 8)
        return true; // nothing that a reader would take
    const bool little = header.startsWith("II");
    const auto number16 = [little](const char *at) {
        return little ? qFromLittleEndian<quint16>(at) : qFromBigEndian<quint16>(at);
    };
    const auto number32 = [little](const char *at) {
        return little ? qFromLittleEndian<quint32>(at) : qFromBigEndian<quint32>(at);
    };

    const quint32 directoryStart = number32(header.constData() + 4);
    if (directoryStart >= file.size() || !file.seek(directoryStart))
        return true;
    const QByteArray count = file.read(2);
    if (count.size() < 2)
        return true;
    const QByteArray directory = file.read(number16(count.constData()) * EntryBytes);
    for (qsizetype at = 0; at + EntryBytes <= directory.size(); at += EntryBytes) {
        const char *const entry = directory.constData() + at;
        if (number16(entry) == ColorMapTag)
            return qint64{number32(entry + 8)} + qint64{2} * number32(entry + 4) <= file.size();
    }
    return true;
}

using Check = bool (*)(QIODevice &);

/// The check for a file that begins so, or null.
Check checkFor(const QByteArray &start)
{
    if (start.startsWith("\xff\xd8"))
        return isCompleteJpeg;
    if (start.startsWith("BM"))
        return isCompleteBmp;
    if (start.startsWith("GIF8"))
        return isCompleteGif;
    if (start.startsWith("#define"))
        return isCompleteXbm;
    if (start.startsWith(QByteArrayView("II*\0", 4)) || start.startsWith(QByteArrayView("MM\0*", 4)))
        return hasWholeTiffColorMap;
    return nullptr;
}

} // namespace

bool is_complete_image(QIODevice &file)
{
    constexpr qint64 LongestSignature = 7;
    const Check check = checkFor(file.peek(LongestSignature));
    const bool complete = check == nullptr || check(file);
    return file.seek(0) && complete;
}
