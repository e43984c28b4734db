#include "platform/PictureBox.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "testing/Drawing.h"

namespace korvane {
namespace {

class PictureBoxTest : public testing::Test {
 protected:
  PictureBoxTest() {
    const auto pointer = [this](const std::string& event) {
      return [this, event](int x, int y) {
        events.push_back(event + " " + std::to_string(x) + " " + std::to_string(y) +
                         (box.buttonHeld() ? " held" : ""));
      };
    };
    const auto plain = [this](const std::string& event) {
      return [this, event] { events.push_back(event); };
    };
    box.onMouseDown = pointer("down");
    box.onMouseMove = pointer("move");
    box.onMouseUp = pointer("up");
    box.onClick = plain("click");
    box.onDblClick = plain("dblclick");
    box.onResize = plain("resize");
    box.onPixels = [this](int x1, int y1, int x2, int y2) {
      events.push_back("pixels " + std::to_string(x1) + " " + std::to_string(y1) + " " +
                       std::to_string(x2) + " " + std::to_string(y2));
    };
  }

  PictureBox box{"box", {4, 3}, {}, kBlue};
  std::vector<std::string> events;
};

using Events = std::vector<std::string>;

TEST_F(PictureBoxTest, StartsInItsBackgroundColour) {
  expectPicture(box.raster(), {"BBBB", "BBBB", "BBBB"});
  EXPECT_EQ(box.sizing(), PictureBox::Sizing::Square);
}

TEST_F(PictureBoxTest, AnotherSizeClearsAndIsAnEvent) {
  box.fillRect(0, 0, 3, 2, kRed);
  events.clear();
  box.resize(2, 1);
  expectPicture(box.raster(), {"BB"});
  EXPECT_EQ(events, Events{"resize"});
}

TEST_F(PictureBoxTest, TheSameSizeKeepsThePictureAndIsNoEvent) {
  box.setPixel(0, 0, kRed);
  events.clear();
  box.resize(4, 3);
  expectPicture(box.raster(), {"RBBB", "BBBB", "BBBB"});
  EXPECT_EQ(events, Events{});
}

TEST_F(PictureBoxTest, AnotherPictureIsNoResizeEvent) {
  box.setRaster(Raster(2, 2, kRed));
  expectPicture(box.raster(), {"RR", "RR"});
  EXPECT_EQ(events, Events{"pixels 0 0 1 1"});
}

TEST_F(PictureBoxTest, DrawingTellsTheViewWhichPixelsChanged) {
  box.fillRect(1, 1, 2, 2, kRed);
  box.drawRect(0, 0, 3, 2, kRed);
  box.setPixel(3, 1, kRed);
  box.clear();
  box.canvas().fill(kRed);
  box.touched();
  EXPECT_EQ(events, (Events{"pixels 1 1 2 2", "pixels 0 0 3 2", "pixels 3 1 3 1", "pixels 0 0 3 2",
                            "pixels 0 0 3 2"}));
}

TEST_F(PictureBoxTest, TheViewGetsTheUpperLeftCornerFirst) {
  box.fillRect(3, 2, 1, 0, kRed);
  EXPECT_EQ(events, Events{"pixels 1 0 3 2"});
}

TEST_F(PictureBoxTest, OverlaidLinesAreNoPixels) {
  box.setOverlay({{3, 2, 1, 0, kRed}});
  expectPicture(box.raster(), {"BBBB", "BBBB", "BBBB"});
  EXPECT_EQ(events, Events{"pixels 1 0 3 2"});
  box.setOverlay({{3, 2, 1, 0, kRed}});  // the same again
  EXPECT_EQ(events.size(), 1U);
  box.setOverlay({{0, 0, 0, 2, kRed}});
  EXPECT_EQ(events, (Events{"pixels 1 0 3 2", "pixels 1 0 3 2", "pixels 0 0 0 2"}));
  box.setOverlay({});
  EXPECT_TRUE(box.overlay().empty());
  EXPECT_EQ(events.back(), "pixels 0 0 0 2");
}

TEST_F(PictureBoxTest, PointerEventsCarryThePlaceAndTheButton) {
  box.mouse(PictureBox::Mouse::Move, 1, 2);
  box.mouse(PictureBox::Mouse::Down, 1, 2);
  box.mouse(PictureBox::Mouse::Move, 3, 2);
  box.mouse(PictureBox::Mouse::Up, 3, 2);
  box.mouse(PictureBox::Mouse::Click, 3, 2);
  box.mouse(PictureBox::Mouse::DblClick, 3, 2);
  EXPECT_EQ(events,
            (Events{"move 1 2", "down 1 2 held", "move 3 2 held", "up 3 2", "click", "dblclick"}));
}

TEST_F(PictureBoxTest, ABoxWithoutHandlersTakesEverything) {
  PictureBox plain("plain", {1, 1});
  for (const auto event : {PictureBox::Mouse::Down, PictureBox::Mouse::Click})
    plain.mouse(event, 0, 0);
  plain.resize(2, 2);
  plain.clear();
  EXPECT_TRUE(plain.buttonHeld());
}

class Pointing : public PictureBoxTest {
 protected:
  Events take() { return std::exchange(events, {}); }

  int passed = 0;
  Gate gate = [this](const std::function<void()>& event) {
    ++passed;
    event();
  };
};

TEST_F(Pointing, APressAndItsReleaseAreAClickIfTheReleaseIsInside) {
  box.press(1, 2, gate);
  box.release(1, 1, true, gate);
  EXPECT_EQ(take(), (Events{"down 1 2 held", "up 1 1", "click"}));
  EXPECT_EQ(passed, 3) << "each is an event by itself";
  box.press(1, 2, gate);
  box.release(9, 9, false, gate);
  EXPECT_EQ(take(), (Events{"down 1 2 held", "up 9 9"}));
}

TEST_F(Pointing, TheSecondPressOfADoubleClickIsNoSecondClick) {
  box.press(1, 2, gate);
  box.release(1, 2, true, gate);
  take();
  box.twice(1, 2, gate);
  box.release(1, 2, true, gate);
  EXPECT_EQ(take(), (Events{"down 1 2 held", "dblclick", "up 1 2"}));
  box.release(1, 2, true, gate);
  EXPECT_EQ(take(), Events{"up 1 2"}) << "a release without a press";
}

TEST_F(Pointing, AReleaseThatWentElsewhereIsMadeUpForAtTheNextMove) {
  box.press(1, 2, gate);
  box.move(2, 2, true, gate);
  EXPECT_EQ(take(), (Events{"down 1 2 held", "move 2 2 held"}));
  box.move(3, 2, false, gate);
  box.move(3, 1, false, gate);
  EXPECT_EQ(take(), (Events{"up 3 2", "move 3 2", "move 3 1"}));
}

TEST_F(Pointing, LeavingIsToldUnlessTheButtonIsHeld) {
  box.leave(gate);
  EXPECT_EQ(take(), Events{"move -1 -1"});
  box.press(1, 2, gate);
  take();
  box.leave(gate);
  EXPECT_EQ(take(), Events{});
}

TEST_F(Pointing, AFailingPressDoesNotKeepTheDoubleClickBack) {
  box.onMouseDown = [](int, int) { throw 1; };
  gate = [](const std::function<void()>& event) {
    try {
      event();
    } catch (int) {
    }
  };
  box.twice(1, 2, gate);
  EXPECT_EQ(take(), Events{"dblclick"});
}

class DrawnSquares : public PictureBoxTest {
 protected:
  static Squares twoOf(Color left, Color right) { return {0, 1, {{0, 0, left}, {2, 0, right}}}; }
};

TEST_F(DrawnSquares, AreInThePixelsForWhoeverLooks) {
  box.draw(twoOf(kRed, kGreen));
  box.draw(twoOf(kGreen, kRed));
  EXPECT_EQ(events, (Events{"pixels 0 0 3 2", "pixels 0 0 3 2"}));
  expectPicture(box.raster(), {"GBRB", "GBRB", "BBBB"});
}

TEST_F(DrawnSquares, ThatAreElsewhereLieOverThoseBefore) {
  box.draw(twoOf(kRed, kGreen));
  box.draw({1, 0, {{2, 1, kRed}}});
  expectPicture(box.raster(), {"RBGB", "RBRR", "BBBB"});
  box.draw({1, 0, {}});
  expectPicture(box.raster(), {"RBGB", "RBRR", "BBBB"});
}

TEST_F(DrawnSquares, LieUnderWhatIsDrawnLater) {
  box.draw(twoOf(kRed, kGreen));
  box.setPixel(0, 0, kGreen);
  expectPicture(box.raster(), {"GBGB", "RBGB", "BBBB"});
  box.draw(twoOf(kRed, kGreen));
  box.canvas().setPixel(2, 1, kRed);
  expectPicture(box.raster(), {"RBGB", "RBRB", "BBBB"});
}

TEST_F(DrawnSquares, AreDrawnAnewOneByOne) {
  box.draw(twoOf(kRed, kGreen));
  events.clear();
  box.draw(1, 0, 1, {2, 0, kRed});
  EXPECT_EQ(events, Events{"pixels 2 0 2 1"});
  expectPicture(box.raster(), {"RBRB", "RBRB", "BBBB"});
  box.draw(0, 0, 1, {0, 0, kGreen});
  expectPicture(box.raster(), {"GBRB", "GBRB", "BBBB"});
}

TEST_F(DrawnSquares, ThatAreNoneOfThoseLieOverThem) {
  box.draw(twoOf(kRed, kGreen));
  box.draw(1, 0, 1, {1, 0, kRed});
  expectPicture(box.raster(), {"RRGB", "RRGB", "BBBB"});
  box.draw(twoOf(kRed, kGreen));
  box.draw(1, 1, 1, {2, 0, kRed});
  expectPicture(box.raster(), {"RRRR", "RRRR", "BBBB"});
  box.draw(twoOf(kRed, kGreen));
  box.draw(2, 0, 1, {3, 1, kGreen});
  expectPicture(box.raster(), {"RRGR", "RRGG", "BBBG"});
}

// A grid of more lamps than pixels has squares from a pixel to the one before it.
TEST_F(DrawnSquares, ThatLieOverEachOtherStayInTheOrderInWhichTheyAreDrawn) {
  const Squares narrow{-1, 0, {{1, 0, kRed}, {2, 0, kGreen}}};
  box.draw(narrow);
  expectPicture(box.raster(), {"RGGB", "BBBB", "BBBB"});
  box.draw(0, -1, 0, {1, 0, kRed});
  expectPicture(box.raster(), {"RRGB", "BBBB", "BBBB"});
}

TEST_F(DrawnSquares, GoWithTheRestWhenTheBoxIsClearedOrGetsAnotherSizeOrPicture) {
  box.draw(twoOf(kRed, kGreen));
  box.clear();
  expectPicture(box.raster(), {"BBBB", "BBBB", "BBBB"});
  box.draw(twoOf(kRed, kGreen));
  box.resize(3, 1);
  expectPicture(box.raster(), {"BBB"});
  box.draw(twoOf(kRed, kGreen));
  box.setRaster(Raster(3, 1, kGreen));
  expectPicture(box.raster(), {"GGG"});
}

TEST_F(DrawnSquares, AreToldToAViewThatDrawsThemUnlessTheyAreTheSame) {
  box.onSquares = [this](int x1, int y1, int x2, int y2) {
    events.push_back("squares " + std::to_string(x1) + " " + std::to_string(y1) + " " +
                     std::to_string(x2) + " " + std::to_string(y2));
  };
  box.draw(twoOf(kRed, kGreen));
  box.draw(twoOf(kRed, kGreen));
  EXPECT_EQ(events, Events{"squares 0 0 3 2"});
  EXPECT_EQ(box.squares(), twoOf(kRed, kGreen));
  box.draw(1, 0, 1, {2, 0, kBlue});
  box.draw(1, 0, 1, {2, 0, kBlue});
  EXPECT_EQ(events, (Events{"squares 0 0 3 2", "squares 2 0 2 1"}));
  EXPECT_EQ(box.squares(), twoOf(kRed, kBlue));
  events.clear();
  box.setPixel(0, 0, kGreen);
  EXPECT_EQ(events, (Events{"pixels 0 0 3 2", "pixels 0 0 0 0"}));
  EXPECT_TRUE(box.squares().list.empty());
}

TEST_F(DrawnSquares, AreLeftOutOfABoxThatStaysBlank) {
  box.leaveBlank();
  box.draw(twoOf(kRed, kGreen));
  box.draw(0, 0, 1, {0, 0, kRed});
  EXPECT_TRUE(events.empty());
  expectPicture(box.raster(), {"BBBB", "BBBB", "BBBB"});
}

}  // namespace
}  // namespace korvane
