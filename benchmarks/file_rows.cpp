// Opening and saving, against the toolkit's own calls and against other programs.

#include "flushes.h"
#include "measured_pages.h"
#include "other_commands.h"
#include "plain_ways.h"
#include "Row.h"

#include <QFile>
#include <QImageWriter>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr auto Tiff = "a4_600_tiff/page.tif";
constexpr auto ManyPages = "pages_tiff/pages.tif";
constexpr auto ManyPagesGroup4 = "pages_group4/pages.tif";
constexpr auto FiveHundredPages = "pages_500_group4/pages.tif";

/// @param reused  another page of that size was closed before
Side open_side(bool reused)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto former = std::make_shared<MeasuredPage>(load_page(32, surroundings));
        return [=, path = input_path(Tiff, surroundings)] {
            if (reused) {
                former->beEdited();
            } else {
                former->beEmpty();
            }
            std::optional<ImageDocument> document; // outlives the measuring
            return timed([&] {
                document.emplace(path, u"TIFF"_s);
                return !document->isEmpty();
            });
        };
    };
    return {u"ImageDocument"_s, Side::OwnProcess, prepare};
}

Side toolkit_open_side()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        return [path = input_path(Tiff, surroundings)] {
            QImage image;
            return timed([&] { return image.load(path); });
        };
    };
    return {u"QImage::load"_s, Side::OwnProcess, prepare};
}

using LoadPage = std::function<QImage(const Surroundings &)>;

QImage load_large_page(const Surroundings &surroundings)
{
    return load_page(32, surroundings);
}

/// @param flushed  to the disk
Side save_side(const QString &format, const LoadPage &load, bool flushed = false)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        let_files_be_flushed(flushed);
        const auto document = std::make_shared<ImageDocument>(QString(), QString());
        if (!document->addPage(load(surroundings)))
            qFatal("the document refused the page");
        const auto files = std::make_shared<NewFiles>();
        return [=] {
            const QString path = files->next();
            return timed([&] { return document->save(path, format); });
        };
    };
    return {u"ImageDocument"_s, Side::OwnProcess, prepare};
}

using WritePage = std::function<bool(const QString &path, const QImage &page)>;

Side plain_save_side(const QString &name, const LoadPage &load, const WritePage &write)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto files = std::make_shared<NewFiles>();
        return [=, page = load(surroundings)] {
            const QString path = files->next();
            return timed([&] { return write(path, page); });
        };
    };
    return {name, Side::OwnProcess, prepare};
}

/// The bytes of the page's TIFF file.
Side tiff_bytes_side(bool flushed = false)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        let_files_be_flushed(flushed);
        const auto files = std::make_shared<NewFiles>();
        QFile file(files->next());
        if (!save_tiff_plainly(file.fileName(), load_page(32, surroundings)) || !file.open(QIODevice::ReadOnly))
            qFatal("cannot make the file");
        return [=, bytes = file.readAll()] {
            const QString path = files->next();
            return timed([&] { return write_bytes(path, bytes); });
        };
    };
    return {flushed ? u"write(2) + fsync(2)"_s : u"write(2)"_s, Side::OwnProcess, prepare};
}

Row save_row(int number, const QString &format)
{
    const auto byWriter = [format](const QString &path, const QImage &page) {
        return QImageWriter(path, format.toLatin1()).write(page);
    };
    return {number,
            u"save as "_s + format,
            {{u"QImageWriter"_s, Bar::SecondsRatio, 1.05, save_side(format, load_small_page),
              plain_save_side(u"QImageWriter"_s, load_small_page, byWriter)}}};
}

/// Loads all pages and saves them uncompressed.
Side rewrite_side(const char *input)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto files = std::make_shared<NewFiles>();
        return [=, path = input_path(input, surroundings)] {
            const QString copy = files->next();
            return timed([&] {
                ImageDocument document(path, u"TIFF"_s);
                return document.pageCount() > 1 && document.save(copy, u"TIFF"_s);
            });
        };
    };
    return {u"ImageDocument"_s, Side::OwnProcess, prepare};
}

/// Saves the first page over its file, which keeps all others.
Side save_first_side(const char *input)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        let_files_be_flushed(false);
        const auto files = std::make_shared<NewFiles>();
        const QString path = files->next();
        if (!copy_file(input_path(input, surroundings), path))
            qFatal("cannot copy the file");
        const auto document = std::make_shared<ImageDocument>(path, u"tif"_s);
        if (!document->hasKeptPages())
            qFatal("the file has one page");
        return [=, lifetime = files] { return timed([&] { return document->save(path, u"tif"_s); }); };
    };
    return {u"ImageDocument"_s, Side::OwnProcess, prepare};
}

Side copy_side(const char *input)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        let_files_be_flushed(false);
        const auto files = std::make_shared<NewFiles>();
        return [=, path = input_path(input, surroundings)] {
            const QString copy = files->next();
            return timed([&] { return copy_file(path, copy); });
        };
    };
    return {u"read and write"_s, Side::OwnProcess, prepare};
}

Bar rewrite_bar(const char *input, double goal, const Command &command)
{
    return {command.name, Bar::SecondsRatio, goal, rewrite_side(input), command_side(command, input)};
}

} // namespace

QList<Row> file_rows()
{
    const Command tiffcp{.name = u"tiffcp"_s, .words = {u"tiffcp"_s, u"-c"_s, u"none"_s, u"%1"_s, u"%2"_s}};
    const Command vips{.name = u"vips"_s,
                       .words = {u"vips"_s, u"tiffsave"_s, u"%1[n=-1]"_s, u"%2"_s, u"--bitdepth"_s, u"1"_s}};
    const Command imageMagick = image_magick({});
    return {
        {11,
         u"open TIFF, 104 MB"_s,
         {{u"QImage::load, first"_s, Bar::SecondsRatio, 0.80, open_side(false), toolkit_open_side()},
          {u"QImage::load, buffer reused"_s, Bar::SecondsRatio, 0.30, open_side(true), toolkit_open_side()}}},
        {30,
         u"save TIFF"_s,
         {{u"write(2)"_s, Bar::SecondsRatio, 2.2, save_side(u"TIFF"_s, load_large_page), tiff_bytes_side()},
          {u"plain scan-line loop"_s, Bar::SecondsRatio, 0.40, save_side(u"TIFF"_s, load_large_page),
           plain_save_side(u"plain loop"_s, load_large_page, save_tiff_plainly)}}},
        {33,
         u"20 pages: load all + save all"_s,
         {rewrite_bar(ManyPages, 0.60, tiffcp), rewrite_bar(ManyPages, 0.06, vips),
          rewrite_bar(ManyPages, 0.012, imageMagick)}},
        {34, u"20 pages, group 4: load all + save all"_s, {rewrite_bar(ManyPagesGroup4, 0.95, tiffcp)}},
        {55,
         u"500 pages, group 4: save the first"_s,
         {{u"copy of the file"_s, Bar::SecondsRatio, 2.0, save_first_side(FiveHundredPages),
           copy_side(FiveHundredPages)}}},
        save_row(61, u"PNG"_s),
        save_row(62, u"JPEG"_s),
        save_row(63, u"BMP"_s),
        {64,
         u"save TIFF to the disk"_s,
         {{u"write(2) + fsync(2)"_s, Bar::SecondsRatio, 1.3, save_side(u"TIFF"_s, load_large_page, true),
           tiff_bytes_side(true)}}},
    };
}
