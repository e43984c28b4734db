#include "playback/FadeSteps.h"

#include <cstddef>

#include "platform/Numbers.h"
#include "playback/FadeList.h"

namespace korvane {
namespace {

// Which deck arrives: its frame, and its value in `fadeMap`.
struct Arriving {
  const Frame& source;
  float mapValue;
};

Arriving arriving(const Variablen& v) {
  if (v.fadeDirection == 1) return {v.frameB, 1.0F};
  return {v.frameA, 0.0F};
}

std::int32_t cellOfStep(const Variablen& v) {
  return v.fadeOrder.at(static_cast<std::size_t>(v.fadeStep));
}

void stepRandom(Variablen& v) {
  const Arriving deck = arriving(v);
  const int col = modTrunc(cellOfStep(v), v.matrixCols);
  const int row = divTrunc(cellOfStep(v), v.matrixCols);
  v.frameM.at(col, row) = deck.source.at(col, row);
  v.fadeMap.at(col, row) = deck.mapValue;
}

// Finds the column's first cell, from `first` on, that has not arrived. A column that holds none,
// as an interrupted fade can leave it, ends the search one past its end: below the last row, which
// does no harm, or above the first, which is a subscript failure (docs/kept.md, fade-fill).
void stepFill(Variablen& v, int first, int by) {
  const Arriving deck = arriving(v);
  const float waiting = v.fadeDirection == 1 ? 0.0F : 1.0F;
  const int col = divTrunc(cellOfStep(v), v.matrixRows);
  int row = first;
  while (row >= 0 && row < v.matrixRows && v.fadeMap.at(col, row) != waiting) row += by;
  v.fadeMap.at(col, row) = deck.mapValue;
  v.frameM.at(col, row) = deck.source.at(col, row);
}

// A line lands at the place that the sweep has reached; the upward and leftward sweeps bring the
// source's line from the opposite side, for as long as the next mix leaves it (docs/kept.md,
// fade-sweep).
void stepRowSweep(Variablen& v, bool mirrored) {
  const Arriving deck = arriving(v);
  const int target = mirrored ? v.matrixRows - 1 - v.fadeStep : v.fadeStep;
  for (int col = 0; col < v.matrixCols; ++col) {
    v.frameM.at(col, target) = deck.source.at(col, v.fadeStep);
    v.fadeMap.at(col, target) = deck.mapValue;
  }
}

void stepColumnSweep(Variablen& v, bool mirrored) {
  const Arriving deck = arriving(v);
  const int target = mirrored ? v.matrixCols - 1 - v.fadeStep : v.fadeStep;
  for (int row = 0; row < v.matrixRows; ++row) {
    v.frameM.at(target, row) = deck.source.at(v.fadeStep, row);
    v.fadeMap.at(target, row) = deck.mapValue;
  }
}

}  // namespace

// The types that sweep read the fade's own type to choose between their two variants.
void fadeStepOfType(Engine& engine) {
  Variablen& v = engine.v;
  switch (v.fadeTypeNow) {
    case kRandom:
      return stepRandom(v);
    case kFlowDown:
      return stepFill(v, 0, 1);
    case kFillUp:
      return stepFill(v, v.matrixRows - 1, -1);
    case kScrollUp:
    case kScrollDown:
      return stepRowSweep(v, selectedFade(engine).type == kScrollUp);
    case kScrollLeft:
    case kScrollRight:
      return stepColumnSweep(v, selectedFade(engine).type == kScrollLeft);
    default:
      return;
  }
}

}  // namespace korvane
