#include "action_records.h"

#include "action_table.h"
#include "embedded_pixmaps.h"
#include "Q3MimeSourceFactory.h"

#include <QAction>
#include <QCoreApplication>
#include <QIcon>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *TranslationContext = "Global String Table";

constexpr std::array<QLatin1StringView, 8> ZoomNames = {"8:1"_L1, "4:1"_L1, "2:1"_L1, "1:1"_L1,
                                                        "1:2"_L1, "1:4"_L1, "1:8"_L1, "1:16"_L1};

QString translated(const QString &text)
{
    return QCoreApplication::translate(TranslationContext, text.toUtf8().constData());
}

QString whats_this(const ActionRecord &record)
{
    // Intended: the texts as they stand in the table, so that a what's-this text is never translated.
    if (record.whatsThisForm == PlainForm)
        return record.whatsThisForm.arg(record.text).arg(record.tip);
    if (record.whatsThisForm == PictureForm)
        return record.whatsThisForm.arg(record.text).arg(record.text).arg(record.tip);
    return record.whatsThisForm;
}

} // namespace

ActionRecord action_record(const ActionTexts &texts)
{
    return {.text = QString::fromUtf8(texts.text),
            .menuText = QString::fromUtf8(texts.menuText),
            .tip = QString::fromUtf8(texts.tip),
            .whatsThisForm = texts.whatsThisForm,
            .shortcut = QKeySequence(texts.shortcut)};
}

IconRecord icon_record(QLatin1StringView base)
{
    return {.gray = base + "_gray.png"_L1, .disable = base + "_disable.png"_L1, .color = base + "_color.png"_L1};
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
