#include "png_chunks.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstring>
#include <libdeflate.h>

namespace {

constexpr QByteArrayView Signature("\x89PNG\r\n\x1a\n");
constexpr qsizetype NameBytes = 4;
constexpr qsizetype FrameBytes = 12; ///< length, name and check sum
constexpr qsizetype ContentAt = 8; ///< behind length and name
constexpr qsizetype HeaderContentBytes = 13;

/// Chunks that do not change how pixels are stored; what they mean is told by the toolkit.
bool is_known_beside_pixels(QByteArrayView name)
{
    constexpr std::array<QByteArrayView, 12> known{"bKGD", "cHRM", "eXIf", "gAMA", "iCCP", "iTXt",
                                                   "oFFs", "pHYs", "sRGB", "tEXt", "tIME", "zTXt"};
    return std::ranges::find(known, name) != known.end();
}

quint32 number32(const char *at)
{
    return qFromBigEndian<quint32>(at);
}

void append_number32(QByteArray &bytes, quint32 number)
{
    std::array<char, 4> stored{};
    qToBigEndian(number, stored.data());
    bytes.append(stored.data(), stored.size());
}

quint32 check_sum(QByteArrayView nameAndContent)
{
    return libdeflate_crc32(0, nameAndContent.data(), static_cast<std::size_t>(nameAndContent.size()));
}

void append_chunk(QByteArray &file, const QByteArray &nameAndContent)
{
    append_number32(file, static_cast<quint32>(nameAndContent.size() - NameBytes));
    file.append(nameAndContent);
    append_number32(file, check_sum(nameAndContent));
}

/// The header of a picture of one pixel.
void append_header(QByteArray &file, const PngShape &shape)
{
    QByteArray header("IHDR");
    append_number32(header, 1);
    append_number32(header, 1);
    header.append(static_cast<char>(shape.bits));
    header.append(static_cast<char>(shape.kind));
    header.append(3, '\0'); // the usual compression and filters, no interlacing
    append_chunk(file, header);
}

/// The first of what a pixel can be, deflated.
void append_pixel(QByteArray &file, const PngShape &shape)
{
    constexpr qsizetype countBytes = 4; // the toolkit's own, before the stream
    append_chunk(file, "IDAT" + qCompress(QByteArray(1 + shape.samples(), '\0')).sliced(countBytes));
}

/// Walks the chunks of a file once.
class ChunkWalk
{
public:
    ChunkWalk(QByteArray &bytes, const PngShape &pngShape) : file(bytes), shape(pngShape), tale(Signature.toByteArray())
    {
        append_header(tale, shape);
    }

    [[nodiscard]] std::optional<PngParts> parts()
    {
        qsizetype at = PngHeaderBytes;
        while (!isEnded) {
            if (file.size() - at < FrameBytes)
                return {};
            const qsizetype length = number32(file.constData() + at);
            if (length > file.size() - at - FrameBytes || !take(at, length))
                return {};
            at += FrameBytes + length;
        }
        if (deflatedBytes == 0 || (shape.kind == PngShape::Kind::Indexed && colorCount == 0))
            return {};
        return PngParts{QByteArrayView(file).sliced(deflatedAt, deflatedBytes), tale, colorCount};
    }

private:
    bool take(qsizetype at, qsizetype length)
    {
        const auto chunk = QByteArrayView(file).sliced(at, FrameBytes + length);
        const auto nameAndContent = chunk.sliced(NameBytes, NameBytes + length);
        if (check_sum(nameAndContent) != number32(chunk.data() + ContentAt + length))
            return false;
        const auto name = nameAndContent.first(NameBytes);
        if (name == "IDAT")
            return takePixels(at + ContentAt, length);
        isEnded = name == "IEND";
        const bool isUsual = isEnded ? length == 0
            : name == "PLTE"         ? takeColors(length)
            : name == "tRNS"         ? shape.samples() == 1
                                     : is_known_beside_pixels(name);
        return isUsual && addToTale(chunk);
    }

    bool addToTale(QByteArrayView chunk)
    {
        constexpr qsizetype mostBytes = qsizetype{1024} * 1024;
        hasPixelsEnded = deflatedBytes > 0;
        tale.append(chunk);
        return tale.size() <= mostBytes;
    }

    bool takeColors(qsizetype length)
    {
        constexpr qsizetype colorBytes = 3;
        const qsizetype most = qsizetype{1} << shape.bits;
        const qsizetype least = shape.bits == 1 ? most : 1; // one colour makes half of the bits mean nothing
        const qsizetype count = length / colorBytes;
        const bool isUsual = shape.kind != PngShape::Kind::Grey && colorCount == 0 && deflatedBytes == 0
            && length % colorBytes == 0 && count >= least && count <= most;
        colorCount = static_cast<int>(count);
        return isUsual;
    }

    bool takePixels(qsizetype at, qsizetype length)
    {
        if (length == 0 || hasPixelsEnded)
            return false;
        if (deflatedBytes == 0) {
            deflatedAt = at;
            append_pixel(tale, shape);
        } else {
            char *const bytes = file.data();
            std::memmove(bytes + deflatedAt + deflatedBytes, bytes + at, static_cast<std::size_t>(length));
        }
        deflatedBytes += length;
        return true;
    }

    QByteArray &file;
    const PngShape shape;
    QByteArray tale;
    qsizetype deflatedAt = 0;
    qsizetype deflatedBytes = 0;
    int colorCount = 0;
    bool hasPixelsEnded = false;
    bool isEnded = false;
};

} // namespace

int PngShape::samples() const
{
    constexpr int rgb = 3;
    constexpr int rgba = 4;
    return kind == Kind::Color ? rgb : kind == Kind::ColorAlpha ? rgba : 1;
}

qsizetype PngShape::rowBytes() const
{
    return (qsizetype{size.width()} * samples() * bits + 7) / 8;
}

std::optional<PngShape> plain_png_shape(QByteArrayView start)
{
    constexpr quint32 longestSide = 1'000'000; // of the toolkit's reader
    constexpr QByteArrayView plainMethods("\0\0\0", 3); // compression, filters, no interlacing
    const QByteArrayView chunk = start.sliced(Signature.size(), PngHeaderBytes - Signature.size());
    const QByteArrayView header = chunk.sliced(ContentAt, HeaderContentBytes);
    if (!start.startsWith(Signature) || number32(chunk.data()) != HeaderContentBytes
        || !chunk.sliced(4).startsWith("IHDR")
        || check_sum(chunk.sliced(NameBytes, NameBytes + HeaderContentBytes))
            != number32(header.data() + HeaderContentBytes)
        || header.sliced(10) != plainMethods)
        return {};
    const quint32 width = number32(header.data());
    const quint32 height = number32(header.data() + 4);
    if (width == 0 || height == 0 || width > longestSide || height > longestSide)
        return {};
    const int bits = static_cast<uchar>(header[8]);
    const char kind = header[9];
    const bool isPlain =
        bits == 8 ? kind == 0 || kind == 2 || kind == 3 || kind == 6 : bits == 1 && (kind == 0 || kind == 3);
    if (!isPlain)
        return {};
    return PngShape{QSize(static_cast<int>(width), static_cast<int>(height)), bits, static_cast<PngShape::Kind>(kind)};
}

std::optional<PngParts> png_parts(QByteArray &file, const PngShape &shape)
{
    return ChunkWalk(file, shape).parts();
}
