#include "generators/fireandwater/FireAndWaterCode.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "generators/kit/CellWise.h"
#include "output/Preview.h"
#include "platform/Numbers.h"

namespace korvane {
namespace {

// A flame stands on the bottom row. Its colours fade row by row upward: the main one to 0.5 and
// the secondary one to 0.4 over the rows from the bottom to the top row.
struct Flame {
  Rgb main, second;
  int top;
  double mainDecay, secondDecay;
};

Flame flameOf(const Effect& effect, int rows) {
  const int top = (rows - 1) - floorToInt32(effect.amount / 150.0 * rows);
  const double share = 1.0 / (rows - top);
  return {colorParts(effect.color1), colorParts(effect.color2), top, std::pow(0.5, share),
          std::pow(0.4, share)};
}

Rgb spark(const Flame& flame, double a, double b) {
  Rgb cell{};
  for (std::size_t component = 0; component < 3; ++component)
    cell[component] = flameComponent(a * flame.main[component] + b * flame.second[component]);
  return cell;
}

// Counts the cells of a step; every third one is repainted. Deck B counts in 16 bits, so on a grid
// of some 32,767 cells its step ends with an overflow, where deck A's goes on (docs/kept.md,
// deck-fire-count).
class CellCounter {
 public:
  CellCounter(std::int32_t start, bool in16Bits)
      : count_(start),
        last_(in16Bits ? std::numeric_limits<std::int16_t>::max()
                       : std::numeric_limits<std::int32_t>::max()) {}

  bool chosen() const { return count_ % 3 == 0; }
  void next() {
    if (count_ == last_) throw Failure(kOverflow, "too many cells for the Fire of this deck");
    ++count_;
  }

 private:
  std::int32_t count_;
  std::int32_t last_;
};

void burn(Engine& engine, Deck& deck) {
  const Flame flame = flameOf(deck.effect(), engine.v.matrixRows);
  double mainShare = flame.mainDecay;
  double secondShare = flame.secondDecay;
  engine.randomize();
  const auto random = [&engine] { return static_cast<double>(engine.random.next()); };
  CellCounter counter(floorToInt32(random() * 3), deck.isB());
  for (int row = engine.v.matrixRows - 1; row >= 0; --row) {
    const bool body = row > flame.top;
    for (int col = 0; col < engine.v.matrixCols; ++col) {
      if (counter.chosen()) {
        const double a = (random() * 0.6 + 0.4) * mainShare;
        const double b = body ? random() / 3 : random() / 3 * 2 * secondShare;
        // Only red is noted: a cell whose red has settled counts as changed as long as its green or
        // blue differ from what was noted before (docs/kept.md, fire-red-alone).
        setCell(engine, deck, col, row, spark(flame, a, b), Noted::RedAlone);
      }
      counter.next();
    }
    if (!body) secondShare *= flame.secondDecay;
    mainShare *= flame.mainDecay;
  }
}

void goOut(Engine& engine, Deck& deck) {
  deck.frame.fill({});
  deck.frameWork.fill({});
  publishDeckFrame(engine, deck);
}

// A new cell is the sum of both colours, with a random share of the second: not a blend.
Rgb drop(const Rgb& main, const Rgb& second, double share) {
  Rgb cell{};
  for (std::size_t component = 0; component < 3; ++component) {
    const int v = std::min(roundToInt32(main[component] + share * second[component]), 255);
    if (v < 0) throw Failure(kOverflow, "a negative roughness");
    cell[component] = static_cast<std::uint8_t>(v);
  }
  return cell;
}

// Sets the cell with the number i of the line that the stream has left free.
void enter(Engine& engine, Deck& deck, int i, const Rgb& color) {
  switch (deck.effect().direction) {
    case kUp:
      return setCell(engine, deck, i, engine.v.matrixRows - 1, color);
    case kLeft:
      return setCell(engine, deck, engine.v.matrixCols - 1, i, color);
    case kDown:
      return setCell(engine, deck, i, 0, color);
    case kRight:
      return setCell(engine, deck, 0, i, color);
    default:
      return;
  }
}

}  // namespace

std::uint8_t flameComponent(double value) {
  constexpr std::int16_t kDarkBelow = 70;
  const std::int16_t v = roundToInt16(value);
  if (v > 255) return 255;
  return v < kDarkBelow ? std::uint8_t{0} : static_cast<std::uint8_t>(v);
}

void fireTick(Engine& engine, Deck& deck) {
  if (deck.effect().amount <= 0) return goOut(engine, deck);
  burn(engine, deck);
}

void fluidTick(Engine& engine, Deck& deck) {
  const Effect& effect = deck.effect();
  const Rgb main = colorParts(effect.color1);
  const Rgb second = colorParts(effect.color2);
  const bool vertical = effect.direction == kUp || effect.direction == kDown;
  const int count = vertical ? engine.v.matrixCols : engine.v.matrixRows;
  movePicture(engine, deck);
  engine.randomize();
  for (int i = 0; i < count; ++i) {
    const double share = double{engine.random.next()} * effect.amount / 100;
    enter(engine, deck, i, drop(main, second, share));
  }
}

}  // namespace korvane
