#pragma once

#include "EditHost.h"

#include <utility>

class ImageDocumentView;
class QMainWindow;
class QTabWidget;

/// The main window as the bracket of an edit knows it.
///
/// Ownership: borrows all of its parts, which have to outlive it.
class EditWindow final : public EditHost
{
public:
    struct Parts
    {
        QMainWindow *window;
        QTabWidget *tabs; ///< of ImageDocumentViews
        bool *viewStatusEnabled; ///< whether status texts of the views are shown
        std::function<void(bool undo, bool redo)> enableHistory;
        std::function<void()> updateZoomControls;
        std::function<void(const QString &message)> openMessage;
    };

    explicit EditWindow(Parts windowParts) : parts(std::move(windowParts)) { }

    void setFrozen(bool frozen) override;
    void enableHistory(bool undo, bool redo) override { parts.enableHistory(undo, redo); }
    void setWaiting(bool waiting) override;
    void showStatus(const QString &text) override;
    void updateZoomControls() override { parts.updateZoomControls(); }
    void runBusy(const std::function<void()> &work) override;
    void processEvents() override;

    [[nodiscard]] QObject *currentTab() const override;
    [[nodiscard]] EditedPage page() const override;
    [[nodiscard]] bool setPage(const QImage &image) override;
    void refreshPage() override;
    void resizeCanvas(QSize size) override;

    [[nodiscard]] bool confirmWithoutUndo() override;
    void tellOfFailedSnapshot() override;

    void openMessage(const QString &message) override { parts.openMessage(message); }
    void closeLater() override;

private:
    [[nodiscard]] ImageDocumentView *view() const;

    Parts parts;
};
