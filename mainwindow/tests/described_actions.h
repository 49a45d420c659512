#pragma once

#include "ImageManager.h"

#include <QAction>
#include <QLatin1StringView>

#include <array>

/// What the commands of the window are, written from their description and not from the program.
namespace described {

using namespace Qt::StringLiterals;

enum Need {
    NoAction, ///< a row of texts that no action has
    Nothing, ///< always on, also as an entry of a sub-menu that opens only with a tab
    Tab,
    Past, ///< off without a tab; with one, on as far as there is something to undo or to redo
    Selection,
};

/// Cuts the wire from a signal of an action to a slot of the window. False if there is none.
using CutWire = bool (*)(const QAction *action, const ImageManager *window);

template <auto Slot>
constexpr CutWire Triggered = [](const QAction *action, const ImageManager *window) {
    return QObject::disconnect(action, &QAction::triggered, window, Slot);
};
template <auto Slot>
constexpr CutWire Toggled = [](const QAction *action, const ImageManager *window) {
    return QObject::disconnect(action, &QAction::toggled, window, Slot);
};

struct Action
{
    QLatin1StringView name;
    QLatin1StringView text;
    QLatin1StringView menuText;
    QLatin1StringView tip;
    QLatin1StringView shortcut;
    bool showsPicture; ///< in its what's-this text
    Need need;
    CutWire fires; ///< null for what fires no slot of the window
};

inline constexpr std::array<Action, 46> Actions = {{
    {"file_new"_L1, "New"_L1, "&New..."_L1, "Creates new empty image"_L1, "Ctrl+N"_L1, false, Nothing,
     Triggered<&ImageManager::file_new>},
    {"file_open"_L1, "Open"_L1, "&Open..."_L1, "Opens an existing image file"_L1, "Ctrl+O"_L1, false, Nothing,
     Triggered<&ImageManager::file_open>},
    {"file_save"_L1, "Save"_L1, "&Save"_L1, "Saves current image to disk file"_L1, "Ctrl+S"_L1, true, Tab,
     Triggered<&ImageManager::file_save>},
    {"file_save_as"_L1, "Save As"_L1, "Save &As..."_L1, "Saves current image with another file name"_L1, ""_L1, false,
     Tab, Triggered<&ImageManager::file_save_as>},
    {"file_save_all"_L1, "Save All"_L1, "Save A&ll..."_L1, "Saves all unsaved images"_L1, ""_L1, false, Tab,
     Triggered<&ImageManager::file_save_all>},
    {"file_print"_L1, "Print"_L1, "&Print"_L1, "Prints current image"_L1, "Ctrl+P"_L1, true, Tab,
     Triggered<&ImageManager::file_print>},
    {"file_close"_L1, "Close"_L1, "&Close"_L1, "Closes current image"_L1, ""_L1, false, Tab,
     Triggered<&ImageManager::file_close>},
    {"file_close_all"_L1, "Close All"_L1, "Close All"_L1, "Closes all images"_L1, ""_L1, false, Tab,
     Triggered<&ImageManager::file_close_all>},
    {"file_exit"_L1, "Exit"_L1, "E&xit"_L1, "Exits the program"_L1, ""_L1, false, Nothing,
     Triggered<&ImageManager::close>},
    {"view_labels"_L1, "Labels"_L1, "&Labels"_L1, "Shows or hides text labels on toolbar buttons"_L1, ""_L1, false,
     Nothing, Toggled<&ImageManager::view_show_labels>},
    {"view_big_pixmaps"_L1, "Big Pixmaps"_L1, "&Big Pixmaps"_L1, "Sets the size of pixmaps on toolbar buttons"_L1,
     ""_L1, false, Nothing, Toggled<&ImageManager::view_big_pixmaps>},
    {"view_tooltips"_L1, "Tooltips"_L1, "&Tooltips"_L1, "Shows or hides tooltips on toolbar buttons"_L1, ""_L1, false,
     NoAction, nullptr},
    {"view_movable"_L1, "Movable Toolbars"_L1, "&Movable Toolbars"_L1, "Enables or disables toolbars movement"_L1,
     ""_L1, false, Nothing, Toggled<&ImageManager::view_movable_toolbars>},
    {"view_save"_L1, "Save Layout"_L1, "&Save Layout"_L1, "Saves current window layout"_L1, ""_L1, false, NoAction,
     nullptr},
    {"view_reset"_L1, "Reset Layout"_L1, "&Reset Layout"_L1, "Set default window layout"_L1, ""_L1, false, Nothing,
     Triggered<&ImageManager::view_reset_layout>},
    {"edit_undo"_L1, "Undo"_L1, "U&ndo"_L1, "Undoes last edit operation"_L1, "Ctrl+Z"_L1, true, Past,
     Triggered<&ImageManager::edit_undo>},
    {"edit_redo"_L1, "Redo"_L1, "R&edo"_L1, "Redoes last undone operation"_L1, "Ctrl+Y"_L1, true, Past,
     Triggered<&ImageManager::edit_redo>},
    {"view_scroll"_L1, "Scroll"_L1, "&Scroll"_L1, "Activates image free-hand scrolling"_L1, ""_L1, false, Tab, nullptr},
    {"view_zoom_out"_L1, "Zoom Out"_L1, "Zoom &Out"_L1, "Zooms current image out"_L1, ""_L1, false, Tab,
     Triggered<&ImageManager::view_zoom_out>},
    {"view_zoom_in"_L1, "Zoom In"_L1, "Zoom &In"_L1, "Zooms current image in"_L1, ""_L1, false, Tab,
     Triggered<&ImageManager::view_zoom_in>},
    {"scale_menu"_L1, "Scale"_L1, "&Scale"_L1, "Displays Scale dialog to set image scale value"_L1, ""_L1, false, Tab,
     nullptr},
    {"scale_horizontally"_L1, "Horizontally"_L1, "&Horizontally..."_L1,
     "Displays Scale dialog to set image scale value"_L1, ""_L1, false, Nothing,
     Triggered<&ImageManager::image_scale_horizontally>},
    {"scale_vertically"_L1, "Vertically"_L1, "&Vertically..."_L1, "Displays Scale dialog to set image scale value"_L1,
     ""_L1, false, Nothing, Triggered<&ImageManager::image_scale_vertically>},
    {"scale_proportionally"_L1, "Proportionally"_L1, "&Proportionally..."_L1,
     "Displays Scale dialog to set image scale value"_L1, ""_L1, false, Nothing,
     Triggered<&ImageManager::image_scale_proportionally>},
    {"image_resize"_L1, "Resize"_L1, "&Resize..."_L1, "Displays Resize dialog to set image size in pixels"_L1, ""_L1,
     false, Nothing, Triggered<&ImageManager::image_resize>},
    {"rotate_menu"_L1, "Rotate"_L1, "&Rotate"_L1, "Rotates the image"_L1, ""_L1, false, Tab, nullptr},
    {"rotate_ccw"_L1, "90 degrees CCW"_L1, "9&0 degrees CCW"_L1,
     "Rotates the image to 90 degrees counter-clock-wise"_L1, ""_L1, false, Nothing,
     Triggered<&ImageManager::image_rotate_90>},
    {"rotate_cw"_L1, "90 degrees CW"_L1, "&90 degrees CW"_L1, "Rotates the image to 90 degrees clock-wise"_L1, ""_L1,
     false, Nothing, Triggered<&ImageManager::image_rotate_270>},
    {"rotate_180"_L1, "180 degrees"_L1, "&180 degrees"_L1, "Rotates the image to 180 degrees"_L1, ""_L1, false, Nothing,
     Triggered<&ImageManager::image_rotate_180>},
    {"flip_menu"_L1, "Flip"_L1, "&Flip"_L1, "Flips the image"_L1, ""_L1, false, Tab, nullptr},
    {"flip_horizontally"_L1, "Horizontally"_L1, "&Horizontally"_L1,
     R"(Flips the image horizontally ("mirror on the wall"))"_L1, ""_L1, false, Nothing,
     Triggered<&ImageManager::image_flip_horizontally>},
    {"flip_vertically"_L1, "Vertically"_L1, "&Vertically"_L1,
     R"(Flips the image vertically ("mirror on the floor"))"_L1, ""_L1, false, Nothing,
     Triggered<&ImageManager::image_flip_vertically>},
    {"image_invert"_L1, "Invert"_L1, "&Invert"_L1, "Inverts image colors"_L1, ""_L1, false, Tab,
     Triggered<&ImageManager::image_invert>},
    {"image_brightness"_L1, "Brightness"_L1, "&Brightness..."_L1, "Sets image brightness"_L1, ""_L1, false, Tab,
     Triggered<&ImageManager::image_brightness>},
    {"image_contrast"_L1, "Contrast"_L1, "&Contrast..."_L1, "Sets image contrast"_L1, ""_L1, false, Tab,
     Triggered<&ImageManager::image_contrast>},
    {"depth_menu"_L1, "Color Bit Depth"_L1, "&Color Bit Depth"_L1, "Sets image color depth"_L1, ""_L1, false, Tab,
     nullptr},
    {"depth_1"_L1, "1 bit"_L1, "&1 bit"_L1, "Sets image color depth to 1 bit"_L1, ""_L1, false, Nothing,
     Triggered<&ImageManager::image_depth_1_bit>},
    {"depth_8"_L1, "8 bit"_L1, "&8 bit"_L1, "Sets image color depth to 8 bit"_L1, ""_L1, false, Nothing,
     Triggered<&ImageManager::image_depth_8_bit>},
    {"depth_32"_L1, "32 bit"_L1, "&32 bit"_L1, "Sets image color depth to 32 bit"_L1, ""_L1, false, Nothing,
     Triggered<&ImageManager::image_depth_32_bit>},
    {"image_crop"_L1, "Crop"_L1, "C&rop"_L1, "Creates a new image from the selection"_L1, ""_L1, false, Selection,
     Triggered<&ImageManager::image_crop>},
    {"image_properties"_L1, "Properties"_L1, "&Properties..."_L1,
     "Displays Properties dialog to set image properties"_L1, ""_L1, false, Tab,
     Triggered<&ImageManager::image_properties>},
    {"tool_graphics_editor"_L1, "Graphics Editor"_L1, "&Graphics Editor"_L1,
     "Starts external graphics editor with the image"_L1, ""_L1, false, Tab,
     Triggered<&ImageManager::start_graphics_editor>},
    {"tool_ocr"_L1, "OCR"_L1, "&OCR"_L1, "Starts external Optical Character Recognition (OCR) program"_L1, ""_L1, false,
     Tab, Triggered<&ImageManager::start_OCR>},
    {"tool_send"_L1, "Send by E-mail"_L1, "&Send by E-mail..."_L1, "Sends the image by E-mail"_L1, ""_L1, false, Tab,
     Triggered<&ImageManager::send>},
    {"tool_upload"_L1, "Upload by FTP"_L1, "&Upload by FTP..."_L1, "Uploads the image to remote FTP server"_L1, ""_L1,
     true, Tab, Triggered<&ImageManager::upload_ftp>},
    {"tool_configure"_L1, "Configure Tools"_L1, "&Configure Tools..."_L1, "Displays tools configuration dialog"_L1,
     ""_L1, false, Nothing, Triggered<&ImageManager::configure_tools>},
}};

/// The shared part of the names of an action's three pictures.
struct Icon
{
    QLatin1StringView action;
    QLatin1StringView base;
};

inline constexpr std::array<Icon, 12> Icons = {{
    {"file_save"_L1, "Save"_L1},
    {"edit_undo"_L1, "Undo"_L1},
    {"edit_redo"_L1, "Redo"_L1},
    {"view_scroll"_L1, "Scroll"_L1},
    {"image_crop"_L1, "Crop"_L1},
    {"view_zoom_out"_L1, "ZoomOut"_L1},
    {"view_zoom_in"_L1, "ZoomIn"_L1},
    {"image_properties"_L1, "Properties"_L1},
    {"scale_menu"_L1, "Resize"_L1},
    {"rotate_menu"_L1, "Rotate"_L1},
    {"flip_menu"_L1, "Flip"_L1},
    {"effects_menu"_L1, "Effects"_L1},
}};

/// What stands in a menu or a group: names of actions, "-" for a separator.
struct Place
{
    QLatin1StringView name; ///< title, or the action that opens it
    QLatin1StringView entries;
};

inline constexpr std::array<Place, 5> Menus = {{
    {"&File"_L1,
     "file_open - file_save file_save_as file_save_all - file_print - file_close file_close_all - "
     "file_exit"_L1},
    {"&Edit"_L1, "edit_undo edit_redo"_L1},
    {"&View"_L1, "view_labels view_movable view_reset"_L1},
    {"&Zoom"_L1, "8:1 4:1 2:1 1:1 1:2 1:4 1:8 1:16"_L1},
    {"&Image"_L1,
     "depth_menu image_invert image_brightness image_contrast rotate_menu flip_menu scale_menu image_crop "
     "image_properties"_L1},
}};

/// The actions of the first four belong to their groups, those of the last one to the window.
inline constexpr std::array<Place, 5> SubMenus = {{
    {"scale_menu"_L1, "scale_horizontally scale_vertically scale_proportionally image_resize"_L1},
    {"rotate_menu"_L1, "rotate_ccw rotate_cw rotate_180"_L1},
    {"flip_menu"_L1, "flip_horizontally flip_vertically"_L1},
    {"depth_menu"_L1, "depth_1 depth_8 depth_32"_L1},
    {"effects_menu"_L1, "image_brightness image_contrast depth_menu image_invert"_L1},
}};

inline constexpr QLatin1StringView ToolsMenu("tool_graphics_editor tool_ocr tool_send tool_upload tool_configure");

inline constexpr QLatin1StringView ToolBar(
    "file_save - edit_undo edit_redo - view_zoom_out view_zoom_in - view_scroll image_crop - scale_menu rotate_menu "
    "flip_menu effects_menu - image_properties");

/// The actions that belong to the window itself, in the order in which they are made.
inline constexpr QLatin1StringView OwnActions(
    "file_new file_open file_save file_save_as file_save_all file_print file_close file_close_all file_exit edit_undo "
    "edit_redo view_scroll view_zoom_out view_zoom_in view_labels view_movable view_big_pixmaps view_reset "
    "image_invert image_brightness image_contrast image_crop image_properties tool_graphics_editor tool_ocr tool_send "
    "tool_upload tool_configure");

inline constexpr QLatin1StringView CheckableActions("view_scroll view_labels view_movable view_big_pixmaps");

} // namespace described
