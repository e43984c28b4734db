#include "generators/colorchange/ColorChangeCode.h"

#include <algorithm>

#include "generators/color/ColorCode.h"
#include "generators/kit/StepCurves.h"
#include "output/Preview.h"
#include "platform/Failure.h"
#include "platform/Numbers.h"

namespace korvane {
namespace {

// Of the color and the time at `colorIndex`; a checked access, kSubscript if the lists are shorter.
std::size_t current(const Deck& deck) { return static_cast<std::size_t>(deck.colorIndex); }
Color currentColor(Deck& deck) { return deck.effect().colors.at(current(deck)); }
double currentTime(Deck& deck) { return deck.effect().itemTimes.at(current(deck)); }

// Only red is cleared, so that green and blue stay lit, and the preview is not drawn
// (docs/kept.md, change-red-alone).
void clearRed(const Variablen& v, Frame& frame) {
  for (int col = 0; col < v.matrixCols; ++col) {
    for (int row = 0; row < v.matrixRows; ++row) frame.at(col, row)[0] = 0;
  }
}

void refuseEmptyList(Engine& engine, Deck& deck) {
  clearRed(engine.v, deck.frame);
  engine.platform.messageBox("ColorChange not configured ! Please edit Effect.");
  deck.timer1.disable();
  deck.timer2.disable();
}

std::int32_t firstHoldInterval(Deck& deck) {
  const std::int16_t speed = deck.effect().speed;
  // Deck B stretches its first interval at a high speed too, instead of shortening it: the first
  // colour of a fast effect stays longer there (docs/kept.md,
  // deck-first-colour).
  if (deck.isB()) return roundToInt32(1000 * currentTime(deck) * holdStretch(speed));
  return colorHoldInterval(currentTime(deck), speed);
}

// Ticks of the transitions.
std::int16_t fadeSteps(const Variablen&, const Effect& effect) {
  if (effect.amount < 30) return 80;
  if (effect.amount < 60) return 50;
  return effect.amount < 90 ? 30 : 15;
}
std::int16_t cellSteps(const Variablen& v, const Effect&) {
  return mul16(v.matrixCols, v.matrixRows);
}
std::int16_t rowSteps(const Variablen& v, const Effect&) { return v.matrixRows; }
std::int16_t columnSteps(const Variablen& v, const Effect&) { return v.matrixCols; }

void shuffleCells(Engine& engine, Deck& deck) {
  engine.randomize();
  deck.cellOrder = shuffled(engine.random, deck.steps);
}

void shuffleColumns(Engine& engine, Deck& deck) {
  shuffleCells(engine, deck);
  deck.cellPending.redim(engine.v.matrixCols, engine.v.matrixRows);
  deck.cellPending.fill(true);
}

void fadeTick(Engine& engine, Deck& deck) {
  deck.fadeFactor = static_cast<double>(deck.step) / deck.steps;
  const Rgb before = colorParts(deck.effect().color2);
  const Rgb after = colorParts(deck.effect().color1);
  Rgb blended{};
  for (std::size_t i = 0; i < blended.size(); ++i) {
    blended[i] = static_cast<std::uint8_t>(
        floorToInt16(before[i] * (1 - deck.fadeFactor) + after[i] * deck.fadeFactor));
  }
  fillFrame(engine, deck, blended);
  publishBetweenSteps(engine, deck);
  ++deck.step;
}

void paintCell(Engine& engine, Deck& deck, int col, int row) {
  deck.frame.at(col, row) = colorParts(deck.effect().color1);
  ++deck.step;
  drawPoint(engine, deck, toInt16(col), toInt16(row));
  if (mixIsFree(engine, kSlowFadeCell)) mixAndDraw(engine, toInt16(col), toInt16(row));
}

// The cell number whose turn it is.
std::int32_t drawnCell(const Deck& deck) {
  return deck.cellOrder.at(static_cast<std::size_t>(deck.step));
}

void randomTick(Engine& engine, Deck& deck) {
  const std::int32_t cell = drawnCell(deck);
  paintCell(engine, deck, modTrunc(cell, engine.v.matrixCols), divTrunc(cell, engine.v.matrixCols));
}

// Takes the first free place of the drawn column, counted from where the filling starts.
int takePlace(const Variablen& v, Deck& deck, int col) {
  int place = 0;
  while (place < v.matrixRows && !deck.cellPending.at(col, place)) ++place;
  deck.cellPending.at(col, place) = false;
  return place;
}

void fillDownTick(Engine& engine, Deck& deck) {
  const int col = divTrunc(drawnCell(deck), engine.v.matrixRows);
  paintCell(engine, deck, col, takePlace(engine.v, deck, col));
}

void fillUpTick(Engine& engine, Deck& deck) {
  const int col = divTrunc(drawnCell(deck), engine.v.matrixRows);
  paintCell(engine, deck, col, engine.v.matrixRows - 1 - takePlace(engine.v, deck, col));
}

void wipeRow(Engine& engine, Deck& deck, int row) {
  const Rgb color = colorParts(deck.effect().color1);
  for (int col = 0; col < engine.v.matrixCols; ++col) deck.frame.at(col, row) = color;
  ++deck.step;
  publishBetweenSteps(engine, deck);
}

void wipeColumn(Engine& engine, Deck& deck, int col) {
  const Rgb color = colorParts(deck.effect().color1);
  for (int row = 0; row < engine.v.matrixRows; ++row) deck.frame.at(col, row) = color;
  ++deck.step;
  publishBetweenSteps(engine, deck);
}

void scrollUpTick(Engine& engine, Deck& deck) {
  wipeRow(engine, deck, engine.v.matrixRows - 1 - deck.step);
}
void scrollDownTick(Engine& engine, Deck& deck) { wipeRow(engine, deck, deck.step); }
void scrollLeftTick(Engine& engine, Deck& deck) {
  wipeColumn(engine, deck, engine.v.matrixCols - 1 - deck.step);
}
void scrollRightTick(Engine& engine, Deck& deck) { wipeColumn(engine, deck, deck.step); }

// A transition: its number of ticks, what is made ready for it, and what one tick does.
struct Transition {
  std::int16_t (*steps)(const Variablen&, const Effect&);
  void (*prepare)(Engine&, Deck&);  // nullptr for nothing
  void (*tick)(Engine&, Deck&);
};

// "Fade" to "ScrollRight": `fadeMode` 1 to 8.
constexpr std::array<Transition, 8> kTransitions = {{
    {fadeSteps, nullptr, fadeTick},
    {cellSteps, shuffleCells, randomTick},
    {cellSteps, shuffleColumns, fillDownTick},
    {cellSteps, shuffleColumns, fillUpTick},
    {rowSteps, nullptr, scrollUpTick},
    {rowSteps, nullptr, scrollDownTick},
    {columnSteps, nullptr, scrollLeftTick},
    {columnSteps, nullptr, scrollRightTick},
}};

// nullptr for "None" and for a number that is no mode.
const Transition* transitionOf(const Effect& effect) {
  const int index = effect.fadeMode - 1;
  if (index < 0 || index >= static_cast<int>(kTransitions.size())) return nullptr;
  return &kTransitions.at(static_cast<std::size_t>(index));
}

// The whole transition takes 11 s at amount 0, 1 s at 100.
std::int32_t transitionInterval(const Effect& effect, std::int16_t steps) {
  if (steps == 0) throw Failure(kDivisionByZero, "a transition over no cells");
  return std::max(roundToInt32((110 - effect.amount) * 100.0 / steps), kShortestStep);
}

void startTransition(Engine& engine, Deck& deck) {
  const Transition* transition = transitionOf(deck.effect());
  // A file can hold a mode that does not exist. The effect stands still then (docs/kept.md,
  // change-odd-mode).
  if (transition == nullptr) return deck.timer2.disable();
  deck.steps = transition->steps(engine.v, deck.effect());
  deck.timer2.setInterval(transitionInterval(deck.effect(), deck.steps));
  if (transition->prepare != nullptr) transition->prepare(engine, deck);
  deck.transitionRunning = true;
  deck.step = 0;
  deck.timer2.enable();
}

void endTransition(Engine& engine, Deck& deck) {
  deck.timer2.disable();
  renderColor(engine, deck);
  deck.transitionRunning = false;
  deck.effect().fadeMode = deck.savedFadeMode;
  deck.timer1.enable();
}

}  // namespace

void startColorChange(Engine& engine, Deck& deck) {
  Effect& effect = deck.effect();
  if (effect.colorCount < 1) return refuseEmptyList(engine, deck);
  effect.color1 = currentColor(deck);
  renderColor(engine, deck);
  if (effect.colorCount < 2) return;  // a static colour
  if (effect.speed == 0) effect.speed = kPlainSpeed;
  deck.timer1.setInterval(firstHoldInterval(deck));
  // Deck B starts its timer even if the effect follows the beat (docs/kept.md,
  // deck-change-beat).
  if (deck.isB() || effect.beatControl == 0) deck.timer1.enable();
}

void colorChangeStep(Engine& engine, Deck& deck) {
  Effect& effect = deck.effect();
  effect.color2 = currentColor(deck);
  deck.colorIndex = deck.colorIndex < effect.colorCount - 1 ? add16(deck.colorIndex, 1) : 0;
  effect.color1 = currentColor(deck);
  deck.timer1.setInterval(colorHoldInterval(currentTime(deck), effect.speed));
  if (effect.fadeMode != 0) return startTransition(engine, deck);
  renderColor(engine, deck);
  deck.timer1.enable();
}

void colorChangeBeat(Engine& engine, Deck& deck) {
  Effect& effect = deck.effect();
  if (effect.colorCount <= 1) return;
  effect.color2 = currentColor(deck);
  deck.colorIndex = deck.colorIndex < effect.colorCount - 1 ? add16(deck.colorIndex, 1) : 0;
  deck.timer2.enable();
  effect.color1 = currentColor(deck);
  renderColor(engine, deck);
}

// The mode is asked first: a beat's lock-out ends here too, and must not look like the end of a
// transition.
void colorChangeTransition(Engine& engine, Deck& deck) {
  const Transition* transition = transitionOf(deck.effect());
  if (transition == nullptr) return;
  if (deck.step >= deck.steps) return endTransition(engine, deck);
  transition->tick(engine, deck);
  deck.timer2.enable();
}

}  // namespace korvane
