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

using Edit = EditedPage::Edit;
using PlainWay = std::function<QImage(const QImage &)>;

QRect quarterOf(QSize size)
{
    return {QPoint(size.width() / 4, size.height() / 4), size / 2};
}

QTransform quarterTurn()
{
    return {0, -1, 1, 0, 0, 0};
}

Side editSide(int depth, Turn turn, const Edit &edit)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto page = std::make_shared<EditedPage>(load_page(depth, surroundings));
        return [=] {
            turn == Turn::First ? page->beNew() : page->beEdited();
            return timed([&] { return page->editWithSnapshot(edit); });
        };
    };
    return {u"ImageDocument"_s, Side::OwnProcess, prepare};
}

/// Saves the page as BMP and makes another one of it.
Side plainSide(int depth, const PlainWay &way)
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

Bar editBar(const QString &name, double goal, int depth, Turn turn, const Edit &edit, const PlainWay &way)
{
    return {name, Bar::SecondsRatio, goal, editSide(depth, turn, edit), plainSide(depth, way)};
}

/// A bar for the first edit after the opening and one for those that follow.
QList<Bar> editBars(const QString &name, double firstGoal, double laterGoal, int depth, const Edit &edit,
                    const PlainWay &way)
{
    return {editBar(name + u", first"_s, firstGoal, depth, Turn::First, edit, way),
            editBar(name + u", later"_s, laterGoal, depth, Turn::Later, edit, way)};
}

QList<Bar> rotateBars()
{
    const auto turned = [](const QImage &page) { return page.transformed(quarterTurn()); };
    const auto turnedBack = [](const QImage &page) { return page.transformed(quarterTurn().inverted()); };
    return editBars(
               u"BMP + transformed, 90"_s, 0.55, 0.45, 32,
               [](ImageDocument &document) { return document.rotate_90(1); }, turned)
        + editBars(
               u"BMP + transformed, 270"_s, 0.55, 0.45, 32,
               [](ImageDocument &document) { return document.rotate_270(1); }, turnedBack);
}

QList<Bar> mirrorBars()
{
    const auto mirrored = [](bool horizontally, bool vertically) {
        return [=](const QImage &page) { return page.mirrored(horizontally, vertically); };
    };
    return editBars(
               u"BMP + mirrored, 180"_s, 0.75, 0.42, 32, [](ImageDocument &document) { return document.rotate_180(1); },
               mirrored(true, true))
        + editBars(
               u"BMP + mirrored, flip v"_s, 0.75, 0.42, 32,
               [](ImageDocument &document) { return document.flip_vertically(1); }, mirrored(false, true))
        + editBars(
               u"BMP + mirrored, flip h"_s, 0.75, 0.42, 32,
               [](ImageDocument &document) { return document.flip_horizontally(1); }, mirrored(true, false));
}

QImage invertedPlainly(const QImage &page)
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
Side brightnessSide()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        const auto page = std::make_shared<EditedPage>(load_page(32, surroundings));
        return [=] {
            page->beEdited();
            return timed([&] { return page->edit(brighten); });
        };
    };
    return {u"ImageDocument"_s, Side::OwnProcess, prepare};
}

Side plainWaySide(const PlainWay &way)
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

QList<Bar> brightnessBars()
{
    const auto byQColor = [](const QImage &page) { return brightened_plainly(page, Percent); };
    const auto copied = [](const QImage &page) { return page.copy(); };
    return {{u"QColor per pixel"_s, Bar::SecondsRatio, 0.05, brightnessSide(), plainWaySide(byQColor)},
            {u"QImage::copy()"_s, Bar::SecondsRatio, 1.3, brightnessSide(), plainWaySide(copied)}};
}

QList<Bar> scaleBars()
{
    const auto bar = [](const QString &name, double goal, double factor) {
        const auto scaled = [=](const QImage &page) {
            return page.scaled((QSizeF(page.size()) * factor).toSize(), Qt::IgnoreAspectRatio,
                               Qt::SmoothTransformation);
        };
        return editBar(
            name, goal, 32, Turn::First, [=](ImageDocument &document) { return document.scale(1, factor, factor); },
            scaled);
    };
    return {bar(u"BMP + scaled smooth, x0.5"_s, 0.65, 0.5), bar(u"BMP + scaled smooth, x2"_s, 0.90, 2.0)};
}

/// An edit that ends in another format.
Bar depthBar(int depth, double goal, const Edit &edit, QImage::Format format)
{
    return editBar(u"BMP + convertToFormat"_s, goal, depth, Turn::First, edit,
                   [=](const QImage &page) { return page.convertToFormat(format); });
}

/// From depth 1 to 32 and back, and then once more.
Side widenedAgainSide()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        const auto page = std::make_shared<EditedPage>(load_page(1, surroundings));
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

QList<Bar> widenBars()
{
    const auto widened = [](const QImage &page) { return page.convertToFormat(QImage::Format_RGB32); };
    return {editBar(
                u"BMP + convertToFormat, first"_s, 0.80, 1, Turn::First,
                [](ImageDocument &document) { return document.depth_32_bit(1); }, widened),
            {u"BMP + convertToFormat, later"_s, Bar::SecondsRatio, 0.15, widenedAgainSide(), plainSide(1, widened)}};
}

QList<Bar> blackScaleBars()
{
    constexpr double factor = 0.5;
    return {editBar(
        u"BMP + by 32 bits, x0.5"_s, 0.55, 1, Turn::First,
        [](ImageDocument &document) { return document.scale(1, factor, factor); },
        [](const QImage &page) { return scaled_mono_plainly(page, factor); })};
}

QList<Bar> blackEditBars()
{
    const auto bar = [](const QString &name, const Edit &edit, const PlainWay &way) {
        return editBar(name, 0.80, 1, Turn::First, edit, way);
    };
    return {
        bar(
            u"BMP + mirrored"_s, [](ImageDocument &document) { return document.flip_horizontally(1); },
            [](const QImage &page) { return page.mirrored(true, false); }),
        bar(
            u"BMP + invertPixels"_s, [](ImageDocument &document) { return document.invert(1); }, invertedPlainly),
        bar(
            u"BMP + copy(rect)"_s,
            [](ImageDocument &document) { return document.crop(1, quarterOf(std::as_const(document).page(1).size())); },
            [](const QImage &page) { return page.copy(quarterOf(page.size())); })};
}

} // namespace

QList<Row> edit_rows()
{
    const auto byQColor = [](const QImage &page) { return brightened_plainly(page, Percent); };
    const auto byPlainLoop = [](const QImage &page) { return contrasted_plainly(page, Percent); };
    const auto invert = [](ImageDocument &document) { return document.invert(1); };
    const auto contrast = [](ImageDocument &document) { return document.contrast(1, Percent); };
    const auto crop = [](ImageDocument &document) {
        return document.crop(1, quarterOf(std::as_const(document).page(1).size()));
    };
    return {
        {13, u"rotate 90 or 270 incl. snapshot"_s, rotateBars()},
        {14, u"rotate 180, flips incl. snapshot"_s, mirrorBars()},
        {15, u"invert incl. snapshot"_s, editBars(u"BMP + invertPixels"_s, 0.70, 0.40, 32, invert, invertedPlainly)},
        {16, u"brightness incl. snapshot"_s,
         editBars(u"BMP + QColor per pixel"_s, 0.11, 0.065, 32, brighten, byQColor)},
        {17, u"brightness alone, later"_s, brightnessBars()},
        {18, u"contrast incl. snapshot"_s, editBars(u"BMP + plain loop"_s, 0.36, 0.24, 32, contrast, byPlainLoop)},
        {19,
         u"crop to a quarter incl. snapshot"_s,
         {editBar(u"BMP + copy(rect)"_s, 0.50, 32, Turn::First, crop,
                  [](const QImage &page) { return page.copy(quarterOf(page.size())); })}},
        {20, u"scale incl. snapshot"_s, scaleBars()},
        {21,
         u"depth to 8 incl. snapshot"_s,
         {depthBar(
             32, 0.90, [](ImageDocument &document) { return document.depth_8_bit(1); }, QImage::Format_Indexed8)}},
        {22,
         u"depth to 1 incl. snapshot"_s,
         {depthBar(
             32, 0.75, [](ImageDocument &document) { return document.depth_1_bit(1); }, QImage::Format_MonoLSB)}},
        {23, u"depth 1 to 32 incl. snapshot"_s, widenBars()},
        {24,
         u"1-bit page: rotate incl. snapshot"_s,
         {editBar(
             u"BMP + by 32 bits"_s, 0.01, 1, Turn::First, [](ImageDocument &document) { return document.rotate_90(1); },
             turned_mono_plainly)}},
        {25, u"1-bit page: scale incl. snapshot"_s, blackScaleBars()},
        {26, u"1-bit page: flip, invert, crop incl. snap."_s, blackEditBars()},
    };
}
