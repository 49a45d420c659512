#pragma once

#include <QImage>
#include <QSize>
#include <QString>

/// The three forms of a tool picture, made from one drawing at build time.
///
/// Units:     sizes in pixels; all results are Format_ARGB32, not premultiplied.
/// Errors:    a drawing that cannot be read gives a null image.
/// Threads:   any; no function here needs an application object.

/// The drawing @p svgFile scaled to @p size on a transparent ground.
[[nodiscard]] QImage render_drawing(const QString &svgFile, QSize size);

/// The picture of an idle command: its brightness without its colours, every alpha as it was.
[[nodiscard]] QImage gray_form(const QImage &picture);

/// The picture of a command that is off: grey, pale, low in contrast and half transparent.
[[nodiscard]] QImage disabled_form(const QImage &picture);
