#include "icns_file.h"

#include <QByteArray>
#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

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

} // namespace

bool is_complete_icns(QIODevice &file)
{
    constexpr qint64 headerBytes = 8; // name and length with this header
    const qint64 start = file.pos();
    const auto lengthOf = [](const QByteArray &header) {
        return qint64{qFromBigEndian<quint32>(header.constData() + 4)};
    };
    const QByteArray fileHeader = file.read(headerBytes);
    if (fileHeader.size() < headerBytes || start + lengthOf(fileHeader) > file.size())
        return false;
    const qint64 end = start + lengthOf(fileHeader);
    for (qint64 at = start + headerBytes; at + headerBytes <= end && file.seek(at);) {
        const QByteArray header = file.read(headerBytes);
        if (header.size() < headerBytes)
            return false;
        const qint64 length = lengthOf(header);
        if (length < headerBytes || at + length > end)
            return false;
        const qsizetype pixels = coded_pixels(header.first(4));
        const qsizetype bytes = length - headerBytes;
        if (pixels > 0 && !is_plain(bytes) && !has_all_runs(file.read(bytes), pixels))
            return false;
        at += length;
    }
    return true;
}
