#include "bad_files.h"

#include "image_files.h"
#include "pictures.h"

#include <QFile>

#include <sys/stat.h>

void write_truncated(const QString &path, const char *format, double share)
{
    const QByteArray whole = encoded(patterned_page({100, 80}), format);
    write_file(path, whole.first(static_cast<qsizetype>(static_cast<double>(whole.size()) * share)));
}

void make_named_pipe(const QString &path)
{
    if (::mkfifo(QFile::encodeName(path).constData(), 0600) != 0)
        qFatal("make_named_pipe - cannot make %ls", qUtf16Printable(path));
}

void make_unreadable_file(const QString &path)
{
    write_file(path, encoded(patterned_page({100, 80}), "bmp"));
    if (!QFile::setPermissions(path, {}))
        qFatal("make_unreadable_file - anybody may read %ls", qUtf16Printable(path));
}

void write_png_promising(const QString &path, quint32 width, quint32 height)
{
    write_file(path, png_promising(width, height));
}

void write_sparse_bmp(const QString &path, qint64 bytes)
{
    write_file(path, encoded(patterned_page({2, 2}), "bmp"));
    if (!QFile::resize(path, bytes))
        qFatal("write_sparse_bmp - cannot lengthen %ls", qUtf16Printable(path));
}
