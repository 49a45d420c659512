#pragma once

#include "descriptor.h"

#include <QString>

/// Files and directories that are the user's alone, and stay clear of what others have planted.
///
/// Errors: a descriptor that is not open, or a false, with the reason in errno.

/// Makes a file for writing, with rights for the user alone, whatever the user's mask gives or takes.
/// @return not open, with EEXIST, if there is something of that name, be it a link
[[nodiscard]] Descriptor make_private_file(const QString &path);

/// Opens, for reading, what is a plain file of the user's own, and no link to one. Waits for nothing.
[[nodiscard]] Descriptor open_own_file(const QString &path);

/// Makes a directory with rights for the user alone.
[[nodiscard]] bool make_private_directory(const QString &path);
