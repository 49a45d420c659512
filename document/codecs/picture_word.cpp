#include "picture_word.h"

#include <QFile>
#include <QImageReader>

using namespace Qt::StringLiterals;

QString single_picture_word(QIODevice &file)
{
    const QByteArray start = file.peek(8);
    if (start.startsWith("\xff\xd8\xff"))
        return u"jpeg"_s;
    return start == "\x89PNG\r\n\x1a\n" ? u"png"_s : QString();
}

QString picture_word(const QString &filePath)
{
    // By the end of other names the toolkit finds the one plug-in to ask itself.
    QFile file(filePath);
    if (filePath.endsWith(".png"_L1, Qt::CaseInsensitive) && file.open(QIODevice::ReadOnly)
        && single_picture_word(file) == "png"_L1)
        return u"png"_s;
    return QString::fromLatin1(QImageReader::imageFormat(filePath));
}
