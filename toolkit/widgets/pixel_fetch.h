#pragma once

#include <QImage>
#include <QList>

#include <array>

/// Reads pixels of a page as 32-bit colours.
///
/// The page must be in one of the formats of a page (Mono, MonoLSB, Indexed8, RGB32, ARGB32) and must
/// outlive the object.
class PixelFetch
{
public:
    explicit PixelFetch(const QImage &page);
    explicit PixelFetch(QImage &&page) = delete; // only a reference is kept

    /// Format of the colours: RGB32, or with an alpha channel the page's own ARGB32, or
    /// ARGB32_Premultiplied for a page with a table.
    [[nodiscard]] QImage::Format format() const;

    /// Writes the colours of @p count pixels of row @p y, from @p x on. All of them must lie on the page.
    void readRow(QRgb *target, int count, int x, int y) const;

private:
    static constexpr int BitsPerByte = 8;
    using ByteColours = std::array<QRgb, BitsPerByte>;

    void fillByteColours();
    [[nodiscard]] int bitShift(int x) const;
    void readBits(QRgb *target, int count, const uchar *row, int x) const;
    void readBytes(QRgb *target, int count, const uchar *row, int x) const;

    const QImage &m_page;
    bool m_bAlpha; ///< the page has an alpha channel, as a whole or in its table
    bool m_bLowBitFirst; ///< the leftmost of 8 pixels is the lowest bit
    std::array<QRgb, 256> m_colours{}; ///< of an index
    std::array<ByteColours, 256> m_byteColours{}; ///< of the 8 pixels in a byte of a 1-bit page
};
