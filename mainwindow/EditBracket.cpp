#include "EditBracket.h"

#include "EditHost.h"
#include "UndoHistory.h"

#include <QCoreApplication>
#include <QPointer>
#include <QScopedValueRollback>

#include <utility>

using namespace Qt::StringLiterals;

/// The one place where an edit lets events through. What may have happened behind a call, and who takes care of it:
/// - The tab has gone, or all of them. A command that was typed ahead is heard while the window freezes or thaws.
///   beginEdit() remembers the tab it began with; each other step asks whether there is one.
/// - The window was to be closed. While it is frozen holdsClose() refuses that and endEdit() makes up for it; behind
///   a thaw the window may have closed, which leaves no tab.
/// - Another start has sent a file. While the window is frozen holdsMessage() keeps it and thawUi() opens it; behind
///   a thaw it may be open, and the current tab then is not the one that was edited.
/// - Behind a thaw another edit may have begun and ended.
/// - The program was told to end. The edit comes to its end all the same.
void EditBracket::letEventsThrough()
{
    host.processEvents();
}

void EditBracket::freezeUi()
{
    host.enableHistory(false, false);
    isFrozen = true;
    host.setFrozen(true);
    letEventsThrough(); // before any slow work starts
}

void EditBracket::thawUi()
{
    isFrozen = false;
    host.setFrozen(false);
    const bool hasTab = host.currentTab() != nullptr; // what was typed meanwhile may have closed the last one
    host.enableHistory(hasTab && undoHistory.canUndo(), hasTab && undoHistory.canRedo());
    letEventsThrough();
    workOffMessages();
}

/// An edit works on the tab that is current, which a file that opens would change.
bool EditBracket::holdsMessage(const QString &message)
{
    if (!isFrozen)
        return false;
    heldMessages.append(message);
    isCloseHeld = false; // nobody has seen the file when the window was to be closed
    return true;
}

/// Opens the files of the starts that came during an edit, one start after the other.
void EditBracket::workOffMessages()
{
    if (isWorkingOff) // a file that opens thaws the window as well
        return;
    const QScopedValueRollback working(isWorkingOff, true);
    while (!heldMessages.isEmpty())
        host.openMessage(heldMessages.takeFirst());
}

/// An edit needs its page to the end.
bool EditBracket::holdsClose()
{
    if (!isFrozen)
        return false;
    isCloseHeld = heldMessages.isEmpty(); // nobody has seen the files that wait
    return true;
}

/// Closes the window if that was asked for during the edit. The edit that asks is left first.
void EditBracket::carryOutClose()
{
    if (std::exchange(isCloseHeld, false))
        host.closeLater();
}

void EditBracket::endEdit()
{
    host.setWaiting(false);
    thawUi();
    carryOutClose();
}

void EditBracket::updateActions()
{
    thawUi();
    host.updateZoomControls();
}

void EditBracket::showStatus(const QString &text)
{
    host.showStatus(text);
    letEventsThrough();
}

bool EditBracket::saveUndoState()
{
    if (!host.currentTab())
        return false;
    const EditedPage page = host.page();
    if (!undoHistory.canInsert(page.image))
        return host.confirmWithoutUndo();
    if (!undoHistory.insert(page.image, page.shownSize, page.zoom, u"operation"_s))
        host.tellOfFailedSnapshot();
    // Intended: the change goes on without a snapshot.
    return true;
}

bool EditBracket::beginEdit()
{
    const QPointer<QObject> tab(host.currentTab());
    freezeUi();
    host.setWaiting(true);
    showStatus(QCoreApplication::translate("ImageManager", "Saving Undo/Redo information..."));
    if (!saveUndoState())
        return false;
    showStatus(QCoreApplication::translate("ImageManager", "Changing the image..."));
    return !tab.isNull();
}

void EditBracket::finishEdit(bool ok)
{
    if (ok) {
        if (host.currentTab())
            host.refreshPage();
    } else {
        showStatus(QCoreApplication::translate("ImageManager", "Rollback operation..."));
        (void)applyHistory(HistoryRollback, 0); // on failure the untouched page stands
    }
    updateActions();
    endEdit();
}

bool EditBracket::applyHistory(HistoryStep step, uint steps)
{
    if (!host.currentTab())
        return false;
    QImage image;
    QSize size(-1, -1);
    double zoom = host.page().zoom;

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
    if (!done || !host.setPage(image))
        return false;

    host.refreshPage();
    host.resizeCanvas(size);
    return true; // Intended: the zoom of the snapshot is not applied
}

void EditBracket::undo()
{
    stepThroughHistory([this] {
        // After an edit the present page is on no file: it is saved first, so that Redo can come back to it.
        uint steps = 0;
        if (undoHistory.state() == UndoHistory::Edited) {
            showStatus(QCoreApplication::translate("ImageManager", "Saving Undo/Redo information..."));
            steps = saveUndoState() ? 1 : 0;
        }
        showStatus(QCoreApplication::translate("ImageManager", "Undoing operation..."));
        (void)applyHistory(HistoryUndo, steps); // on failure the page stands
    });
}

void EditBracket::redo()
{
    stepThroughHistory([this] {
        showStatus(QCoreApplication::translate("ImageManager", "Redoing operation..."));
        (void)applyHistory(HistoryRedo, 0); // on failure the page stands
    });
}

/// The bracket around a step back or forward.
void EditBracket::stepThroughHistory(const std::function<void()> &step)
{
    if (!host.currentTab())
        return;
    freezeUi();
    host.runBusy([this, &step] {
        step();
        updateActions();
        carryOutClose();
    });
}

bool EditBracket::run(const Operation &operation)
{
    if (!host.currentTab())
        return false;
    if (!beginEdit()) {
        endEdit();
        return false;
    }
    const bool ok = operation();
    finishEdit(ok);
    return ok;
}
