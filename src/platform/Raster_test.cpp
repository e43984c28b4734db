#include "platform/Raster.h"

#include <gtest/gtest.h>

#include <limits>

#include "testing/Drawing.h"

namespace korvane {
namespace {

Raster filled(int x1, int y1, int x2, int y2) {
  Raster raster(5, 4);
  raster.fillRect(x1, y1, x2, y2, kRed);
  return raster;
}

TEST(Raster, StartsInOneColour) {
  expectPicture(Raster(2, 2, kBlue), {"BB", "BB"});
  const Raster nothing(-3, 2);
  EXPECT_EQ(nothing.width(), 0);
  EXPECT_EQ(nothing.pixel(0, 0), -1);
}

TEST(Raster, ARectangleHoldsBothCorners) {
  expectPicture(filled(1, 1, 3, 2), {".....",  //
                                     ".RRR.",  //
                                     ".RRR.",  //
                                     "....."});
}

TEST(Raster, ARectanglesCornersComeInAnyOrder) {
  const Raster wanted = filled(1, 1, 3, 2);
  EXPECT_EQ(filled(3, 2, 1, 1), wanted);
  EXPECT_EQ(filled(3, 1, 1, 2), wanted);
  EXPECT_EQ(filled(1, 2, 3, 1), wanted);
}

TEST(Raster, ARectangleOfOnePixel) {
  expectPicture(filled(4, 3, 4, 3), {".....", ".....", ".....", "....R"});
}

TEST(Raster, RectanglesAreClipped) {
  constexpr int kFar = std::numeric_limits<int>::max();
  expectPicture(filled(-2, -2, 1, 0), {"RR...", ".....", ".....", "....."});
  expectPicture(filled(3, 2, 9, 9), {".....", ".....", "...RR", "...RR"});
  expectPicture(filled(-kFar, -kFar, kFar, kFar), {"RRRRR", "RRRRR", "RRRRR", "RRRRR"});
  const Raster untouched(5, 4);
  EXPECT_EQ(filled(-3, 0, -1, 3), untouched);
  EXPECT_EQ(filled(5, 0, 9, 3), untouched);
  EXPECT_EQ(filled(0, -3, 4, -1), untouched);
  EXPECT_EQ(filled(0, 4, 4, 9), untouched);
}

TEST(Raster, AnOutlineHasTheSameCorners) {
  Raster raster(5, 4);
  raster.drawRect(4, 3, 1, 0, kRed);
  expectPicture(raster, {".RRRR",  //
                         ".R..R",  //
                         ".R..R",  //
                         ".RRRR"});
}

TEST(Raster, AnOutlineIsClippedAndNotMovedToTheEdge) {
  Raster raster(3, 3);
  raster.drawRect(-1, 1, 1, 5, kRed);
  expectPicture(raster, {"...", "RR.", ".R."});
}

TEST(Raster, PixelsOutsideReadAsMinusOneAndTakeNothing) {
  Raster raster(2, 2, kBlue);
  for (const auto& [x, y] : {std::pair(-1, 0), {0, -1}, {2, 0}, {0, 2}}) {
    raster.setPixel(x, y, kRed);
    EXPECT_EQ(raster.pixel(x, y), -1);
  }
  expectPicture(raster, {"BB", "BB"});
}

TEST(Raster, PixelsAndFilling) {
  Raster raster(2, 2);
  raster.setPixel(1, 0, kRed);
  EXPECT_EQ(raster.pixel(1, 0), kRed);
  EXPECT_EQ(raster.line(0)[1], kRed);
  EXPECT_EQ(raster.line(1)[0], 0);
  raster.fill(kBlue);
  expectPicture(raster, {"BB", "BB"});
}

TEST(Raster, CopyingTakesARectangleOfTheSource) {
  Raster source(3, 3, kBlue);
  source.setPixel(1, 1, kRed);
  Raster target(4, 3);
  target.copy(1, 0, 2, 2, source, 1, 1);
  expectPicture(target, {".RB.", ".BB.", "...."});
}

TEST(Raster, CopyingLeavesWhatLiesOutsideTheSource) {
  Raster target(4, 2);
  target.copy(0, 0, 4, 2, Raster(2, 1, kRed), -1, 0);
  expectPicture(target, {".RR.", "...."});
}

TEST(Raster, CopyingIsClippedAtTheTarget) {
  Raster target(2, 2);
  target.copy(1, 1, 3, 3, Raster(3, 3, kRed), 0, 0);
  expectPicture(target, {"..", ".R"});
  target.copy(-1, -1, 2, 2, Raster(3, 3, kBlue), 0, 0);
  expectPicture(target, {"B.", ".R"});
}

TEST(Raster, CopyingFromItselfReadsTheOldPixels) {
  Raster raster(4, 1);
  raster.setPixel(0, 0, kRed);
  raster.setPixel(1, 0, kBlue);
  raster.copy(1, 0, 3, 1, raster, 0, 0);
  expectPicture(raster, {"RRB."});
}

}  // namespace
}  // namespace korvane
