#include "shown_colors.h"

#include <QList>

std::array<QRgb, 256> shown_colors(const QImage &page)
{
    constexpr QRgb Opaque = 0xff000000U;
    const QList<QRgb> table = page.colorTable();
    const bool hasAlpha = page.hasAlphaChannel();
    std::array<QRgb, 256> colors{};
    for (int i = 0; i < std::ssize(colors); ++i) {
        const QRgb missing = table.isEmpty() ? qRgb(i, i, i) : 0U;
        const QRgb color = i < table.size() ? table[i] : missing;
        colors.at(static_cast<std::size_t>(i)) = hasAlpha ? qPremultiply(color) : color | Opaque;
    }
    if (page.depth() == 1 && table.size() < 2)
        colors[1] = qRgb(255, 255, 255);
    return colors;
}
