#pragma once

#include <QLatin1StringView>
#include <QtGlobal>

#include <array>
#include <span>

/// A menu, a group or the tool bar: what stands in it, in its order.
struct ActionPlace
{
    enum class Kind {
        Menu, ///< stands on the menu bar
        ZoomMenu, ///< the same, and its entries are known by numbers
        ToolsMenu, ///< stands on the menu bar only where a setting asks for it
        Group, ///< a sub-menu whose actions belong to its group
        Gathering, ///< a sub-menu of actions that belong to the window and join its group
        ToolBar,
    };

    constexpr ActionPlace(Kind kindOfPlace, const char *titleOrAction, std::span<const QLatin1StringView> actionNames) :
        kind(kindOfPlace),
        name(titleOrAction),
        entries(actionNames)
    {
    }

    [[nodiscard]] constexpr bool isSubMenu() const { return kind == Kind::Group || kind == Kind::Gathering; }

    Kind kind;
    const char *name; ///< the title, to be translated; of a sub-menu the action that opens it
    std::span<const QLatin1StringView> entries; ///< names of rows of the action table; empty for a separator
};

/// The places in the order in which they are made. An action may stand in several.
namespace action_places {

using namespace Qt::StringLiterals;

inline constexpr QLatin1StringView Separator;

inline constexpr std::array FileMenu = {
    "file_open"_L1,  Separator, "file_save"_L1,  "file_save_as"_L1,   "file_save_all"_L1, Separator,
    "file_print"_L1, Separator, "file_close"_L1, "file_close_all"_L1, Separator,          "file_exit"_L1,
};
inline constexpr std::array EditMenu = {"edit_undo"_L1, "edit_redo"_L1};
inline constexpr std::array ViewMenu = {"view_labels"_L1, "view_movable"_L1, "view_reset"_L1};
inline constexpr std::array ZoomMenu = {"zoom_steps"_L1};
inline constexpr std::array ImageMenu = {
    "depth_menu"_L1, "image_invert"_L1, "image_brightness"_L1, "image_contrast"_L1,   "rotate_menu"_L1,
    "flip_menu"_L1,  "scale_menu"_L1,   "image_crop"_L1,       "image_properties"_L1,
};
inline constexpr std::array ToolsMenu = {
    "tool_graphics_editor"_L1, "tool_ocr"_L1, "tool_send"_L1, "tool_upload"_L1, "tool_configure"_L1,
};

inline constexpr std::array ScaleGroup = {
    "scale_horizontally"_L1,
    "scale_vertically"_L1,
    "scale_proportionally"_L1,
    "image_resize"_L1,
};
inline constexpr std::array RotateGroup = {"rotate_ccw"_L1, "rotate_cw"_L1, "rotate_180"_L1};
inline constexpr std::array FlipGroup = {"flip_horizontally"_L1, "flip_vertically"_L1};
inline constexpr std::array DepthGroup = {"depth_1"_L1, "depth_8"_L1, "depth_32"_L1};
inline constexpr std::array EffectsGroup = {
    "image_brightness"_L1,
    "image_contrast"_L1,
    "depth_menu"_L1,
    "image_invert"_L1,
};

inline constexpr std::array ToolBar = {
    "file_save"_L1,
    Separator,
    "edit_undo"_L1,
    "edit_redo"_L1,
    Separator,
    "view_zoom_out"_L1,
    "view_zoom_in"_L1,
    Separator,
    "view_scroll"_L1,
    "image_crop"_L1,
    Separator,
    "scale_menu"_L1,
    "rotate_menu"_L1,
    "flip_menu"_L1,
    "effects_menu"_L1,
    Separator,
    "image_properties"_L1,
};

using Kind = ActionPlace::Kind;

inline constexpr auto All = std::to_array<ActionPlace>({
    {Kind::Group, "scale_menu", ScaleGroup},
    {Kind::Group, "rotate_menu", RotateGroup},
    {Kind::Group, "flip_menu", FlipGroup},
    {Kind::Group, "depth_menu", DepthGroup},
    {Kind::Gathering, "effects_menu", EffectsGroup},
    {Kind::Menu, QT_TRANSLATE_NOOP("ImageManager", "&File"), FileMenu},
    {Kind::Menu, QT_TRANSLATE_NOOP("ImageManager", "&Edit"), EditMenu},
    {Kind::Menu, QT_TRANSLATE_NOOP("ImageManager", "&View"), ViewMenu},
    {Kind::ZoomMenu, QT_TRANSLATE_NOOP("ImageManager", "&Zoom"), ZoomMenu},
    {Kind::Menu, QT_TRANSLATE_NOOP("ImageManager", "&Image"), ImageMenu},
    {Kind::ToolsMenu, QT_TRANSLATE_NOOP("ImageManager", "&Tools"), ToolsMenu},
    {Kind::ToolBar, QT_TRANSLATE_NOOP("ImageManager", "Image Manager Toolbar"), ToolBar},
});

} // namespace action_places
