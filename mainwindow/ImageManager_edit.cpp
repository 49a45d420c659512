#include "BusyScope.h"
#include "CommandTab.h"
#include "ImageDocument.h"
#include "ImageDocumentView.h"
#include "ImageItem.h"
#include "ImageManager.h"
#include "Q3Canvas.h"

#include <QAction>
#include <QCoreApplication>
#include <QMessageBox>
#include <QScopedValueRollback>
#include <QStatusBar>

#include <utility>

using namespace Qt::StringLiterals;

// The bracket around every change of a page: the window is frozen, the page goes to disk, the change runs,
// and the page is shown or brought back. While the window is frozen, what comes from outside waits: messages of
// other starts and a wish to close. Once it is thawed anything may come: a command that was typed meanwhile, the
// end of the tab, the end of the window.

/// The one place where an edit lets events through.
void ImageManager::letEventsThrough()
{
    QCoreApplication::processEvents();
}

void ImageManager::freezeUi()
{
    actions.value("edit_undo"_L1)->setEnabled(false);
    actions.value("edit_redo"_L1)->setEnabled(false);
    setEnabled(false);
    letEventsThrough(); // before any slow work starts
}

void ImageManager::thawUi()
{
    setEnabled(true);
    const bool hasDocument = currentDocument() != nullptr; // what was typed meanwhile may have closed the last tab
    actions.value("edit_undo"_L1)->setEnabled(hasDocument && undoHistory.canUndo());
    actions.value("edit_redo"_L1)->setEnabled(hasDocument && undoHistory.canRedo());
    letEventsThrough();
    workOffMessages();
}

/// Opens the files of the starts that came during an edit, one start after the other.
void ImageManager::workOffMessages()
{
    if (isWorkingOff) // a file that opens thaws the window as well
        return;
    const QScopedValueRollback working(isWorkingOff, true);
    while (!heldMessages.isEmpty())
        processMessage(heldMessages.takeFirst());
}

/// Closes the window, with the usual question, if that was asked for during the edit. The edit that asks is
/// left first.
void ImageManager::carryOutClose()
{
    if (std::exchange(isCloseHeld, false))
        QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
}

void ImageManager::endEdit()
{
    setCursor(Qt::ArrowCursor);
    thawUi();
    carryOutClose();
}

void ImageManager::updateActions()
{
    thawUi();
    updateZoomControls();
}

void ImageManager::showStatus(const QString &text)
{
    statusBar()->showMessage(text, 0);
    letEventsThrough();
}

/// Puts the current page into the history. False if there is no page, or if there is no room and the user goes
/// no further.
bool ImageManager::saveUndoState()
{
    const CommandTab tab(currentView());
    if (!tab)
        return false;
    const QImage image = currentPageImage();
    if (!undoHistory.canInsert(image))
        return QMessageBox::warning(this, tr("Warning"), tr("This operation cannot be undone or redone. Continue?"),
                                    QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes)
            == QMessageBox::Yes;

    const QSize size = tab.view()->imageItem()->pageImage().size();
    if (!undoHistory.insert(image, size, tab.view()->currentFactor(), u"operation"_s))
        QMessageBox::information(this, tr("Warning"), tr("Error saving Undo/Redo information"), QMessageBox::Ok);
    // Intended: the change goes on without a snapshot.
    return true;
}

/// On false the window stays frozen: the caller has to call endEdit(). On true there is a tab.
bool ImageManager::beginEdit()
{
    const CommandTab tab(currentView());
    freezeUi();
    setCursor(Qt::WaitCursor);
    showStatus(tr("Saving Undo/Redo information..."));
    if (!saveUndoState())
        return false;
    showStatus(tr("Changing the image..."));
    return static_cast<bool>(tab);
}

void ImageManager::finishEdit(bool ok)
{
    if (ok) {
        if (const CommandTab tab(currentView()); tab)
            tab.view()->refreshPage(tab.view()->currentPage());
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
    const CommandTab tab(currentView());
    if (!tab)
        return false;
    ImageDocumentView *const view = tab.view();
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
    if (!done || !tab.document()->setPage(view->currentPage(), image))
        return false;

    view->refreshPage(view->currentPage());
    view->canvas()->resize(size.width(), size.height());
    return true; // Intended: the zoom of the snapshot is not applied
}

void ImageManager::edit_undo()
{
    stepThroughHistory([this] {
        // After an edit the present page is on no file: it is saved first, so that Redo can come back to it.
        uint steps = 0;
        if (undoHistory.state() == UndoHistory::Edited) {
            showStatus(tr("Saving Undo/Redo information..."));
            steps = saveUndoState() ? 1 : 0;
        }
        showStatus(tr("Undoing operation..."));
        (void)applyHistory(HistoryUndo, steps); // on failure the page stands
    });
}

void ImageManager::edit_redo()
{
    stepThroughHistory([this] {
        showStatus(tr("Redoing operation..."));
        (void)applyHistory(HistoryRedo, 0); // on failure the page stands
    });
}

/// The bracket around a step back or forward.
void ImageManager::stepThroughHistory(const std::function<void()> &step)
{
    const CommandTab tab(currentView());
    if (!tab)
        return;
    freezeUi();
    const BusyScope busy(this, tab.view(), &viewStatusEnabled);
    step();
    updateActions();
    carryOutClose();
}

/// Runs an operation on the current page between the halves of the bracket.
bool ImageManager::runEdit(const std::function<bool(uint)> &operation)
{
    if (!currentDocument())
        return false;
    if (!beginEdit()) {
        endEdit();
        return false;
    }
    const bool ok = operation(currentView()->currentPage());
    finishEdit(ok);
    return ok;
}
