#include "snapshot_pages.h"

#include "image_files.h"
#include "page_image.h"
#include "pictures.h"

#include <QFile>
#include <QRandomGenerator>

QImage random_page(QSize size, QImage::Format format, int colorCount, QRandomGenerator &random)
{
    QImage page(size, format);
    for (int y = 0; y < page.height(); ++y) {
        uchar *const line = page.scanLine(y);
        for (qsizetype i = 0; i < page.bytesPerLine(); ++i)
            line[i] = static_cast<uchar>(random.generate());
        for (int x = 0; x < page.width() && page.depth() == 8 && colorCount > 0; ++x)
            line[x] = static_cast<uchar>(line[x] % colorCount);
    }
    if (page.depth() == 1 && colorCount == 1)
        page.fill(0U);
    if (page.depth() <= 8) {
        QList<QRgb> table(colorCount);
        for (QRgb &color : table)
            color = random.generate() | 0xff000000;
        page.setColorTable(table);
    }
    return page;
}

void put_file(const QString &path, const QByteArray &bytes)
{
    QFile::remove(path);
    write_file(path, bytes);
}

QImage toolkit_page(const QByteArray &bytes)
{
    QImage image;
    return image.loadFromData(bytes, "BMP") ? to_page_image(image) : QImage();
}

bool is_same_page(const QImage &actual, const QImage &expected)
{
    return compare_pictures(actual, expected) && actual.dotsPerMeterX() == expected.dotsPerMeterX()
        && actual.dotsPerMeterY() == expected.dotsPerMeterY();
}
