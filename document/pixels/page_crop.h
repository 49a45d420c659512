#pragma once

#include <QImage>

/// QImage::copy() of @p area with a page's memory, see page_buffers.h: what lies outside of the page is filled with 0,
/// the null rectangle means all, other empty ones give null. So does a want of memory.
[[nodiscard]] QImage cropped(const QImage &page, const QRect &area);
