#pragma once

/// Gives an open file owner, group, mode, access list and extended attributes of another. Labels of the system's
/// security modules are given on where it lets us.
/// @return false if it could not be done; the file may have some of them then
[[nodiscard]] bool copy_likeness(int fromDescriptor, int toDescriptor);
