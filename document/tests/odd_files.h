#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QString>

/// Files of kinds that decoders stumble over, made byte by byte.

inline constexpr int TgaFromTop = 0x20;
inline constexpr int TgaRightToLeft = 0x10;

struct Tga
{
    int width = 2;
    int height = 1;
    int bits = 24;
    int descriptor = TgaFromTop;
    QByteArray pixels{};
    QByteArray name{};
    QByteArray table{}; ///< three bytes an entry
};

/// Uncompressed, in true colours, with the signature of the second version.
[[nodiscard]] QByteArray tga_file(const Tga &tga);

/// An animation of one picture in all frames, @p left and @p top within a canvas of 8 by 6 pixels.
[[nodiscard]] QByteArray animated_webp(const QImage &picture, int left, int top, bool tellsAlpha, int frames = 1);

/// Icons of 32 by 32 pixels whose colours are coded one after the other.
[[nodiscard]] QByteArray icns_file(const QByteArray &codes);

/// A BMP of 4 by 2 pixels in three colours by run lengths.
/// @param bits  8 or 4
[[nodiscard]] QByteArray run_length_bmp(int bits, const QList<QRgb> &colors, const QByteArray &codes);

struct OddFile
{
    QByteArray name;
    QByteArray bytes;
    QString word; ///< that it is loaded by; empty for its content
};

/// One of each kind.
[[nodiscard]] QList<OddFile> odd_files();
