#include "pixel_fetch.h"

#include <algorithm>

namespace {

constexpr QRgb Opaque = 0xff000000U;

} // namespace

PixelFetch::PixelFetch(const QImage &page) :
    m_page(page),
    m_bAlpha(page.hasAlphaChannel()),
    m_bLowBitFirst(page.format() == QImage::Format_MonoLSB)
{
    if (page.depth() <= 8)
        fillColours();
    if (page.depth() == 1)
        fillByteColours();
}

QImage::Format PixelFetch::format() const
{
    if (!m_bAlpha)
        return QImage::Format_RGB32;
    return m_page.depth() == 32 ? QImage::Format_ARGB32 : QImage::Format_ARGB32_Premultiplied;
}

void PixelFetch::readRow(QRgb *target, int count, int x, int y, int step) const
{
    const uchar *const row = m_page.constScanLine(y);
    switch (m_page.depth()) {
    case 1:
        readBits(target, count, row, x, step);
        break;
    case 8:
        readBytes(target, count, row, x, step);
        break;
    default:
        readWords(target, count, reinterpret_cast<const QRgb *>(row), x, step);
        break;
    }
}

void PixelFetch::fillColours()
{
    // What the toolkit shows of incomplete tables: greys, or black and white, if the table is empty, and
    // nothing for an index beyond it.
    const QList<QRgb> table = m_page.colorTable();
    for (int i = 0; i < std::ssize(m_colours); ++i) {
        const QRgb missing = table.isEmpty() ? qRgb(i, i, i) : 0U;
        const QRgb colour = i < table.size() ? table[i] : missing;
        m_colours[static_cast<size_t>(i)] = m_bAlpha ? qPremultiply(colour) : colour | Opaque;
    }
    if (m_page.depth() == 1 && table.size() < 2)
        m_colours[1] = qRgb(255, 255, 255);
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

void PixelFetch::readBits(QRgb *target, int count, const uchar *row, int x, int step) const
{
    if (step == 1) {
        readBitRun(target, count, row, x);
        return;
    }
    for (int i = 0; i < count; ++i, x += step)
        target[i] = m_byteColours[row[x / BitsPerByte]][static_cast<size_t>(x % BitsPerByte)];
}

/// Neighbouring pixels, whole bytes at a time.
void PixelFetch::readBitRun(QRgb *target, int count, const uchar *row, int x) const
{
    const QRgb *const end = target + count;
    while (target != end) {
        const ByteColours &colours = m_byteColours[row[x / BitsPerByte]];
        const auto first = x % BitsPerByte;
        const auto taken = std::min<std::ptrdiff_t>(BitsPerByte - first, end - target);
        target = std::copy_n(colours.begin() + first, taken, target);
        x += static_cast<int>(taken);
    }
}

void PixelFetch::readBytes(QRgb *target, int count, const uchar *row, int x, int step) const
{
    for (int i = 0; i < count; ++i, x += step)
        target[i] = m_colours[row[x]];
}

void PixelFetch::readWords(QRgb *target, int count, const QRgb *row, int x, int step)
{
    if (step == 1) {
        std::copy_n(row + x, count, target);
        return;
    }
    for (int i = 0; i < count; ++i, x += step)
        target[i] = row[x];
}
