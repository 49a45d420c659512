#pragma once

#include <QImage>
#include <QString>

#include <memory>

using TIFF = struct tiff;

/// Pages of a multi-page TIFF file, one directory each.
///
/// Rows are streamed, so there is never a second copy of a page. Neither palettes nor the bit order of
/// 1-bit pages are translated, and the resolution is written but not read. The library's own messages go
/// to its default handlers.
///
/// Errors:    a false; the file or the image is then cut short.
/// Threads:   a handle is for one thread at a time.

struct TiffCloser
{
    void operator()(TIFF *tif) const;
};
/// An open file, which is closed with the handle.
using TiffHandle = std::unique_ptr<TIFF, TiffCloser>;

/// Opens a file of any name.
/// @param mode  "rm" reads without mapping the file; begin_tiff() is for writing
/// @return null on failure
[[nodiscard]] TiffHandle open_tiff(const QString &filePath, const char *mode);

/// Bytes that the page of the current directory would take, as far as its tags tell.
[[nodiscard]] double claimed_page_bytes(TIFF *tif);

/// Reads the current directory. Pages of depth 1, 8 and 24 are taken, with all ten tags that
/// writeTiffPage() sets; 24 becomes RGB32.
/// @param[out] image  null after a failure
[[nodiscard]] bool readTiffPage(TIFF *tif, QImage &image);

/// Reads the current directory into an RGB32 image of its size: the picture, resolution included, that the
/// toolkit's reader makes of it, in less time. For pages of red, green and blue bytes that stand row by row
/// as they are shown; for others, and after a failure, the answer is false and the pixels are undefined.
[[nodiscard]] bool read_plain_rgb_page(TIFF *tif, QImage &image);

/// Gives an image the resolution of the current directory as the toolkit's reader does it: in inches without a unit,
/// and not at all without both values. What is no resolution leaves the image's own.
void read_tiff_resolution(TIFF *tif, QImage &image);

/// Bytes that the rows of a page take in the file that writeTiffPage() makes.
[[nodiscard]] qint64 tiff_row_bytes(const QImage &page);

/// Writes the tags and rows of one page of depth 1, 8 or 32. Alpha and colour table are dropped.
[[nodiscard]] bool writeTiffPage(TIFF *tif, const QImage &image);
