#pragma once

#include <cstdint>
#include <string>

#include "platform/Raster.h"

namespace korvane {

/// Reads a bmp, jpg, png, gif (its first frame) or ico file (its largest picture); transparent
/// pixels are laid over black, as lamps that are off. Needs no display. kFileNotFound if there is
/// no such file; kInvalidPicture, with the path and the reason, for a file of another kind, a
/// broken one, or a picture that is too large.
///
/// A matrix of 50 by 50 lamps travels no farther over a picture than kMostPicturePixels reach, so
/// no more are kept. A larger jpg, as cameras make them, is decoded to a half, a quarter or an
/// eighth of its sides, the first that is small enough; the other kinds are refused.
Raster readPicture(const std::string& path);

inline constexpr int kMostPictureSide = 16384;
inline constexpr std::int64_t kMostPicturePixels = std::int64_t{4096} * 4096;
inline constexpr std::int64_t kMostJpegPixels = 64'000'000;

inline constexpr const char* kPictureTooLarge =
    "the picture is larger than 16384 on a side or 4096 by 4096 pixels, more than a matrix can use";
inline constexpr const char* kJpegTooLarge =
    "the picture is larger than 16384 on a side or 64 million pixels";

/// Whether a picture of so many pixels on its sides may be read at all.
constexpr bool pictureFits(std::int64_t width, std::int64_t height, std::int64_t mostPixels) {
  return width <= kMostPictureSide && height <= kMostPictureSide && width * height <= mostPixels;
}

/// By what the sides of a jpg are divided as it is decoded: 1, 2, 4 or 8.
constexpr int pictureReduction(std::int64_t width, std::int64_t height) {
  int by = 1;
  while (by < 8 && (width / by) * (height / by) > kMostPicturePixels) by *= 2;
  return by;
}

}  // namespace korvane
