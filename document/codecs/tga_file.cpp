#include "tga_file.h"

#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <optional>

namespace {

constexpr qsizetype HeaderBytes = 18;
constexpr qsizetype FooterBytes = 26;
constexpr QByteArrayView Signature("TRUEVISION-XFILE");
constexpr int RightToLeft = 0x10;

struct TgaShape
{
    qint64 pixelStart = 0;
    qint64 width = 0;
    qint64 height = 0;
    int bits = 0;
    int descriptor = 0;

    [[nodiscard]] qint64 pixelBytes() const { return width * height * (bits / 8); }
    [[nodiscard]] bool tellsAlpha() const { return (descriptor & 0xf) != 0; }
};

std::optional<TgaShape> read_shape(QIODevice &file)
{
    constexpr int trueColors = 2;
    if (file.size() < HeaderBytes + FooterBytes || !file.seek(file.size() - FooterBytes + 8)
        || file.read(Signature.size()) != Signature || !file.seek(0))
        return std::nullopt;
    const QByteArray header = file.read(HeaderBytes);
    if (header.size() < HeaderBytes)
        return std::nullopt;
    const auto byte = [&header](qsizetype at) { return static_cast<uchar>(header.at(at)); };
    const auto number = [&header](qsizetype at) { return qFromLittleEndian<quint16>(header.constData() + at); };
    const int bits = byte(16);
    if (byte(2) != trueColors || (bits != 16 && bits != 24 && bits != 32))
        return std::nullopt;
    const int tableBytes = byte(1) == 1 ? number(5) * ((byte(7) + 7) / 8) : 0;
    return TgaShape{.pixelStart = HeaderBytes + byte(0) + tableBytes,
                    .width = number(12),
                    .height = number(14),
                    .bits = bits,
                    .descriptor = byte(17)};
}

/// Five bits brought to eight.
char spread(int bits)
{
    return static_cast<char>(bits << 3 | bits >> 2);
}

/// Blue, green, red and alpha of each pixel; alpha 0 or 255 where it is one bit.
QByteArray read_pixels(QIODevice &file, const TgaShape &shape)
{
    if (!file.seek(shape.pixelStart))
        return {};
    QByteArray stored = file.read(shape.pixelBytes());
    if (shape.bits == 32)
        return stored;
    QByteArray pixels;
    pixels.reserve(stored.size() / shape.bits * 32);
    for (qsizetype at = 0; at + shape.bits / 8 <= stored.size(); at += shape.bits / 8) {
        if (shape.bits == 24) {
            pixels.append(stored.constData() + at, 3).append('\xff');
        } else {
            const int word = qFromLittleEndian<quint16>(stored.constData() + at);
            pixels.append(spread(word & 0x1f)).append(spread(word >> 5 & 0x1f)).append(spread(word >> 10 & 0x1f));
            pixels.append((word & 0x8000) != 0 ? '\xff' : '\0');
        }
    }
    return pixels;
}

bool has_alpha(const TgaShape &shape, const QByteArray &pixels)
{
    if (shape.bits == 16 && !shape.tellsAlpha())
        return false;
    for (qsizetype at = 3; at < pixels.size(); at += 4) {
        if (pixels.at(at) != 0)
            return true;
    }
    return false;
}

void mirror_rows(QByteArray &pixels, qint64 width)
{
    auto *const words = reinterpret_cast<quint32 *>(pixels.data());
    const qint64 count = pixels.size() / 4;
    for (qint64 row = 0; row + width <= count; row += width)
        std::reverse(words + row, words + row + width);
}

} // namespace

bool is_tga(QIODevice &file)
{
    return read_shape(file).has_value();
}

bool is_complete_tga(QIODevice &file)
{
    const std::optional<TgaShape> shape = read_shape(file);
    return shape && shape->pixelBytes() > 0 && shape->pixelStart + shape->pixelBytes() + FooterBytes <= file.size();
}

QByteArray mended_tga(QIODevice &file)
{
    const std::optional<TgaShape> shape = read_shape(file);
    if (!shape)
        return {};
    const bool isMirrored = (shape->descriptor & RightToLeft) != 0;
    if (shape->bits == 24 && shape->pixelStart == HeaderBytes && !isMirrored)
        return {};
    QByteArray pixels = read_pixels(file, *shape);
    if (!has_alpha(*shape, pixels)) {
        for (qsizetype at = 3; at < pixels.size(); at += 4)
            pixels[at] = '\xff';
    }
    if (isMirrored)
        mirror_rows(pixels, shape->width);
    if (!file.seek(0))
        return {};
    QByteArray header = file.read(HeaderBytes);
    header[0] = 0; // no name
    header[1] = 0; // no table
    header[16] = 32;
    header[17] = static_cast<char>((shape->descriptor & 0x20) | 8);
    return header + pixels + QByteArray(8, '\0') + Signature.toByteArray() + QByteArray(".\0", 2);
}
