#include "color_cube.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace {

constexpr int Side = 6; ///< values of a channel
constexpr int Step = 51; ///< from one value to the next

/// What becomes of a channel of a pixel that has received its errors.
struct Outcome
{
    int toNext; ///< 7 sixteenths of its own error
    int rest; ///< its error times 256, and what it adds to the number of the color
};

constexpr Outcome outcome_of(int value, int weight)
{
    const int level = std::clamp((5 * value + 128) / 255, 0, Side - 1);
    const int error = value - Step * level;
    return {.toNext = 7 * error >> 4, .rest = 256 * error + weight * level};
}

/// The outcomes of all values that occur. A value of the cube takes up all but half a step of what is above 0. Below it
/// errors are rounded away from 0, but 16ths of -32 need no rounding: what comes from four pixels of -32 is -32 again.
class Outcomes
{
public:
    constexpr explicit Outcomes(int weight)
    {
        for (int value = Lowest; value <= Highest; ++value)
            table[static_cast<std::size_t>(value - Lowest)] = outcome_of(value, weight);
    }

    [[nodiscard]] Outcome of(int value) const { return table[static_cast<std::size_t>(value - Lowest)]; }

private:
    static constexpr int Lowest = -32;
    static constexpr int Highest = 255 + Step / 2;

    std::array<Outcome, Highest - Lowest + 1> table{};
};

constexpr std::size_t ChannelCount = 3; // blue, green, red
constexpr std::array<Outcomes, ChannelCount> outcomes{Outcomes(1), Outcomes(Side), Outcomes(Side *Side)};

int error_of(int rest)
{
    return rest >> 8;
}

/// Errors and values of a line, by channels.
class Diffusion
{
public:
    explicit Diffusion(int pageWidth) : width(pageWidth)
    {
        for (Channel &channel : channels)
            channel = {.rests = std::vector<int>(static_cast<std::size_t>(width) + 2),
                       .values = std::vector<int>(static_cast<std::size_t>(width))};
    }

    /// @param isForward  whether the line is gone through from the left; its neighbours then are from the right
    [[gnu::always_inline]] void diffuse(const QRgb *words, uchar *indices, bool isForward)
    {
        for (std::size_t i = 0; i < ChannelCount; ++i)
            receive(words, static_cast<int>(8 * i), channels[i], isForward ? 1 : -1, width);
        if (isForward)
            walk<1>();
        else
            walk<-1>();
        number(indices);
    }

private:
    struct Channel
    {
        std::vector<int> rests; ///< of the line gone through last, with a 0 at either end
        std::vector<int> values; ///< of the line at work: its own and what it gets from the line above
    };

    /// @param ahead  to the pixel of the line above that was gone through before the one above
    [[gnu::always_inline]] static void receive(const QRgb *__restrict words, int shift, Channel &channel,
                                               std::ptrdiff_t ahead, std::ptrdiff_t width)
    {
        const int *__restrict rests = channel.rests.data() + 1;
        int *__restrict values = channel.values.data();
        for (std::ptrdiff_t x = 0; x < width; ++x) {
            const int before = error_of(rests[x + ahead]) >> 4;
            const int above = 5 * error_of(rests[x]) >> 4;
            const int behind = 3 * error_of(rests[x - ahead]) >> 4;
            values[x] = static_cast<int>(words[x] >> shift & 0xffU) + before + above + behind;
        }
        // The toolkit's own oddity: on the way from the left the second pixel gives nothing to the first one below.
        if (ahead < 0)
            values[0] -= 3 * error_of(rests[1]) >> 4;
    }

    /// Goes from pixel to pixel. Each waits for the one before it, so what they wait for is one look into a table.
    template <int Direction> void walk()
    {
        std::array<int, ChannelCount> received{};
        std::array<const int *, ChannelCount> values{};
        std::array<int *, ChannelCount> rests{};
        for (std::size_t i = 0; i < ChannelCount; ++i) {
            values[i] = channels[i].values.data();
            rests[i] = channels[i].rests.data() + 1;
        }
        std::ptrdiff_t x = Direction > 0 ? 0 : width - 1;
        for (std::ptrdiff_t left = width; left > 0; --left, x += Direction) {
            for (std::size_t i = 0; i < ChannelCount; ++i) {
                const Outcome outcome = outcomes[i].of(values[i][x] + received[i]);
                received[i] = outcome.toNext;
                rests[i][x] = outcome.rest;
            }
        }
    }

    [[gnu::always_inline]] void number(uchar *__restrict indices) const
    {
        const int *__restrict blue = channels[0].rests.data() + 1;
        const int *__restrict green = channels[1].rests.data() + 1;
        const int *__restrict red = channels[2].rests.data() + 1;
        for (std::ptrdiff_t x = 0; x < width; ++x)
            indices[x] = static_cast<uchar>(blue[x] + green[x] + red[x]);
    }

    std::ptrdiff_t width;
    std::array<Channel, ChannelCount> channels;
};

using LineWork = void (*)(Diffusion &diffusion, const QRgb *words, uchar *indices, bool isForward);

void diffuse_plainly(Diffusion &diffusion, const QRgb *words, uchar *indices, bool isForward)
{
    diffusion.diffuse(words, indices, isForward);
}

#ifdef __x86_64__
[[gnu::target("avx2")]] void diffuse_by_eights(Diffusion &diffusion, const QRgb *words, uchar *indices, bool isForward)
{
    diffusion.diffuse(words, indices, isForward);
}
#endif

LineWork line_work()
{
#ifdef __x86_64__
    if (__builtin_cpu_supports("avx2"))
        return diffuse_by_eights;
#endif
    return diffuse_plainly;
}

} // namespace

QList<QRgb> with_cube(QList<QRgb> colors)
{
    for (int red = 0; red < Side; ++red) {
        for (int green = 0; green < Side; ++green) {
            for (int blue = 0; blue < Side; ++blue)
                colors[(red * Side + green) * Side + blue] = qRgb(red * Step, green * Step, blue * Step);
        }
    }
    return colors;
}

void diffuse_to_cube(const QImage &page, QImage &result)
{
    const LineWork diffuse = line_work();
    Diffusion diffusion(page.width());
    for (int y = 0; y < page.height(); ++y)
        diffuse(diffusion, reinterpret_cast<const QRgb *>(page.constScanLine(y)), result.scanLine(y), y % 2 != 0);
}
