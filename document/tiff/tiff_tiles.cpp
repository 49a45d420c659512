#include "tiff_tiles.h"

#include "image_memory.h"

#include <QtGlobal>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include <sys/mman.h>
#include <tiffio.h>

namespace {

/// Memory of zeros, from the system itself. A broken header may claim gigabytes: what no tile is decoded into is never
/// touched, while an allocator may fill what it hands out.
class ClearedMemory
{
public:
    explicit ClearedMemory(std::size_t size_) :
        size(size_),
        start(::mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))
    {
    }
    ~ClearedMemory()
    {
        if (isThere())
            ::munmap(start, size);
    }
    Q_DISABLE_COPY_MOVE(ClearedMemory)

    /// Whether the machine gives it.
    [[nodiscard]] bool isThere() const { return start != MAP_FAILED; }
    [[nodiscard]] std::span<char> bytes() const { return {static_cast<char *>(start), size}; }

private:
    std::size_t size;
    void *start;
};

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
    const ClearedMemory tile(size);
    const ClearedMemory again(size);
    if (!tile.isThere() || !again.isThere())
        return false;
    for (std::uint32_t i = 0; i < TIFFNumberOfTiles(tif); ++i) {
        if (i > 0)
            std::ranges::fill(tile.bytes(), '\0');
        if (TIFFReadEncodedTile(tif, i, tile.bytes().data(), tileBytes) < 0)
            return true; // for the reader, which fails there too
        std::ranges::fill(again.bytes(), '\xff');
        if (TIFFReadEncodedTile(tif, i, again.bytes().data(), tileBytes) < 0
            || !std::ranges::equal(tile.bytes(), again.bytes()))
            return false;
    }
    return true;
}
