#include "bad_files.h"

#include "image_files.h"
#include "pictures.h"

#include <QFile>

#include <sys/stat.h>

bool write_bytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

bool write_truncated(const QString &path, const char *format, double share)
{
    const QByteArray whole = encoded(patterned_page({100, 80}), format);
    return write_bytes(path, whole.first(static_cast<qsizetype>(static_cast<double>(whole.size()) * share)));
}

bool make_named_pipe(const QString &path)
{
    return ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
}

bool make_unreadable_file(const QString &path)
{
    return write_bytes(path, encoded(patterned_page({100, 80}), "bmp")) && QFile::setPermissions(path, {});
}

bool write_png_promising(const QString &path, quint32 width, quint32 height)
{
    return write_bytes(path, png_promising(width, height));
}

bool write_sparse_bmp(const QString &path, qint64 bytes)
{
    QFile file(path);
    const QByteArray page = encoded(patterned_page({2, 2}), "bmp");
    return file.open(QIODevice::WriteOnly) && file.write(page) == page.size() && file.resize(bytes);
}
