#include "Thumbnail.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int Side = 160;

const QImage &checked(const QImage &image)
{
    if (image.width() == 0 || image.height() == 0)
        qFatal("Thumbnail::Thumbnail - zero image size! w=%d, h=%d", image.width(), image.height());
    return image;
}

} // namespace

QImage reduced_copy(const QImage &image)
{
    const double factor =
        std::min(static_cast<double>(Side) / image.height(), static_cast<double>(Side) / image.width());
    if (factor == 1.0)
        return image.copy();

    // Intended: a square from the width alone, also for tall pages.
    const int side = static_cast<int>((image.width() - 1) * factor) + 1;
    return image.scaled(QSize(side, side), Qt::KeepAspectRatio, Qt::FastTransformation);
}

bool trans_copy(const QImage &src, QImage &dst, const int * /*parameter*/)
{
    dst = src;
    return !dst.isNull();
}

Thumbnail::Thumbnail(const QImage &image, QWidget *parent, const char *name, Qt::WindowFlags flags) :
    QWidget(parent, flags),
    m_source(reduced_copy(checked(image)))
{
    setObjectName(QString::fromLatin1(name));
    resize(QSize(Side, Side));
}

bool Thumbnail::convert(ImageTransform transform, const int *parameter)
{
    if (!transform(m_source, m_result, parameter)) {
        qDebug("Thumbnail::convert - unable to transform the image!");
        return false;
    }

    qDebug("Thumbnail::convert - after transform");
    patch_palette(m_result);
    const QPixmap pixmap = QPixmap::fromImage(m_result, Qt::ColorOnly);
    if (pixmap.isNull()) {
        qDebug("Thumbnail::convert - unable to convert the image!");
        return false;
    }
    m_pixmap = pixmap;
    update();
    return true;
}

QSize Thumbnail::sizeHint() const
{
    return {Side + 1, Side + 1};
}

QSize Thumbnail::minimumSizeHint() const
{
    return sizeHint();
}

QSize Thumbnail::pictureSize() const
{
    return m_pixmap.size();
}

void Thumbnail::paintEvent(QPaintEvent * /*event*/)
{
    if (!m_pixmap.isNull())
        QPainter(this).drawPixmap((Side - 1 - m_pixmap.width()) / 2, (Side - 1 - m_pixmap.height()) / 2, m_pixmap);
}
