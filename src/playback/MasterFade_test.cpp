#include "playback/MasterFade.h"

#include "testing/TestPlugin.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

class MasterFade : public TestPlugin {
 protected:
  void SetUp() override { ASSERT_TRUE(open()); }

  /// Number of output passes since the last time.
  std::int64_t passes() {
    const Texts calls = takeCalls();
    return std::count(calls.begin(), calls.end(), "UserInteraction");
  }

  void selectFade(std::int16_t fadeType, double seconds) {
    v.efxX[0] = {fadeType, "fade", seconds, rgb(10, 20, 30)};
    pick(master.efxXList, 0);
  }
  void size(int cols, int rows) {
    resize(cols, rows);
    v.frameA.fill({1, 1, 1});
    v.frameB.fill({2, 2, 2});
  }
  /// The map as a picture: B where a cell shows deck B.
  std::string map() {
    std::string picture;
    for (int row = 0; row < v.matrixRows; ++row) {
      for (int col = 0; col < v.matrixCols; ++col)
        picture += v.fadeMap.at(col, row) == 1.0F ? 'B' : '.';
      picture += '\n';
    }
    return picture;
  }
  /// The mix as a picture: the red component as a digit.
  std::string mixed() {
    std::string picture;
    for (int row = 0; row < v.matrixRows; ++row) {
      for (int col = 0; col < v.matrixCols; ++col) {
        picture += static_cast<char>('0' + v.frameM.at(col, row)[0]);
      }
      picture += '\n';
    }
    return picture;
  }
};

TEST_F(MasterFade, TheSliderMovesTheMasterValueAndMixes) {
  move(master.faderM, 50);
  EXPECT_EQ(v.masterValue, 0.75);
  EXPECT_EQ(map().substr(0, 12), "BBBBBBBBBBBB");
  EXPECT_EQ(v.frameM.at(0, 0), (Rgb{63, 0, 191}));
  move(master.faderM, 0);
  EXPECT_EQ(map().substr(0, 12), "............");
}

TEST_F(MasterFade, TheCutButtonsSetTheSliderToItsEnds) {
  click(plugin.matrixForm.fadeB);
  EXPECT_EQ(master.faderM.value(), 100);
  EXPECT_EQ(v.frameM.at(0, 0), (Rgb{0, 0, 255}));
  click(plugin.matrixForm.fadeA);
  EXPECT_EQ(master.faderM.value(), -100);
  EXPECT_EQ(v.frameM.at(0, 0), (Rgb{255, 0, 0}));
}

TEST_F(MasterFade, AMovedSliderMixesOncePerChangeAndACutOnceMore) {
  plugin.matrixForm.active.setValue(1);
  takeCalls();
  move(master.faderM, 10);
  EXPECT_EQ(passes(), 1);
  move(master.faderM, 10);
  EXPECT_EQ(passes(), 0);
  click(plugin.matrixForm.fadeB);
  EXPECT_EQ(passes(), 2);
  click(plugin.matrixForm.fadeB);
  EXPECT_EQ(passes(), 1);
}

TEST_F(MasterFade, CrossFadeOfThreeSecondsTakesThirtyStepsOfAHundredMilliseconds) {
  move(master.faderM, -100);
  selectFade(kCrossFade, 3);
  click(master.AutoFadeB);
  EXPECT_EQ(v.fadeSteps, 30);
  EXPECT_EQ(v.fadeStep, 0);
  EXPECT_EQ(master.timerM.interval(), 100);
  EXPECT_EQ(master.timerM2.interval(), 50);
  EXPECT_TRUE(v.fadeRunning);
  EXPECT_EQ(master.AutoFadeB.backColor(), rgb(255, 240, 150));
  advance(3000);
  EXPECT_EQ(v.fadeStep, 30);
  EXPECT_TRUE(v.fadeRunning);
  advance(100);
  EXPECT_FALSE(v.fadeRunning);
  EXPECT_EQ(master.faderM.value(), 100);
  EXPECT_EQ(v.masterValue, 1);
  EXPECT_FALSE(master.timerM.enabled());
  EXPECT_FALSE(master.timerM2.enabled());
  EXPECT_EQ(master.AutoFadeB.backColor(), rgb(220, 220, 220));
  EXPECT_EQ(v.frameM.at(0, 0), (Rgb{0, 0, 255}));
}

TEST_F(MasterFade, AFadeStartsWhereTheSliderStands) {
  selectFade(kCrossFade, 3);
  move(master.faderM, 0);
  click(master.AutoFadeB);
  EXPECT_EQ(v.fadeStep, 15);
}

TEST_F(MasterFade, AFadeToTheLeftStartsWhereTheSliderStandsToo) {
  selectFade(kCrossFade, 3);
  move(master.faderM, 50);
  click(master.AutoFadeA);
  EXPECT_EQ(v.fadeStep, 8);  // 30 - Int(150 x 30 / 200)
  EXPECT_EQ(v.fadeDirection, -1);
}

TEST_F(MasterFade, TheStartIsReckonedWithTheStepsOfTheFadeBefore) {
  selectFade(kCrossFade, 3);
  move(master.faderM, 0);
  selectFade(kCrossFade, 4);
  click(master.AutoFadeB);
  EXPECT_EQ(v.fadeSteps, 50);
  EXPECT_EQ(v.fadeStep, 15);
}

TEST_F(MasterFade, StepsAndIntervalsFollowTheTime) {
  struct Row {
    double seconds;
    int steps, interval;
  };
  for (const Row& row :
       {Row{1, 10, 100}, Row{1.5, 30, 50}, Row{3, 30, 100}, Row{4, 50, 80}, Row{800, 50, 16000}}) {
    move(master.faderM, -100);
    selectFade(kCrossFade, row.seconds);
    click(master.AutoFadeB);
    EXPECT_EQ(v.fadeSteps, row.steps) << row.seconds;
    EXPECT_EQ(master.timerM.interval(), row.interval) << row.seconds;
    v.fadeRunning = false;
    master.timerM.disable();
  }
}

TEST_F(MasterFade, ARunningFadeCanNeitherBeRestartedNorTurnedRound) {
  move(master.faderM, -100);
  selectFade(kCrossFade, 3);
  click(master.AutoFadeB);
  advance(500);
  const std::int32_t step = v.fadeStep;
  click(master.AutoFadeA);
  click(master.AutoFadeB);
  EXPECT_EQ(v.fadeStep, step);
  EXPECT_EQ(v.fadeDirection, 1);
  EXPECT_NE(master.AutoFadeA.backColor(), rgb(255, 240, 150));
}

TEST_F(MasterFade, TheSliderShowsTheFadeAndItsMirrorImageOnTheWayBack) {
  move(master.faderM, -100);
  selectFade(kCrossFade, 3);
  click(master.AutoFadeB);
  advance(1000);
  EXPECT_EQ(master.faderM.value(), -34);  // Int(10 x 200 / 30 - 100)
  advance(2200);
  click(master.AutoFadeA);
  advance(1000);
  EXPECT_EQ(master.faderM.value(), 34);
}

TEST_F(MasterFade, OnlyTheRefreshTimerMixesDuringAFadeOfShortSteps) {
  move(master.faderM, -100);
  selectFade(kCrossFade, 3);
  plugin.matrixForm.active.setValue(1);
  click(master.AutoFadeB);
  takeCalls();
  advance(1000);
  EXPECT_EQ(passes(), 20);
}

TEST_F(MasterFade, AFadeOfLongStepsMixesAtItsStepsToo) {
  move(master.faderM, -100);
  selectFade(kCrossFade, 50);
  plugin.matrixForm.active.setValue(1);
  click(master.AutoFadeB);
  takeCalls();
  advance(1000);
  EXPECT_EQ(passes(), 21);
}

TEST_F(MasterFade, TheEndOfAFadeMixesOnceMoreAndThenAllIsStill) {
  move(master.faderM, -100);
  selectFade(kCrossFade, 3);
  plugin.matrixForm.active.setValue(1);
  click(master.AutoFadeB);
  advance(3050);
  takeCalls();
  advance(50);
  EXPECT_EQ(passes(), 2);  // the last refresh, and the end
  advance(1000);
  EXPECT_EQ(passes(), 0);
}

TEST_F(MasterFade, AStartBeyondTheStepsOfTheNewFadeEndsAtTheFirstTick) {
  selectFade(kCrossFade, 4);
  click(master.AutoFadeA);
  advance(10000);
  EXPECT_EQ(v.fadeSteps, 50);
  move(master.faderM, 0);
  selectFade(kCrossFade, 1);
  click(master.AutoFadeB);
  EXPECT_EQ(v.fadeStep, 25);  // of 10
  advance(100);
  EXPECT_FALSE(v.fadeRunning);
  EXPECT_EQ(v.masterValue, 1);
  EXPECT_EQ(takeFailure(), 0);
}

TEST_F(MasterFade, RandomTowardsBFromBEndsAtTheFirstTick) {
  selectFade(kRandom, 3);
  move(master.faderM, 100);
  click(master.AutoFadeB);
  EXPECT_EQ(v.fadeStep, v.fadeSteps);
  EXPECT_EQ(v.fadeSteps, 144);
  advance(20);
  EXPECT_FALSE(v.fadeRunning);
}

TEST_F(MasterFade, FromTheExactMiddleACellWiseFadeHasItsWayToEitherSide) {
  for (std::int16_t type = kRandom; type <= kScrollRight; ++type) {
    for (Button* button : {&master.AutoFadeA, &master.AutoFadeB}) {
      move(master.faderM, 0);
      selectFade(type, 3);
      click(*button);
      EXPECT_TRUE(v.fadeRunning);
      EXPECT_EQ(v.fadeStep, 0) << kFadeTypeNames[static_cast<std::size_t>(type)];
    }
  }
}

TEST_F(MasterFade, RandomBringsEveryCellOnce) {
  size(4, 3);
  selectFade(kRandom, 1.2);
  move(master.faderM, -100);
  click(master.AutoFadeB);
  EXPECT_EQ(master.timerM.interval(), 100);
  for (int step = 1; step <= 12; ++step) {
    advance(100);
    const std::string now = map();
    EXPECT_EQ(std::count(now.begin(), now.end(), 'B'), step);
    const std::string picture = mixed();
    EXPECT_EQ(std::count(picture.begin(), picture.end(), '2'), step);
  }
}

TEST_F(MasterFade, FlowDownFillsEachColumnFromTheTop) {
  size(2, 2);
  selectFade(kFlowDown, 0.4);
  move(master.faderM, -100);
  click(master.AutoFadeB);
  std::vector<int> order(v.fadeOrder.begin(), v.fadeOrder.end() - 1);
  for (int& cell : order) cell /= 2;
  EXPECT_EQ(std::count(order.begin(), order.end(), 0), 2);
  EXPECT_EQ(std::count(order.begin(), order.end(), 1), 2);
  for (int step = 0; step < 4; ++step) {
    advance(100);
    const int col = order[static_cast<std::size_t>(step)];
    EXPECT_EQ(v.fadeMap.at(col, 0), 1.0F);
    EXPECT_LE(v.fadeMap.at(0, 1), v.fadeMap.at(0, 0));
    EXPECT_LE(v.fadeMap.at(1, 1), v.fadeMap.at(1, 0));
  }
  EXPECT_EQ(map(), "BB\nBB\n");
}

TEST_F(MasterFade, FillUpFillsEachColumnFromTheBottom) {
  size(1, 3);
  selectFade(kFillUp, 0.3);
  move(master.faderM, -100);
  click(master.AutoFadeB);
  advance(100);
  EXPECT_EQ(map(), ".\n.\nB\n");
  advance(100);
  EXPECT_EQ(map(), ".\nB\nB\n");
}

TEST_F(MasterFade, FlowDownThatRunsOutOfCellsDoesNoHarm) {
  size(2, 2);
  selectFade(kFlowDown, 0.4);
  move(master.faderM, -100);
  click(master.AutoFadeB);
  v.fadeMap.fill(1.0F);
  advance(500);
  EXPECT_EQ(takeFailure(), 0);
  EXPECT_FALSE(v.fadeRunning);
}

TEST_F(MasterFade, FillUpThatRunsOutOfCellsIsASubscriptFailure) {
  size(2, 2);
  selectFade(kFillUp, 0.4);
  move(master.faderM, -100);
  click(master.AutoFadeB);
  v.fadeMap.fill(1.0F);
  advance(100);
  EXPECT_EQ(takeFailure(), kSubscript);
  EXPECT_TRUE(move(master.faderM, 3));
}

// One step of a sweep over a 3 by 3 grid whose deck B holds its row number (Scroll Up and Down) or
// its column number (Left and Right) plus 2. The mirrored sweeps bring the line from the opposite
// side.
struct Sweep {
  std::int16_t type;
  const char* afterOne;
  const char* map;
};

class Sweeps : public MasterFade {};

TEST_F(Sweeps, BringOneLineAStep) {
  const std::vector<Sweep> sweeps = {{kScrollUp, "111\n111\n222\n", "...\n...\nBBB\n"},
                                     {kScrollDown, "222\n111\n111\n", "BBB\n...\n...\n"},
                                     {kScrollLeft, "112\n112\n112\n", "..B\n..B\n..B\n"},
                                     {kScrollRight, "211\n211\n211\n", "B..\nB..\nB..\n"}};
  size(3, 3);
  for (const Sweep& sweep : sweeps) {
    const bool byRow = sweep.type <= kScrollDown;
    for (int col = 0; col < 3; ++col) {
      for (int row = 0; row < 3; ++row) {
        v.frameB.at(col, row).fill(static_cast<std::uint8_t>((byRow ? row : col) + 2));
      }
    }
    selectFade(sweep.type, 3);
    move(master.faderM, -100);
    click(master.AutoFadeB);
    EXPECT_EQ(v.fadeSteps, 3);
    master.timerM2.disable();
    advance(1000);
    EXPECT_EQ(map(), sweep.map) << sweep.type;
    // The step of 1000 ms lets the slider mix, and that replaces the mirrored line: show the step
    // alone.
    v.fadeStep = 0;
    resetFadeMap(engine);
    v.frameM.fill({1, 1, 1});
    v.fadeRunning = true;
    master.timerM.setInterval(100);
    move(master.faderM, -99);
    advance(100);
    EXPECT_EQ(mixed(), sweep.afterOne) << sweep.type;
    v.fadeRunning = false;
    master.timerM.disable();
  }
}

TEST_F(Sweeps, EndAtTheFirstTickWhereThereIsNothingToDo) {
  selectFade(kScrollUp, 3);
  move(master.faderM, 20);
  click(master.AutoFadeB);
  EXPECT_EQ(v.fadeStep, v.fadeSteps);
}

TEST_F(MasterFade, SelectingAFadeBreaksOffARunningOneAndLeavesSliderColourAndRefresh) {
  move(master.faderM, -100);
  selectFade(kCrossFade, 3);
  click(master.AutoFadeB);
  advance(1000);
  const int slider = master.faderM.value();
  pick(master.efxXList, 0);
  EXPECT_FALSE(v.fadeRunning);
  EXPECT_FALSE(master.timerM.enabled());
  EXPECT_TRUE(master.timerM2.enabled());
  EXPECT_EQ(master.faderM.value(), slider);
  EXPECT_EQ(master.AutoFadeB.backColor(), rgb(255, 240, 150));
}

TEST_F(MasterFade, ChoosingATypeBreaksOffARunningFade) {
  move(master.faderM, -100);
  selectFade(kCrossFade, 3);
  click(master.AutoFadeB);
  choose(master.fadeType, kAdd);
  EXPECT_FALSE(v.fadeRunning);
  EXPECT_EQ(v.efxX[0].type, kAdd);
  EXPECT_EQ(v.fadeTypeNow, kAdd);
}

TEST_F(MasterFade, AStartedFadeOverridesTheChosenFrameRate) {
  choose(master.fps, 5);
  EXPECT_EQ(master.timerM2.interval(), 33);
  click(master.AutoFadeB);
  EXPECT_EQ(master.timerM2.interval(), 50);
}

// The timer counts whole milliseconds; a fade with more steps than these takes one for each.
TEST_F(MasterFade, AFadeOfNoTimeOrOfManyStepsEnds) {
  struct Case {
    std::int16_t type;
    double seconds;
    int side;
  };
  for (const Case& row : {Case{kCrossFade, 0, 12}, Case{kAdd, 0.001, 12}, Case{kRandom, 0.1, 12},
                          Case{kFillUp, 2.4, 50}, Case{kScrollLeft, 0, 50}}) {
    size(row.side, row.side);
    click(plugin.matrixForm.fadeA);
    selectFade(row.type, row.seconds);
    click(master.AutoFadeB);
    EXPECT_EQ(master.timerM.interval(), 1) << row.type;
    advance(v.fadeSteps);
    EXPECT_TRUE(v.fadeRunning) << row.type;
    advance(1);
    EXPECT_FALSE(v.fadeRunning) << row.type;
    EXPECT_EQ(master.faderM.value(), 100) << row.type;
  }
}

}  // namespace
}  // namespace korvane
