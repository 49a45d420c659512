#pragma once

#include <QByteArray>

/// Small files that are whole and rightly made, and unpack to a picture of any size. All their pixels are alike.
///
/// Units: @p side is that of a square, in pixels.

/// One bit a pixel.
[[nodiscard]] QByteArray png_bomb(quint32 side);
/// One bit a pixel; all strips are the same bytes of the file. @p side is a multiple of 100.
[[nodiscard]] QByteArray tiff_bomb(quint32 side);
/// Two bits a pixel.
[[nodiscard]] QByteArray gif_bomb(quint16 side);
/// 32 bits a pixel, no bit of which is in the file. @p side is 16383 at most.
[[nodiscard]] QByteArray webp_bomb(quint32 side);
/// One frame of 16 by 16 on a canvas of that size.
[[nodiscard]] QByteArray animated_webp_bomb(quint32 side);
