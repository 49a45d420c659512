// Snapshots and the steps of the history, against BMP files by the toolkit.

#include "ImageView.h"
#include "measured_pages.h"
#include "painted_widgets.h"
#include "plain_ways.h"
#include "Row.h"
#include "snapshot_file.h"

#include <QFile>
#include <QPainter>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize ViewportSize(1260, 1000);

bool flip(ImageDocument &document)
{
    return document.flip_vertically(1);
}

bool save_bmp(const QString &path, const QImage &page)
{
    return page.save(path, "BMP");
}

/// A new file of a page.
Side file_side(const QString &name, const std::function<bool(const QString &path, const QImage &page)> &write)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto files = std::make_shared<NewFiles>();
        return [=, page = load_page(32, surroundings)] {
            const QString path = files->next();
            return timed([&] { return write(path, page); });
        };
    };
    return {name, Side::OwnProcess, prepare};
}

/// The bytes of the page's BMP file.
Side bytes_side()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        const auto files = std::make_shared<NewFiles>();
        QFile file(files->next());
        if (!save_bmp(file.fileName(), load_page(32, surroundings)) || !file.open(QIODevice::ReadOnly))
            qFatal("cannot make the file");
        return [=, bytes = file.readAll()] {
            const QString path = files->next();
            return timed([&] { return write_bytes(path, bytes); });
        };
    };
    return {u"write(2)"_s, Side::OwnProcess, prepare};
}

/// Edits the page and measures the undo of that.
Side first_undo_side()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        const auto page = std::make_shared<MeasuredPage>(load_page(32, surroundings));
        return [=]() -> std::optional<double> {
            page->beEdited();
            if (!page->editWithSnapshot(flip))
                return {};
            return timed([&] { return page->undoEdit(); });
        };
    };
    return {u"UndoHistory"_s, Side::OwnProcess, prepare};
}

Side further_step_side()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        const auto page = std::make_shared<MeasuredPage>(load_page(32, surroundings));
        page->beEdited();
        if (!page->editWithSnapshot(flip) || !page->undoEdit())
            qFatal("the history takes no page");
        return [=]() -> std::optional<double> {
            const std::optional<double> both = timed([&] { return page->redo() && page->undoFurther(); });
            return both ? std::optional(*both / 2) : std::nullopt;
        };
    };
    return {u"UndoHistory"_s, Side::OwnProcess, prepare};
}

/// A step back as the toolkit's own calls make it.
struct PlainStep
{
    QImage present;
    NewFiles files;
    NewFiles pastFiles;
    QString pastFile = pastFiles.next();

    explicit PlainStep(QImage page) : present(std::move(page))
    {
        if (!save_bmp(pastFile, present)) // what it shows does not matter
            qFatal("cannot make the file");
    }
    [[nodiscard]] bool save() { return save_bmp(files.next(), present); }
    [[nodiscard]] QImage past() const { return QImage(pastFile, "BMP"); }
};

Side plain_step_side(bool saves)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto step = std::make_shared<PlainStep>(load_page(32, surroundings));
        return [=] {
            QImage loaded; // outlives the measuring
            return timed([&] {
                const bool saved = !saves || step->save();
                loaded = step->past();
                return saved && !loaded.isNull();
            });
        };
    };
    return {saves ? u"save BMP + load BMP"_s : u"load BMP"_s, Side::OwnProcess, prepare};
}

/// A 1-bit page in a view on the screen.
struct ShownPage
{
    MeasuredPage page;
    ImageView view{nullptr};
    Stage stage{view.viewport()};

    explicit ShownPage(const QImage &source) : page(source)
    {
        show_page(view, source);
        stage.bringUp();
        fit_viewport(view, *view.viewport(), ViewportSize);
    }

    /// Seconds of a step of the history until its page has been painted.
    template <typename Step> [[nodiscard]] std::optional<double> seconds(const Step &step)
    {
        bool good = false;
        const double seconds = stage.secondsUntilPainted([&] {
            good = step();
            view.replaceImage(1, page.shown());
        });
        return good ? std::optional(seconds) : std::nullopt;
    }
};

Side shown_step_side(bool redoes)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto shown = std::make_shared<ShownPage>(load_page(1, surroundings));
        return [=]() -> std::optional<double> {
            MeasuredPage &page = shown->page;
            page.beEdited();
            if (!page.editWithSnapshot(flip))
                return {};
            shown->view.replaceImage(1, page.shown());
            shown->stage.bringUp();
            const std::optional<double> undone = shown->seconds([&] { return page.undoEdit(); });
            return undone && redoes ? shown->seconds([&] { return page.redo(); }) : undone;
        };
    };
    return {u"UndoHistory and ImageView"_s, Side::OwnProcess, prepare};
}

/// Saves the page, loads another one and paints it.
Side plain_shown_step_side()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        struct Shown
        {
            PlainStep step;
            QImage page;
            BareWidget widget{[this](QPainter &painter) { painter.drawImage(0, 0, page); }};
            Stage stage{&widget};

            explicit Shown(const QImage &source) : step(source), page(source) { widget.resize(ViewportSize); }
        };
        const auto shown = std::make_shared<Shown>(load_page(1, surroundings));
        return [=]() -> std::optional<double> {
            shown->stage.bringUp();
            return shown->stage.secondsUntilPainted([&] {
                (void)shown->step.save();
                shown->page = shown->step.past();
                shown->widget.update();
            });
        };
    };
    return {u"BMP + drawImage"_s, Side::OwnProcess, prepare};
}

} // namespace

QList<Row> history_rows()
{
    const auto writeSnapshot = [](const QString &path, const QImage &page) { return write_snapshot(path, page); };
    return {
        {12,
         u"snapshot alone"_s,
         {{u"save BMP"_s, Bar::SecondsRatio, 0.40, file_side(u"write_snapshot"_s, writeSnapshot),
           file_side(u"save BMP"_s, save_bmp)},
          {u"write(2)"_s, Bar::SecondsRatio, 1.8, file_side(u"write_snapshot"_s, writeSnapshot), bytes_side()}}},
        {27,
         u"first undo"_s,
         {{u"save BMP + load BMP"_s, Bar::SecondsRatio, 0.30, first_undo_side(), plain_step_side(true)}}},
        {28,
         u"further undo, redo"_s,
         {{u"load BMP"_s, Bar::SecondsRatio, 0.20, further_step_side(), plain_step_side(false)}}},
        {29,
         u"1-bit page: undo and redo, picture refreshed"_s,
         {{u"BMP + drawImage, undo"_s, Bar::SecondsRatio, 1.3, shown_step_side(false), plain_shown_step_side()},
          {u"BMP + drawImage, redo"_s, Bar::SecondsRatio, 1.3, shown_step_side(true), plain_shown_step_side()}}},
    };
}
