// Reads any bytes as a multi-page TIFF file: every page is what a plain use of the library reads, row by row, and comes
// back when it is written.

#include "fuzz_target.h"
#include "ImageDocument.h"
#include "MemoryFile.h"
#include "quiet_toolkit.h"
#include "random_pages.h"
#include "tiff_codec.h"
#include "tiff_diagnostics.h"
#include "tiff_seeds.h"

#include <tiffio.h>

namespace {

constexpr qint64 MostPixels = 1'000'000; ///< that are looked at one by one

bool is_small(const QImage &page)
{
    return qint64{page.width()} * page.height() <= MostPixels;
}

QRgb plain_pixel(const QByteArray &row, int x, int depth)
{
    const auto byte = [&row](qsizetype at) { return at < row.size() ? static_cast<uchar>(row.at(at)) : uchar{0}; };
    if (depth == 32)
        return qRgb(byte(qsizetype{3} * x), byte(qsizetype{3} * x + 1), byte(qsizetype{3} * x + 2));
    return depth == 8 ? byte(x) : byte(x / 8);
}

QRgb page_pixel(const QImage &page, int x, int y)
{
    const uchar *const line = page.constScanLine(y);
    if (page.depth() == 32)
        return reinterpret_cast<const QRgb *>(line)[x];
    return page.depth() == 8 ? line[x] : line[x / 8];
}

/// Whether a page is what the rows of the current directory hold.
bool is_plain_page(TIFF *tif, const QImage &page)
{
    for (int y = 0; y < page.height(); ++y) {
        QByteArray row(TIFFScanlineSize(tif), '\0');
        if (TIFFReadScanline(tif, row.data(), static_cast<quint32>(y), 0) != 1)
            return false;
        for (int x = 0; x < page.width(); ++x) {
            if (page_pixel(page, x, y) != plain_pixel(row, x, page.depth()))
                return false;
        }
    }
    return true;
}

void check_writing(const QImage &page)
{
    const MemoryFile file;
    const QString path = QString::fromStdString(file.path());
    TiffHandle output = open_tiff(path, "w");
    promise(output && writeTiffPage(output.get(), page), "a page that was read can be written");
    output.reset();
    const TiffHandle written = open_tiff(path, "rm");
    QImage again;
    promise(written && readTiffPage(written.get(), again), "a page that was written can be read");
    promise(again.size() == page.size() && again.depth() == page.depth(), "a written page keeps its shape");
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x)
            promise(page_pixel(again, x, y) == page_pixel(page, x, y), "a written page keeps its pixels");
    }
}

void check_page(TIFF *tif, const QImage &page)
{
    promise(!page.isNull() && page.dotsPerMeterX() > 0 && page.dotsPerMeterY() > 0,
            "a page has pixels and a resolution");
    promise(page_formats().contains(page.format()), "a page has one of the formats of pages");
    if (!is_small(page))
        return;
    promise(is_plain_page(tif, page), "a page holds the rows of its directory");
    check_writing(page);
}

} // namespace

std::vector<std::string> fuzz_seeds()
{
    start_quiet_toolkit();
    return tiff_seeds();
}

void try_input(std::span<const std::uint8_t> bytes)
{
    start_quiet_toolkit();
    tell_of_tiff_by_the_toolkit();
    const MemoryFile file(bytes);
    const QString path = QString::fromStdString(file.path());

    ImageDocument document({}, {});
    const bool isLoaded = document.load(path, QStringLiteral("TIFF"));

    promise(!isLoaded || !document.isEmpty(), "a loaded file has a page");
    promise(!isLoaded || !document.isModified(), "a loaded file is not modified");
    const TiffHandle tif = open_tiff(path, "rm");
    promise(tif || document.isEmpty(), "a file with pages can be opened");
    for (uint pi = 1; pi <= document.pageCount(); ++pi) {
        promise(pi == 1 || TIFFReadDirectory(tif.get()) == 1, "a page has a directory");
        check_page(tif.get(), document.page(pi));
    }
}
