// Whole programs: started on a file, watched until the picture stands, killed.

#include "Row.h"
#include "Screen.h"
#include "StartedProgram.h"
#include "watched_programs.h"

#include <QFile>
#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct Input
{
    const char *path;
    Mark mark = ColourMark;
    double decodedBytes = 0;
};

constexpr double A4Pixels = 4960.0 * 7016.0;
constexpr Input SmallJpeg{.path = "a4_300_jpeg/page.jpg"};
constexpr Input Jpeg{.path = "a4_600_jpeg/page.jpg", .decodedBytes = 4 * A4Pixels};
constexpr Input Png{.path = "a4_600_png/page.png"};
constexpr Input Tiff{.path = "a4_600_tiff/page.tif", .decodedBytes = 4 * A4Pixels};
constexpr Input BlackTiff{.path = "a4_600_1bit_tiff/page.tif", .mark = BlackMark};
constexpr Input LargeJpeg{.path = "a3_600_jpeg/page.jpg"};
constexpr double ManyPagesBytes = 20 * 312.0 * 3508.0; ///< A4 at 300 dpi, lines of 2480 bits in whole words
constexpr Input ManyPages{.path = "pages_tiff/pages.tif", .mark = BlackMark, .decodedBytes = ManyPagesBytes};
constexpr Input ManyPagesGroup4{.path = "pages_group4/pages.tif", .mark = BlackMark};
constexpr Input MarkAlone{.path = "mark/mark.png"};

using Measure = std::optional<double> (*)(const QStringList &command, Mark mark, const Screen &screen);

Side opened_by(const QString &program, const Input &input, Measure measure)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto screen = std::make_shared<Screen>(surroundings.frameBuffer);
        const QStringList command{program_path(program, surroundings),
                                  surroundings.inputs + u'/' + QString::fromLatin1(input.path)};
        return [=] { return screen->isValid() ? measure(command, input.mark, *screen) : std::nullopt; };
    };
    return {program, Side::Here, prepare};
}

Bar start_bar(const Input &input, const QString &peer, double goal)
{
    return {peer, Bar::SecondsRatio, goal, opened_by(u"imagemanager"_s, input, seconds_to_picture),
            opened_by(peer, input, seconds_to_picture)};
}

/// The program reads all pages of a file where its dialog opens that, and so does all_pages.
Side all_pages_of(Input input, Measure measure)
{
    input.mark = ExchangedMark;
    return opened_by(u"all_pages"_s, input, measure);
}

Bar all_pages_bar(const Input &input, const QString &peer, double goal)
{
    return {peer, Bar::SecondsRatio, goal, all_pages_of(input, seconds_to_picture),
            opened_by(peer, input, seconds_to_picture)};
}

/// What decoding all pages and showing a window take by themselves.
Side decoded_and_bare_window(const Input &input)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const Round window = opened_by(u"bare_window"_s, MarkAlone, seconds_to_picture).prepare(surroundings);
        const auto directory = std::make_shared<QTemporaryDir>();
        const QStringList command{u"tiffcp"_s, u"-c"_s, u"none"_s,
                                  surroundings.inputs + u'/' + QString::fromLatin1(input.path),
                                  directory->filePath(u"decoded.tif"_s)};
        return [=]() -> std::optional<double> {
            (void)directory; // goes with the last round
            const std::optional<double> decoded = StartedProgram(command).secondsToEnd();
            const std::optional<double> shown = window();
            return decoded && shown ? std::optional(*decoded + *shown) : std::nullopt;
        };
    };
    return {u"tiffcp -c none + bare_window"_s, Side::Here, prepare};
}

Bar memory_bar(const QString &name, const Input &input, const QString &peer, double goal)
{
    return {name, Bar::BytesRatio, goal, opened_by(u"imagemanager"_s, input, bytes_with_picture),
            opened_by(peer, input, bytes_with_picture)};
}

/// What a viewer cannot do without: the decoded page and a window.
Side page_and_bare_window(const Input &input)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const QStringList command{program_path(u"bare_window"_s, surroundings)};
        return [=]() -> std::optional<double> {
            const StartedProgram window(command);
            const std::optional<double> peak = settled_peak(window);
            return peak ? std::optional(*peak + input.decodedBytes) : std::nullopt;
        };
    };
    return {u"decoded bytes + bare_window"_s, Side::Here, prepare};
}

Bar excess_bar(const QString &name, const Input &input)
{
    return {name, Bar::BytesExcess, 10, opened_by(u"imagemanager"_s, input, bytes_with_picture),
            page_and_bare_window(input)};
}

/// A manual of one page, which holds the mark, and an overview with links to it.
class SmallManual
{
public:
    explicit SmallManual(const QString &inputs)
    {
        QByteArray links;
        for (int i = 1; i <= 14; ++i)
            links += "<li><a href=\"page.htm\">Page " + QByteArray::number(i) + "</a></li>\n";
        write(u"overview.htm"_s, "<html><body><h1>Overview</h1><ul>\n" + links + "</ul></body></html>\n");
        write(u"page.htm"_s, "<html><body><p><img src=\"mark.png\"></p></body></html>\n");
        (void)QFile::copy(inputs + u'/' + QString::fromLatin1(MarkAlone.path), path(u"mark.png"_s)); // else no mark
    }

    [[nodiscard]] QString path(const QString &name) const { return directory.filePath(name); }

private:
    void write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(name));
    }

    QTemporaryDir directory;
};

Side help_page_in(const QString &program)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto screen = std::make_shared<Screen>(surroundings.frameBuffer);
        const auto manual = std::make_shared<SmallManual>(surroundings.inputs);
        QStringList command{program_path(program, surroundings)};
        if (program == "pagr"_L1)
            command << u"-s"_s << manual->path({}) << u"-u"_s << u"page.htm"_s << u"-g"_s << u"overview.htm"_s;
        else
            command << manual->path(u"page.htm"_s);
        return [=]() -> std::optional<double> {
            (void)manual; // goes with the last round
            return screen->isValid() ? seconds_to_picture(command, MarkAlone.mark, *screen) : std::nullopt;
        };
    };
    return {program, Side::Here, prepare};
}

} // namespace

QList<Row> program_rows()
{
    return {
        {1, u"start to picture, A4/300 JPEG"_s, {start_bar(SmallJpeg, u"feh"_s, 1.15)}},
        {2, u"start to picture, A4/600 JPEG"_s, {start_bar(Jpeg, u"feh"_s, 1.10)}},
        {3, u"start to picture, A4/600 JPEG"_s, {start_bar(Jpeg, u"eog"_s, 0.30), start_bar(Jpeg, u"gthumb"_s, 0.33)}},
        {4, u"start to picture, A4/600 PNG"_s, {start_bar(Png, u"feh"_s, 1.05)}},
        {5, u"start to picture, A4/600 TIFF"_s, {start_bar(Tiff, u"feh"_s, 0.65), start_bar(Tiff, u"mtpaint"_s, 0.72)}},
        {6,
         u"start to picture, A4/600 1-bit TIFF"_s,
         {start_bar(BlackTiff, u"feh"_s, 0.33), start_bar(BlackTiff, u"mtpaint"_s, 0.60)}},
        {7,
         u"start to picture, 20 pages, all read"_s,
         {all_pages_bar(ManyPages, u"feh"_s, 0.75), all_pages_bar(ManyPages, u"eog"_s, 0.15)}},
        {8,
         u"start to picture, 20 pages of group 4"_s,
         {{u"tiffcp -c none + bare_window"_s, Bar::SecondsRatio, 0.75,
           all_pages_of(ManyPagesGroup4, seconds_to_picture), decoded_and_bare_window(ManyPagesGroup4)}}},
        {9, u"start to picture, A3/600 JPEG"_s, {start_bar(LargeJpeg, u"feh"_s, 1.05)}},
        {10,
         u"our window's cost, A4/300 and A4/600 JPEG"_s,
         {start_bar(SmallJpeg, u"bare_window"_s, 1.10), start_bar(Jpeg, u"bare_window"_s, 1.10)}},
        {44,
         u"peak memory, view"_s,
         {excess_bar(u"decoded bytes + bare_window, JPEG"_s, Jpeg), excess_bar(u"the same, TIFF"_s, Tiff),
          memory_bar(u"feh, JPEG"_s, Jpeg, u"feh"_s, 1.20), memory_bar(u"feh, TIFF"_s, Tiff, u"feh"_s, 0.50)}},
        {45,
         u"peak memory, view A4/600 1 bit"_s,
         {memory_bar(u"feh"_s, BlackTiff, u"feh"_s, 0.18), memory_bar(u"mtpaint"_s, BlackTiff, u"mtpaint"_s, 0.85)}},
        {46,
         u"peak memory, 20 pages open"_s,
         {{u"decoded bytes + bare_window"_s, Bar::BytesExcess, 5, all_pages_of(ManyPages, bytes_with_picture),
           page_and_bare_window(ManyPages)}}},
        {91,
         u"help viewer, start to page"_s,
         {{u"bare_browser"_s, Bar::SecondsRatio, 1.10, help_page_in(u"pagr"_s), help_page_in(u"bare_browser"_s)}}},
    };
}
