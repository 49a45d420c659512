#include "page_crop.h"

#include "page_buffers.h"
#include "two_halves.h"

#include <cstring>

QImage cropped(const QImage &page, const QRect &area)
{
    constexpr qsizetype bitsPerByte = 8;
    const qsizetype pixelBytes = page.depth() / bitsPerByte;
    const qsizetype lineBytes = area.width() * pixelBytes;
    // Parts of bytes and small pictures are as well done by the toolkit.
    if (!page.rect().contains(area) || area.isEmpty() || lineBytes * area.height() < SmallestPooledBytes)
        return page.copy(area);
    QImage result = new_page_like(page, area.size());
    if (result.isNull())
        return result;
    uchar *const to = result.bits();
    const qsizetype toLine = result.bytesPerLine();
    const uchar *const from = page.constScanLine(area.top()) + area.left() * pixelBytes;
    in_two_halves(static_cast<std::size_t>(area.height()), 2, [&](std::size_t begin, std::size_t end) {
        for (auto y = static_cast<qsizetype>(begin); y < static_cast<qsizetype>(end); ++y)
            std::memcpy(to + y * toLine, from + y * page.bytesPerLine(), static_cast<std::size_t>(lineBytes));
    });
    return result;
}
