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

/// Marks a row of the list as a click does, once it has @p count of them. The list comes in by itself.
inline void mark_row(const ImageFileDialog &dialog, int row, int count)
{
    auto *const rows = dialog.findChild<QListView *>(QStringLiteral("listView"));
    if (!QTest::qWaitFor([rows, count] { return rows->model()->rowCount(rows->rootIndex()) == count; }))
        qFatal("the list does not have its rows");
    rows->setFocus();
    rows->selectionModel()->select(rows->model()->index(row, 0, rows->rootIndex()),
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}
