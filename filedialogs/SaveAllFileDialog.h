#pragma once

#include "ImageFileDialog.h"

class QCheckBox;
class QLabel;

/// The dialog that saves all open documents: it asks in addition whether the name chosen is to serve
/// those that have none.
class SaveAllFileDialog : public ImageFileDialog
{
    Q_OBJECT

public:
    explicit SaveAllFileDialog(QWidget *parent);

    /// The user's answer; true in a new dialog.
    [[nodiscard]] bool usesNameAsBasename() const;

private:
    QLabel *autosaveLabel;
    QCheckBox *useAsBasename;
};
