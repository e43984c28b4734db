// The fades that bring deck B cell by cell or line by line.

#include "playback/TestMasterFade.h"

namespace korvane {
namespace {

class CellFade : public MasterFade {};

TEST_F(CellFade, FromTheExactMiddleACellWiseFadeHasItsWayToEitherSide) {
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

TEST_F(CellFade, RandomBringsEveryCellOnce) {
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

TEST_F(CellFade, FlowDownFillsEachColumnFromTheTop) {
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

TEST_F(CellFade, FillUpFillsEachColumnFromTheBottom) {
  size(1, 3);
  selectFade(kFillUp, 0.3);
  move(master.faderM, -100);
  click(master.AutoFadeB);
  advance(100);
  EXPECT_EQ(map(), ".\n.\nB\n");
  advance(100);
  EXPECT_EQ(map(), ".\nB\nB\n");
}

TEST_F(CellFade, FlowDownThatRunsOutOfCellsDoesNoHarm) {
  size(2, 2);
  selectFade(kFlowDown, 0.4);
  move(master.faderM, -100);
  click(master.AutoFadeB);
  v.fadeMap.fill(1.0F);
  advance(500);
  EXPECT_EQ(takeFailure(), 0);
  EXPECT_FALSE(v.fadeRunning);
}

TEST_F(CellFade, FillUpThatRunsOutOfCellsIsASubscriptFailure) {
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

}  // namespace
}  // namespace korvane
