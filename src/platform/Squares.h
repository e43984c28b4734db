#pragma once

#include <vector>

#include "platform/Raster.h"

namespace korvane {

/// Rectangles of one size that are drawn one after the other: the lamps of a grid.
struct Squares {
  struct Square {
    int x, y;
    Color color;

    bool operator==(const Square&) const = default;
  };

  int toRight = 0;   ///< from each square's upper left corner to the lower right one,
  int toBottom = 0;  ///< both included
  std::vector<Square> list;

  bool operator==(const Squares&) const = default;

  /// Whether nothing can be left to see of `others` once these are drawn: each of those has one of
  /// the same place here.
  bool cover(const Squares& others) const;
};

/// Draws the squares in colours as `pixel` makes them from theirs.
template <class Pixel>
void drawSquares(Raster& raster, const Squares& squares, Pixel pixel) {
  for (const auto& [x, y, color] : squares.list)
    raster.fillRect(x, y, x + squares.toRight, y + squares.toBottom, pixel(color));
}

}  // namespace korvane
