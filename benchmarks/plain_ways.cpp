#include "plain_ways.h"

#include <QColor>
#include <QFile>
#include <QTransform>

#include <algorithm>
#include <fcntl.h>
#include <tiffio.h>
#include <unistd.h>
#include <vector>

namespace {

struct Bounds
{
    int minimum = 255;
    int maximum = 0;

    void include(int value)
    {
        if (value < minimum)
            minimum = value;
        else if (value > maximum)
            maximum = value;
    }
    [[nodiscard]] int stretched(int value, int percent) const
    {
        const int range = maximum - minimum + 1;
        return std::clamp((value - minimum) * (percent + 100) * 256 / (range * 100), 0, 255);
    }
};

} // namespace

QImage brightened_plainly(const QImage &page, int percent)
{
    QImage result = page.copy();
    for (int y = 0; y < result.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x)
            line[x] = QColor(line[x]).lighter(100 + percent).rgb();
    }
    return result;
}

QImage contrasted_plainly(const QImage &page, int percent)
{
    QImage result = page.copy();
    Bounds red, green, blue;
    for (int y = 0; y < result.height(); ++y) {
        const auto *const line = reinterpret_cast<const QRgb *>(result.constScanLine(y));
        for (int x = 0; x < result.width(); ++x) {
            red.include(qRed(line[x]));
            green.include(qGreen(line[x]));
            blue.include(qBlue(line[x]));
        }
    }
    for (int y = 0; y < result.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x)
            line[x] = qRgba(red.stretched(qRed(line[x]), percent), green.stretched(qGreen(line[x]), percent),
                            blue.stretched(qBlue(line[x]), percent), qAlpha(line[x]));
    }
    return result;
}

QImage mono_plainly(const QImage &page)
{
    constexpr int LowestWhiteSum = 387;
    QImage mono(page.size(), QImage::Format_Mono);
    mono.setColorTable({0xffffffff, 0xff000000});
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            const QRgb word = page.pixel(x, y);
            mono.setPixel(x, y, qRed(word) + qGreen(word) + qBlue(word) < LowestWhiteSum ? 1 : 0);
        }
    }
    return mono;
}

QImage turned_mono_plainly(const QImage &page)
{
    return mono_plainly(page.convertToFormat(QImage::Format_RGB32).transformed(QTransform(0, -1, 1, 0, 0, 0)));
}

QImage scaled_mono_plainly(const QImage &page, double factor)
{
    const QSize size = (QSizeF(page.size()) * factor).toSize();
    const QImage wide = page.convertToFormat(QImage::Format_RGB32);
    return mono_plainly(wide.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

bool write_bytes(const QString &path, const QByteArray &bytes)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (file < 0)
        return false;
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t count = ::write(file, bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done));
        if (count < 0)
            break;
        done += count;
    }
    const bool isFlushed = ::fsync(file) == 0;
    return ::close(file) == 0 && isFlushed && done == bytes.size();
}

bool copy_file(const QString &from, const QString &to)
{
    QFile source(from);
    QFile copy(to);
    if (!source.open(QIODevice::ReadOnly) || !copy.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    constexpr qint64 BlockBytes = qint64{64} * 1024;
    while (!source.atEnd()) {
        const QByteArray block = source.read(BlockBytes);
        if (block.isEmpty() || copy.write(block) != block.size())
            return false;
    }
    return copy.flush() && ::fsync(copy.handle()) == 0;
}

bool save_tiff_plainly(const QString &path, const QImage &page)
{
    TIFF *const file = TIFFOpen(QFile::encodeName(path).constData(), "w");
    if (!file)
        return false;
    constexpr int samples = 3;
    TIFFSetField(file, TIFFTAG_COMPRESSION, COMPRESSION_NONE);
    TIFFSetField(file, TIFFTAG_IMAGEWIDTH, page.width());
    TIFFSetField(file, TIFFTAG_IMAGELENGTH, page.height());
    TIFFSetField(file, TIFFTAG_SAMPLESPERPIXEL, samples);
    TIFFSetField(file, TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(file, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(file, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(file, TIFFTAG_RESOLUTIONUNIT, RESUNIT_CENTIMETER);
    TIFFSetField(file, TIFFTAG_XRESOLUTION, page.dotsPerMeterX() / 100.0);
    TIFFSetField(file, TIFFTAG_YRESOLUTION, page.dotsPerMeterY() / 100.0);
    bool good = true;
    for (int y = 0; good && y < page.height(); ++y) {
        std::vector<uchar> row(static_cast<std::size_t>(samples * page.width())); // one a line, as one writes it
        uchar *to = row.data();
        const auto *const line = reinterpret_cast<const QRgb *>(page.constScanLine(y));
        for (int x = 0; x < page.width(); ++x) {
            *to++ = static_cast<uchar>(qRed(line[x]));
            *to++ = static_cast<uchar>(qGreen(line[x]));
            *to++ = static_cast<uchar>(qBlue(line[x]));
        }
        good = TIFFWriteScanline(file, row.data(), static_cast<quint32>(y), 0) == 1;
    }
    TIFFClose(file);
    return good;
}
