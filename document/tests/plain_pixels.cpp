#include "plain_pixels.h"

#include <QColor>

QRgb plain_brightness(QRgb word, int percent)
{
    const QColor color(word);
    const QColor changed = percent > 0 ? color.lighter(100 + percent) : color.darker(100 - percent);
    return (word & 0xff000000) | (changed.rgb() & 0x00ffffff);
}

ChannelBounds plain_bounds(const QList<QRgb> &words, int shift)
{
    ChannelBounds bounds;
    for (const QRgb word : words) {
        const int value = static_cast<int>(word >> shift & 0xff);
        if (value < bounds.minimum)
            bounds.minimum = value;
        else if (value > bounds.maximum)
            bounds.maximum = value;
    }
    return bounds;
}

QRgb plain_value(QRgb word, int shift, ChannelBounds bounds, int percent)
{
    const int range = bounds.maximum - bounds.minimum + 1;
    const int above = static_cast<int>(word >> shift & 0xff) - bounds.minimum;
    int value = 0;
    if (percent > 0)
        value = above * ((100 + percent) * 256) / (range * 100);
    else
        value = above * 25600 / ((100 - percent) * range);
    return static_cast<QRgb>(value < 0 ? 0 : value > 255 ? 255 : value) << shift;
}

QList<QRgb> plain_contrast(const QList<QRgb> &words, int percent)
{
    const ChannelBounds red = plain_bounds(words, 16);
    const ChannelBounds green = plain_bounds(words, 8);
    const ChannelBounds blue = plain_bounds(words, 0);
    QList<QRgb> result;
    for (const QRgb word : words) {
        result.append((word & 0xff000000) | plain_value(word, 16, red, percent) | plain_value(word, 8, green, percent)
                      | plain_value(word, 0, blue, percent));
    }
    return result;
}

QImage plain_mono(const QImage &page)
{
    QImage mono(page.size(), QImage::Format_Mono);
    mono.setColorTable({0xffffffff, 0xff000000});
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            const QRgb color = page.pixel(x, y);
            mono.setPixel(x, y, qRed(color) + qGreen(color) + qBlue(color) < 387 ? 1 : 0);
        }
    }
    return mono;
}
