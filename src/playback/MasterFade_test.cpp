#include "playback/TestMasterFade.h"

namespace korvane {
namespace {

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
