#pragma once

using TIFF = struct tiff;

/// Whether the decoder fills every byte of the tiles of the current directory, so far as it does not fail; true for a
/// page without tiles. Damaged data of some kinds end the decoding of a tile early without a word, and what the tile
/// held before is then shown. Each tile is decoded twice.
[[nodiscard]] bool has_whole_tiles(TIFF *tif);
