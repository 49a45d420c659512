#pragma once

#include "descriptor.h"
#include "file_state.h"
#include "tiff_structure.h"

#include <QString>

#include <list>
#include <optional>

/// Pages of a TIFF file that are not open: those behind the first one, which stay in their file until they are taken
/// along into another.
struct KeptPages
{
    QString filePath;
    FileState state; ///< of the file when they were counted
    TiffKind kind;
    uint count = 0;
    uint pagesBefore = 1; ///< open pages of the document that come before them

    /// @return nothing if the file is gone or is not the same any more
    [[nodiscard]] std::optional<Descriptor> open() const;
};

/// The kind of file that takes all of them: a large one if one of them comes from such, and else that of the first.
[[nodiscard]] TiffKind common_kind(const std::list<KeptPages> &kept);

/// Whether all of them are still there and can be taken along as they stand.
[[nodiscard]] bool can_be_kept(const std::list<KeptPages> &kept);

/// What a file holds, whether it is open or not.
struct FilePictures
{
    uint count = 0; ///< pictures, 1 if the format cannot tell
    std::optional<TiffKind> tiffKind; ///< nothing for other formats
};
[[nodiscard]] FilePictures count_pictures(int fileDescriptor);
