// A file is opened, edited and saved: by the program that runs already, and by programs for command lines as a whole,
// from their start to their end.
//
// All write uncompressed TIFF files, as our own are. The programs get no settings beside the job: as many threads, as
// much memory and as large tiles as they choose by themselves. What they make of a turn, an inversion and a crop is
// compared with the toolkit's picture once, before the rounds.

#include "flushes.h"
#include "measured_pages.h"
#include "other_commands.h"
#include "Row.h"
#include "StartedProgram.h"

#include <QImageReader>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr auto Tiff = "a4_600_tiff/page.tif";
constexpr QRect Quarter{1240, 1754, 2480, 3508}; ///< of the page, in its middle

using Change = std::function<bool(ImageDocument &)>;
using PlainChange = std::function<QImage(const QImage &)>;

/// One job, as everybody is told it.
struct Job
{
    QString name;
    Change change;
    QStringList vips{}; ///< the operation, the files, and its numbers; empty where it has none
    QStringList magick; ///< the same for both Magicks
    PlainChange plainly{}; ///< empty where the pictures are not the same to the bit
};

Side our_side(const Change &change)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        let_files_be_flushed(false);
        const auto files = std::make_shared<NewFiles>();
        return [=, path = input_path(Tiff, surroundings)] {
            const QString copy = files->next();
            return timed([&] {
                ImageDocument document(path, u"TIFF"_s);
                return !document.isEmpty() && change(document) && document.save(copy, u"TIFF"_s);
            });
        };
    };
    return {u"ImageDocument"_s, Side::OwnProcess, prepare};
}

/// Ends the benchmarks if a program makes another picture than the toolkit.
void compare_once(const Command &command, const PlainChange &plainly, const Surroundings &surroundings)
{
    NewFiles files(u".tif"_s);
    const QString path = input_path(Tiff, surroundings);
    const QString copy = files.next();
    const QImage page = QImageReader(path).read().convertToFormat(QImage::Format_RGB32);
    const bool hasEnded = StartedProgram(words_of(command, path, copy, surroundings)).secondsToEnd().has_value();
    if (!hasEnded || QImageReader(copy).read().convertToFormat(QImage::Format_RGB32) != plainly(page))
        qFatal("%s does another job", qPrintable(command.name));
}

Side compared_side(const Command &command, const PlainChange &plainly)
{
    Side side = command_side(command, Tiff);
    if (!plainly)
        return side;
    side.prepare = [=, prepare = side.prepare](const Surroundings &surroundings) {
        compare_once(command, plainly, surroundings);
        return prepare(surroundings);
    };
    return side;
}

Command graphics_magick(const QStringList &words)
{
    return {.name = u"GraphicsMagick"_s,
            .words = QStringList{u"gm"_s, u"convert"_s, u"%1"_s} + words
                + QStringList{u"-compress"_s, u"None"_s, u"tiff:%2"_s}};
}

Bar bar(const Job &job, const Command &command, double goal)
{
    return {command.name + ", "_L1 + job.name, Bar::SecondsRatio, goal, our_side(job.change),
            compared_side(command, job.plainly)};
}

QList<Job> jobs()
{
    const auto turned = [](const QImage &page) { return page.transformed(QTransform().rotate(90)); };
    const auto inverted = [](QImage page) {
        page.invertPixels();
        return page;
    };
    const auto cropped = [](const QImage &page) { return page.copy(Quarter); };
    return {
        {.name = u"turn"_s,
         .change = [](ImageDocument &document) { return document.rotate_90(1); },
         .vips = {u"rot"_s, u"%1"_s, u"%2"_s, u"d90"_s},
         .magick = {u"-rotate"_s, u"90"_s},
         .plainly = turned},
        {.name = u"invert"_s,
         .change = [](ImageDocument &document) { return document.invert(1); },
         .vips = {u"invert"_s, u"%1"_s, u"%2"_s},
         .magick = {u"-negate"_s},
         .plainly = inverted},
        {.name = u"crop"_s,
         .change = [](ImageDocument &document) { return document.crop(1, Quarter); },
         .vips = {u"crop"_s, u"%1"_s, u"%2"_s, u"1240"_s, u"1754"_s, u"2480"_s, u"3508"_s},
         .magick = {u"-crop"_s, u"2480x3508+1240+1754"_s, u"+repage"_s},
         .plainly = cropped},
        // Each has a notion of its own of what is bright. That of vips, a factor for each channel, is another job.
        {.name = u"brightness"_s,
         .change = [](ImageDocument &document) { return document.brightness(1, 30); },
         .magick = {u"-modulate"_s, u"130"_s}},
    };
}

QList<Bar> job_bars()
{
    QList<Bar> bars;
    for (const Job &job : jobs()) {
        const Command vips{.name = u"vips"_s, .words = QStringList{u"vips"_s} + job.vips};
        if (!job.vips.isEmpty())
            bars << bar(job, vips, 0.50);
        bars << bar(job, graphics_magick(job.magick), 0.35) << bar(job, image_magick(job.magick), 0.20);
    }
    return bars;
}

} // namespace

QList<Row> rework_rows()
{
    // Dithered, as ours are.
    const Job toBits{.name = u"depth 1"_s,
                     .change = [](ImageDocument &document) { return document.depth_1_bit(1); },
                     .magick = {u"-monochrome"_s}};
    const Job toColors{.name = u"depth 8"_s,
                       .change = [](ImageDocument &document) { return document.depth_8_bit(1); },
                       .magick = {u"-colors"_s, u"256"_s}};
    return {
        {31, u"open, edit and save TIFF"_s, job_bars()},
        {32,
         u"open, change the depth and save TIFF"_s,
         {bar(toBits, graphics_magick(toBits.magick), 0.06), bar(toColors, graphics_magick(toColors.magick), 0.20)}},
    };
}
