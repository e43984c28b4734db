#include "desk/wall/OutputLook.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "platform/Grid.h"

namespace korvane {
namespace {

// A square of lamps whose channels count up, all of one colour, at a master.
LevelledPicture flat(const Rgb& color, int side, int master = 100) {
  ChannelMap map;
  map.redim(side, side);
  Frame frame;
  frame.redim(side, side);
  std::int32_t code = 1;
  for (int col = 0; col < side; ++col) {
    for (int row = 0; row < side; ++row) {
      frame.at(col, row) = color;
      for (int component = 0; component < 3; ++component) map.set(col, row, component, code++);
    }
  }
  return {Patch(map).take(frame), master};
}

// What one lamp is sent for a colour, which must be the same with and without universes.
Rgb sent(const OutputLook& look, const Rgb& color, int master = 100) {
  const WallPicture picture = OutputStage(look).pass(flat(color, 1, master));
  const Slots& slots = picture.universe(1);
  EXPECT_EQ(picture.lamps, (std::vector<Rgb>{{slots[0], slots[1], slots[2]}}));
  return picture.lamps[0];
}

double light(const OutputLook& look, int value, int master, std::size_t component) {
  return 255 * std::pow(value / 255.0 * master / 100.0, look.gamma) * look.balance[component] / 100;
}

TEST(OutputLooks, ALinearOutputSendsThePictureByteForByte) {
  for (const bool smooth : {false, true}) {
    for (int value = 0; value < 256; ++value) {
      const auto byte = static_cast<std::uint8_t>(value);
      EXPECT_EQ(sent({.smooth = smooth}, {byte, byte, byte}), (Rgb{byte, byte, byte}));
    }
  }
}

TEST(OutputLooks, TheMasterScalesEveryValueToTheNearestByte) {
  EXPECT_EQ(sent({}, {255, 128, 1}, 50), (Rgb{128, 64, 1}));  // 127.5, 64, 0.5
  EXPECT_EQ(sent({}, {255, 128, 1}, 49), (Rgb{125, 63, 0}));  // 124.95, 62.72, 0.49
  EXPECT_EQ(sent({}, {255, 255, 255}, 0), (Rgb{0, 0, 0}));
  EXPECT_EQ(sent({.gamma = 2.2, .smooth = true}, {255, 255, 255}, 0), (Rgb{0, 0, 0}));
}

TEST(OutputLooks, TheCurveStandsBeforeTheWhiteBalance) {
  // 255 x 0.5 ^ 2 = 64.25 at the value 127.8, and half of it.
  EXPECT_EQ(sent({.gamma = 2}, {128, 128, 128}), (Rgb{64, 64, 64}));
  EXPECT_EQ(sent({.gamma = 2, .balance = {100, 50, 0}}, {128, 128, 128}), (Rgb{64, 32, 0}));
  EXPECT_EQ(sent({.balance = {100, 80, 60}}, {255, 255, 255}), (Rgb{255, 204, 153}));
}

TEST(OutputLooks, TheMasterStandsBeforeTheCurve) {
  EXPECT_EQ(sent({.gamma = 2}, {255, 255, 255}, 50), (Rgb{64, 64, 64}));
}

TEST(OutputLooks, EveryValueIsWhatThePlainFormulaGives) {
  for (const double gamma : {1.0, 1.8, 2.2, 4.0}) {
    for (const int master : {100, 73, 1}) {
      const OutputLook look{.gamma = gamma, .balance = {100, 77, 31}};
      OutputStage stage(look);
      for (int value = 0; value < 256; ++value) {
        const auto byte = static_cast<std::uint8_t>(value);
        const Rgb got = stage.pass(flat({byte, byte, byte}, 1, master)).lamps[0];
        for (std::size_t component = 0; component < 3; ++component) {
          // One 256th of a byte is the grain of the reckoning.
          EXPECT_NEAR(got[component], light(look, value, master, component), 0.5 + 1 / 512.0)
              << gamma << ", " << master << " %: " << value;
        }
      }
    }
  }
}

TEST(OutputLooks, WhiteStaysFullAndBlackStaysDarkUnderEveryCurve) {
  for (const double gamma : {1.0, 2.2, 4.0}) {
    for (const bool smooth : {false, true}) {
      EXPECT_EQ(sent({.gamma = gamma, .smooth = smooth}, {255, 0, 255}), (Rgb{255, 0, 255}));
    }
  }
}

TEST(OutputLooks, ACurveLosesTheDarkEndWhereItIsNotSmoothed) {
  EXPECT_EQ(sent({.gamma = 2.2}, {10, 13, 16}), (Rgb{0, 0, 1}));
}

// Mean of the bytes of one colour over a whole pattern of lamps.
double meanOf(const WallPicture& picture, std::size_t component) {
  double sum = 0;
  for (const Rgb& lamp : picture.lamps) sum += lamp[component];
  return sum / static_cast<double>(picture.lamps.size());
}

TEST(OutputLooks, SmoothedLampsShowTogetherWhatNoneOfThemCan) {
  const OutputLook look{.gamma = 2.2, .smooth = true, .balance = {100, 90, 80}};
  OutputStage stage(look);
  for (int value = 0; value < 256; ++value) {
    const auto byte = static_cast<std::uint8_t>(value);
    const WallPicture picture = stage.pass(flat({byte, byte, byte}, 8));
    for (std::size_t component = 0; component < 3; ++component) {
      EXPECT_NEAR(meanOf(picture, component), light(look, value, 100, component), 1 / 100.0)
          << value;
    }
  }
}

TEST(OutputLooks, SmoothedNeighboursDifferByOneAtMost) {
  OutputStage stage({.gamma = 2.2, .smooth = true});
  for (int value = 0; value < 256; ++value) {
    const auto byte = static_cast<std::uint8_t>(value);
    std::set<int> seen;
    for (const Rgb& lamp : stage.pass(flat({byte, byte, byte}, 8)).lamps) seen.insert(lamp[0]);
    EXPECT_LE(*seen.rbegin() - *seen.begin(), 1) << value;
  }
}

// A quarter of the lamps lit: no two of them touch.
TEST(OutputLooks, SmoothedLampsAreSpreadEvenly) {
  const LevelledPicture quarter = flat({1, 1, 1}, 8, 25);
  const WallPicture picture = OutputStage({.smooth = true}).pass(quarter);
  int lit = 0;
  for (std::size_t col = 0; col < 8; ++col) {
    for (std::size_t row = 0; row < 8; ++row) {
      if (picture.lamps[col * 8 + row][0] == 0) continue;
      ++lit;
      if (row < 7) {
        EXPECT_EQ(picture.lamps[col * 8 + row + 1][0], 0);
      }
      if (col < 7) {
        EXPECT_EQ(picture.lamps[(col + 1) * 8 + row][0], 0);
      }
    }
  }
  EXPECT_EQ(lit, 16);
}

TEST(OutputLooks, AStillPictureIsSentAsOneAndALampChangesNoOther) {
  OutputStage stage({.gamma = 2.2, .smooth = true});
  LevelledPicture levelled = flat({12, 12, 12}, 8);
  const WallPicture first = stage.pass(levelled);
  EXPECT_EQ(stage.pass(levelled), first);
  levelled.picture.lamps[20] = {200, 200, 200};
  WallPicture second = stage.pass(levelled);
  EXPECT_NE(second.lamps[20], first.lamps[20]);
  second.lamps[20] = first.lamps[20];
  EXPECT_EQ(second, first);
}

TEST(OutputLooks, ALookThatChangesHoldsFromTheNextPicture) {
  OutputStage stage;
  const LevelledPicture levelled = flat({128, 128, 128}, 1);
  EXPECT_EQ(stage.pass(levelled).lamps[0][0], 128);
  stage.setLook({.gamma = 2});
  EXPECT_EQ(stage.pass(levelled).lamps[0][0], 64);
  stage.setLook({.balance = {50, 100, 100}});
  EXPECT_EQ(stage.pass(levelled).lamps[0], (Rgb{64, 128, 128}));
}

TEST(OutputLooks, AValueBeyondItsRangeMeansTheNearestOne) {
  EXPECT_EQ(sent({.gamma = 0, .balance = {-5, 101, 1000}}, {100, 100, 100}), (Rgb{0, 100, 100}));
  EXPECT_EQ(sent({.gamma = 9}, {128, 128, 128}), sent({.gamma = 4}, {128, 128, 128}));
}

TEST(OutputLooks, AChannelWithoutALampStaysDark) {
  const WallPicture picture = OutputStage({.smooth = true}).pass(flat({9, 9, 9}, 1, 33));
  for (std::size_t at = 3; at < 512; ++at) ASSERT_EQ(picture.universe(1)[at], 0);
  EXPECT_EQ(OutputStage({.gamma = 2}).pass({WallPicture(), 50}), WallPicture());
}

}  // namespace
}  // namespace korvane
