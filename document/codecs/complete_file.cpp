#include "complete_file.h"

#include "bmp_file.h"
#include "byte_reader.h"
#include "gif_file.h"
#include "icns_file.h"
#include "jpeg_file.h"
#include "mng_file.h"
#include "tga_file.h"

#include <QByteArray>
#include <QIODevice>
#include <QtEndian>

namespace {

/// Whether there is a number for every eight pixels of a row.
bool is_complete_xbm(QIODevice &file)
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
bool has_whole_tiff_color_map(QIODevice &file)
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
Check check_for(const QByteArray &start)
{
    if (start.startsWith("\xff\xd8"))
        return is_complete_jpeg;
    if (start.startsWith("BM"))
        return is_complete_bmp;
    if (start.startsWith("GIF8"))
        return is_complete_gif;
    if (start.startsWith("icns"))
        return is_complete_icns;
    if (start.startsWith("#define"))
        return is_complete_xbm;
    if (start.startsWith("\x8aMNG"))
        return has_fitting_mng_pictures;
    if (start.startsWith(QByteArrayView("II*\0", 4)) || start.startsWith(QByteArrayView("MM\0*", 4)))
        return has_whole_tiff_color_map;
    return nullptr;
}

} // namespace

bool is_complete_image(QIODevice &file)
{
    constexpr qint64 LongestSignature = 7;
    const Check check = check_for(file.peek(LongestSignature));
    const bool complete = check != nullptr ? check(file) : !is_tga(file) || is_complete_tga(file);
    return file.seek(0) && complete;
}
