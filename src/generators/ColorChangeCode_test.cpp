#include "generators/ColorChangeCode.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/Failure.h"
#include "testing/ColorEffects.h"

namespace korvane {
namespace {

enum Mode : std::int16_t {
  kNone,
  kFade,
  kRandomCells,
  kFillDown,
  kFillUpward,
  kWipeUp,
  kWipeDown,
  kWipeLeft,
  kWipeRight
};

// Makes the deck's record a colour change and starts it.
class ColorChange : public ColorEffectsOnDecks<kColorChange> {
 protected:
  void play(const std::vector<Color>& colors, const std::vector<double>& times,
            std::int16_t mode = kNone) {
    setColors(colors, times, {});
    effect.fadeMode = mode;
    deck.savedFadeMode = mode;
    start();
  }

  // A step from red to green whose transition takes one second, on a grid, and nothing of it yet.
  void startTransition(std::int16_t mode, int cols = 4, int rows = 3) {
    resize(cols, rows);
    effect.amount = 100;
    play({kRed, kGreen}, {1, 1}, mode);
    advance(1000);
  }

  static bool differsFromBlack(const Frame& frame) {
    return std::any_of(frame.data(), frame.data() + frame.span(),
                       [](const Rgb& cell) { return cell != Rgb{}; });
  }

  void ticks(int count) { advance(std::int64_t{count} * deck.timer2.interval()); }
};

KORVANE_BOTH_DECKS(ColorChange);

struct Hold {
  double seconds;
  std::int16_t speed;
  std::int32_t milliseconds;
};

TEST(ColorHoldInterval, IsThreeTimesTheTimeAtSpeed0AndAThirdAt100) {
  for (const Hold& hold : {
           Hold{1, 0, 3000},
           Hold{1, 25, 2000},
           Hold{1, 49, 1040},
           Hold{1, 50, 1000},
           Hold{1, 51, 962},
           Hold{1, 75, 500},
           Hold{1, 100, 333},
           Hold{0.1, 100, 33},
           Hold{800, 0, 2400000},
           Hold{0, 50, 0},
           Hold{0.0005, 50, 0},
           Hold{0.0015, 50, 2},
           Hold{0.0025, 50, 2},
           Hold{-1, 50, -1000},
           Hold{2147483.647, 50, 2147483647},
           Hold{3, 100, 1000},
       }) {
    EXPECT_EQ(colorHoldInterval(hold.seconds, hold.speed), hold.milliseconds)
        << hold.seconds << " s at speed " << hold.speed;
  }
}

TEST(ColorHoldInterval, OverflowsBeyond32Bits) {
  EXPECT_THROW(colorHoldInterval(2147483.648, 50), Failure);
  EXPECT_EQ(colorHoldInterval(2147483.648, 51), 2064888123);
}

TEST_P(ColorChange, WithoutAColourClearsRedAloneAndSaysSo) {
  resize(2, 2);
  effect.type = kColorChange;
  deck.frame.fill({1, 2, 3});
  v.frameM.fill({9, 9, 9});
  const Raster preview = deck.picture.raster();
  deck.timer1.enable();
  deck.timer2.enable();
  startColorChange(engine, deck);
  EXPECT_EQ(deck.frame.at(0, 0), (Rgb{0, 2, 3}));
  EXPECT_EQ(deck.frame.at(1, 1), (Rgb{0, 2, 3}));
  EXPECT_EQ(deck.picture.raster(), preview) << "no preview is refreshed";
  EXPECT_EQ(v.frameM.at(0, 0), (Rgb{9, 9, 9}));
  EXPECT_EQ(platform.boxes,
            std::vector<std::string>{"ColorChange not configured ! Please edit Effect."});
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_FALSE(deck.timer2.enabled());
}

TEST_P(ColorChange, OneColourIsStaticAndRunsNoTimer) {
  resize(2, 1);
  play({kGreen}, {1});
  expectPicture(deck.frame, {"GG"});
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_FALSE(deck.timer2.enabled());
  EXPECT_TRUE(platform.failures.empty());
}

TEST_P(ColorChange, HoldsEachColourForItsTimeToTheMillisecondAndWraps) {
  resize(1, 1);
  play({kRed, kGreen}, {1, 2});
  for (int round = 0; round < 3; ++round) {
    expectPicture(deck.frame, {"R"});
    advance(999);
    expectPicture(deck.frame, {"R"});
    advance(1);
    expectPicture(deck.frame, {"G"});
    EXPECT_EQ(deck.colorIndex, 1);
    advance(1999);
    expectPicture(deck.frame, {"G"});
    advance(1);
    EXPECT_EQ(deck.colorIndex, 0);
  }
}

TEST_P(ColorChange, NotesTheColourBeforeInColor2) {
  play({kRed, kGreen, kBlue}, {1, 1, 1});
  EXPECT_EQ(effect.color1, kRed);
  advance(1000);
  EXPECT_EQ(effect.color2, kRed);
  EXPECT_EQ(effect.color1, kGreen);
  advance(2000);
  EXPECT_EQ(effect.color2, kBlue);
  EXPECT_EQ(effect.color1, kRed);
}

TEST_P(ColorChange, AnUnsetSpeedBecomes50) {
  play({kRed, kGreen}, {1, 1});
  effect.speed = 0;
  start();
  EXPECT_EQ(effect.speed, 50);
  EXPECT_EQ(deck.timer1.interval(), 1000);
}

TEST_P(ColorChange, AnUnsetSpeedOfAStaticColourStaysUnset) {
  play({kRed}, {1});
  effect.speed = 0;
  start();
  EXPECT_EQ(effect.speed, 0);
}

TEST_P(ColorChange, DeckBStretchesItsFirstIntervalAtHighSpeeds) {
  effect.speed = 100;
  play({kRed, kGreen}, {1, 2});
  EXPECT_EQ(deck.timer1.interval(), isB() ? 3000 : 333);
  advance(deck.timer1.interval());
  EXPECT_EQ(deck.timer1.interval(), 667);
  advance(667);
  EXPECT_EQ(deck.timer1.interval(), 333);
}

TEST_P(ColorChange, FirstIntervalsOfTheDecksAgreeUpToSpeed50) {
  for (const auto& [speed, interval] :
       {std::pair(1, 2960), std::pair(25, 2000), std::pair(50, 1000)}) {
    effect.speed = static_cast<std::int16_t>(speed);
    play({kRed, kGreen}, {1, 1});
    EXPECT_EQ(deck.timer1.interval(), interval);
  }
}

TEST_P(ColorChange, OnTheBeatDeckBStartsItsTimerAllTheSame) {
  effect.beatControl = 1;
  play({kRed, kGreen}, {1, 1});
  EXPECT_EQ(deck.timer1.enabled(), isB());
}

TEST_P(ColorChange, ATimeOf0StopsTheTicking) {
  play({kRed, kGreen, kBlue}, {1, 0, 1});
  advance(1000);
  EXPECT_EQ(deck.colorIndex, 1);
  EXPECT_TRUE(deck.timer1.enabled());
  EXPECT_EQ(deck.timer1.interval(), 0);
  advance(1'000'000);
  EXPECT_EQ(deck.colorIndex, 1);
}

TEST_P(ColorChange, MissingTimesFailAndLeaveTheColourShowing) {
  resize(1, 1);
  play({kRed, kGreen}, {1, 1});
  effect.itemTimes.clear();
  advance(1000);
  ASSERT_EQ(platform.failures.size(), 1U);
  EXPECT_EQ(platform.failures[0].number, kSubscript);
  EXPECT_FALSE(deck.timer1.enabled());
  expectPicture(deck.frame, {"R"});
}

struct Ticks {
  std::int16_t mode;
  std::int16_t amount;
  std::int16_t steps;
  std::int32_t interval;
};

TEST_P(ColorChange, EachModeHasItsTicksWithinTheWholeTime) {
  resize(12, 10);
  for (const Ticks& row : {
           Ticks{kFade, 0, 80, 138},
           Ticks{kFade, 29, 80, 101},
           Ticks{kFade, 30, 50, 160},
           Ticks{kFade, 59, 50, 102},
           Ticks{kFade, 60, 30, 167},
           Ticks{kFade, 89, 30, 70},
           Ticks{kFade, 90, 15, 133},
           Ticks{kFade, 100, 15, 67},
           Ticks{kRandomCells, 0, 120, 92},
           Ticks{kRandomCells, 100, 120, 8},
           Ticks{kFillDown, 50, 120, 50},
           Ticks{kFillUpward, 50, 120, 50},
           Ticks{kWipeUp, 10, 10, 1000},
           Ticks{kWipeDown, 100, 10, 100},
           Ticks{kWipeLeft, 100, 12, 83},
           Ticks{kWipeRight, 0, 12, 917},
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

TEST_P(ColorChange, RandomOn144CellsTicksEvery7Milliseconds) {
  startTransition(kRandomCells, 12, 12);
  EXPECT_EQ(deck.steps, 144);
  EXPECT_EQ(deck.timer2.interval(), 7);
}

TEST_P(ColorChange, ACycleLastsItsHoldTimeAndItsTransition) {
  startTransition(kWipeDown, 4, 3);  // 3 ticks of 333 ms, then the closing one
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

TEST_P(ColorChange, NoneCutsAtOnce) {
  startTransition(kNone, 2, 1);
  expectPicture(deck.frame, {"GG"});
  EXPECT_FALSE(deck.timer2.enabled());
}

TEST_P(ColorChange, FadeShowsTheOldColourFirstAndTheNewOneAfterTheLastBlend) {
  startTransition(kFade, 1, 1);
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

TEST_P(ColorChange, RandomPaintsOneCellATickUntilAllAreDone) {
  startTransition(kRandomCells, 4, 3);
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

TEST_P(ColorChange, RandomGoesThroughTheRowsOfTheDrawnOrder) {
  startTransition(kRandomCells, 4, 3);
  deck.cellOrder = {6, 0, 11, 4, 1, 2, 3, 5, 7, 8, 9, 10, 0};
  ticks(1);
  expectPicture(deck.frame, {"RRRR", "RRGR", "RRRR"});
  ticks(1);
  expectPicture(deck.frame, {"GRRR", "RRGR", "RRRR"});
  ticks(2);
  expectPicture(deck.frame, {"GRRR", "GRGR", "RRRG"});
}

TEST_P(ColorChange, TheOrderIsAShuffleOfAllCellsDrawnFromTheClock) {
  platform.time = 45'296'789;  // ms after midnight
  startTransition(kRandomCells, 4, 3);
  const std::vector<std::int32_t> first = deck.cellOrder;
  ASSERT_EQ(first.size(), 13U);
  std::vector<std::int32_t> sorted(first.begin(), first.end() - 1);
  EXPECT_FALSE(std::is_sorted(sorted.begin(), sorted.end()));
  std::sort(sorted.begin(), sorted.end());
  for (int cell = 0; cell < 12; ++cell) EXPECT_EQ(sorted[static_cast<std::size_t>(cell)], cell);
  startTransition(kRandomCells, 4, 3);
  EXPECT_EQ(deck.cellOrder, first);
  platform.time = 45'300'000;
  startTransition(kRandomCells, 4, 3);
  EXPECT_NE(deck.cellOrder, first);
}

TEST_P(ColorChange, FillDownTakesTheNextFreeCellFromTheTopOfTheDrawnColumn) {
  startTransition(kFillDown, 4, 3);
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

TEST_P(ColorChange, FillUpTakesTheNextFreeCellFromTheBottomOfTheDrawnColumn) {
  startTransition(kFillUpward, 4, 3);
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

TEST_P(ColorChange, ScrollUpWipesRowsFromTheBottom) {
  startTransition(kWipeUp);
  ticks(1);
  expectPicture(deck.frame, {"RRRR", "RRRR", "GGGG"});
  ticks(1);
  expectPicture(deck.frame, {"RRRR", "GGGG", "GGGG"});
}

TEST_P(ColorChange, ScrollDownWipesRowsFromTheTop) {
  startTransition(kWipeDown);
  ticks(1);
  expectPicture(deck.frame, {"GGGG", "RRRR", "RRRR"});
  ticks(1);
  expectPicture(deck.frame, {"GGGG", "GGGG", "RRRR"});
}

TEST_P(ColorChange, ScrollLeftWipesColumnsFromTheRight) {
  startTransition(kWipeLeft);
  ticks(1);
  expectPicture(deck.frame, {"RRRG", "RRRG", "RRRG"});
  ticks(2);
  expectPicture(deck.frame, {"RGGG", "RGGG", "RGGG"});
}

TEST_P(ColorChange, ScrollRightWipesColumnsFromTheLeft) {
  startTransition(kWipeRight);
  ticks(1);
  expectPicture(deck.frame, {"GRRR", "GRRR", "GRRR"});
  ticks(2);
  expectPicture(deck.frame, {"GGGR", "GGGR", "GGGR"});
}

TEST_P(ColorChange, AWipeLeavesWhatItHasNotReachedAsItWas) {
  startTransition(kWipeRight);
  deck.frame = frameOf({"BWB.", "WBW.", "BWB."});
  ticks(2);
  expectPicture(deck.frame, {"GGB.", "GGW.", "GGB."});
}

TEST_P(ColorChange, AModeThatDoesNotExistStandsStill) {
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

TEST_P(ColorChange, ATransitionTickOfAModeWithoutTransitionOnlyLeavesTheTimerOff) {
  play({kRed, kGreen}, {100, 100});
  effect.beatControl = 1;
  deck.timer1.disable();
  deck.timer2.enable();
  advance(1000);
  EXPECT_FALSE(deck.timer1.enabled()) << "a beat's lock-out is no end of a transition";
  EXPECT_FALSE(deck.timer2.enabled());
}

TEST_P(ColorChange, TheEndOfATransitionReturnsToTheModeLastChosen) {
  startTransition(kWipeDown);
  deck.savedFadeMode = kFade;
  ticks(3);
  EXPECT_EQ(effect.fadeMode, kWipeDown);
  ticks(1);
  EXPECT_EQ(effect.fadeMode, kFade);
}

TEST_P(ColorChange, AGridWithoutCellsCannotRunATransition) {
  startTransition(kNone, 1, 1);
  effect.fadeMode = kWipeUp;
  platform.failures.clear();
  v.matrixRows = 0;
  event([this] { colorChangeStep(engine, deck); });
  ASSERT_EQ(platform.failures.size(), 1U);
  EXPECT_EQ(platform.failures[0].number, kDivisionByZero);
}

TEST_P(ColorChange, AGridOfMoreThan32767CellsOverflowsTheTicksOfAShuffle) {
  startTransition(kNone, 1, 1);
  dimension(182, 181);
  effect.fadeMode = kRandomCells;
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

TEST_P(ColorChange, DuringAMasterFadeOnlyStepsLongEnoughLeaveRoomToMix) {
  for (const MixCase& row : {
           MixCase{kFade, 400, false},
           MixCase{kFade, 401, true},
           MixCase{kWipeUp, 400, false},
           MixCase{kWipeUp, 401, true},
           MixCase{kWipeDown, 400, false},
           MixCase{kWipeLeft, 400, false},
           MixCase{kWipeRight, 401, true},
           MixCase{kRandomCells, 200, false},
           MixCase{kRandomCells, 201, true},
           MixCase{kFillDown, 200, false},
           MixCase{kFillDown, 201, true},
           MixCase{kFillUpward, 200, false},
           MixCase{kFillUpward, 201, true},
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

TEST_P(ColorChange, ACutNeverMixesDuringAMasterFadeHoweverLongItsSteps) {
  startTransition(kNone, 1, 1);
  v.fadeRunning = true;
  engine.master.timerM.setInterval(5000);
  const Rgb before = v.frameM.at(0, 0);
  advance(1000);
  expectPicture(deck.frame, {"R"});
  EXPECT_EQ(v.frameM.at(0, 0), before);
}

TEST_P(ColorChange, ACellTickMixesThatCellAlone) {
  startTransition(kRandomCells, 3, 3);
  v.masterValue = isB() ? 1 : 0;
  deck.cellOrder.assign(10, 4);
  v.frameM = frameOf({"...", "...", "..."});
  ticks(1);
  expectPicture(v.frameM, {"...", ".G.", "..."});
}

}  // namespace
}  // namespace korvane
