#include "settings_files.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

/// Names of the files that settings come from, below any directory of settings.
QStringList settings_file_names()
{
    const QString given = QCoreApplication::organizationName();
    const QString organization = given.isEmpty() ? u"Unknown Organization"_s : given; // as QSettings names it
    return {organization + u'/' + QCoreApplication::applicationName() + ".conf"_L1, organization + ".conf"_L1,
            u"QtProject.conf"_s}; // the toolkit's own, for file dialogs
}

/// The first file that is there and no plain one; empty if there is none.
QString odd_settings_file()
{
    const QStringList directories = QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
    for (const QString &directory : directories) {
        for (const QString &name : settings_file_names()) {
            const QFileInfo file(directory + u'/' + name);
            if (file.exists() && !file.isFile())
                return file.filePath();
        }
    }
    return {};
}

} // namespace

void avoid_odd_settings_files()
{
    const QString odd = odd_settings_file();
    if (odd.isEmpty())
        return;
    qWarning("avoid_odd_settings_files - %s is no plain file, so there are no settings", qUtf8Printable(odd));
    // Below what is no directory nothing is found and nothing can be made.
    for (const QSettings::Scope scope : {QSettings::UserScope, QSettings::SystemScope})
        QSettings::setPath(QSettings::NativeFormat, scope, u"/dev/null"_s);
}
