#include "generators/paint/PaintTools.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "platform/Failure.h"
#include "platform/Numbers.h"
#include "platform/Raster.h"

namespace korvane {
namespace {

constexpr int kMargin = 5;
constexpr Color kWhite = rgb(255, 255, 255);

std::int16_t cellEdge(int side, int count) {
  if (count <= 0) throw Failure(kDivisionByZero);
  return roundToInt16((side - 2.0 * kMargin) / count);
}

std::int32_t centred(int side, int count, int edge) {
  return roundToInt32((side - static_cast<double>(count) * edge) / 2);
}

// A stroke as the two axes see it: `along` the axis whose cells are walked, `across` the other.
struct Stroke {
  int along1, across1, along2, across2;
};

// Calls paint(cell, across) for each of `count` cells whose centre line the stroke crosses.
template <class Paint>
void sample(Stroke s, int count, int cellSize, int offset, const Paint& paint) {
  if (s.along1 > s.along2) {
    std::swap(s.along1, s.along2);
    std::swap(s.across1, s.across2);
  }
  const double length = s.along2 - s.along1;
  if (length == 0) return;  // a point has no direction
  for (int cell = 0; cell < count; ++cell) {
    const int along = roundToInt32((cell + 0.5) * cellSize + offset);
    if (along < s.along1 || along > s.along2) continue;
    const double way = static_cast<double>(s.across2 - s.across1) * (along - s.along1);
    paint(cell, roundToInt32(s.across1 + way / length));
  }
}

// Sets the cells of the area in a box for which covers(col, row) holds.
template <class Covers>
void paintCells(const PaintArea& area, const CellBox& box, Color color, const Covers& covers) {
  for (int col = std::max(box.left, 0); col <= std::min(box.right, area.cols - 1); ++col) {
    for (int row = std::max(box.top, 0); row <= std::min(box.bottom, area.rows - 1); ++row) {
      if (covers(col, row)) area.set(col, row, color);
    }
  }
}

}  // namespace

PaintLayout::PaintLayout(int cols, int rows, int width, int height) {
  if (cols > rows) {
    cellSize = cellEdge(width, cols);
    offsetX = kMargin;
    offsetY = centred(height, rows, cellSize);
  } else {
    cellSize = cellEdge(height, rows);
    offsetY = kMargin;
    offsetX = centred(width, cols, cellSize);
  }
}

int PaintLayout::cell(int distance) const {
  if (cellSize <= 0) throw Failure(kDivisionByZero);
  return floorToInt32(static_cast<double>(distance) / cellSize);
}

CellBox boxBetween(const PaintLayout& layout, PaintPoint start, PaintPoint end) {
  const auto [left, right] = std::minmax({layout.column(start.x), layout.column(end.x)});
  const auto [top, bottom] = std::minmax({layout.row(start.y), layout.row(end.y)});
  return {left, top, right, bottom};
}

void paintLine(const PaintArea& area, const PaintLayout& layout, PaintPoint start, PaintPoint end,
               Color color) {
  if (std::abs(end.x - start.x) > std::abs(end.y - start.y)) {
    sample({start.x, start.y, end.x, end.y}, area.cols, layout.cellSize, layout.offsetX,
           [&](int col, int y) { area.set(col, layout.row(y), color); });
  } else {
    sample({start.y, start.x, end.y, end.x}, area.rows, layout.cellSize, layout.offsetY,
           [&](int row, int x) { area.set(layout.column(x), row, color); });
  }
}

void paintRectangle(const PaintArea& area, const CellBox& box, Color color, bool filled) {
  paintCells(area, box, color, [&](int col, int row) {
    return filled || col == box.left || col == box.right || row == box.top || row == box.bottom;
  });
}

void paintCircle(const PaintArea& area, const CellBox& box, Color color, bool filled) {
  Raster shape(area.cols, area.rows);
  shape.drawEllipse(box.left, box.top, box.right, box.bottom, kWhite, filled);
  paintCells(area, box, color, [&](int col, int row) { return shape.pixel(col, row) == kWhite; });
}

void replaceColor(const PaintArea& area, Color from, Color to) {
  paintCells(area, {0, 0, area.cols - 1, area.rows - 1}, to,
             [&](int col, int row) { return area.cells.at(col, row) == from; });
}

void shiftPicture(const PaintArea& area, int right, int down) {
  const Grid<Color> old = area.cells;
  const auto wrapped = [](int index, int count) { return (index % count + count) % count; };
  for (int col = 0; col < area.cols; ++col) {
    for (int row = 0; row < area.rows; ++row) {
      area.set(col, row, old.at(wrapped(col - right, area.cols), wrapped(row - down, area.rows)));
    }
  }
}

void growPicture(Grid<Color>& picture, int cols, int rows) {
  if (picture.cols() >= cols && picture.rows() >= rows) return;
  picture.resizeKeeping(std::max(picture.cols(), cols), std::max(picture.rows(), rows));
}

}  // namespace korvane
