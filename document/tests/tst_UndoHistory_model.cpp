#include "history_steps.h"
#include "HistoryModel.h"
#include "pictures.h"
#include "process_limits.h"

#include <QFile>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int StepCount = 10'000;

/// Collects what is logged and keeps it from the test's output, where it would be most of a megabyte.
class LineCollector
{
public:
    LineCollector() : former(qInstallMessageHandler(&LineCollector::receive)) { lines().clear(); }
    ~LineCollector() { qInstallMessageHandler(former); }
    Q_DISABLE_COPY_MOVE(LineCollector)

    /// The lines since the last call, with the numbers of the files in place of their paths.
    [[nodiscard]] static QStringList take()
    {
        static const QRegularExpression path(u"/\\S+([0-9A-F]{8}\\.bmp)"_s);
        QStringList taken = std::exchange(lines(), {});
        return taken.replaceInStrings(path, u"\\1"_s);
    }

private:
    static QStringList &lines()
    {
        static QStringList collected;
        return collected;
    }
    static void receive(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString &line)
    {
        lines().append(line);
    }

    QtMessageHandler former;
};

/// The history and its model, driven by the same numbers by chance.
class Pair
{
public:
    Pair(const TemporaryHome &homeDirectory, quint32 seed) : home(homeDirectory), random(seed) { }

    /// One random step of both. @return what differs afterwards; empty if nothing does
    QString step()
    {
        const int kind = random.bounded(100);
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
            damage(random.bounded(2) == 0);
        compareStates();
        return difference;
    }

    /// The files that should lie in the directory, by number and sorted.
    [[nodiscard]] QStringList expectedNumbers() const
    {
        QStringList numbers;
        for (const int number : model.abandoned)
            numbers.append(numberText(number));
        for (const HistoryModel::Record &record : model.chain) {
            if (record.isThere)
                numbers.append(numberText(record.number));
        }
        numbers.sort();
        return numbers;
    }

private:
    using Step = bool (UndoHistory::*)(QImage *, QSize *, double *, uint, QString *);
    using ModelStep = std::optional<HistoryModel::Record> (HistoryModel::*)(uint);

    static QString numberText(int number) { return QString::asprintf("%08X", static_cast<unsigned>(number)); }

    void check(const QString &what, bool isEqual)
    {
        if (!isEqual && difference.isEmpty())
            difference = what;
    }

    void compareStates()
    {
        check(u"state"_s, int{history.state()} == model.state);
        check(u"canUndo"_s, history.canUndo() == model.canUndo());
        check(u"canRedo"_s, history.canRedo() == model.canRedo());
        const QStringList lines = LineCollector::take();
        const QStringList expected = model.takeLines();
        check("lines:\n"_L1 + lines.join(u'\n') + "\nexpected:\n"_L1 + expected.join(u'\n'), lines == expected);
    }

    void insert()
    {
        const HistoryModel::Record page{.color = random.generate() | 0xff000000U,
                                        .size = QSize(random.bounded(1, 99), random.bounded(1, 99)),
                                        .zoom = random.bounded(1, 64) / 8.0,
                                        .name = random.bounded(20) == 0 ? QString() : numberText(random.bounded(99))};
        const int chance = random.bounded(12);
        const auto disk = chance == 0 ? HistoryModel::Disk::IsFull
            : chance == 1             ? HistoryModel::Disk::RefusesToWrite
                                      : HistoryModel::Disk::Works;
        check(u"result of insert"_s, insert(page, disk) == model.insert(page, disk));
    }

    bool insert(const HistoryModel::Record &page, HistoryModel::Disk disk)
    {
        std::optional<OtherHome> full;
        std::optional<FileSizeLimit> limit;
        if (disk == HistoryModel::Disk::IsFull)
            full.emplace("/proc");
        if (disk == HistoryModel::Disk::RefusesToWrite)
            limit.emplace(rlim_t{60});
        return history.insert(solid_page({2, 2}, page.color), page.size, page.zoom, page.name);
    }

    void move(const QString &name, Step run, ModelStep runModel)
    {
        const QList<uint> counts{0, 0, 0, 0, 1, 1, 2, 3, AllSteps};
        const uint steps = counts[random.bounded(counts.size())];
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

    void freeRedo()
    {
        history.freeRedo();
        model.freeRedo();
    }

    /// Another program deletes a snapshot or cuts its last byte off.
    void damage(bool deletes)
    {
        if (model.chain.isEmpty())
            return;
        HistoryModel::Record &record = model.chain[random.bounded(model.chain.size())];
        if (!record.isThere)
            return;
        QFile file(snapshot_path(home, numberText(record.number)));
        check(u"damage"_s, deletes ? file.remove() : file.resize(file.size() - 1));
        record.isReadable = false;
        record.isThere = !deletes;
    }

    const TemporaryHome &home;
    QRandomGenerator random;
    UndoHistory history;
    HistoryModel model;
    QString difference;
};

} // namespace

class tst_UndoHistory_model : public QObject
{
    Q_OBJECT

private slots:
    void randomStepsGoAsInThePlainModel_data();
    void randomStepsGoAsInThePlainModel();
};

void tst_UndoHistory_model::randomStepsGoAsInThePlainModel_data()
{
    QTest::addColumn<quint32>("seed");

    for (const quint32 seed : {1U, 2U, 3U})
        QTest::addRow("seed %u", seed) << seed;
}

void tst_UndoHistory_model::randomStepsGoAsInThePlainModel()
{
    QFETCH(const quint32, seed);
    const TemporaryHome home;
    const LineCollector collector;
    Pair pair(home, seed);

    for (int i = 0; i < StepCount; ++i) {
        const QString difference = pair.step();
        QVERIFY2(difference.isEmpty(), qPrintable(u"step %1: %2"_s.arg(i).arg(difference)));
        if (i % 200 == 0)
            QCOMPARE(numbers_in(home), pair.expectedNumbers());
    }
}

QTEST_GUILESS_MAIN(tst_UndoHistory_model)
#include "tst_UndoHistory_model.moc"
