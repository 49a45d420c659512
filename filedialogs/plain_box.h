#pragma once

#include <QMessageBox>

/// Shows a modal message box and returns the button pressed. The text is shown as it stands: file
/// names may look like markup.
/// @param parent         may be null
/// @param defaultButton  what Return presses; NoButton leaves it to the toolkit
[[nodiscard]] QMessageBox::StandardButton
show_plain_box(QMessageBox::Icon icon, QWidget *parent, const QString &title, const QString &text,
               QMessageBox::StandardButtons buttons, QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);
