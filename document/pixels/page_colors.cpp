#include "page_colors.h"

#include "color_cube.h"
#include "page_buffers.h"

#include <QList>

#include <algorithm>
#include <array>
#include <cstdint>

namespace {

constexpr int MostColors = 256;
constexpr QRgb Opaque = 0xff000000;

/// The colours of a page, in the order in which they come.
class FoundColors
{
public:
    FoundColors() { table.reserve(MostColors); }

    /// @return the number of the colour; MostColors if it is one too many
    int numberOf(QRgb color)
    {
        constexpr std::uint32_t spreading = 2654435769; // 2^32 by the golden ratio
        std::size_t at = std::uint32_t{color * spreading} >> (32 - PlaceBits);
        while (places[at].color != color) {
            if (places[at].color == 0)
                return add(color, places[at]);
            at = (at + 1) % places.size();
        }
        return places[at].number;
    }

    [[nodiscard]] const QList<QRgb> &colorTable() const { return table; }

private:
    struct Place
    {
        QRgb color = 0; ///< 0 where the place is free: a page's colours are opaque
        int number = 0;
    };

    int add(QRgb color, Place &place)
    {
        if (table.size() == MostColors)
            return MostColors;
        place = {.color = color, .number = static_cast<int>(table.size())};
        table.append(color);
        return place.number;
    }

    static constexpr int PlaceBits = 10; // four places to a colour
    std::array<Place, std::size_t{1} << PlaceBits> places{};
    QList<QRgb> table;
};

/// @return false if there are too many colours
bool number_colors(const QImage &page, QImage &result, FoundColors &found)
{
    const int width = page.width();
    for (int y = 0; y < page.height(); ++y) {
        const auto *const words = reinterpret_cast<const QRgb *>(page.constScanLine(y));
        uchar *const indices = result.scanLine(y);
        for (int x = 0; x < width; ++x) {
            const int number = found.numberOf(words[x] | Opaque);
            if (number == MostColors)
                return false;
            indices[x] = static_cast<uchar>(number);
        }
    }
    return true;
}

} // namespace

QImage indexed_page(const QImage &page)
{
    QImage result = new_page_like(page, page.size(), QImage::Format_Indexed8);
    if (result.isNull())
        return result;
    FoundColors found;
    if (number_colors(page, result, found)) {
        result.setColorTable(found.colorTable());
    } else {
        diffuse_to_cube(page, result);
        result.setColorTable(with_cube(found.colorTable()));
    }
    return result;
}

QImage with_color_255_of(const QImage &page, QImage result)
{
    constexpr int Kept = 255;
    // The toolkit would make a shorter table longer.
    if (page.depth() == 8 && page.colorCount() > Kept && result.colorCount() > Kept)
        result.setColor(Kept, page.color(Kept));
    return result;
}
