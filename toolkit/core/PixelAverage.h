#pragma once

#include "average_words.h"
#include "BitAverage.h"
#include "ByteAverage.h"
#include "reduced_axis.h"

#include <QImage>

#include <variant>

/// What the screen pixels of a reduced page show: the averages of the page pixels that each of them covers.
///
/// The page must be in one of the formats of a page (Mono, MonoLSB, Indexed8, RGB32, ARGB32) and must outlive the
/// object.
class PixelAverage
{
public:
    /// @param columns  page pixels under the screen pixels of each row
    PixelAverage(const QImage &page, ReducedColumns columns);
    PixelAverage(QImage &&page, ReducedColumns columns) = delete; // only a reference is kept

    /// Format of the averages: RGB32, or ARGB32_Premultiplied for a page with an alpha channel.
    [[nodiscard]] static QImage::Format format(const QImage &page);

    /// Writes a word for each column, the average over its pixels in @p rows of the page.
    void readRow(QRgb *target, PixelSpan rows);

private:
    using Kernel = std::variant<AlphaChannel, ByteAverage, BitAverage>; ///< of 32, 8 and 1 bits a pixel

    [[nodiscard]] static Kernel kernelFor(const QImage &page);

    const QImage &m_page;
    ReducedColumns m_columns;
    Kernel m_kernel;
};
