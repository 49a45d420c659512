#include "complete_file.h"

#include "bmp_file.h"
#include "byte_reader.h"
#include "tga_file.h"

#include <QByteArray>
#include <QIODevice>
#include <QtEndian>

namespace {

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
        return is_complete_bmp;
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
    const bool complete = check != nullptr ? check(file) : !is_tga(file) || is_complete_tga(file);
    return file.seek(0) && complete;
}
