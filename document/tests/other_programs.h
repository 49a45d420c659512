#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// ImageMagick as a judge of files. By their full names, as other programs are called "convert" too.
inline constexpr QLatin1StringView ConvertProgram("convert-im6.q16");
inline constexpr QLatin1StringView IdentifyProgram("identify-im6.q16");

/// What a program prints. Fails the test if the program fails.
[[nodiscard]] QByteArray output_of(const QString &program, const QStringList &arguments);

/// The picture as ImageMagick sees it: red, green and blue of each pixel.
/// @param file  a path, which may have a format and a colon before it
[[nodiscard]] QByteArray colors_for_imagemagick(const QString &file);
/// The same of a picture without colours: one byte a pixel.
[[nodiscard]] QByteArray greys_for_imagemagick(const QString &file);
