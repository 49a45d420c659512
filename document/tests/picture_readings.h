#pragma once

#include "plain_pngs.h"

#include <QList>
#include <QMetaType>
#include <QString>

/// Files as they are read here and by the toolkit, whose word for their format goes along: "png" or "jpeg".

/// Whether the reader of our own takes a file.
[[nodiscard]] bool is_read_here(const QString &path, const char *word = "png");

/// What differs between what a file shows and what the toolkit makes of it, in its page and in the lines that come
/// meanwhile; nothing if all is alike.
[[nodiscard]] QString differences_to_the_toolkit(const QString &path, const char *word = "png");

/// The page that the toolkit alone makes of a file.
[[nodiscard]] QImage read_by_the_toolkit(const QString &path, const char *word = "png");

/// Kinds of pixels that are read here.
[[nodiscard]] const QList<PlainPng> &plain_kinds();

[[nodiscard]] PlainPng with_chunks(PlainPng png, const QByteArray &before, const QByteArray &after = {});
/// The chunk that tells the resolution.
[[nodiscard]] QByteArray phys(qint64 x, qint64 y, char unit);

Q_DECLARE_METATYPE(PlainPng)
