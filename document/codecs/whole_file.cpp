#include "whole_file.h"

#include <QFile>
#include <QFileInfo>

QByteArray all_bytes(QFile &file)
{
    QByteArray bytes(file.size(), Qt::Uninitialized);
    if (!file.seek(0) || file.read(bytes.data(), bytes.size()) != bytes.size())
        return {};
    return bytes;
}

bool is_named_for_a_scale(const QFile &file)
{
    return QFileInfo(file.fileName()).baseName().contains(u'@');
}
