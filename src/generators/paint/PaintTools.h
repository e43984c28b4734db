#pragma once

#include <cstdint>

#include "platform/Color.h"
#include "platform/Grid.h"

namespace korvane {

/// The tools of the paint box, by their numbers.
enum PaintTool : std::int16_t {
  kPoint = 1,
  kLine,
  kFilledRectangle,
  kFilledCircle,
  kRectangle,
  kCircle,
  kReplace
};

/// A place in the drawing area, in its pixels.
struct PaintPoint {
  std::int16_t x = 0;
  std::int16_t y = 0;
};

/// Where the cells of a picture stand in the drawing area, in its pixels: the grid fills the longer
/// side but for a margin of 5 and is centred on the other.
struct PaintLayout {
  /// For a picture of cols x rows cells in an area of this size. kDivisionByZero for no cells.
  PaintLayout(int cols, int rows, int width, int height);

  /// Column and row of a pixel: below 0 left of the grid and above it, from the counts on beyond
  /// it. kDivisionByZero if the area has no pixel for a cell.
  int column(int x) const { return cell(x - offsetX); }
  int row(int y) const { return cell(y - offsetY); }

  std::int16_t cellSize = 0;  ///< edge of a cell, ties to even
  std::int32_t offsetX = 0;
  std::int32_t offsetY = 0;

 private:
  int cell(int distance) const;
};

/// A picture under the brush: what a stroke does outside of cols x rows cells has no effect.
struct PaintArea {
  Grid<Color>& cells;
  int cols;
  int rows;

  bool contains(int col, int row) const { return col >= 0 && row >= 0 && col < cols && row < rows; }
  void set(int col, int row, Color color) const {
    if (contains(col, row)) cells.at(col, row) = color;
  }
};

/// The cells of a shape, the smaller ones first, both ends included.
struct CellBox {
  int left, top, right, bottom;
};
CellBox boxBetween(const PaintLayout& layout, PaintPoint start, PaintPoint end);

/// A line as it runs over the screen, sampled on the centre line of each row, of each column if it
/// is flat: which cells it meets depends on where in them it begins and ends. One that crosses no
/// centre line paints nothing.
void paintLine(const PaintArea& area, const PaintLayout& layout, PaintPoint start, PaintPoint end,
               Color color);
void paintRectangle(const PaintArea& area, const CellBox& box, Color color, bool filled);
void paintCircle(const PaintArea& area, const CellBox& box, Color color, bool filled);
/// Every cell of exactly one colour gets another, wherever it lies.
void replaceColor(const PaintArea& area, Color from, Color to);
/// Pushes the picture by some cells to the right and down; what leaves it comes in opposite.
void shiftPicture(const PaintArea& area, int right, int down);

/// Gives a picture at least the size of a grid, its contents kept.
void growPicture(Grid<Color>& picture, int cols, int rows);

}  // namespace korvane
