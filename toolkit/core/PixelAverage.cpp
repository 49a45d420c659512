#include "PixelAverage.h"

#include "shown_colors.h"
#include "wide_registers.h"

#include <algorithm>
#include <utility>

PixelAverage::PixelAverage(const QImage &page, ReducedColumns columns) :
    m_page(page),
    m_columns(std::move(columns)),
    m_kernel(kernelFor(page))
{
}

QImage::Format PixelAverage::format(const QImage &page)
{
    return page.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
}

void PixelAverage::readRow(QRgb *target, PixelSpan rows)
{
    release_wide_registers();
    const PageRows lines{.first = m_page.constScanLine(rows.first),
                         .bytesPerLine = m_page.bytesPerLine(),
                         .count = rows.count(),
                         .following = std::min(rows.count(), m_page.height() - rows.end)};
    const std::span row(target, m_columns.spans().size());
    if (auto *const bits = std::get_if<BitAverage>(&m_kernel))
        bits->average(lines, m_columns, row);
    else if (const auto *const bytes = std::get_if<ByteAverage>(&m_kernel))
        bytes->average(lines, m_columns, row);
    else
        average_words(lines, m_columns, std::get<AlphaChannel>(m_kernel), row);
}

PixelAverage::Kernel PixelAverage::kernelFor(const QImage &page)
{
    if (page.depth() == 32)
        return page.hasAlphaChannel() ? AlphaChannel::Multiplied : AlphaChannel::Ignored;
    const std::array<QRgb, 256> colors = shown_colors(page);
    if (page.depth() == 8)
        return ByteAverage(colors);
    const bool lowFirst = page.format() == QImage::Format_MonoLSB;
    return BitAverage(colors[0], colors[1], lowFirst ? BitOrder::LowFirst : BitOrder::HighFirst);
}
