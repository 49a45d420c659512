#pragma once

#include "history_steps.h"
#include "HistoryModel.h"

#include <functional>
#include <optional>
#include <utility>

/// Collects what is logged and keeps it from the test's output, where it would be most of a megabyte.
class LineCollector
{
public:
    LineCollector();
    ~LineCollector();
    Q_DISABLE_COPY_MOVE(LineCollector)

    /// The lines since the last call, with the numbers of the files in place of their paths.
    [[nodiscard]] static QStringList take();

private:
    QtMessageHandler former;
};

/// The history and its model, driven by the same choices.
class HistoryPair
{
public:
    /// @param chosen  gives a number of 0 to its argument - 1
    HistoryPair(const TemporaryHome &homeDirectory, std::function<int(int)> chosen) :
        home(homeDirectory),
        choose(std::move(chosen))
    {
    }

    /// One step of both. @return what differs afterwards; empty if nothing does
    [[nodiscard]] QString step();

    /// The files that should lie in the directory, by number and sorted.
    [[nodiscard]] QStringList expectedNumbers() const;

private:
    using Step = bool (UndoHistory::*)(QImage *, QSize *, double *, uint, QString *);
    using ModelStep = std::optional<HistoryModel::Record> (HistoryModel::*)(uint);

    void check(const QString &what, bool isEqual);
    void compareStates();
    void insert();
    [[nodiscard]] bool insert(const HistoryModel::Record &page, HistoryModel::Disk disk);
    void move(const QString &name, Step run, ModelStep runModel);
    void freeRedo();
    void damage(bool deletes);

    const TemporaryHome &home;
    std::function<int(int)> choose;
    UndoHistory history;
    HistoryModel model;
    QString difference;
};
