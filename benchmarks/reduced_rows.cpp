// Pages that are shown smaller than they are: the first painting, which averages them, and those that follow.

#include "ImageItem.h"
#include "ImageView.h"
#include "measured_pages.h"
#include "painted_widgets.h"
#include "Row.h"

#include <array>
#include <memory>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize Viewport(1200, 900);
constexpr int NaturalSize = 3;
constexpr std::array Steps{2, 4, 8, 16}; // page pixels a screen pixel
constexpr int LinesOfAScroll = 20;

int zoom_index(std::size_t step)
{
    return NaturalSize + 1 + static_cast<int>(step);
}

/// A view whose averages are gone each time it is painted.
Side first_painting(int depth, std::size_t step)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto shown = std::make_shared<ShownView>(load_page(depth, surroundings), zoom_index(step), Viewport);
        return [shown] {
            shown->stage.bringUp();
            double seconds = 0;
            for (int i = 0; i < PaintingsOfARound; ++i) {
                shown->view.imageItem()->image()->forgetAverages();
                seconds += shown->stage.secondsUntilPainted([&] { shown->view.viewport()->update(); });
            }
            return seconds / PaintingsOfARound;
        };
    };
    return {u"ImageView"_s, Side::OwnProcess, prepare};
}

Side further_painting(int depth, std::size_t step)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto shown = std::make_shared<ShownView>(load_page(depth, surroundings), zoom_index(step), Viewport);
        return [shown] {
            shown->stage.bringUp();
            return seconds_of_repaint(shown->stage, *shown->view.viewport());
        };
    };
    return {u"ImageView"_s, Side::OwnProcess, prepare};
}

/// Down the page by steps of some lines that have not been shown before.
Side scroll_by_lines(int depth, std::size_t step)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto shown = std::make_shared<ShownView>(load_page(depth, surroundings), zoom_index(step), Viewport);
        return [shown] {
            ImageView &view = shown->view;
            view.setContentsPos(0, 0);
            view.imageItem()->image()->forgetAverages();
            shown->stage.bringUp();
            double seconds = 0;
            for (int i = 0; i < PaintingsOfARound; ++i)
                seconds += shown->stage.secondsUntilPainted([&] { view.scrollBy(0, LinesOfAScroll); });
            if (view.contentsY() != PaintingsOfARound * LinesOfAScroll)
                qFatal("the page ended before the scrolling");
            return seconds / PaintingsOfARound;
        };
    };
    return {u"ImageView"_s, Side::OwnProcess, prepare};
}

/// Reads the bytes under the visible part, once.
quint64 sweep(const QImage &page, int step)
{
    const int width = std::min(page.width(), Viewport.width() * step);
    const int height = std::min(page.height(), Viewport.height() * step);
    const qsizetype words = qsizetype{width} * page.depth() / 64;
    quint64 sum = 0;
    for (int y = 0; y < height; ++y) {
        const auto *const line = reinterpret_cast<const quint64 *>(page.constScanLine(y));
        sum = std::accumulate(line, line + words, sum);
    }
    return sum;
}

/// The page by drawPixmap, and on demand a sweep over the bytes that it covers.
Side pixmap_painting_side(int depth, std::size_t step, bool withSweep)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const int reduction = Steps.at(step);
        const QImage page = load_page(depth, surroundings);
        const auto shown = std::make_shared<ShownWidget>(pixmap_painting(page, 1.0 / reduction, Viewport), Viewport);
        return [=] {
            shown->stage.bringUp();
            double seconds = seconds_of_repaint(shown->stage, shown->widget);
            if (withSweep) {
                volatile quint64 sum = 0;
                seconds += seconds_of([&] {
                               for (int i = 0; i < PaintingsOfARound; ++i)
                                   sum = sum + sweep(page, reduction);
                           })
                    / PaintingsOfARound;
            }
            return seconds;
        };
    };
    return {withSweep ? u"sweep + drawPixmap"_s : u"drawPixmap"_s, Side::OwnProcess, prepare};
}

QString bar_name(const QString &yardstick, int depth, std::size_t step)
{
    return u"%1, %2 bit 1:%3"_s.arg(yardstick).arg(depth).arg(Steps.at(step));
}

QList<Bar> first_bars(int depth, double largeGoal, double smallGoal)
{
    QList<Bar> bars;
    for (std::size_t step = 0; step < Steps.size(); ++step) {
        const double goal = Steps.at(step) <= 4 ? largeGoal : smallGoal;
        bars.append({bar_name(u"sweep + drawPixmap"_s, depth, step), Bar::SecondsRatio, goal,
                     first_painting(depth, step), pixmap_painting_side(depth, step, true)});
    }
    return bars;
}

QList<Bar> further_bars(int depth)
{
    QList<Bar> bars;
    for (std::size_t step = 0; step < Steps.size(); ++step)
        bars.append({bar_name(u"drawPixmap"_s, depth, step), Bar::SecondsRatio, 1.15, further_painting(depth, step),
                     pixmap_painting_side(depth, step, false)});
    return bars;
}

/// At 1:8 and 1:16 the page fits the view, or nearly.
QList<Bar> scroll_bars(int depth)
{
    QList<Bar> bars;
    for (std::size_t step = 0; step < 2; ++step)
        bars.append({bar_name(u"drawPixmap"_s, depth, step), Bar::SecondsRatio, 1.5, scroll_by_lines(depth, step),
                     pixmap_painting_side(depth, step, false)});
    return bars;
}

} // namespace

QList<Row> reduced_rows()
{
    return {
        {111, u"reduced page, first painting"_s, first_bars(32, 2.0, 1.6) + first_bars(1, 3, 3) + first_bars(8, 3, 3)},
        {112, u"reduced page, further painting"_s, further_bars(32) + further_bars(1) + further_bars(8)},
        {113, u"reduced page, scroll by 20 lines"_s, scroll_bars(32) + scroll_bars(1) + scroll_bars(8)},
    };
}
