#include "ImageDocument.h"

#include "page_crop.h"
#include "page_image.h"

#include <QDir>
#include <QStringList>

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The list's entry of a one-based page number.
auto page_at(auto &pages, uint pi)
{
    return std::next(pages.begin(), static_cast<int>(pi) - 1);
}

} // namespace

ImageDocument::ImageDocument(const QString &filePath, const QString &imgFormat)
{
    // Intended: the result is dropped. An empty or half loaded document is for the caller to judge.
    (void)load(filePath, imgFormat);
}

void ImageDocument::setFileName(const QString &name)
{
    fileInfo.setFile(fileInfo.dir(), name);
}

void ImageDocument::setModified(bool value)
{
    modified = value;
    // Intended: also when nothing changed. Tabs take their mark from the last signal, not from a change.
    emit modifiedStateChanged(value);
}

QString ImageDocument::dump() const
{
    const QStringList lines{
        u"isEmpty: %1"_s.arg(int{isEmpty()}),       u"pageCount: %1"_s.arg(pageCount()),
        u"hasFile: %1"_s.arg(int{hasFile()}),       u"fileName: %1"_s.arg(fileName()),
        u"filePath: %1"_s.arg(filePath()),          u"imgFormat: %1"_s.arg(imgFormat()),
        u"isModified: %1"_s.arg(int{isModified()}),
    };
    return lines.join(u'\n');
}

bool ImageDocument::addPage(const QImage &img)
{
    if (img.isNull())
        return false;
    pages.push_back(with_positive_resolution(img));
    setModified(true);
    return true;
}

void ImageDocument::removePage(uint pi)
{
    pages.erase(page_at(pages, pi));
    setModified(true);
}

void ImageDocument::swapPages(uint pi1, uint pi2)
{
    std::iter_swap(page_at(pages, pi1), page_at(pages, pi2));
    setModified(true);
}

QImage &ImageDocument::page(uint pi)
{
    return *page_at(pages, pi);
}

const QImage &ImageDocument::page(uint pi) const
{
    return *page_at(pages, pi);
}

bool ImageDocument::setPage(uint pi, const QImage &img)
{
    if (img.isNull())
        return false;
    page(pi) = img;
    setModified(true);
    return true;
}

bool ImageDocument::crop(uint pi, const QRect &rubber)
{
    return setPage(pi, cropped(page(pi), rubber));
}
