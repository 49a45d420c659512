#include "noise_pages.h"

#include <QRandomGenerator>

#include <memory>

namespace {

QList<QRgb> falling_greys()
{
    QList<QRgb> table;
    for (int grey = 255; grey >= 0; --grey)
        table.append(qRgb(grey, grey, grey));
    return table;
}

} // namespace

QList<PageKind> page_kinds()
{
    return {
        {"Mono", QImage::Format_Mono, {qRgb(255, 255, 255), qRgb(0, 0, 0)}},
        {"MonoLSB", QImage::Format_MonoLSB, {qRgb(10, 20, 30), qRgb(200, 210, 220)}},
        {"Mono with alpha", QImage::Format_Mono, {qRgba(255, 0, 0, 0), qRgba(0, 90, 200, 128)}},
        {"Mono without table", QImage::Format_Mono, {}},
        {"Mono with one entry", QImage::Format_MonoLSB, {qRgb(3, 90, 7)}},
        {"Indexed8", QImage::Format_Indexed8, noise_table(256, false)},
        {"Indexed8 with alpha", QImage::Format_Indexed8, noise_table(256, true)},
        {"Indexed8 with short table", QImage::Format_Indexed8, noise_table(100, false)},
        {"Indexed8 with short table and alpha", QImage::Format_Indexed8, noise_table(100, true)},
        {"Indexed8 without table", QImage::Format_Indexed8, {}},
        {"RGB32", QImage::Format_RGB32, {}},
        {"ARGB32", QImage::Format_ARGB32, {}},
        {"Indexed8 from white to black", QImage::Format_Indexed8, falling_greys()},
    };
}

QList<QRgb> noise_table(int count, bool alpha)
{
    QRandomGenerator random(5);
    QList<QRgb> table;
    for (int i = 0; i < count; ++i)
        table.append(alpha ? random.generate() : random.generate() | 0xff000000U);
    return table;
}

QImage noise_page(const QSize &size)
{
    return noise_page({"RGB32", QImage::Format_RGB32, {}}, size);
}

QImage noise_page(const PageKind &kind, const QSize &size, int surplus)
{
    const qsizetype leastStride = (qsizetype{size.width()} * QImage::toPixelFormat(kind.format).bitsPerPixel() + 7) / 8;
    const qsizetype stride = leastStride + surplus;
    const qsizetype words = (stride * size.height() + 3) / 4;
    auto noise = std::make_unique<QList<quint32>>(words);
    QRandomGenerator random(42);
    random.fillRange(noise->data(), words);

    const auto release = [](void *list) { delete static_cast<QList<quint32> *>(list); };
    auto *const bytes = reinterpret_cast<uchar *>(noise->data());
    QImage page(bytes, size.width(), size.height(), stride, kind.format, release, noise.release());
    page.setColorTable(kind.table);
    return page;
}
