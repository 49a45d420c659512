#pragma once

#include "kept_pages.h"
#include "page_operations.h"
#include "UndoHistory.h"

#include <QFileInfo>
#include <QImage>
#include <QObject>
#include <QRect>
#include <QString>

#include <list>
#include <utility>

class TargetFile;
struct TargetOutcome;

/// One open image: its pages in order, the file it lives in, the format it is stored under, and whether
/// it holds changes that are not saved. It knows no view, no tab and no past.
///
/// A document without pages but with a real fileInfo is legal. It stands for a file that was too large
/// to load, and save() then copies that file.
///
/// Units:     page numbers are one-based; rectangles are in image pixels. No page number is tested:
///            callers keep to 1 <= pi <= pageCount().
/// Errors:    answered by the bool; save() alone leaves words, in lastError. Nothing is shown. A page
///            operation that fails has changed nothing.
/// Ownership: pages are held by value and shared implicitly; whoever made the document deletes it.
/// Threads:   GUI thread only.
class ImageDocument : public QObject
{
    Q_OBJECT

public:
    /// Outcome of load(). The values are fixed.
    enum LoadStatus : int {
        LoadNoFile = 0, ///< the path was empty or no such file exists
        LoadTooBig = 1, ///< the file is larger than 512 MiB
        LoadOther = 2, ///< the file was there; isEmpty() tells whether it could be decoded
    };

    /// Loads @p filePath and drops the result: isEmpty() and loadStatus tell how it went. Two empty
    /// strings make an empty document to add pages to.
    ImageDocument(const QString &filePath, const QString &imgFormat);

    [[nodiscard]] bool isEmpty() const { return pages.empty(); }
    [[nodiscard]] uint pageCount() const { return static_cast<uint>(pages.size()); }
    /// Whether the document has a file of its own: an untitled one has a relative path.
    [[nodiscard]] bool hasFile() const { return !fileInfo.isRelative(); }
    [[nodiscard]] QString fileName() const { return fileInfo.fileName(); }
    [[nodiscard]] QString filePath() const { return fileInfo.filePath(); }
    [[nodiscard]] QString imgFormat() const { return imgFormat_; }
    [[nodiscard]] bool isModified() const { return modified; }

    /// How many pictures the file held when it was loaded or saved last, open or not; 0 without a file. A TIFF of
    /// many pages under another word than "TIFF" has but its first page open, and the pages behind it stay in the
    /// file: save() under any TIFF word takes them along as they stand.
    [[nodiscard]] uint pictureCount() const { return pictureCount_; }
    /// Name of that file.
    [[nodiscard]] QString pictureFileName() const { return QFileInfo(pictureFilePath).fileName(); }
    [[nodiscard]] bool hasKeptPages() const { return !kept.empty(); }
    /// Whether save() would lose pictures that are not open: some that should be taken along cannot be, or the
    /// document's own file holds some that nobody keeps. The user is to be asked then, and for the first save()
    /// fails until takeKeptPages() was called.
    [[nodiscard]] bool wouldLosePictures(const QString &filePath, const QString &imgFormat) const;
    /// The document keeps none then; who takes them may give them back.
    [[nodiscard]] std::list<KeptPages> takeKeptPages() { return std::exchange(kept, {}); }
    void setKeptPages(std::list<KeptPages> given) { kept = std::move(given); }
    /// Takes along what another document keeps, behind the pages that are there.
    /// @return false, with nothing taken, if it cannot be kept together with what is kept already
    [[nodiscard]] bool keepPagesOf(const ImageDocument &other);

    /// Runs a page operation of the table. depth_1_bit() to flip_horizontally() are these by name, for tests: the window
    /// asks for rows.
    /// @param percent  not looked at by an operation that takes none
    /// @return false if there is no result, and nothing has changed then
    [[nodiscard]] bool change(uint pi, PageChange operation, int percent = 0);

    /// Replaces the name and keeps the directory; the file on disk is not touched.
    void setFileName(const QString &name);
    /// Always emits modifiedStateChanged(), also when the value is the old one.
    void setModified(bool value);
    /// Seven lines of state for a log, which nobody writes so far.
    [[nodiscard]] QString dump() const;

    QString lastError; ///< why the last save() failed; empty if it did not say
    QString lastErrorReason; ///< what lastError, whose words are fixed for TIFF, does not tell; may be empty
    QFileInfo fileInfo; ///< where the document lives; the main window may redirect it
    QString imgFormat_; ///< format word behind imgFormat(); the main window may replace it
    int loadStatus = LoadOther; ///< a LoadStatus

signals:
    void modifiedStateChanged(bool modified);

public slots:
    /// Adds the pages of a file. An empty @p imgFormat is read off the file's content; exactly "TIFF"
    /// takes every page of the file, any other word the first one.
    /// @return false if not all pages could be read; those before the bad one are kept
    [[nodiscard]] bool load(const QString &filePath, const QString &imgFormat);

    /// Writes all pages. A TIFF word takes more than one, which is "TIFF" then, and takes kept pages along. On success
    /// the document lives in @p filePath from now on and counts as not modified; a failure leaves all that, and the
    /// file that was there, as it was. What is no plain file is not written to.
    [[nodiscard]] bool save(const QString &filePath, const QString &imgFormat);

    /// Appends a page; a null image is refused. A resolution of 0 or less becomes the toolkit's default: no writer
    /// could keep it.
    [[nodiscard]] bool addPage(const QImage &img);
    /// No command of the window removes or swaps pages so far.
    void removePage(uint pi);
    void swapPages(uint pi1, uint pi2);
    QImage &page(uint pi);
    const QImage &page(uint pi) const;
    /// Replaces a page; a null image is refused.
    [[nodiscard]] bool setPage(uint pi, const QImage &img);

    // Each answers false if there is no result, and has changed nothing then.

    [[nodiscard]] bool depth_1_bit(uint pi);
    [[nodiscard]] bool depth_8_bit(uint pi);
    [[nodiscard]] bool depth_32_bit(uint pi);
    [[nodiscard]] bool invert(uint pi);

    /// Both take -100 to 100; what lies beyond counts as those. 0 does nothing, and the document does not count
    /// as modified. Indexed and 1-bit pages keep their look, but the document counts as modified.
    [[nodiscard]] bool contrast(uint pi, int percent);
    [[nodiscard]] bool brightness(uint pi, int percent);

    /// Counter-clockwise. A 1-bit page comes out in black and white, whatever its colours were.
    [[nodiscard]] bool rotate_90(uint pi);
    [[nodiscard]] bool rotate_180(uint pi);
    /// Clockwise; else like rotate_90().
    [[nodiscard]] bool rotate_270(uint pi);
    [[nodiscard]] bool flip_vertically(uint pi);
    [[nodiscard]] bool flip_horizontally(uint pi);

    /// Multiplies the sides, taken of the last pixel's index: 100 by 50 pixels times 2 are 199 by 99. A 1-bit
    /// page stays one, an indexed page gets 32 bits.
    [[nodiscard]] bool scale(uint pi, double x, double y);
    /// To a size in pixels; all pages get 32 bits unless the size is their own.
    [[nodiscard]] bool resize(uint pi, int w, int h);

    /// Cuts a page down to @p rubber; what lies outside the page comes out as zeros, and the null
    /// rectangle keeps all of it. Any other rectangle without width or height is refused.
    [[nodiscard]] bool crop(uint pi, const QRect &rubber);

private:
    [[nodiscard]] bool loadTiff(const QString &filePath);
    [[nodiscard]] bool saveTiff(const QString &filePath);
    [[nodiscard]] bool savePages(const QString &filePath, const QString &imgFormat);
    [[nodiscard]] bool saveSinglePage(const QString &filePath, const QString &imgFormat);
    [[nodiscard]] bool copyFile(const QString &filePath);
    void notePictures(const QString &filePath, int file, const FileState &state);
    void noteSavedPictures(const QString &filePath, bool isKeeping);
    [[nodiscard]] bool saveWithKeptPages(const QString &filePath, const QString &imgFormat);
    [[nodiscard]] bool joinWithKeptPages(TargetFile &ownPages, TargetFile &file, QString *reason) const;
    [[nodiscard]] QString refusalOf(const QString &imgFormat) const;
    [[nodiscard]] bool writePages(TargetFile &file, const QString &imgFormat, QString *writerError) const;
    [[nodiscard]] static QString wordsFor(const TargetOutcome &outcome, const QString &writerError);

    std::list<QImage> pages;
    bool modified = false;
    std::list<KeptPages> kept; ///< in the order of the pages they stand behind
    uint pictureCount_ = 0;
    QString pictureFilePath; ///< the file that was counted
    // Intended: nobody inserts into it, as the live history belongs to the main window. Making it makes the
    // directory for snapshots.
    UndoHistory undoHistory;
};
