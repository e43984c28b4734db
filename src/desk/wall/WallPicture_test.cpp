#include "desk/wall/WallPicture.h"

#include <gtest/gtest.h>

#include <random>

#include "testing/FailureOf.h"

namespace korvane {
namespace {

using Lamps = std::vector<LampAt>;
using Codes = ChannelMap::Codes;

ChannelMap mapOf(int cols, int rows) {
  ChannelMap map;
  map.redim(cols, rows);
  return map;
}

void give(ChannelMap& map, int col, int row, const Codes& codes) {
  for (int component = 0; component < 3; ++component)
    map.set(col, row, component, codes[static_cast<std::size_t>(component)]);
}

// Every byte of the frame is another one, as far as there are that many.
Frame someFrame(int cols, int rows) {
  Frame frame;
  frame.redim(cols, rows);
  int byte = 1;
  for (int col = 0; col < cols; ++col) {
    for (int row = 0; row < rows; ++row) {
      for (std::uint8_t& value : frame.at(col, row)) value = static_cast<std::uint8_t>(byte++);
    }
  }
  return frame;
}

TEST(WallCodes, CountOnOverTheUniverses) {
  EXPECT_EQ(wallChannel(1), (WallChannel{1, 1}));
  EXPECT_EQ(wallChannel(512), (WallChannel{1, 512}));
  EXPECT_EQ(wallChannel(513), (WallChannel{2, 1}));
  EXPECT_EQ(wallChannel(1024), (WallChannel{2, 512}));
  EXPECT_EQ(wallChannel(8192), (WallChannel{16, 512}));
  for (const std::int32_t none : {0, -1, -512, 8193, INT32_MAX, INT32_MIN})
    EXPECT_FALSE(wallChannel(none)) << none;
  for (std::int32_t code = 1; code <= 8192; ++code) EXPECT_EQ(codeOf(*wallChannel(code)), code);
}

TEST(WallPatch, PutsEachComponentOnItsChannel) {
  ChannelMap map = mapOf(2, 1);
  give(map, 0, 0, {2, 1, 3});  // green first
  give(map, 1, 0, {600, 8192, 512});
  const WallPicture picture = Patch(map).take(someFrame(2, 1));
  EXPECT_EQ(picture.universe(1)[0], 2);
  EXPECT_EQ(picture.universe(1)[1], 1);
  EXPECT_EQ(picture.universe(1)[2], 3);
  EXPECT_EQ(picture.universe(1)[511], 6);
  EXPECT_EQ(picture.universe(2)[600 - 513], 4);
  EXPECT_EQ(picture.universe(16)[511], 5);
  EXPECT_EQ(picture.universe(1)[3], 0) << "no lamp has it";
  EXPECT_EQ(picture.lamps, (std::vector<Rgb>{{1, 2, 3}, {4, 5, 6}}));
}

TEST(WallPatch, ALampMayLieAcrossTwoUniverses) {
  ChannelMap map = mapOf(1, 1);
  give(map, 0, 0, {511, 512, 513});
  const Patch patch(map);
  const WallPicture picture = patch.take(someFrame(1, 1));
  EXPECT_EQ(picture.universe(1)[510], 1);
  EXPECT_EQ(picture.universe(1)[511], 2);
  EXPECT_EQ(picture.universe(2)[0], 3);
  EXPECT_EQ(patch.lastUniverse(), 2);
}

TEST(WallPatch, KnowsWhatFeedsAChannel) {
  ChannelMap map = mapOf(3, 2);
  give(map, 2, 1, {1030, 1029, 1028});
  const Patch patch(map);
  EXPECT_EQ(patch.feed({3, 4}), (Patch::Feed{{2, 1}, 2}));
  EXPECT_EQ(patch.feed({3, 5}), (Patch::Feed{{2, 1}, 1}));
  EXPECT_EQ(patch.feed({3, 6}), (Patch::Feed{{2, 1}, 0}));
  EXPECT_FALSE(patch.feed({3, 7}));
  EXPECT_FALSE(patch.feed({1, 1}));
  EXPECT_FALSE(patch.feed({16, 512}));
  EXPECT_FALSE(Patch(mapOf(2, 2)).feed({1, 1}));
}

TEST(WallPatch, LampsAreOnTheWireInTheOrderOfTheirLowestChannels) {
  ChannelMap map = mapOf(2, 2);
  give(map, 0, 0, {12, 11, 10});
  give(map, 0, 1, {7, 8, 9});
  give(map, 1, 0, {0, 0, 3});  // blue alone
  give(map, 1, 1, {513, 1, 2});
  EXPECT_EQ(Patch(map).wire(), (Lamps{{1, 1}, {1, 0}, {0, 1}, {0, 0}}));
  EXPECT_EQ(Patch(map).take(someFrame(2, 2)).lamps,
            (std::vector<Rgb>{{10, 11, 12}, {7, 8, 9}, {4, 5, 6}, {1, 2, 3}}));
}

TEST(WallPatch, LampsBeyondTheLastUniverseAreNamedAndStayOnTheWire) {
  ChannelMap map = mapOf(1, 3);
  give(map, 0, 0, {8190, 8191, 8192});
  give(map, 0, 1, {8193, 8194, 8195});
  give(map, 0, 2, {8189, 1, 9000});  // blue stays dark
  const Patch patch(map);
  EXPECT_EQ(patch.beyond(), (Lamps{{0, 1}, {0, 2}}));
  EXPECT_EQ(patch.wire(), (Lamps{{0, 2}, {0, 0}, {0, 1}}));
  EXPECT_EQ(patch.lastUniverse(), 16);
  EXPECT_EQ(patch.take(someFrame(1, 3)).lamps.size(), 3U);
}

TEST(WallPatch, LampsWithoutAChannelAreNamedAndAreNotOnTheWire) {
  ChannelMap map = mapOf(3, 1);
  give(map, 1, 0, {-1, -513, 0});
  give(map, 2, 0, {0, 5, 0});
  const Patch patch(map);
  EXPECT_EQ(patch.withoutChannels(), (Lamps{{0, 0}, {1, 0}}));
  EXPECT_EQ(patch.wire(), (Lamps{{2, 0}}));
  EXPECT_TRUE(patch.sharing().empty()) << "to have no channel is not to share one";
  const WallPicture picture = patch.take(someFrame(3, 1));
  for (int universe = 1; universe <= kWallUniverses; ++universe) {
    for (int channel = 1; channel <= 512; ++channel) {
      const bool green = universe == 1 && channel == 5;
      ASSERT_EQ(picture.universe(universe)[static_cast<std::size_t>(channel) - 1], green ? 8 : 0);
    }
  }
}

TEST(WallPatch, OfLampsThatShareAChannelTheLastOneHoldsIt) {
  ChannelMap map = mapOf(2, 2);
  give(map, 0, 0, {1, 2, 3});
  give(map, 0, 1, {3, 4, 5});  // its red is the first lamp's blue
  give(map, 1, 0, {6, 6, 6});  // one channel for all three of its own
  give(map, 1, 1, {1, 2, 3});  // beside the first lamp
  const Patch patch(map);
  EXPECT_EQ(patch.sharedChannels(), (std::vector<WallChannel>{{1, 1}, {1, 2}, {1, 3}}));
  EXPECT_EQ(patch.sharing(), (Lamps{{0, 0}, {0, 1}, {1, 1}}));
  EXPECT_EQ(patch.feed({1, 3}), (Patch::Feed{{1, 1}, 2}));
  EXPECT_EQ(patch.feed({1, 6}), (Patch::Feed{{1, 0}, 2}));
  EXPECT_EQ(patch.wire(), (Lamps{{1, 1}, {0, 1}, {1, 0}})) << "once, as the one that holds it";
}

TEST(WallPatch, KnowsWhenTheMapHasBecomeAnother) {
  ChannelMap map = mapOf(2, 3);
  give(map, 1, 2, {1, 2, 3});
  const Patch patch(map);
  EXPECT_TRUE(patch.madeFrom(map));
  EXPECT_TRUE(patch.madeFrom(ChannelMap(map)));
  map.set(1, 2, 2, 4);
  EXPECT_FALSE(patch.madeFrom(map));
  map.set(1, 2, 2, 3);
  EXPECT_TRUE(patch.madeFrom(map));
  map.redim(3, 2);
  EXPECT_FALSE(patch.madeFrom(map)) << "as many lamps, but another size";
  EXPECT_FALSE(Patch().madeFrom(map));
  EXPECT_FALSE(Patch(map).madeFrom(ChannelMap()));
  EXPECT_TRUE(Patch().madeFrom(ChannelMap()));
}

TEST(WallPatch, AFrameOfAnotherSizeIsASubscriptFailure) {
  const Patch patch(mapOf(2, 3));
  EXPECT_EQ(failureOf([&] { patch.take(someFrame(3, 2)); }), kSubscript);
  EXPECT_EQ(failureOf([&] { patch.take(someFrame(2, 4)); }), kSubscript);
  EXPECT_EQ(failureOf([&] { patch.take(Frame()); }), kSubscript);
  EXPECT_EQ(failureOf([&] { patch.take(someFrame(2, 3)); }), 0);
}

TEST(WallPatch, AGridWithoutLampsIsABlackWall) {
  EXPECT_EQ(Patch(mapOf(0, 0)).take(someFrame(0, 0)), WallPicture());
  EXPECT_EQ(Patch(mapOf(0, 5)).take(someFrame(0, 5)), WallPicture());
  EXPECT_EQ(Patch().take(Frame()), WallPicture());
  EXPECT_EQ(Patch(mapOf(0, 0)).lastUniverse(), 0);
}

// The plug-in's own order of sending, with the channels of all universes.
WallPicture sentOneByOne(const ChannelMap& map, const Frame& frame) {
  WallPicture picture;
  for (int col = 0; col < frame.cols(); ++col) {
    for (int row = 0; row < frame.rows(); ++row) {
      for (std::size_t component = 0; component < 3; ++component) {
        const std::int32_t code = map.at(col, row)[component];
        if (code < 1 || code > 16 * 512) continue;
        int universe = 1;
        std::int32_t channel = code;
        for (; channel > 512; channel -= 512) ++universe;
        picture.universe(universe).at(static_cast<std::size_t>(channel) - 1) =
            frame.at(col, row)[component];
      }
    }
  }
  return picture;
}

TEST(WallPatch, AnyMapGivesWhatSendingChannelByChannelGives) {
  std::mt19937 random(7);
  const auto pick = [&](int from, int to) {
    return std::uniform_int_distribution<int>(from, to)(random);
  };
  for (int round = 0; round < 200; ++round) {
    const int cols = pick(1, 50);
    const int rows = pick(1, 50);
    const int most = round % 2 == 0 ? 8300 : 40;  // much shared, or little
    ChannelMap map = mapOf(cols, rows);
    Frame frame = someFrame(cols, rows);
    for (int col = 0; col < cols; ++col) {
      for (int row = 0; row < rows; ++row) {
        give(map, col, row, {pick(-5, most), pick(-5, most), pick(-5, most)});
        for (std::uint8_t& value : frame.at(col, row))
          value = static_cast<std::uint8_t>(pick(0, 255));
      }
    }
    const WallPicture picture = Patch(map).take(frame);
    ASSERT_EQ(picture.universes, sentOneByOne(map, frame).universes) << "round " << round;
  }
}

}  // namespace
}  // namespace korvane
