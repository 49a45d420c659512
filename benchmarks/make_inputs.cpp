// Makes the pages that the rows open, the same bytes every time:
//
//   make_inputs DIRECTORY [--scale]
//
// Each has paper tint, text, a continuous-tone picture and noise on every pixel, as a scanner delivers them, and
// the mark. Each lies in a directory of its own, since some viewers look at the neighbours too. A file that is there
// already stays. With --scale also the pages of the curves that show where the work grows.

#include "mark.h"
#include "scale_inputs.h"

#include <QDir>
#include <QFileInfo>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QPoint>

#include <tiffio.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <numbers>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize A4(4960, 7016);
constexpr QSize A3(7016, 9921);
constexpr int ManyPages = 20;

struct TiffCloser
{
    void operator()(TIFF *tiff) const { TIFFClose(tiff); }
};
using TiffFile = std::unique_ptr<TIFF, TiffCloser>;

/// Small generator of our own: the standard library's distributions differ between its makers.
class Noise
{
public:
    /// The next number from -amplitude to amplitude.
    int next(int amplitude)
    {
        state ^= state << 13U;
        state ^= state >> 7U;
        state ^= state << 17U;
        const auto range = 2 * static_cast<std::uint64_t>(amplitude) + 1;
        return static_cast<int>((state >> 32U) * range >> 32U) - amplitude;
    }

private:
    std::uint64_t state = 0x9e3779b97f4a7c15;
};

void draw_mark(QPainter &painter, QPoint corner, int stripeWidth, Mark mark)
{
    for (int i = 0; i < MarkStripes; ++i) {
        const QRect stripe(corner.x() + i * stripeWidth, corner.y(), stripeWidth, StripeHeight);
        painter.fillRect(stripe, QColor(i % 2 == 0 ? mark.first : mark.second));
    }
}

void draw_marks(QPainter &painter, QSize size, Mark mark)
{
    draw_mark(painter, QPoint(StripeWidth / 2, StripeWidth / 2), StripeWidth, mark);
    draw_mark(painter, QPoint(size.width() / 2 - 2 * StripeWidth, (size.height() - StripeHeight) / 2), StripeWidth,
              mark);
    draw_mark(painter, QPoint(StripeWidth, size.height() - StripeHeight - StripeWidth), LargeStripeWidth, mark);
}

void draw_text(QPainter &painter, QSize size)
{
    QFont font(u"DejaVu Serif"_s);
    font.setPixelSize(size.height() / 84);
    painter.setFont(font);
    painter.setPen(QColor(35, 32, 40));
    const int lineHeight = size.height() / 60;
    for (int line = 1; line < 54; ++line) {
        const QString text = u"%1  The quick brown fox jumps over the lazy dog, and the page goes on, line by line."_s;
        painter.drawText(QPoint(size.width() / 12, 500 + line * lineHeight), text.arg(line));
    }
}

/// A picture without edges in the lower half of the page: three waves, one for each channel.
QImage tone_picture(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    const auto wave = [](double turns) {
        return static_cast<int>(127.5 + 110 * std::sin(2 * std::numbers::pi * turns));
    };
    for (int y = 0; y < size.height(); ++y) {
        const double v = static_cast<double>(y) / size.height();
        auto *const line = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const double u = static_cast<double>(x) / size.width();
            line[x] = qRgb(wave(u + v * v), wave(1.3 * v - u * u), wave(u * v + 0.3));
        }
    }
    return picture;
}

/// The page before the scanner saw it.
QImage clean_page(QSize size, QColor paper, Mark mark)
{
    QImage page(size, QImage::Format_RGB32);
    page.fill(paper);
    QPainter painter(&page);
    draw_text(painter, size);
    painter.drawImage(QPoint(size.width() / 4, size.height() * 3 / 5),
                      tone_picture({size.width() / 2, size.height() / 4}));
    draw_marks(painter, size, mark);
    return page;
}

/// A colour scan; @p dpi decides the size that the program reports, not the pixels.
QImage colour_page(QSize size, int dpi)
{
    QImage page = clean_page(size, QColor(244, 239, 226), ColourMark);
    Noise noise;
    constexpr int amplitude = 3; // brings the PNG of a page at 600 dpi to about 48 MB
    const auto noisy = [&noise](int value) { return std::clamp(value + noise.next(amplitude), 0, 255); };
    for (int y = 0; y < size.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(page.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            line[x] = qRgb(noisy(qRed(line[x])), noisy(qGreen(line[x])), noisy(qBlue(line[x])));
    }
    page.setDotsPerMeterX(qRound(dpi / 0.0254));
    page.setDotsPerMeterY(page.dotsPerMeterX());
    return page;
}

/// How far the dots of a printing screen raise the limit between black and white at places 0 to @p count.
std::vector<double> screen_swings(int count)
{
    constexpr double cell = 12;
    std::vector<double> swings(static_cast<std::size_t>(count));
    for (int at = 0; at < count; ++at)
        swings[static_cast<std::size_t>(at)] = std::cos(2 * std::numbers::pi * at / cell);
    return swings;
}

/// A line of bits, 1 being black. The tones become the dots of a screen, as in print.
std::vector<uchar> thresholded_line(const QImage &page, int y, const std::vector<double> &swings, Noise &noise)
{
    std::vector<uchar> bits(static_cast<std::size_t>((page.width() + 7) / 8));
    const auto *const line = reinterpret_cast<const QRgb *>(page.constScanLine(y));
    const double ySwing = swings[static_cast<std::size_t>(y)];
    for (int x = 0; x < page.width(); ++x) {
        const int limit = 128 + static_cast<int>(50 * (swings[static_cast<std::size_t>(x)] + ySwing)) + noise.next(8);
        if (qGray(line[x]) < std::clamp(limit, 20, 235))
            bits[static_cast<std::size_t>(x / 8)] |= static_cast<uchar>(0x80 >> x % 8);
    }
    return bits;
}

TiffFile open_tiff(const QString &path)
{
    return TiffFile(TIFFOpen(QFile::encodeName(path).constData(), "w"));
}

void set_tags(TIFF *file, QSize size, int dpi, int bits, int samples)
{
    TIFFSetField(file, TIFFTAG_IMAGEWIDTH, size.width());
    TIFFSetField(file, TIFFTAG_IMAGELENGTH, size.height());
    TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, bits);
    TIFFSetField(file, TIFFTAG_SAMPLESPERPIXEL, samples);
    TIFFSetField(file, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(file, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
    TIFFSetField(file, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
    TIFFSetField(file, TIFFTAG_XRESOLUTION, static_cast<double>(dpi));
    TIFFSetField(file, TIFFTAG_YRESOLUTION, static_cast<double>(dpi));
}

bool write_colour_tiff(const QString &path)
{
    const QImage page = colour_page(A4, 600).convertToFormat(QImage::Format_RGB888);
    const TiffFile file = open_tiff(path);
    if (!file)
        return false;
    set_tags(file.get(), A4, 600, 8, 3);
    TIFFSetField(file.get(), TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(file.get(), TIFFTAG_COMPRESSION, COMPRESSION_NONE);
    TIFFSetField(file.get(), TIFFTAG_ROWSPERSTRIP, 64);
    std::vector<uchar> line(static_cast<std::size_t>(3 * A4.width()));
    for (int y = 0; y < A4.height(); ++y) {
        std::copy_n(page.constScanLine(y), line.size(), line.begin());
        if (TIFFWriteScanline(file.get(), line.data(), static_cast<uint32_t>(y), 0) < 0)
            return false;
    }
    return true;
}

/// The page of a file that is open, or the next one.
bool write_black_page(TIFF *file, const QImage &page, int dpi, int compression, Noise &noise)
{
    set_tags(file, page.size(), dpi, 1, 1);
    TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISWHITE);
    TIFFSetField(file, TIFFTAG_COMPRESSION, compression);
    TIFFSetField(file, TIFFTAG_ROWSPERSTRIP, page.height());
    const std::vector<double> swings = screen_swings(std::max(page.width(), page.height()));
    for (int y = 0; y < page.height(); ++y) {
        std::vector<uchar> line = thresholded_line(page, y, swings, noise);
        if (TIFFWriteScanline(file, line.data(), static_cast<uint32_t>(y), 0) < 0)
            return false;
    }
    return TIFFWriteDirectory(file) == 1;
}

bool write_black_tiff(const QString &path, QSize size, int dpi)
{
    Noise noise;
    const TiffFile file = open_tiff(path);
    const QImage page = clean_page(size, Qt::white, BlackMark);
    return file && write_black_page(file.get(), page, dpi, COMPRESSION_CCITTFAX4, noise);
}

/// The noise goes on from page to page, so no two are alike.
bool write_many_pages(const QString &path, int compression, int count = ManyPages, int dpi = 300)
{
    Noise noise;
    const TiffFile file = open_tiff(path);
    const QImage page = clean_page(A4 * dpi / 600, Qt::white, BlackMark);
    for (int i = 0; i < count; ++i) {
        if (!file || !write_black_page(file.get(), page, dpi, compression, noise))
            return false;
    }
    return true;
}

/// Hardly more than the mark, for the start of a window alone.
bool write_mark(const QString &path)
{
    QImage picture(StripeWidth * (MarkStripes + 1), StripeHeight + StripeWidth, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    draw_mark(painter, QPoint(StripeWidth / 2, StripeWidth / 2), StripeWidth, ColourMark);
    painter.end();
    return picture.save(path, "png");
}

/// Limits under which ImageMagick takes many pages at once. Those of its package are too low.
bool write_limits(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(R"(<policymap>
  <policy domain="resource" name="memory" value="8GiB"/>
  <policy domain="resource" name="map" value="8GiB"/>
  <policy domain="resource" name="area" value="4GP"/>
  <policy domain="resource" name="disk" value="8GiB"/>
</policymap>
)") > 0 && file.flush();
}

bool write_by_toolkit(const QString &path, const char *format, const QImage &page)
{
    QImageWriter writer(path, format);
    if (qstrcmp(format, "jpeg") == 0)
        writer.setQuality(88);
    return writer.write(page);
}

struct Input
{
    QString name;
    std::function<bool(const QString &)> write;
};

const QList<Input> &inputs()
{
    static const QList<Input> all{
        {u"a4_300_jpeg/page.jpg"_s,
         [](const QString &path) { return write_by_toolkit(path, "jpeg", colour_page(A4 / 2, 300)); }},
        {u"a4_600_jpeg/page.jpg"_s,
         [](const QString &path) { return write_by_toolkit(path, "jpeg", colour_page(A4, 600)); }},
        {u"a4_600_png/page.png"_s,
         [](const QString &path) { return write_by_toolkit(path, "png", colour_page(A4, 600)); }},
        {u"a4_600_tiff/page.tif"_s, write_colour_tiff},
        {u"a4_600_1bit_tiff/page.tif"_s, [](const QString &path) { return write_black_tiff(path, A4, 600); }},
        {u"pages_tiff/pages.tif"_s, [](const QString &path) { return write_many_pages(path, COMPRESSION_NONE); }},
        {u"pages_group4/pages.tif"_s,
         [](const QString &path) { return write_many_pages(path, COMPRESSION_CCITTFAX4); }},
        {u"pages_500_group4/pages.tif"_s,
         [](const QString &path) { return write_many_pages(path, COMPRESSION_CCITTFAX4, 500, 150); }},
        {u"mark/mark.png"_s, write_mark},
        {u"imagemagick/policy.xml"_s, write_limits},
        {u"a3_600_jpeg/page.jpg"_s,
         [](const QString &path) { return write_by_toolkit(path, "jpeg", colour_page(A3, 600)); }},
    };
    return all;
}

QList<Input> scale_inputs()
{
    QList<Input> all;
    for (const ScalePage &page : scale_pages(32))
        all.append({page.path(), [page](const QString &path) {
                        return write_by_toolkit(path, "jpeg", colour_page(page.size, page.dpi));
                    }});
    for (const ScalePage &page : scale_pages(1))
        all.append({page.path(), [page](const QString &path) { return write_black_tiff(path, page.size, page.dpi); }});
    for (const int count : ScaleCounts)
        all.append({scale_file(count), [count](const QString &path) {
                        return write_many_pages(path, COMPRESSION_CCITTFAX4, count, 150);
                    }});
    return all;
}

/// Written under another name first, so that an interrupted run leaves no half of a page behind.
bool make(const Input &input, const QDir &directory)
{
    if (directory.exists(input.name))
        return true;
    const QString unfinished = directory.filePath(u"unfinished"_s);
    QFile::remove(unfinished);
    std::puts(qPrintable(input.name));
    return directory.mkpath(QFileInfo(input.name).path()) && input.write(unfinished)
        && QFile::rename(unfinished, directory.filePath(input.name));
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const bool withScale = argc == 3 && qstrcmp(argv[2], "--scale") == 0;
    if (argc != 2 && !withScale) {
        std::fputs("usage: make_inputs DIRECTORY [--scale]\n", stderr);
        return 2;
    }
    const QDir directory(QFile::decodeName(argv[1]));
    if (!directory.mkpath(u"."_s))
        return 1;
    for (const Input &input : inputs() + (withScale ? scale_inputs() : QList<Input>())) {
        if (!make(input, directory)) {
            std::fprintf(stderr, "make_inputs: cannot write %s\n", qPrintable(input.name));
            return 1;
        }
    }
    return 0;
}
