#pragma once

#include <QImage>
#include <QString>

/// Writes a page of depth 1 as a TIFF file with fax compression (group 4), which the image plug-in cannot do.
/// @return false if the page is of another depth or the file cannot be written
[[nodiscard]] bool write_fax_tiff(const QImage &page, const QString &fileName);
