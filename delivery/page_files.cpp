#include "page_files.h"

#include "page_dither.h"
#include "page_png.h"
#include "snapshot_file.h"
#include "snapshot_rows.h"

#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QRandomGenerator>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
#include <span>
#include <sys/stat.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Some systems say only now that they cannot keep what they were given.
bool close_safely(QFile &file)
{
    const bool isGood = file.error() == QFileDevice::NoError; // closing forgets it
    file.close();
    return isGood && file.error() == QFileDevice::NoError;
}

/// The page without transparency, which no BMP file of the toolkit has. Shares the pixels of @p page, which has to
/// outlive it.
QImage opaque_view(const QImage &page)
{
    if (page.format() == QImage::Format_ARGB32) {
        QImage view(page.constBits(), page.width(), page.height(), page.bytesPerLine(), QImage::Format_RGB32);
        view.setDotsPerMeterX(page.dotsPerMeterX());
        view.setDotsPerMeterY(page.dotsPerMeterY());
        return view;
    }
    QList<QRgb> table = page.colorTable();
    if (std::ranges::all_of(table, [](QRgb color) { return qAlpha(color) == 0xff; }))
        return page;
    for (QRgb &color : table)
        color |= 0xff000000;
    QImage view = page;
    view.setColorTable(table);
    return view;
}

/// The page in black and white, each bit where PBM has it.
QImage black_and_white(const QImage &page)
{
    return page.depth() == 32 ? dithered_page(page, QImage::Format_Mono) : page.convertToFormat(QImage::Format_Mono);
}

/// Whether the bits have to be exchanged, since 1 is black in PBM. Equal colours stay as they are.
bool has_dark_color_first(const QImage &mono)
{
    return mono.colorCount() == 2 && qGray(mono.color(0)) < qGray(mono.color(1));
}

QByteArray pbm_bytes(const QImage &mono)
{
    const QByteArray header =
        "P4\n" + QByteArray::number(mono.width()) + ' ' + QByteArray::number(mono.height()) + '\n';
    const auto lineBytes = (static_cast<std::size_t>(mono.width()) + 7) / 8;
    const auto unusedBits = static_cast<unsigned>(8 * lineBytes - static_cast<std::size_t>(mono.width()));
    const bool isFlipped = has_dark_color_first(mono);

    QByteArray bytes = header;
    bytes.resize(header.size() + static_cast<qsizetype>(lineBytes) * mono.height());
    auto *to = reinterpret_cast<uchar *>(bytes.data()) + header.size();
    for (int y = 0; y < mono.height(); ++y, to += lineBytes) {
        const std::span<const uchar> line(mono.constScanLine(y), lineBytes);
        if (isFlipped)
            flip_bits(line, {to, lineBytes});
        else
            std::memcpy(to, line.data(), lineBytes);
        to[lineBytes - 1] = static_cast<uchar>(to[lineBytes - 1] & 0xffU << unusedBits);
    }
    return bytes;
}

constexpr auto PlaceOfTemporaryFiles = "/tmp"_L1;

QString random_letters(int count)
{
    constexpr auto Letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"_L1;
    QString letters;
    for (int i = 0; i < count; ++i)
        letters += Letters.at(QRandomGenerator::system()->bounded(Letters.size()));
    return letters;
}

bool exists(const QString &path)
{
    using FileStatus = struct stat;
    FileStatus status{};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0; // a link to nowhere exists too
}

} // namespace

bool write_editor_file(const QString &path, const QImage &page)
{
    if (page.isNull())
        return false;
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && write_bmp(file, opaque_view(page));
}

bool write_recogniser_file(const QString &path, const QImage &page)
{
    const QImage mono = black_and_white(page);
    if (mono.isNull())
        return false;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    const QByteArray bytes = pbm_bytes(mono);
    const bool isWritten = file.write(bytes) == bytes.size();
    return close_safely(file) && isWritten;
}

QString print_file_name()
{
    constexpr int Attempts = 1000;
    constexpr int Letters = 6;
    if (!QFileInfo(PlaceOfTemporaryFiles).isDir())
        return {};
    for (int i = 0; i < Attempts; ++i) {
        QString name = PlaceOfTemporaryFiles + "/file"_L1 + random_letters(Letters);
        if (!exists(name))
            return name;
    }
    return {};
}

bool create_print_file(const QString &path, QFile &file)
{
    const int descriptor =
        ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    return descriptor >= 0
        && file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
}

bool write_print_file(QFile &file, const QImage &page)
{
    const bool isWritten = write_png(file, page);
    return close_safely(file) && isWritten;
}
