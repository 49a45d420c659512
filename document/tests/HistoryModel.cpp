#include "HistoryModel.h"

#include <algorithm>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString file_of(int number)
{
    return QString::asprintf("%08X.bmp", static_cast<unsigned>(number));
}

QString file_line(const QString &step, const HistoryModel::Record &record)
{
    return u"UndoHistoryItem::%1 n=%2, z=%3, w=%4, h=%5"_s.arg(step, file_of(record.number))
        .arg(record.zoom)
        .arg(record.size.width())
        .arg(record.size.height());
}

} // namespace

bool HistoryModel::canUndo() const
{
    if (chain.isEmpty())
        return false;
    return state == 0 || state == 2 || (state == 1 && current > 0);
}

bool HistoryModel::canRedo() const
{
    if (chain.isEmpty())
        return false;
    return state == 1 || (state == 2 && current < chain.size() - 1);
}

bool HistoryModel::insert(const Record &page, Disk disk)
{
    freeRedo();
    if (state == 1 || state == 2) {
        state = 0;
        return true;
    }
    if (page.name.isEmpty()) {
        log(u"UndoHistory::insert - no operation name given!"_s);
        return false;
    }
    if (disk == Disk::IsFull) {
        log(u"safeCreateTempDir - unable to creade directory /proc/tmp!"_s);
        log(u"UndoHistory::insert - image cannot be inserted!"_s);
        return false;
    }
    log(u"UndoHistory::insert"_s);
    log(u"UndoHistoryItem"_s);
    Record record = page;
    record.number = ++counter;
    if (disk == Disk::RefusesToWrite) {
        abandoned.append(record.number);
        log("UndoHistoryItem::save - error saving image "_L1 + file_of(record.number) + u'!');
        log(u"UndoHistory::insert - error saving file"_s);
        return false;
    }
    log(file_line(u"save"_s, record));
    chain.append(record);
    current = static_cast<int>(chain.size()) - 1;
    state = 0;
    log(u"UndoHistory::insert exit: chain items = %1"_s.arg(chain.size()));
    return true;
}

std::optional<HistoryModel::Record> HistoryModel::undo(uint steps)
{
    if (!canUndo()) {
        log(u"UndoHistory::undo - fatal - nothing to undo!!!"_s);
        return std::nullopt;
    }
    log(u"UndoHistory::undo"_s);
    const qint64 wanted = qint64{steps} + (state == 0 ? 0 : 1);
    const int moves = static_cast<int>(std::min<qint64>(wanted, current));
    const bool meetsTheFirst = wanted > moves;
    for (int i = 0; i < moves + (meetsTheFirst ? 1 : 0); ++i)
        log(u"UndoHistory::undo - inside loop"_s);
    std::optional<Record> record = read(current - moves, u"undo"_s);
    if (record)
        state = 1;
    return record;
}

std::optional<HistoryModel::Record> HistoryModel::redo(uint steps)
{
    if (!canRedo())
        log(u"UndoHistory::redo - fatal - nothing to redo!!!"_s);
    log(u"UndoHistory::redo"_s);
    const qint64 wanted = steps == std::numeric_limits<uint>::max() ? 0 : qint64{steps} + 1;
    std::optional<Record> record =
        read(static_cast<int>(std::min<qint64>(current + wanted, chain.size() - 1)), u"redo"_s);
    if (record)
        state = 2;
    return record;
}

std::optional<HistoryModel::Record> HistoryModel::rollback(uint steps)
{
    std::optional<Record> record = undo(steps);
    if (!record) {
        log(u"UndoHistory::rollback - error undoing!"_s);
        return std::nullopt;
    }
    freeRedo();
    log(u"UndoHistory::rollback exit: chain items = %1"_s.arg(chain.size()));
    return record;
}

void HistoryModel::freeRedo()
{
    if (!canRedo()) {
        log(u"UndoHistory::freeRedo - no redo items"_s);
        return;
    }
    const bool costsAll = current == chain.size() - 1;
    while (chain.size() > (costsAll ? 0 : current + 1))
        dropLast();
    if (costsAll)
        current = -1;
    log(u"UndoHistory::freeRedo exit: chain items = %1"_s.arg(chain.size()));
}

void HistoryModel::dropLast()
{
    const Record record = chain.takeLast();
    log(u"~UndoHistoryItem"_s);
    if (!record.isThere)
        log("~UndoHistoryItem - error removing image "_L1 + file_of(record.number) + u'!');
}

std::optional<HistoryModel::Record> HistoryModel::read(int place, const QString &step)
{
    if (place < 0 || !chain[place].isReadable) {
        if (place >= 0)
            log("UndoHistoryItem::load - error loading image "_L1 + file_of(chain[place].number) + u'!');
        log(u"UndoHistory::%1 - error loading image!"_s.arg(step));
        return std::nullopt;
    }
    current = place;
    log(file_line(u"load"_s, chain[place]));
    log(u"UndoHistory::%1 exit: chain items = %2"_s.arg(step).arg(chain.size()));
    return chain[place];
}

QStringList HistoryModel::takeLines()
{
    return std::exchange(lines, {});
}
