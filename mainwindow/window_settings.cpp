#include "window_settings.h"

#include <QSettings>

namespace {

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
