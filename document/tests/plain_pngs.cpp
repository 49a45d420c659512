#include "plain_pngs.h"

#include "image_files.h"

#include <algorithm>
#include <cstdlib>

namespace {

int byte_at(const QByteArray &bytes, qsizetype at)
{
    return at < 0 || at >= bytes.size() ? 0 : static_cast<uchar>(bytes[at]);
}

/// What a filter subtracts from a byte (ISO/IEC 15948, section 9).
int told_by_neighbors(int filter, int left, int above, int corner)
{
    const int estimate = left + above - corner;
    const int nearest = std::min({std::abs(estimate - left), std::abs(estimate - above), std::abs(estimate - corner)});
    switch (filter) {
    case 1:
        return left;
    case 2:
        return above;
    case 3:
        return (left + above) / 2;
    case 4:
        if (std::abs(estimate - left) == nearest)
            return left;
        return std::abs(estimate - above) == nearest ? above : corner;
    default:
        return 0;
    }
}

QByteArray random_row(QRandomGenerator &random, qsizetype bytes, int largest)
{
    // Half of the rows change little from byte to byte, as pages do: ties of the filters are met there.
    const bool isSmooth = random.bounded(2) == 0;
    QByteArray row;
    int value = random.bounded(largest + 1);
    for (qsizetype i = 0; i < bytes; ++i) {
        value = isSmooth ? std::clamp(value + random.bounded(5) - 2, 0, largest) : random.bounded(largest + 1);
        row.append(static_cast<char>(value));
    }
    return row;
}

} // namespace

int PlainPng::samples() const
{
    return kind == 2 ? 3 : kind == 4 ? 2 : kind == 6 ? 4 : 1;
}

QByteArray PlainPng::storedRows() const
{
    QRandomGenerator random(seed);
    const qsizetype bytes = (qsizetype{size.width()} * samples() * bits + 7) / 8;
    const qsizetype pixelBytes = std::max(1, samples() * bits / 8);
    QByteArray above(bytes, '\0');
    QByteArray stored;
    for (int y = 0; y < size.height(); ++y) {
        const QByteArray row = random_row(random, bytes, kind == 3 && bits == 8 ? largestIndex : 255);
        const int number = filter < 0 ? random.bounded(5) : filter;
        stored.append(static_cast<char>(number));
        for (qsizetype i = 0; i < bytes; ++i) {
            const int told = told_by_neighbors(number, byte_at(row, i - pixelBytes), byte_at(above, i),
                                               i < pixelBytes ? 0 : byte_at(above, i - pixelBytes));
            stored.append(static_cast<char>(byte_at(row, i) - told));
        }
        above = row;
    }
    return stored;
}

QByteArray PlainPng::fileOf(const QByteArray &stream) const
{
    const QByteArray format{QByteArray(1, static_cast<char>(bits)) + QByteArray(1, static_cast<char>(kind))
                            + QByteArray(3, '\0')};
    QByteArray file = "\x89PNG\r\n\x1a\n" + png_chunk("IHDR", big32(size.width()) + big32(size.height()) + format);
    if (kind == 3 && colors > 0) {
        QByteArray table;
        for (int i = 0; i < 3 * colors; ++i)
            table.append(static_cast<char>(i * 37 + 11));
        file += png_chunk("PLTE", table);
    }
    file += before;
    for (qsizetype at = 0; at < stream.size(); at += pieceBytes)
        file += png_chunk("IDAT", stream.mid(at, pieceBytes));
    return file + after + png_chunk("IEND", {});
}

QByteArray PlainPng::deflated(const QByteArray &rows)
{
    constexpr qsizetype countBytes = 4; // the toolkit's own, before the stream
    return qCompress(rows).sliced(countBytes);
}
