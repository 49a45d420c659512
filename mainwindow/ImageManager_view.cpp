#include "IdMenu.h"
#include "ImageDocumentView.h"
#include "ImageManager.h"
#include "window_settings.h"

#include <QAction>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

void ImageManager::updateImageCropControls()
{
    const ImageDocumentView *const view = currentView();
    enableActions(Need::Selection, view && view->hasSelection());
}

void ImageManager::view_show_labels(bool v)
{
    toolBar->setToolButtonStyle(v ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly);
    write_window_setting(WindowSetting::ShowLabels, v);
}

void ImageManager::view_big_pixmaps(bool v)
{
    write_window_setting(WindowSetting::BigPixmaps, v);
}

void ImageManager::view_show_tooltips(bool v)
{
    write_window_setting(WindowSetting::ShowTooltips, v);
}

void ImageManager::view_movable_toolbars(bool v)
{
    toolBar->setMovable(v);
    write_window_setting(WindowSetting::MovableToolbars, v);
}

void ImageManager::view_save_layout()
{
    // Intended: a window state begins with a zero byte, which ends the text, so the layout that is stored
    // is always the empty one and the bar comes back in its place at the next start.
    const QByteArray state = saveState(0);
    write_window_setting(WindowSetting::Layout, QString::fromLatin1(state.constData()));
    write_window_setting(WindowSetting::Width, width());
    write_window_setting(WindowSetting::Height, height());
}

void ImageManager::view_reset_layout()
{
    actions.value("view_labels"_L1)->setChecked(true);
    actions.value("view_movable"_L1)->setChecked(false);
    addToolBar(toolBar);
    toolBar->setVisible(true);
    write_window_setting(WindowSetting::Layout, QString());
}

void ImageManager::view_zoom_out()
{
    if (ImageDocumentView *const view = currentView())
        view->zoomOut();
    updateZoomControls();
}

void ImageManager::view_zoom_in()
{
    if (ImageDocumentView *const view = currentView())
        view->zoomIn();
    updateZoomControls();
}

void ImageManager::view_zoom_by_id(int id)
{
    const auto entry = std::ranges::find(zoomIds, id);
    ImageDocumentView *const view = currentView();
    if (entry == zoomIds.end() || !view)
        return;
    view->setZoomIndex(static_cast<int>(entry - zoomIds.begin()));
    updateZoomControls();
}

// Intended: no button is connected to it, as a button that has a menu opens it by itself.
void ImageManager::OnToolButtonActivated()
{
    if (auto *const button = qobject_cast<QToolButton *>(sender()))
        button->showMenu();
}
