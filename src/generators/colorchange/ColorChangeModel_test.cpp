#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <numeric>
#include <random>
#include <vector>

#include "generators/colorchange/ColorChangeCode.h"
#include "testing/EngineTest.h"

namespace korvane {
namespace {

// A slow model of Color Change: it says of each cell whether a transition has reached it, from the
// picture before the transition and the number of ticks.

double nearestEven(double value) {
  const double below = std::floor(value);
  const double rest = value - below;
  const bool odd = std::fmod(below, 2) != 0;
  return rest > 0.5 || (rest == 0.5 && odd) ? below + 1 : below;
}

int holdTime(double seconds, int speed) {
  if (speed < 50) return static_cast<int>(nearestEven(1000 * seconds * (1 + (50 - speed) / 25.0)));
  return static_cast<int>(nearestEven(1000 * seconds / (1 + (speed - 50) / 25.0)));
}

struct SlowChange {
  // The set-up.
  int cols, rows;
  bool deckB;
  std::vector<Color> colors;
  std::vector<double> times;
  int speed, amount, mode, savedMode;
  std::int64_t clock;  // milliseconds of the day

  // The state.
  int index = 0;
  Color color1 = 0, color2 = 0;
  bool running = false;
  int done = 0, steps = 0;
  bool timer1 = false, timer2 = false;
  int interval1 = 0, interval2 = 0;
  Frame before{};  // the picture before the transition
  Frame frame{}, mixed{};
  std::vector<int> order{};

  bool hasTransition() const { return mode >= 1 && mode <= 8; }
  bool oneCell() const { return mode >= 2 && mode <= 4; }

  void fill(bool mixes) {
    for (int col = 0; col < cols; ++col) {
      for (int row = 0; row < rows; ++row) frame.at(col, row) = parts(color1);
    }
    if (mixes) mixed = frame;
  }

  static Rgb parts(Color color) {
    return {static_cast<std::uint8_t>(color & 255), static_cast<std::uint8_t>(color >> 8 & 255),
            static_cast<std::uint8_t>(color >> 16 & 255)};
  }

  void start(bool fadeRunning) {
    color1 = colors[0];
    fill(!fadeRunning);
    if (speed == 0) speed = 50;
    interval1 = holdTime(times[0], speed);
    if (deckB && speed > 50)
      interval1 = static_cast<int>(nearestEven(1000 * times[0] * (1 + (speed - 50) / 25.0)));
    timer1 = true;
  }

  void hold(bool fadeRunning) {
    timer1 = false;
    color2 = colors[static_cast<std::size_t>(index)];
    index = (index + 1) % static_cast<int>(colors.size());
    color1 = colors[static_cast<std::size_t>(index)];
    interval1 = holdTime(times[static_cast<std::size_t>(index)], speed);
    if (mode == 0) {
      fill(!fadeRunning);
      timer1 = true;
    } else if (hasTransition()) {
      beginTransition();
    } else {
      timer2 = false;
    }
  }

  void beginTransition() {
    const int fadeSteps = amount < 30 ? 80 : amount < 60 ? 50 : amount < 90 ? 30 : 15;
    steps = mode == 1 ? fadeSteps : oneCell() ? cols * rows : mode <= 6 ? rows : cols;
    interval2 = static_cast<int>(nearestEven((110 - amount) * 100.0 / steps));
    before = frame;
    if (oneCell()) shuffle();
    running = true;
    done = 0;
    timer2 = true;
  }

  void shuffle() {
    Random random;
    random.seed(
        std::bit_cast<std::uint32_t>(static_cast<float>(static_cast<double>(clock) / 1000)));
    order.resize(static_cast<std::size_t>(steps));
    std::iota(order.begin(), order.end(), 0);
    for (int& entry : order) {
      const double drawn = nearestEven(static_cast<double>(random.next()) * steps - 0.5);
      std::swap(entry, order[static_cast<std::size_t>(drawn)]);
    }
  }

  // How many of the drawn cells stand in a column, each column's share being a column's height.
  int drawnOf(int col) const {
    int count = 0;
    for (int k = 0; k < done; ++k) count += order[static_cast<std::size_t>(k)] / rows == col;
    return count;
  }
  bool drawn(int cell) const {
    for (int k = 0; k < done; ++k) {
      if (order[static_cast<std::size_t>(k)] == cell) return true;
    }
    return false;
  }

  bool reached(int col, int row) const {
    switch (mode) {
      case 2:
        return drawn(row * cols + col);
      case 3:
        return row < drawnOf(col);
      case 4:
        return row >= rows - drawnOf(col);
      case 5:
        return row >= rows - done;
      case 6:
        return row < done;
      case 7:
        return col >= cols - done;
      default:
        return col < done;
    }
  }

  Rgb faded() const {
    const double factor = static_cast<double>(done) / steps;
    const Rgb from = parts(color2);
    const Rgb to = parts(color1);
    Rgb cell{};
    for (std::size_t i = 0; i < 3; ++i)
      cell[i] = static_cast<std::uint8_t>(std::floor(from[i] * (1 - factor) + to[i] * factor));
    return cell;
  }

  void transition(bool fadeRunning, int stepOfMaster) {
    timer2 = false;
    if (!hasTransition()) return;
    if (done == steps) return finish(fadeRunning);
    const Frame old = frame;
    if (mode != 1) ++done;
    for (int col = 0; col < cols; ++col) {
      for (int row = 0; row < rows; ++row) {
        if (mode == 1) {
          frame.at(col, row) = faded();
        } else {
          frame.at(col, row) = reached(col, row) ? parts(color1) : before.at(col, row);
        }
      }
    }
    if (mode == 1) ++done;
    if (!fadeRunning || stepOfMaster > (oneCell() ? 200 : 400)) mix();
    timer2 = true;
  }

  // One cell at a time the other cells of the mix stay as old as they are.
  void mix() {
    if (!oneCell()) {
      mixed = frame;
      return;
    }
    const int cell = order[static_cast<std::size_t>(done - 1)];
    const int col = mode == 2 ? cell % cols : cell / rows;
    const int place = drawnOf(col) - 1;
    const int row = mode == 2 ? cell / cols : mode == 3 ? place : rows - 1 - place;
    mixed.at(col, row) = frame.at(col, row);
  }

  void finish(bool fadeRunning) {
    fill(!fadeRunning);
    running = false;
    mode = savedMode;
    timer1 = true;
  }
};

class ColorChangeModel : public EngineTest {
 protected:
  int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random); }

  SlowChange setUp(Deck& deck) {
    const int side = upTo(1) == 0 ? 4 : 49;
    redim(1 + upTo(side), 1 + upTo(side));
    v.masterValue = deck.isB() ? 1 : 0;
    deck.efx.assign(1, Effect());
    Effect& effect = deck.effect();
    SlowChange model{v.matrixCols, v.matrixRows, deck.isB(),   {},      {},
                     upTo(100),    upTo(100),    upTo(11) - 1, upTo(8), upTo(86'399'999)};
    for (int i = upTo(4) + 2; i > 0; --i) {
      model.colors.push_back(upTo(0xFFFFFF));
      model.times.push_back(upTo(40) / 8.0);
    }
    effect.colorCount = static_cast<std::int16_t>(model.colors.size());
    effect.colors = model.colors;
    effect.itemTimes = model.times;
    effect.speed = static_cast<std::int16_t>(model.speed);
    effect.amount = static_cast<std::int16_t>(model.amount);
    effect.fadeMode = static_cast<std::int16_t>(model.mode);
    deck.savedFadeMode = static_cast<std::int16_t>(model.savedMode);
    deck.colorIndex = 0;
    deck.transitionRunning = false;
    deck.timer1.disable();
    deck.timer2.disable();
    platform.time = model.clock;
    model.interval2 = deck.timer2.interval();
    model.frame = deck.frame;
    model.mixed = v.frameM;
    return model;
  }

  // Something for a transition to move over.
  void scribble(Deck& deck, SlowChange& model) {
    for (int col = 0; col < v.matrixCols; ++col) {
      for (int row = 0; row < v.matrixRows; ++row)
        deck.frame.at(col, row) = colorParts(upTo(0xFFFFFF));
    }
    model.frame = deck.frame;
  }

  bool same(const Frame& frame, const Frame& model) const {
    for (int col = 0; col < v.matrixCols; ++col) {
      for (int row = 0; row < v.matrixRows; ++row) {
        if (frame.at(col, row) != model.at(col, row)) return false;
      }
    }
    return true;
  }

  void compare(const Deck& deck, const Effect& effect, const SlowChange& model) {
    ASSERT_TRUE(same(deck.frame, model.frame));
    ASSERT_TRUE(same(v.frameM, model.mixed));
    ASSERT_EQ(deck.timer1.enabled(), model.timer1);
    ASSERT_EQ(deck.timer2.enabled(), model.timer2);
    ASSERT_EQ(deck.timer1.interval(), model.interval1);
    ASSERT_EQ(deck.timer2.interval(), model.interval2);
    ASSERT_EQ(deck.colorIndex, model.index);
    ASSERT_EQ(effect.color1, model.color1);
    ASSERT_EQ(effect.fadeMode, model.mode);
    ASSERT_EQ(static_cast<bool>(deck.transitionRunning), model.running);
  }

  // One tick of the timer that runs, on both sides.
  void tick(Deck& deck, SlowChange& model) {
    v.fadeRunning = upTo(1) == 0;
    const int step =
        std::vector{1, 199, 200, 201, 399, 400, 401, 5000}.at(static_cast<std::size_t>(upTo(7)));
    engine.master.timerM.setInterval(step);
    if (model.timer1) {
      if (upTo(3) == 0) scribble(deck, model);
      deck.timer1.disable();
      colorChangeStep(engine, deck);
      model.hold(v.fadeRunning);
    } else {
      deck.timer2.disable();
      colorChangeTransition(engine, deck);
      model.transition(v.fadeRunning, step);
    }
  }

  std::mt19937 random{20240918};
};

TEST_F(ColorChangeModel, AgreesOver1000RandomSetUps) {
  int ended = 0;
  for (int round = 0; round < 1000; ++round) {
    Deck& deck = round % 2 == 0 ? v.A : v.B;
    SlowChange model = setUp(deck);
    v.fadeRunning = upTo(1) == 0;
    startColorChange(engine, deck);
    model.start(v.fadeRunning);
    for (int count = 0; count < 60 && (model.timer1 || model.timer2); ++count) {
      ASSERT_NO_FATAL_FAILURE(compare(deck, deck.effect(), model))
          << "set-up " << round << ", tick " << count << ", mode " << model.mode << " on "
          << model.cols << " x " << model.rows;
      const bool was = model.running;
      tick(deck, model);
      ended += was && !model.running ? 1 : 0;
    }
    ASSERT_NO_FATAL_FAILURE(compare(deck, deck.effect(), model)) << "set-up " << round;
  }
  EXPECT_GT(ended, 1000) << "the set-ups must let transitions end";
}

}  // namespace
}  // namespace korvane
