#include "UndoHistoryItem.h"

#include "snapshot_file.h"

#include <QFile>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

void log_step(const char *step, const QString &fileName, double zoom, QSize size)
{
    qDebug("UndoHistoryItem::%s n=%s, z=%g, w=%d, h=%d", step, qUtf8Printable(fileName), zoom, size.width(),
           size.height());
}

} // namespace

UndoHistoryItem::UndoHistoryItem(QString operationName, const QString &baseFileName) :
    name_(std::move(operationName)),
    fileName_(baseFileName + ".bmp"_L1)
{
    qDebug("UndoHistoryItem");
}

UndoHistoryItem::~UndoHistoryItem()
{
    if (fileName_.isEmpty())
        return;
    qDebug("~UndoHistoryItem");
    if (!QFile::remove(fileName_))
        qDebug("~UndoHistoryItem - error removing image %s!", qUtf8Printable(fileName_));
}

bool UndoHistoryItem::save(const QImage &image, const QSize &size, double zoom)
{
    if (!write_snapshot(fileName_, image, &nameTaken)) {
        qDebug("UndoHistoryItem::save - error saving image %s!", qUtf8Printable(fileName_));
        if (nameTaken)
            abandon(); // not to be deleted
        return false;
    }
    hadAlphaFormat = image.format() == QImage::Format_ARGB32;
    zoom_ = zoom;
    size_ = size;
    log_step("save", fileName_, zoom_, size_);
    return true;
}

bool UndoHistoryItem::load(QImage *image, QSize *size, double *zoom) const
{
    if (!image || !size || !zoom) {
        qDebug("UndoHistoryItem::load - bad parameter!!!");
        return false;
    }
    QImage page = read_snapshot(fileName_);
    if (page.isNull()) {
        qDebug("UndoHistoryItem::load - error loading image %s!", qUtf8Printable(fileName_));
        return false;
    }
    // A page of a format with alpha keeps it also where all is opaque.
    if (hadAlphaFormat && page.format() == QImage::Format_RGB32)
        (void)page.reinterpretAsFormat(QImage::Format_ARGB32); // of the same depth, which is all it takes
    log_step("load", fileName_, zoom_, size_);
    *image = std::move(page);
    *size = size_;
    *zoom = zoom_;
    return true;
}

void UndoHistoryItem::abandon()
{
    fileName_.clear();
}
