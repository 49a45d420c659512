#pragma once

#include "page_rows.h"
#include "reduced_axis.h"

#include <QRgb>

#include <array>
#include <span>

/// Averages of pixels that are a byte each, the index of a colour.
class ByteAverage
{
public:
    /// @param colors  0xAARRGGBB, premultiplied if they are not opaque
    explicit ByteAverage(const std::array<QRgb, 256> &colors);

    /// Writes an average for each of @p columns: of the colours in it and in @p rows, each channel rounded to nearest,
    /// halves upwards.
    /// @param rows    at most 130, as many as a column may have pixels
    /// @param target  as long as the columns
    void average(const PageRows &rows, const ReducedColumns &columns, std::span<QRgb> target) const;

private:
    enum class Ramp : quint8 {
        None, ///< any colours
        Rising, ///< the greys from black to white: an index is its own grey
        Falling, ///< from white to black
    };

    [[nodiscard]] static Ramp rampOf(const std::array<QRgb, 256> &colors);
    template <int Step> void averageEvenly(const PageRows &rows, int first, std::span<QRgb> target) const;
    template <int Step> void averageRamp(const PageRows &rows, int first, std::span<QRgb> target) const;
    template <int Step> void averageColors(const PageRows &rows, int first, std::span<QRgb> target) const;
    void averageEvenly(const PageRows &rows, int step, int first, std::span<QRgb> target) const;
    [[nodiscard]] QRgb averageOf(const PageRows &rows, PixelSpan span) const;

    std::array<quint64, 256> m_colors{}; ///< of an index: its four channels, with room for the sum of 257 colours
    Ramp m_ramp;
};
