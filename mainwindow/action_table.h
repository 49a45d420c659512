#pragma once

#include <QLatin1StringView>

#include <span>

class ImageManager;
class QAction;

/// The forms of a what's-this text: with places for text and tip, and with the picture before them.
inline constexpr QLatin1StringView PlainForm("<p><b>%1</b></p><p>%2</p>");
inline constexpr QLatin1StringView PictureForm("<p><img source=\"%1\">&nbsp;&nbsp; <b> %2</b></p><p>%3</p>");

/// The texts and the key of a command, untranslated.
struct ActionTexts
{
    constexpr ActionTexts(const char *plainText, const char *textOfMenus, const char *sentence, QLatin1StringView form,
                          QLatin1StringView key) :
        text(plainText),
        menuText(textOfMenus),
        tip(sentence),
        whatsThisForm(form),
        shortcut(key)
    {
    }

    const char *text; ///< plain name; heading of the what's-this text
    const char *menuText; ///< name with its "&" mnemonic, as menus and tool buttons show it
    const char *tip; ///< one sentence for the status bar and the what's-this text
    QLatin1StringView whatsThisForm; ///< one of the two forms
    QLatin1StringView shortcut; ///< may be empty
};

/// What a row leads to: the signal of its action and the slot that it is connected to, or something else.
struct ActionTarget
{
    enum class Kind {
        None, ///< the row is texts alone, no action is made of it
        Triggered, ///< the action is pressed
        Toggled, ///< the action has two states
        ToggledForViews, ///< the same, connected to each view that comes up
        SubMenu, ///< the action opens the sub-menu of its name among the places
        ZoomSteps, ///< the row stands for the actions of the zoom steps, which share their texts
    };

    Kind kind;
    void (*connect)(const QAction *action, ImageManager *window); ///< null where nothing is connected
};

/// What has to be there for an action to be on.
enum class Need {
    Nothing, ///< no rule touches the action
    Document,
    Past, ///< a step that can be undone
    Future, ///< a step that can be redone
    LargerZoom, ///< a zoom step that shows the page larger
    SmallerZoom,
    Selection,
};

/// Whether an action stands in any of the places.
enum class Standing { InPlaces, Nowhere };

/// What the window makes of a row.
struct ActionUse
{
    constexpr ActionUse(ActionTarget signalAndSlot, Need whatItNeeds, Standing whereItStands,
                        QLatin1StringView baseOfPictures) :
        target(signalAndSlot),
        need(whatItNeeds),
        standing(whereItStands),
        icon(baseOfPictures)
    {
    }

    ActionTarget target;
    Need need;
    Standing standing;
    QLatin1StringView icon; ///< what the names of its three pictures share; empty for no pictures
};

/// One command of the window. No field has a default: a row that leaves one out does not compile.
struct ActionRow
{
    constexpr ActionRow(QLatin1StringView nameOfAction, ActionTexts textsAndKey, ActionUse useOfAction) :
        name(nameOfAction),
        texts(textsAndKey),
        use(useOfAction)
    {
    }

    QLatin1StringView name; ///< also the object name of the action
    ActionTexts texts;
    ActionUse use;
};

/// The commands in the order in which their actions are made. Every list of the places names rows of this table;
/// that is checked where the table is compiled.
[[nodiscard]] std::span<const ActionRow> action_table();
