#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/Color.h"
#include "platform/Failure.h"

namespace korvane {

/// An array over the cells of the matrix, indexed (col, row), both from 0 up to and including
/// the counts: the column and the row past the last cell exist so that indexing them does not
/// fail, and no loop uses them. Columns lie one after another in memory.
template <class T>
class Grid {
 public:
  /// Most cells that a grid may have; more raises kOutOfMemory before memory is taken.
  static constexpr std::int64_t kMostCells = 4'000'000;

  /// Dimensions the grid anew, every element cleared. A negative count raises kSubscript.
  void redim(int cols, int rows) {
    if (cols < 0 || rows < 0) throw Failure(kSubscript, "negative grid size");
    const std::int64_t cells = (std::int64_t{cols} + 1) * (std::int64_t{rows} + 1);
    if (cells > kMostCells) throw Failure(kOutOfMemory);
    cells_.assign(static_cast<std::size_t>(cells), T{});
    width_ = static_cast<unsigned>(cols) + 1;
    height_ = static_cast<unsigned>(rows) + 1;
  }

  /// Dimensions the grid anew and keeps what lies inside both sizes.
  void resizeKeeping(int cols, int rows) {
    Grid old = *this;
    redim(cols, rows);
    for (int col = 0; col <= cols && col <= old.cols(); ++col) {
      for (int row = 0; row <= rows && row <= old.rows(); ++row) at(col, row) = old.at(col, row);
    }
  }

  /// Sets every element, the unused ones included.
  void fill(const T& value) { cells_.assign(cells_.size(), value); }

  /// The element at (col, row); outside the bounds raises kSubscript.
  T& at(int col, int row) { return cells_[index(col, row)]; }
  const T& at(int col, int row) const { return cells_[index(col, row)]; }

  bool empty() const { return cells_.empty(); }  ///< never dimensioned
  int cols() const { return static_cast<int>(width_) - 1; }
  int rows() const { return static_cast<int>(height_) - 1; }
  /// All elements in memory order; column c begins at c x (rows + 1).
  T* data() { return cells_.data(); }
  const T* data() const { return cells_.data(); }
  /// Elements from the first column up to the end of column cols - 1, spare rows included.
  std::size_t span() const { return empty() ? 0 : std::size_t{width_ - 1} * height_; }

 private:
  // A negative number is a large one without its sign.
  std::size_t index(int col, int row) const {
    const auto x = static_cast<unsigned>(col);
    const auto y = static_cast<unsigned>(row);
    if (x >= width_ || y >= height_) throw Failure(kSubscript);
    return std::size_t{x} * height_ + y;
  }

  unsigned width_ = 0;  // columns and rows with the spare ones; 0 before the first redim
  unsigned height_ = 0;
  std::vector<T> cells_;
};

/// A picture of the matrix, one lamp an element.
using Frame = Grid<Rgb>;

}  // namespace korvane
