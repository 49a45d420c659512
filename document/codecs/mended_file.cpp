#include "mended_file.h"

#include "bmp_file.h"
#include "tga_file.h"

#include <QIODevice>
#include <QtEndian>

#include <utility>

namespace {

constexpr QByteArrayView PngSignature("\x89PNG\r\n\x1a\n");

/// Colours of 16 bits with one that is transparent: the toolkit's reader makes rows of three samples, and takes them
/// for rows of four.
MendedFile mended_png(QIODevice &file)
{
    constexpr qsizetype chunkFrame = 12; // length, name and check sum
    constexpr qsizetype headerEnd = 8 + chunkFrame + 13;
    constexpr QByteArrayView wideColors("\x10\x02", 2); // bits of a sample, kind of pixel
    if (file.peek(headerEnd).mid(24, 2) != wideColors)
        return {};
    QByteArray bytes = file.readAll();
    qsizetype at = headerEnd;
    while (at + chunkFrame <= bytes.size()) {
        const qint64 length = qFromBigEndian<quint32>(bytes.constData() + at);
        const QByteArrayView name = QByteArrayView(bytes).sliced(at + 4, 4);
        if (name == "IDAT" || length > bytes.size() - at - chunkFrame)
            break;
        if (name == "tRNS" && length == 6) {
            const auto sample = [&](qsizetype i) {
                return qFromBigEndian<quint16>(bytes.constData() + at + 8 + i * 2);
            };
            const QRgba64 color = qRgba64(sample(0), sample(1), sample(2), 0xffff);
            return {.bytes = bytes.remove(at, chunkFrame + length), .clearColor = color};
        }
        at += chunkFrame + length;
    }
    return {};
}

quint32 number24(QByteArrayView bytes, qsizetype at)
{
    return qFromLittleEndian<quint16>(bytes.constData() + at)
        | static_cast<quint32>(static_cast<uchar>(bytes.at(at + 2))) << 16;
}

/// An animation without alpha whose first picture leaves some of the canvas uncovered, which the toolkit's reader
/// clears only where the header tells of alpha.
QByteArray mended_webp(QIODevice &file)
{
    constexpr qsizetype flagsAt = 20;
    constexpr qsizetype canvasAt = 24; // width and height less one
    constexpr qsizetype chunksAt = 30;
    constexpr uchar animation = 0x02;
    constexpr uchar alpha = 0x10;
    const QByteArray header = file.peek(chunksAt);
    if (header.size() < chunksAt || !header.sliced(8).startsWith("WEBPVP8X")
        || (static_cast<uchar>(header.at(flagsAt)) & (animation | alpha)) != animation)
        return {};
    QByteArray bytes = file.readAll();
    constexpr qsizetype chunkFrame = 8;
    constexpr qsizetype frameHeader = 12; // column and row, both halved, width and height less one
    qsizetype at = chunksAt;
    while (at + chunkFrame + frameHeader <= bytes.size() && !QByteArrayView(bytes).sliced(at).startsWith("ANMF")) {
        const qint64 length = qFromLittleEndian<quint32>(bytes.constData() + at + 4);
        at += chunkFrame + (length + 1) / 2 * 2;
    }
    if (at + chunkFrame + frameHeader > bytes.size())
        return {};
    const QByteArrayView frame = QByteArrayView(bytes).sliced(at + chunkFrame, frameHeader);
    if (number24(frame, 0) == 0 && number24(frame, 3) == 0 && frame.sliced(6, 6) == header.sliced(canvasAt, 6))
        return {};
    bytes[flagsAt] = static_cast<char>(static_cast<uchar>(bytes.at(flagsAt)) | alpha);
    return bytes;
}

MendedFile mend(QIODevice &file)
{
    const QByteArray start = file.peek(12);
    if (start.startsWith("BM"))
        return {.bytes = mended_bmp(file), .clearColor = {}};
    if (start.startsWith(PngSignature))
        return mended_png(file);
    if (start.startsWith("RIFF") && start.endsWith("WEBP"))
        return {.bytes = mended_webp(file), .clearColor = {}};
    if (is_tga(file))
        return {.bytes = mended_tga(file), .clearColor = {}};
    return {};
}

} // namespace

MendedFile mended_file(QIODevice &file)
{
    MendedFile mended = mend(file);
    return file.seek(0) ? mended : MendedFile();
}

QImage with_clear_color(QImage image, QRgba64 color)
{
    if (image.format() != QImage::Format_RGBX64)
        return {};
    image = std::move(image).convertToFormat(QImage::Format_RGBA64);
    for (int y = 0; y < image.height(); ++y) {
        auto *const words = reinterpret_cast<QRgba64 *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (words[x] == color)
                words[x].setAlpha(0);
        }
    }
    return image;
}
