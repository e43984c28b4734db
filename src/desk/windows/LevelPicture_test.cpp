#include "desk/windows/LevelPicture.h"

#include <gtest/gtest.h>

#include "testing/Drawing.h"

namespace korvane {
namespace {

// Each level has 8 by 8 pixels and a gap of 2.
class LevelPictureTest : public testing::Test {
 protected:
  LevelPictureTest() {
    box.onPixels = [this](int x1, int y1, int x2, int y2) {
      painted += (x2 - x1 + 1) * (y2 - y1 + 1);
    };
  }
  Picture channel(int number) const {
    return Picture(box.raster()).cut((number - 1) % 32 * 10, (number - 1) / 32 * 10, 10, 10);
  }
  void set(int number, std::uint8_t level) {
    picture.setLevel(number, level);
    picture.mark(number);
  }

  PictureBox box{"levels", {320, 160, PictureBox::Sizing::Grow}};
  LevelPicture picture{box};
  const Letters letters = {{'.', rgb(0x0e, 0x10, 0x13)},
                           {'B', rgb(0x3d, 0x8f, 0xd9)},
                           {'M', rgb(0xf2, 0xb3, 0x40)},
                           {' ', 0}};
  int painted = 0;
};

const Drawing kMarkedHalf = {"MMMMMMMM  ", "MMMMMMMM  ", "MM....MM  ", "MM....MM  ", "MMBBBBMM  ",
                             "MMBBBBMM  ", "MMMMMMMM  ", "MMMMMMMM  ", "          ", "          "};
const Drawing kPlainHalf = {"........  ", "........  ", "........  ", "........  ", "BBBBBBBB  ",
                            "BBBBBBBB  ", "BBBBBBBB  ", "BBBBBBBB  ", "          ", "          "};

TEST_F(LevelPictureTest, AChannelThatWasSetIsABarWithAMarkThatFadesAway) {
  set(34, 128);
  EXPECT_TRUE(picture.refresh(1000));
  expectPicture(channel(34), kMarkedHalf, letters);
  EXPECT_TRUE(picture.refresh(1699)) << "a last trace of the mark";
  EXPECT_FALSE(picture.refresh(1700));
  expectPicture(channel(34), kPlainHalf, letters);
}

TEST_F(LevelPictureTest, OnlyTheChannelsThatLookDifferentArePainted) {
  set(1, 255);
  picture.refresh(0);
  EXPECT_EQ(painted, 8 * 8 + 4 * 4);
  picture.refresh(0);
  EXPECT_EQ(painted, 8 * 8 + 4 * 4) << "nothing has changed";
  set(1, 255);
  picture.refresh(10);
  EXPECT_EQ(painted, 8 * 8 + 4 * 4) << "a fresh mark is as it was";
}

TEST_F(LevelPictureTest, WhatWasSetManyTimesBetweenTwoRefreshesIsPaintedOnce) {
  for (int level = 1; level <= 128; ++level) set(34, static_cast<std::uint8_t>(level));
  EXPECT_EQ(painted, 0);
  picture.refresh(0);
  expectPicture(channel(34), kMarkedHalf, letters);
}

TEST_F(LevelPictureTest, AnotherSizeShowsTheSameLevels) {
  set(34, 128);
  picture.refresh(1000);
  box.resize(640, 320);
  box.resize(320, 160);
  expectPicture(channel(34), kMarkedHalf, letters);
}

TEST_F(LevelPictureTest, FindsTheChannelUnderThePointer) {
  EXPECT_EQ(picture.channelAt(0, 0), 1);
  EXPECT_EQ(picture.channelAt(17, 17), 34);
  EXPECT_EQ(picture.channelAt(18, 17), 0) << "in the gap";
  EXPECT_EQ(picture.channelAt(317, 157), 512);
  EXPECT_EQ(picture.channelAt(320, 0), 0);
  EXPECT_EQ(picture.channelAt(-1, -1), 0);
}

// Whatever the size, neighbours keep their gap and the last ones end at the edge.
TEST_F(LevelPictureTest, FillsAnyRoomThatItGets) {
  for (const int width : {320, 321, 333, 351, 915}) {
    box.resize(width, 160);
    EXPECT_EQ(picture.channelAt(width - 3, 0), 32);
    EXPECT_EQ(picture.channelAt(width - 2, 0), 0);
    for (int x = 0; x + 1 < width; ++x) {
      const int step = picture.channelAt(x + 1, 0) - picture.channelAt(x, 0);
      ASSERT_TRUE(step == 0 || picture.channelAt(x, 0) == 0 || picture.channelAt(x + 1, 0) == 0);
    }
  }
}

TEST_F(LevelPictureTest, ABoxWithoutRoomShowsNothingAndDoesNoHarm) {
  box.resize(5, 0);
  set(1, 255);
  EXPECT_TRUE(picture.refresh(0));
  EXPECT_EQ(picture.channelAt(0, 0), 0);
}

}  // namespace
}  // namespace korvane
