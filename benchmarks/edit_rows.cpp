// Edits of a page, snapshot included, against the toolkit's own calls.

#include "measured_pages.h"
#include "plain_ways.h"
#include "Row.h"

#include <QTransform>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

enum class Turn {
    First, ///< nothing but the page is in memory
    Later, ///< after another edit
};

constexpr int Percent = 30;

using Edit = MeasuredPage::Edit;
using PlainWay = std::function<QImage(const QImage &)>;

QRect quarter_of(QSize size)
{
    return {QPoint(size.width() / 4, size.height() / 4), size / 2};
}

QTransform quarter_turn()
{
    return {0, -1, 1, 0, 0, 0};
}

Side edit_side(int depth, Turn turn, const Edit &edit)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto page = std::make_shared<MeasuredPage>(load_page(depth, surroundings));
        return [=] {
            turn == Turn::First ? page->beNew() : page->beEdited();
            return timed([&] { return page->editWithSnapshot(edit); });
        };
    };
    return {u"ImageDocument"_s, Side::OwnProcess, prepare};
}

/// Saves the page as BMP and makes another one of it.
Side plain_side(int depth, const PlainWay &way)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto files = std::make_shared<NewFiles>();
        return [=, page = load_page(depth, surroundings)] {
            const QString path = files->next();
            QImage result; // outlives the measuring: giving memory back is not its job
            return timed([&] {
                const bool saved = page.save(path, "BMP");
                result = way(page);
                return saved && !result.isNull();
            });
        };
    };
    return {u"save BMP + plain way"_s, Side::OwnProcess, prepare};
}

Bar edit_bar(const QString &name, double goal, int depth, Turn turn, const Edit &edit, const PlainWay &way)
{
    return {name, Bar::SecondsRatio, goal, edit_side(depth, turn, edit), plain_side(depth, way)};
}

/// A bar for the first edit after the opening and one for those that follow.
QList<Bar> edit_bars(const QString &name, double firstGoal, double laterGoal, int depth, const Edit &edit,
                     const PlainWay &way)
{
    return {edit_bar(name + u", first"_s, firstGoal, depth, Turn::First, edit, way),
            edit_bar(name + u", later"_s, laterGoal, depth, Turn::Later, edit, way)};
}

QList<Bar> rotate_bars()
{
    const auto turned = [](const QImage &page) { return page.transformed(quarter_turn()); };
    const auto turnedBack = [](const QImage &page) { return page.transformed(quarter_turn().inverted()); };
    return edit_bars(
               u"BMP + transformed, 90"_s, 0.40, 0.22, 32,
               [](ImageDocument &document) { return document.rotate_90(1); }, turned)
        + edit_bars(
               u"BMP + transformed, 270"_s, 0.40, 0.22, 32,
               [](ImageDocument &document) { return document.rotate_270(1); }, turnedBack);
}

QList<Bar> mirror_bars()
{
    const auto mirrored = [](bool horizontally, bool vertically) {
        return [=](const QImage &page) { return page.mirrored(horizontally, vertically); };
    };
    return edit_bars(
               u"BMP + mirrored, 180"_s, 0.75, 0.30, 32, [](ImageDocument &document) { return document.rotate_180(1); },
               mirrored(true, true))
        + edit_bars(
               u"BMP + mirrored, flip v"_s, 0.75, 0.30, 32,
               [](ImageDocument &document) { return document.flip_vertically(1); }, mirrored(false, true))
        + edit_bars(
               u"BMP + mirrored, flip h"_s, 0.75, 0.30, 32,
               [](ImageDocument &document) { return document.flip_horizontally(1); }, mirrored(true, false));
}

QImage inverted_plainly(const QImage &page)
{
    QImage result = page;
    result.invertPixels(); // detaches
    return result;
}

bool brighten(ImageDocument &document)
{
    return document.brightness(1, Percent);
}

/// Brightness without a snapshot, after another edit.
Side brightness_side()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        const auto page = std::make_shared<MeasuredPage>(load_page(32, surroundings));
        return [=] {
            page->beEdited();
            return timed([&] { return page->edit(brighten); });
        };
    };
    return {u"ImageDocument"_s, Side::OwnProcess, prepare};
}

Side plain_way_side(const PlainWay &way)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        return [=, page = load_page(32, surroundings)] {
            QImage result;
            return timed([&] {
                result = way(page);
                return !result.isNull();
            });
        };
    };
    return {u"plain way"_s, Side::OwnProcess, prepare};
}

QList<Bar> brightness_bars()
{
    const auto byQColor = [](const QImage &page) { return brightened_plainly(page, Percent); };
    const auto copied = [](const QImage &page) { return page.copy(); };
    return {{u"QColor per pixel"_s, Bar::SecondsRatio, 0.05, brightness_side(), plain_way_side(byQColor)},
            {u"QImage::copy()"_s, Bar::SecondsRatio, 1.3, brightness_side(), plain_way_side(copied)}};
}

QList<Bar> scale_bars()
{
    const auto bar = [](const QString &name, double goal, double factor) {
        const auto scaled = [=](const QImage &page) {
            return page.scaled((QSizeF(page.size()) * factor).toSize(), Qt::IgnoreAspectRatio,
                               Qt::SmoothTransformation);
        };
        return edit_bar(
            name, goal, 32, Turn::First, [=](ImageDocument &document) { return document.scale(1, factor, factor); },
            scaled);
    };
    return {bar(u"BMP + scaled smooth, x0.5"_s, 0.33, 0.5), bar(u"BMP + scaled smooth, x2"_s, 0.45, 2.0)};
}

/// An edit that ends in another format.
Bar depth_bar(int depth, double goal, const Edit &edit, QImage::Format format)
{
    return edit_bar(u"BMP + convertToFormat"_s, goal, depth, Turn::First, edit,
                    [=](const QImage &page) { return page.convertToFormat(format); });
}

/// From depth 1 to 32 and back, and then once more.
Side widened_again_side()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        const auto page = std::make_shared<MeasuredPage>(load_page(1, surroundings));
        return [=]() -> std::optional<double> {
            page->beNew();
            const auto widen = [](ImageDocument &document) { return document.depth_32_bit(1); };
            if (!page->edit(widen) || !page->edit([](ImageDocument &document) { return document.depth_1_bit(1); }))
                return {};
            return timed([&] { return page->editWithSnapshot(widen); });
        };
    };
    return {u"ImageDocument"_s, Side::OwnProcess, prepare};
}

QList<Bar> widen_bars()
{
    const auto widened = [](const QImage &page) { return page.convertToFormat(QImage::Format_RGB32); };
    return {edit_bar(
                u"BMP + convertToFormat, first"_s, 0.80, 1, Turn::First,
                [](ImageDocument &document) { return document.depth_32_bit(1); }, widened),
            {u"BMP + convertToFormat, later"_s, Bar::SecondsRatio, 0.15, widened_again_side(), plain_side(1, widened)}};
}

QList<Bar> black_scale_bars()
{
    constexpr double factor = 0.5;
    return {edit_bar(
        u"BMP + by 32 bits, x0.5"_s, 0.15, 1, Turn::First,
        [](ImageDocument &document) { return document.scale(1, factor, factor); },
        [](const QImage &page) { return scaled_mono_plainly(page, factor); })};
}

QList<Bar> black_edit_bars()
{
    const auto bar = [](const QString &name, const Edit &edit, const PlainWay &way) {
        return edit_bar(name, 0.35, 1, Turn::First, edit, way);
    };
    return {bar(
                u"BMP + mirrored"_s, [](ImageDocument &document) { return document.flip_horizontally(1); },
                [](const QImage &page) { return page.mirrored(true, false); }),
            bar(
                u"BMP + invertPixels"_s, [](ImageDocument &document) { return document.invert(1); }, inverted_plainly),
            bar(
                u"BMP + copy(rect)"_s,
                [](ImageDocument &document) {
                    return document.crop(1, quarter_of(std::as_const(document).page(1).size()));
                },
                [](const QImage &page) { return page.copy(quarter_of(page.size())); })};
}

} // namespace

QList<Row> edit_rows()
{
    const auto byQColor = [](const QImage &page) { return brightened_plainly(page, Percent); };
    const auto byPlainLoop = [](const QImage &page) { return contrasted_plainly(page, Percent); };
    const auto invert = [](ImageDocument &document) { return document.invert(1); };
    const auto contrast = [](ImageDocument &document) { return document.contrast(1, Percent); };
    const auto crop = [](ImageDocument &document) {
        return document.crop(1, quarter_of(std::as_const(document).page(1).size()));
    };
    return {
        {13, u"rotate 90 or 270 incl. snapshot"_s, rotate_bars()},
        {14, u"rotate 180, flips incl. snapshot"_s, mirror_bars()},
        {15, u"invert incl. snapshot"_s, edit_bars(u"BMP + invertPixels"_s, 0.70, 0.27, 32, invert, inverted_plainly)},
        {16, u"brightness incl. snapshot"_s,
         edit_bars(u"BMP + QColor per pixel"_s, 0.11, 0.065, 32, brighten, byQColor)},
        {17, u"brightness alone, later"_s, brightness_bars()},
        {18, u"contrast incl. snapshot"_s, edit_bars(u"BMP + plain loop"_s, 0.36, 0.24, 32, contrast, byPlainLoop)},
        {19,
         u"crop to a quarter incl. snapshot"_s,
         {edit_bar(u"BMP + copy(rect)"_s, 0.50, 32, Turn::First, crop,
                   [](const QImage &page) { return page.copy(quarter_of(page.size())); })}},
        {20, u"scale incl. snapshot"_s, scale_bars()},
        {21,
         u"depth to 8 incl. snapshot"_s,
         {depth_bar(
             32, 0.30, [](ImageDocument &document) { return document.depth_8_bit(1); }, QImage::Format_Indexed8)}},
        {22,
         u"depth to 1 incl. snapshot"_s,
         {depth_bar(
             32, 0.25, [](ImageDocument &document) { return document.depth_1_bit(1); }, QImage::Format_MonoLSB)}},
        {23, u"depth 1 to 32 incl. snapshot"_s, widen_bars()},
        {24,
         u"1-bit page: rotate incl. snapshot"_s,
         {edit_bar(
             u"BMP + by 32 bits"_s, 0.01, 1, Turn::First, [](ImageDocument &document) { return document.rotate_90(1); },
             turned_mono_plainly)}},
        {25, u"1-bit page: scale incl. snapshot"_s, black_scale_bars()},
        {26, u"1-bit page: flip, invert, crop incl. snap."_s, black_edit_bars()},
    };
}
