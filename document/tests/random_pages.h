#pragma once

#include <QImage>
#include <QList>
#include <QRandomGenerator>

/// Formats that a page may have.
[[nodiscard]] const QList<QImage::Format> &page_formats();
[[nodiscard]] const char *format_name(QImage::Format format);

/// A page of random pixels, with a random table where there is one. Sizes in pixels.
[[nodiscard]] QImage random_page(QRandomGenerator &random, QSize size, QImage::Format format);

/// Sizes from 1 to 64 on each side: every one on either side at least once.
[[nodiscard]] QList<QSize> small_sizes();

/// What lies at one place: the index where there is a table, else the word.
[[nodiscard]] QRgb value_at(const QImage &page, int x, int y);
