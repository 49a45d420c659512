#pragma once

#include "descriptor.h"
#include "early_picture.h"
#include "image_files.h"
#include "plain_pngs.h"

#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>

/// A test's files that are decoded early, in a folder that goes with it.
class EarlyFiles
{
protected:
    [[nodiscard]] QString written(const QByteArray &bytes, const QString &name = QStringLiteral("file")) const
    {
        write_file(directory.filePath(name), bytes);
        return directory.filePath(name);
    }

    static QByteArray largePng() { return PlainPng{.size = QSize(1200, 900)}.file(); }

    const QTemporaryDir directory;
};

/// The page that the thread has made of a file.
inline QImage early_page(const QString &path, const QString &word)
{
    const Descriptor file(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC));
    return take_early_picture(path, word, file.get());
}
