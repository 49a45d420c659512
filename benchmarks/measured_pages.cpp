#include "measured_pages.h"

#include "page_buffers.h"

#include <QFile>
#include <QImageReader>

#include <cstring>
#include <utility>

using namespace Qt::StringLiterals;

QString input_path(const char *name, const Surroundings &surroundings)
{
    return surroundings.inputs + u'/' + QString::fromLatin1(name);
}

QImage load_page(int depth, const Surroundings &surroundings)
{
    const char *const name = depth == 1 ? "a4_600_1bit_tiff/page.tif" : "a4_600_tiff/page.tif";
    const QImage page = QImageReader(input_path(name, surroundings)).read();
    if (depth != 8)
        return depth == 1 ? page : page.convertToFormat(QImage::Format_RGB32);

    const QImage grey = page.convertToFormat(QImage::Format_Grayscale8);
    QImage indexed(grey.size(), QImage::Format_Indexed8);
    for (int i = 0; i < 256; ++i)
        indexed.setColor(i, qRgb(i, i, i));
    for (int y = 0; y < grey.height(); ++y)
        std::memcpy(indexed.scanLine(y), grey.constScanLine(y), static_cast<std::size_t>(grey.width()));
    return indexed;
}

QImage load_small_page(const Surroundings &surroundings)
{
    return QImageReader(input_path("a4_300_jpeg/page.jpg", surroundings)).read().convertToFormat(QImage::Format_RGB32);
}

std::optional<double> timed(const std::function<bool()> &work)
{
    bool good = false;
    const double seconds = seconds_of([&] { good = work(); });
    return good ? std::optional(seconds) : std::nullopt;
}

QString NewFiles::next()
{
    if (count > 0)
        QFile::remove(last);
    last = directory.filePath(QString::number(++count) + ending);
    return last;
}

void MeasuredPage::beNew()
{
    putOriginal();
    drop_spare_page();
}

void MeasuredPage::beEdited()
{
    putOriginal();
    putOriginal(); // in other memory; that of the former page is to be had again
}

void MeasuredPage::beEmpty()
{
    while (document.pageCount() > 0)
        document.removePage(1);
    shownPage = {};
    history.reset();
    drop_spare_page();
}

bool MeasuredPage::open(const QString &path)
{
    beEmpty();
    if (!document.load(path, path.endsWith(".tif"_L1) ? u"TIFF"_s : QString()))
        return false;
    shownPage = std::as_const(document).page(1);
    return true;
}

void MeasuredPage::putOriginal()
{
    QImage page = new_page_like(original, original.size());
    std::memcpy(page.bits(), original.constBits(), static_cast<std::size_t>(original.sizeInBytes()));
    if (!(document.isEmpty() ? document.addPage(page) : document.setPage(1, page)))
        qFatal("the document refused the page");
    shownPage = std::move(page);
    history.reset();
}

bool MeasuredPage::edit(const Edit &edit)
{
    if (!edit(document))
        return false;
    shownPage = std::as_const(document).page(1);
    return true;
}

bool MeasuredPage::editWithSnapshot(const Edit &change)
{
    history.emplace();
    return insert() && edit(change);
}

bool MeasuredPage::undoEdit()
{
    return insert() && step(&UndoHistory::undo, 1);
}

bool MeasuredPage::insert()
{
    const QImage page = std::as_const(document).page(1);
    return history->insert(page, page.size(), 1.0, u"operation"_s);
}

bool MeasuredPage::step(Step way, uint steps)
{
    QImage page;
    QSize size;
    double zoom = 1.0;
    if (!((*history).*way)(&page, &size, &zoom, steps, nullptr) || !document.setPage(1, page))
        return false;
    shownPage = std::as_const(document).page(1);
    return true;
}
