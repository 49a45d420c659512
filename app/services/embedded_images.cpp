#include "embedded_images.h"

#include <QByteArray>
#include <QList>

namespace {

QImage::Format format_of(const EmbeddedImage &row)
{
    if (row.depth == 8)
        return QImage::Format_Indexed8;
    return row.alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32;
}

} // namespace

QImage unpack_embedded_image(const EmbeddedImage &row)
{
    const QByteArray pixels = qUncompress(row.data, row.compressedSize);
    const qsizetype bytesPerLine = qsizetype{row.width} * row.depth / 8;
    if (pixels.size() < bytesPerLine * row.height)
        return {};

    QImage onBuffer(reinterpret_cast<const uchar *>(pixels.constData()), row.width, row.height, bytesPerLine,
                    format_of(row));
    if (row.colorCount > 0)
        onBuffer.setColorTable(QList<QRgb>(row.colorTable, row.colorTable + row.colorCount));
    return onBuffer.copy(); // the buffer goes away with this function
}
