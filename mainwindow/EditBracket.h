#pragma once

#include <QStringList>

#include <functional>

class EditHost;
class UndoHistory;

/// What applyHistory() does. The values are fixed.
enum HistoryStep : int { HistoryUndo = 0, HistoryRedo = 1, HistoryRollback = 2 };

/// The bracket around every change of a page: the window is frozen, the page goes to disk, the change runs, and the
/// page is shown or brought back. What comes from outside while the window is frozen waits: messages of other starts,
/// which are opened in their order once it is thawed, and a wish to close, which is followed when the edit has ended.
///
/// It knows no widget. Its steps have names of their own because the window takes some of them alone.
///
/// Ownership: borrows host and history, which have to outlive it.
/// Threads:   GUI thread only. Edits may begin while another one ends.
class EditBracket
{
public:
    using Operation = std::function<bool()>;

    EditBracket(EditHost &editHost, UndoHistory &history) : host(editHost), undoHistory(history) { }
    Q_DISABLE_COPY_MOVE(EditBracket)

    /// Runs an operation on the page of the current tab.
    /// @return the operation's answer; false without a tab, or if the user goes no further
    bool run(const Operation &operation);
    void undo();
    void redo();

    /// Whether this is no moment for the files of another start; the message is kept then.
    [[nodiscard]] bool holdsMessage(const QString &message);
    /// Whether this is no moment to close the window, which then closes later, unless a message has come: nobody has
    /// seen its files.
    [[nodiscard]] bool holdsClose();

    void freezeUi();
    void thawUi();
    void endEdit();
    void updateActions();
    /// Puts the page into the history. False if there is no page, or if there is no room and the user goes no further.
    [[nodiscard]] bool saveUndoState();
    /// On false the window stays frozen: the caller has to call endEdit(). On true there is a tab.
    [[nodiscard]] bool beginEdit();
    void finishEdit(bool ok);
    /// Takes an image out of the history and puts it on the page. False if nothing on screen has changed.
    [[nodiscard]] bool applyHistory(HistoryStep step, uint steps);

private:
    void letEventsThrough();
    void showStatus(const QString &text);
    void workOffMessages();
    void carryOutClose();
    void stepThroughHistory(const std::function<void()> &step);

    EditHost &host;
    UndoHistory &undoHistory;
    QStringList heldMessages; ///< of other starts
    bool isFrozen = false;
    bool isWorkingOff = false; ///< the held messages are being followed
    bool isCloseHeld = false;
};
