#pragma once

#include <vector>

#include "desk/wall/WallPicture.h"

namespace korvane {

/// How a wire runs through a rectangle of places, line by line.
struct WirePath {
  enum Corner { kTopLeft, kTopRight, kBottomLeft, kBottomRight };

  Corner start = kTopLeft;
  bool columns = false;  ///< a line is a column, else a row
  bool snake = false;    ///< every second line runs back

  bool operator==(const WirePath&) const = default;
};

/// Places along a wire, by lines.
using WireLines = std::vector<std::vector<LampAt>>;

/// The places of a rectangle of cols x rows along the wire.
WireLines layOut(const WirePath& path, int cols, int rows);

}  // namespace korvane
