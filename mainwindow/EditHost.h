#pragma once

#include <QImage>
#include <QSize>

#include <functional>

class QObject;
class QString;

/// The page that an edit is about, as a snapshot keeps it.
struct EditedPage
{
    QImage image; ///< null without a page
    QSize shownSize; ///< of the picture that the canvas shows, in image pixels
    double zoom; ///< as a factor
};

/// What EditBracket needs of the window around it. Where it speaks of a tab, that is the one that is current when it
/// is called; those that need one are called only if there is one.
class EditHost
{
public:
    EditHost() = default;
    virtual ~EditHost() = default;
    Q_DISABLE_COPY_MOVE(EditHost)

    /// Closes the window to the user, or opens it again.
    virtual void setFrozen(bool frozen) = 0;
    virtual void enableHistory(bool undo, bool redo) = 0;
    virtual void setWaiting(bool waiting) = 0; ///< by the pointer over the window
    virtual void showStatus(const QString &text) = 0; ///< which stays until the next one
    virtual void updateZoomControls() = 0;
    /// Does some work; meanwhile window and tab show the pointer of waiting, and views tell no status.
    virtual void runBusy(const std::function<void()> &work) = 0;
    /// Lets all that waits happen, see EditBracket for what that may be.
    virtual void processEvents() = 0;

    /// Stands for the tab: an object that goes when the tab goes. Null if there is no tab.
    [[nodiscard]] virtual QObject *currentTab() const = 0;
    [[nodiscard]] virtual EditedPage page() const = 0; ///< needs a tab
    [[nodiscard]] virtual bool setPage(const QImage &image) = 0; ///< needs a tab; a null image is refused
    virtual void refreshPage() = 0; ///< needs a tab
    virtual void resizeCanvas(QSize size) = 0; ///< needs a tab

    /// Asks whether to go on with an edit that cannot be undone. Events get through.
    [[nodiscard]] virtual bool confirmWithoutUndo() = 0;
    /// Tells that a snapshot could not be written. Events get through.
    virtual void tellOfFailedSnapshot() = 0;

    virtual void openMessage(const QString &message) = 0; ///< the files of another start
    virtual void closeLater() = 0; ///< from the event loop, with the usual question
};
