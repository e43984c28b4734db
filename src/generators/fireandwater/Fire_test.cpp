#include <cmath>
#include <functional>
#include <limits>

#include "generators/fireandwater/FireAndWaterCode.h"
#include "playback/DeckPlayback.h"
#include "testing/CellEffects.h"
#include "testing/Drawing.h"

namespace korvane {
namespace {

class Fire : public CellEffects {
 protected:
  void burning(Color main, Color second, std::int16_t amount) {
    effect().type = kFire;
    effect().color1 = main;
    effect().color2 = second;
    effect().amount = amount;
  }
  bool tick() {
    ++platform.time;  // the random numbers start from the clock
    return event([this] { fireTick(engine, deck); });
  }
  /// Moves the clock to a time at which the count of the next step starts with this number.
  void startCountAt(int start) {
    do {
      ++platform.time;
      engine.randomize();
    } while (static_cast<int>(engine.random.next() * 3) != start);
    --platform.time;  // tick() goes on
  }
  /// The largest red of each row, from the top, that some hundred steps show.
  std::vector<int> brightest() {
    std::vector<int> rows(static_cast<std::size_t>(v.matrixRows));
    for (int i = 0; i < 400; ++i) {
      EXPECT_TRUE(tick());
      eachRed([&](int row, int red) {
        int& most = rows[static_cast<std::size_t>(row)];
        most = std::max(most, red);
      });
    }
    return rows;
  }
  void eachRed(const std::function<void(int row, int red)>& look) {
    for (int col = 0; col < v.matrixCols; ++col) {
      for (int row = 0; row < v.matrixRows; ++row) look(row, deck.frame.at(col, row)[0]);
    }
  }
};
KORVANE_BOTH_DECKS(Fire);

TEST_P(Fire, NoIntensityIsSolidBlackAndTouchesNoRandomNumber) {
  burning(rgb(255, 255, 0), kWhite, 0);
  fill(kWhite);
  deck.frameWork.fill({1, 2, 3});
  engine.random.seed(42);
  ASSERT_TRUE(tick());
  Random untouched;
  untouched.seed(42);
  EXPECT_EQ(engine.random.next(), untouched.next());
  for (int col = 0; col < 12; ++col) {
    for (int row = 0; row < 12; ++row) {
      EXPECT_EQ(deck.frame.at(col, row), Rgb());
      EXPECT_EQ(deck.frameWork.at(col, row), Rgb());
      EXPECT_EQ(pixelOf(deck.picture, deck.preview, col, row), kBlack);
    }
  }
}

TEST_P(Fire, NoIntensityMixesTheFrameOnceUnlessAFadeRuns) {
  burning(kWhite, kWhite, 0);
  fill(kWhite);
  v.frameM.fill({7, 7, 7});
  v.fadeRunning = true;
  takeCalls();
  ASSERT_TRUE(tick());
  EXPECT_TRUE(takeCalls().empty());
  v.fadeRunning = false;
  ASSERT_TRUE(tick());
  EXPECT_EQ(takeCalls(), std::vector<std::string>{"UserInteraction"});
  EXPECT_EQ(v.frameM.at(3, 4), Rgb());
}

TEST_P(Fire, NegativeIntensityIsBlackToo) {
  burning(kWhite, kWhite, -5);
  fill(kWhite);
  ASSERT_TRUE(tick());
  EXPECT_EQ(deck.frame.at(0, 0), Rgb());
}

TEST_P(Fire, TheMainColourFallsToHalfAtTheTopRowOfTheFlame) {
  dimension(12, 12);
  burning(kWhite, kBlack, 100);  // the top row is row 3, nine rows high
  const std::vector<int> rows = brightest();
  for (int row = 0; row < 12; ++row) {
    const double most = 255 * std::pow(0.5, (12 - row) / 9.0);
    EXPECT_LE(rows[static_cast<std::size_t>(row)], std::nearbyint(most)) << "row " << row;
    EXPECT_GE(rows[static_cast<std::size_t>(row)], most - 3) << "row " << row;
  }
}

TEST_P(Fire, SparksAreTwiceAsStrongAboveTheBodyAndDieOutWithHeight) {
  dimension(12, 12);
  burning(kBlack, kWhite, 100);
  const std::vector<int> rows = brightest();
  for (int row = 4; row < 12; ++row) {
    EXPECT_LE(rows[static_cast<std::size_t>(row)], 85) << "body row " << row;
    EXPECT_GE(rows[static_cast<std::size_t>(row)], 82) << "body row " << row;
  }
  for (int row = 0; row < 4; ++row) {
    const double most = 170 * std::pow(0.4, (4 - row) / 9.0);
    EXPECT_LE(rows[static_cast<std::size_t>(row)], std::nearbyint(most)) << "row " << row;
    EXPECT_GE(rows[static_cast<std::size_t>(row)], most - 3) << "row " << row;
  }
}

TEST_P(Fire, ASingleRowIsATopRowAtHalfStrength) {
  dimension(50, 1);
  burning(kWhite, kBlack, 100);
  EXPECT_NEAR(brightest()[0], 127, 1);
  burning(kBlack, kWhite, 100);  // 170 x 0.4 is below the threshold
  EXPECT_TRUE(tick() && tick() && tick());
  fill(kBlack);
  EXPECT_EQ(brightest()[0], 0);
}

TEST_P(Fire, ASmallFlameHasNoBodyAndHalfStrengthInTheBottomRow) {
  burning(kWhite, kBlack, 5);
  const std::vector<int> rows = brightest();
  EXPECT_NEAR(rows[11], 127, 1);
  EXPECT_EQ(rows[10], 0);  // a quarter is below the threshold
}

TEST_P(Fire, BothColoursBlackLeaveBlackCells) {
  burning(kBlack, kBlack, 50);
  fill(kWhite);
  for (int i = 0; i < 60; ++i) ASSERT_TRUE(tick());
  eachRed([](int, int red) { EXPECT_EQ(red, 0); });
}

TEST_P(Fire, ComponentsRoundToEvenSaturateAndSnapToBlack) {
  EXPECT_EQ(flameComponent(69.5), 70);
  EXPECT_EQ(flameComponent(69.4), 0);
  EXPECT_EQ(flameComponent(68.5), 0);
  EXPECT_EQ(flameComponent(70.5), 70);
  EXPECT_EQ(flameComponent(255.5), 255);
  EXPECT_EQ(flameComponent(424.9), 255);
  EXPECT_EQ(flameComponent(0), 0);
}

TEST_P(Fire, ABrightSumSaturates) {
  dimension(50, 3);
  burning(kWhite, kWhite, 100);
  ASSERT_TRUE(tick() && tick() && tick());
  int saturated = 0;
  for (int i = 0; i < 100; ++i) {
    ASSERT_TRUE(tick());
    for (int col = 0; col < 50; ++col) {
      const int red = deck.frame.at(col, 2)[0];
      EXPECT_TRUE(red == 0 || red >= 79) << red << ", 0.4 of the bottom row at least";
      saturated += red == 255 ? 1 : 0;
    }
  }
  EXPECT_GT(saturated, 0);
}

TEST_P(Fire, OneCellInThreeIsRepaintedAndTheOthersKeepTheirColour) {
  burning(kBlack, kBlack, 50);
  dimension(6, 3);
  fill(kWhite);
  startCountAt(0);
  ASSERT_TRUE(tick());
  expectPicture(deck.frame, {".WW.WW",  // a width of three upright lines
                             ".WW.WW",  //
                             ".WW.WW"});
  dimension(7, 3);
  fill(kWhite);
  startCountAt(0);
  ASSERT_TRUE(tick());
  expectPicture(deck.frame, {"W.WW.WW",  // any other width slants, from the bottom up
                             "WW.WW.W",  //
                             ".WW.WW."});
  dimension(7, 3);
  fill(kWhite);
  startCountAt(2);
  ASSERT_TRUE(tick());
  expectPicture(deck.frame, {"WW.WW.W",  //
                             ".WW.WW.",  //
                             "W.WW.WW"});
}

// A single cell in a flame of one row, from the numbers that follow the step's first one.
TEST_P(Fire, ACellIsMadeOfTwoRandomNumbersTheMainColoursFirst) {
  dimension(1, 1);
  burning(rgb(255, 160, 0), rgb(0, 90, 255), 100);
  for (int i = 0; i < 20; ++i) {
    startCountAt(0);
    Random random = engine.random;
    ASSERT_TRUE(tick());
    const double main = (random.next() * 0.6 + 0.4) * 0.5;
    const double second = random.next() / 3.0 * 2 * 0.4;
    EXPECT_EQ(deck.frame.at(0, 0),
              (Rgb{flameComponent(main * 255), flameComponent(main * 160 + second * 90),
                   flameComponent(second * 255)}));
    EXPECT_EQ(engine.random.next(), random.next()) << "no more than two are drawn";
  }
}

// A cell whose red has settled is told again at each repaint as long as its green or blue differ
// from what was noted long ago.
TEST_P(Fire, OnlyTheRedOfAPublishedCellIsNoted) {
  dimension(3, 1);
  burning(kBlack, kBlack, 50);
  fill(kWhite);
  deck.frameWork.fill({9, 8, 7});
  startCountAt(0);
  ASSERT_TRUE(tick());
  EXPECT_EQ(deck.frame.at(0, 0), Rgb());
  EXPECT_EQ(deck.frameWork.at(0, 0), (Rgb{0, 8, 7}));
  for (int i = 0; i < 3; ++i) {
    takeCalls();
    startCountAt(0);
    ASSERT_TRUE(tick());
    EXPECT_EQ(takeCalls(), std::vector<std::string>{"UserInteraction"});
  }
  deck.frameWork.fill({});
  startCountAt(0);
  ASSERT_TRUE(tick());
  EXPECT_TRUE(takeCalls().empty()) << "nothing differs any more";
}

TEST_P(Fire, AFadeStopsTheMixButNotThePreview) {
  dimension(3, 3);
  burning(rgb(0, 0, 255), rgb(0, 0, 255), 100);
  v.fadeRunning = true;
  takeCalls();
  for (int i = 0; i < 20; ++i) ASSERT_TRUE(tick());
  EXPECT_TRUE(takeCalls().empty());
  EXPECT_EQ(v.frameM.at(1, 2), Rgb());
  EXPECT_NE(pixelOf(deck.picture, deck.preview, 1, 2), kBlack);
}

// Deck A counts its cells in 32 bits, deck B in 16.
TEST_P(Fire, OnlyDeckBFailsOnAGridThatAFileMadeTooLarge) {
  dimension(200, 200);
  burning(rgb(255, 255, 0), rgb(255, 0, 0), 30);
  EXPECT_EQ(tick(), !deck.isB());
  EXPECT_EQ(takeFailure(), deck.isB() ? kOverflow : 0);
}

TEST_P(Fire, TheStepThatFailsEndsTheTickAndTheRestGoesOn) {
  dimension(200, 200);
  burning(kWhite, kWhite, 100);
  other.effect().type = kFluid;
  other.effect().color1 = rgb(1, 2, 3);
  other.effect().direction = 5;
  for (Deck* each : {&deck, &other}) {
    each->timer1.setInterval(50);
    each->timer1.enable();
  }
  advance(200);
  EXPECT_EQ(deck.timer1.enabled(), !deck.isB());
  EXPECT_EQ(platform.failures.size(), deck.isB() ? 1U : 0U);
  EXPECT_TRUE(other.timer1.enabled());
  EXPECT_EQ(other.frame.at(0, 3), (Rgb{1, 2, 3})) << "four steps of the other deck";
}

TEST_P(Fire, TheCountOfDeckBMayReachItsLastNumberButNotPassIt) {
  dimension(std::numeric_limits<std::int16_t>::max(), 1);
  burning(kBlack, kBlack, 30);
  for (const int start : {0, 1, 2}) {
    startCountAt(start);
    EXPECT_EQ(tick(), !deck.isB() || start == 0) << "start " << start;
  }
}

// The step done slowly: every third cell anew, from the bottom row up, in nested lists.
void slowFireStep(SlowDeck& slow, const Effect& effect, Random random) {
  if (effect.amount <= 0) {
    for (auto* cells : {&slow.frame, &slow.noted}) {
      for (auto& column : *cells) column.assign(column.size(), {0, 0, 0});
    }
    return slow.publishAll();
  }
  const int rowsAbove = static_cast<int>(std::floor(effect.amount / 150.0 * slow.rows));
  const int top = slow.rows - 1 - rowsAbove;
  const double d1 = std::pow(0.5, 1.0 / (slow.rows - top));
  const double d2 = std::pow(0.4, 1.0 / (slow.rows - top));
  double p1 = d1;
  double p2 = d2;
  const Rgb main = colorParts(effect.color1);
  const Rgb second = colorParts(effect.color2);
  int c = static_cast<int>(std::floor(random.next() * 3.0));
  for (int row = slow.rows - 1; row >= 0; --row) {
    for (int col = 0; col < slow.cols; ++col, ++c) {
      if (c % 3 != 0) continue;
      const double a = (random.next() * 0.6 + 0.4) * p1;
      double b = random.next() / 3.0;
      if (row <= top) b = b * 2 * p2;
      for (std::size_t k = 0; k < 3; ++k) {
        const int sum = static_cast<int>(std::nearbyint(a * main[k] + b * second[k]));
        slow.frame[static_cast<std::size_t>(col)][static_cast<std::size_t>(row)][k] =
            sum < 70 ? 0 : std::min(sum, 255);
      }
      slow.publish(col, row, true);
    }
    if (row <= top) p2 *= d2;
    p1 *= d1;
  }
}

TEST_P(Fire, StepsAsASlowModelOfItDoes) {
  for (int setUp = 0; setUp < 400 && !HasFailure(); ++setUp) {
    const int most = setUp % 20 == 0 ? 50 : 13;
    dimension(1 + number(most), 1 + number(most));
    burning(number(1 << 24), number(1 << 24), static_cast<std::int16_t>(number(112) - 5));
    expectSteps(fireTick, slowFireStep);
    if (HasFailure()) ADD_FAILURE() << "in set-up " << setUp;
  }
}

}  // namespace
}  // namespace korvane
