#include "picture_readings.h"

#include "descriptor.h"
#include "first_picture.h"
#include "image_files.h"
#include "image_memory.h"
#include "jpeg_page.h"
#include "page_image.h"
#include "pictures.h"
#include "png_file.h"

#include <QColorSpace>
#include <QFile>
#include <QImageReader>

#include <sys/mman.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// A page, and the lines that came while it was made.
struct Reading
{
    QImage page;
    QStringList lines;
};

QStringList *heardLines = nullptr;

void hear(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString &line)
{
    heardLines->append(line);
}

/// The PNG library writes its errors to standard error by itself.
template <typename Read> Reading heard(const Read &read)
{
    Reading reading;
    const Descriptor file(memfd_create("lines", MFD_CLOEXEC));
    const Descriptor former(dup(STDERR_FILENO));
    dup2(file.get(), STDERR_FILENO);
    heardLines = &reading.lines;
    const QtMessageHandler formerHandler = qInstallMessageHandler(hear);
    reading.page = read();
    qInstallMessageHandler(formerHandler);
    dup2(former.get(), STDERR_FILENO);
    QFile lines;
    lseek(file.get(), 0, SEEK_SET);
    if (lines.open(file.get(), QIODevice::ReadOnly))
        reading.lines += QString::fromLocal8Bit(lines.readAll()).split(u'\n', Qt::SkipEmptyParts);
    return reading;
}

} // namespace

QImage read_by_the_toolkit(const QString &path, const char *word)
{
    limit_image_readers();
    QFile file(path);
    (void)file.open(QIODevice::ReadOnly);
    QImageReader reader(&file, word);
    if (reader.size().isValid()) // asked as for every file, which has a broken one told of more than once
        (void)reader.imageFormat();
    return to_page_image(reader.read());
}

bool is_read_here(const QString &path, const char *word)
{
    const auto read = qstrcmp(word, "png") == 0 ? read_plain_png : read_plain_jpeg;
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && !heard([read, &file] { return read(file); }).page.isNull();
}

QString differences_to_the_toolkit(const QString &path, const char *word)
{
    const Reading expected = heard([&path, word] { return read_by_the_toolkit(path, word); });
    const Reading actual = heard([&path, word] { return read_first_picture(path, QLatin1StringView(word)); });
    const QImage &page = actual.page;
    const QImage &other = expected.page;
    if (actual.lines != expected.lines)
        return "lines: "_L1 + actual.lines.join(u'|') + " for "_L1 + expected.lines.join(u'|');
    if (page.format() != other.format() || page != other || page.colorTable() != other.colorTable())
        return "pixels: "_L1 + picture_differences(page, other);
    if (page.dotsPerMeterX() != other.dotsPerMeterX() || page.dotsPerMeterY() != other.dotsPerMeterY())
        return u"resolution"_s;
    if (page.textKeys() != other.textKeys() || page.text() != other.text())
        return "texts: "_L1 + page.text() + " for "_L1 + other.text();
    if (page.colorSpace() != other.colorSpace() || page.offset() != other.offset()
        || !qFuzzyCompare(page.devicePixelRatio(), other.devicePixelRatio()))
        return u"colour space, offset or scale"_s;
    return {};
}

const QList<PlainPng> &plain_kinds()
{
    static const QList<PlainPng> kinds{{.kind = 0},
                                       {.kind = 2},
                                       {.kind = 3},
                                       {.kind = 6},
                                       {.bits = 1, .kind = 0},
                                       {.bits = 1, .kind = 3, .colors = 2}};
    return kinds;
}

PlainPng with_chunks(PlainPng png, const QByteArray &before, const QByteArray &after)
{
    png.before = before;
    png.after = after;
    return png;
}

QByteArray phys(qint64 x, qint64 y, char unit)
{
    return png_chunk("pHYs", big32(x) + big32(y) + QByteArray(1, unit));
}
