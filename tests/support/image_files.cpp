#include "image_files.h"

#include <QBuffer>
#include <QFile>
#include <QtEndian>

#include <array>

QByteArray encoded(const QImage &image, const char *format, int quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, format, quality))
        qFatal("encoded - cannot write %s", format);
    return bytes;
}

QByteArray little16(int value)
{
    std::array<char, 2> bytes{};
    qToLittleEndian(static_cast<quint16>(value), bytes.data());
    return {bytes.data(), bytes.size()};
}

QByteArray little32(qint64 value)
{
    std::array<char, 4> bytes{};
    qToLittleEndian(static_cast<quint32>(value), bytes.data());
    return {bytes.data(), bytes.size()};
}

QByteArray bmp_file(int width, int height, int bits, const QList<QRgb> &table, const QByteArray &rows)
{
    QByteArray colors;
    for (const QRgb color : table)
        colors += little32(color & 0xffffffU);
    const qint64 start = 14 + 40 + colors.size();
    return "BM" + little32(start + rows.size()) + little32(0) + little32(start) + little32(40) + little32(width)
        + little32(height) + little16(1) + little16(bits) + little32(0) + little32(rows.size()) + little32(0)
        + little32(0) + little32(table.size()) + little32(0) + colors + rows;
}

QByteArray small_gif()
{
    const QByteArray screen = "GIF89a" + little16(2) + little16(1) + QByteArray("\x80\0\0", 3);
    const QByteArray colors("\xff\0\0\0\0\xff", 6);
    const QByteArray comment("\x21\xfe\x02hi\0", 6);
    const QByteArray picture = "," + little16(0) + little16(0) + little16(2) + little16(1) + QByteArray("\0", 1);
    // Codes of three bits, low bits first: clear 4, indices 0 and 1, end 5.
    const QByteArray codes("\x02\x02\x44\x0a\0", 5);
    return screen + colors + comment + picture + codes + ";";
}

namespace {

/// The check sum that closes each PNG chunk, bit by bit as its standard tells.
quint32 chunk_checksum(const QByteArray &bytes)
{
    quint32 sum = 0xffffffffU;
    for (const char byte : bytes) {
        sum ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum & 1U) != 0 ? (sum >> 1) ^ 0xedb88320U : sum >> 1;
    }
    return ~sum;
}

} // namespace

QByteArray big32(qint64 value)
{
    std::array<char, 4> bytes{};
    qToBigEndian(static_cast<quint32>(value), bytes.data());
    return {bytes.data(), bytes.size()};
}

QByteArray png_chunk(const QByteArray &type, const QByteArray &content)
{
    return big32(content.size()) + type + content + big32(chunk_checksum(type + content));
}

QByteArray riff_chunk(const QByteArray &name, const QByteArray &content)
{
    return name + little32(content.size()) + content + QByteArray(content.size() % 2, '\0');
}

namespace {

QByteArray png_of(qint64 width, qint64 height, char bits, char colorType, const QByteArray &rows,
                  const QByteArray &further = {})
{
    const QByteArray format{QByteArray(1, bits) + QByteArray(1, colorType) + QByteArray(3, '\0')};
    return "\x89PNG\r\n\x1a\n" + png_chunk("IHDR", big32(width) + big32(height) + format) + further
        + png_chunk("IDAT", qCompress(rows).sliced(4)) + png_chunk("IEND", {});
}

} // namespace

QByteArray png_file(qint64 width, char bits, char colorType, const QByteArray &row, const QByteArray &chunk,
                    const QByteArray &content)
{
    return png_of(width, 1, bits, colorType, row, chunk.isEmpty() ? QByteArray() : png_chunk(chunk, content));
}

QByteArray png_promising(qint64 width, qint64 height)
{
    return png_of(width, height, 8, PngColor, QByteArray(1000, '\0'));
}

qint64 peak_memory_bytes()
{
    for (const QByteArray &line : file_bytes(QStringLiteral("/proc/self/status")).split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.simplified().split(' ').at(1).toLongLong() * 1024;
    }
    qFatal("peak_memory_bytes - the system does not tell");
}

void restart_peak_memory()
{
    write_file(QStringLiteral("/proc/self/clear_refs"), "5");
}
