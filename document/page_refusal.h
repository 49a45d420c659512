#pragma once

#include <QImage>
#include <QString>

/// What formats cannot hold, found before a file is touched.

/// Why a page cannot be written in a format as it is; empty if nothing speaks against it.
/// @param imgFormat  a format word, in any case
[[nodiscard]] QString page_refusal(const QImage &page, const QString &imgFormat);

/// Why pages of so many bytes together fit into no multi-page TIFF file; empty if they do.
[[nodiscard]] QString tiff_refusal(qint64 rowBytes);

/// The page without the texts that keep its format's writer from writing it at all: PNG needs a letter in a keyword.
/// It shows @p page's own pixels, and must not outlive them.
[[nodiscard]] QImage without_bad_texts(const QImage &page, const QString &imgFormat);
