#include "tiff_output.h"

#include <QIODevice>

#include <algorithm>

TiffOutput::TiffOutput(QIODevice &file_, TiffKind kind) : file(file_), kind_(kind), buffer(MostBytesAtOnce) { }

bool TiffOutput::takes(quint64 bytes)
{
    tooLarge = tooLarge || bytes > kind_.largestOffset() - position();
    failed = failed || tooLarge;
    return !failed;
}

void TiffOutput::append(std::span<const uchar> bytes)
{
    if (!takes(bytes.size()))
        return;
    if (bytes.size() > buffer.size() - used)
        flush();
    std::ranges::copy(bytes, buffer.begin() + static_cast<qint64>(used));
    used += bytes.size();
}

bool TiffOutput::appendFrom(const TiffStructure &source, quint64 place, quint64 bytes)
{
    if (!takes(bytes))
        return true;
    // The buffer goes out when it is full, so that the system is given whole blocks.
    for (quint64 count = 0; bytes > 0; place += count, bytes -= count) {
        if (used == buffer.size())
            flush();
        count = std::min<quint64>(bytes, buffer.size() - used);
        if (!source.read(place, std::span(buffer).subspan(used, count)))
            return false;
        used += count;
    }
    return true;
}

void TiffOutput::appendNumber(quint64 number, quint64 width)
{
    const std::array<uchar, 8> bytes = bytesOf(number, width);
    append(std::span(bytes).first(width));
}

void TiffOutput::alignToWord()
{
    if (position() % 2 != 0)
        append(std::array<uchar, 1>{});
}

void TiffOutput::patchNumber(quint64 place, quint64 number, quint64 width)
{
    if (failed)
        return;
    const std::array<uchar, 8> bytes = bytesOf(number, width);
    if (place >= written) {
        std::copy_n(bytes.cbegin(), width, buffer.begin() + static_cast<qint64>(place - written));
        return;
    }
    flush(); // the number may reach into the buffer
    failed = failed || !file.seek(static_cast<qint64>(place));
    write(std::span(bytes).first(width));
    failed = failed || !file.seek(static_cast<qint64>(written));
}

void TiffOutput::flush()
{
    write(std::span(buffer).first(used));
    written += used;
    used = 0;
}

std::array<uchar, 8> TiffOutput::bytesOf(quint64 number, quint64 width) const
{
    std::array<uchar, 8> bytes{};
    for (std::size_t i = 0; i < width; ++i) {
        const std::size_t shift = 8 * (kind_.isBigEndian ? width - 1 - i : i);
        bytes.at(i) = static_cast<uchar>(number >> shift);
    }
    return bytes;
}

void TiffOutput::write(std::span<const uchar> bytes)
{
    const auto count = static_cast<qint64>(bytes.size());
    failed = failed || file.write(reinterpret_cast<const char *>(bytes.data()), count) != count;
}
