#include "page_colors.h"

#include "page_buffers.h"

#include <QList>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

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

constexpr int CubeSide = 6; ///< values of a channel
constexpr int CubeStep = 51; ///< from one value to the next

// Blue, green and red know nothing of each other, so they are diffused in the lanes of a vector. No more can be done
// at once: every other line runs backwards, and begins where the one above it has ended.
using Channels [[gnu::vector_size(16)]] = int;
using ChannelBytes [[gnu::vector_size(4)]] = uchar;

/// The values of the cube that are the nearest to each channel, and the number of the colour that they make.
struct CubePoint
{
    Channels values{};
    Channels number{};

    explicit CubePoint(const Channels &channels)
    {
        constexpr Channels weights{1, CubeSide, CubeSide * CubeSide, 0};
        for (const int lowest : {26, 77, 128, 179, 230}) { // where (5 v + 128) / 255 becomes one more
            const Channels isReached = channels >= lowest;
            values += isReached & CubeStep;
            number += isReached & weights;
        }
    }

    [[nodiscard]] uchar index() const { return static_cast<uchar>(number[0] + number[1] + number[2]); }
};

/// @param errors  what the line above has for this one, a pixel each; what this one has for the next on return
void diffuse_line(const uchar *bgra, uchar *indices, int width, bool isForward, std::vector<Channels> &errors)
{
    // Multiplied by shifts, because the oldest processors cannot multiply four numbers.
    Channels toNext{}; // 7 sixteenths of the error of the pixel before
    Channels toBelow{}; // what has come together for the pixel below the one before
    Channels toBelowNext{}; // the last sixteenth of that error
    const int step = isForward ? 1 : -1;
    int x = isForward ? 0 : width - 1;
    for (int done = 0; done < width; ++done, x += step) {
        ChannelBytes pixel;
        std::memcpy(&pixel, bgra + std::ptrdiff_t{x} * 4, sizeof pixel);
        const Channels value = __builtin_convertvector(pixel, Channels) + toNext + errors[static_cast<std::size_t>(x)];
        const CubePoint point(value);
        indices[x] = point.index();
        const Channels error = value - point.values;
        if (done > 0) {
            // The toolkit's own oddity: the second pixel from the left gives nothing to the first one below.
            const bool isGiving = !isForward || x != 1;
            errors[static_cast<std::size_t>(x - step)] = isGiving ? toBelow + (((error << 1) + error) >> 4) : toBelow;
        }
        toNext = ((error << 3) - error) >> 4;
        toBelow = toBelowNext + (((error << 2) + error) >> 4);
        toBelowNext = error >> 4;
    }
    errors[static_cast<std::size_t>(x - step)] = toBelow;
}

void diffuse(const QImage &page, QImage &result)
{
    std::vector<Channels> errors(static_cast<std::size_t>(page.width()));
    for (int y = 0; y < page.height(); ++y)
        diffuse_line(page.constScanLine(y), result.scanLine(y), page.width(), y % 2 != 0, errors);
}

/// The cube's colours take the first places of the table; the rest stays as it was found.
QList<QRgb> with_cube(QList<QRgb> colors)
{
    for (int red = 0; red < CubeSide; ++red) {
        for (int green = 0; green < CubeSide; ++green) {
            for (int blue = 0; blue < CubeSide; ++blue)
                colors[(red * CubeSide + green) * CubeSide + blue] =
                    qRgb(red * CubeStep, green * CubeStep, blue * CubeStep);
        }
    }
    return colors;
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
        diffuse(page, result);
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
