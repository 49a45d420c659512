#pragma once

#include "pixel_operations.h"

#include <optional>

/// The changes of a page that are seen before they are made.
enum class PageChange {
    Depth1Bit,
    Depth8Bit,
    Depth32Bit,
    Invert,
    Brightness,
    Contrast,
    Rotate90, ///< counter-clockwise
    Rotate180,
    Rotate270, ///< clockwise
    FlipVertically,
    FlipHorizontally,
};

/// What can be chosen for an operation that takes a percentage. Beyond it counts as its ends; 0 changes nothing.
struct PageRange
{
    int min;
    int max;
    int init;
    int step;
    const char *label; ///< of the slider, untranslated
};

/// A change of a page: how it is done, how it is shown before, and what it is called. A page and its preview come out
/// the same but for indexed and 1-bit pages, where the operation does more.
///
/// Texts are marked for translation in the context "ImageManager". No field has a default: a row that leaves one out
/// does not compile.
struct PageOperation
{
    PageChange id;
    const char *title; ///< of the dialog that shows it
    std::optional<PageRange> range; ///< none for an operation without a percentage
    /// @param percent  not looked at without a range, and not 0 with one
    /// @return false if there is no result; the page is as it was then
    bool (*change)(QImage &page, int percent);
    ImageTransform preview;
};

[[nodiscard]] const PageOperation &page_operation(PageChange change);
