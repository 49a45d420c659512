#pragma once

#include "ImageDocument.h"
#include "Row.h"
#include "UndoHistory.h"

#include <QImage>
#include <QTemporaryDir>

#include <chrono>
#include <functional>
#include <optional>
#include <utility>

/// The pages of the inputs, and what the window does with one.

/// A4 at 600 dpi, of depth 1, 8 or 32.
[[nodiscard]] QImage load_page(int depth, const Surroundings &surroundings);
/// A4 at 300 dpi in colour.
[[nodiscard]] QImage load_small_page(const Surroundings &surroundings);

/// Where an input lies.
[[nodiscard]] QString input_path(const char *name, const Surroundings &surroundings);

template <typename Work> [[nodiscard]] double seconds_of(const Work &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// A round of some work: its seconds, or nothing when it answers false.
[[nodiscard]] std::optional<double> timed(const std::function<bool()> &work);

/// Names of files that are not there yet, in a directory that goes with the object.
class NewFiles
{
public:
    /// @param nameEnding  of each name
    explicit NewFiles(QString nameEnding = {}) : ending(std::move(nameEnding)) { }

    /// Removes the file of the last call and gives a name for another one.
    [[nodiscard]] QString next();

private:
    QTemporaryDir directory;
    QString ending;
    QString last;
    int count = 0;
};

/// A page under edit, held as the window holds it: in a document, with its pixels shared by a view, and with a
/// history.
class MeasuredPage
{
public:
    using Edit = std::function<bool(ImageDocument &)>;

    /// @param source  what beNew() and beEdited() make the page; not needed for open()
    explicit MeasuredPage(QImage source = {}) : original(std::move(source)), document({}, {}) { }

    /// As after the opening of a file: nothing is left of earlier pages.
    void beNew();
    /// As after an edit that kept the size of the page.
    void beEdited();
    /// Holds no page any more.
    void beEmpty();
    /// Opens a file, all pages of a TIFF file, with nothing left of earlier pages.
    [[nodiscard]] bool open(const QString &path);

    [[nodiscard]] bool edit(const Edit &edit);
    /// The whole of what an edit costs, snapshot included; each begins a history of its own.
    [[nodiscard]] bool editWithSnapshot(const Edit &change);

    /// The steps of the history, the first undo after an edit with its snapshot of the present page.
    [[nodiscard]] bool undoEdit();
    [[nodiscard]] bool undoFurther() { return step(&UndoHistory::undo, 0); }
    [[nodiscard]] bool redo() { return step(&UndoHistory::redo, 0); }

    [[nodiscard]] const QImage &shown() const { return shownPage; }

private:
    using Step = bool (UndoHistory::*)(QImage *, QSize *, double *, uint, QString *);

    void putOriginal();
    [[nodiscard]] bool insert();
    [[nodiscard]] bool step(Step way, uint steps);

    QImage original;
    QImage shownPage; ///< what a view would share
    ImageDocument document;
    std::optional<UndoHistory> history;
};
