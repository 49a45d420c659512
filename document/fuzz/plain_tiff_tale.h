#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

/// What a TIFF file tells, wherever in the file it stands: its directories with all values, the bytes that are pointed
/// to, and the directories below. Two files that hold the same tell the same, in either byte order and of either size.
///
/// For files whose directories are a tree, in which what is pointed to lies.
/// @return nothing if something lies outside the file
[[nodiscard]] std::optional<std::string> plain_tiff_tale(std::span<const std::uint8_t> file);
