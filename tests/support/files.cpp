#include "files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

void write_file(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()
        || !file.flush())
        qFatal("write_file - cannot write %ls", qUtf16Printable(path));
}

void write_program(const QString &path, const QByteArray &text)
{
    write_file(path, text);
    if (!QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
        qFatal("write_program - cannot make %ls a program", qUtf16Printable(path));
}

QByteArray file_bytes(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("file_bytes - cannot read %ls", qUtf16Printable(path));
    return file.readAll();
}

QByteArray file_bytes_if_any(const QString &path)
{
    return QFile::exists(path) ? file_bytes(path) : QByteArray();
}

FileStatus file_status(const QString &path)
{
    FileStatus status{};
    if (::lstat(QFile::encodeName(path).constData(), &status) != 0)
        qFatal("file_status - no %ls", qUtf16Printable(path));
    return status;
}
