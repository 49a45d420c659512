#include "plain_averages.h"

#include <array>
#include <cmath>

namespace {

/// The mean of the words in @p columns and @p rows, each channel by itself, halves upwards.
QRgb average_plainly(const QImage &words, const QList<int> &columns, const QList<int> &rows)
{
    std::array<int, 4> sums{};
    for (const int row : rows) {
        const auto *const line = reinterpret_cast<const QRgb *>(words.constScanLine(row));
        for (const int column : columns) {
            const QRgb word = line[column];
            sums[0] += qAlpha(word);
            sums[1] += qRed(word);
            sums[2] += qGreen(word);
            sums[3] += qBlue(word);
        }
    }
    const double count = double(rows.size()) * double(columns.size());
    const auto mean = [&](std::size_t channel) { return static_cast<int>(std::lround(sums.at(channel) / count)); };
    return qRgba(mean(1), mean(2), mean(3), mean(0));
}

} // namespace

QList<QList<int>> covered_plainly(PlainScale scale, int length)
{
    QList<QList<int>> covered;
    const int reach = scale.begin + length * scale.screen;
    for (int x = 0; x * scale.page < reach; ++x) {
        QList<int> pixels;
        const int middle = 2 * x * scale.page + scale.page; // of twice the unit
        for (int k = 0; k < length && 2 * scale.begin < middle && 2 * reach >= middle; ++k) {
            const int from = scale.begin + k * scale.screen;
            if (from < (x + 1) * scale.page && from + scale.screen > x * scale.page)
                pixels.append(k);
        }
        covered.append(pixels);
    }
    return covered;
}

QImage averaged_plainly(const QImage &page, PlainScale across, PlainScale down)
{
    const bool alpha = page.hasAlphaChannel();
    const QImage shown = page.convertToFormat(alpha ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32)
                             .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QList<QList<int>> columns = covered_plainly(across, page.width());
    const QList<QList<int>> rows = covered_plainly(down, page.height());
    QImage result(static_cast<int>(columns.size()), static_cast<int>(rows.size()), shown.format());
    result.fill(0);
    for (int y = 0; y < result.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x) {
            if (!columns[x].isEmpty() && !rows[y].isEmpty())
                line[x] = average_plainly(shown, columns[x], rows[y]);
        }
    }
    return result;
}
