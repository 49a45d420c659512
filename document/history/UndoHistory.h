#pragma once

#include "Q3PtrList.h"
#include "UndoHistoryItem.h"

#include <QImage>
#include <QSize>
#include <QString>

/// Past states of a page, kept on disk as a chain of BMP files so that undo costs disk, not memory.
///
/// The chain knows no document and no tab: it is handed images and gives images back.
///
/// Units:     sizes in image pixels; zoom as a factor, 1.0 being one screen pixel per image pixel.
/// Errors:    answered by the bool and a qDebug() line; nothing is thrown, nothing is shown.
///            A failed step back or forward leaves position, state and outputs as they were.
/// Ownership: the chain owns its items and each item its file; destroying the chain deletes them.
/// Threads:   GUI thread only.
class UndoHistory
{
public:
    /// How the page on screen relates to the chain. The values are fixed.
    enum State : int {
        Edited = 0, ///< last step was insert(): the page is on no file
        Undone = 1, ///< last step was undo(): the page equals the current item
        Redone = 2, ///< last step was redo(): the page equals the current item
        Empty = 3, ///< nothing has happened yet
    };

    /// Makes the directory of the snapshots if it is missing. The names of the files begin with the
    /// second of the construction.
    UndoHistory();
    Q_DISABLE_COPY_MOVE(UndoHistory) // two owners would delete the same files

    [[nodiscard]] State state() const { return state_; }
    [[nodiscard]] bool canUndo() const;
    [[nodiscard]] bool canRedo() const;
    /// Whether there is room for a snapshot of @p image on the disk, if insert() would write one.
    [[nodiscard]] bool canInsert(const QImage &image) const;

    /// Records the page before an edit, and drops what lay ahead. After a step back or forward the
    /// current item is that record already, and no file is written.
    /// @param name  what is going to be done; must not be empty
    [[nodiscard]] bool insert(const QImage &image, const QSize &size, double zoom, const QString &name);

    /// Goes @p steps back, one more unless an edit came last, stopping at the first item.
    /// @param[out] image, size, zoom  must not be null
    /// @param[out] name               may be null
    [[nodiscard]] bool undo(QImage *image, QSize *size, double *zoom, uint steps, QString *name);

    /// Goes @p steps and one more forward, stopping at the last item; the outputs are those of undo().
    [[nodiscard]] bool redo(QImage *image, QSize *size, double *zoom, uint steps, QString *name);

    /// Undoes an edit that failed, and drops what lay ahead. Without any step back that is the whole chain.
    [[nodiscard]] bool rollback(QImage *image, QSize *size, double *zoom, uint steps, QString *name);

    /// Drops the items after the current one with their files; all items if an undo() ended on the last.
    void freeRedo();

private:
    /// Makes names of files: a prefix and a number, none of them twice. insert() passes over those that are taken.
    struct Namer
    {
        QString prefix;
        unsigned long counter = 0;

        [[nodiscard]] QString next();
    };

    [[nodiscard]] bool loadCurrent(QImage *image, QSize *size, double *zoom, QString *name) const;

    State state_ = Empty;
    Namer namer;
    Q3PtrList<UndoHistoryItem> items; ///< its cursor is the position in the chain
};

/// The directory for snapshots, "tmp" in the user's home, which is made, for the user alone, if it is missing.
/// @return the home itself if that fails
[[nodiscard]] QString safeCreateTempDir();

/// Whether a file of an image fits on a disk: it must need fewer blocks than there are.
/// @param imageBytes  in memory; the file's headers are reckoned with 4096 bytes
/// @param blockBytes  0 on a file system that does not tell; nothing fits then
[[nodiscard]] bool snapshot_fits(quint32 imageBytes, quint32 blockBytes, quint64 freeBlocks);
