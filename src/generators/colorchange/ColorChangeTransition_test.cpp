#include <gtest/gtest.h>

#include <algorithm>

#include "generators/colorchange/ColorChangeCode.h"
#include "platform/Failure.h"
#include "testing/ColorEffects.h"

namespace korvane {
namespace {

// From one colour to the next.
class ColorTransition : public ColorChanges {
 protected:
  static bool differsFromBlack(const Frame& frame) {
    return std::any_of(frame.data(), frame.data() + frame.span(),
                       [](const Rgb& cell) { return cell != Rgb{}; });
  }
};

KORVANE_BOTH_DECKS(ColorTransition);

struct TicksOfTransition {
  std::int16_t mode;
  std::int16_t amount;
  std::int16_t steps;
  std::int32_t interval;
};

TEST_P(ColorTransition, EachModeHasItsTicksWithinTheWholeTime) {
  resize(12, 10);
  for (const TicksOfTransition& row : {
           TicksOfTransition{kFadeBlend, 0, 80, 138},
           TicksOfTransition{kFadeBlend, 29, 80, 101},
           TicksOfTransition{kFadeBlend, 30, 50, 160},
           TicksOfTransition{kFadeBlend, 59, 50, 102},
           TicksOfTransition{kFadeBlend, 60, 30, 167},
           TicksOfTransition{kFadeBlend, 89, 30, 70},
           TicksOfTransition{kFadeBlend, 90, 15, 133},
           TicksOfTransition{kFadeBlend, 100, 15, 67},
           TicksOfTransition{kFadeRandom, 0, 120, 92},
           TicksOfTransition{kFadeRandom, 100, 120, 8},
           TicksOfTransition{kFadeFillDown, 50, 120, 50},
           TicksOfTransition{kFadeFillUp, 50, 120, 50},
           TicksOfTransition{kFadeScrollUp, 10, 10, 1000},
           TicksOfTransition{kFadeScrollDown, 100, 10, 100},
           TicksOfTransition{kFadeScrollLeft, 100, 12, 83},
           TicksOfTransition{kFadeScrollRight, 0, 12, 917},
       }) {
    effect.amount = row.amount;
    play({kRed, kGreen}, {1, 1}, row.mode);
    advance(1000);
    EXPECT_EQ(deck.steps, row.steps) << row.mode << " at " << row.amount;
    EXPECT_EQ(deck.timer2.interval(), row.interval) << row.mode << " at " << row.amount;
    EXPECT_TRUE(deck.timer2.enabled());
    EXPECT_TRUE(deck.transitionRunning);
    EXPECT_EQ(deck.step, 0);
  }
}

TEST_P(ColorTransition, RandomOn144CellsTicksEvery7Milliseconds) {
  startTransition(kFadeRandom, 12, 12);
  EXPECT_EQ(deck.steps, 144);
  EXPECT_EQ(deck.timer2.interval(), 7);
}

TEST_P(ColorTransition, ACycleLastsItsHoldTimeAndItsTransition) {
  startTransition(kFadeScrollDown, 4, 3);  // 3 ticks of 333 ms, then the closing one
  EXPECT_FALSE(deck.timer1.enabled());
  advance(999);
  expectPicture(deck.frame, {"GGGG", "GGGG", "GGGG"});
  EXPECT_TRUE(deck.transitionRunning);
  EXPECT_FALSE(deck.timer1.enabled());
  advance(333);
  EXPECT_FALSE(deck.transitionRunning);
  EXPECT_FALSE(deck.timer2.enabled());
  EXPECT_TRUE(deck.timer1.enabled());
  advance(999);
  EXPECT_FALSE(deck.transitionRunning);
  advance(1);
  EXPECT_TRUE(deck.transitionRunning);
  EXPECT_EQ(effect.color1, kRed);
}

TEST_P(ColorTransition, NoneCutsAtOnce) {
  startTransition(kFadeNone, 2, 1);
  expectPicture(deck.frame, {"GG"});
  EXPECT_FALSE(deck.timer2.enabled());
}

TEST_P(ColorTransition, FadeShowsTheOldColourFirstAndTheNewOneAfterTheLastBlend) {
  startTransition(kFadeBlend, 1, 1);
  ticks(1);
  EXPECT_EQ(deck.frame.at(0, 0), (Rgb{255, 0, 0}));
  ticks(1);
  EXPECT_EQ(deck.frame.at(0, 0), (Rgb{238, 17, 0}));
  EXPECT_DOUBLE_EQ(deck.fadeFactor, 1.0 / 15);
  ticks(13);
  EXPECT_EQ(deck.frame.at(0, 0), (Rgb{16, 238, 0})) << "floored: 1 - 14/15 is just below 1/15";
  EXPECT_TRUE(deck.transitionRunning);
  ticks(1);
  EXPECT_EQ(deck.frame.at(0, 0), (Rgb{0, 255, 0}));
  EXPECT_FALSE(deck.transitionRunning);
}

TEST_P(ColorTransition, RandomPaintsOneCellATickUntilAllAreDone) {
  startTransition(kFadeRandom, 4, 3);
  for (int painted = 1; painted <= 12; ++painted) {
    ticks(1);
    int green = 0;
    for (int cell = 0; cell < 12; ++cell)
      green += rgb(deck.frame.at(cell % 4, cell / 4)) == kGreen ? 1 : 0;
    EXPECT_EQ(green, painted);
  }
  EXPECT_TRUE(deck.transitionRunning);
  ticks(1);
  EXPECT_FALSE(deck.transitionRunning);
}

TEST_P(ColorTransition, RandomGoesThroughTheRowsOfTheDrawnOrder) {
  startTransition(kFadeRandom, 4, 3);
  deck.cellOrder = {6, 0, 11, 4, 1, 2, 3, 5, 7, 8, 9, 10, 0};
  ticks(1);
  expectPicture(deck.frame, {"RRRR", "RRGR", "RRRR"});
  ticks(1);
  expectPicture(deck.frame, {"GRRR", "RRGR", "RRRR"});
  ticks(2);
  expectPicture(deck.frame, {"GRRR", "GRGR", "RRRG"});
}

TEST_P(ColorTransition, TheOrderIsAShuffleOfAllCellsDrawnFromTheClock) {
  platform.time = 45'296'789;  // ms after midnight
  startTransition(kFadeRandom, 4, 3);
  const std::vector<std::int32_t> first = deck.cellOrder;
  ASSERT_EQ(first.size(), 13U);
  std::vector<std::int32_t> sorted(first.begin(), first.end() - 1);
  EXPECT_FALSE(std::is_sorted(sorted.begin(), sorted.end()));
  std::sort(sorted.begin(), sorted.end());
  for (int cell = 0; cell < 12; ++cell) EXPECT_EQ(sorted[static_cast<std::size_t>(cell)], cell);
  startTransition(kFadeRandom, 4, 3);
  EXPECT_EQ(deck.cellOrder, first);
  platform.time = 45'300'000;
  startTransition(kFadeRandom, 4, 3);
  EXPECT_NE(deck.cellOrder, first);
}

TEST_P(ColorTransition, FillDownTakesTheNextFreeCellFromTheTopOfTheDrawnColumn) {
  startTransition(kFadeFillDown, 4, 3);
  deck.cellOrder = {7, 6, 0, 8, 11, 1, 2, 3, 4, 5, 9, 10, 0};  // columns 2, 2, 0, 2, 3, 0 ...
  ticks(1);
  expectPicture(deck.frame, {"RRGR", "RRRR", "RRRR"});
  ticks(2);
  expectPicture(deck.frame, {"GRGR", "RRGR", "RRRR"});
  ticks(3);
  expectPicture(deck.frame, {"GRGG", "GRGR", "RRGR"});
  ticks(6);
  expectPicture(deck.frame, {"GGGG", "GGGG", "GGGG"});
}

TEST_P(ColorTransition, FillUpTakesTheNextFreeCellFromTheBottomOfTheDrawnColumn) {
  startTransition(kFadeFillUp, 4, 3);
  deck.cellOrder = {7, 6, 0, 8, 11, 1, 2, 3, 4, 5, 9, 10, 0};
  ticks(1);
  expectPicture(deck.frame, {"RRRR", "RRRR", "RRGR"});
  ticks(2);
  expectPicture(deck.frame, {"RRRR", "RRGR", "GRGR"});
  ticks(3);
  expectPicture(deck.frame, {"RRGR", "GRGR", "GRGG"});
  ticks(6);
  expectPicture(deck.frame, {"GGGG", "GGGG", "GGGG"});
}

TEST_P(ColorTransition, ScrollUpWipesRowsFromTheBottom) {
  startTransition(kFadeScrollUp);
  ticks(1);
  expectPicture(deck.frame, {"RRRR", "RRRR", "GGGG"});
  ticks(1);
  expectPicture(deck.frame, {"RRRR", "GGGG", "GGGG"});
}

TEST_P(ColorTransition, ScrollDownWipesRowsFromTheTop) {
  startTransition(kFadeScrollDown);
  ticks(1);
  expectPicture(deck.frame, {"GGGG", "RRRR", "RRRR"});
  ticks(1);
  expectPicture(deck.frame, {"GGGG", "GGGG", "RRRR"});
}

TEST_P(ColorTransition, ScrollLeftWipesColumnsFromTheRight) {
  startTransition(kFadeScrollLeft);
  ticks(1);
  expectPicture(deck.frame, {"RRRG", "RRRG", "RRRG"});
  ticks(2);
  expectPicture(deck.frame, {"RGGG", "RGGG", "RGGG"});
}

TEST_P(ColorTransition, ScrollRightWipesColumnsFromTheLeft) {
  startTransition(kFadeScrollRight);
  ticks(1);
  expectPicture(deck.frame, {"GRRR", "GRRR", "GRRR"});
  ticks(2);
  expectPicture(deck.frame, {"GGGR", "GGGR", "GGGR"});
}

TEST_P(ColorTransition, AWipeLeavesWhatItHasNotReachedAsItWas) {
  startTransition(kFadeScrollRight);
  deck.frame = frameOf({"BWB.", "WBW.", "BWB."});
  ticks(2);
  expectPicture(deck.frame, {"GGB.", "GGW.", "GGB."});
}

TEST_P(ColorTransition, AModeThatDoesNotExistStandsStill) {
  for (const int mode : {-1, 9, 32767}) {
    play({kRed, kGreen}, {1, 1}, static_cast<std::int16_t>(mode));
    deck.timer2.setInterval(5000);
    deck.timer2.enable();
    advance(1000);
    EXPECT_FALSE(deck.timer1.enabled());
    EXPECT_FALSE(deck.timer2.enabled());
    EXPECT_EQ(effect.color1, kGreen);
    expectPicture(deck.frame, {"RRRR", "RRRR", "RRRR", "RRRR"});
  }
}

TEST_P(ColorTransition, ATransitionTickOfAModeWithoutTransitionOnlyLeavesTheTimerOff) {
  play({kRed, kGreen}, {100, 100});
  effect.beatControl = 1;
  deck.timer1.disable();
  deck.timer2.enable();
  advance(1000);
  EXPECT_FALSE(deck.timer1.enabled()) << "a beat's lock-out is no end of a transition";
  EXPECT_FALSE(deck.timer2.enabled());
}

TEST_P(ColorTransition, TheEndOfATransitionReturnsToTheModeLastChosen) {
  startTransition(kFadeScrollDown);
  deck.savedFadeMode = kFadeBlend;
  ticks(3);
  EXPECT_EQ(effect.fadeMode, kFadeScrollDown);
  ticks(1);
  EXPECT_EQ(effect.fadeMode, kFadeBlend);
}

// A show from a file, say, before its dialog was ever opened.
TEST_P(ColorTransition, AStartLeavesTheModeLastChosenAlone) {
  effect.amount = 100;
  play({kRed, kGreen}, {1, 1}, kFadeScrollDown);
  deck.savedFadeMode = kFadeNone;
  start();
  EXPECT_EQ(deck.savedFadeMode, kFadeNone);
  advance(1000);
  EXPECT_EQ(effect.fadeMode, kFadeScrollDown);
  ticks(5);
  EXPECT_EQ(effect.fadeMode, kFadeNone) << "the first transition is the only one";
}

TEST_P(ColorTransition, AGridWithoutCellsCannotRunATransition) {
  startTransition(kFadeNone, 1, 1);
  effect.fadeMode = kFadeScrollUp;
  platform.failures.clear();
  v.matrixRows = 0;
  event([this] { colorChangeStep(engine, deck); });
  ASSERT_EQ(platform.failures.size(), 1U);
  EXPECT_EQ(platform.failures[0].number, kDivisionByZero);
}

TEST_P(ColorTransition, AGridOfMoreThan32767CellsOverflowsTheTicksOfAShuffle) {
  startTransition(kFadeNone, 1, 1);
  dimension(182, 181);
  effect.fadeMode = kFadeRandom;
  event([this] { colorChangeStep(engine, deck); });
  ASSERT_EQ(platform.failures.size(), 1U);
  EXPECT_EQ(platform.failures[0].number, kOverflow);
}

// Who mixes during a master fade.

struct MixCase {
  std::int16_t mode;
  std::int32_t interval;
  bool mixes;
};

TEST_P(ColorTransition, DuringAMasterFadeOnlyStepsLongEnoughLeaveRoomToMix) {
  for (const MixCase& row : {
           MixCase{kFadeBlend, 400, false},
           MixCase{kFadeBlend, 401, true},
           MixCase{kFadeScrollUp, 400, false},
           MixCase{kFadeScrollUp, 401, true},
           MixCase{kFadeScrollDown, 400, false},
           MixCase{kFadeScrollLeft, 400, false},
           MixCase{kFadeScrollRight, 401, true},
           MixCase{kFadeRandom, 200, false},
           MixCase{kFadeRandom, 201, true},
           MixCase{kFadeFillDown, 200, false},
           MixCase{kFadeFillDown, 201, true},
           MixCase{kFadeFillUp, 200, false},
           MixCase{kFadeFillUp, 201, true},
       }) {
    v.fadeRunning = false;
    startTransition(row.mode, 3, 3);
    v.fadeRunning = true;
    v.masterValue = isB() ? 1 : 0;
    engine.master.timerM.setInterval(row.interval);
    v.frameM = frameOf({"...", "...", "..."});
    ticks(1);
    EXPECT_EQ(differsFromBlack(v.frameM), row.mixes)
        << "mode " << row.mode << " at " << row.interval << " ms";
  }
}

TEST_P(ColorTransition, ACutNeverMixesDuringAMasterFadeHoweverLongItsSteps) {
  startTransition(kFadeNone, 1, 1);
  v.fadeRunning = true;
  engine.master.timerM.setInterval(5000);
  const Rgb before = v.frameM.at(0, 0);
  advance(1000);
  expectPicture(deck.frame, {"R"});
  EXPECT_EQ(v.frameM.at(0, 0), before);
}

TEST_P(ColorTransition, TheLastPictureNeverMixesDuringAMasterFadeHoweverLongItsSteps) {
  startTransition(kFadeScrollDown, 1, 1);
  ticks(1);
  v.fadeRunning = true;
  engine.master.timerM.setInterval(5000);
  v.frameM = frameOf({"W"});
  ticks(1);
  EXPECT_FALSE(deck.transitionRunning);
  expectPicture(v.frameM, {"W"});
}

TEST_P(ColorTransition, ACellTickMixesThatCellAlone) {
  startTransition(kFadeRandom, 3, 3);
  v.masterValue = isB() ? 1 : 0;
  deck.cellOrder.assign(10, 4);
  v.frameM = frameOf({"...", "...", "..."});
  ticks(1);
  expectPicture(v.frameM, {"...", ".G.", "..."});
}

TEST_P(ColorTransition, OneOfMoreCellsThanMillisecondsEnds) {
  resize(50, 50);
  effect.amount = 100;
  play({kRed, kGreen}, {1, 1}, kFadeRandom);
  advance(1000);
  EXPECT_EQ(deck.timer2.interval(), 1);
  advance(2500);
  EXPECT_TRUE(deck.transitionRunning);
  advance(1);
  EXPECT_FALSE(deck.transitionRunning);
  EXPECT_TRUE(deck.timer1.enabled());
}

// Not a step of a transition: a colour of no time holds for ever.
TEST_P(ColorTransition, AColourOfNoTimeStopsTheTicking) {
  resize(2, 1);
  play({kRed, kGreen}, {1, 0}, 0);
  advance(1000);
  EXPECT_EQ(deck.timer1.interval(), 0);
  advance(100000);
  EXPECT_EQ(effect.color1, kGreen);
}

}  // namespace
}  // namespace korvane
