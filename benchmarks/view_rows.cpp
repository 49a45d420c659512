// The view under the hand: repainting, scrolling and selecting, against bare widgets of the same size. Reduced pages
// have rows of their own.

#include "ImageView.h"
#include "measured_pages.h"
#include "painted_widgets.h"
#include "Row.h"

#include <QApplication>
#include <QPainter>

#include <algorithm>
#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct Zoom
{
    const char *name;
    double factor;
};

constexpr std::array Zooms{Zoom{"8:1", 8.0}, Zoom{"4:1", 4.0}, Zoom{"2:1", 2.0}, Zoom{"1:1", 1.0}};
constexpr int NaturalSize = 3;

/// What a window of 1280 by 1024 and the first window of the program, 335 by 564, leave for the picture and its bars.
constexpr std::array ViewportSizes{QSize(1260, 1000), QSize(315, 420)};

Side view_repaint(int depth, int zoomIndex, QSize size)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto shown = std::make_shared<ShownView>(load_page(depth, surroundings), zoomIndex, size);
        return [shown] {
            shown->stage.bringUp();
            return seconds_of_repaint(shown->stage, *shown->view.viewport());
        };
    };
    return {u"ImageView"_s, Side::OwnProcess, prepare};
}

Side widget_repaint(const QString &name, QSize size,
                    const std::function<std::function<void(QPainter &)>(const Surroundings &)> &makePaint)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto shown = std::make_shared<ShownWidget>(makePaint(surroundings), size);
        return [shown] {
            shown->stage.bringUp();
            return seconds_of_repaint(shown->stage, shown->widget);
        };
    };
    return {name, Side::OwnProcess, prepare};
}

Side pixmap_repaint(int zoomIndex, QSize size)
{
    const double factor = Zooms.at(static_cast<std::size_t>(zoomIndex)).factor;
    return widget_repaint(u"drawPixmap"_s, size, [=](const Surroundings &surroundings) {
        return pixmap_painting(load_page(32, surroundings), factor, size);
    });
}

Side plain_fill_repaint(QSize size)
{
    return widget_repaint(u"plain fill"_s, size, [=](const Surroundings &) {
        return [=](QPainter &painter) { painter.fillRect(QRect(QPoint(0, 0), size), Qt::gray); };
    });
}

/// One move of the mouse with the left button held, and the painting that follows.
/// @param byHand  the picture is pulled along; else a selection grows and shrinks
Side drag(bool byHand, QSize size)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto shown = std::make_shared<ShownView>(load_page(32, surroundings), NaturalSize, size);
        shown->view.OnToggleScroll(byHand);
        return [shown, size] {
            shown->stage.bringUp();
            QWidget *const viewport = shown->view.viewport();
            send_mouse(viewport, QEvent::MouseButtonPress, {size.width() / 2, size.height() / 2}, true);
            double seconds = 0;
            for (int i = 1; i <= PaintingsOfARound; ++i) {
                const int away = -5 * std::min(i, PaintingsOfARound - i); // out and back
                const QPoint at(size.width() / 2 + away, size.height() / 2 + away);
                seconds += shown->stage.secondsUntilPainted([&] { send_mouse(viewport, QEvent::MouseMove, at, true); });
            }
            send_mouse(viewport, QEvent::MouseButtonRelease, {0, 0}, false);
            return seconds / PaintingsOfARound;
        };
    };
    return {byHand ? u"scroll"_s : u"select"_s, Side::OwnProcess, prepare};
}

/// Paint events of the picture while the mouse goes over it with no button held.
Side hover(QSize size)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto shown = std::make_shared<ShownView>(load_page(32, surroundings), NaturalSize, size);
        return [shown, size]() -> std::optional<double> {
            shown->stage.bringUp();
            const int before = shown->stage.paintCount();
            for (int x = 0; x < size.width(); x += 5) {
                send_mouse(shown->view.viewport(), QEvent::MouseMove, {x, size.height() / 2}, false);
                QApplication::processEvents();
            }
            return shown->stage.paintCount() - before;
        };
    };
    return {u"hover"_s, Side::OwnProcess, prepare};
}

QString size_name(QSize size)
{
    return u"%1x%2"_s.arg(size.width()).arg(size.height());
}

/// A bar for each zoom and each size of the window.
QList<Bar> repaint_bars(const QString &yardstickName, int depth, double goal,
                        const std::function<Side(int zoomIndex, QSize size)> &yardstick)
{
    QList<Bar> bars;
    for (const QSize size : ViewportSizes) {
        for (int i = 0; i < static_cast<int>(Zooms.size()); ++i) {
            const QString zoom = QString::fromLatin1(Zooms.at(static_cast<std::size_t>(i)).name);
            const QString name = u"%1, %2 %3 bit %4"_s.arg(yardstickName, size_name(size)).arg(depth).arg(zoom);
            bars.append({name, Bar::SecondsRatio, goal, view_repaint(depth, i, size), yardstick(i, size)});
        }
    }
    return bars;
}

QList<Bar> drag_bars(const QString &yardstickName, bool byHand, double goal,
                     const std::function<Side(QSize size)> &yardstick)
{
    QList<Bar> bars;
    for (const QSize size : ViewportSizes)
        bars.append({u"%1, %2"_s.arg(yardstickName, size_name(size)), Bar::SecondsRatio, goal, drag(byHand, size),
                     yardstick(size)});
    return bars;
}

} // namespace

QList<Row> view_rows()
{
    const auto fill = [](int /*zoomIndex*/, QSize size) { return plain_fill_repaint(size); };
    const auto naturalSize = [](QSize size) { return pixmap_repaint(NaturalSize, size); };
    return {
        {35, u"repaint, 32-bit page"_s, repaint_bars(u"drawPixmap"_s, 32, 1.15, pixmap_repaint)},
        {36, u"repaint, 1-bit and 8-bit page"_s,
         repaint_bars(u"plain fill"_s, 1, 4, fill) + repaint_bars(u"plain fill"_s, 8, 4, fill)},
        {38, u"scroll by the hand, per move"_s, drag_bars(u"drawPixmap"_s, true, 1.1, naturalSize)},
        {39, u"selection drag, per move"_s, drag_bars(u"plain fill"_s, false, 1.4, plain_fill_repaint)},
        {40, u"plain hover over the picture"_s, {{u"paint events"_s, Bar::Count, 0, hover(ViewportSizes.front()), {}}}},
    };
}
