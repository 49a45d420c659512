#pragma once

#include <QString>

class QImage;

/// Writes one page to a file of its own, under a wait cursor; an old file stays as it is unless the new one is whole.
/// @param format  format word
/// @return false if there is no page, or no whole file of it
[[nodiscard]] bool write_page_file(const QImage &image, const QString &path, const QString &format);
