#include "page_operations.h"

#include "page_colors.h"
#include "page_depth.h"
#include "page_turns.h"

#include <QCoreApplication>

#include <array>
#include <cstddef>
#include <utility>

namespace {

using Kernel = QImage (*)(const QImage &page);
using PercentKernel = QImage (*)(const QImage &page, int percent);

bool replace(QImage &page, QImage result)
{
    if (result.isNull())
        return false;
    page = std::move(result);
    return true;
}

template <Kernel Result> bool change_to(QImage &page, int /*percent*/)
{
    return replace(page, Result(page));
}

template <PercentKernel Result> bool change_by(QImage &page, int percent)
{
    return replace(page, Result(page, percent));
}

bool answer_with(QImage &dst, QImage result)
{
    dst = std::move(result);
    return !dst.isNull();
}

template <Kernel Result> bool show(const QImage &src, QImage &dst, const int * /*parameter*/)
{
    return answer_with(dst, Result(src));
}

/// The shape that brightness and contrast share. Logs under @p name.
bool show_by(const char *name, PercentKernel result, const QImage &src, QImage &dst, int percent)
{
    if (src.width() == 0 || src.height() == 0) {
        qDebug("%s - empty image!", name);
        return false;
    }
    if (percent == 0) {
        qDebug("%s - zero parameter", name);
        return answer_with(dst, src);
    }
    return answer_with(dst, result(src, percent));
}

bool show_brightness(const QImage &src, QImage &dst, const int *percent)
{
    return show_by("trans_brightness", brightened_page, src, dst, *percent);
}

bool show_contrast(const QImage &src, QImage &dst, const int *percent)
{
    return show_by("trans_contrast", contrasted_page, src, dst, *percent);
}

template <int Depth> QImage of_depth(const QImage &page)
{
    return converted_to_depth(page, Depth);
}

template <bool Horizontally, bool Vertically> QImage mirror(const QImage &page)
{
    return mirrored(page, Horizontally, Vertically);
}

template <QuarterTurn Turn> QImage turn(const QImage &page)
{
    return turned(page, Turn);
}

template <QuarterTurn Turn> QImage turn_of_page(const QImage &page)
{
    // The same picture as a turn of a copy of 32 bits, at a 30th of the memory.
    if (page.depth() == 1)
        return toMono(turned(page, Turn));
    return with_color_255_of(page, turned(page, Turn));
}

bool invert_page(QImage &page, int /*percent*/)
{
    // Where the view shares the pixels they would be copied first, and into new memory.
    if (!page.isDetached())
        return replace(page, inverted(page));
    page.invertPixels(QImage::InvertRgb);
    return true;
}

constexpr auto NoRange = std::nullopt;

constexpr PageRange percent_range(const char *label)
{
    return {.min = -100, .max = 100, .init = 0, .step = 1, .label = label};
}

// The texts are written out in full, since that is how lupdate finds them.
constexpr std::array<PageOperation, 11> operations{{
    {.id = PageChange::Depth1Bit,
     .title = QT_TRANSLATE_NOOP("ImageManager", "Image Depth 1 bit"),
     .range = NoRange,
     .change = change_to<of_depth<1>>,
     .preview = show<of_depth<1>>},
    {.id = PageChange::Depth8Bit,
     .title = QT_TRANSLATE_NOOP("ImageManager", "Image Depth 8 bit"),
     .range = NoRange,
     .change = change_to<of_depth<8>>,
     .preview = show<of_depth<8>>},
    {.id = PageChange::Depth32Bit,
     .title = QT_TRANSLATE_NOOP("ImageManager", "Image Depth 32 bit"),
     .range = NoRange,
     .change = change_to<of_depth<32>>,
     .preview = show<of_depth<32>>},
    {.id = PageChange::Invert,
     .title = QT_TRANSLATE_NOOP("ImageManager", "Invert"),
     .range = NoRange,
     .change = invert_page,
     .preview = show<inverted>},
    {.id = PageChange::Brightness,
     .title = QT_TRANSLATE_NOOP("ImageManager", "Brightness"),
     .range = percent_range(QT_TRANSLATE_NOOP("ImageManager", "Set Brightness")),
     .change = change_by<brightened_page>,
     .preview = show_brightness},
    {.id = PageChange::Contrast,
     .title = QT_TRANSLATE_NOOP("ImageManager", "Contrast"),
     .range = percent_range(QT_TRANSLATE_NOOP("ImageManager", "Set Contrast")),
     .change = change_by<contrasted_page>,
     .preview = show_contrast},
    {.id = PageChange::Rotate90,
     .title = QT_TRANSLATE_NOOP("ImageManager", "Rotate 90 degrees CCW"),
     .range = NoRange,
     .change = change_to<turn_of_page<QuarterTurn::CounterClockwise>>,
     .preview = show<turn<QuarterTurn::CounterClockwise>>},
    {.id = PageChange::Rotate180,
     .title = QT_TRANSLATE_NOOP("ImageManager", "Rotate 180 degrees"),
     .range = NoRange,
     .change = change_to<mirror<true, true>>,
     .preview = show<mirror<true, true>>},
    {.id = PageChange::Rotate270,
     .title = QT_TRANSLATE_NOOP("ImageManager", "Rotate 90 degrees CW"),
     .range = NoRange,
     .change = change_to<turn_of_page<QuarterTurn::Clockwise>>,
     .preview = show<turn<QuarterTurn::Clockwise>>},
    {.id = PageChange::FlipVertically,
     .title = QT_TRANSLATE_NOOP("ImageManager", "Flip Vertically"),
     .range = NoRange,
     .change = change_to<mirror<false, true>>,
     .preview = show<mirror<false, true>>},
    {.id = PageChange::FlipHorizontally,
     .title = QT_TRANSLATE_NOOP("ImageManager", "Flip Horizontally"),
     .range = NoRange,
     .change = change_to<mirror<true, false>>,
     .preview = show<mirror<true, false>>},
}};

constexpr bool rows_stand_in_order()
{
    for (std::size_t i = 0; i < operations.size(); ++i)
        if (static_cast<std::size_t>(operations.at(i).id) != i)
            return false;
    return true;
}
static_assert(rows_stand_in_order(), "a row is found by the number of its change");

} // namespace

const PageOperation &page_operation(PageChange change)
{
    return operations.at(static_cast<std::size_t>(change));
}
