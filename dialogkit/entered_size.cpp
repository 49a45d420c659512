#include "entered_size.h"

#include <QtGlobal>

std::optional<QSize> read_size(const QString &width, const QString &height)
{
    bool ok = false;
    QSize size;
    size.setWidth(width.toInt(&ok, 10));
    if (!ok) {
        qDebug("ResizeDialog::result - width toString failed!");
        return std::nullopt;
    }
    size.setHeight(height.toInt(&ok, 10));
    if (!ok) {
        qDebug("ResizeDialog::result - height toString failed!");
        return std::nullopt;
    }
    return size;
}

SizeVerdict judge_size(const std::optional<QSize> &size, int pixelLimit)
{
    if (!size)
        return SizeVerdict::NoNumber;
    if (size->width() < SmallestSide || size->height() < SmallestSide)
        return SizeVerdict::TooSmall;
    // A division, because the product of two sides may be more than an int holds.
    if (pixelLimit / size->width() < size->height())
        return SizeVerdict::TooLarge;
    return SizeVerdict::Good;
}
