#include "action_table.h"

#include "action_places.h"
#include "ImageManager.h"

#include <QAction>

#include <algorithm>
#include <array>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {

using Kind = ActionTarget::Kind;

template <auto Slot>
constexpr ActionTarget Triggered = {Kind::Triggered, [](const QAction *action, ImageManager *window) {
                                        QObject::connect(action, &QAction::triggered, window, Slot);
                                    }};
template <auto Slot>
constexpr ActionTarget Toggled = {Kind::Toggled, [](const QAction *action, ImageManager *window) {
                                      QObject::connect(action, &QAction::toggled, window, Slot);
                                  }};
constexpr ActionTarget ToggledForViews = {Kind::ToggledForViews, nullptr};
constexpr ActionTarget SubMenu = {Kind::SubMenu, nullptr};
constexpr ActionTarget ZoomSteps = {Kind::ZoomSteps, nullptr};
constexpr ActionTarget NoAction = {Kind::None, nullptr};

constexpr QLatin1StringView NoIcon;
constexpr QLatin1StringView NoKey;
constexpr ActionTexts NoTexts = {nullptr, nullptr, nullptr, {}, NoKey};

// The texts are marked for the catalogues here and translated where a row is poured into an action; written out in
// full, since that is how lupdate finds them. A sub-menu's row stands behind those of its entries.
constexpr auto ActionTable = std::to_array<ActionRow>({
    {"file_new"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "New"), QT_TRANSLATE_NOOP("Global String Table", "&New..."),
      QT_TRANSLATE_NOOP("Global String Table", "Creates new empty image"), PlainForm, "Ctrl+N"_L1},
     {Triggered<&ImageManager::file_new>, Need::Nothing, Standing::Nowhere, NoIcon}},
    {"file_open"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Open"), QT_TRANSLATE_NOOP("Global String Table", "&Open..."),
      QT_TRANSLATE_NOOP("Global String Table", "Opens an existing image file"), PlainForm, "Ctrl+O"_L1},
     {Triggered<&ImageManager::file_open>, Need::Nothing, Standing::InPlaces, NoIcon}},
    {"file_save"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Save"), QT_TRANSLATE_NOOP("Global String Table", "&Save"),
      QT_TRANSLATE_NOOP("Global String Table", "Saves current image to disk file"), PictureForm, "Ctrl+S"_L1},
     {Triggered<&ImageManager::file_save>, Need::Document, Standing::InPlaces, "Save"_L1}},
    {"file_save_as"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Save As"), QT_TRANSLATE_NOOP("Global String Table", "Save &As..."),
      QT_TRANSLATE_NOOP("Global String Table", "Saves current image with another file name"), PlainForm, NoKey},
     {Triggered<&ImageManager::file_save_as>, Need::Document, Standing::InPlaces, NoIcon}},
    {"file_save_all"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Save All"), QT_TRANSLATE_NOOP("Global String Table", "Save A&ll..."),
      QT_TRANSLATE_NOOP("Global String Table", "Saves all unsaved images"), PlainForm, NoKey},
     {Triggered<&ImageManager::file_save_all>, Need::Document, Standing::InPlaces, NoIcon}},
    {"file_print"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Print"), QT_TRANSLATE_NOOP("Global String Table", "&Print"),
      QT_TRANSLATE_NOOP("Global String Table", "Prints current image"), PictureForm, "Ctrl+P"_L1},
     {Triggered<&ImageManager::file_print>, Need::Document, Standing::InPlaces, NoIcon}},
    {"file_close"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Close"), QT_TRANSLATE_NOOP("Global String Table", "&Close"),
      QT_TRANSLATE_NOOP("Global String Table", "Closes current image"), PlainForm, NoKey},
     {Triggered<&ImageManager::file_close>, Need::Document, Standing::InPlaces, NoIcon}},
    {"file_close_all"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Close All"), QT_TRANSLATE_NOOP("Global String Table", "Close All"),
      QT_TRANSLATE_NOOP("Global String Table", "Closes all images"), PlainForm, NoKey},
     {Triggered<&ImageManager::file_close_all>, Need::Document, Standing::InPlaces, NoIcon}},
    {"file_exit"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Exit"), QT_TRANSLATE_NOOP("Global String Table", "E&xit"),
      QT_TRANSLATE_NOOP("Global String Table", "Exits the program"), PlainForm, NoKey},
     {Triggered<&ImageManager::close>, Need::Nothing, Standing::InPlaces, NoIcon}},
    {"edit_undo"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Undo"), QT_TRANSLATE_NOOP("Global String Table", "U&ndo"),
      QT_TRANSLATE_NOOP("Global String Table", "Undoes last edit operation"), PictureForm, "Ctrl+Z"_L1},
     {Triggered<&ImageManager::edit_undo>, Need::Past, Standing::InPlaces, "Undo"_L1}},
    {"edit_redo"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Redo"), QT_TRANSLATE_NOOP("Global String Table", "R&edo"),
      QT_TRANSLATE_NOOP("Global String Table", "Redoes last undone operation"), PictureForm, "Ctrl+Y"_L1},
     {Triggered<&ImageManager::edit_redo>, Need::Future, Standing::InPlaces, "Redo"_L1}},
    {"zoom_steps"_L1, NoTexts, {ZoomSteps, Need::Document, Standing::InPlaces, NoIcon}},
    {"view_scroll"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Scroll"), QT_TRANSLATE_NOOP("Global String Table", "&Scroll"),
      QT_TRANSLATE_NOOP("Global String Table", "Activates image free-hand scrolling"), PlainForm, NoKey},
     {ToggledForViews, Need::Document, Standing::InPlaces, "Scroll"_L1}},
    {"view_zoom_out"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Zoom Out"), QT_TRANSLATE_NOOP("Global String Table", "Zoom &Out"),
      QT_TRANSLATE_NOOP("Global String Table", "Zooms current image out"), PlainForm, NoKey},
     {Triggered<&ImageManager::view_zoom_out>, Need::SmallerZoom, Standing::InPlaces, "ZoomOut"_L1}},
    {"view_zoom_in"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Zoom In"), QT_TRANSLATE_NOOP("Global String Table", "Zoom &In"),
      QT_TRANSLATE_NOOP("Global String Table", "Zooms current image in"), PlainForm, NoKey},
     {Triggered<&ImageManager::view_zoom_in>, Need::LargerZoom, Standing::InPlaces, "ZoomIn"_L1}},
    {"view_labels"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Labels"), QT_TRANSLATE_NOOP("Global String Table", "&Labels"),
      QT_TRANSLATE_NOOP("Global String Table", "Shows or hides text labels on toolbar buttons"), PlainForm, NoKey},
     {Toggled<&ImageManager::view_show_labels>, Need::Nothing, Standing::InPlaces, NoIcon}},
    {"view_movable"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Movable Toolbars"),
      QT_TRANSLATE_NOOP("Global String Table", "&Movable Toolbars"),
      QT_TRANSLATE_NOOP("Global String Table", "Enables or disables toolbars movement"), PlainForm, NoKey},
     {Toggled<&ImageManager::view_movable_toolbars>, Need::Nothing, Standing::InPlaces, NoIcon}},
    {"view_big_pixmaps"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Big Pixmaps"), QT_TRANSLATE_NOOP("Global String Table", "&Big Pixmaps"),
      QT_TRANSLATE_NOOP("Global String Table", "Sets the size of pixmaps on toolbar buttons"), PlainForm, NoKey},
     {Toggled<&ImageManager::view_big_pixmaps>, Need::Nothing, Standing::Nowhere, NoIcon}},
    {"view_reset"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Reset Layout"),
      QT_TRANSLATE_NOOP("Global String Table", "&Reset Layout"),
      QT_TRANSLATE_NOOP("Global String Table", "Set default window layout"), PlainForm, NoKey},
     {Triggered<&ImageManager::view_reset_layout>, Need::Nothing, Standing::InPlaces, NoIcon}},
    {"scale_horizontally"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Horizontally"),
      QT_TRANSLATE_NOOP("Global String Table", "&Horizontally..."),
      QT_TRANSLATE_NOOP("Global String Table", "Displays Scale dialog to set image scale value"), PlainForm, NoKey},
     {Triggered<&ImageManager::image_scale_horizontally>, Need::Nothing, Standing::InPlaces, NoIcon}},
    {"scale_vertically"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Vertically"),
      QT_TRANSLATE_NOOP("Global String Table", "&Vertically..."),
      QT_TRANSLATE_NOOP("Global String Table", "Displays Scale dialog to set image scale value"), PlainForm, NoKey},
     {Triggered<&ImageManager::image_scale_vertically>, Need::Nothing, Standing::InPlaces, NoIcon}},
    {"scale_proportionally"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Proportionally"),
      QT_TRANSLATE_NOOP("Global String Table", "&Proportionally..."),
      QT_TRANSLATE_NOOP("Global String Table", "Displays Scale dialog to set image scale value"), PlainForm, NoKey},
     {Triggered<&ImageManager::image_scale_proportionally>, Need::Nothing, Standing::InPlaces, NoIcon}},
    {"image_resize"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Resize"), QT_TRANSLATE_NOOP("Global String Table", "&Resize..."),
      QT_TRANSLATE_NOOP("Global String Table", "Displays Resize dialog to set image size in pixels"), PlainForm, NoKey},
     {Triggered<&ImageManager::image_resize>, Need::Nothing, Standing::InPlaces, NoIcon}},
    {"rotate_ccw"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "90 degrees CCW"),
      QT_TRANSLATE_NOOP("Global String Table", "9&0 degrees CCW"),
      QT_TRANSLATE_NOOP("Global String Table", "Rotates the image to 90 degrees counter-clock-wise"), PlainForm, NoKey},
     {Triggered<&ImageManager::image_rotate_90>, Need::Nothing, Standing::InPlaces, NoIcon}},
    {"rotate_cw"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "90 degrees CW"),
      QT_TRANSLATE_NOOP("Global String Table", "&90 degrees CW"),
      QT_TRANSLATE_NOOP("Global String Table", "Rotates the image to 90 degrees clock-wise"), PlainForm, NoKey},
     {Triggered<&ImageManager::image_rotate_270>, Need::Nothing, Standing::InPlaces, NoIcon}},
    {"rotate_180"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "180 degrees"), QT_TRANSLATE_NOOP("Global String Table", "&180 degrees"),
      QT_TRANSLATE_NOOP("Global String Table", "Rotates the image to 180 degrees"), PlainForm, NoKey},
     {Triggered<&ImageManager::image_rotate_180>, Need::Nothing, Standing::InPlaces, NoIcon}},
    {"flip_horizontally"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Horizontally"),
      QT_TRANSLATE_NOOP("Global String Table", "&Horizontally"),
      QT_TRANSLATE_NOOP("Global String Table", "Flips the image horizontally (\"mirror on the wall\")"), PlainForm,
      NoKey},
     {Triggered<&ImageManager::image_flip_horizontally>, Need::Nothing, Standing::InPlaces, NoIcon}},
    {"flip_vertically"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Vertically"), QT_TRANSLATE_NOOP("Global String Table", "&Vertically"),
      QT_TRANSLATE_NOOP("Global String Table", "Flips the image vertically (\"mirror on the floor\")"), PlainForm,
      NoKey},
     {Triggered<&ImageManager::image_flip_vertically>, Need::Nothing, Standing::InPlaces, NoIcon}},
    {"depth_1"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "1 bit"), QT_TRANSLATE_NOOP("Global String Table", "&1 bit"),
      QT_TRANSLATE_NOOP("Global String Table", "Sets image color depth to 1 bit"), PlainForm, NoKey},
     {Triggered<&ImageManager::image_depth_1_bit>, Need::Nothing, Standing::InPlaces, NoIcon}},
    {"depth_8"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "8 bit"), QT_TRANSLATE_NOOP("Global String Table", "&8 bit"),
      QT_TRANSLATE_NOOP("Global String Table", "Sets image color depth to 8 bit"), PlainForm, NoKey},
     {Triggered<&ImageManager::image_depth_8_bit>, Need::Nothing, Standing::InPlaces, NoIcon}},
    {"depth_32"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "32 bit"), QT_TRANSLATE_NOOP("Global String Table", "&32 bit"),
      QT_TRANSLATE_NOOP("Global String Table", "Sets image color depth to 32 bit"), PlainForm, NoKey},
     {Triggered<&ImageManager::image_depth_32_bit>, Need::Nothing, Standing::InPlaces, NoIcon}},
    {"image_invert"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Invert"), QT_TRANSLATE_NOOP("Global String Table", "&Invert"),
      QT_TRANSLATE_NOOP("Global String Table", "Inverts image colors"), PlainForm, NoKey},
     {Triggered<&ImageManager::image_invert>, Need::Document, Standing::InPlaces, NoIcon}},
    {"image_brightness"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Brightness"),
      QT_TRANSLATE_NOOP("Global String Table", "&Brightness..."),
      QT_TRANSLATE_NOOP("Global String Table", "Sets image brightness"), PlainForm, NoKey},
     {Triggered<&ImageManager::image_brightness>, Need::Document, Standing::InPlaces, NoIcon}},
    {"image_contrast"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Contrast"), QT_TRANSLATE_NOOP("Global String Table", "&Contrast..."),
      QT_TRANSLATE_NOOP("Global String Table", "Sets image contrast"), PlainForm, NoKey},
     {Triggered<&ImageManager::image_contrast>, Need::Document, Standing::InPlaces, NoIcon}},
    {"image_crop"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Crop"), QT_TRANSLATE_NOOP("Global String Table", "C&rop"),
      QT_TRANSLATE_NOOP("Global String Table", "Creates a new image from the selection"), PlainForm, NoKey},
     {Triggered<&ImageManager::image_crop>, Need::Selection, Standing::InPlaces, "Crop"_L1}},
    {"image_properties"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Properties"),
      QT_TRANSLATE_NOOP("Global String Table", "&Properties..."),
      QT_TRANSLATE_NOOP("Global String Table", "Displays Properties dialog to set image properties"), PlainForm, NoKey},
     {Triggered<&ImageManager::image_properties>, Need::Document, Standing::InPlaces, "Properties"_L1}},
    {"tool_graphics_editor"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Graphics Editor"),
      QT_TRANSLATE_NOOP("Global String Table", "&Graphics Editor"),
      QT_TRANSLATE_NOOP("Global String Table", "Starts external graphics editor with the image"), PlainForm, NoKey},
     {Triggered<&ImageManager::start_graphics_editor>, Need::Document, Standing::InPlaces, NoIcon}},
    {"tool_ocr"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "OCR"), QT_TRANSLATE_NOOP("Global String Table", "&OCR"),
      QT_TRANSLATE_NOOP("Global String Table", "Starts external Optical Character Recognition (OCR) program"),
      PlainForm, NoKey},
     {Triggered<&ImageManager::start_OCR>, Need::Document, Standing::InPlaces, NoIcon}},
    {"tool_send"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Send by E-mail"),
      QT_TRANSLATE_NOOP("Global String Table", "&Send by E-mail..."),
      QT_TRANSLATE_NOOP("Global String Table", "Sends the image by E-mail"), PlainForm, NoKey},
     {Triggered<&ImageManager::send>, Need::Document, Standing::InPlaces, NoIcon}},
    {"tool_upload"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Upload by FTP"),
      QT_TRANSLATE_NOOP("Global String Table", "&Upload by FTP..."),
      QT_TRANSLATE_NOOP("Global String Table", "Uploads the image to remote FTP server"), PictureForm, NoKey},
     {Triggered<&ImageManager::upload_ftp>, Need::Document, Standing::InPlaces, NoIcon}},
    {"tool_configure"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Configure Tools"),
      QT_TRANSLATE_NOOP("Global String Table", "&Configure Tools..."),
      QT_TRANSLATE_NOOP("Global String Table", "Displays tools configuration dialog"), PlainForm, NoKey},
     {Triggered<&ImageManager::configure_tools>, Need::Nothing, Standing::InPlaces, NoIcon}},
    {"scale_menu"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Scale"), QT_TRANSLATE_NOOP("Global String Table", "&Scale"),
      QT_TRANSLATE_NOOP("Global String Table", "Displays Scale dialog to set image scale value"), PlainForm, NoKey},
     {SubMenu, Need::Document, Standing::InPlaces, "Resize"_L1}},
    {"rotate_menu"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Rotate"), QT_TRANSLATE_NOOP("Global String Table", "&Rotate"),
      QT_TRANSLATE_NOOP("Global String Table", "Rotates the image"), PlainForm, NoKey},
     {SubMenu, Need::Document, Standing::InPlaces, "Rotate"_L1}},
    {"flip_menu"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Flip"), QT_TRANSLATE_NOOP("Global String Table", "&Flip"),
      QT_TRANSLATE_NOOP("Global String Table", "Flips the image"), PlainForm, NoKey},
     {SubMenu, Need::Document, Standing::InPlaces, "Flip"_L1}},
    {"depth_menu"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Color Bit Depth"),
      QT_TRANSLATE_NOOP("Global String Table", "&Color Bit Depth"),
      QT_TRANSLATE_NOOP("Global String Table", "Sets image color depth"), PlainForm, NoKey},
     {SubMenu, Need::Document, Standing::InPlaces, NoIcon}},
    {"effects_menu"_L1, NoTexts, {SubMenu, Need::Document, Standing::InPlaces, "Effects"_L1}},
    {"view_tooltips"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Tooltips"), QT_TRANSLATE_NOOP("Global String Table", "&Tooltips"),
      QT_TRANSLATE_NOOP("Global String Table", "Shows or hides tooltips on toolbar buttons"), PlainForm, NoKey},
     {NoAction, Need::Nothing, Standing::Nowhere, NoIcon}},
    {"view_save"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Save Layout"), QT_TRANSLATE_NOOP("Global String Table", "&Save Layout"),
      QT_TRANSLATE_NOOP("Global String Table", "Saves current window layout"), PlainForm, NoKey},
     {NoAction, Need::Nothing, Standing::Nowhere, NoIcon}},
});

constexpr bool is_same(QLatin1StringView a, QLatin1StringView b)
{
    return std::string_view(a.data(), static_cast<size_t>(a.size()))
        == std::string_view(b.data(), static_cast<size_t>(b.size()));
}

constexpr bool is_sub_menu(const ActionPlace &place, QLatin1StringView name)
{
    return place.isSubMenu() && std::string_view(place.name) == std::string_view(name.data());
}

/// Where @p name stands in the table; its end for an unknown one.
constexpr auto row_of(QLatin1StringView name)
{
    return std::ranges::find_if(ActionTable, [name](const ActionRow &row) { return is_same(row.name, name); });
}

constexpr bool is_in(const ActionPlace &place, QLatin1StringView name)
{
    return std::ranges::any_of(place.entries, [name](QLatin1StringView entry) { return is_same(entry, name); });
}

constexpr bool is_entry(QLatin1StringView entry)
{
    const auto row = row_of(entry);
    return entry.isEmpty() || (row != ActionTable.end() && row->use.target.kind != Kind::None);
}

constexpr bool has_known_entries(const ActionPlace &place)
{
    return std::ranges::all_of(place.entries, is_entry);
}

/// Whether the actions of a sub-menu are made before it, and those of a group in its order.
constexpr bool is_made_in_order(const ActionPlace &place)
{
    const auto menu =
        std::ranges::find_if(ActionTable, [&](const ActionRow &row) { return is_sub_menu(place, row.name); });
    const auto stands_before_menu = [menu](QLatin1StringView entry) { return row_of(entry) < menu; };
    return !place.isSubMenu()
        || (menu != ActionTable.end() && menu->use.target.kind == Kind::SubMenu
            && std::ranges::all_of(place.entries, stands_before_menu)
            && (place.kind == ActionPlace::Kind::Gathering || std::ranges::is_sorted(place.entries, {}, row_of)));
}

constexpr bool stands_as_told(const ActionRow &row)
{
    const bool stands =
        std::ranges::any_of(action_places::All, [&row](const ActionPlace &place) { return is_in(place, row.name); });
    return stands == (row.use.standing == Standing::InPlaces);
}

constexpr bool is_alone(const ActionRow &row)
{
    return row_of(row.name) == &row;
}

constexpr bool has_its_sub_menu(const ActionRow &row)
{
    return std::ranges::count_if(action_places::All,
                                 [&row](const ActionPlace &place) { return is_sub_menu(place, row.name); })
        == (row.use.target.kind == Kind::SubMenu ? 1 : 0);
}

static_assert(std::ranges::all_of(ActionTable, is_alone), "two rows have the same name");
static_assert(std::ranges::all_of(action_places::All, has_known_entries), "an entry of a place has no action");
static_assert(std::ranges::all_of(ActionTable, stands_as_told), "a row says wrongly whether it stands in a place");
static_assert(std::ranges::all_of(ActionTable, has_its_sub_menu), "a row that opens a sub-menu has no such place");
static_assert(std::ranges::all_of(action_places::All, is_made_in_order),
              "a sub-menu's entries are not made before it in its order");

} // namespace

std::span<const ActionRow> action_table()
{
    return ActionTable;
}
