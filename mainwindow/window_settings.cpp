#include "window_settings.h"

#include <QSettings>

#include <algorithm>
#include <limits>

namespace {

/// The stored length in pixels, or @p fallback if what is stored is none.
int read_length(const QString &name, int fallback)
{
    bool isNumber = false;
    const qlonglong length = read_window_setting(name, fallback).toLongLong(&isNumber); // an int would go round
    constexpr qlonglong longest = std::numeric_limits<int>::max();
    return isNumber && length > 0 ? static_cast<int>(std::min(length, longest)) : fallback;
}

QString settings_key(const QString &name)
{
    return QStringLiteral("/image_editor/") + name;
}

} // namespace

QVariant read_window_setting(const QString &name, const QVariant &fallback)
{
    return QSettings().value(settings_key(name), fallback);
}

bool write_window_setting(const QString &name, const QVariant &value)
{
    QSettings settings;
    settings.setValue(settings_key(name), value);
    return settings.isWritable();
}

QSize read_window_size(QSize fallback, QSize largest)
{
    return QSize(read_length(WindowSetting::Width, fallback.width()),
                 read_length(WindowSetting::Height, fallback.height()))
        .boundedTo(largest);
}
