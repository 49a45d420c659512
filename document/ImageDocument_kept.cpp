// Pages of a TIFF file that are not open and stay in it.
#include "descriptor.h"
#include "file_room.h"
#include "file_state.h"
#include "ImageDocument.h"
#include "ImageFormat.h"
#include "target_file.h"
#include "tiff_join.h"
#include "UndoHistory.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>
#include <vector>

namespace {

/// A file without a name, in the directory for snapshots.
Descriptor nameless_file()
{
    QByteArray name = QFile::encodeName(safeCreateTempDir() + "/page-XXXXXX");
    Descriptor file(::mkostemp(name.data(), O_CLOEXEC));
    if (file.isOpen())
        ::unlink(name.constData());
    return file;
}

bool is_same_path(const QString &path1, const QString &path2)
{
    return QFileInfo(path1).absoluteFilePath() == QFileInfo(path2).absoluteFilePath()
        || (QFileInfo::exists(path1) && QFileInfo(path1) == QFileInfo(path2)); // also through a link
}

/// Whether a page has the resolution that the toolkit gives to one that came without.
bool has_no_resolution(const QImage &page)
{
    const QImage plain(1, 1, page.format());
    return page.dotsPerMeterX() == plain.dotsPerMeterX() && page.dotsPerMeterY() == plain.dotsPerMeterY();
}

} // namespace

void ImageDocument::notePictures(const QString &filePath, int file, const FileState &state)
{
    const FilePictures pictures = count_pictures(file);
    pictureCount_ = pictures.count;
    pictureFilePath = filePath;
    // Intended: "TIFF" opens every page, and one that does not open then is lost with a save.
    if (pictures.tiffKind && pictures.count > 1 && is_tiff_word(imgFormat_) && imgFormat_ != TiffFormatKey)
        kept = {{.filePath = QFileInfo(filePath).absoluteFilePath(),
                 .state = state,
                 .kind = *pictures.tiffKind,
                 .count = pictures.count - 1,
                 .pagesBefore = 1}};
}

/// @param isKeeping  the kept pages are in the file that was saved, which is theirs now
void ImageDocument::noteSavedPictures(const QString &filePath, bool isKeeping)
{
    pictureFilePath = filePath;
    pictureCount_ = pageCount();
    const Descriptor file(isKeeping ? ::open(QFile::encodeName(filePath).constData(), O_RDONLY | O_CLOEXEC) : -1);
    // Those of several files stand between the pages of a merged document, which no tab shows.
    if (!file.isOpen() || kept.size() != 1 || pageCount() != 1) {
        kept.clear();
        return;
    }
    KeptPages &moved = kept.front();
    moved.filePath = QFileInfo(filePath).absoluteFilePath();
    moved.state = file_state(file.get());
    pictureCount_ += moved.count;
}

bool ImageDocument::wouldLosePictures(const QString &filePath, const QString &imgFormat) const
{
    if (isEmpty())
        return false;
    if (hasKeptPages() && is_tiff_word(imgFormat))
        return !can_be_kept(kept);
    return pictureCount_ > pageCount() && is_same_path(filePath, fileInfo.filePath());
}

bool ImageDocument::keepPagesOf(const ImageDocument &other)
{
    std::list<KeptPages> together = kept;
    for (KeptPages taken : other.kept) {
        taken.pagesBefore = pageCount();
        together.push_back(taken);
    }
    if (!can_be_kept(together))
        return false;
    kept = std::move(together);
    return true;
}

bool ImageDocument::saveWithKeptPages(const QString &filePath, const QString &imgFormat)
{
    QString reason = refusalOf(imgFormat);
    TargetOutcome outcome;
    if (reason.isEmpty()) {
        outcome = write_target(filePath, [&](TargetFile &file) {
            const Descriptor scratch = nameless_file();
            if (!scratch.isOpen()) {
                reason = qt_error_string(errno);
                return false;
            }
            TargetFile ownPages(scratch.get());
            const bool isWritten = writePages(ownPages, imgFormat, &reason);
            if (const QString error = ownPages.finish(); !isWritten || !error.isEmpty()) {
                reason = error.isEmpty() ? reason : error;
                return false;
            }
            return joinWithKeptPages(ownPages, file, &reason);
        });
        if (outcome.step == TargetOutcome::Done)
            return true;
    }
    lastErrorReason = wordsFor(outcome, reason);
    lastError = imgFormat == TiffFormatKey ? tr("Error saving TIFF image!") : lastErrorReason;
    return false;
}

/// @param ownPages  a TIFF file of the pages that are open
bool ImageDocument::joinWithKeptPages(TargetFile &ownPages, TargetFile &file, QString *reason) const
{
    TiffJoin join(common_kind(kept));
    std::vector<Descriptor> files; // as long as they are read
    *reason = tr("The pages that are not open cannot be kept.");
    uint pagesDone = 0;
    for (const KeptPages &part : kept) {
        std::optional<Descriptor> source = part.open();
        if (!source)
            return false;
        files.push_back(std::move(*source));
        const int former = files.back().get();
        const bool isAdded = pageCount() == 1 ? join.addInPlaceOf(ownPages.handle(), former, has_no_resolution(page(1)))
                                              : join.add(ownPages.handle(), pagesDone, part.pagesBefore - pagesDone);
        if (!isAdded || !join.add(former, 1, part.count))
            return false;
        pagesDone = part.pagesBefore;
    }
    if (pageCount() > pagesDone && !join.add(ownPages.handle(), pagesDone, pageCount() - pagesDone))
        return false;
    reserve_room(file.handle(), static_cast<qint64>(join.bytes()));
    if (!join.write(file)) {
        *reason = join.isTooLarge() ? qt_error_string(EFBIG) : QString();
        return false;
    }
    // What was read may have become another's meanwhile.
    return std::ranges::equal(files, kept, [](const Descriptor &source, const KeptPages &part) {
        return file_state(source.get()) == part.state;
    });
}
