#include "tiff_tiles.h"

#include "image_memory.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <tiffio.h>

namespace {

using TileMemory = std::unique_ptr<char, decltype(&std::free)>;

/// Null if the machine does not give it. A broken header may claim gigabytes: what no tile is decoded into is never
/// touched.
TileMemory cleared_memory(std::size_t size)
{
    return {static_cast<char *>(std::calloc(size, 1)), &std::free};
}

} // namespace

bool has_whole_tiles(TIFF *tif)
{
    std::uint16_t compression = COMPRESSION_NONE;
    (void)TIFFGetFieldDefaulted(tif, TIFFTAG_COMPRESSION, &compression);
    if (TIFFIsTiled(tif) == 0 || compression == COMPRESSION_NONE)
        return true;
    const tmsize_t tileBytes = TIFFTileSize(tif);
    if (tileBytes <= 0 || 2 * tileBytes > affordable_image_bytes())
        return false;
    const auto size = static_cast<std::size_t>(tileBytes);
    const TileMemory tile = cleared_memory(size);
    const TileMemory again = cleared_memory(size);
    if (!tile || !again)
        return false;
    for (std::uint32_t i = 0; i < TIFFNumberOfTiles(tif); ++i) {
        if (i > 0)
            std::fill_n(tile.get(), size, '\0');
        if (TIFFReadEncodedTile(tif, i, tile.get(), tileBytes) < 0)
            return true; // for the reader, which fails there too
        std::fill_n(again.get(), size, '\xff');
        if (TIFFReadEncodedTile(tif, i, again.get(), tileBytes) < 0
            || !std::equal(tile.get(), tile.get() + size, again.get()))
            return false;
    }
    return true;
}
