#include "generators/paint/PaintKind.h"

#include "generators/paint/MxPaintForm.h"
#include "generators/paint/PaintCode.h"
#include "output/Preview.h"

namespace korvane {
namespace {

const std::vector<EffectField>& paintFields() {
  static const std::vector<EffectField> all = {kept::paintPixels};
  return all;
}

// A new Paint effect begins as the picture that the deck was showing.
void paintDefaults(Engine& engine, Deck& deck) {
  Grid<Color>& picture = deck.effect().paintPixels;
  picture.resizeKeeping(engine.v.matrixCols, engine.v.matrixRows);
  for (int col = 0; col < engine.v.matrixCols; ++col) {
    for (int row = 0; row < engine.v.matrixRows; ++row)
      picture.at(col, row) = rgb(deck.frame.at(col, row));
  }
}

void startPaint(Engine& engine, Deck& deck, StartCause) {
  paintPicture(engine, deck);
  publishBetweenSteps(engine, deck);
}

// The picture keeps what lies within both sizes.
void fitPicture(const Engine& engine, Effect& effect) {
  effect.paintPixels.resizeKeeping(engine.v.matrixCols, engine.v.matrixRows);
}

}  // namespace

// Its dialog is not committed when another effect is edited (docs/kept.md, paint-stays-open).
constinit const EffectKind kPaintKind = {.name = "Paint",
                                         .fields = paintFields,
                                         .defaults = paintDefaults,
                                         .start = startPaint,
                                         .tick = nothing,
                                         .sequenceTick = nothing,
                                         .beat = nothing,
                                         .loaded = nothingLoaded,
                                         .gridChanged = fitPicture,
                                         .onEdit = OnEdit::StaysOpen,
                                         .atCloseall = AtCloseall::StaysOpen,
                                         .dialog = kindOfDialog<MxPaintForm>()};

}  // namespace korvane
