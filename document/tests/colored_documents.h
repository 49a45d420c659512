#pragma once

#include <QList>
#include <QRgb>

#include <memory>

class ImageDocument;
class QImage;

/// Documents whose pages are told by their colour.

inline constexpr QRgb red = 0xffff0000;
inline constexpr QRgb green = 0xff00ff00;
inline constexpr QRgb blue = 0xff0000ff;

/// A page of 3 by 2 pixels.
[[nodiscard]] QImage page_of(QRgb color);
/// A document of pages of these colours, not modified and without a file.
[[nodiscard]] std::unique_ptr<ImageDocument> document_of(const QList<QRgb> &colors);
[[nodiscard]] QList<QRgb> colors_of(const ImageDocument &document);
