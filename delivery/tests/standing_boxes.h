#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

#include <algorithm>

/// How many message boxes are on the screen.
[[nodiscard]] inline int standing_boxes()
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    return static_cast<int>(std::count_if(widgets.begin(), widgets.end(), [](const QWidget *widget) {
        return qobject_cast<const QMessageBox *>(widget) && widget->isVisible();
    }));
}

/// The one that takes input, null if there is none.
[[nodiscard]] inline QMessageBox *top_box()
{
    return qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
}

inline void answer_top_box()
{
    if (QMessageBox *const box = top_box())
        box->button(QMessageBox::Ok)->click();
}
