#include "icon_forms.h"

#include <QPainter>
#include <QSvgRenderer>

#include <span>

namespace {

template <typename WordFunction> QImage with_each_word(const QImage &picture, WordFunction change)
{
    QImage result = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < result.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(result.scanLine(y));
        for (QRgb &word : std::span(line, static_cast<std::size_t>(result.width())))
            word = change(word);
    }
    return result;
}

QRgb gray_word(QRgb word)
{
    const int gray = qGray(word);
    return qRgba(gray, gray, gray, qAlpha(word));
}

QRgb disabled_word(QRgb word)
{
    // Half way to a light grey, so that neither the ink nor the paper of a drawing stands out.
    constexpr int PaleGray = 200;
    const int gray = (qGray(word) + PaleGray) / 2;
    return qRgba(gray, gray, gray, qAlpha(word) / 2);
}

} // namespace

QImage render_drawing(const QString &svgFile, QSize size)
{
    QSvgRenderer renderer(svgFile);
    if (!renderer.isValid())
        return {};

    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    return picture.convertToFormat(QImage::Format_ARGB32);
}

QImage gray_form(const QImage &picture)
{
    return with_each_word(picture, gray_word);
}

QImage disabled_form(const QImage &picture)
{
    return with_each_word(picture, disabled_word);
}
