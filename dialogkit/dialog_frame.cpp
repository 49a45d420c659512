#include "dialog_frame.h"

#include <QApplication>
#include <QDialog>
#include <QHBoxLayout>
#include <QIcon>
#include <QMainWindow>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QWidget *main_window()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::find_if(windows.cbegin(), windows.cend(), [](const QWidget *window) {
        return qobject_cast<const QMainWindow *>(window) != nullptr;
    });
    return found == windows.cend() ? nullptr : *found;
}

QIcon icon_for(const QDialog &dialog)
{
    QIcon icon;
    if (const QWidget *const parent = dialog.parentWidget())
        icon = parent->windowIcon();
    if (const QWidget *const window = icon.isNull() ? main_window() : nullptr)
        icon = window->windowIcon();
    return icon;
}

QPushButton *add_button(QHBoxLayout &row, const QString &text, QLatin1StringView name)
{
    auto *const button = new QPushButton(text);
    button->setObjectName(name);
    row.addWidget(button);
    return button;
}

} // namespace

void identify_dialog(QDialog &dialog, const QString &title, const char *name, bool modal)
{
    dialog.setObjectName(QString::fromLatin1(name));
    dialog.setWindowTitle(title);
    dialog.setModal(modal);
    const QIcon icon = icon_for(dialog);
    if (!icon.isNull())
        dialog.setWindowIcon(icon);
}

void set_dialog_spacing(QLayout &layout)
{
    layout.setContentsMargins(DialogSpacing, DialogSpacing, DialogSpacing, DialogSpacing);
    layout.setSpacing(DialogSpacing);
}

ButtonRow make_button_row(QDialog &dialog)
{
    auto *const row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(DialogSpacing);

    auto *const space = new QWidget;
    space->setObjectName("my_hbox"_L1);
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    row->addWidget(space);

    QPushButton *const okButton = add_button(*row, QCoreApplication::translate("dialog_frame", "OK"), "my_ok_btn"_L1);
    QPushButton *const cancelButton =
        add_button(*row, QCoreApplication::translate("dialog_frame", "Cancel"), "my_cancel_btn"_L1);
    okButton->setDefault(true);

    const QSize okSize = okButton->sizeHint();
    const QSize size(std::max(okSize.width(), cancelButton->sizeHint().width()), okSize.height());
    okButton->setFixedSize(size);
    cancelButton->setFixedSize(size);

    QObject::connect(okButton, &QPushButton::clicked, &dialog, &QDialog::accept);
    QObject::connect(cancelButton, &QPushButton::clicked, &dialog, &QDialog::reject);
    return {row, okButton};
}

void fit_size(QDialog &dialog, int minimumWidth)
{
    const QSize hint = dialog.sizeHint();
    dialog.resize(std::max(hint.width(), minimumWidth), hint.height());
}
