#pragma once

#include "files.h"
#include "Q3Process.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <QTest>

/// Programs to start in tests: small shell scripts, and some that are not there.

/// A directory in which scripts leave what they have seen.
class ScriptPlace
{
public:
    [[nodiscard]] QString path(const QString &name) const { return m_directory.filePath(name); }

    /// What a script has left under a name. Scripts write elsewhere and move the file here when it is whole.
    [[nodiscard]] QByteArray left(const QString &name) const
    {
        return has(name) ? file_bytes(path(name)) : QByteArray("nothing yet");
    }

    [[nodiscard]] bool has(const QString &name) const { return QFile::exists(path(name)); }

    void make(const QString &name) const { write_file(path(name), {}); }

private:
    QTemporaryDir m_directory;
};

/// Hands over a script for the shell; "$0" is the place's directory.
inline void add_script(Q3Process &process, const QString &script, const ScriptPlace &place)
{
    for (const QString &argument : {QStringLiteral("/bin/sh"), QStringLiteral("-c"), script, place.path(QString())})
        process.addArgument(argument);
}

/// Says that it runs, waits to be told to go on, and says that it has ended.
inline const QString patientScript =
    QStringLiteral("cd \"$0\"; touch running; until [ -e go ]; do sleep 0.05; done; touch ended");

/// Rows of programs that cannot be started.
inline void add_missing_programs()
{
    QTest::addColumn<QString>("program");

    QTest::newRow("absolute path") << QStringLiteral("/nowhere/at/all/viewer");
    QTest::newRow("name that PATH does not have") << QStringLiteral("no-program-has-this-name");
    QTest::newRow("directory") << QStringLiteral("/tmp");
}
