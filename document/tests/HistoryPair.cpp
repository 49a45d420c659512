#include "HistoryPair.h"

#include "pictures.h"
#include "process_limits.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QStringList &collected_lines()
{
    static QStringList lines;
    return lines;
}

void collect(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString &line)
{
    collected_lines().append(line);
}

QString number_text(int number)
{
    return QString::asprintf("%08X", static_cast<unsigned>(number));
}

} // namespace

LineCollector::LineCollector() : former(qInstallMessageHandler(collect))
{
    collected_lines().clear();
}

LineCollector::~LineCollector()
{
    qInstallMessageHandler(former);
}

QStringList LineCollector::take()
{
    static const QRegularExpression path(u"/\\S+([0-9A-F]{8}\\.bmp)"_s);
    QStringList taken = std::exchange(collected_lines(), {});
    return taken.replaceInStrings(path, u"\\1"_s);
}

QString HistoryPair::step()
{
    const int kind = choose(100);
    if (kind < 40)
        insert();
    else if (kind < 65)
        move(u"undo"_s, &UndoHistory::undo, &HistoryModel::undo);
    else if (kind < 88)
        move(u"redo"_s, &UndoHistory::redo, &HistoryModel::redo);
    else if (kind < 90)
        move(u"rollback"_s, &UndoHistory::rollback, &HistoryModel::rollback);
    else if (kind < 92)
        freeRedo();
    else
        damage(choose(2) == 0);
    compareStates();
    return difference;
}

QStringList HistoryPair::expectedNumbers() const
{
    QStringList numbers;
    for (const int number : model.abandoned)
        numbers.append(number_text(number));
    for (const HistoryModel::Record &record : model.chain) {
        if (record.isThere)
            numbers.append(number_text(record.number));
    }
    numbers.sort();
    return numbers;
}

void HistoryPair::check(const QString &what, bool isEqual)
{
    if (!isEqual && difference.isEmpty())
        difference = what;
}

void HistoryPair::compareStates()
{
    check(u"state"_s, int{history.state()} == model.state);
    check(u"canUndo"_s, history.canUndo() == model.canUndo());
    check(u"canRedo"_s, history.canRedo() == model.canRedo());
    const QStringList lines = LineCollector::take();
    const QStringList expected = model.takeLines();
    check("lines:\n"_L1 + lines.join(u'\n') + "\nexpected:\n"_L1 + expected.join(u'\n'), lines == expected);
}

void HistoryPair::insert()
{
    const HistoryModel::Record page{.color = static_cast<QRgb>(choose(1 << 24)) | 0xff000000U,
                                    .size = QSize(1 + choose(98), 1 + choose(98)),
                                    .zoom = (1 + choose(63)) / 8.0,
                                    .name = choose(20) == 0 ? QString() : number_text(choose(99))};
    const int chance = choose(12);
    const auto disk = chance == 0 ? HistoryModel::Disk::IsFull
        : chance == 1             ? HistoryModel::Disk::RefusesToWrite
                                  : HistoryModel::Disk::Works;
    check(u"result of insert"_s, insert(page, disk) == model.insert(page, disk));
}

bool HistoryPair::insert(const HistoryModel::Record &page, HistoryModel::Disk disk)
{
    std::optional<OtherHome> full;
    std::optional<FileSizeLimit> limit;
    if (disk == HistoryModel::Disk::IsFull)
        full.emplace("/proc");
    if (disk == HistoryModel::Disk::RefusesToWrite)
        limit.emplace(rlim_t{60});
    return history.insert(solid_page({2, 2}, page.color), page.size, page.zoom, page.name);
}

void HistoryPair::move(const QString &name, Step run, ModelStep runModel)
{
    const QList<uint> counts{0, 0, 0, 0, 1, 1, 2, 3, AllSteps};
    const uint steps = counts[choose(static_cast<int>(counts.size()))];
    StepOutputs out;
    const bool done = (history.*run)(&out.image, &out.size, &out.zoom, steps, &out.name);
    const std::optional<HistoryModel::Record> expected = (model.*runModel)(steps);
    check("result of "_L1 + name, done == expected.has_value());
    if (done && expected) {
        check("image of "_L1 + name, picture_differences(out.image, solid_page({2, 2}, expected->color)).isEmpty());
        check("size of "_L1 + name, out.size == expected->size);
        check("zoom of "_L1 + name, out.zoom == expected->zoom);
        check("name of "_L1 + name, out.name == expected->name);
    }
}

void HistoryPair::freeRedo()
{
    history.freeRedo();
    model.freeRedo();
}

/// Another program deletes a snapshot or cuts its last byte off.
void HistoryPair::damage(bool deletes)
{
    if (model.chain.isEmpty())
        return;
    HistoryModel::Record &record = model.chain[choose(static_cast<int>(model.chain.size()))];
    if (!record.isThere)
        return;
    QFile file(snapshot_path(home, number_text(record.number)));
    check(u"damage"_s, deletes ? file.remove() : file.resize(std::max(file.size() - 1, qint64{0})));
    record.isReadable = false;
    record.isThere = !deletes;
}
