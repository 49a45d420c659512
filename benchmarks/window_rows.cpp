// The main window under the hand: the zoom, and how soon a command shows that it has begun.

#include "ImageDocumentView.h"
#include "ImageManager.h"
#include "measured_pages.h"
#include "painted_widgets.h"
#include "Row.h"

#include <QAction>
#include <QApplication>
#include <QPainter>
#include <QStatusBar>
#include <QTabWidget>

#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr auto Tiff = "a4_600_tiff/page.tif";
constexpr auto BitTiff = "a4_600_1bit_tiff/page.tif";
constexpr std::array ViewportSizes{QSize(1260, 1000), QSize(315, 420)};
constexpr QSize ReducedViewport(1200, 900);
constexpr std::array ZoomNames{"8:1", "4:1", "2:1", "1:1", "1:2", "1:4", "1:8", "1:16"};
constexpr std::size_t NaturalSize = 3;
constexpr int StepsOfARound = 10;

/// The main window with a page.
class PageWindow
{
public:
    explicit PageWindow(const Surroundings &surroundings, const char *file = Tiff)
    {
        window.show();
        if (!window.load_file(input_path(file, surroundings), u"TIFF"_s, false))
            qFatal("the window does not open the page");
    }

    [[nodiscard]] QAction *action(const QString &name) const { return window.findChild<QAction *>(name); }
    [[nodiscard]] ImageDocumentView &view() const
    {
        return *qobject_cast<ImageDocumentView *>(window.findChild<QTabWidget *>()->currentWidget());
    }

    ImageManager window;
};

/// The main window, and how often it paints the page.
struct WatchedWindow : PageWindow
{
    using PageWindow::PageWindow;

    Stage stage{view().viewport()};
};

/// Steps to a zoom from the larger one beside it; to the largest from the smaller one.
Side zoom_side(int index, QSize size, const char *file = Tiff)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto page = std::make_shared<WatchedWindow>(surroundings, file);
        page->stage.bringUp();
        while (page->view().zoomIndex() > 0)
            page->action(u"view_zoom_in"_s)->trigger();
        while (page->view().zoomIndex() < index)
            page->action(u"view_zoom_out"_s)->trigger();
        fit_viewport(page->window, *page->view().viewport(), size);
        return [=] {
            QAction *const there = page->action(index == 0 ? u"view_zoom_in"_s : u"view_zoom_out"_s);
            QAction *const back = page->action(index == 0 ? u"view_zoom_out"_s : u"view_zoom_in"_s);
            double seconds = 0;
            for (int i = 0; i < StepsOfARound; ++i) {
                back->trigger();
                page->stage.bringUp();
                seconds += page->stage.secondsUntilSettled([there] { there->trigger(); });
            }
            return seconds / StepsOfARound;
        };
    };
    return {u"ImageManager"_s, Side::OwnProcess, prepare};
}

Side plain_fill_side(QSize size)
{
    const auto prepare = [=](const Surroundings &) -> Round {
        struct Filled
        {
            BareWidget widget;
            Stage stage{&widget};

            explicit Filled(QSize area) :
                widget([area](QPainter &painter) { painter.fillRect(QRect(QPoint(0, 0), area), Qt::gray); })
            {
                widget.resize(area);
            }
        };
        const auto filled = std::make_shared<Filled>(size);
        return [filled] {
            double seconds = 0;
            for (int i = 0; i < StepsOfARound; ++i) {
                filled->stage.bringUp();
                seconds += filled->stage.secondsUntilSettled([&] { filled->widget.update(); });
            }
            return seconds / StepsOfARound;
        };
    };
    return {u"plain fill"_s, Side::OwnProcess, prepare};
}

QList<Bar> zoom_bars()
{
    QList<Bar> bars;
    for (const QSize size : ViewportSizes) {
        for (int i = 0; i <= static_cast<int>(NaturalSize); ++i) {
            const QString zoom = QString::fromLatin1(ZoomNames.at(static_cast<std::size_t>(i)));
            bars.append({u"plain fill, %1x%2 to %3"_s.arg(size.width()).arg(size.height()).arg(zoom), Bar::SecondsRatio,
                         3.0, zoom_side(i, size), plain_fill_side(size)});
        }
    }
    return bars;
}

/// The visible part of a page scaled smoothly, and the page by drawPixmap.
Side smooth_side(int depth, int reduction)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const QImage page = load_page(depth, surroundings);
        const QSize part = (ReducedViewport * reduction).boundedTo(page.size());
        const QImage visible = page.copy(QRect(QPoint(0, 0), part));
        const auto shown =
            std::make_shared<ShownWidget>(pixmap_painting(page, 1.0 / reduction, ReducedViewport), ReducedViewport);
        return [=] {
            double seconds = 0;
            for (int i = 0; i < StepsOfARound; ++i) {
                shown->stage.bringUp();
                seconds += shown->stage.secondsUntilSettled([&] { shown->widget.update(); });
                seconds += seconds_of([&] {
                    (void)visible.scaled(part / reduction, Qt::IgnoreAspectRatio, Qt::SmoothTransformation); // its time
                });
            }
            return seconds / StepsOfARound;
        };
    };
    return {u"smooth scaled + drawPixmap"_s, Side::OwnProcess, prepare};
}

QList<Bar> reduced_zoom_bars(int depth, const char *file, double goal)
{
    QList<Bar> bars;
    for (std::size_t i = NaturalSize + 1; i < ZoomNames.size(); ++i) {
        const QString name =
            u"smooth scaled + drawPixmap, %1 bit to %2"_s.arg(depth).arg(QString::fromLatin1(ZoomNames.at(i)));
        const int index = static_cast<int>(i);
        bars.append({name, Bar::SecondsRatio, goal, zoom_side(index, ReducedViewport, file),
                     smooth_side(depth, 1 << (i - NaturalSize))});
    }
    return bars;
}

/// Waits for the moment in which a text of the status bar is painted while the window is disabled.
class FirstStatus : public QObject
{
public:
    explicit FirstStatus(QStatusBar *bar) : statusBar(bar) { statusBar->installEventFilter(this); }

    /// Seconds of @p command until then; nothing if that moment did not come before the command was done.
    template <typename Command> [[nodiscard]] std::optional<double> seconds(const Command &command)
    {
        shown.reset();
        const auto start = std::chrono::steady_clock::now();
        command();
        return shown ? std::optional(std::chrono::duration<double>(*shown - start).count()) : std::nullopt;
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const bool isStatus = event->type() == QEvent::Paint && !statusBar->currentMessage().isEmpty();
        if (isStatus && !shown && !statusBar->isEnabled())
            shown = std::chrono::steady_clock::now();
        return QObject::eventFilter(watched, event);
    }

private:
    QStatusBar *statusBar;
    std::optional<std::chrono::steady_clock::time_point> shown;
};

/// Crops the page, which needs no dialog, and undoes that.
Side command_side()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        const auto page = std::make_shared<WatchedWindow>(surroundings);
        const auto status = std::make_shared<FirstStatus>(page->window.statusBar());
        return [=] {
            QWidget *const viewport = page->view().viewport();
            constexpr QPoint from(20, 20);
            constexpr QPoint to(200, 200);
            send_mouse(viewport, QEvent::MouseButtonPress, from, true);
            send_mouse(viewport, QEvent::MouseMove, to, true);
            send_mouse(viewport, QEvent::MouseButtonRelease, to, false);
            page->window.statusBar()->clearMessage();
            page->stage.bringUp();
            const std::optional<double> seconds = status->seconds([&] { page->action(u"image_crop"_s)->trigger(); });
            page->action(u"edit_undo"_s)->trigger();
            return seconds;
        };
    };
    return {u"ImageManager"_s, Side::OwnProcess, prepare};
}

} // namespace

QList<Row> window_rows()
{
    return {
        {37, u"zoom step, 32-bit page"_s, zoom_bars()},
        {114, u"zoom step to a reduced page"_s, reduced_zoom_bars(32, Tiff, 1.0) + reduced_zoom_bars(1, BitTiff, 0.25)},
        {43, u"command to disabled window and status text"_s, {{u"-"_s, Bar::Seconds, 0.050, command_side(), {}}}},
    };
}
