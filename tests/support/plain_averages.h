#pragma once

#include <QImage>
#include <QList>

/// What a reduced page looks like, in the plainest way: every screen pixel asks every page pixel whether it lies there.

/// A side of a reduced page on the screen, in whole numbers. Page pixel k takes the screen from (begin + k * screen) /
/// page up to (begin + (k + 1) * screen) / page, and screen pixel X from X to X + 1.
struct PlainScale
{
    int screen = 1; ///< screen pixels for so many page pixels
    int page = 2;
    int begin = 0; ///< from 0 to page - 1: the page begins in screen pixel 0
};

/// For each screen pixel from 0 on the page pixels that it covers, whole or in part; none if the page does not reach the
/// middle of it.
[[nodiscard]] QList<QList<int>> covered_plainly(PlainScale scale, int length);

/// The page under such scales: ARGB32_Premultiplied, nothing where it does not show. The colours are those that the
/// toolkit shows of the page.
[[nodiscard]] QImage averaged_plainly(const QImage &page, PlainScale across, PlainScale down);
