#include "gif_file.h"

#include "byte_reader.h"

#include <array>

namespace {

/// Counts the pixels that variable-length codes stand for, without making them.
class CodeCounter
{
public:
    /// @param rootBits  of an index, 1 to 11
    explicit CodeCounter(int rootBits) : clearCode(1 << rootBits), firstWidth(rootBits + 1)
    {
        lengths.fill(1);
        restart();
    }

    void addByte(int byte)
    {
        if (hasEnded)
            return;
        bits |= byte << bitCount;
        bitCount += 8;
        while (bitCount >= width && !hasEnded) {
            const int code = bits & ((1 << width) - 1);
            bits >>= width;
            bitCount -= width;
            addCode(code); // which may make the next code wider
        }
    }

    [[nodiscard]] qint64 pixels() const { return count; }

private:
    static constexpr int MostCodes = 4096;

    void restart()
    {
        width = firstWidth;
        nextCode = clearCode + 2;
        formerLength = 0;
    }

    void addCode(int code)
    {
        if (code == clearCode) {
            restart();
            return;
        }
        // Codes beyond the next one stand for nothing.
        hasEnded = code == clearCode + 1 || code > nextCode || (code == nextCode && formerLength == 0);
        if (hasEnded)
            return;
        const int length = code == nextCode ? formerLength + 1 : lengths.at(static_cast<std::size_t>(code));
        count += length;
        if (formerLength > 0 && nextCode < MostCodes) {
            lengths.at(static_cast<std::size_t>(nextCode++)) = formerLength + 1;
            if (nextCode == 1 << width && width < 12)
                ++width;
        }
        formerLength = length;
    }

    std::array<int, MostCodes + 1> lengths{}; ///< pixels of each code
    int clearCode;
    int firstWidth;
    int width = 0; ///< of a code, in bits
    int nextCode = 0;
    int formerLength = 0; ///< pixels of the code before; 0 behind a clear code
    int bits = 0;
    int bitCount = 0;
    bool hasEnded = false;
    qint64 count = 0;
};

/// Goes behind a chain of blocks, each led by its length, which a length of 0 ends.
bool skip_blocks(ByteReader &bytes)
{
    int length = bytes.next();
    while (length > 0 && bytes.skip(length))
        length = bytes.next();
    return length == 0;
}

bool skip_color_table(ByteReader &bytes, int flags)
{
    constexpr int hasTable = 0x80;
    return (flags & hasTable) == 0 || bytes.skip(qint64{3} << ((flags & 7) + 1));
}

int next_little_endian16(ByteReader &bytes)
{
    const int low = bytes.next();
    const int high = bytes.next();
    return high < 0 ? -1 : high << 8 | low;
}

/// Goes through the picture behind its separator.
bool is_complete_picture(ByteReader &bytes)
{
    if (!bytes.skip(4))
        return false;
    const qint64 width = next_little_endian16(bytes);
    const qint64 height = next_little_endian16(bytes);
    const int flags = bytes.next();
    if (flags < 0 || !skip_color_table(bytes, flags))
        return false;
    const int rootBits = bytes.next();
    if (rootBits < 1 || rootBits > 11)
        return rootBits >= 0 && skip_blocks(bytes); // for the decoder to judge
    CodeCounter codes(rootBits);
    for (int length = bytes.next(); length != 0; length = bytes.next()) {
        for (; length > 0; --length) {
            const int byte = bytes.next();
            if (byte < 0)
                break;
            codes.addByte(byte);
        }
        if (length != 0)
            return codes.pixels() >= width * height;
    }
    return true;
}

} // namespace

bool is_complete_gif(QIODevice &file)
{
    constexpr int extension = 0x21;
    constexpr int picture = 0x2c;
    constexpr int trailer = 0x3b;
    ByteReader bytes(file);
    if (!bytes.skip(10))
        return false;
    const int fileFlags = bytes.next();
    if (fileFlags < 0 || !bytes.skip(2) || !skip_color_table(bytes, fileFlags))
        return false;
    for (int block = bytes.next(); block >= 0 && block != trailer; block = bytes.next()) {
        if (block == extension && !(bytes.skip(1) && skip_blocks(bytes)))
            return false;
        if (block == picture)
            return is_complete_picture(bytes);
    }
    return false;
}
