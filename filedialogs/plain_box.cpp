#include "plain_box.h"

QMessageBox::StandardButton show_plain_box(QMessageBox::Icon icon, QWidget *parent, const QString &title,
                                           const QString &text, QMessageBox::StandardButtons buttons,
                                           QMessageBox::StandardButton defaultButton)
{
    QMessageBox box(icon, title, text, buttons, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(defaultButton);
    box.exec();
    return box.standardButton(box.clickedButton());
}
