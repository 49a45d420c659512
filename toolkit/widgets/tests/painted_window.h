#pragma once

#include <QImage>
#include <QPainter>
#include <QPoint>
#include <QRegion>
#include <QTransform>

/// The window that the tests of painting paint on, and what it shows where nothing is painted.
constexpr QSize Window(150, 110);
constexpr QRgb Backdrop = 0xff9a8040;

inline QTransform zoom_transform(double factor, const QPoint &scroll)
{
    return QTransform::fromScale(factor, factor) * QTransform::fromTranslate(-scroll.x(), -scroll.y());
}

/// The window after one painting job under a zoom and a scroll offset.
/// @param exposed  what is painted, all of it if this is null
/// @param ratio    pixels of the screen a point of the window
/// @param size     in pixels of the screen
template <typename Draw>
QImage painted(double factor, const QPoint &scroll, const QRegion &exposed, const Draw &draw, double ratio = 1.0,
               const QSize &size = Window)
{
    QImage window(size, QImage::Format_RGB32);
    window.setDevicePixelRatio(ratio);
    window.fill(Backdrop);
    QPainter painter(&window);
    if (!exposed.isNull())
        painter.setClipRegion(exposed);
    painter.setTransform(zoom_transform(factor, scroll));
    draw(painter);
    painter.end();
    return window;
}

/// The transform that a painting job leaves behind, of a painter that had zoom_transform().
template <typename Draw> QTransform transform_after(double factor, const QPoint &scroll, const Draw &draw)
{
    QTransform after;
    (void)painted(factor, scroll, {}, [&](QPainter &painter) {
        draw(painter);
        after = painter.transform();
    });
    return after;
}
