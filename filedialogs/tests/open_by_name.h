#pragma once

#include "file_dialogs.h"
#include "FileDialogUser.h"

/// What the caller of open_file_dialog() gets.
struct OpenAnswer
{
    bool bChosen = false;
    QString path = QStringLiteral("untouched");
    QString format = QStringLiteral("untouched");
};

/// Opens the dialog and types one existing name, under a filter unless it is empty.
inline OpenAnswer open_by_name(const QString &name, const QString &filter = {})
{
    const FileDialogUser user([&](const FileDialogUser &at) {
        if (!filter.isEmpty())
            at.chooseFilter(filter);
        at.type(name);
        at.pressReturn();
    });
    OpenAnswer answer;
    answer.bChosen = open_file_dialog(answer.path, answer.format, nullptr);
    return answer;
}
