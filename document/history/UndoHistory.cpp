#include "UndoHistory.h"

#include "private_file.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstring>
#include <ctime>
#include <memory>
#include <sys/vfs.h>

using namespace Qt::StringLiterals;

UndoHistory::UndoHistory()
{
    namer.prefix = safeCreateTempDir() + u'/' + QString::number(std::time(nullptr));
    items.setAutoDelete(true);
}

bool UndoHistory::canUndo() const
{
    if (items.isEmpty())
        return false;
    return state_ == Undone ? items.current() != items.getFirst() : state_ != Empty;
}

bool UndoHistory::canRedo() const
{
    if (items.isEmpty())
        return false;
    // Intended: no mirror image of canUndo(). After an undo there is always something to redo, even if
    // the step ended on the last item.
    return state_ == Redone ? items.current() != items.getLast() : state_ == Undone;
}

bool UndoHistory::canInsert(const QImage &image) const
{
    // Intended: even on a full disk. The page equals the current item, so nothing will be written.
    if (state_ == Undone || state_ == Redone)
        return true;
    struct statfs disk = {};
    if (::statfs(QFile::encodeName(safeCreateTempDir()).constData(), &disk) != 0) {
        qDebug("UndoHistory::canInsert - statfs failed! %s", std::strerror(errno));
        return false;
    }
    return snapshot_fits(static_cast<quint32>(image.sizeInBytes()), static_cast<quint32>(disk.f_bsize), disk.f_bavail);
}

bool UndoHistory::insert(const QImage &image, const QSize &size, double zoom, const QString &name)
{
    freeRedo();
    if (state_ == Undone || state_ == Redone) {
        // Intended: no file, also on a chain that freeRedo() has emptied. The page is that of the current
        // item, and after a failed edit it has only just been read back.
        state_ = Edited;
        return true;
    }
    if (name.isEmpty()) {
        qDebug("UndoHistory::insert - no operation name given!");
        return false;
    }
    if (!canInsert(image)) {
        qDebug("UndoHistory::insert - image cannot be inserted!");
        return false;
    }
    qDebug("UndoHistory::insert");
    std::unique_ptr<UndoHistoryItem> item;
    bool isSaved = false;
    do { // past names of others: a history begun in the same second, or a file that somebody planted
        item = std::make_unique<UndoHistoryItem>(name, namer.next());
        isSaved = item->save(image, size, zoom);
    } while (!isSaved && item->isNameTaken());
    if (!isSaved) {
        qDebug("UndoHistory::insert - error saving file");
        item->abandon(); // Intended: what was written stays on disk, to be looked at.
        return false;
    }
    items.append(item.release());
    state_ = Edited;
    qDebug("UndoHistory::insert exit: chain items = %d", items.count());
    return true;
}

bool UndoHistory::undo(QImage *image, QSize *size, double *zoom, uint steps, QString *name)
{
    if (!image || !size || !zoom) {
        qDebug("UndoHistory::undo - bad output parameter!!!");
        return false;
    }
    if (!canUndo()) {
        qDebug("UndoHistory::undo - fatal - nothing to undo!!!");
        return false;
    }
    qDebug("UndoHistory::undo");
    const UndoHistoryItem *const start = items.current();

    // After an edit the newest item is the state just left, so zero steps already lands on it.
    for (quint64 left = quint64{steps} + (state_ == Edited ? 0 : 1); left > 0; --left) {
        qDebug("UndoHistory::undo - inside loop");
        if (items.current() == items.getFirst())
            break;
        items.prev();
    }

    if (!loadCurrent(image, size, zoom, name)) {
        qDebug("UndoHistory::undo - error loading image!");
        // The caller keeps its page, so the chain has to stand where that page is.
        while (items.current() != start)
            items.next();
        return false;
    }
    state_ = Undone;
    qDebug("UndoHistory::undo exit: chain items = %d", items.count());
    return true;
}

bool UndoHistory::redo(QImage *image, QSize *size, double *zoom, uint steps, QString *name)
{
    if (!image || !size || !zoom) {
        qDebug("UndoHistory::redo - bad output parameter!!!");
        return false;
    }
    // Intended: goes on. At the end of the chain the last item is read once more.
    if (!canRedo())
        qDebug("UndoHistory::redo - fatal - nothing to redo!!!");
    qDebug("UndoHistory::redo");
    const UndoHistoryItem *const start = items.current();

    // Intended: the count wraps around, so the largest number of steps is no step.
    for (uint left = steps + 1; left > 0 && items.current() != items.getLast(); --left)
        items.next();

    if (!loadCurrent(image, size, zoom, name)) {
        qDebug("UndoHistory::redo - error loading image!");
        while (items.current() != start)
            items.prev();
        return false;
    }
    state_ = Redone;
    qDebug("UndoHistory::redo exit: chain items = %d", items.count());
    return true;
}

bool UndoHistory::rollback(QImage *image, QSize *size, double *zoom, uint steps, QString *name)
{
    if (!undo(image, size, zoom, steps, name)) {
        qDebug("UndoHistory::rollback - error undoing!");
        return false;
    }
    freeRedo();
    qDebug("UndoHistory::rollback exit: chain items = %d", items.count());
    return true;
}

void UndoHistory::freeRedo()
{
    if (!canRedo()) {
        qDebug("UndoHistory::freeRedo - no redo items");
        return;
    }
    // Intended: at least one item goes. If the current one is the last, it goes first, the loop never
    // meets it again and the whole chain is deleted: a failed edit costs all of the past.
    const int kept = items.at();
    while (items.removeLast() && items.at() != kept) { }
    qDebug("UndoHistory::freeRedo exit: chain items = %d", items.count());
}

bool UndoHistory::loadCurrent(QImage *image, QSize *size, double *zoom, QString *name) const
{
    const UndoHistoryItem *const item = items.current();
    if (!item || !item->load(image, size, zoom))
        return false;
    if (name)
        *name = item->name();
    return true;
}

QString UndoHistory::Namer::next()
{
    // Counted before use: the first file of a chain is number 00000001.
    ++counter;
    return prefix + QString::asprintf("%08lX", counter);
}

QString safeCreateTempDir()
{
    QString home = QDir::homePath();
    QString path = home + "/tmp"_L1;
    // For the user alone: pages may be private.
    if (QDir(path).exists() || make_private_directory(path))
        return path;
    // The misspelt word is part of the line, as others may look for it.
    qDebug("safeCreateTempDir - unable to creade directory %s!", qUtf8Printable(path));
    return home;
}

bool snapshot_fits(quint32 imageBytes, quint32 blockBytes, quint64 freeBlocks)
{
    constexpr quint32 HeadersAndTable = 4096;
    // Intended: the sum wraps around. No page comes near 4 GiB.
    return blockBytes != 0 && (imageBytes + HeadersAndTable) / blockBytes < freeBlocks;
}
