#include "tiff_tiles.h"

#include "image_memory.h"

#include <algorithm>
#include <cstdint>
#include <tiffio.h>
#include <vector>

bool has_whole_tiles(TIFF *tif)
{
    std::uint16_t compression = COMPRESSION_NONE;
    (void)TIFFGetFieldDefaulted(tif, TIFFTAG_COMPRESSION, &compression);
    if (TIFFIsTiled(tif) == 0 || compression == COMPRESSION_NONE)
        return true;
    const tmsize_t tileBytes = TIFFTileSize(tif);
    if (tileBytes <= 0 || 2 * tileBytes > affordable_image_bytes())
        return false;
    std::vector<char> tile(static_cast<std::size_t>(tileBytes));
    std::vector<char> again(tile.size());
    for (std::uint32_t i = 0; i < TIFFNumberOfTiles(tif); ++i) {
        std::ranges::fill(tile, '\0');
        std::ranges::fill(again, '\xff');
        if (TIFFReadEncodedTile(tif, i, tile.data(), tileBytes) < 0)
            return true; // for the reader, which fails there too
        if (TIFFReadEncodedTile(tif, i, again.data(), tileBytes) < 0 || tile != again)
            return false;
    }
    return true;
}
