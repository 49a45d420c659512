#pragma once

#include <string>
#include <vector>

/// Small TIFF files of all kinds that the multi-page reader takes, and some others.
[[nodiscard]] std::vector<std::string> tiff_seeds();
