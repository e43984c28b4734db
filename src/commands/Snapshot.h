#pragma once

#include <string>

#include "platform/Raster.h"

namespace korvane {

/// Writes a picture to a file (its path in UTF-8) as bmp, png or ppm, by the path's ending.
/// CommandError for another ending, for an empty picture, and if the file can't be written.
void writeSnapshot(const Raster& picture, const std::string& path);

}  // namespace korvane
