// Loads any bytes by any word: a page comes out as a page has to be, the same one each time, or nothing.

#include "fuzz_target.h"
#include "FuzzInput.h"
#include "image_files.h"
#include "ImageDocument.h"
#include "MemoryFile.h"
#include "odd_files.h"
#include "page_image.h"
#include "pictures.h"
#include "plain_pngs.h"
#include "quiet_toolkit.h"
#include "random_pages.h"
#include "tiff_diagnostics.h"
#include "tiff_seeds.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageReader>
#include <QImageWriter>

#include <malloc.h>

using namespace Qt::StringLiterals;

namespace {

/// Words that a file may be loaded by; their places in the list are part of the inputs.
const QStringList &words()
{
    static const QStringList list = [] {
        // In an order of our own: that of the toolkit depends on the plug-ins.
        QStringList all{{},       u"TIFF"_s, u"tiff"_s, u"MTIFF"_s, u"bmp"_s, u"cur"_s, u"gif"_s, u"icns"_s, u"ico"_s,
                        u"jpg"_s, u"JPEG"_s, u"mng"_s,  u"pbm"_s,   u"pgm"_s, u"png"_s, u"ppm"_s, u"svg"_s,  u"svgz"_s,
                        u"tga"_s, u"tif"_s,  u"wbmp"_s, u"webp"_s,  u"xbm"_s, u"xpm"_s, u"PNG"_s, u"none"_s};
        for (const QByteArray &format : QImageReader::supportedImageFormats()) {
            if (!all.contains(QString::fromLatin1(format)))
                all.append(QString::fromLatin1(format));
        }
        return all;
    }();
    return list;
}

std::string with_word(const QString &word, const QByteArray &bytes)
{
    return static_cast<char>(words().indexOf(word)) + bytes.toStdString();
}

/// Fills memory that is handed out by the system's allocator, so that pixels which nobody wrote show.
void fill_new_memory(int byte)
{
    mallopt(M_PERTURB, byte);
}

void check_page(const QImage &page)
{
    promise(!page.isNull() && page.dotsPerMeterX() > 0 && page.dotsPerMeterY() > 0,
            "a page has pixels and a resolution");
    promise(page_formats().contains(page.format()), "a page has one of the formats of pages");
    const bool isIndexed = page.format() == QImage::Format_Indexed8;
    constexpr qint64 MostPixels = 1'000'000;
    if (!isIndexed || qint64{page.width()} * page.height() > MostPixels)
        return;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x)
            promise(page.constScanLine(y)[x] < page.colorCount(), "each index has a colour");
    }
}

void check_document(const ImageDocument &document, const QString &word, bool isLoaded)
{
    promise(!isLoaded || (!document.isEmpty() && !document.isModified()), "a loaded file has a page");
    if (word == "TIFF"_L1)
        return; // has a target of its own
    promise(isLoaded != document.isEmpty() && document.pageCount() <= 1, "one page or none");
    if (isLoaded)
        check_page(document.page(1));
    promise(document.pictureCount() >= document.pageCount(), "no picture is forgotten");
}

/// What the toolkit alone makes of a PNG file, which is read by a reader of our own where it is a plain one.
QImage png_page_by_the_toolkit(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    (void)buffer.open(QIODevice::ReadOnly);
    return to_page_image(QImageReader(&buffer, "png").read());
}

void check_png(const ImageDocument &document, const QByteArray &bytes)
{
    constexpr qsizetype bitsAt = 24;
    constexpr char wideBits = 16;
    if (bytes.size() <= bitsAt || bytes[bitsAt] == wideBits)
        return; // shown otherwise than by the toolkit
    const QImage expected = png_page_by_the_toolkit(bytes);
    promise(document.isEmpty() == expected.isNull(), "a PNG file is taken where the toolkit takes it");
    if (expected.isNull())
        return;
    const QImage &page = document.page(1);
    promise(page == expected && page.format() == expected.format() && page.colorTable() == expected.colorTable(),
            "a PNG file has the toolkit's pixels");
    promise(page.text() == expected.text() && page.dotsPerMeterX() == expected.dotsPerMeterX()
                && page.dotsPerMeterY() == expected.dotsPerMeterY() && page.colorSpace() == expected.colorSpace(),
            "a PNG file tells what it tells the toolkit");
}

} // namespace

std::vector<std::string> fuzz_seeds()
{
    start_quiet_toolkit();
    std::vector<std::string> seeds;
    for (const QByteArray &format : QImageWriter::supportedImageFormats()) {
        for (const int depth : {1, 8, 32})
            seeds.push_back(with_word(QString::fromLatin1(format), encoded(patterned_page({9, 7}, depth), format)));
    }
    for (const OddFile &file : odd_files()) {
        if (file.bytes.size() < 8000)
            seeds.push_back(with_word(file.word, file.bytes));
    }
    for (const int kind : {0, 2, 3, 6}) {
        const QByteArray texts = png_chunk("tEXt", QByteArray("Title\0A scan", 12));
        seeds.push_back(with_word(u"png"_s, PlainPng{.size = QSize(9, 7), .kind = kind, .before = texts}.file()));
    }
    for (const std::string &file : tiff_seeds())
        seeds.push_back(with_word(u"tiff"_s, QByteArray::fromStdString(file)));
    seeds.push_back(with_word(u"gif"_s, small_gif()));
    seeds.push_back(with_word(u"svg"_s,
                              "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"7\">"
                              "<rect width=\"5\" height=\"3\" fill=\"#f00\"/><text x=\"1\" y=\"6\">a</text></svg>"));
    return seeds;
}

void try_input(std::span<const std::uint8_t> bytes)
{
    start_quiet_toolkit();
    tell_of_tiff_by_the_toolkit();
    FuzzInput input(bytes);
    const QString &word = words().at(input.below(static_cast<int>(words().size())));
    const MemoryFile file(bytes.last(bytes.empty() ? 0 : bytes.size() - 1));
    const QString path = QString::fromStdString(file.path());

    fill_new_memory(0x11);
    ImageDocument document({}, {});
    const bool isLoaded = document.load(path, word);
    fill_new_memory(0xee);
    const ImageDocument again(path, word);

    check_document(document, word, isLoaded);
    if (word.compare("png"_L1, Qt::CaseInsensitive) == 0)
        check_png(document, file_bytes(path));
    promise(again.loadStatus == ImageDocument::LoadOther, "the file was there");
    promise(again.pageCount() == document.pageCount(), "a file gives as many pages each time");
    if (!document.isEmpty())
        promise(document.page(1) == again.page(1), "a file gives the same page each time");
}
