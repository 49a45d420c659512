#include "bombs.h"

#include <QtEndian>

#include <initializer_list>
#include <zlib.h>

using namespace Qt::StringLiterals;

namespace {

template <typename Number> QByteArray big(Number value)
{
    QByteArray bytes(sizeof value, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

/// The lowest bytes of a number, the lowest one first.
QByteArray little(quint64 value, qsizetype bytes)
{
    QByteArray all(sizeof value, '\0');
    qToLittleEndian(value, all.data());
    return all.first(bytes);
}

/// Zeros as raw deflate blocks that end at a byte, so that they may be repeated.
QByteArray deflated_zeros(qsizetype count)
{
    z_stream stream{};
    if (deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        qFatal("cannot deflate");
    QByteArray zeros(count, '\0');
    QByteArray bytes(static_cast<qsizetype>(deflateBound(&stream, static_cast<uLong>(count))) + 16, '\0');
    stream.next_in = reinterpret_cast<Bytef *>(zeros.data());
    stream.avail_in = static_cast<uInt>(zeros.size());
    stream.next_out = reinterpret_cast<Bytef *>(bytes.data());
    stream.avail_out = static_cast<uInt>(bytes.size());
    const bool isDone = deflate(&stream, Z_FULL_FLUSH) == Z_OK && stream.avail_in == 0 && stream.avail_out > 0;
    bytes.truncate(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    if (!isDone)
        qFatal("cannot deflate");
    return bytes;
}

/// A zlib stream of @p repetitions times @p count zeros.
QByteArray zlib_zeros(qsizetype count, quint32 repetitions)
{
    const QByteArray part = deflated_zeros(count);
    const QByteArray zeros(count, '\0');
    const uLong partSum = adler32(1, reinterpret_cast<const Bytef *>(zeros.constData()), static_cast<uInt>(count));
    QByteArray stream("\x78\x01", 2);
    uLong sum = 1;
    for (quint32 i = 0; i < repetitions; ++i) {
        stream += part;
        sum = adler32_combine(sum, partSum, static_cast<z_off_t>(count));
    }
    return stream + QByteArray("\x03\x00", 2) + big(static_cast<quint32>(sum)); // a last block without any byte
}

QByteArray png_chunk(const QByteArray &type, const QByteArray &content)
{
    const QByteArray summed = type + content;
    const uLong sum = crc32(0, reinterpret_cast<const Bytef *>(summed.constData()), static_cast<uInt>(summed.size()));
    return big(static_cast<quint32>(content.size())) + summed + big(static_cast<quint32>(sum));
}

/// The codes of a GIF for pixels of index 0: each stands for a row of them that is one longer than the one before.
class GifCodes
{
public:
    explicit GifCodes(quint64 pixels)
    {
        while (pixels > 0)
            takeRuns(pixels);
        put(End);
        packed += little(waiting, 8);
    }

    /// In blocks of up to 255 bytes, and the empty one.
    [[nodiscard]] QByteArray blocks() const
    {
        QByteArray all;
        for (qsizetype at = 0; at < packed.size(); at += 255) {
            const QByteArray block = packed.mid(at, 255);
            all += little(static_cast<quint64>(block.size()), 1) + block;
        }
        return all + '\0';
    }

private:
    static constexpr int Clear = 4;
    static constexpr int End = 5;
    static constexpr int FirstFree = 6;
    static constexpr int MostCodes = 4096;
    static constexpr int LongestCode = 12; ///< bits

    /// As many pixels as a new table of codes has room for.
    void takeRuns(quint64 &pixels)
    {
        put(Clear);
        bits = 3;
        put(0);
        --pixels;
        int code = FirstFree;
        for (quint64 length = 2; code < MostCodes && pixels >= length; ++code, ++length) {
            put(code);
            pixels -= length;
            if (code + 1 == 1 << bits && bits < LongestCode)
                ++bits; // the decoder has made as many codes by now
        }
    }

    void put(int code)
    {
        waiting |= static_cast<quint64>(code) << waitingBits;
        waitingBits += bits;
        for (; waitingBits >= 8; waitingBits -= 8, waiting >>= 8U)
            packed += static_cast<char>(waiting);
    }

    QByteArray packed;
    quint64 waiting = 0;
    int waitingBits = 0;
    int bits = 3;
};

QByteArray riff_chunk(const QByteArray &type, const QByteArray &content)
{
    return type + little(static_cast<quint64>(content.size()), 4) + content + QByteArray(content.size() % 2, '\0');
}

/// A lossless picture without transforms and tables, each channel of which has one value alone, which takes no bits.
QByteArray lossless_chunk(quint32 side)
{
    const quint32 sides = (side - 1) | (side - 1) << 14U;
    // Three bits that nothing special follows, and a table of one symbol, 0, for each of five alphabets.
    constexpr quint32 Tables = 0x88888;
    return riff_chunk("VP8L"_ba, "/"_ba + little(sides, 4) + little(Tables, 3));
}

} // namespace

QByteArray png_bomb(quint32 side)
{
    const qsizetype rowBytes = 1 + (side + 7) / 8; // the first one is the filter
    return "\x89PNG\r\n\x1a\n"_ba + png_chunk("IHDR", big(side) + big(side) + QByteArray("\x01\0\0\0\0", 5))
        + png_chunk("IDAT", zlib_zeros(rowBytes * (side / 100), 100)) + png_chunk("IEND", {});
}

QByteArray tiff_bomb(quint32 side)
{
    constexpr quint32 Strips = 100;
    constexpr quint32 Places = 8;
    constexpr quint32 Counts = Places + Strips * 4;
    constexpr quint32 Data = Counts + Strips * 4;
    const QByteArray data = zlib_zeros(qsizetype{(side + 7) / 8} * (side / Strips), 1);
    QByteArray bytes = "II"_ba + little(42, 2) + little(Data + static_cast<quint64>(data.size()), 4);
    for (const quint64 value : {quint64{Data}, static_cast<quint64>(data.size())}) {
        for (quint32 i = 0; i < Strips; ++i)
            bytes += little(value, 4);
    }
    bytes += data;

    struct Entry
    {
        quint16 tag;
        quint32 count;
        quint32 value;
    };
    // Sides, bits, Adobe's deflate, 0 for black, places, samples, rows of a strip and their bytes.
    const std::initializer_list<Entry> entries{
        {256, 1, side}, {257, 1, side},          {258, 1, 1},          {259, 1, 8}, {262, 1, 1}, {273, Strips, Places},
        {277, 1, 1},    {278, 1, side / Strips}, {279, Strips, Counts}};
    bytes += little(entries.size(), 2);
    for (const Entry &entry : entries)
        bytes += little(entry.tag, 2) + little(4, 2) + little(entry.count, 4) + little(entry.value, 4);
    return bytes + little(0, 4);
}

QByteArray gif_bomb(quint16 side)
{
    const QByteArray sides = little(side, 2) + little(side, 2);
    return "GIF89a"_ba + sides + QByteArray("\x81\0\0", 3) + QByteArray("\0\0\0\xff\xff\xff\xff\0\0\0\xff\0", 12)
        + QByteArray(",\0\0\0\0", 5) + sides + QByteArray("\0\x02", 2) + GifCodes(quint64{side} * side).blocks() + ';';
}

QByteArray webp_bomb(quint32 side)
{
    return riff_chunk("RIFF"_ba, "WEBP"_ba + lossless_chunk(side));
}

QByteArray animated_webp_bomb(quint32 side)
{
    constexpr quint32 FrameSide = 16;
    const QByteArray canvas = little(side - 1, 3) + little(side - 1, 3);
    const QByteArray frame =
        little(0, 6) + little(FrameSide - 1, 3) + little(FrameSide - 1, 3) + little(0, 4) + lossless_chunk(FrameSide);
    return riff_chunk("RIFF"_ba,
                      "WEBP"_ba + riff_chunk("VP8X"_ba, little(2, 4) + canvas) + riff_chunk("ANIM"_ba, little(0, 6))
                          + riff_chunk("ANMF"_ba, frame));
}
