#include "windows/MxSimForm.h"

#include <array>

#include "output/MatrixCode.h"
#include "testing/TestPlugin.h"

namespace korvane {
namespace {

constexpr int kEscape = 27;
constexpr int kSpace = 32;

class SimWindow : public TestPlugin {
 protected:
  void SetUp() override { ASSERT_TRUE(open()); }

  void show(bool on = true) {
    event([&] { plugin.matrixForm.mxsim_active.setValue(on ? 1 : 0); });
  }
  void key(int code) {
    event([&] { sim.onKeyPress(code); });
  }
  void size(int width, int height) {
    event([&] { engine.sim.resize(width, height); });
  }
  Color pixel(int x, int y) const { return engine.sim.raster().pixel(x, y); }

  MxSimForm& sim = plugin.mxSimForm;
};

TEST_F(SimWindow, HasItsTitleAndNoControls) {
  EXPECT_EQ(sim.caption(), "MxSim - toggle ViewMode with <space>, close with <ESC>");
  EXPECT_TRUE(sim.controls().empty());
  EXPECT_EQ(sim.surface, &engine.sim);
}

TEST_F(SimWindow, AWidthOf130Has12ColumnsOf10BehindAMarginOf5) {
  show();
  size(130, 370);
  EXPECT_EQ(v.simCellW, 10);
  EXPECT_EQ(v.simLeft, 5);
  EXPECT_EQ(v.simCellH, 30);
  EXPECT_EQ(v.simTop, 5);
}

TEST_F(SimWindow, AWidthOf135LeavesAMarginOf7) {
  show();
  size(135, 130);
  EXPECT_EQ(v.simCellW, 10);
  EXPECT_EQ(v.simLeft, 7);
}

TEST_F(SimWindow, DrawsBoxesWithAGapOnBlack) {
  v.frameA.fill({10, 20, 30});
  show();
  event([&] { plugin.matrixForm.fadeA.click(); });
  size(130, 130);
  const Color lamp = rgb(10, 20, 30);
  EXPECT_EQ(pixel(4, 5), 0);
  EXPECT_EQ(pixel(5, 5), lamp);
  EXPECT_EQ(pixel(13, 13), lamp);
  EXPECT_EQ(pixel(14, 5), 0);
  EXPECT_EQ(pixel(15, 5), lamp);
  EXPECT_EQ(pixel(123, 123), lamp);
  EXPECT_EQ(pixel(124, 124), 0);
}

TEST_F(SimWindow, ACheckPaintsAtOnceWithTheGeometryOfTheLastResize) {
  show();
  size(130, 130);
  show(false);
  v.frameM.fill({1, 2, 3});
  EXPECT_NE(pixel(5, 5), rgb(1, 2, 3));
  show();
  EXPECT_EQ(pixel(5, 5), rgb(1, 2, 3));
  EXPECT_EQ(v.simCellW, 10);
}

TEST_F(SimWindow, FollowsTheMix) {
  show();
  v.frameB.fill({0, 200, 0});
  event([&] { plugin.matrixForm.fadeB.click(); });
  EXPECT_EQ(pixel(v.simLeft, v.simTop), rgb(0, 200, 0));
}

TEST_F(SimWindow, ASingleLampRepaintsASingleBox) {
  show();
  size(130, 130);
  std::vector<std::array<int, 4>> painted;
  engine.sim.onPixels = [&](int x1, int y1, int x2, int y2) {
    painted.push_back({x1, y1, x2, y2});
  };
  simDrawCell(engine, 2, 1);
  EXPECT_EQ(painted, (std::vector<std::array<int, 4>>{{25, 15, 33, 23}}));
}

TEST_F(SimWindow, ASmallWindowShowsNothingUsefulAndDoesNotFail) {
  show();
  size(5, 5);
  EXPECT_EQ(v.simCellW, 0);
  size(1, 1);
  EXPECT_EQ(takeFailure(), 0);
}

TEST_F(SimWindow, KeepsItsGeometryWhenTheGridChangesUntilTheNextResize) {
  show();
  size(130, 130);
  resize(6, 6);
  EXPECT_EQ(v.simCellW, 10);
  size(131, 130);
  EXPECT_EQ(v.simCellW, 20);
}

TEST_F(SimWindow, SpaceTwiceReturnsToTheFrame) {
  show();
  size(130, 130);
  v.simCellW = 1;  // each press reckons the geometry anew
  key(kSpace);
  EXPECT_FALSE(sim.framed);
  EXPECT_TRUE(sim.maximized);
  EXPECT_TRUE(v.simOpen);
  EXPECT_EQ(v.simCellW, 10);
  v.simCellW = 1;
  key(kSpace);
  EXPECT_TRUE(sim.framed);
  EXPECT_FALSE(sim.maximized);
  EXPECT_FALSE(v.simOpen);
  EXPECT_EQ(v.simCellW, 10);
}

TEST_F(SimWindow, ToggleCaptionAnswersThatTheStyleWasTaken) {
  EXPECT_TRUE(sim.ToggleCaption(false));
  EXPECT_FALSE(sim.framed);
  EXPECT_TRUE(sim.ToggleCaption(true));
  EXPECT_TRUE(sim.framed);
}

TEST_F(SimWindow, EscapeUnchecksTheBoxAndHidesInBothModes) {
  for (const bool fullScreen : {false, true}) {
    show();
    if (fullScreen) key(kSpace);
    key(kEscape);
    EXPECT_FALSE(sim.visible());
    EXPECT_FALSE(plugin.matrixForm.mxsim_active.checked());
    EXPECT_FALSE(v.simActive);
    EXPECT_EQ(bool(v.simOpen), fullScreen);
  }
}

TEST_F(SimWindow, ComesBackInTheModeInWhichItWasHidden) {
  show();
  key(kSpace);
  key(kEscape);
  show();
  EXPECT_FALSE(sim.framed);
  EXPECT_TRUE(sim.maximized);
}

TEST_F(SimWindow, OtherKeysDoNothing) {
  show();
  key(13);
  key('a');
  EXPECT_TRUE(sim.visible());
  EXPECT_FALSE(v.simOpen);
}

TEST_F(SimWindow, TheFramesCloseButtonLeavesTheBoxChecked) {
  show();
  event([&] { engine.desktop.close(sim); });
  EXPECT_FALSE(sim.visible());
  EXPECT_TRUE(plugin.matrixForm.mxsim_active.checked());
  EXPECT_TRUE(v.simActive);
  event([&] { plugin.matrixForm.fadeB.click(); });
  EXPECT_EQ(takeFailure(), 0);
}

TEST_F(SimWindow, ClosingAllUnchecksTheBoxAndHides) {
  show();
  click(plugin.matrixForm.Closeall);
  EXPECT_FALSE(sim.visible());
  EXPECT_FALSE(v.simActive);
}

TEST_F(SimWindow, ResizingLeavesRunningTimersRunningAndCountsAnew) {
  show();
  v.A.timer1.setInterval(100);
  v.A.timer1.enable();
  int ticks = 0;
  v.A.timer1.onTimer = [&] { ++ticks; };
  advance(60);
  size(200, 200);
  advance(60);
  EXPECT_EQ(ticks, 0);
  advance(40);
  EXPECT_EQ(ticks, 1);
  EXPECT_FALSE(v.B.timer1.enabled());
}

}  // namespace
}  // namespace korvane
