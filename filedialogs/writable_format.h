#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// Whether an image can be saved in the format @p key; if not, a warning box says why.
/// @param key      as in the format lists, not empty
/// @param writers  what the toolkit writes; "TIFF" needs none
[[nodiscard]] bool confirm_writable_format(const QString &key, const QList<QByteArray> &writers);
