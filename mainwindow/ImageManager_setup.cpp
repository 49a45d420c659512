#include "action_places.h"
#include "action_records.h"
#include "DocumentTabs.h"
#include "IdMenu.h"
#include "ImageDocumentView.h"
#include "ImageManager.h"
#include "window_settings.h"

#include <QAction>
#include <QActionGroup>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QMenuBar>
#include <QScreen>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize DefaultSize(335, 564); // pixels
constexpr int IconSide = 24;

using Groups = QHash<QLatin1StringView, QActionGroup *>; ///< by the action that opens the sub-menu

/// What an action belongs to: the group that lists it as its own, or the window.
QObject *parent_of(QLatin1StringView action, const Groups &groups, QObject *window)
{
    const auto place = std::ranges::find_if(action_places::All, [action](const ActionPlace &candidate) {
        return candidate.kind == ActionPlace::Kind::Group && std::ranges::count(candidate.entries, action) != 0;
    });
    return place == action_places::All.end() ? window : groups.value(QLatin1StringView(place->name));
}

/// The group of a sub-menu, which the window's own actions have joined where the place gathers them.
void join_group(QActionGroup *group, QLatin1StringView menu, const QHash<QLatin1StringView, QAction *> &actions)
{
    for (const ActionPlace &place : action_places::All) {
        if (place.kind != ActionPlace::Kind::Gathering || QLatin1StringView(place.name) != menu)
            continue;
        for (const QLatin1StringView entry : place.entries)
            group->addAction(actions.value(entry));
    }
}

void apply_records(QAction *action, const ActionRow &row)
{
    if (row.texts.text)
        applyActionRecord(action, action_record(row.texts));
    if (row.use.icon.isEmpty())
        return;
    const IconRecord icon = icon_record(row.use.icon);
    applyIconRecord(action, embeddedPixmap(icon.color), embeddedPixmap(icon.gray), embeddedPixmap(icon.disable));
}

} // namespace

ImageManager::ImageManager(QWidget *parent) : QMainWindow(parent)
{
    // Settings of a former kind, which nothing reads any more.
    QFile::remove(QDir(QDir::homePath()).absoluteFilePath(u".qt/image_editorrc"_s));

    setWindowTitle(tr("Image Manager"));
    makeActions();
    makePlaces();

    tabWidget = new DocumentTabs(this);
    tabWidget->setAccessibleName(tr("Documents"));
    setCentralWidget(tabWidget);
    tabWidget->setVisible(true);
    makeBracket();

    readSettings();
    addToolBar(toolBar);
    QCoreApplication::processEvents();

    updateDocumentActions();
    connectActions();
}

void ImageManager::makeActions()
{
    zoomGroup = new QActionGroup(this);
    Groups groups;
    for (const ActionPlace &place : action_places::All) {
        if (!place.isSubMenu())
            continue;
        auto *const group = new QActionGroup(this);
        group->setExclusive(false);
        groups.insert(QLatin1StringView(place.name), group);
    }
    for (const ActionRow &row : action_table())
        makeAction(row, groups);
    for (const ActionRow &row : action_table())
        if (QAction *const action = actions.value(row.name))
            apply_records(action, row);
    actions.value("effects_menu"_L1)->setText(tr("Effects"));
}

void ImageManager::makeAction(const ActionRow &row, const QHash<QLatin1StringView, QActionGroup *> &groups)
{
    QAction *action = nullptr;
    switch (row.use.target.kind) {
    case ActionTarget::Kind::None:
        return;
    case ActionTarget::Kind::ZoomSteps:
        makeZoomActions();
        return;
    case ActionTarget::Kind::SubMenu:
        join_group(groups.value(row.name), row.name, actions);
        action = makeGroupMenu(groups.value(row.name));
        break;
    case ActionTarget::Kind::Toggled:
    case ActionTarget::Kind::ToggledForViews:
        action = new QAction(parent_of(row.name, groups, this));
        action->setCheckable(true);
        break;
    case ActionTarget::Kind::Triggered:
        action = new QAction(parent_of(row.name, groups, this));
        break;
    }
    action->setObjectName(row.name);
    actions.insert(row.name, action);
}

void ImageManager::makeZoomActions()
{
    ActionRecord record;
    record.tip = tr("Changes the image zoom");
    record.whatsThisForm = tr("<p>Zoom<p><p>Changes the image zoom.</p>");
    for (const QLatin1StringView name : zoom_names()) {
        record.text = name;
        record.menuText = name;
        auto *const action = new QAction(zoomGroup);
        action->setCheckable(true);
        applyActionRecord(action, record);
    }
}

QAction *ImageManager::makeGroupMenu(QActionGroup *group)
{
    auto *const menu = new QMenu(this);
    menu->addActions(group->actions());
    return menu->menuAction();
}

void ImageManager::makePlaces()
{
    for (const ActionPlace &place : action_places::All) {
        switch (place.kind) {
        case ActionPlace::Kind::Menu:
        case ActionPlace::Kind::ToolsMenu:
            makeMenu(new QMenu(this), place);
            break;
        case ActionPlace::Kind::ZoomMenu:
            zoomMenu = new IdMenu(this);
            makeMenu(zoomMenu, place);
            for (size_t i = 0; i < zoomIds.size(); ++i)
                zoomIds.at(i) = zoomMenu->findIdForAction(zoomMenu->actions().value(static_cast<int>(i)));
            break;
        case ActionPlace::Kind::ToolBar:
            makeToolBar(place);
            break;
        case ActionPlace::Kind::Group:
        case ActionPlace::Kind::Gathering:
            break; // made with the actions
        }
    }
}

void ImageManager::makeMenu(QMenu *menu, const ActionPlace &place)
{
    placeActions(menu, place);
    // Intended: unless a setting asks for it the menu of the tools is on no bar, and there is no way to its commands.
    if (place.kind == ActionPlace::Kind::ToolsMenu && !read_window_setting(WindowSetting::ToolsMenu, false).toBool())
        return;
    menu->setTitle(tr(place.name));
    menuBar()->addMenu(menu);
}

void ImageManager::makeToolBar(const ActionPlace &place)
{
    toolBar = new QToolBar(this);
    toolBar->setIconSize(QSize(IconSide, IconSide));
    toolBar->setWindowTitle(tr(place.name));
    toolBar->setObjectName(tr(place.name));
    toolBar->setAccessibleName(toolBar->windowTitle());
    // The button behind which the bar hides what a narrow window has no room for.
    if (auto *const extension = toolBar->findChild<QToolButton *>(u"qt_toolbar_ext_button"_s))
        extension->setAccessibleName(tr("More commands"));
    placeActions(toolBar, place);
}

void ImageManager::placeActions(QWidget *widget, const ActionPlace &place)
{
    for (const QLatin1StringView entry : place.entries) {
        if (entry == action_places::Separator) {
            auto *const separator = new QAction(widget);
            separator->setSeparator(true);
            widget->addAction(separator);
        } else if (QAction *const action = actions.value(entry)) {
            widget->addAction(action);
        } else {
            widget->addActions(zoomGroup->actions());
        }
    }
}

void ImageManager::readSettings()
{
    const QString layout = read_window_setting(WindowSetting::Layout, QString()).toString();
    if (!layout.isEmpty())
        restoreState(layout.toLatin1(), 0);
    resize(read_window_size(DefaultSize, screen()->availableSize()));

    const bool labels = read_window_setting(WindowSetting::ShowLabels, true).toBool();
    actions.value("view_labels"_L1)->setChecked(labels);
    toolBar->setToolButtonStyle(labels ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly);

    const bool movable = read_window_setting(WindowSetting::MovableToolbars, false).toBool();
    actions.value("view_movable"_L1)->setChecked(movable);
    toolBar->setMovable(movable);
}

// Made last, so that the first state of the actions reaches no slot.
void ImageManager::connectActions()
{
    connect(zoomMenu, &IdMenu::activated, this, &ImageManager::view_zoom_by_id);
    connect(tabWidget, &QTabWidget::currentChanged, this, [this](int index) {
        if (index >= 0) // the last tab leaves without a word
            tabChanged(tabWidget->widget(index));
    });

    for (const ActionRow &row : action_table())
        if (row.use.target.connect)
            row.use.target.connect(actions.value(row.name), this);
}
