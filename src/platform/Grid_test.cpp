#include "platform/Grid.h"

#include <gtest/gtest.h>

#include <limits>

#include "testing/Drawing.h"
#include "testing/FailureOf.h"

namespace korvane {
namespace {

Grid<Color> numbered(int cols, int rows) {
  Grid<Color> grid;
  grid.redim(cols, rows);
  for (int col = 0; col <= cols; ++col) {
    for (int row = 0; row <= rows; ++row) grid.at(col, row) = 100 * col + row;
  }
  return grid;
}

TEST(Grid, IsEmptyUntilItIsDimensioned) {
  const Grid<int> grid;
  EXPECT_TRUE(grid.empty());
  EXPECT_EQ(grid.span(), 0U);
  EXPECT_EQ(failureOf([&] { grid.at(0, 0); }), kSubscript);
}

TEST(Grid, HasOneSpareColumnAndRow) {
  Grid<int> grid;
  grid.redim(3, 2);
  EXPECT_EQ(grid.cols(), 3);
  EXPECT_EQ(grid.rows(), 2);
  EXPECT_EQ(failureOf([&] { grid.at(3, 2); }), 0);
  EXPECT_EQ(failureOf([&] { grid.at(4, 0); }), kSubscript);
  EXPECT_EQ(failureOf([&] { grid.at(0, 3); }), kSubscript);
  EXPECT_EQ(failureOf([&] { grid.at(-1, 0); }), kSubscript);
  EXPECT_EQ(failureOf([&] { grid.at(0, -1); }), kSubscript);
}

TEST(Grid, ColumnsLieOneAfterAnotherInMemory) {
  Grid<Color> grid = numbered(3, 2);
  EXPECT_EQ(grid.span(), 9U);
  EXPECT_EQ(&grid.at(0, 0), grid.data());
  EXPECT_EQ(&grid.at(0, 1), grid.data() + 1);
  EXPECT_EQ(&grid.at(1, 0), grid.data() + 3);
  EXPECT_EQ(&grid.at(3, 2), grid.data() + 11);
}

TEST(Grid, DimensioningClearsEveryElement) {
  Grid<Color> grid = numbered(3, 2);
  grid.redim(3, 2);
  for (std::size_t i = 0; i < 12; ++i) EXPECT_EQ(grid.data()[i], 0);
}

TEST(Grid, ResizingKeepsWhatLiesInsideBothSizes) {
  Grid<Color> grid = numbered(3, 4);
  grid.resizeKeeping(5, 2);
  EXPECT_EQ(grid.cols(), 5);
  EXPECT_EQ(grid.rows(), 2);
  for (int col = 0; col < 3; ++col) {
    for (int row = 0; row < 2; ++row) EXPECT_EQ(grid.at(col, row), 100 * col + row);
  }
  EXPECT_EQ(grid.at(4, 0), 0);
  Grid<Color> fresh;
  fresh.resizeKeeping(1, 1);
  EXPECT_EQ(fresh.at(0, 0), 0);
}

TEST(Grid, FillingSetsEveryElement) {
  Grid<Color> grid = numbered(1, 1);
  grid.fill(7);
  EXPECT_EQ(grid.at(0, 0), 7);
  EXPECT_EQ(grid.at(1, 1), 7);
}

TEST(Grid, ASizeOfZeroHasOnlySpareCells) {
  Grid<int> grid;
  grid.redim(0, 0);
  EXPECT_FALSE(grid.empty());
  EXPECT_EQ(grid.span(), 0U);
  EXPECT_EQ(failureOf([&] { grid.at(0, 0); }), 0);
}

TEST(Grid, ASizeThatCannotBeLeavesTheGridAsItWas) {
  Grid<Color> grid = numbered(2, 2);
  constexpr int kMost = std::numeric_limits<int>::max();
  EXPECT_EQ(failureOf([&] { grid.redim(-1, 5); }), kSubscript);
  EXPECT_EQ(failureOf([&] { grid.redim(5, -1); }), kSubscript);
  EXPECT_EQ(failureOf([&] { grid.redim(32767, 32767); }), kOutOfMemory);
  EXPECT_EQ(failureOf([&] { grid.redim(kMost, kMost); }), kOutOfMemory);
  EXPECT_EQ(failureOf([&] { grid.resizeKeeping(kMost, 1); }), kOutOfMemory);
  EXPECT_EQ(grid.cols(), 2);
  EXPECT_EQ(grid.rows(), 2);
  EXPECT_EQ(grid.at(2, 1), 201);
}

TEST(Grid, AFrameHasThreeBytesALampWithoutGaps) {
  const Frame frame = frameOf({"RG", "B."});
  const auto* bytes = frame.data()->data();
  EXPECT_EQ(std::vector<int>(bytes, bytes + 6), (std::vector<int>{255, 0, 0, 0, 0, 255}));
}

}  // namespace
}  // namespace korvane
