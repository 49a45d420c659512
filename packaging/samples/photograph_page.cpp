#include "sample_pages.h"
#include "scan_effects.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int DotsPerInch = 150;
constexpr QColor Paper(250, 249, 245);
constexpr QSize PictureSize(960, 720);
constexpr int Shore = 450; ///< the line between land and water

/// A colour as shares of full light.
struct Light
{
    double red = 0;
    double green = 0;
    double blue = 0;
};

Light mixed(const Light &from, const Light &to, double share)
{
    const double t = std::clamp(share, 0.0, 1.0);
    return {std::lerp(from.red, to.red, t), std::lerp(from.green, to.green, t), std::lerp(from.blue, to.blue, t)};
}

Light scaled(const Light &light, double factor)
{
    return {light.red * factor, light.green * factor, light.blue * factor};
}

QRgb word_of(const Light &light)
{
    const auto channel = [](double value) { return std::clamp(static_cast<int>(std::lround(value * 255)), 0, 255); };
    return qRgb(channel(light.red), channel(light.green), channel(light.blue));
}

Light sky(double x, double y)
{
    constexpr Light Zenith{0.24, 0.38, 0.62};
    constexpr Light Horizon{0.98, 0.80, 0.58};
    constexpr Light Sun{1.0, 0.95, 0.78};
    constexpr Light Cloud{0.96, 0.72, 0.62};
    const Light clear = mixed(Zenith, Horizon, std::pow(y / Shore, 1.3));
    const double cover = cloud_noise(x / 210, y / 62, 5, 90);
    const Light clouded = mixed(clear, Cloud, (cover - 0.48) * 3.2 * (1 - y / (Shore * 1.4)));
    const double fromSun = std::hypot(x - 640, (y - 300) * 1.1);
    return mixed(clouded, Sun, std::exp(-fromSun / 85) + (fromSun < 30 ? 1 : 0));
}

constexpr int Ranges = 3; ///< of hills, the farthest first

/// Where one range of hills ends in the sky, column by column.
std::vector<double> ridge_line(int range)
{
    const double height = 190.0 - 52 * range;
    const double width = 230.0 - 40 * range;
    std::vector<double> line;
    for (int x = 0; x < PictureSize.width(); ++x) {
        const double roughness = cloud_noise(x / width, range * 7.3, 6, 300 + static_cast<std::uint32_t>(range));
        line.push_back(Shore - height * (0.25 + roughness * 0.95));
    }
    return line;
}

double ridge(double x, int range)
{
    static const std::array<std::vector<double>, Ranges> lines{ridge_line(0), ridge_line(1), ridge_line(2)};
    const int column = std::clamp(qRound(x), 0, PictureSize.width() - 1);
    return lines.at(static_cast<std::size_t>(range)).at(static_cast<std::size_t>(column));
}

Light land_or_sky(double x, double y)
{
    constexpr Light Haze{0.80, 0.68, 0.62};
    constexpr Light Forest{0.10, 0.16, 0.14};
    Light light = sky(x, y);
    for (int range = 0; range < Ranges; ++range) {
        const double top = ridge(x, range);
        // One pixel of transition keeps the ridge from looking cut out.
        const double cover = std::clamp(y - top + 0.5, 0.0, 1.0);
        if (cover <= 0)
            continue;
        const double nearness = (range + 1.0) / Ranges;
        const double texture = 0.75 + 0.5 * cloud_noise(x / 9, y / 6, 3, 500 + static_cast<std::uint32_t>(range));
        const Light hill = mixed(Haze, scaled(Forest, texture), nearness * 0.9 - (y - top) / 700);
        light = mixed(light, hill, cover);
    }
    return light;
}

Light water(double x, double y)
{
    constexpr Light Depth{0.09, 0.16, 0.24};
    const double below = y - Shore;
    const double ripple = cloud_noise(x / 46, below / (2.2 + below / 60), 4, 700) - 0.5;
    const double mirrored = Shore - below * 1.25 + ripple * (10 + below / 3);
    const Light reflected = land_or_sky(x + ripple * below / 7, std::clamp(mirrored, 0.0, Shore - 1.0));
    return mixed(scaled(reflected, 0.92 + ripple * 0.35), Depth, below / 420);
}

Light reeds(const Light &behind, double x, double y)
{
    constexpr Light Dark{0.05, 0.06, 0.06};
    const double bank = PictureSize.height() - 40 - 70 * cloud_noise(x / 130, 3, 4, 810);
    const double blade = 60 * cloud_noise(x / 3.1, 9, 2, 820) * cloud_noise(x / 70, 5, 2, 830);
    return mixed(behind, Dark, (y - bank + blade) / 3);
}

QImage landscape()
{
    QImage picture(PictureSize, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const Light far = y < Shore ? land_or_sky(x, y) : water(x, y);
            const double fromMiddle = std::hypot(x / 480.0 - 1, y / 360.0 - 1);
            line[x] = word_of(scaled(reeds(far, x, y), 1 - 0.12 * fromMiddle * fromMiddle));
        }
    }
    return picture;
}

void draw_texts(QPainter &painter, const QRect &picture)
{
    painter.setPen(QColor(60, 58, 56));
    painter.setFont(page_font(u"DejaVu Serif"_s, 9, DotsPerInch));
    painter.drawText(picture.left(), 150, u"Lakes and Hills"_s);
    painter.drawText(QRect(picture.left(), 128, picture.width(), 30), Qt::AlignRight, u"37"_s);
    painter.fillRect(QRect(picture.left(), 164, picture.width(), 2), QColor(150, 146, 140));

    painter.setFont(page_font(u"DejaVu Serif"_s, 11, DotsPerInch, true));
    painter.drawText(picture.left(), picture.bottom() + 56, u"Plate 7.  The lake at dusk"_s);
    painter.setFont(page_font(u"DejaVu Serif"_s, 10, DotsPerInch));
    const QRect body(picture.left(), picture.bottom() + 84, picture.width(), 500);
    painter.drawText(body, Qt::TextWordWrap,
                     u"Seen from the north shore half an hour before the sun goes down. The far hills stand "
                     "in haze, while the near ones already lie in the shade. The water is ruffled by a light "
                     "wind, so that it mirrors the colours of the sky but not the outline of the clouds.\n\n"
                     "Taken from a tripod with a long exposure; the reeds in front have moved a little. "
                     "Printed from the negative without cropping."_s);
}

} // namespace

QImage photograph_page()
{
    QImage page = blank_a4(DotsPerInch, Paper);
    const QRect picture(QPoint(140, 250), PictureSize);
    QPainter painter(&page);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(picture.adjusted(-3, -3, 3, 3), QColor(120, 118, 116));
    painter.drawImage(picture.topLeft(), landscape());
    draw_texts(painter, picture);
    painter.end();

    QImage scan = laid_askew(page, 0.5, QColor(214, 214, 212));
    add_grain_and_shade(scan, 1.5, 45, 37);
    return scan;
}
