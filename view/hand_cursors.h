#pragma once

#include <QCursor>

/// The hand that may take hold of the picture or of the selection.
[[nodiscard]] const QCursor &open_hand_cursor();

/// The hand that holds it.
[[nodiscard]] const QCursor &closed_hand_cursor();
