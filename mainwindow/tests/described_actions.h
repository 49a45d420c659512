#pragma once

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

struct Action
{
    QLatin1StringView name;
    QLatin1StringView text;
    QLatin1StringView menuText;
    QLatin1StringView tip;
    QLatin1StringView shortcut;
    bool showsPicture; ///< in its what's-this text
    Need need;
};

inline constexpr std::array<Action, 46> Actions = {{
    {"file_new"_L1, "New"_L1, "&New..."_L1, "Creates new empty image"_L1, "Ctrl+N"_L1, false, Nothing},
    {"file_open"_L1, "Open"_L1, "&Open..."_L1, "Opens an existing image file"_L1, "Ctrl+O"_L1, false, Nothing},
    {"file_save"_L1, "Save"_L1, "&Save"_L1, "Saves current image to disk file"_L1, "Ctrl+S"_L1, true, Tab},
    {"file_save_as"_L1, "Save As"_L1, "Save &As..."_L1, "Saves current image with another file name"_L1, ""_L1, false,
     Tab},
    {"file_save_all"_L1, "Save All"_L1, "Save A&ll..."_L1, "Saves all unsaved images"_L1, ""_L1, false, Tab},
    {"file_print"_L1, "Print"_L1, "&Print"_L1, "Prints current image"_L1, "Ctrl+P"_L1, true, Tab},
    {"file_close"_L1, "Close"_L1, "&Close"_L1, "Closes current image"_L1, ""_L1, false, Tab},
    {"file_close_all"_L1, "Close All"_L1, "Close All"_L1, "Closes all images"_L1, ""_L1, false, Tab},
    {"file_exit"_L1, "Exit"_L1, "E&xit"_L1, "Exits the program"_L1, ""_L1, false, Nothing},
    {"view_labels"_L1, "Labels"_L1, "&Labels"_L1, "Shows or hides text labels on toolbar buttons"_L1, ""_L1, false,
     Nothing},
    {"view_big_pixmaps"_L1, "Big Pixmaps"_L1, "&Big Pixmaps"_L1, "Sets the size of pixmaps on toolbar buttons"_L1,
     ""_L1, false, Nothing},
    {"view_tooltips"_L1, "Tooltips"_L1, "&Tooltips"_L1, "Shows or hides tooltips on toolbar buttons"_L1, ""_L1, false,
     NoAction},
    {"view_movable"_L1, "Movable Toolbars"_L1, "&Movable Toolbars"_L1, "Enables or disables toolbars movement"_L1,
     ""_L1, false, Nothing},
    {"view_save"_L1, "Save Layout"_L1, "&Save Layout"_L1, "Saves current window layout"_L1, ""_L1, false, NoAction},
    {"view_reset"_L1, "Reset Layout"_L1, "&Reset Layout"_L1, "Set default window layout"_L1, ""_L1, false, Nothing},
    {"edit_undo"_L1, "Undo"_L1, "U&ndo"_L1, "Undoes last edit operation"_L1, "Ctrl+Z"_L1, true, Past},
    {"edit_redo"_L1, "Redo"_L1, "R&edo"_L1, "Redoes last undone operation"_L1, "Ctrl+Y"_L1, true, Past},
    {"view_scroll"_L1, "Scroll"_L1, "&Scroll"_L1, "Activates image free-hand scrolling"_L1, ""_L1, false, Tab},
    {"view_zoom_out"_L1, "Zoom Out"_L1, "Zoom &Out"_L1, "Zooms current image out"_L1, ""_L1, false, Tab},
    {"view_zoom_in"_L1, "Zoom In"_L1, "Zoom &In"_L1, "Zooms current image in"_L1, ""_L1, false, Tab},
    {"scale_menu"_L1, "Scale"_L1, "&Scale"_L1, "Displays Scale dialog to set image scale value"_L1, ""_L1, false, Tab},
    {"scale_horizontally"_L1, "Horizontally"_L1, "&Horizontally..."_L1,
     "Displays Scale dialog to set image scale value"_L1, ""_L1, false, Nothing},
    {"scale_vertically"_L1, "Vertically"_L1, "&Vertically..."_L1, "Displays Scale dialog to set image scale value"_L1,
     ""_L1, false, Nothing},
    {"scale_proportionally"_L1, "Proportionally"_L1, "&Proportionally..."_L1,
     "Displays Scale dialog to set image scale value"_L1, ""_L1, false, Nothing},
    {"image_resize"_L1, "Resize"_L1, "&Resize..."_L1, "Displays Resize dialog to set image size in pixels"_L1, ""_L1,
     false, Nothing},
    {"rotate_menu"_L1, "Rotate"_L1, "&Rotate"_L1, "Rotates the image"_L1, ""_L1, false, Tab},
    {"rotate_ccw"_L1, "90 degrees CCW"_L1, "9&0 degrees CCW"_L1,
     "Rotates the image to 90 degrees counter-clock-wise"_L1, ""_L1, false, Nothing},
    {"rotate_cw"_L1, "90 degrees CW"_L1, "&90 degrees CW"_L1, "Rotates the image to 90 degrees clock-wise"_L1, ""_L1,
     false, Nothing},
    {"rotate_180"_L1, "180 degrees"_L1, "&180 degrees"_L1, "Rotates the image to 180 degrees"_L1, ""_L1, false,
     Nothing},
    {"flip_menu"_L1, "Flip"_L1, "&Flip"_L1, "Flips the image"_L1, ""_L1, false, Tab},
    {"flip_horizontally"_L1, "Horizontally"_L1, "&Horizontally"_L1,
     R"(Flips the image horizontally ("mirror on the wall"))"_L1, ""_L1, false, Nothing},
    {"flip_vertically"_L1, "Vertically"_L1, "&Vertically"_L1,
     R"(Flips the image vertically ("mirror on the floor"))"_L1, ""_L1, false, Nothing},
    {"image_invert"_L1, "Invert"_L1, "&Invert"_L1, "Inverts image colors"_L1, ""_L1, false, Tab},
    {"image_brightness"_L1, "Brightness"_L1, "&Brightness..."_L1, "Sets image brightness"_L1, ""_L1, false, Tab},
    {"image_contrast"_L1, "Contrast"_L1, "&Contrast..."_L1, "Sets image contrast"_L1, ""_L1, false, Tab},
    {"depth_menu"_L1, "Color Bit Depth"_L1, "&Color Bit Depth"_L1, "Sets image color depth"_L1, ""_L1, false, Tab},
    {"depth_1"_L1, "1 bit"_L1, "&1 bit"_L1, "Sets image color depth to 1 bit"_L1, ""_L1, false, Nothing},
    {"depth_8"_L1, "8 bit"_L1, "&8 bit"_L1, "Sets image color depth to 8 bit"_L1, ""_L1, false, Nothing},
    {"depth_32"_L1, "32 bit"_L1, "&32 bit"_L1, "Sets image color depth to 32 bit"_L1, ""_L1, false, Nothing},
    {"image_crop"_L1, "Crop"_L1, "C&rop"_L1, "Creates a new image from the selection"_L1, ""_L1, false, Selection},
    {"image_properties"_L1, "Properties"_L1, "&Properties..."_L1,
     "Displays Properties dialog to set image properties"_L1, ""_L1, false, Tab},
    {"tool_graphics_editor"_L1, "Graphics Editor"_L1, "&Graphics Editor"_L1,
     "Starts external graphics editor with the image"_L1, ""_L1, false, Tab},
    {"tool_ocr"_L1, "OCR"_L1, "&OCR"_L1, "Starts external Optical Character Recognition (OCR) program"_L1, ""_L1, false,
     Tab},
    {"tool_send"_L1, "Send by E-mail"_L1, "&Send by E-mail..."_L1, "Sends the image by E-mail"_L1, ""_L1, false, Tab},
    {"tool_upload"_L1, "Upload by FTP"_L1, "&Upload by FTP..."_L1, "Uploads the image to remote FTP server"_L1, ""_L1,
     true, Tab},
    {"tool_configure"_L1, "Configure Tools"_L1, "&Configure Tools..."_L1, "Displays tools configuration dialog"_L1,
     ""_L1, false, Nothing},
}};

} // namespace described
