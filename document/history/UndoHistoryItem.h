#pragma once

#include <QImage>
#include <QSize>
#include <QString>

/// One past state of a page: a snapshot file, and what is needed beside it to bring the state back.
///
/// Units:     sizes in image pixels; zoom as a factor, 1.0 being one screen pixel per image pixel.
/// Errors:    answered by the bool and a qDebug() line; a failure leaves all outputs as they were.
/// Ownership: the item owns its file and deletes it, until abandon().
class UndoHistoryItem
{
public:
    /// @param baseFileName  path of the snapshot without its extension; nothing is written yet
    UndoHistoryItem(QString operationName, const QString &baseFileName);
    ~UndoHistoryItem();
    Q_DISABLE_COPY_MOVE(UndoHistoryItem) // two owners would delete the same file

    [[nodiscard]] const QString &name() const { return name_; }
    [[nodiscard]] const QString &fileName() const { return fileName_; }

    /// Writes the snapshot. @p size and @p zoom stay in memory. If the name is taken, what has it stays as it is.
    [[nodiscard]] bool save(const QImage &image, const QSize &size, double zoom);
    /// Whether the last save() failed because the name was another's; the item has no file then.
    [[nodiscard]] bool isNameTaken() const { return nameTaken; }
    /// Reads it back; a null output is refused.
    [[nodiscard]] bool load(QImage *image, QSize *size, double *zoom) const;

    /// Gives up the file, if there is any: it stays on disk, and the destructor has nothing to do.
    void abandon();

private:
    QString name_;
    QString fileName_;
    QSize size_; ///< -1 by -1 until saved
    double zoom_ = 0.0;
    bool hadAlphaFormat = false; ///< the file of an opaque page does not tell
    bool nameTaken = false;
};
