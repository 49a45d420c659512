#include "pixel_fetch.h"

#include "shown_colors.h"

#include <algorithm>

PixelFetch::PixelFetch(const QImage &page) :
    m_page(page),
    m_bAlpha(page.hasAlphaChannel()),
    m_bLowBitFirst(page.format() == QImage::Format_MonoLSB)
{
    if (page.depth() <= 8)
        m_colours = shown_colors(page);
    if (page.depth() == 1)
        fillByteColours();
}

QImage::Format PixelFetch::format() const
{
    if (!m_bAlpha)
        return QImage::Format_RGB32;
    return m_page.depth() == 32 ? QImage::Format_ARGB32 : QImage::Format_ARGB32_Premultiplied;
}

void PixelFetch::readRow(QRgb *target, int count, int x, int y) const
{
    const uchar *const row = m_page.constScanLine(y);
    switch (m_page.depth()) {
    case 1:
        readBits(target, count, row, x);
        break;
    case 8:
        readBytes(target, count, row, x);
        break;
    default: {
        const auto *const words = reinterpret_cast<const QRgb *>(row) + x;
        const QRgb opaque = m_bAlpha ? 0 : 0xff000000; // what else stands there means nothing
        std::transform(words, words + count, target, [opaque](QRgb word) { return word | opaque; });
        break;
    }
    }
}

void PixelFetch::fillByteColours()
{
    for (size_t byte = 0; byte < m_byteColours.size(); ++byte) {
        for (int x = 0; x < BitsPerByte; ++x)
            m_byteColours[byte][static_cast<size_t>(x)] = m_colours[(byte >> bitShift(x)) & 1U];
    }
}

int PixelFetch::bitShift(int x) const
{
    const int bit = x % BitsPerByte;
    return m_bLowBitFirst ? bit : BitsPerByte - 1 - bit;
}

/// Whole bytes at a time, as far as there are any.
void PixelFetch::readBits(QRgb *target, int count, const uchar *row, int x) const
{
    const QRgb *const end = target + count;
    const uchar *byte = row + x / BitsPerByte;
    const auto first = x % BitsPerByte;
    if (first > 0)
        target = std::copy_n(m_byteColours[*byte++].begin() + first, std::min(BitsPerByte - first, count), target);
    for (; end - target >= BitsPerByte; ++byte)
        target = std::copy_n(m_byteColours[*byte].begin(), BitsPerByte, target);
    if (target != end)
        std::copy_n(m_byteColours[*byte].begin(), end - target, target);
}

void PixelFetch::readBytes(QRgb *target, int count, const uchar *row, int x) const
{
    for (int i = 0; i < count; ++i)
        target[i] = m_colours[row[x + i]];
}
