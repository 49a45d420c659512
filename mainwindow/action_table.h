#pragma once

#include <QKeySequence>
#include <QLatin1StringView>
#include <QPixmap>
#include <QString>

#include <span>

class QAction;

/// The texts and the key of a command, untranslated.
struct ActionRecord
{
    QString text; ///< plain name; heading of the what's-this text
    QString menuText; ///< name with its "&" mnemonic, as menus and tool buttons show it
    QString tip; ///< one sentence for the status bar and the what's-this text
    QString whatsThisForm; ///< a form with places for text and tip, or a finished text
    QKeySequence shortcut; ///< may be empty
};

/// Which pictures an action gets: @p base with "_gray.png", "_disable.png" and "_color.png".
struct IconRecord
{
    QLatin1StringView action; ///< name of the action
    QLatin1StringView base;
};

/// The row of the action called @p name, null if the table has none.
[[nodiscard]] const ActionRecord *action_record(QLatin1StringView name);

/// The twelve actions that have pictures.
[[nodiscard]] std::span<const IconRecord> icon_table();

/// The zoom steps as the menu names them, from the largest picture to the smallest.
[[nodiscard]] std::span<const QLatin1StringView, 8> zoom_names();

/// Pours a row into an action: texts in the user's language, shortcut, and the what's-this text, which
/// stays English.
void applyActionRecord(QAction *action, const ActionRecord &record);

/// Adds pictures to the action's icon: grey at rest, coloured under the pointer, pale when switched off.
void applyIconRecord(QAction *action, const QPixmap &color, const QPixmap &gray, const QPixmap &disable);

/// The embedded picture called @p name, such as "Save_gray.png"; a null pixmap if there is none.
[[nodiscard]] QPixmap embeddedPixmap(const QString &name);
