#pragma once

#include "file_dialogs.h"
#include "FileDialogUser.h"

/// What the caller of a dialog for one file gives and gets.
struct DialogAnswer
{
    bool bChosen = false;
    QString path{};
    QString format{};
};

/// Opens the dialog for an existing file and works it.
inline DialogAnswer open_file(const FileDialogUser::Work &work, DialogAnswer given = {})
{
    const FileDialogUser user(work);
    given.bChosen = open_file_dialog(given.path, given.format, nullptr);
    return given;
}

/// Opens the dialog for an existing file and types one name, under a filter unless it is empty.
inline DialogAnswer open_by_name(const QString &name, const QString &filter = {})
{
    return open_file([&](const FileDialogUser &at) {
        if (!filter.isEmpty())
            at.chooseFilter(filter);
        at.type(name);
        at.pressReturn();
    });
}

/// Opens the dialog for a file to write and works it.
inline DialogAnswer save_file(const FileDialogUser::Work &work, DialogAnswer given = {},
                              const char *onlyFormat = nullptr)
{
    const FileDialogUser user(work);
    given.bChosen = save_file_dialog(given.path, given.format, nullptr, onlyFormat);
    return given;
}
