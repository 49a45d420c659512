// Where the work grows: each job on pages, files and windows from small to as large as they get.

#include "ImageItem.h"
#include "ImageManager.h"
#include "measured_pages.h"
#include "page_files.h"
#include "painted_widgets.h"
#include "process_memory.h"
#include "Row.h"
#include "scale_inputs.h"
#include "Screen.h"
#include "watched_programs.h"

#include <QFile>

#include <array>
#include <limits>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr double NoGoal = std::numeric_limits<double>::infinity();
constexpr QSize Viewport(1200, 900);
constexpr int SmallestZoom = 7; ///< 1:16
constexpr QSize TabPage(620, 874);

/// A job that is done over and over, in a process of its own.
struct Work
{
    std::function<bool()> begin; ///< not measured
    std::function<bool()> run;
};
using MakeWork = std::function<Work(const QString &path)>;

/// A page that was opened, for work on it.
std::shared_ptr<MeasuredPage> opened(const QString &path)
{
    auto page = std::make_shared<MeasuredPage>();
    if (!page->open(path))
        qFatal("the page does not open");
    return page;
}

bool nothing()
{
    return true;
}

bool turn(ImageDocument &document)
{
    return document.rotate_90(1);
}

Work opening(const QString &path)
{
    const auto page = std::make_shared<MeasuredPage>();
    const auto begin = [page] {
        page->beEmpty();
        return true;
    };
    return {begin, [page, path] { return page->open(path); }};
}

Work turning(const QString &path)
{
    return {nothing, [page = opened(path)] { return page->editWithSnapshot(turn); }};
}

Work undoing(const QString &path)
{
    const auto page = opened(path);
    return {[page] { return page->editWithSnapshot(turn); }, [page] { return page->undoEdit(); }};
}

Work saving(const QString &path)
{
    const auto files = std::make_shared<NewFiles>();
    const auto page = opened(path);
    return {nothing, [page, files] {
                return page->edit([&](ImageDocument &document) { return document.save(files->next(), u"TIFF"_s); });
            }};
}

/// The first painting at the smallest zoom, which reads the most.
Work zooming(const QString &path)
{
    const auto shown = std::make_shared<ShownView>(opened(path)->shown(), SmallestZoom, Viewport);
    const auto begin = [shown] {
        shown->stage.bringUp();
        shown->view.imageItem()->image()->forgetAverages();
        return true;
    };
    return {begin, [shown] { return shown->stage.secondsUntilPainted([&] { shown->view.viewport()->update(); }) > 0; }};
}

/// The file that lpr is given.
Work printing(const QString &path)
{
    const auto files = std::make_shared<NewFiles>();
    return {nothing, [page = opened(path)->shown(), files] {
                QFile file;
                return create_print_file(files->next(), file) && write_print_file(file, page);
            }};
}

/// A window that leaves nothing behind: by itself it leaves the documents of its tabs to the end of the process.
class FilledWindow
{
public:
    FilledWindow() { Stage(&m_window).bringUp(); }

    [[nodiscard]] bool fill(int tabs)
    {
        for (int i = 0; i < tabs; ++i) {
            QImage page(TabPage, QImage::Format_RGB32);
            page.fill(Qt::white);
            m_documents.push_back(std::make_unique<ImageDocument>(QString(), QString()));
            if (!m_documents.back()->addPage(page) || !m_window.addDocumentTab(m_documents.back().get()))
                return false;
        }
        return true;
    }

private:
    std::vector<std::unique_ptr<ImageDocument>> m_documents; ///< outlive the window
    ImageManager m_window;
};

/// All that a window with many tabs costs to come into being; each has a page of its own.
Work filling(int tabs)
{
    const auto window = std::make_shared<std::unique_ptr<FilledWindow>>();
    const auto begin = [window] {
        window->reset();
        *window = std::make_unique<FilledWindow>();
        return true;
    };
    return {begin, [window, tabs] { return (*window)->fill(tabs); }};
}

Side seconds_side(const MakeWork &make, const QString &name)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        return [work = make(input_path(name.toLatin1().constData(), surroundings))]() -> std::optional<double> {
            return work.begin() ? timed(work.run) : std::nullopt;
        };
    };
    return {u"ours"_s, Side::OwnProcess, prepare};
}

/// The most memory that the process has meanwhile.
Side bytes_side(const MakeWork &make, const QString &name)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        return [work = make(input_path(name.toLatin1().constData(), surroundings))]() -> std::optional<double> {
            if (!work.begin())
                return {};
            restart_peak_count();
            return work.run() ? std::optional(peak_memory()) : std::nullopt;
        };
    };
    return {u"ours"_s, Side::OwnProcess, prepare};
}

using Watch = std::optional<double> (*)(const QStringList &command, Mark mark, const Screen &screen);

/// @param program  imagemanager, or all_pages for all pages of a file
Side program_side(const QString &program, const QString &name, Mark mark, Watch watch)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto screen = std::make_shared<Screen>(surroundings.frameBuffer);
        const QStringList command{program_path(program, surroundings), surroundings.inputs + u'/' + name};
        return [=] { return screen->isValid() ? watch(command, mark, *screen) : std::nullopt; };
    };
    return {program, Side::Here, prepare};
}

/// One place on a curve.
struct Place
{
    QString name; ///< holds the size, so that a curve can be drawn
    QString file;
};

QList<Place> page_places(int depth)
{
    QList<Place> places;
    for (const ScalePage &page : scale_pages(depth))
        places.append({u"%1, %2 x %3"_s.arg(page.name).arg(page.size.width()).arg(page.size.height()), page.path()});
    return places;
}

QList<Place> file_places()
{
    QList<Place> places;
    for (const int count : ScaleCounts)
        places.append({u"%1 pages"_s.arg(count), scale_file(count)});
    return places;
}

/// The time of a job and its memory, each as a row of its own.
QList<Row> rows_of(int number, const QString &job, const QList<Place> &places, const MakeWork &make)
{
    Row seconds{number, job + u", time"_s, {}};
    Row bytes{number + 50, job + u", memory"_s, {}};
    for (const Place &place : places) {
        seconds.bars.append({place.name, Bar::Seconds, NoGoal, seconds_side(make, place.file), {}});
        bytes.bars.append({place.name, Bar::Bytes, NoGoal, bytes_side(make, place.file), {}});
    }
    return {seconds, bytes};
}

QList<Row> start_rows_of(int number, const QString &job, const QList<Place> &places, const QString &program, Mark mark)
{
    Row seconds{number, job + u", time"_s, {}};
    Row bytes{number + 50, job + u", memory"_s, {}};
    for (const Place &place : places) {
        seconds.bars.append(
            {place.name, Bar::Seconds, NoGoal, program_side(program, place.file, mark, seconds_to_picture), {}});
        bytes.bars.append(
            {place.name, Bar::Bytes, NoGoal, program_side(program, place.file, mark, bytes_with_picture), {}});
    }
    return {seconds, bytes};
}

QList<Row> page_rows(int number, int depth)
{
    const QList<Place> places = page_places(depth);
    const QString suffix = u" %1 bit"_s.arg(depth);
    using NamedWork = std::pair<const char *, Work (*)(const QString &)>;
    constexpr std::array<NamedWork, 6> works{{
        {"open", opening},
        {"turn", turning},
        {"undo", undoing},
        {"save", saving},
        {"zoom", zooming},
        {"print", printing},
    }};
    QList<Row> rows =
        start_rows_of(number, u"start"_s + suffix, places, u"imagemanager"_s, depth == 1 ? BlackMark : ColourMark);
    for (const auto &[name, work] : works)
        rows += rows_of(++number, QString::fromLatin1(name) + suffix, places, work);
    return rows;
}

} // namespace

QList<Row> scale_rows()
{
    constexpr int ofColour = 201, ofBits = 211, ofFiles = 221, ofTabs = 231;
    QList<Row> rows = page_rows(ofColour, 32) + page_rows(ofBits, 1);
    rows += start_rows_of(ofFiles, u"start, all pages"_s, file_places(), u"all_pages"_s, ExchangedMark);
    rows += rows_of(ofFiles + 1, u"open, all pages"_s, file_places(), opening);
    rows += rows_of(ofFiles + 2, u"save, all pages"_s, file_places(), saving);
    Row seconds{ofTabs, u"fill tabs, time"_s, {}};
    Row bytes{ofTabs + 50, u"fill tabs, memory"_s, {}};
    for (const int count : ScaleCounts) {
        const MakeWork make = [count](const QString & /*path*/) { return filling(count); };
        const QString name = u"%1 tabs"_s.arg(count);
        seconds.bars.append({name, Bar::Seconds, NoGoal, seconds_side(make, {}), {}});
        bytes.bars.append({name, Bar::Bytes, NoGoal, bytes_side(make, {}), {}});
    }
    return rows << seconds << bytes;
}
