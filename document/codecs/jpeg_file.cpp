#include "jpeg_file.h"

#include "byte_reader.h"
#include "image_memory.h"

#include <QByteArray>
#include <QImage>
#include <QIODevice>

#include <algorithm>
#include <array>
#include <iterator>
#include <map>

namespace {

enum Marker : int {
    ProgressiveFrame = 0xc2,
    HuffmanTables = 0xc4,
    Extension = 0xc8,
    ArithmeticTables = 0xcc,
    LastFrame = 0xcf,
    FirstRestart = 0xd0,
    StartOfImage = 0xd8,
    EndOfImage = 0xd9,
    StartOfScan = 0xda,
};

bool starts_frame(int marker)
{
    return marker >= 0xc0 && marker <= LastFrame && marker != HuffmanTables && marker != Extension
        && marker != ArithmeticTables;
}

/// What the markers of a file tell, taken one by one.
class JpegFrame
{
public:
    /// @param content  of a segment, behind its length
    void addSegment(int marker, const QByteArray &content)
    {
        if (starts_frame(marker))
            startFrame(marker, content);
        else if (marker == StartOfScan)
            addScan(content);
    }

    [[nodiscard]] bool hasScan() const { return scanCount > 0; }

    /// Whether no scan is missing: each coefficient of each part of the colours has come to its last bit.
    [[nodiscard]] bool hasAllScans() const
    {
        return hasScan() && std::ranges::all_of(missingBits, [](const auto &component) {
                   return std::ranges::all_of(component.second, [](uchar bits) { return bits == 0; });
               });
    }

    /// Bytes that decoding takes: the page, and all coefficients where they come in several scans.
    [[nodiscard]] double decodedBytes() const
    {
        constexpr double pageBytes = 4;
        const double coefficientBytes = isInParts ? 2.0 * static_cast<double>(missingBits.size()) : 0;
        return pixels * (pageBytes + coefficientBytes);
    }

private:
    static constexpr uchar Untouched = 0xff;
    using Coefficients = std::array<uchar, 64>; ///< low bits that have not come yet

    static int byteAt(const QByteArray &content, qsizetype at)
    {
        return at < content.size() ? static_cast<uchar>(content.at(at)) : 0;
    }

    void startFrame(int marker, const QByteArray &content)
    {
        isProgressive = marker == ProgressiveFrame;
        isInParts = isProgressive;
        const int height = byteAt(content, 1) << 8 | byteAt(content, 2);
        const int width = byteAt(content, 3) << 8 | byteAt(content, 4);
        pixels = static_cast<double>(width) * height;
        missingBits.clear();
        for (int i = 0; i < byteAt(content, 5); ++i)
            missingBits[byteAt(content, 6 + qsizetype{3} * i)].fill(Untouched);
    }

    void addScan(const QByteArray &content)
    {
        ++scanCount;
        const int count = byteAt(content, 0);
        isInParts = isInParts || static_cast<std::size_t>(count) < missingBits.size();
        const qsizetype range = 1 + qsizetype{2} * count;
        const int first = isProgressive ? std::min(byteAt(content, range), 63) : 0;
        const int last = isProgressive ? std::min(byteAt(content, range + 1), 63) : 63;
        const int low = isProgressive ? byteAt(content, range + 2) & 0xf : 0;
        for (int i = 0; i < count; ++i) {
            const auto component = missingBits.find(byteAt(content, 1 + qsizetype{2} * i));
            if (component != missingBits.end() && first <= last)
                std::fill(component->second.begin() + first, std::next(component->second.begin(), last + 1),
                          static_cast<uchar>(low));
        }
    }

    bool isProgressive = false;
    bool isInParts = false;
    double pixels = 0;
    int scanCount = 0;
    std::map<int, Coefficients> missingBits; ///< by the number of the component
};

/// The content of a segment, or nothing if the file ends within it. The position is behind the segment.
bool read_segment(ByteReader &bytes, QByteArray &content)
{
    const int length = bytes.nextBigEndian16() - 2;
    if (length < 0)
        return false;
    content.clear();
    for (int i = 0; i < length; ++i) {
        const int byte = bytes.next();
        if (byte < 0)
            return false;
        content.append(static_cast<char>(byte));
    }
    return true;
}

/// The picture of bytes that something else follows.
QImage decoded(QByteArray bytes, char follower)
{
    constexpr qsizetype followers = 256;
    bytes.append(followers, follower);
    bytes.append("\xff\xd9");
    return QImage::fromData(bytes, "jpg");
}

/// Whether the picture is the same whatever follows the coded data. Where data are missing, what follows is shown.
bool is_independent_of_followers(const QByteArray &bytes)
{
    const QImage picture = decoded(bytes, '\x55');
    return !picture.isNull() && decoded(bytes, '\xaa') == picture && decoded(bytes, '\0') == picture;
}

/// Whether data without an end marker suffice for all pixels. A lost part of a file often is there as zeros or as the
/// ones of erased memory, which decoders take for data.
bool has_data_of_all_pixels(const QByteArray &bytes)
{
    qsizetype length = bytes.size();
    while (length > 0 && (bytes.at(length - 1) == '\0' || bytes.at(length - 1) == '\xff'))
        --length;
    if (QByteArrayView(bytes).sliced(length).startsWith(QByteArrayView("\xff\0", 2)))
        length += 2; // a byte of data
    if (is_independent_of_followers(bytes.first(length)))
        return true;
    return bytes.size() - length == 1 && bytes.endsWith('\0') && is_independent_of_followers(bytes);
}

} // namespace

bool is_complete_jpeg(QIODevice &file)
{
    const qint64 start = file.pos();
    ByteReader bytes(file);
    JpegFrame frame;
    QByteArray content;
    qint64 end = 0; // of the last segment or scan that is whole
    bool isCutInSegment = false;
    // Markers are walked one by one, since a thumbnail in a segment ends with the same two bytes.
    while (bytes.skipPast('\xff')) {
        end = bytes.count() - 1;
        int marker = bytes.next();
        while (marker == 0xff) // fill bytes
            marker = bytes.next();
        if (marker == EndOfImage)
            return frame.hasScan() && frame.decodedBytes() * 2 / 3 <= static_cast<double>(affordable_image_bytes());
        // Within a scan 0 is a byte of data, and the markers below the start of the image are restarts.
        if (marker <= 0x01 || (marker >= FirstRestart && marker <= StartOfImage))
            end = bytes.count();
        else if (read_segment(bytes, content))
            frame.addSegment(marker, content);
        else
            isCutInSegment = true; // and the file has ended
    }
    if (!isCutInSegment)
        end = file.size() - start;
    return frame.hasAllScans() && 3 * frame.decodedBytes() <= static_cast<double>(affordable_image_bytes())
        && file.seek(start) && has_data_of_all_pixels(file.read(end));
}
