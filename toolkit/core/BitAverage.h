#pragma once

#include "page_rows.h"
#include "reduced_axis.h"

#include <QRgb>

#include <array>
#include <span>
#include <vector>

enum class BitOrder : bool {
    HighFirst, ///< the leftmost of eight pixels is the highest bit
    LowFirst,
};

/// Averages of pixels that are a bit each: mixtures of two colours by the number of ones.
class BitAverage
{
public:
    /// @param zero, one  0xAARRGGBB, premultiplied if they are not opaque
    BitAverage(QRgb zero, QRgb one, BitOrder order);

    /// Writes an average for each of @p columns: of the colours in it and in @p rows, each channel rounded to nearest,
    /// halves upwards. Not const: it remembers the mixtures for blocks of one size.
    /// @param rows    at most 130, as many as a column may have pixels
    /// @param target  as long as the columns
    void average(const PageRows &rows, const ReducedColumns &columns, std::span<QRgb> target);

private:
    template <int Step> void mixBlocks(int first, std::span<QRgb> target) const;
    void averageEvenly(const PageRows &rows, int step, int first, std::span<QRgb> target);
    void countBytes(const PageRows &rows, int firstByte, std::size_t byteCount);
    void countBlocks(const PageRows &rows, int firstByte, std::size_t byteCount);
    void prepare(int step);
    [[nodiscard]] QRgb averageOf(const PageRows &rows, PixelSpan span) const;
    [[nodiscard]] int ones(const uchar *row, PixelSpan span) const;
    [[nodiscard]] int bitOf(int x) const;
    [[nodiscard]] QRgb mixed(int ones, int count) const;

    QRgb m_zero;
    QRgb m_one;
    BitOrder m_order;
    std::array<std::array<uchar, 9>, 9> m_masks{}; ///< bits of the pixels of a byte, from one up to another
    int m_step = 0; ///< what is prepared
    std::vector<QRgb> m_mixtures; ///< by the number of ones in a block of step by step
    std::array<quint32, 256>
        m_counts{}; ///< ones of each block in a byte, where it has several, from the left, eight bits for each
    std::vector<quint32> m_sums; ///< of these over rows
    std::vector<uchar> m_ones; ///< of whole bytes, over rows
};
