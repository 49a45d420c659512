#include "tiff_output.h"

#include <QIODevice>

#include <algorithm>

namespace {

constexpr std::size_t BufferBytes = std::size_t{256} * 1024;

} // namespace

TiffOutput::TiffOutput(QIODevice &file_, TiffKind kind) : file(file_), kind_(kind)
{
    buffer.reserve(BufferBytes);
}

void TiffOutput::append(std::span<const uchar> bytes)
{
    tooLarge = tooLarge || bytes.size() > kind_.largestOffset() - position();
    failed = failed || tooLarge;
    if (failed)
        return;
    if (buffer.size() + bytes.size() > BufferBytes)
        flush();
    if (bytes.size() < BufferBytes) {
        buffer.insert(buffer.end(), bytes.begin(), bytes.end());
    } else {
        write(bytes);
        written += bytes.size();
    }
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
    write(buffer);
    written += buffer.size();
    buffer.clear();
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
