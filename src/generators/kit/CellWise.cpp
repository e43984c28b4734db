#include "generators/kit/CellWise.h"

#include "output/Preview.h"
#include "platform/Numbers.h"

namespace korvane {
namespace {

// The cell at (col, row) takes the colour of its neighbour.
void pull(Engine& engine, Deck& deck, int col, int row, int fromCol, int fromRow) {
  setCell(engine, deck, col, row, deck.frame.at(fromCol, fromRow));
}

}  // namespace

void setCell(Engine& engine, Deck& deck, int col, int row, const Rgb& color, Noted noted) {
  deck.frame.at(col, row) = color;
  Rgb& before = deck.frameWork.at(col, row);
  if (rgb(before) == rgb(color)) return;  // numbers compare faster than arrays
  if (noted == Noted::All) {
    before = color;
  } else {
    before[0] = color[0];
  }
  const auto x = static_cast<std::int16_t>(col);
  const auto y = static_cast<std::int16_t>(row);
  drawPoint(engine, deck, x, y);
  if (mixIsFree(engine)) mixAndDraw(engine, x, y);
}

void movePicture(Engine& engine, Deck& deck) {
  const int cols = engine.v.matrixCols;
  const int rows = engine.v.matrixRows;
  switch (deck.effect().direction) {
    case kUp:
      for (int row = 1; row < rows; ++row)
        for (int col = 0; col < cols; ++col) pull(engine, deck, col, row - 1, col, row);
      break;
    case kLeft:
      for (int col = 1; col < cols; ++col)
        for (int row = 0; row < rows; ++row) pull(engine, deck, col - 1, row, col, row);
      break;
    case kDown:
      for (int row = rows - 2; row >= 0; --row)
        for (int col = 0; col < cols; ++col) pull(engine, deck, col, row + 1, col, row);
      break;
    case kRight:
      for (int col = cols - 2; col >= 0; --col)
        for (int row = 0; row < rows; ++row) pull(engine, deck, col + 1, row, col, row);
      break;
    default:
      break;
  }
}

}  // namespace korvane
