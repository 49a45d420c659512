#include "BusyScope.h"
#include "ImageDocument.h"
#include "ImageDocumentView.h"
#include "ImageItem.h"
#include "ImageManager.h"
#include "Q3Canvas.h"

#include <QAction>
#include <QCoreApplication>
#include <QMessageBox>
#include <QStatusBar>

#include <utility>

using namespace Qt::StringLiterals;

// The bracket around every change of a page: the window is frozen, the page goes to disk, the change runs,
// and the page is shown or brought back.

void ImageManager::freezeUi()
{
    actions.value("edit_undo"_L1)->setEnabled(false);
    actions.value("edit_redo"_L1)->setEnabled(false);
    setEnabled(false);
    QCoreApplication::processEvents(); // before any slow work starts
}

void ImageManager::thawUi()
{
    setEnabled(true);
    actions.value("edit_undo"_L1)->setEnabled(undoHistory.canUndo());
    actions.value("edit_redo"_L1)->setEnabled(undoHistory.canRedo());
    QCoreApplication::processEvents();
    const QStringList messages = std::exchange(heldMessages, {});
    for (const QString &message : messages)
        processMessage(message);
}

void ImageManager::endEdit()
{
    setCursor(Qt::ArrowCursor);
    thawUi();
}

void ImageManager::updateActions()
{
    thawUi();
    updateZoomControls();
}

void ImageManager::showStatus(const QString &text)
{
    statusBar()->showMessage(text, 0);
    QCoreApplication::processEvents();
}

/// Puts the current page into the history. False if there is no room and the user goes no further.
bool ImageManager::saveUndoState()
{
    const QImage image = currentPageImage();
    if (!undoHistory.canInsert(image))
        return QMessageBox::warning(this, tr("Warning"), tr("This operation cannot be undone or redone. Continue?"),
                                    QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes)
            == QMessageBox::Yes;

    const ImageDocumentView *const view = currentView();
    const QSize size = view->imageItem()->pageImage().size();
    if (!undoHistory.insert(image, size, view->currentFactor(), u"operation"_s))
        QMessageBox::information(this, tr("Warning"), tr("Error saving Undo/Redo information"), QMessageBox::Ok);
    // Intended: the change goes on without a snapshot.
    return true;
}

/// On false the window stays frozen: the caller has to call endEdit().
bool ImageManager::beginEdit()
{
    freezeUi();
    setCursor(Qt::WaitCursor);
    showStatus(tr("Saving Undo/Redo information..."));
    if (!saveUndoState())
        return false;
    showStatus(tr("Changing the image..."));
    return true;
}

void ImageManager::finishEdit(bool ok)
{
    if (ok) {
        currentView()->refreshPage(currentView()->currentPage());
    } else {
        showStatus(tr("Rollback operation..."));
        (void)applyHistory(HistoryRollback, 0); // on failure the untouched page stands
    }
    updateActions();
    endEdit();
}

/// Takes an image out of the history and puts it on the page. False if nothing on screen has changed.
bool ImageManager::applyHistory(HistoryStep step, uint steps)
{
    ImageDocumentView *const view = currentView();
    QImage image;
    QSize size(-1, -1);
    double zoom = view->currentFactor();

    bool done = false;
    switch (step) {
    case HistoryUndo:
        done = undoHistory.undo(&image, &size, &zoom, steps, nullptr);
        break;
    case HistoryRedo:
        done = undoHistory.redo(&image, &size, &zoom, steps, nullptr);
        break;
    case HistoryRollback:
        done = undoHistory.rollback(&image, &size, &zoom, steps, nullptr);
        break;
    }
    if (!done || !currentDocument()->setPage(view->currentPage(), image))
        return false;

    view->refreshPage(view->currentPage());
    view->canvas()->resize(size.width(), size.height());
    return true; // Intended: the zoom of the snapshot is not applied
}

void ImageManager::edit_undo()
{
    freezeUi();
    const BusyScope busy(this, currentView(), &viewStatusEnabled);

    // After an edit the present page is on no file: it is saved first, so that Redo can come back to it.
    uint steps = 0;
    if (undoHistory.state() == UndoHistory::Edited) {
        showStatus(tr("Saving Undo/Redo information..."));
        steps = saveUndoState() ? 1 : 0;
    }
    showStatus(tr("Undoing operation..."));
    (void)applyHistory(HistoryUndo, steps); // on failure the page stands
    updateActions();
}

void ImageManager::edit_redo()
{
    freezeUi();
    const BusyScope busy(this, currentView(), &viewStatusEnabled);
    showStatus(tr("Redoing operation..."));
    (void)applyHistory(HistoryRedo, 0); // on failure the page stands
    updateActions();
}

/// Runs an operation on the current page between the halves of the bracket.
bool ImageManager::runEdit(const std::function<bool(uint)> &operation)
{
    if (!beginEdit()) {
        endEdit();
        return false;
    }
    const bool ok = operation(currentView()->currentPage());
    finishEdit(ok);
    return ok;
}
