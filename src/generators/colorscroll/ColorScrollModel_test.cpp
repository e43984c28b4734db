#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "generators/colorscroll/ColorScrollCode.h"
#include "testing/EngineTest.h"

namespace korvane {
namespace {

// A slow model of Color Scroll: it asks for each cell where its colour comes from, and does its
// roundings in whole numbers.

using Cells = std::vector<std::vector<Rgb>>;  // [col][row]

struct SlowScroll {
  int cols, rows, direction;
  std::vector<Rgb> strip;
  Cells picture;
  int index = 0;  // of the next strip entry
  int step = 0;   // of the diagonal window

  Rgb entry(int back) const {
    const int length = static_cast<int>(strip.size());
    return strip.at(static_cast<std::size_t>(((index - back) % length + length) % length));
  }

  // Where line k of n takes its colours from, by the number of a shift: another line, or -1 for the
  // strip.
  static int source(int shift, int k, int n) {
    const int half = n / 2;
    switch (shift) {
      case 0:  // towards line 0
        return k == n - 1 ? -1 : k + 1;
      case 1:  // away from line 0
        return k - 1;
      case 2:  // to the middle, which takes from behind it
        if (k == 0 || k == n - 1) return -1;
        return k < half ? k - 1 : k + 1;
      default:  // from the middle
        if (k == half || k == n - 1 - half) return -1;
        return k < half ? k + 1 : k - 1;
    }
  }

  Rgb old(int col, int row) const {
    return picture.at(static_cast<std::size_t>(col)).at(static_cast<std::size_t>(row));
  }

  Rgb diagonal(int col, int row) const {
    const bool up = direction == 2 || direction == 8;
    const int from = source(up ? 0 : 1, row, rows);
    if (from >= 0) return old(col, from);
    const int distance = direction == 2 || direction == 4 ? cols - 1 - col : col;
    return distance <= step ? entry(distance) : old(col, row);
  }

  Rgb next(int col, int row) const {
    const auto line = [&](bool moveRows, int shift) {
      const int from = moveRows ? source(shift, row, rows) : source(shift, col, cols);
      if (from < 0) return entry(0);
      return moveRows ? old(col, from) : old(from, row);
    };
    switch (direction) {
      case 1:
        return line(true, 0);
      case 3:
        return line(false, 0);
      case 5:
        return line(true, 1);
      case 7:
        return line(false, 1);
      case 2:
      case 4:
      case 6:
      case 8:
        return diagonal(col, row);
      case 9:
        return line(false, 2);
      case 10:
        return line(false, 3);
      case 11:
        return line(true, 2);
      case 12:
        return line(true, 3);
      default:
        return old(col, row);
    }
  }

  void tick() {
    Cells after = picture;
    for (int col = 0; col < cols; ++col) {
      for (int row = 0; row < rows; ++row)
        after[static_cast<std::size_t>(col)][static_cast<std::size_t>(row)] = next(col, row);
    }
    picture = after;
    const bool isDiagonal = direction >= 2 && direction <= 8 && direction % 2 == 0;
    if (isDiagonal && step < cols - 1) ++step;
    index = (index + 1) % static_cast<int>(strip.size());
  }
};

int nearestEven(int numerator, int denominator) {
  const int whole = numerator / denominator;
  const int twice = 2 * (numerator % denominator);
  const bool up = twice > denominator || (twice == denominator && whole % 2 == 1);
  return up ? whole + 1 : whole;
}

std::vector<Rgb> modelStrip(const Effect& effect) {
  std::vector<Rgb> strip;
  for (int i = 0; i < effect.colorCount; ++i) {
    const auto at = static_cast<std::size_t>(i);
    const auto before = static_cast<std::size_t>(i == 0 ? effect.colorCount - 1 : i - 1);
    const int width = effect.itemWidths[at];
    for (int j = 1; j <= width; ++j) {
      Rgb cell{};
      for (int component = 0; component < 3; ++component) {
        const int from = (effect.colors[before] >> (8 * component)) & 255;
        const int to = (effect.colors[at] >> (8 * component)) & 255;
        const int mixed = nearestEven(from * (width - j) + to * j, width);
        cell[static_cast<std::size_t>(component)] =
            static_cast<std::uint8_t>(effect.scrollFadeMode == 0 ? to : mixed);
      }
      strip.push_back(cell);
    }
  }
  return strip;
}

class ColorScrollModel : public EngineTest {
 protected:
  int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random); }

  Cells pictureOf(const Frame& frame) const {
    Cells picture;
    for (int col = 0; col < v.matrixCols; ++col) {
      picture.emplace_back();
      for (int row = 0; row < v.matrixRows; ++row) picture.back().push_back(frame.at(col, row));
    }
    return picture;
  }

  // A random grid, picture, list of colours and place in the strip on this deck.
  SlowScroll setUp(Deck& deck) {
    redim(1 + upTo(49), 1 + upTo(49));
    for (int col = 0; col < v.matrixCols; ++col) {
      for (int row = 0; row < v.matrixRows; ++row)
        deck.frame.at(col, row) = colorParts(upTo(0xFFFFFF));
    }
    deck.efx.assign(1, Effect());
    Effect& effect = deck.effect();
    effect.colorCount = static_cast<std::int16_t>(2 + upTo(4));
    for (int i = 0; i < effect.colorCount; ++i) {
      effect.colors.push_back(upTo(0xFFFFFF));
      effect.itemWidths.push_back(upTo(9));
    }
    effect.itemWidths[0] += 1;
    effect.scrollFadeMode = static_cast<std::int16_t>(upTo(1));
    effect.direction = static_cast<std::int16_t>(upTo(15) - 1);
    buildScrollStrip(engine, deck);
    SlowScroll model{v.matrixCols, v.matrixRows, effect.direction, modelStrip(effect), {}};
    model.picture = pictureOf(deck.frame);
    model.index = upTo(static_cast<int>(model.strip.size()) - 1);
    model.step = upTo(v.matrixCols - 1);
    deck.colorIndex = static_cast<std::int16_t>(model.index);
    deck.step = static_cast<std::int16_t>(model.step);
    return model;
  }

  std::mt19937 random{20240917};
};

TEST_F(ColorScrollModel, AgreesOver1000RandomSetUps) {
  for (int round = 0; round < 1000; ++round) {
    Deck& deck = round % 2 == 0 ? v.A : v.B;
    v.masterValue = deck.isB() ? 1 : 0;
    SlowScroll model = setUp(deck);
    ASSERT_EQ(deck.scrollLength, static_cast<int>(model.strip.size()));
    ASSERT_TRUE(std::equal(model.strip.begin(), model.strip.end(), deck.scrollStrip.begin()));
    Cells mixed = pictureOf(v.frameM);
    for (int tick = upTo(30); tick >= 0; --tick) {
      v.fadeRunning = upTo(2) == 0;
      engine.master.timerM.setInterval(upTo(1) == 0 ? 400 : 401);
      tickColorScroll(engine, deck);
      model.tick();
      if (!v.fadeRunning) mixed = model.picture;
      ASSERT_EQ(pictureOf(deck.frame), model.picture)
          << "set-up " << round << ", direction " << model.direction << " on " << model.cols
          << " x " << model.rows;
      ASSERT_EQ(pictureOf(v.frameM), mixed) << "set-up " << round;
      ASSERT_EQ(deck.colorIndex, model.index);
      ASSERT_EQ(deck.step, model.step);
    }
  }
}

}  // namespace
}  // namespace korvane
