#include "mended_file.h"

#include "bmp_file.h"

#include <QIODevice>

QByteArray mended_file(QIODevice &file)
{
    QByteArray mended;
    if (file.peek(2) == "BM")
        mended = mended_bmp(file);
    return file.seek(0) ? mended : QByteArray();
}
