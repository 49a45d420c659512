#include "added_widget.h"

#include <QChildEvent>
#include <QWidget>

QWidget *added_widget(const QChildEvent &event)
{
    if (!event.added() || !event.child()->isWidgetType())
        return nullptr;

    // Within the constructor of a widget qobject_cast already knows it as what it is so far.
    auto *const widget = qobject_cast<QWidget *>(event.child());
    return widget->isWindow() ? nullptr : widget;
}
