#pragma once

#include <QKeySequence>
#include <QLatin1StringView>
#include <QPixmap>
#include <QString>

#include <span>

class QAction;
struct ActionTexts;

/// The texts and the key of an action, untranslated, as they are poured into it.
struct ActionRecord
{
    QString text;
    QString menuText;
    QString tip;
    QString whatsThisForm; ///< a form with places for text and tip, or a finished text
    QKeySequence shortcut; ///< may be empty
};

/// The names of an action's three embedded pictures.
struct IconRecord
{
    QString gray;
    QString disable;
    QString color;
};

/// The texts of a row of the action table.
[[nodiscard]] ActionRecord action_record(const ActionTexts &texts);

/// The pictures whose names begin with @p base.
[[nodiscard]] IconRecord icon_record(QLatin1StringView base);

/// The zoom steps as the menu names them, from the largest picture to the smallest.
[[nodiscard]] std::span<const QLatin1StringView, 8> zoom_names();

/// Pours a record into an action: texts in the user's language, shortcut, and the what's-this text, which
/// stays English.
void applyActionRecord(QAction *action, const ActionRecord &record);

/// Adds pictures to the action's icon: grey at rest, coloured under the pointer, pale when switched off.
void applyIconRecord(QAction *action, const QPixmap &color, const QPixmap &gray, const QPixmap &disable);

/// The embedded picture called @p name, such as "Save_gray.png"; a null pixmap if there is none.
[[nodiscard]] QPixmap embeddedPixmap(const QString &name);
