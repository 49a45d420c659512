#pragma once

#include "tiff_structure.h"

#include <array>
#include <span>
#include <vector>

class QIODevice;

/// Bytes and numbers of a TIFF file in the making, one after the other through a buffer.
///
/// Errors: after the first one nothing is written any more, and hasFailed() tells. The words are the file's, unless
///         a place was beyond what this kind of file can name.
class TiffOutput
{
public:
    static constexpr std::size_t MostBytesAtOnce = std::size_t{256} * 1024;

    /// @param file  open for writing and empty; has to outlive the object
    TiffOutput(QIODevice &file, TiffKind kind);

    [[nodiscard]] TiffKind kind() const { return kind_; }
    [[nodiscard]] quint64 position() const { return written + used; }
    [[nodiscard]] bool hasFailed() const { return failed; }
    [[nodiscard]] bool isTooLarge() const { return tooLarge; }

    /// @param bytes  no more than MostBytesAtOnce
    void append(std::span<const uchar> bytes);
    /// Appends so many bytes of another file, which are read right into the buffer.
    /// @return false if that file does not give them
    [[nodiscard]] bool appendFrom(const TiffStructure &source, quint64 place, quint64 bytes);
    /// @param width  2, 4 or 8 bytes
    void appendNumber(quint64 number, quint64 width);
    /// Values and directories begin at even places.
    void alignToWord();
    /// Replaces a number that was appended.
    void patchNumber(quint64 place, quint64 number, quint64 width);
    void flush();

    /// A number as it stands in the file, in the first @p width bytes.
    [[nodiscard]] std::array<uchar, 8> bytesOf(quint64 number, quint64 width) const;

private:
    /// Whether so many bytes more can be written.
    bool takes(quint64 bytes);
    void write(std::span<const uchar> bytes);

    QIODevice &file;
    TiffKind kind_;
    std::vector<uchar> buffer;
    std::size_t used = 0; ///< of the buffer
    quint64 written = 0;
    bool failed = false;
    bool tooLarge = false;
};
