#pragma once

#include <QList>
#include <QRgb>
#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

/// The history as plainly as it can be told: a list of records and a number. It touches no disk and writes
/// down what the history has to log, with the numbers of the files in place of their paths.
class HistoryModel
{
public:
    struct Record
    {
        QRgb color = 0;
        QSize size;
        double zoom = 0.0;
        QString name;
        int number = 0; ///< of the file
        bool isReadable = true;
        bool isThere = true;
    };

    enum class Disk { Works, IsFull, RefusesToWrite };

    [[nodiscard]] bool canUndo() const;
    [[nodiscard]] bool canRedo() const;

    [[nodiscard]] bool insert(const Record &page, Disk disk);
    /// The page that the step leads to, or nothing if it fails.
    [[nodiscard]] std::optional<Record> undo(uint steps);
    [[nodiscard]] std::optional<Record> redo(uint steps);
    [[nodiscard]] std::optional<Record> rollback(uint steps);
    void freeRedo();

    /// The lines since the last call.
    [[nodiscard]] QStringList takeLines();

    int state = 3;
    QList<Record> chain;
    int current = -1; ///< place in the chain
    QList<int> abandoned; ///< numbers of files that no record stands for
    int counter = 0;

private:
    void log(const QString &line) { lines.append(line); }
    void dropLast();
    [[nodiscard]] std::optional<Record> read(int place, const QString &step);

    QStringList lines;
};
