#pragma once

#include <utility>

#include "platform/PictureBox.h"
#include "state/Variablen.h"

namespace korvane {

/// Draws a square for each lamp, column by column, as `squareOf` (column, row) tells it, with these
/// offsets from its upper left to its lower right corner. A failure of one ends it; those before it
/// are drawn.
template <class SquareOf>
void drawCells(PictureBox& box, const Variablen& v, int toRight, int toBottom, SquareOf squareOf) {
  Squares squares{toRight, toBottom, {}};
  if (v.matrixCols > 0 && v.matrixRows > 0)
    squares.list.reserve(static_cast<std::size_t>(v.matrixCols) *
                         static_cast<std::size_t>(v.matrixRows));
  try {
    for (std::int16_t col = 0; col < v.matrixCols; ++col) {
      for (std::int16_t row = 0; row < v.matrixRows; ++row)
        squares.list.push_back(squareOf(col, row));
    }
  } catch (...) {
    box.draw(std::move(squares));
    throw;
  }
  box.draw(std::move(squares));
}

/// The same of one lamp.
inline void drawCell(PictureBox& box, const Variablen& v, int toRight, int toBottom, int col,
                     int row, const Squares::Square& square) {
  const int index = col * v.matrixRows + row;
  box.draw(static_cast<std::size_t>(index), toRight, toBottom, square);
}

}  // namespace korvane
