#include "state/Matrix.h"

#include <gtest/gtest.h>

#include "testing/FailureOf.h"

namespace korvane {
namespace {

using Codes = ChannelMap::Codes;

class MatrixTest : public testing::Test {
 protected:
  MatrixTest() { size(2, 3); }
  void size(std::int16_t cols, std::int16_t rows) {
    matrix.cols = cols;
    matrix.rows = rows;
    matrix.redim();
  }
  Matrix matrix;
};

TEST_F(MatrixTest, ANewSizeClearsChannelsAndFlags) {
  matrix.countChannelsUp(1, Matrix::Order::ColumnByColumn);
  matrix.configureAll();
  size(3, 2);
  EXPECT_EQ(matrix.channelMap.at(2, 1), (Codes{0, 0, 0}));
  EXPECT_FALSE(matrix.cellConfigured.at(2, 1));
  EXPECT_EQ(failureOf([this] { matrix.channelMap.at(2, 3); }), kSubscript);
}

TEST_F(MatrixTest, ChannelsCountUpColumnByColumn) {
  matrix.countChannelsUp(1, Matrix::Order::ColumnByColumn);
  EXPECT_EQ(matrix.channelMap.at(0, 0), (Codes{1, 2, 3}));
  EXPECT_EQ(matrix.channelMap.at(0, 1), (Codes{4, 5, 6}));
  EXPECT_EQ(matrix.channelMap.at(1, 0), (Codes{10, 11, 12}));
  EXPECT_EQ(matrix.channelMap.at(1, 2), (Codes{16, 17, 18}));
}

TEST_F(MatrixTest, ChannelsCountUpRowByRow) {
  matrix.countChannelsUp(510, Matrix::Order::RowByRow);
  EXPECT_EQ(matrix.channelMap.at(0, 0), (Codes{510, 511, 512}));
  EXPECT_EQ(matrix.channelMap.at(1, 0), (Codes{513, 514, 515}));
  EXPECT_EQ(matrix.channelMap.at(0, 1), (Codes{516, 517, 518}));
  EXPECT_EQ(matrix.channelMap.sendable().at(0, 0), (Rgb{255, 255, 255}));
  EXPECT_EQ(matrix.channelMap.sendable().at(1, 0), (Rgb{0, 0, 0}));
}

TEST_F(MatrixTest, CountingChannelsLeavesTheFlagsAlone) {
  matrix.countChannelsUp(1, Matrix::Order::RowByRow);
  EXPECT_FALSE(matrix.cellConfigured.at(0, 0));
  matrix.configureAll();
  EXPECT_TRUE(matrix.cellConfigured.at(1, 2));
}

TEST_F(MatrixTest, ANegativeSizeFails) {
  matrix.cols = -2;
  EXPECT_EQ(failureOf([this] { matrix.redim(); }), kSubscript);
}

}  // namespace
}  // namespace korvane
