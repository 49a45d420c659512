#pragma once

#include <QSize>
#include <QString>
#include <QVariant>

// What the main window keeps between runs. Each read and each write is a QSettings object of its own.

/// The stored value of @p name, or @p fallback if there is none.
[[nodiscard]] QVariant read_window_setting(const QString &name, const QVariant &fallback);

/// Stores a value. False if the settings cannot be written.
bool write_window_setting(const QString &name, const QVariant &value);

/// The stored size of the window in pixels, no side longer than that of @p largest. A side whose entry is missing or
/// is no length is that of @p fallback.
[[nodiscard]] QSize read_window_size(QSize fallback, QSize largest);

namespace WindowSetting {

inline const QString ShowLabels = QStringLiteral("show_labels"); ///< bool
inline const QString ToolsMenu = QStringLiteral("tools_menu"); ///< bool, read only
inline const QString KeepOpen = QStringLiteral("keep_open"); ///< bool, read only
inline const QString MovableToolbars = QStringLiteral("movable_toolbars"); ///< bool
inline const QString Layout = QStringLiteral("image_editor_layout"); ///< string
inline const QString Width = QStringLiteral("image_editor_width"); ///< int, pixels
inline const QString Height = QStringLiteral("image_editor_height"); ///< int, pixels
inline const QString BigPixmaps = QStringLiteral("big_pixmaps"); ///< bool, written only
inline const QString ShowTooltips = QStringLiteral("show_tooltips"); ///< bool, written only

} // namespace WindowSetting
