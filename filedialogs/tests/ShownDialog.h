#pragma once

#include "FileDialogUser.h"
#include "ImageFileDialog.h"
#include "TemporaryHome.h"

#include <QItemSelectionModel>
#include <QListView>
#include <QTest>

inline QList<ImageFormat> three_formats()
{
    return {{QStringLiteral("png"), QStringLiteral("Portable Network Graphics"), {QStringLiteral("png")}},
            {QStringLiteral("jpeg"), QStringLiteral("JPEG"), {QStringLiteral("jpg"), QStringLiteral("jpeg")}},
            {QStringLiteral("ALL"), QStringLiteral("All files"), {QStringLiteral("*")}}};
}

/// A dialog on the screen that saves into the home of a test, with three filters, PNG first.
class ShownDialog : public ImageFileDialog
{
public:
    explicit ShownDialog(const TemporaryHome &home, AcceptMode mode = AcceptSave) : ImageFileDialog(nullptr)
    {
        setWindowTitle(QStringLiteral("Save"));
        setFileMode(mode == AcceptSave ? AnyFile : ExistingFile);
        setAcceptMode(mode);
        setOption(DontConfirmOverwrite);
        setFormats(three_formats());
        setDirectory(home.path());
        setModal(true);
        show();
        if (!QTest::qWaitForWindowActive(this))
            qFatal("the file dialog is not on the screen");
    }
};

/// Marks the row of a name as a click does, once it is there. The list comes in by itself, and is sorted after that.
inline void mark_row(const ImageFileDialog &dialog, const QString &name)
{
    auto *const list = dialog.findChild<QListView *>(QStringLiteral("listView"));
    const auto row = [list, &name] {
        const QModelIndex folder = list->rootIndex();
        QModelIndex found;
        for (int i = 0; i < list->model()->rowCount(folder) && !found.isValid(); ++i)
            if (const QModelIndex index = list->model()->index(i, 0, folder); index.data() == name)
                found = index;
        return found;
    };
    if (!QTest::qWaitFor([&row] { return row().isValid(); }))
        qFatal("the list does not have the row");
    list->setFocus();
    list->selectionModel()->select(row(), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}
