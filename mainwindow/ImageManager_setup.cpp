#include "action_table.h"
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
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize DefaultSize(335, 564); // pixels
constexpr int IconSide = 24;

constexpr QLatin1StringView Separator; // an entry without a name

using Slot = void (ImageManager::*)();

struct EditCommand
{
    QLatin1StringView name;
    Slot slot;
};

constexpr std::array EditCommands = {
    EditCommand{"edit_undo"_L1, &ImageManager::edit_undo},
    EditCommand{"edit_redo"_L1, &ImageManager::edit_redo},
    EditCommand{"scale_horizontally"_L1, &ImageManager::image_scale_horizontally},
    EditCommand{"scale_vertically"_L1, &ImageManager::image_scale_vertically},
    EditCommand{"scale_proportionally"_L1, &ImageManager::image_scale_proportionally},
    EditCommand{"image_resize"_L1, &ImageManager::image_resize},
    EditCommand{"rotate_ccw"_L1, &ImageManager::image_rotate_90},
    EditCommand{"rotate_cw"_L1, &ImageManager::image_rotate_270},
    EditCommand{"rotate_180"_L1, &ImageManager::image_rotate_180},
    EditCommand{"flip_horizontally"_L1, &ImageManager::image_flip_horizontally},
    EditCommand{"flip_vertically"_L1, &ImageManager::image_flip_vertically},
    EditCommand{"image_invert"_L1, &ImageManager::image_invert},
    EditCommand{"image_brightness"_L1, &ImageManager::image_brightness},
    EditCommand{"image_contrast"_L1, &ImageManager::image_contrast},
    EditCommand{"depth_1"_L1, &ImageManager::image_depth_1_bit},
    EditCommand{"depth_8"_L1, &ImageManager::image_depth_8_bit},
    EditCommand{"depth_32"_L1, &ImageManager::image_depth_32_bit},
    EditCommand{"image_crop"_L1, &ImageManager::image_crop},
};

} // namespace

ImageManager::ImageManager(QWidget *parent) : QMainWindow(parent)
{
    // Settings of a former kind, which nothing reads any more.
    QFile::remove(QDir(QDir::homePath()).absoluteFilePath(u".qt/image_editorrc"_s));

    setWindowTitle(tr("Image Manager"));
    makeActions();
    makeMenus();
    makeToolBar();

    tabWidget = new QTabWidget(this);
    tabWidget->setAccessibleName(tr("Documents"));
    setCentralWidget(tabWidget);
    tabWidget->setVisible(true);

    readSettings();
    addToolBar(toolBar);
    QCoreApplication::processEvents();

    updateDocumentActions();
    connectActions();
}

void ImageManager::makeActions()
{
    zoomGroup = new QActionGroup(this);
    for (const QLatin1StringView name :
         {"file_new"_L1, "file_open"_L1, "file_save"_L1, "file_save_as"_L1, "file_save_all"_L1, "file_print"_L1,
          "file_close"_L1, "file_close_all"_L1, "file_exit"_L1, "edit_undo"_L1, "edit_redo"_L1})
        makeAction(name, this);
    makeZoomActions();
    for (const QLatin1StringView name : {"view_scroll"_L1, "view_zoom_out"_L1, "view_zoom_in"_L1, "view_labels"_L1,
                                         "view_movable"_L1, "view_big_pixmaps"_L1, "view_reset"_L1})
        makeAction(name, this);
    for (const QLatin1StringView name : {"view_scroll"_L1, "view_labels"_L1, "view_movable"_L1, "view_big_pixmaps"_L1})
        actions.value(name)->setCheckable(true);

    QActionGroup *const scale =
        makeActionGroup({"scale_horizontally"_L1, "scale_vertically"_L1, "scale_proportionally"_L1, "image_resize"_L1});
    QActionGroup *const rotate = makeActionGroup({"rotate_ccw"_L1, "rotate_cw"_L1, "rotate_180"_L1});
    QActionGroup *const flip = makeActionGroup({"flip_horizontally"_L1, "flip_vertically"_L1});
    QActionGroup *const depth = makeActionGroup({"depth_1"_L1, "depth_8"_L1, "depth_32"_L1});

    for (const QLatin1StringView name :
         {"image_invert"_L1, "image_brightness"_L1, "image_contrast"_L1, "image_crop"_L1, "image_properties"_L1,
          "tool_graphics_editor"_L1, "tool_ocr"_L1, "tool_send"_L1, "tool_upload"_L1, "tool_configure"_L1})
        makeAction(name, this);

    makeGroupMenu(scale, "scale_menu"_L1);
    makeGroupMenu(rotate, "rotate_menu"_L1);
    makeGroupMenu(flip, "flip_menu"_L1);
    makeGroupMenu(depth, "depth_menu"_L1);

    QActionGroup *const effects = makeActionGroup({});
    for (const QLatin1StringView name :
         {"image_brightness"_L1, "image_contrast"_L1, "depth_menu"_L1, "image_invert"_L1})
        effects->addAction(actions.value(name));
    makeGroupMenu(effects, "effects_menu"_L1)->setText(tr("Effects"));

    applyIcons();
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

QAction *ImageManager::makeAction(QLatin1StringView name, QObject *parent)
{
    auto *const action = new QAction(parent);
    action->setObjectName(name);
    applyActionRecord(action, *action_record(name));
    actions.insert(name, action);
    return action;
}

QActionGroup *ImageManager::makeActionGroup(std::initializer_list<QLatin1StringView> names)
{
    auto *const group = new QActionGroup(this);
    group->setExclusive(false);
    for (const QLatin1StringView name : names)
        makeAction(name, group);
    return group;
}

QAction *ImageManager::makeGroupMenu(QActionGroup *group, QLatin1StringView name)
{
    auto *const menu = new QMenu(this);
    menu->addActions(group->actions());
    QAction *const action = menu->menuAction();
    action->setObjectName(name);
    if (const ActionRecord *const record = action_record(name))
        applyActionRecord(action, *record);
    actions.insert(name, action);
    return action;
}

void ImageManager::applyIcons()
{
    for (const IconRecord &record : icon_table())
        applyIconRecord(actions.value(record.action), embeddedPixmap(record.base + "_color.png"_L1),
                        embeddedPixmap(record.base + "_gray.png"_L1), embeddedPixmap(record.base + "_disable.png"_L1));
}

void ImageManager::makeMenus()
{
    addBarMenu(tr("&File"),
               {"file_open"_L1, Separator, "file_save"_L1, "file_save_as"_L1, "file_save_all"_L1, Separator,
                "file_print"_L1, Separator, "file_close"_L1, "file_close_all"_L1, Separator, "file_exit"_L1});
    addBarMenu(tr("&Edit"), {"edit_undo"_L1, "edit_redo"_L1});
    addBarMenu(tr("&View"), {"view_labels"_L1, "view_movable"_L1, "view_reset"_L1});

    zoomMenu = new IdMenu(this);
    zoomMenu->setTitle(tr("&Zoom"));
    zoomMenu->addActions(zoomGroup->actions());
    menuBar()->addMenu(zoomMenu);
    for (size_t i = 0; i < zoomIds.size(); ++i)
        zoomIds.at(i) = zoomMenu->findIdForAction(zoomMenu->actions().value(static_cast<int>(i)));

    addBarMenu(tr("&Image"),
               {"depth_menu"_L1, "image_invert"_L1, "image_brightness"_L1, "image_contrast"_L1, "rotate_menu"_L1,
                "flip_menu"_L1, "scale_menu"_L1, "image_crop"_L1, "image_properties"_L1});

    makeToolsMenu();
}

// Intended: unless a setting asks for it the menu is on no bar, and there is no way to its commands.
void ImageManager::makeToolsMenu()
{
    auto *const menu = new QMenu(this);
    placeActions(menu,
                 {"tool_graphics_editor"_L1, "tool_ocr"_L1, "tool_send"_L1, "tool_upload"_L1, "tool_configure"_L1});
    if (!read_window_setting(WindowSetting::ToolsMenu, false).toBool())
        return;
    menu->setTitle(tr("&Tools"));
    menuBar()->addMenu(menu);
}

void ImageManager::addBarMenu(const QString &title, std::initializer_list<QLatin1StringView> names)
{
    auto *const menu = new QMenu(title, this);
    placeActions(menu, names);
    menuBar()->addMenu(menu);
}

void ImageManager::placeActions(QWidget *place, std::initializer_list<QLatin1StringView> names)
{
    for (const QLatin1StringView name : names) {
        QAction *action = actions.value(name);
        if (name == Separator) {
            action = new QAction(place);
            action->setSeparator(true);
        }
        place->addAction(action);
    }
}

void ImageManager::makeToolBar()
{
    toolBar = new QToolBar(this);
    toolBar->setIconSize(QSize(IconSide, IconSide));
    toolBar->setWindowTitle(tr("Image Manager Toolbar"));
    toolBar->setObjectName(tr("Image Manager Toolbar"));
    toolBar->setAccessibleName(toolBar->windowTitle());
    // The button behind which the bar hides what a narrow window has no room for.
    if (auto *const extension = toolBar->findChild<QToolButton *>(u"qt_toolbar_ext_button"_s))
        extension->setAccessibleName(tr("More commands"));
    placeActions(toolBar,
                 {"file_save"_L1, Separator, "edit_undo"_L1, "edit_redo"_L1, Separator, "view_zoom_out"_L1,
                  "view_zoom_in"_L1, Separator, "view_scroll"_L1, "image_crop"_L1, Separator, "scale_menu"_L1,
                  "rotate_menu"_L1, "flip_menu"_L1, "effects_menu"_L1, Separator, "image_properties"_L1});
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

    connect(actions.value("file_new"_L1), &QAction::triggered, this, &ImageManager::file_new);
    connect(actions.value("file_open"_L1), &QAction::triggered, this, &ImageManager::file_open);
    connect(actions.value("file_save"_L1), &QAction::triggered, this, &ImageManager::file_save);
    connect(actions.value("file_save_as"_L1), &QAction::triggered, this, &ImageManager::file_save_as);
    connect(actions.value("file_save_all"_L1), &QAction::triggered, this, &ImageManager::file_save_all);
    connect(actions.value("file_print"_L1), &QAction::triggered, this, &ImageManager::file_print);
    connect(actions.value("file_close"_L1), &QAction::triggered, this, &ImageManager::file_close);
    connect(actions.value("file_close_all"_L1), &QAction::triggered, this, &ImageManager::file_close_all);
    for (const EditCommand &command : EditCommands)
        connect(actions.value(command.name), &QAction::triggered, this, command.slot);
    connect(actions.value("image_properties"_L1), &QAction::triggered, this, &ImageManager::image_properties);
    connect(actions.value("tool_graphics_editor"_L1), &QAction::triggered, this, &ImageManager::start_graphics_editor);
    connect(actions.value("tool_ocr"_L1), &QAction::triggered, this, &ImageManager::start_OCR);
    connect(actions.value("tool_send"_L1), &QAction::triggered, this, &ImageManager::send);
    connect(actions.value("tool_upload"_L1), &QAction::triggered, this, &ImageManager::upload_ftp);
    connect(actions.value("tool_configure"_L1), &QAction::triggered, this, &ImageManager::configure_tools);
    connect(actions.value("file_exit"_L1), &QAction::triggered, this, &QWidget::close);
    connect(actions.value("view_labels"_L1), &QAction::toggled, this, &ImageManager::view_show_labels);
    connect(actions.value("view_movable"_L1), &QAction::toggled, this, &ImageManager::view_movable_toolbars);
    connect(actions.value("view_big_pixmaps"_L1), &QAction::toggled, this, &ImageManager::view_big_pixmaps);
    connect(actions.value("view_reset"_L1), &QAction::triggered, this, &ImageManager::view_reset_layout);
    connect(actions.value("view_zoom_out"_L1), &QAction::triggered, this, &ImageManager::view_zoom_out);
    connect(actions.value("view_zoom_in"_L1), &QAction::triggered, this, &ImageManager::view_zoom_in);
}
