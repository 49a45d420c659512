#pragma once

#include "image_files.h"

#include <QByteArray>
#include <QFile>
#include <QList>

/// TIFF files of the low byte first, written out by hand.

/// An entry of a directory.
[[nodiscard]] inline QByteArray entry(int tag, int type, qint64 value, qint64 count = 1)
{
    return little16(tag) + little16(type) + little32(count)
        + little32(value); // short numbers stand first in their room
}

/// A file of the low byte first: what stands behind the header, and one directory of these entries behind that.
[[nodiscard]] inline QByteArray tiff_of(const QByteArray &data, const QList<QByteArray> &entries)
{
    return QByteArrayLiteral("II\x2a\0") + little32(8 + data.size()) + data + little16(static_cast<int>(entries.size()))
        + entries.join() + little32(0);
}

/// A file open for reading.
class Opened
{
public:
    explicit Opened(const QString &path) : file(path)
    {
        if (!file.open(QIODevice::ReadOnly))
            qFatal("cannot open %s", qPrintable(path));
    }
    [[nodiscard]] int handle() const { return file.handle(); }

private:
    QFile file;
};
