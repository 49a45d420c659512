#include "TemporaryHome.h"

#include <QDir>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

std::optional<QByteArray> environmentValue(const char *name)
{
    if (!qEnvironmentVariableIsSet(name))
        return std::nullopt;
    return qgetenv(name);
}

void restoreEnvironment(const char *name, const std::optional<QByteArray> &value)
{
    if (value)
        qputenv(name, *value);
    else
        qunsetenv(name);
}

/// QSettings asks the environment once in the life of a process and keeps the answer, so a change
/// has to be told to it.
void pointSettingsToEnvironment()
{
    const QString configHome = qEnvironmentVariable("XDG_CONFIG_HOME");
    const QString path = configHome.isEmpty() ? QDir::homePath() + "/.config"_L1 : configHome;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, path);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, path);
}

} // namespace

TemporaryHome::TemporaryHome() :
    m_formerHome(environmentValue("HOME")),
    m_formerConfigHome(environmentValue("XDG_CONFIG_HOME"))
{
    if (!m_directory.isValid())
        qFatal("TemporaryHome - %s", qPrintable(m_directory.errorString()));
    qputenv("HOME", m_directory.path().toLocal8Bit());
    qunsetenv("XDG_CONFIG_HOME");
    pointSettingsToEnvironment();
}

TemporaryHome::~TemporaryHome()
{
    restoreEnvironment("HOME", m_formerHome);
    restoreEnvironment("XDG_CONFIG_HOME", m_formerConfigHome);
    pointSettingsToEnvironment();
}

QStringList TemporaryHome::filesIn(const QString &directory) const
{
    return QDir(m_directory.filePath(directory)).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}
