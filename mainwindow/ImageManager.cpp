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

/// Switches on or off what has this need.
void ImageManager::enableActions(Need need, bool on)
{
    for (const ActionRow &row : action_table()) {
        if (row.use.need != need)
            continue;
        if (row.use.target.kind == ActionTarget::Kind::ZoomSteps)
            zoomGroup->setEnabled(on);
        else
            actions.value(row.name)->setEnabled(on);
    }
}

void ImageManager::updateDocumentActions()
{
    const bool hasDocument = currentDocument() != nullptr;

    enableActions(Need::Document, hasDocument);
    if (!hasDocument) { // the history decides otherwise
        enableActions(Need::Past, false);
        enableActions(Need::Future, false);
    }
    enableActions(Need::LargerZoom, hasDocument);
    enableActions(Need::SmallerZoom, hasDocument);
    updateImageCropControls();
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
    enableActions(Need::LargerZoom, limit < index);
    enableActions(Need::SmallerZoom, index < last);
}

void ImageManager::updateTabTitle(ImageDocumentView *view, bool modified)
{
    QString title = view->document()->fileName();
    if (modified)
        title += '*'_L1;
    const int tab = tabWidget->indexOf(view);
    // The tab bar lays all its tabs out at every text that it is given.
    if (const QString text = tab_text(title); tabWidget->tabText(tab) != text)
        tabWidget->setTabText(tab, text);
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
    if (bracket->holdsClose()) { // the window manager closes a frozen window too
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
