#include "state/ChannelMap.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "testing/Drawing.h"
#include "testing/FailureOf.h"

namespace korvane {
namespace {

ChannelMap mapOf(int cols, int rows) {
  ChannelMap map;
  map.redim(cols, rows);
  return map;
}

TEST(ChannelMap, EveryCodeIsZeroAfterDimensioning) {
  ChannelMap map = mapOf(2, 2);
  map.set(1, 1, 2, 900);
  map.redim(2, 2);
  for (int col = 0; col <= 2; ++col) {
    for (int row = 0; row <= 2; ++row) EXPECT_EQ(map.at(col, row), (ChannelMap::Codes{0, 0, 0}));
  }
}

TEST(ChannelMap, HoldsACodeForEachComponent) {
  ChannelMap map = mapOf(2, 2);
  map.set(0, 1, 0, 1);
  map.set(0, 1, 1, 8192);
  map.set(0, 1, 2, 1);  // two components may share a channel
  EXPECT_EQ(map.at(0, 1), (ChannelMap::Codes{1, 8192, 1}));
  EXPECT_EQ(map.at(1, 0), (ChannelMap::Codes{0, 0, 0}));
}

TEST(ChannelMap, KnowsWhichBytesOfAFrameCanBeSent) {
  ChannelMap map = mapOf(2, 1);
  expectPicture(map.sendable(), {"WW"});  // a code of 0 is sent like any other
  map.set(0, 0, 0, 512);
  map.set(0, 0, 1, 513);
  map.set(0, 0, 2, -1);
  expectPicture(map.sendable(), {"MW"});
  map.set(0, 0, 1, 100);
  expectPicture(map.sendable(), {"WW"});
}

TEST(ChannelMap, SpareCellsAreNeverSent) {
  const ChannelMap map = mapOf(2, 3);
  for (int row = 0; row <= 3; ++row) EXPECT_EQ(map.sendable().at(2, row), (Rgb{0, 0, 0}));
  for (int col = 0; col <= 2; ++col) EXPECT_EQ(map.sendable().at(col, 3), (Rgb{0, 0, 0}));
}

TEST(ChannelMap, ChecksItsBounds) {
  ChannelMap map = mapOf(2, 2);
  EXPECT_EQ(failureOf([&] { map.at(3, 0); }), kSubscript);
  EXPECT_EQ(failureOf([&] { map.at(0, -1); }), kSubscript);
  EXPECT_EQ(failureOf([&] { map.set(3, 0, 0, 1); }), kSubscript);
  EXPECT_THROW(map.set(0, 0, 3, 1), std::out_of_range);  // which the event gate reports as 9
  EXPECT_EQ(failureOf([&] { map.redim(-1, 2); }), kSubscript);
  EXPECT_EQ(map.at(0, 0), (ChannelMap::Codes{0, 0, 0}));
}

}  // namespace
}  // namespace korvane
