#pragma once

#include <QCoreApplication>
#include <QDialog>

#include <memory>

class QImage;

namespace Ui {
class PropertiesDialog;
} // namespace Ui

/// Tells the size, depth and weight of a page, and how large it is shown. The form is PropertiesDialog.ui.
///
/// Threads: GUI thread only.
class PropertiesDialog : public QDialog
{
    Q_DECLARE_TR_FUNCTIONS(PropertiesDialog)

public:
    /// @param image  read here and not kept; a null one has a size of 0
    /// @param zoom   screen pixels per image pixel
    PropertiesDialog(const QImage &image, double zoom, QWidget *parent);
    ~PropertiesDialog() override;
    Q_DISABLE_COPY_MOVE(PropertiesDialog)

private:
    std::unique_ptr<Ui::PropertiesDialog> ui;
};
