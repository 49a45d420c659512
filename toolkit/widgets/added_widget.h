#pragma once

class QChildEvent;
class QWidget;

/// The child that @p event adds to its parent's layout; null for a removal, for a child that is no
/// widget, and for a window of its own. The child may still be within its constructor: use it as a
/// plain QWidget.
[[nodiscard]] QWidget *added_widget(const QChildEvent &event);
