#pragma once

#include <QImage>

#include <optional>

using TIFF = struct tiff;

/// Rows of a TIFF page that lie in the file just as they come out of the library: uncompressed, one after the other,
/// with the high bit first. They can be read past the library, which hands rows out one by one and has each strip
/// read on its own.

/// Where the rows of the current directory begin.
/// @param rowBytes  of a row in the file
/// @return nothing if they lie in another way, or if the file promises less than all of them
[[nodiscard]] std::optional<qint64> start_of_stored_rows(TIFF *tif, int rowCount, qint64 rowBytes);

/// Reads them into an image whose lines may be longer; what follows a row in its line is undefined.
/// @return false if the file ends before them
[[nodiscard]] bool read_stored_rows(int fileDescriptor, qint64 start, qint64 rowBytes, QImage &image);
