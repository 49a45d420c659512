#include "TemporaryHome.h"

#include <QDir>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

std::optional<QByteArray> environment_value(const char *name)
{
    if (!qEnvironmentVariableIsSet(name))
        return std::nullopt;
    return qgetenv(name);
}

void restore_environment(const char *name, const std::optional<QByteArray> &value)
{
    if (value)
        qputenv(name, *value);
    else
        qunsetenv(name);
}

/// QSettings asks the environment once in the life of a process and keeps the answer, so a change
/// has to be told to it.
void point_settings_to_environment()
{
    const QString configHome = qEnvironmentVariable("XDG_CONFIG_HOME");
    const QString path = configHome.isEmpty() ? QDir::homePath() + "/.config"_L1 : configHome;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, path);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, path);
}

} // namespace

TemporaryHome::TemporaryHome() :
    m_formerHome(environment_value("HOME")),
    m_formerConfigHome(environment_value("XDG_CONFIG_HOME"))
{
    if (!m_directory.isValid())
        qFatal("TemporaryHome - %s", qPrintable(m_directory.errorString()));
    qputenv("HOME", m_directory.path().toLocal8Bit());
    qunsetenv("XDG_CONFIG_HOME");
    point_settings_to_environment();
}

TemporaryHome::~TemporaryHome()
{
    restore_environment("HOME", m_formerHome);
    restore_environment("XDG_CONFIG_HOME", m_formerConfigHome);
    point_settings_to_environment();
}

QStringList TemporaryHome::filesIn(const QString &directory) const
{
    return QDir(m_directory.filePath(directory)).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}
