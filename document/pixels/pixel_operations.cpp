#include "pixel_operations.h"

#include "brightness.h"
#include "contrast.h"
#include "page_buffers.h"
#include "page_operations.h"

#include <QList>

#include <algorithm>
#include <optional>
#include <span>

namespace {

constexpr QRgb White = 0xffffffff;
constexpr QRgb Black = 0xff000000;

using WordKernel = void (*)(std::span<const QRgb> words, std::span<QRgb> result, int percent);

/// Intended: on an indexed page the kernel runs over a copy of the colour table that is dropped, so the page
/// stays as it is. It runs all the same, because contrast may end the process over some tables.
QImage with_dropped_table(const QImage &page, int percent, WordKernel kernel)
{
    const QList<QRgb> table = page.colorTable();
    QList<QRgb> changedTable(table.size());
    kernel(table, changedTable, percent);
    return page;
}

QImage with_changed_words(const QImage &page, int percent, WordKernel kernel)
{
    percent = std::clamp(percent, -100, 100);
    if (page.depth() <= 8)
        return with_dropped_table(page, percent, kernel);
    QImage result = new_page_like(page, page.size());
    if (result.isNull())
        return result;
    const auto count = static_cast<std::size_t>(page.width()) * static_cast<std::size_t>(page.height());
    kernel({reinterpret_cast<const QRgb *>(page.constBits()), count}, {reinterpret_cast<QRgb *>(result.bits()), count},
           percent);
    return result;
}

std::optional<int> last_entry(const QImage &image, QRgb wanted)
{
    const QList<QRgb> table = image.colorTable();
    const qsizetype index = table.lastIndexOf(wanted);
    return index < 0 ? std::nullopt : std::optional(static_cast<int>(index));
}

void log_entries(const QImage &image)
{
    const int digits = image.hasAlphaChannel() ? 8 : 6;
    for (int i = 0; i < image.colorCount(); ++i)
        qDebug("color[%d] = #%0*X", i, digits, image.color(i));
}

} // namespace

QImage brightened_page(const QImage &page, int percent)
{
    return with_changed_words(page, percent, brighten_words);
}

QImage contrasted_page(const QImage &page, int percent)
{
    return with_changed_words(page, percent, contrast_words);
}

bool trans_invert(const QImage &src, QImage &dst, const int *parameter)
{
    return page_operation(PageChange::Invert).preview(src, dst, parameter);
}

bool trans_flip_vertically(const QImage &src, QImage &dst, const int *parameter)
{
    return page_operation(PageChange::FlipVertically).preview(src, dst, parameter);
}

bool trans_flip_horizontally(const QImage &src, QImage &dst, const int *parameter)
{
    return page_operation(PageChange::FlipHorizontally).preview(src, dst, parameter);
}

bool trans_rotate_180(const QImage &src, QImage &dst, const int *parameter)
{
    return page_operation(PageChange::Rotate180).preview(src, dst, parameter);
}

bool trans_rotate_90(const QImage &src, QImage &dst, const int *parameter)
{
    return page_operation(PageChange::Rotate90).preview(src, dst, parameter);
}

bool trans_rotate_270(const QImage &src, QImage &dst, const int *parameter)
{
    return page_operation(PageChange::Rotate270).preview(src, dst, parameter);
}

bool trans_depth_1_bit(const QImage &src, QImage &dst, const int *parameter)
{
    return page_operation(PageChange::Depth1Bit).preview(src, dst, parameter);
}

bool trans_depth_8_bit(const QImage &src, QImage &dst, const int *parameter)
{
    return page_operation(PageChange::Depth8Bit).preview(src, dst, parameter);
}

bool trans_depth_32_bit(const QImage &src, QImage &dst, const int *parameter)
{
    return page_operation(PageChange::Depth32Bit).preview(src, dst, parameter);
}

bool trans_brightness(const QImage &src, QImage &dst, const int *percent)
{
    return page_operation(PageChange::Brightness).preview(src, dst, percent);
}

bool trans_contrast(const QImage &src, QImage &dst, const int *percent)
{
    return page_operation(PageChange::Contrast).preview(src, dst, percent);
}

void patch_palette(QImage &image)
{
    qDebug("patch_palette: numColors = %d", image.colorCount());
    if (image.colorCount() == 0) {
        qDebug("16 or 32 bits");
        return;
    }
    log_entries(image);
    const std::optional<int> black = last_entry(image, Black);
    const std::optional<int> white = last_entry(image, White);
    if (!black || !white) {
        qDebug("FATAL: found_b = %d, found_w = %d", int{black.has_value()}, int{white.has_value()});
        return;
    }
    // Intended: the order of these four. A table of just black and white comes out as white and black, and its
    // picture with the two exchanged.
    const QRgb first = image.color(0);
    const QRgb second = image.color(1);
    image.setColor(0, White);
    image.setColor(1, Black);
    image.setColor(*white, first);
    image.setColor(*black, second);
}
