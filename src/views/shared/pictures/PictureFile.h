#pragma once

#include <string>

#include "platform/Raster.h"

namespace korvane {

/// Reads a bmp, jpg, gif (its first frame) or ico file (its largest picture); transparent pixels
/// are laid over black, as lamps that are off. Needs no display. kFileNotFound if there is no such
/// file; kInvalidPicture, with the path and the reason, for a file of another kind, a broken one,
/// or a picture with a side above 16384 or more than 64 million pixels.
Raster readPicture(const std::string& path);

}  // namespace korvane
