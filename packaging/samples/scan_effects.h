#pragma once

#include <QFont>
#include <QImage>

#include <cstdint>

/// What makes a drawn page look scanned, and the chance it is made with.
///
/// Units: lengths in pixels, angles in degrees, resolutions in dots per inch.

/// Chance that is the same on every machine, which the distributions of the standard library are not.
class Chance
{
public:
    explicit Chance(std::uint32_t seed) : m_state(seed) { }

    /// From 0 up to but without 1.
    double next();

    /// About normal, mean 0 and deviation 1.
    double grain();

private:
    std::uint32_t m_state;
};

/// Smooth noise from 0 to 1 around a grid of whole coordinates, made of @p octaves, each twice as fine as the last.
[[nodiscard]] double cloud_noise(double x, double y, int octaves, std::uint32_t seed);

/// An empty A4 page of depth 32.
[[nodiscard]] QImage blank_a4(int dotsPerInch, QColor paper);

/// A font of @p points on a page of @p dotsPerInch.
[[nodiscard]] QFont page_font(const QString &family, double points, int dotsPerInch, bool bold = false);

/// The page as it lay on the glass: turned by @p degrees, with @p ground showing where the sheet does not reach.
[[nodiscard]] QImage laid_askew(const QImage &page, double degrees, QColor ground);

/// Lightens and darkens every pixel by chance, and the left and upper edges as under a lid that does not close.
void add_grain_and_shade(QImage &page, double deviation, double edgeShade, std::uint32_t seed);
