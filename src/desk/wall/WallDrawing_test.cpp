#include "desk/wall/WallDrawing.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "desk/wall/Digits.h"
#include "desk/wall/WiringPlan.h"
#include "testing/Drawing.h"

namespace korvane {
namespace {

constexpr Color kRedFrame = rgb(220, 20, 30);
constexpr Color kWire = rgb(20, 60, 140);

Raster drawn(const Patch& patch, int width, int height, const LitLamps& lit = {}) {
  Raster picture(width, height);
  drawWall(picture, patch, lit);
  return picture;
}

int pixelsOf(const Raster& picture, Color color) {
  int count = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) count += picture.pixel(x, y) == color ? 1 : 0;
  }
  return count;
}

TEST(Digits, AreThreeByFiveDots) {
  Raster picture(11, 5);
  drawNumber(picture, 0, 0, 124, 1, rgb(255, 255, 255));
  expectPicture(picture, {".W..WWW.W.W",  //
                          "WW....W.W.W",  //
                          ".W..WWW.WWW",  //
                          ".W..W.....W",  //
                          "WWW.WWW...W"});
  EXPECT_EQ(widthOfNumber(124, 1), 11);
  EXPECT_EQ(widthOfNumber(124, 3), 33);
  EXPECT_EQ(widthOfNumber(0, 2), 6);
  EXPECT_EQ(heightOfNumber(3), 15);
}

TEST(WallDrawings, LampsAreTheLargestSquaresInTheMiddle) {
  const Patch patch(wire({.cols = 16, .rows = 9}));
  const WallGeometry at(patch, 330, 400);
  EXPECT_EQ(at.cell, 20);
  EXPECT_EQ(at.left, 5);
  EXPECT_EQ(at.top, 110);
  const Raster picture(330, 400);
  EXPECT_EQ(lampUnder(patch, picture, 5, 110), (LampAt{0, 0}));
  EXPECT_EQ(lampUnder(patch, picture, 324, 289), (LampAt{15, 8}));
  for (const auto& [x, y] : {std::pair{4, 110}, {5, 109}, {325, 120}, {50, 290}, {-1, -1}})
    EXPECT_FALSE(lampUnder(patch, picture, x, y)) << x << ", " << y;
}

TEST(WallDrawings, TheWireRunsFromLampToLamp) {
  const Raster snake = drawn(Patch(wire({.cols = 2, .rows = 2, .path = {.snake = true}})), 40, 40);
  for (int x = 10; x <= 30; ++x) EXPECT_EQ(snake.pixel(x, 15), kWire) << x;
  for (int y = 15; y <= 35; ++y) EXPECT_EQ(snake.pixel(30, y), kWire) << y;
  EXPECT_NE(snake.pixel(10, 25), kWire) << "the last lamp does not lead back";
}

TEST(WallDrawings, NumbersStandWhereThereIsRoom) {
  const Patch patch(wire({.cols = 2, .rows = 1}));
  const Raster picture = drawn(patch, 40, 20);
  const Color tone = picture.pixel(2, 18);
  // Digits begin three pixels from the corner.
  EXPECT_EQ(picture.pixel(23 + 0, 3), rgb(0, 0, 0)) << "the bar of the 2";
  EXPECT_EQ(picture.pixel(3 + 0, 3), tone) << "the 1 begins in its middle";
  EXPECT_EQ(picture.pixel(3 + 1, 3), rgb(0, 0, 0));
}

TEST(WallDrawings, ALampThatSharesAChannelHasARedFrame) {
  ChannelMap map = wire({.cols = 3, .rows = 1});
  map.set(2, 0, 0, 1);
  const Raster picture = drawn(Patch(map), 60, 20);
  EXPECT_EQ(picture.pixel(0, 10), kRedFrame);
  EXPECT_EQ(picture.pixel(40, 10), kRedFrame);
  EXPECT_NE(picture.pixel(20, 10), kRedFrame);
  EXPECT_EQ(pixelsOf(drawn(Patch(wire({.cols = 3, .rows = 1})), 60, 20), kRedFrame), 0);
}

TEST(WallDrawings, LampsThatStayDarkAreGreyWithACross) {
  constexpr Color kDark = rgb(110, 110, 110);
  ChannelMap map = wire({.cols = 3, .rows = 1});
  for (int component = 0; component < 3; ++component) {
    map.set(0, 0, component, 0);
    map.set(2, 0, component, 8193 + component);
  }
  const Raster picture = drawn(Patch(map), 60, 20);
  EXPECT_EQ(picture.pixel(5, 18), kDark);
  EXPECT_EQ(picture.pixel(45, 18), kDark);
  EXPECT_NE(picture.pixel(25, 18), kDark);
  EXPECT_EQ(picture.pixel(1, 1), rgb(60, 60, 60)) << "the cross begins in the corner";
}

TEST(WallDrawings, UniversesHaveTonesOfTheirOwn) {
  const Patch patch(
      wire({.cols = 16, .rows = 1, .fill = UniverseFill::Count, .lampsPerUniverse = 1}));
  const Raster picture = drawn(patch, 320, 20);
  std::vector<Color> tones;
  for (int col = 0; col < 16; ++col) tones.push_back(picture.pixel(col * 20 + 2, 17));
  std::sort(tones.begin(), tones.end());
  EXPECT_EQ(std::unique(tones.begin(), tones.end()), tones.end());
}

TEST(WallDrawings, LitLampsShineAndTheOthersStepBack) {
  const Patch patch(wire({.cols = 2, .rows = 1}));
  const Raster picture = drawn(patch, 40, 20, {{{1, 0}}, rgb(0, 255, 0)});
  EXPECT_EQ(picture.pixel(23, 17), rgb(0, 255, 0));
  EXPECT_EQ(picture.pixel(20, 0), rgb(255, 255, 255)) << "a white frame";
  EXPECT_EQ(picture.pixel(3, 17), rgb(70, 72, 78));
}

TEST(WallDrawings, AnySizeOfPictureAndWallCanBeDrawn) {
  for (const auto& [cols, rows] : {std::pair{1, 1}, {50, 50}, {50, 1}, {1, 50}}) {
    const Patch patch(wire({.cols = cols, .rows = rows}));
    for (const auto& [width, height] : {std::pair{0, 0}, {1, 1}, {30, 30}, {200, 7}, {900, 700}})
      EXPECT_EQ(drawn(patch, width, height).width(), width);
  }
  EXPECT_EQ(drawn(Patch(), 10, 10).pixel(5, 5), rgb(32, 34, 38));
  ChannelMap wide;
  wide.redim(3000, 2);
  EXPECT_EQ(drawn(Patch(wide), 100, 100).pixel(5, 5), rgb(32, 34, 38)) << "there is no room";
}

}  // namespace
}  // namespace korvane
