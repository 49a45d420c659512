#include "scan_effects.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <span>

namespace {

/// The same number between 0 and 1 for the same three numbers.
double hashed(std::int32_t x, std::int32_t y, std::uint32_t seed)
{
    std::uint32_t h = seed + static_cast<std::uint32_t>(x) * 0x9e3779b1U + static_cast<std::uint32_t>(y) * 0x85ebca6bU;
    h = (h ^ (h >> 15U)) * 0x2c1b3c6dU;
    h = (h ^ (h >> 12U)) * 0x297a2d39U;
    return (h ^ (h >> 15U)) / 4294967296.0;
}

double smooth_noise(double x, double y, std::uint32_t seed)
{
    const auto left = static_cast<std::int32_t>(std::floor(x));
    const auto top = static_cast<std::int32_t>(std::floor(y));
    const auto eased = [](double t) { return t * t * (3 - 2 * t); };
    const double u = eased(x - left);
    const double v = eased(y - top);
    const double above = std::lerp(hashed(left, top, seed), hashed(left + 1, top, seed), u);
    const double below = std::lerp(hashed(left, top + 1, seed), hashed(left + 1, top + 1, seed), u);
    return std::lerp(above, below, v);
}

int shaded(int channel, double change)
{
    return std::clamp(static_cast<int>(std::lround(channel + change)), 0, 255);
}

} // namespace

double Chance::next()
{
    m_state = m_state * 1664525U + 1013904223U;
    return (m_state >> 8U) / 16777216.0;
}

double Chance::grain()
{
    double sum = 0;
    for (int i = 0; i < 6; ++i)
        sum += next();
    return (sum - 3) * std::sqrt(2.0); // six even numbers vary by one half
}

double cloud_noise(double x, double y, int octaves, std::uint32_t seed)
{
    double sum = 0;
    double weight = 1;
    double total = 0;
    for (int octave = 0; octave < octaves; ++octave) {
        sum += weight * smooth_noise(x, y, seed + static_cast<std::uint32_t>(octave));
        total += weight;
        weight /= 2;
        x *= 2;
        y *= 2;
    }
    return sum / total;
}

QImage blank_a4(int dotsPerInch, QColor paper)
{
    constexpr double MillimetresPerInch = 25.4;
    QImage page(qRound(210 * dotsPerInch / MillimetresPerInch), qRound(297 * dotsPerInch / MillimetresPerInch),
                QImage::Format_RGB32);
    const int dotsPerMetre = qRound(dotsPerInch * 1000 / MillimetresPerInch);
    page.setDotsPerMeterX(dotsPerMetre);
    page.setDotsPerMeterY(dotsPerMetre);
    page.fill(paper);
    return page;
}

QFont page_font(const QString &family, double points, int dotsPerInch, bool bold)
{
    QFont font(family);
    font.setPixelSize(qRound(points * dotsPerInch / 72));
    font.setBold(bold);
    font.setHintingPreference(QFont::PreferNoHinting); // ink knows no pixels
    return font;
}

QImage laid_askew(const QImage &page, double degrees, QColor ground)
{
    QImage scan = page.copy();
    scan.fill(ground);
    QPainter painter(&scan);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const QPointF middle = QRectF(page.rect()).center();
    painter.translate(middle);
    painter.rotate(degrees);
    painter.drawImage(-middle, page);
    return scan;
}

void add_grain_and_shade(QImage &page, double deviation, double edgeShade, std::uint32_t seed)
{
    constexpr double ShadeReach = 45;
    Chance chance(seed);
    for (int y = 0; y < page.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(page.scanLine(y));
        int x = 0;
        for (QRgb &word : std::span(line, static_cast<std::size_t>(page.width()))) {
            const double fromEdge = std::min(x++, y * 2);
            const double change = deviation * chance.grain() - edgeShade * std::exp(-fromEdge / ShadeReach);
            word = qRgb(shaded(qRed(word), change), shaded(qGreen(word), change), shaded(qBlue(word), change));
        }
    }
}
