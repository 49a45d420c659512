#include "random_pages.h"

const QList<QImage::Format> &page_formats()
{
    static const QList<QImage::Format> formats{QImage::Format_Mono, QImage::Format_MonoLSB, QImage::Format_Indexed8,
                                               QImage::Format_RGB32, QImage::Format_ARGB32};
    return formats;
}

const char *format_name(QImage::Format format)
{
    switch (format) {
    case QImage::Format_Mono:
        return "Mono";
    case QImage::Format_MonoLSB:
        return "MonoLSB";
    case QImage::Format_Indexed8:
        return "Indexed8";
    case QImage::Format_RGB32:
        return "RGB32";
    default:
        return "ARGB32";
    }
}

QImage random_page(QRandomGenerator &random, QSize size, QImage::Format format)
{
    QImage page(size, format);
    page.fill(0U);
    const int colors = page.depth() == 1 ? 2 : 256;
    if (page.depth() <= 8) {
        QList<QRgb> table(colors);
        for (QRgb &color : table)
            color = random.generate() | 0xff000000;
        page.setColorTable(table);
    }
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            if (page.depth() <= 8)
                page.setPixel(x, y, static_cast<uint>(random.bounded(colors)));
            else
                reinterpret_cast<QRgb *>(page.scanLine(y))[x] =
                    random.generate() | (format == QImage::Format_RGB32 ? 0xff000000 : 0);
        }
    }
    return page;
}

QList<QSize> small_sizes()
{
    QList<QSize> sizes;
    for (int side = 1; side <= 64; ++side)
        sizes << QSize(side, (side * 37) % 64 + 1) << QSize((side * 23) % 64 + 1, side);
    return sizes;
}

QRgb value_at(const QImage &page, int x, int y)
{
    if (page.depth() <= 8)
        return static_cast<QRgb>(page.pixelIndex(x, y));
    return reinterpret_cast<const QRgb *>(page.constScanLine(y))[x];
}
