#include "icns_file.h"

#include <QByteArray>
#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

constexpr qint64 HeaderBytes = 8; ///< of a block: its name, and its length with this header

qint64 length_in(const QByteArray &header)
{
    return qFromBigEndian<quint32>(header.constData() + 4);
}

/// Pixels of an icon whose colours are coded one after the other; 0 for a block of another kind.
qsizetype coded_pixels(const QByteArray &name)
{
    constexpr std::array<std::pair<QByteArrayView, qsizetype>, 4> sides{
        {{"is32", 16}, {"il32", 32}, {"ih32", 48}, {"it32", 128}}};
    const auto side = std::ranges::find(sides, QByteArrayView(name), &std::pair<QByteArrayView, qsizetype>::first);
    return side == sides.end() ? 0 : side->second * side->second;
}

/// Whether the reader takes so many bytes for four bytes a pixel, or for twice as many with a mask: if they make a
/// square of a usual side.
bool is_plain(qsizetype bytes)
{
    const auto isUsual = [](double side) {
        const auto whole = static_cast<quint32>(side);
        return side == whole && whole % 16 == 0;
    };
    return isUsual(std::sqrt(static_cast<double>(bytes) / 4)) || isUsual(std::sqrt(static_cast<double>(bytes) / 8));
}

/// Whether runs make all pixels three times over, each colour beginning with a new run.
bool has_all_runs(const QByteArray &codes, qsizetype pixels)
{
    constexpr int runBit = 0x80;
    constexpr int shortestRun = 3;
    // Some writers put a number of four bytes first, of which the reader looks at one.
    qsizetype at = codes.startsWith('\0') ? 4 : 0;
    for (int color = 0; color < 3; ++color) {
        qsizetype count = 0;
        while (count < pixels && at < codes.size()) {
            const int code = static_cast<uchar>(codes.at(at));
            const bool isRun = (code & runBit) != 0;
            count += isRun ? (code & ~runBit) + shortestRun : code + 1;
            at += isRun ? 2 : code + 2;
        }
        if (count < pixels)
            return false;
    }
    return at <= codes.size();
}

/// Whether a table of contents claims no block larger than the file: the reader believes it, and fetches such a block in
/// one piece.
bool lists_blocks_of_the_file(const QByteArray &contents, qint64 fileBytes)
{
    for (qsizetype at = 0; at + HeaderBytes <= contents.size(); at += HeaderBytes) {
        const qint64 length = length_in(contents.sliced(at, HeaderBytes));
        if (length < HeaderBytes || length > fileBytes)
            return false;
    }
    return true;
}

} // namespace

bool is_complete_icns(QIODevice &file)
{
    const qint64 start = file.pos();
    const QByteArray fileHeader = file.read(HeaderBytes);
    if (fileHeader.size() < HeaderBytes || start + length_in(fileHeader) > file.size())
        return false;
    const qint64 end = start + length_in(fileHeader);
    for (qint64 at = start + HeaderBytes; at + HeaderBytes <= end && file.seek(at);) {
        const QByteArray header = file.read(HeaderBytes);
        if (header.size() < HeaderBytes)
            return false;
        const qint64 length = length_in(header);
        if (length < HeaderBytes || at + length > end)
            return false;
        const qsizetype pixels = coded_pixels(header.first(4));
        const qsizetype bytes = length - HeaderBytes;
        if (header.startsWith("TOC ") && !lists_blocks_of_the_file(file.read(bytes), end - start))
            return false;
        if (pixels > 0 && !is_plain(bytes) && !has_all_runs(file.read(bytes), pixels))
            return false;
        at += length;
    }
    return true;
}
