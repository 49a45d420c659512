#include "action_table.h"

#include "embedded_pixmaps.h"
#include "Q3MimeSourceFactory.h"

#include <QAction>
#include <QCoreApplication>
#include <QIcon>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

// Marks a text of the table for the catalogues; it is translated where it is poured into an action.
#define TEXT(text) QStringLiteral(QT_TRANSLATE_NOOP("Global String Table", text))

namespace {

constexpr const char *TranslationContext = "Global String Table";

const QString plainForm = u"<p><b>%1</b></p><p>%2</p>"_s;
const QString pictureForm = u"<p><img source=\"%1\">&nbsp;&nbsp; <b> %2</b></p><p>%3</p>"_s;

const QKeySequence ctrlN(u"Ctrl+N"_s);
const QKeySequence ctrlO(u"Ctrl+O"_s);
const QKeySequence ctrlS(u"Ctrl+S"_s);
const QKeySequence ctrlP(u"Ctrl+P"_s);
const QKeySequence ctrlZ(u"Ctrl+Z"_s);
const QKeySequence ctrlY(u"Ctrl+Y"_s);
const QKeySequence noShortcut;

struct ActionRow
{
    QLatin1StringView name;
    ActionRecord record;
};

// The rows of view_tooltips and view_save have no action.
// clang-format off
const std::array<ActionRow, 46> actionTable = {{
    {"file_new"_L1, {TEXT("New"), TEXT("&New..."), TEXT("Creates new empty image"), plainForm, ctrlN}},
    {"file_open"_L1, {TEXT("Open"), TEXT("&Open..."), TEXT("Opens an existing image file"), plainForm, ctrlO}},
    {"file_save"_L1, {TEXT("Save"), TEXT("&Save"), TEXT("Saves current image to disk file"), pictureForm, ctrlS}},
    {"file_save_as"_L1, {TEXT("Save As"), TEXT("Save &As..."), TEXT("Saves current image with another file name"), plainForm, noShortcut}},
    {"file_save_all"_L1, {TEXT("Save All"), TEXT("Save A&ll..."), TEXT("Saves all unsaved images"), plainForm, noShortcut}},
    {"file_print"_L1, {TEXT("Print"), TEXT("&Print"), TEXT("Prints current image"), pictureForm, ctrlP}},
    {"file_close"_L1, {TEXT("Close"), TEXT("&Close"), TEXT("Closes current image"), plainForm, noShortcut}},
    {"file_close_all"_L1, {TEXT("Close All"), TEXT("Close All"), TEXT("Closes all images"), plainForm, noShortcut}},
    {"file_exit"_L1, {TEXT("Exit"), TEXT("E&xit"), TEXT("Exits the program"), plainForm, noShortcut}},
    {"view_labels"_L1, {TEXT("Labels"), TEXT("&Labels"), TEXT("Shows or hides text labels on toolbar buttons"), plainForm, noShortcut}},
    {"view_big_pixmaps"_L1, {TEXT("Big Pixmaps"), TEXT("&Big Pixmaps"), TEXT("Sets the size of pixmaps on toolbar buttons"), plainForm, noShortcut}},
    {"view_tooltips"_L1, {TEXT("Tooltips"), TEXT("&Tooltips"), TEXT("Shows or hides tooltips on toolbar buttons"), plainForm, noShortcut}},
    {"view_movable"_L1, {TEXT("Movable Toolbars"), TEXT("&Movable Toolbars"), TEXT("Enables or disables toolbars movement"), plainForm, noShortcut}},
    {"view_save"_L1, {TEXT("Save Layout"), TEXT("&Save Layout"), TEXT("Saves current window layout"), plainForm, noShortcut}},
    {"view_reset"_L1, {TEXT("Reset Layout"), TEXT("&Reset Layout"), TEXT("Set default window layout"), plainForm, noShortcut}},
    {"edit_undo"_L1, {TEXT("Undo"), TEXT("U&ndo"), TEXT("Undoes last edit operation"), pictureForm, ctrlZ}},
    {"edit_redo"_L1, {TEXT("Redo"), TEXT("R&edo"), TEXT("Redoes last undone operation"), pictureForm, ctrlY}},
    {"view_scroll"_L1, {TEXT("Scroll"), TEXT("&Scroll"), TEXT("Activates image free-hand scrolling"), plainForm, noShortcut}},
    {"view_zoom_out"_L1, {TEXT("Zoom Out"), TEXT("Zoom &Out"), TEXT("Zooms current image out"), plainForm, noShortcut}},
    {"view_zoom_in"_L1, {TEXT("Zoom In"), TEXT("Zoom &In"), TEXT("Zooms current image in"), plainForm, noShortcut}},
    {"scale_menu"_L1, {TEXT("Scale"), TEXT("&Scale"), TEXT("Displays Scale dialog to set image scale value"), plainForm, noShortcut}},
    {"scale_horizontally"_L1, {TEXT("Horizontally"), TEXT("&Horizontally..."), TEXT("Displays Scale dialog to set image scale value"), plainForm, noShortcut}},
    {"scale_vertically"_L1, {TEXT("Vertically"), TEXT("&Vertically..."), TEXT("Displays Scale dialog to set image scale value"), plainForm, noShortcut}},
    {"scale_proportionally"_L1, {TEXT("Proportionally"), TEXT("&Proportionally..."), TEXT("Displays Scale dialog to set image scale value"), plainForm, noShortcut}},
    {"image_resize"_L1, {TEXT("Resize"), TEXT("&Resize..."), TEXT("Displays Resize dialog to set image size in pixels"), plainForm, noShortcut}},
    {"rotate_menu"_L1, {TEXT("Rotate"), TEXT("&Rotate"), TEXT("Rotates the image"), plainForm, noShortcut}},
    {"rotate_ccw"_L1, {TEXT("90 degrees CCW"), TEXT("9&0 degrees CCW"), TEXT("Rotates the image to 90 degrees counter-clock-wise"), plainForm, noShortcut}},
    {"rotate_cw"_L1, {TEXT("90 degrees CW"), TEXT("&90 degrees CW"), TEXT("Rotates the image to 90 degrees clock-wise"), plainForm, noShortcut}},
    {"rotate_180"_L1, {TEXT("180 degrees"), TEXT("&180 degrees"), TEXT("Rotates the image to 180 degrees"), plainForm, noShortcut}},
    {"flip_menu"_L1, {TEXT("Flip"), TEXT("&Flip"), TEXT("Flips the image"), plainForm, noShortcut}},
    {"flip_horizontally"_L1, {TEXT("Horizontally"), TEXT("&Horizontally"), TEXT("Flips the image horizontally (\"mirror on the wall\")"), plainForm, noShortcut}},
    {"flip_vertically"_L1, {TEXT("Vertically"), TEXT("&Vertically"), TEXT("Flips the image vertically (\"mirror on the floor\")"), plainForm, noShortcut}},
    {"image_invert"_L1, {TEXT("Invert"), TEXT("&Invert"), TEXT("Inverts image colors"), plainForm, noShortcut}},
    {"image_brightness"_L1, {TEXT("Brightness"), TEXT("&Brightness..."), TEXT("Sets image brightness"), plainForm, noShortcut}},
    {"image_contrast"_L1, {TEXT("Contrast"), TEXT("&Contrast..."), TEXT("Sets image contrast"), plainForm, noShortcut}},
    {"depth_menu"_L1, {TEXT("Color Bit Depth"), TEXT("&Color Bit Depth"), TEXT("Sets image color depth"), plainForm, noShortcut}},
    {"depth_1"_L1, {TEXT("1 bit"), TEXT("&1 bit"), TEXT("Sets image color depth to 1 bit"), plainForm, noShortcut}},
    {"depth_8"_L1, {TEXT("8 bit"), TEXT("&8 bit"), TEXT("Sets image color depth to 8 bit"), plainForm, noShortcut}},
    {"depth_32"_L1, {TEXT("32 bit"), TEXT("&32 bit"), TEXT("Sets image color depth to 32 bit"), plainForm, noShortcut}},
    {"image_crop"_L1, {TEXT("Crop"), TEXT("C&rop"), TEXT("Creates a new image from the selection"), plainForm, noShortcut}},
    {"image_properties"_L1, {TEXT("Properties"), TEXT("&Properties..."), TEXT("Displays Properties dialog to set image properties"), plainForm, noShortcut}},
    {"tool_graphics_editor"_L1, {TEXT("Graphics Editor"), TEXT("&Graphics Editor"), TEXT("Starts external graphics editor with the image"), plainForm, noShortcut}},
    {"tool_ocr"_L1, {TEXT("OCR"), TEXT("&OCR"), TEXT("Starts external Optical Character Recognition (OCR) program"), plainForm, noShortcut}},
    {"tool_send"_L1, {TEXT("Send by E-mail"), TEXT("&Send by E-mail..."), TEXT("Sends the image by E-mail"), plainForm, noShortcut}},
    {"tool_upload"_L1, {TEXT("Upload by FTP"), TEXT("&Upload by FTP..."), TEXT("Uploads the image to remote FTP server"), pictureForm, noShortcut}},
    {"tool_configure"_L1, {TEXT("Configure Tools"), TEXT("&Configure Tools..."), TEXT("Displays tools configuration dialog"), plainForm, noShortcut}},
}};
// clang-format on

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
