#pragma once

#include <cstddef>
#include <vector>

#include "platform/Color.h"

namespace korvane {

/// A rectangle of pixels, (0, 0) at the top left. Drawing outside it is clipped. Colours are
/// plain (no system references) values of rgb().
class Raster {
 public:
  Raster() = default;
  Raster(int width, int height, Color color = 0);

  int width() const { return width_; }
  int height() const { return height_; }
  const Color* data() const { return pixels_.data(); }  ///< rows from the top
  const Color* line(int y) const;
  Color* line(int y);

  /// The pixel at (x, y); -1 outside, as the platform's pixel reads answer.
  Color pixel(int x, int y) const;
  void setPixel(int x, int y, Color color);
  void fill(Color color);
  /// Filled rectangle between two corners in any order, both included.
  void fillRect(int x1, int y1, int x2, int y2, Color color);
  /// Outline of the same rectangle.
  void drawRect(int x1, int y1, int x2, int y2, Color color);
  /// Ellipse in the box between two corners in any order, both included: the pixels whose centres
  /// lie in it, or only those of them that have a straight neighbour outside it.
  void drawEllipse(int x1, int y1, int x2, int y2, Color color, bool filled);
  /// Copies width x height pixels from (sourceX, sourceY) of source to (x, y). What lies outside
  /// the source leaves the target as it is. Source may be this raster.
  void copy(int x, int y, int width, int height, const Raster& source, int sourceX, int sourceY);
  /// Puts the whole of source onto the whole of this raster, pixels kept or dropped, never blended.
  /// An empty source changes nothing.
  void stretch(const Raster& source);

  bool operator==(const Raster&) const = default;

 private:
  std::size_t index(int x, int y) const;

  int width_ = 0;
  int height_ = 0;
  std::vector<Color> pixels_;
};

}  // namespace korvane
