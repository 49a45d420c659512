#pragma once

#include <QByteArray>

class QFile;

/// What the readers that take a file as a whole have in common.

/// All bytes at once, without one more. Empty if they are not to be had.
[[nodiscard]] QByteArray all_bytes(QFile &file);

/// Such names tell the toolkit's readers of a scale: "page@2x.png".
[[nodiscard]] bool is_named_for_a_scale(const QFile &file);
