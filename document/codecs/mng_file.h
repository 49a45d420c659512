#pragma once

class QIODevice;

/// Whether the pictures of an MNG file fit the canvas that its header tells. The decoder takes the memory that each of
/// them claims, before it has seen pixels and whatever the size of the canvas. Read from the file's start.
///
/// @return true also for a file of another kind
[[nodiscard]] bool has_fitting_mng_pictures(QIODevice &file);
