#pragma once

#include <QImage>
#include <QList>

/// Pages whose colours differ from pixel to pixel, so that every wrong one shows.

/// A format of a page with a table of colours.
struct PageKind
{
    const char *name;
    QImage::Format format;
    QList<QRgb> table;
};

/// All formats of a page, with whole, short and missing tables, with and without alpha.
[[nodiscard]] QList<PageKind> page_kinds();

/// @p count colours at random, the same ones at every call.
[[nodiscard]] QList<QRgb> noise_table(int count, bool alpha);

/// A page of noise in true colours, which no coder makes small.
[[nodiscard]] QImage noise_page(const QSize &size);

/// A page of noise, also behind the ends of its lines.
/// @param surplus  bytes that a line of it is longer than it has to be; of a page of depth 32 a multiple of 4
[[nodiscard]] QImage noise_page(const PageKind &kind, const QSize &size, int surplus = 0);
