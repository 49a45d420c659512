#include "ImageManager.h"

#include "CommandTab.h"
#include "help_launcher.h"
#include "IdMenu.h"
#include "ImageDocument.h"
#include "ImageDocumentView.h"
#include "tab_text.h"
#include "window_settings.h"

#include <QAction>
#include <QActionGroup>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QStatusBar>
#include <QTabWidget>

using namespace Qt::StringLiterals;

ImageDocumentView *ImageManager::currentView() const
{
    return qobject_cast<ImageDocumentView *>(tabWidget->currentWidget());
}

ImageDocument *ImageManager::currentDocument() const
{
    const ImageDocumentView *const view = currentView();
    return view ? view->document() : nullptr;
}

QImage ImageManager::currentPageImage() const
{
    const ImageDocument *const document = currentDocument();
    return document ? document->page(currentView()->currentPage()) : QImage();
}

/// A copy of the first page of the current document, whatever page is on show. Null without a document.
QImage ImageManager::firstPageImage() const
{
    const ImageDocument *const document = currentDocument();
    return document && !document->isEmpty() ? document->page(1) : QImage();
}

void ImageManager::updateDocumentActions()
{
    const bool hasDocument = currentDocument() != nullptr;

    for (const QLatin1StringView name :
         {"file_save"_L1, "file_save_as"_L1, "file_save_all"_L1, "file_print"_L1, "file_close"_L1, "file_close_all"_L1})
        actions.value(name)->setEnabled(hasDocument);
    if (!hasDocument) { // the history decides otherwise
        actions.value("edit_undo"_L1)->setEnabled(false);
        actions.value("edit_redo"_L1)->setEnabled(false);
    }
    zoomGroup->setEnabled(hasDocument);
    for (const QLatin1StringView name :
         {"view_zoom_in"_L1, "view_zoom_out"_L1, "view_scroll"_L1, "depth_menu"_L1, "scale_menu"_L1, "rotate_menu"_L1,
          "flip_menu"_L1, "effects_menu"_L1, "image_brightness"_L1, "image_contrast"_L1, "image_invert"_L1,
          "image_properties"_L1})
        actions.value(name)->setEnabled(hasDocument);
    updateImageCropControls();
    for (const QLatin1StringView name : {"tool_graphics_editor"_L1, "tool_ocr"_L1, "tool_send"_L1, "tool_upload"_L1})
        actions.value(name)->setEnabled(hasDocument);
    updateZoomControls();
}

void ImageManager::updateZoomControls()
{
    ImageDocumentView *const view = currentView();
    if (!view)
        return;

    const int limit = view->zoomIndexLimit();
    const int index = view->zoomIndex();
    const int last = static_cast<int>(zoomIds.size()) - 1;
    for (int i = 0; i <= last; ++i) {
        if (QAction *const action = zoomMenu->findActionForId(zoomIds.at(static_cast<size_t>(i)))) {
            action->setCheckable(true);
            action->setChecked(false);
            action->setEnabled(i >= limit);
        }
    }
    if (QAction *const action = zoomMenu->findActionForId(zoomIds.at(static_cast<size_t>(index)))) {
        action->setCheckable(true);
        action->setChecked(true);
    }
    actions.value("view_zoom_in"_L1)->setEnabled(limit < index);
    actions.value("view_zoom_out"_L1)->setEnabled(index < last);
}

void ImageManager::updateTabTitle(ImageDocumentView *view, bool modified)
{
    QString title = view->document()->fileName();
    if (modified)
        title += '*'_L1;
    const int tab = tabWidget->indexOf(view);
    tabWidget->setTabText(tab, tab_text(title));
    const ImageDocument *const document = view->document();
    tabWidget->setTabToolTip(tab,
                             document->hasKeptPages() ? tr("Page 1 of %1").arg(document->pictureCount()) : QString());
}

void ImageManager::documentModifiedStateChanged(bool modified)
{
    if (auto *const view = qobject_cast<ImageDocumentView *>(sender()))
        updateTabTitle(view, modified);
}

void ImageManager::tabChanged(QWidget * /*tab*/)
{
    // Intended: only the view that comes up is guarded against a second connection. One that was current
    // before stays connected, so the action reaches every view that has been current.
    if (ImageDocumentView *const view = currentView()) {
        QAction *const scrollAction = actions.value("view_scroll"_L1);
        disconnect(scrollAction, &QAction::toggled, view, &ImageView::OnToggleScroll);
        connect(scrollAction, &QAction::toggled, view, &ImageView::OnToggleScroll);
    }
    updateDocumentActions();
}

void ImageManager::onStatusChanged(const QString &text)
{
    if (viewStatusEnabled)
        statusBar()->showMessage(text, 0);
}

void ImageManager::closeCurrentTab()
{
    closeTab(currentView());
}

void ImageManager::closeTab(ImageDocumentView *view)
{
    if (!view)
        return;
    const ImageDocument *const document = view->document();
    tabWidget->removeTab(tabWidget->indexOf(view));
    delete view;
    delete document;
    if (tabWidget->count() == 0)
        updateDocumentActions();
}

void ImageManager::closeAllTabs()
{
    while (tabWidget->count() != 0)
        closeCurrentTab();
}

// Intended: no entry, key or button leads here.
void ImageManager::help_context()
{
    showHelp(u"ImageEditor.htm"_s, 0, 1, 0);
}

void ImageManager::closeEvent(QCloseEvent *event)
{
    if (!isEnabled()) { // the window manager closes a frozen window too, but an edit needs its page to the end
        isCloseHeld = heldMessages.isEmpty(); // nobody has seen the files that wait
        event->ignore();
        return;
    }
    if (!confirmSaveAll()) {
        event->ignore();
        return;
    }
    closeAllTabs();
    QMainWindow::closeEvent(event);
    QCoreApplication::processEvents();
    if (tabWidget->count() != 0) { // another start has opened a file, perhaps one that is on no disk any more
        event->ignore();
        return;
    }
    closed = true;
    view_save_layout();
}

void ImageManager::closeUnasked()
{
    if (closed)
        return;
    closed = true;
    view_save_layout();
    QCoreApplication::exit(); // leaves the loops of dialogs too
}
