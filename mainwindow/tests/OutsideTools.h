#pragma once

#include "files.h"
#include "TemporaryHome.h"

#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>

/// Stand-ins for programs outside, first in PATH: shell scripts that leave in a directory what they were given.
///
/// A recorder named x leaves x.words (its arguments, a line each), x.file (a copy of the first one that is a file), x.mode
/// (who may use it), x.directory, x.environment (HOME) and, last of all, x.done; x.run grows by a line with each
/// start. While it is held it waits in between.
///
/// Ownership: the directory lies in the home, which has to outlive the object.
class OutsideTools
{
public:
    explicit OutsideTools(const TemporaryHome &home) : m_directory(home.filePath(QStringLiteral("outside")))
    {
        if (!QDir().mkpath(m_directory))
            qFatal("cannot make a directory for programs");
        m_formerPath = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(m_directory) + ':' + m_formerPath);
        makeLpr();
    }
    ~OutsideTools() { qputenv("PATH", m_formerPath); }
    Q_DISABLE_COPY_MOVE(OutsideTools)

    [[nodiscard]] QString path(const QString &name) const { return m_directory + QLatin1Char('/') + name; }
    [[nodiscard]] bool has(const QString &name) const { return QFile::exists(path(name)); }
    [[nodiscard]] QByteArray bytes(const QString &name) const { return file_bytes_if_any(path(name)); }
    [[nodiscard]] QStringList lines(const QString &name) const
    {
        return QString::fromUtf8(bytes(name)).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
    [[nodiscard]] int count(const QString &name) const { return static_cast<int>(lines(name).size()); }

    /// Makes a program that runs a script in the directory of this object.
    void make(const QString &name, const QString &script) const
    {
        const QByteArray start = "#!/bin/sh\nhere=$PWD\ncd '" + QFile::encodeName(m_directory) + "'\n";
        write_program(path(name), start + script.toUtf8());
    }

    /// Makes a recorder and answers its path.
    [[nodiscard]] QString recorder(const QString &name) const
    {
        makeRecorder(name);
        return path(name);
    }
    void makeLpr() const { makeRecorder(QStringLiteral("lpr")); }

    /// Removes a program, and hides the machine's own one of that name with all others.
    void forget(const QString &name) const
    {
        QFile::remove(path(name));
        qputenv("PATH", QFile::encodeName(m_directory));
    }

    void hold(const QString &name) const { write_file(path(name + QStringLiteral(".hold")), {}); }
    void release(const QString &name) const { QFile::remove(path(name + QStringLiteral(".hold"))); }

private:
    void makeRecorder(const QString &name) const
    {
        make(name,
             QStringLiteral("PATH=/usr/bin:/bin\n"
                            "echo run >>%1.run\n"
                            "file=; for word; do [ -n \"$file\" ] || [ ! -f \"$word\" ] || file=$word; done\n"
                            "echo \"$here\" >%1.directory\n"
                            "echo \"$HOME\" >%1.environment\n"
                            "[ -z \"$file\" ] || stat -c %a \"$file\" >%1.mode\n"
                            "printf '%s\\n' \"$@\" >%1.new; mv %1.new %1.words\n"
                            "while [ -e %1.hold ]; do sleep 0.02; done\n"
                            "[ -z \"$file\" ] || cp \"$file\" %1.file\n"
                            "touch %1.done\n")
                 .replace(QLatin1String("%1"), name));
    }

    QString m_directory;
    QByteArray m_formerPath;
};
