#include "generators/color/ColorCode.h"

#include <algorithm>
#include <array>

#include "output/Preview.h"
#include "platform/Numbers.h"

namespace korvane {
namespace {

// A ramp in one direction: the position of a cell is a + (c x column) + (r x row), on a scale from
// 0 to n. `forward`: position 0 has `color1`.
struct Ramp {
  int n, a, c, r;
  bool forward;
};

constexpr int kRingsInward = 9;
constexpr int kRingsOutward = 10;

// The straight and diagonal directions 1 - 8, counter-clockwise from up.
Ramp ramp(int direction, int cols, int rows) {
  const int both = cols + rows - 2;
  const std::array<Ramp, 8> ramps = {{{rows - 1, 0, 0, 1, false},
                                      {both, 0, 1, 1, false},
                                      {cols - 1, 0, 1, 0, false},
                                      {both, cols - 1, -1, 1, true},
                                      {rows - 1, 0, 0, 1, true},
                                      {both, 0, 1, 1, true},
                                      {cols - 1, 0, 1, 0, true},
                                      {both, rows - 1, 1, -1, true}}};
  return ramps.at(static_cast<std::size_t>(direction - 1));
}

// The colour at position p of 0 - n between two colours. The products and their sum are 16-bit.
Rgb blendOnRamp(const Rgb& from, const Rgb& to, int p, int n) {
  Rgb result{};
  for (std::size_t component = 0; component < 3; ++component) {
    const std::int16_t sum =
        add16(mul16(from[component], toInt16(n - p)), mul16(to[component], toInt16(p)));
    if (n == 0) throw Failure(kDivisionByZero);
    result[component] = static_cast<std::uint8_t>(roundToInt16(static_cast<double>(sum) / n));
  }
  return result;
}

void paintRamp(Deck& deck, const Variablen& v, const Ramp& ramp, const Rgb& from, const Rgb& to) {
  for (int col = 0; col < v.matrixCols; ++col) {
    for (int row = 0; row < v.matrixRows; ++row) {
      deck.frame.at(col, row) = blendOnRamp(from, to, ramp.a + ramp.c * col + ramp.r * row, ramp.n);
    }
  }
}

// Each ring is painted as a whole rectangle over the inside of the ring before.
void paintRings(Deck& deck, const Variablen& v, const Rgb& outer, const Rgb& centre) {
  const int shorter = std::min(v.matrixCols, v.matrixRows);
  const int n = divTrunc(shorter, 2) + modTrunc(shorter, 2) - 1;
  for (int ring = 0; ring <= n; ++ring) {
    const Rgb color = blendOnRamp(outer, centre, ring, n);
    for (int col = ring; col < v.matrixCols - ring; ++col) {
      for (int row = ring; row < v.matrixRows - ring; ++row) deck.frame.at(col, row) = color;
    }
  }
}

}  // namespace

void fillFrame(Engine& engine, Deck& deck, const Rgb& color) {
  for (int col = 0; col < engine.v.matrixCols; ++col) {
    for (int row = 0; row < engine.v.matrixRows; ++row) deck.frame.at(col, row) = color;
  }
}

void paintColor(Engine& engine, Deck& deck) {
  fillFrame(engine, deck, colorParts(deck.effect().color1));
}

void paintGradient(Engine& engine, Deck& deck) {
  const Effect& effect = deck.effect();
  const Rgb first = colorParts(effect.color1);
  const Rgb second = colorParts(effect.color2);
  if (effect.direction < 1 || effect.direction > kRingsOutward) {
    engine.platform.messageBox("direction not correct !");
  } else if (effect.direction >= kRingsInward) {
    const bool inward = effect.direction == kRingsInward;
    paintRings(deck, engine.v, inward ? first : second, inward ? second : first);
  } else {
    const Ramp chosen = ramp(effect.direction, engine.v.matrixCols, engine.v.matrixRows);
    paintRamp(deck, engine.v, chosen, chosen.forward ? first : second,
              chosen.forward ? second : first);
  }
}

void renderColor(Engine& engine, Deck& deck) {
  paintColor(engine, deck);
  publishDeckFrame(engine, deck);
}

void renderGradient(Engine& engine, Deck& deck) {
  paintGradient(engine, deck);
  publishDeckFrame(engine, deck);
}

}  // namespace korvane
