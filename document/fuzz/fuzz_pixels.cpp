// All operations on pages of all formats and small sizes, by any amount: each changes every pixel as its plain rule
// says, and so does its preview.

#include "fuzz_target.h"
#include "FuzzInput.h"
#include "ImageDocument.h"
#include "page_depth.h"
#include "page_scale.h"
#include "pixel_operations.h"
#include "plain_pixels.h"
#include "quiet_toolkit.h"
#include "random_pages.h"

#include <array>
#include <functional>

namespace {

constexpr int LongestSide = 64;
constexpr int Kinds = 18; ///< of operations

QImage page_from(FuzzInput &input)
{
    const QImage::Format format = page_formats().at(input.below(static_cast<int>(page_formats().size())));
    const QSize size(input.within(1, LongestSide), input.within(1, LongestSide));
    QRandomGenerator random(input.byte());
    QImage page = random_page(random, size, format);
    // Runs and equal words take roads of their own.
    for (int count = input.below(8); count > 0 && page.depth() == 32; --count) {
        const QRgb word = input.word() | (format == QImage::Format_RGB32 ? 0xff000000U : 0U);
        auto *const line = reinterpret_cast<QRgb *>(page.scanLine(input.below(size.height())));
        std::fill_n(line, input.within(1, size.width()), word);
    }
    if (page.depth() <= 8 && input.flag())
        page.setColor(input.below(page.colorCount()), input.word() | 0xff000000U);
    return page;
}

using PixelRule = std::function<QRgb(int x, int y)>;

/// Whether each pixel is what the rule says: the index where there is a table, else the word.
bool follows(const QImage &result, QSize size, const PixelRule &rule)
{
    if (result.size() != size)
        return false;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            if (value_at(result, x, y) != rule(x, y))
                return false;
        }
    }
    return true;
}

QList<QRgb> words_of(const QImage &page)
{
    QList<QRgb> words;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x)
            words.append(value_at(page, x, y));
    }
    return words;
}

void check_turns(const QImage &page, ImageDocument &document, int operation)
{
    const int right = page.width() - 1;
    const int bottom = page.height() - 1;
    const std::array<PixelRule, 5> rules{
        [&](int x, int y) { return value_at(page, x, bottom - y); },
        [&](int x, int y) { return value_at(page, right - x, y); },
        [&](int x, int y) { return value_at(page, right - x, bottom - y); },
        [&](int x, int y) { return value_at(page, right - y, x); },
        [&](int x, int y) { return value_at(page, y, bottom - x); },
    };
    const std::array<bool (ImageDocument::*)(uint), 5> operations{
        &ImageDocument::flip_vertically, &ImageDocument::flip_horizontally, &ImageDocument::rotate_180,
        &ImageDocument::rotate_90, &ImageDocument::rotate_270};
    const auto which = static_cast<std::size_t>(operation);
    promise((document.*operations.at(which))(1), "a page can be turned");
    const bool isQuarter = operation >= 3;
    const QSize size = isQuarter ? page.size().transposed() : page.size();
    if (!isQuarter || page.depth() != 1) {
        promise(follows(document.page(1), size, rules.at(which)), "a turn moves every pixel to its place");
        return;
    }
    const QImage black = plain_mono(page);
    promise(follows(document.page(1), size,
                    [&](int x, int y) {
                        return operation == 3 ? value_at(black, right - y, x) : value_at(black, y, bottom - x);
                    }),
            "a quarter turn of a page of one bit is black and white");
}

void check_colors(const QImage &page, ImageDocument &document, int operation, int percent)
{
    if (operation == 0) {
        const QRgb mask = page.depth() == 32 ? 0x00ffffffU : page.depth() == 8 ? 0xffU : 1U;
        promise(document.invert(1), "a page can be inverted");
        promise(follows(document.page(1), page.size(), [&](int x, int y) { return value_at(page, x, y) ^ mask; }),
                "each pixel is inverted");
        return;
    }
    const QList<QRgb> words = words_of(page);
    const bool isContrast = operation == 1;
    const QList<QRgb> counted = page.depth() == 32 ? words : page.colorTable(); // a table is changed and dropped
    const auto hasRange = [&counted](int shift) { return plain_bounds(counted, shift).range() != 0; };
    if (isContrast && !(hasRange(16) && hasRange(8) && hasRange(0)))
        return; // ends the process
    const int end = qBound(-100, percent, 100);
    promise(isContrast ? document.contrast(1, percent) : document.brightness(1, percent), "colours can be changed");
    QList<QRgb> expected = words;
    if (page.depth() == 32 && end != 0 && isContrast)
        expected = plain_contrast(words, end);
    else if (page.depth() == 32 && end != 0)
        std::ranges::transform(words, expected.begin(), [end](QRgb word) { return plain_brightness(word, end); });
    promise(words_of(document.page(1)) == expected, "each colour changes by its rule");
    promise(document.isModified() == (percent != 0), "a page changed by nothing is not modified");

    QImage preview;
    const ImageTransform transform = isContrast ? trans_contrast : trans_brightness;
    promise(percent == 0 || (transform(page, preview, &percent) && preview == document.page(1)),
            "the preview shows the result");
}

void check_depths(const QImage &page, ImageDocument &document, int operation)
{
    const std::array depths{1, 8, 32};
    const std::array formats{QImage::Format_MonoLSB, QImage::Format_Indexed8, QImage::Format_RGB32};
    const std::array<bool (ImageDocument::*)(uint), 3> operations{
        &ImageDocument::depth_1_bit, &ImageDocument::depth_8_bit, &ImageDocument::depth_32_bit};
    const auto which = static_cast<std::size_t>(operation);
    promise((document.*operations.at(which))(1), "a page can change its depth");
    const QImage &result = document.page(1);
    if (page.depth() == depths.at(which)) {
        promise(result == page && result.format() == page.format(), "the own depth leaves a page as it is");
        return;
    }
    promise(result.format() == formats.at(which) && result.size() == page.size(), "a depth has its format");
    if (depths.at(which) != 32)
        return;
    promise(follows(result, page.size(), [&](int x, int y) { return page.pixel(x, y) | 0xff000000U; }),
            "32 bits show the colours of the table");
}

void check_sizes(const QImage &page, ImageDocument &document, FuzzInput &input)
{
    const QSize size(input.within(-2, LongestSide), input.within(-2, LongestSide));
    if (input.flag()) {
        promise(document.resize(1, size.width(), size.height()) == !size.isEmpty(), "a size without pixels is refused");
        promise(document.page(1).size() == (size.isEmpty() ? page.size() : size), "a page gets the size");
        return;
    }
    const QPoint corner(input.within(-70, 70), input.within(-70, 70));
    const QRect rubber(corner, size);
    const bool isCropped = document.crop(1, rubber);
    promise(isCropped == (rubber.isNull() || !size.isEmpty()), "a rectangle without pixels is refused");
    if (!isCropped || rubber.isNull())
        return;
    const QRgb outside = page.format() == QImage::Format_RGB32 ? 0xff000000U : 0U;
    promise(follows(document.page(1), size,
                    [&](int x, int y) {
                        const QPoint place = corner + QPoint(x, y);
                        return page.rect().contains(place) ? value_at(page, place.x(), place.y()) : outside;
                    }),
            "a cut page holds what lay there, and nothing else");
}

void check_scaling(const QImage &page, FuzzInput &input)
{
    const QSize size(input.within(1, 2 * LongestSide), input.within(1, 2 * LongestSide));
    const QImage::Format format = page.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32;
    const QImage words = page.depth() == 32 ? page : page.convertToFormat(format);
    const QImage plain = words.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage expected = size == page.size() ? page : plain.convertToFormat(format);
    const QImage result = smoothly_scaled(page, size);
    promise(result.format() == expected.format() && result == expected,
            "a page is scaled as the toolkit scales its words");
    if (page.depth() != 1)
        return;
    const QImage opaque = page.convertToFormat(QImage::Format_RGB32);
    const QImage mixed = opaque.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    promise(smoothly_scaled_to_mono(page, size) == plain_mono(mixed), "a page of one bit is black and white again");
}

} // namespace

std::vector<std::string> fuzz_seeds()
{
    std::vector<std::string> seeds;
    for (char format = 0; format < 5; ++format) {
        for (char kind = 0; kind < Kinds; ++kind)
            seeds.push_back({kind, 50, 2, 0, 0, format, 40, 17, 1, 3, 5, 1, 2, 3, 4});
    }
    return seeds;
}

void try_input(std::span<const std::uint8_t> bytes)
{
    start_quiet_toolkit();
    FuzzInput input(bytes);
    const int kind = input.below(Kinds);
    const int percent = input.within(-500, 500);
    const QImage page = page_from(input);
    ImageDocument document({}, {});
    promise(document.addPage(page), "a page can be added");
    document.setModified(false);

    if (kind < 5)
        check_turns(page, document, kind);
    else if (kind < 10)
        check_colors(page, document, kind % 3, percent);
    else if (kind < 13)
        check_depths(page, document, kind - 10);
    else if (kind < 16)
        check_sizes(page, document, input);
    else
        check_scaling(page, input);
    promise(page_formats().contains(document.page(1).format()), "a page keeps a format of pages");
}
