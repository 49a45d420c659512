#include "bad_files.h"

#include "pictures.h"

#include <QBuffer>
#include <QFile>
#include <QtEndian>

#include <array>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray encoded_page(QSize size, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!patterned_page(size).save(&buffer, format))
        qFatal("encodedPage - cannot write %s", format);
    return bytes;
}

QByteArray big_endian(quint32 value)
{
    std::array<char, 4> bytes{};
    qToBigEndian(value, bytes.data());
    return {bytes.data(), bytes.size()};
}

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

QByteArray png_chunk(const QByteArray &type, const QByteArray &content)
{
    return big_endian(static_cast<quint32>(content.size())) + type + content
        + big_endian(chunk_checksum(type + content));
}

} // namespace

bool write_bytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

bool write_truncated(const QString &path, const char *format, double share)
{
    const QByteArray whole = encoded_page({100, 80}, format);
    return write_bytes(path, whole.first(static_cast<qsizetype>(static_cast<double>(whole.size()) * share)));
}

bool make_named_pipe(const QString &path)
{
    return ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
}

bool make_unreadable_file(const QString &path)
{
    return write_bytes(path, encoded_page({100, 80}, "bmp")) && QFile::setPermissions(path, {});
}

bool write_png_promising(const QString &path, quint32 width, quint32 height)
{
    const QByteArray eightBitColours("\x08\x02\x00\x00\x00", 5);
    return write_bytes(path,
                       "\x89PNG\r\n\x1a\n"_ba
                           + png_chunk("IHDR", big_endian(width) + big_endian(height) + eightBitColours)
                           + png_chunk("IDAT", qCompress(QByteArray(1000, '\0')).sliced(4)) + png_chunk("IEND", {}));
}

bool write_sparse_bmp(const QString &path, qint64 bytes)
{
    QFile file(path);
    const QByteArray page = encoded_page({2, 2}, "bmp");
    return file.open(QIODevice::WriteOnly) && file.write(page) == page.size() && file.resize(bytes);
}
