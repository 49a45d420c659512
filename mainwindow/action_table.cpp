#include "action_table.h"

#include "embedded_pixmaps.h"
#include "Q3MimeSourceFactory.h"

#include <QAction>
#include <QCoreApplication>
#include <QIcon>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *TranslationContext = "Global String Table";

const QString plainForm = u"<p><b>%1</b></p><p>%2</p>"_s;
const QString pictureForm = u"<p><img source=\"%1\">&nbsp;&nbsp; <b> %2</b></p><p>%3</p>"_s;

const QKeySequence ctrl_n(u"Ctrl+N"_s);
const QKeySequence ctrl_o(u"Ctrl+O"_s);
const QKeySequence ctrl_s(u"Ctrl+S"_s);
const QKeySequence ctrl_p(u"Ctrl+P"_s);
const QKeySequence ctrl_z(u"Ctrl+Z"_s);
const QKeySequence ctrl_y(u"Ctrl+Y"_s);
const QKeySequence noShortcut;

struct ActionRow
{
    QLatin1StringView name;
    ActionRecord record;
};

// Marked for the catalogues here and translated where a row is poured into an action; written out in full, since
// that is how lupdate finds them. The rows of view_tooltips and view_save have no action.
const std::array<ActionRow, 46> actionTable = {{
    {"file_new"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "New"), QT_TRANSLATE_NOOP("Global String Table", "&New..."),
      QT_TRANSLATE_NOOP("Global String Table", "Creates new empty image"), plainForm, ctrl_n}},
    {"file_open"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Open"), QT_TRANSLATE_NOOP("Global String Table", "&Open..."),
      QT_TRANSLATE_NOOP("Global String Table", "Opens an existing image file"), plainForm, ctrl_o}},
    {"file_save"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Save"), QT_TRANSLATE_NOOP("Global String Table", "&Save"),
      QT_TRANSLATE_NOOP("Global String Table", "Saves current image to disk file"), pictureForm, ctrl_s}},
    {"file_save_as"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Save As"), QT_TRANSLATE_NOOP("Global String Table", "Save &As..."),
      QT_TRANSLATE_NOOP("Global String Table", "Saves current image with another file name"), plainForm, noShortcut}},
    {"file_save_all"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Save All"), QT_TRANSLATE_NOOP("Global String Table", "Save A&ll..."),
      QT_TRANSLATE_NOOP("Global String Table", "Saves all unsaved images"), plainForm, noShortcut}},
    {"file_print"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Print"), QT_TRANSLATE_NOOP("Global String Table", "&Print"),
      QT_TRANSLATE_NOOP("Global String Table", "Prints current image"), pictureForm, ctrl_p}},
    {"file_close"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Close"), QT_TRANSLATE_NOOP("Global String Table", "&Close"),
      QT_TRANSLATE_NOOP("Global String Table", "Closes current image"), plainForm, noShortcut}},
    {"file_close_all"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Close All"), QT_TRANSLATE_NOOP("Global String Table", "Close All"),
      QT_TRANSLATE_NOOP("Global String Table", "Closes all images"), plainForm, noShortcut}},
    {"file_exit"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Exit"), QT_TRANSLATE_NOOP("Global String Table", "E&xit"),
      QT_TRANSLATE_NOOP("Global String Table", "Exits the program"), plainForm, noShortcut}},
    {"view_labels"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Labels"), QT_TRANSLATE_NOOP("Global String Table", "&Labels"),
      QT_TRANSLATE_NOOP("Global String Table", "Shows or hides text labels on toolbar buttons"), plainForm,
      noShortcut}},
    {"view_big_pixmaps"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Big Pixmaps"), QT_TRANSLATE_NOOP("Global String Table", "&Big Pixmaps"),
      QT_TRANSLATE_NOOP("Global String Table", "Sets the size of pixmaps on toolbar buttons"), plainForm, noShortcut}},
    {"view_tooltips"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Tooltips"), QT_TRANSLATE_NOOP("Global String Table", "&Tooltips"),
      QT_TRANSLATE_NOOP("Global String Table", "Shows or hides tooltips on toolbar buttons"), plainForm, noShortcut}},
    {"view_movable"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Movable Toolbars"),
      QT_TRANSLATE_NOOP("Global String Table", "&Movable Toolbars"),
      QT_TRANSLATE_NOOP("Global String Table", "Enables or disables toolbars movement"), plainForm, noShortcut}},
    {"view_save"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Save Layout"), QT_TRANSLATE_NOOP("Global String Table", "&Save Layout"),
      QT_TRANSLATE_NOOP("Global String Table", "Saves current window layout"), plainForm, noShortcut}},
    {"view_reset"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Reset Layout"),
      QT_TRANSLATE_NOOP("Global String Table", "&Reset Layout"),
      QT_TRANSLATE_NOOP("Global String Table", "Set default window layout"), plainForm, noShortcut}},
    {"edit_undo"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Undo"), QT_TRANSLATE_NOOP("Global String Table", "U&ndo"),
      QT_TRANSLATE_NOOP("Global String Table", "Undoes last edit operation"), pictureForm, ctrl_z}},
    {"edit_redo"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Redo"), QT_TRANSLATE_NOOP("Global String Table", "R&edo"),
      QT_TRANSLATE_NOOP("Global String Table", "Redoes last undone operation"), pictureForm, ctrl_y}},
    {"view_scroll"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Scroll"), QT_TRANSLATE_NOOP("Global String Table", "&Scroll"),
      QT_TRANSLATE_NOOP("Global String Table", "Activates image free-hand scrolling"), plainForm, noShortcut}},
    {"view_zoom_out"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Zoom Out"), QT_TRANSLATE_NOOP("Global String Table", "Zoom &Out"),
      QT_TRANSLATE_NOOP("Global String Table", "Zooms current image out"), plainForm, noShortcut}},
    {"view_zoom_in"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Zoom In"), QT_TRANSLATE_NOOP("Global String Table", "Zoom &In"),
      QT_TRANSLATE_NOOP("Global String Table", "Zooms current image in"), plainForm, noShortcut}},
    {"scale_menu"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Scale"), QT_TRANSLATE_NOOP("Global String Table", "&Scale"),
      QT_TRANSLATE_NOOP("Global String Table", "Displays Scale dialog to set image scale value"), plainForm,
      noShortcut}},
    {"scale_horizontally"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Horizontally"),
      QT_TRANSLATE_NOOP("Global String Table", "&Horizontally..."),
      QT_TRANSLATE_NOOP("Global String Table", "Displays Scale dialog to set image scale value"), plainForm,
      noShortcut}},
    {"scale_vertically"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Vertically"),
      QT_TRANSLATE_NOOP("Global String Table", "&Vertically..."),
      QT_TRANSLATE_NOOP("Global String Table", "Displays Scale dialog to set image scale value"), plainForm,
      noShortcut}},
    {"scale_proportionally"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Proportionally"),
      QT_TRANSLATE_NOOP("Global String Table", "&Proportionally..."),
      QT_TRANSLATE_NOOP("Global String Table", "Displays Scale dialog to set image scale value"), plainForm,
      noShortcut}},
    {"image_resize"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Resize"), QT_TRANSLATE_NOOP("Global String Table", "&Resize..."),
      QT_TRANSLATE_NOOP("Global String Table", "Displays Resize dialog to set image size in pixels"), plainForm,
      noShortcut}},
    {"rotate_menu"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Rotate"), QT_TRANSLATE_NOOP("Global String Table", "&Rotate"),
      QT_TRANSLATE_NOOP("Global String Table", "Rotates the image"), plainForm, noShortcut}},
    {"rotate_ccw"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "90 degrees CCW"),
      QT_TRANSLATE_NOOP("Global String Table", "9&0 degrees CCW"),
      QT_TRANSLATE_NOOP("Global String Table", "Rotates the image to 90 degrees counter-clock-wise"), plainForm,
      noShortcut}},
    {"rotate_cw"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "90 degrees CW"),
      QT_TRANSLATE_NOOP("Global String Table", "&90 degrees CW"),
      QT_TRANSLATE_NOOP("Global String Table", "Rotates the image to 90 degrees clock-wise"), plainForm, noShortcut}},
    {"rotate_180"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "180 degrees"), QT_TRANSLATE_NOOP("Global String Table", "&180 degrees"),
      QT_TRANSLATE_NOOP("Global String Table", "Rotates the image to 180 degrees"), plainForm, noShortcut}},
    {"flip_menu"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Flip"), QT_TRANSLATE_NOOP("Global String Table", "&Flip"),
      QT_TRANSLATE_NOOP("Global String Table", "Flips the image"), plainForm, noShortcut}},
    {"flip_horizontally"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Horizontally"),
      QT_TRANSLATE_NOOP("Global String Table", "&Horizontally"),
      QT_TRANSLATE_NOOP("Global String Table", "Flips the image horizontally (\"mirror on the wall\")"), plainForm,
      noShortcut}},
    {"flip_vertically"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Vertically"), QT_TRANSLATE_NOOP("Global String Table", "&Vertically"),
      QT_TRANSLATE_NOOP("Global String Table", "Flips the image vertically (\"mirror on the floor\")"), plainForm,
      noShortcut}},
    {"image_invert"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Invert"), QT_TRANSLATE_NOOP("Global String Table", "&Invert"),
      QT_TRANSLATE_NOOP("Global String Table", "Inverts image colors"), plainForm, noShortcut}},
    {"image_brightness"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Brightness"),
      QT_TRANSLATE_NOOP("Global String Table", "&Brightness..."),
      QT_TRANSLATE_NOOP("Global String Table", "Sets image brightness"), plainForm, noShortcut}},
    {"image_contrast"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Contrast"), QT_TRANSLATE_NOOP("Global String Table", "&Contrast..."),
      QT_TRANSLATE_NOOP("Global String Table", "Sets image contrast"), plainForm, noShortcut}},
    {"depth_menu"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Color Bit Depth"),
      QT_TRANSLATE_NOOP("Global String Table", "&Color Bit Depth"),
      QT_TRANSLATE_NOOP("Global String Table", "Sets image color depth"), plainForm, noShortcut}},
    {"depth_1"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "1 bit"), QT_TRANSLATE_NOOP("Global String Table", "&1 bit"),
      QT_TRANSLATE_NOOP("Global String Table", "Sets image color depth to 1 bit"), plainForm, noShortcut}},
    {"depth_8"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "8 bit"), QT_TRANSLATE_NOOP("Global String Table", "&8 bit"),
      QT_TRANSLATE_NOOP("Global String Table", "Sets image color depth to 8 bit"), plainForm, noShortcut}},
    {"depth_32"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "32 bit"), QT_TRANSLATE_NOOP("Global String Table", "&32 bit"),
      QT_TRANSLATE_NOOP("Global String Table", "Sets image color depth to 32 bit"), plainForm, noShortcut}},
    {"image_crop"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Crop"), QT_TRANSLATE_NOOP("Global String Table", "C&rop"),
      QT_TRANSLATE_NOOP("Global String Table", "Creates a new image from the selection"), plainForm, noShortcut}},
    {"image_properties"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Properties"),
      QT_TRANSLATE_NOOP("Global String Table", "&Properties..."),
      QT_TRANSLATE_NOOP("Global String Table", "Displays Properties dialog to set image properties"), plainForm,
      noShortcut}},
    {"tool_graphics_editor"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Graphics Editor"),
      QT_TRANSLATE_NOOP("Global String Table", "&Graphics Editor"),
      QT_TRANSLATE_NOOP("Global String Table", "Starts external graphics editor with the image"), plainForm,
      noShortcut}},
    {"tool_ocr"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "OCR"), QT_TRANSLATE_NOOP("Global String Table", "&OCR"),
      QT_TRANSLATE_NOOP("Global String Table", "Starts external Optical Character Recognition (OCR) program"),
      plainForm, noShortcut}},
    {"tool_send"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Send by E-mail"),
      QT_TRANSLATE_NOOP("Global String Table", "&Send by E-mail..."),
      QT_TRANSLATE_NOOP("Global String Table", "Sends the image by E-mail"), plainForm, noShortcut}},
    {"tool_upload"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Upload by FTP"),
      QT_TRANSLATE_NOOP("Global String Table", "&Upload by FTP..."),
      QT_TRANSLATE_NOOP("Global String Table", "Uploads the image to remote FTP server"), pictureForm, noShortcut}},
    {"tool_configure"_L1,
     {QT_TRANSLATE_NOOP("Global String Table", "Configure Tools"),
      QT_TRANSLATE_NOOP("Global String Table", "&Configure Tools..."),
      QT_TRANSLATE_NOOP("Global String Table", "Displays tools configuration dialog"), plainForm, noShortcut}},
}};

constexpr std::array<IconRecord, 12> IconTable = {{
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

constexpr std::array<QLatin1StringView, 8> ZoomNames = {"8:1"_L1, "4:1"_L1, "2:1"_L1, "1:1"_L1,
                                                        "1:2"_L1, "1:4"_L1, "1:8"_L1, "1:16"_L1};

QString translated(const QString &text)
{
    return QCoreApplication::translate(TranslationContext, text.toUtf8().constData());
}

QString whats_this(const ActionRecord &record)
{
    // Intended: the texts as they stand in the table, so that a what's-this text is never translated.
    if (record.whatsThisForm == plainForm)
        return record.whatsThisForm.arg(record.text).arg(record.tip);
    if (record.whatsThisForm == pictureForm)
        return record.whatsThisForm.arg(record.text).arg(record.text).arg(record.tip);
    return record.whatsThisForm;
}

} // namespace

const ActionRecord *action_record(QLatin1StringView name)
{
    const auto row = std::ranges::find(actionTable, name, &ActionRow::name);
    return row == actionTable.end() ? nullptr : &row->record;
}

std::span<const IconRecord> icon_table()
{
    return IconTable;
}

std::span<const QLatin1StringView, 8> zoom_names()
{
    return ZoomNames;
}

void applyActionRecord(QAction *action, const ActionRecord &record)
{
    action->setText(translated(record.text));
    action->setText(translated(record.menuText));
    action->setStatusTip(translated(record.tip));
    action->setShortcut(record.shortcut);
    action->setWhatsThis(whats_this(record));
}

void applyIconRecord(QAction *action, const QPixmap &color, const QPixmap &gray, const QPixmap &disable)
{
    QIcon icon = action->icon();
    for (const QIcon::State state : {QIcon::Off, QIcon::On}) {
        icon.addPixmap(color, QIcon::Active, state);
        icon.addPixmap(gray, QIcon::Normal, state);
        icon.addPixmap(disable, QIcon::Disabled, state);
        icon.addPixmap(color, QIcon::Active, state);
    }
    action->setIcon(icon);
}

QPixmap embeddedPixmap(const QString &name)
{
    QPixmap pixmap;
    if (const QMimeSource *const source = Q3MimeSourceFactory::defaultFactory()->data(name))
        (void)Q3ImageDrag::decode(source, pixmap); // what cannot be decoded is a null pixmap
    return pixmap;
}
