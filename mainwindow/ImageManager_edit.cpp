#include "EditWindow.h"
#include "ImageDocumentView.h"
#include "ImageManager.h"

/// Needs the actions and the tabs.
void ImageManager::makeBracket()
{
    const auto enableHistory = [this](bool undo, bool redo) {
        enableActions(Need::Past, undo);
        enableActions(Need::Future, redo);
    };
    editHost = std::make_unique<EditWindow>(
        EditWindow::Parts{.window = this,
                          .tabs = tabWidget,
                          .viewStatusEnabled = &viewStatusEnabled,
                          .enableHistory = enableHistory,
                          .updateZoomControls = [this] { updateZoomControls(); },
                          .openMessage = [this](const QString &message) { processMessage(message); }});
    bracket = std::make_unique<EditBracket>(*editHost, undoHistory);
}

void ImageManager::edit_undo()
{
    bracket->undo();
}

void ImageManager::edit_redo()
{
    bracket->redo();
}

/// Runs an operation on the current page between the halves of the bracket.
bool ImageManager::runEdit(const std::function<bool(uint)> &operation)
{
    return bracket->run([this, &operation] { return operation(currentView()->currentPage()); });
}
