#pragma once

#include "files.h"
#include "ImageManagerProgram.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

/// A place with a stand-in for lpr, and settings.
class ToolPlace : public Place
{
public:
    ToolPlace()
    {
        // Copies its file and stays while there is a file "hold"; its own number and descriptors are left too.
        write(
            QStringLiteral("lpr"),
            "#!/bin/sh\nd='" + QFile::encodeName(home())
                + "'\ncp \"$1\" \"$d/printed.png\"\necho $# \"$1\" >\"$d/words\"\nls -l /proc/$$/fd >\"$d/open.new\"\n"
                  "grep SigIgn /proc/$$/status >>\"$d/open.new\"\nmv \"$d/open.new\" \"$d/open\"\n"
                  "while [ -e \"$d/hold\" ]; do sleep 0.05; done\n");
        QFile(inHome(QStringLiteral("lpr"))).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    [[nodiscard]] QString inHome(const QString &name) const { return home() + QLatin1Char('/') + name; }
    void write(const QString &name, const QByteArray &bytes) const { write_file(inHome(name), bytes); }
    [[nodiscard]] QByteArray bytes(const QString &name) const { return file_bytes_if_any(inHome(name)); }
    [[nodiscard]] bool has(const QString &name) const { return QFile::exists(inHome(name)); }
    /// The file that lpr was given.
    [[nodiscard]] QString printFile() const
    {
        return QString::fromUtf8(bytes(QStringLiteral("words"))).section(QLatin1Char(' '), 1).trimmed();
    }
};

inline void find_lpr_in(ImageManagerProgram &program, const ToolPlace &place)
{
    program.process().setEnvironment(QStringLiteral("PATH"),
                                     place.home() + QLatin1Char(':') + qEnvironmentVariable("PATH"));
}
