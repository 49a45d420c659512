#pragma once

#include <QImage>
#include <QList>
#include <QRandomGenerator>

/// Formats that a page may have.
[[nodiscard]] const QList<QImage::Format> &pageFormats();
[[nodiscard]] const char *formatName(QImage::Format format);

/// A page of random pixels, with a random table where there is one. Sizes in pixels.
[[nodiscard]] QImage randomPage(QRandomGenerator &random, QSize size, QImage::Format format);

/// Sizes from 1 to 64 on each side: every one on either side at least once.
[[nodiscard]] QList<QSize> smallSizes();

/// What lies at one place: the index where there is a table, else the word.
[[nodiscard]] QRgb valueAt(const QImage &page, int x, int y);
