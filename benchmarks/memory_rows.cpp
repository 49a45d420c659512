// Memory during edits and saves, as the system counts it for a process that does nothing else.

#include "measured_pages.h"
#include "process_memory.h"
#include "Row.h"

#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr double PageBytes = 4 * 4960.0 * 7016.0; ///< A4 at 600 dpi with 32 bits a pixel
constexpr int ManyEdits = 20;
constexpr auto Tiff = "a4_600_tiff/page.tif";
constexpr auto BlackTiff = "a4_600_1bit_tiff/page.tif";

/// Edits that keep the size of the page.
const std::array<MeasuredPage::Edit, 5> &same_size_edits()
{
    constexpr int percent = 30;
    static const std::array<MeasuredPage::Edit, 5> edits{
        [](ImageDocument &document) { return document.rotate_180(1); },
        [](ImageDocument &document) { return document.flip_horizontally(1); },
        [](ImageDocument &document) { return document.invert(1); },
        [](ImageDocument &document) { return document.brightness(1, percent); },
        [](ImageDocument &document) { return document.contrast(1, percent); },
    };
    return edits;
}

bool edit_repeatedly(MeasuredPage &page, int count)
{
    for (int i = 0; i < count; ++i) {
        if (!page.editWithSnapshot(same_size_edits().at(static_cast<std::size_t>(i) % same_size_edits().size())))
            return false;
    }
    return true;
}

bool save(MeasuredPage &page, NewFiles &files)
{
    return page.edit([&files](ImageDocument &document) { return document.save(files.next(), u"TIFF"_s); });
}

/// Opens a page and gives what @p measure finds. What is counted beforehand is the process without a page.
Side measured_side(const char *input,
                   const std::function<std::optional<double>(MeasuredPage &page, double bareBytes)> &measure)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto page = std::make_shared<MeasuredPage>();
        return [=, path = input_path(input, surroundings), bareBytes = resident_memory()] {
            const std::optional<double> bytes = page->open(path) ? measure(*page, bareBytes) : std::nullopt;
            page->beEmpty();
            return bytes;
        };
    };
    return {u"ImageDocument"_s, Side::OwnProcess, prepare};
}

/// A process like that of the other side, without a page, and @p pages of 32 bits.
Side bare_side(int pages)
{
    const auto prepare = [=](const Surroundings &) -> Round {
        return [=] { return resident_memory() + pages * PageBytes; };
    };
    return {u"bare process + pages"_s, Side::OwnProcess, prepare};
}

Side page_bytes_side()
{
    return {u"decoded bytes"_s, Side::Here, [](const Surroundings &) -> Round { return [] { return PageBytes; }; }};
}

std::optional<double> peak_of_edits_and_save(MeasuredPage &page, double /*bareBytes*/)
{
    NewFiles files;
    restart_peak_count();
    const bool good = edit_repeatedly(page, static_cast<int>(same_size_edits().size())) && save(page, files);
    return good ? std::optional(peak_memory()) : std::nullopt;
}

std::optional<double> extra_peak_of_rotation(MeasuredPage &page, double bareBytes)
{
    restart_peak_count();
    const bool good = page.editWithSnapshot([](ImageDocument &document) { return document.rotate_90(1); });
    return good ? std::optional(peak_memory() - bareBytes) : std::nullopt;
}

std::optional<double> extra_peak_of_save(MeasuredPage &page, double /*bareBytes*/)
{
    NewFiles files;
    restart_peak_count();
    const double before = resident_memory();
    return save(page, files) ? std::optional(peak_memory() - before) : std::nullopt;
}

std::function<std::optional<double>(MeasuredPage &page, double bareBytes)> resident_after_edits(int count)
{
    return [=](MeasuredPage &page, double /*bareBytes*/) {
        return edit_repeatedly(page, count) ? std::optional(resident_memory()) : std::nullopt;
    };
}

} // namespace

QList<Row> memory_rows()
{
    return {
        {47,
         u"peak memory, same-size edits and save"_s,
         {{u"2 x decoded bytes + bare process"_s, Bar::BytesExcess, 16, measured_side(Tiff, peak_of_edits_and_save),
           bare_side(2)}}},
        {48,
         u"peak memory, 1-bit rotate"_s,
         {{u"decoded bytes at 32 bit"_s, Bar::BytesRatio, 0.12, measured_side(BlackTiff, extra_peak_of_rotation),
           page_bytes_side()}}},
        {49,
         u"extra memory of save TIFF"_s,
         {{u"decoded bytes"_s, Bar::BytesRatio, 0.01, measured_side(Tiff, extra_peak_of_save), page_bytes_side()}}},
        {50,
         u"resident set after 20 same-size edits"_s,
         {{u"after the first"_s, Bar::BytesRatio, 1.10, measured_side(Tiff, resident_after_edits(ManyEdits)),
           measured_side(Tiff, resident_after_edits(1))}}},
    };
}
