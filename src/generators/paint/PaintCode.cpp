#include "generators/paint/PaintCode.h"

#include "output/Preview.h"

namespace korvane {

void paintPicture(Engine& engine, Deck& deck) {
  const Grid<Color>& picture = deck.effect().paintPixels;
  for (int col = 0; col < engine.v.matrixCols; ++col) {
    for (int row = 0; row < engine.v.matrixRows; ++row)
      deck.frame.at(col, row) = colorParts(picture.at(col, row));
  }
}

void renderPaint(Engine& engine, Deck& deck) {
  paintPicture(engine, deck);
  publishDeckFrame(engine, deck);
}

}  // namespace korvane
