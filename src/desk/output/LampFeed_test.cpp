#include "desk/output/LampFeed.h"

#include <gtest/gtest.h>

#include "platform/HeadlessPlatform.h"
#include "shell/Plugin.h"
#include "testing/UdpReceiver.h"

namespace korvane {
namespace {

/// Takes sACN's values of the universes 1 to 15 on this machine.
struct Wall {
  /// Takes packets until a picture's last universe has come whose values are these; false if it
  /// does not come.
  bool shows(const WallPicture& wanted) {
    for (;;) {
      const std::vector<std::uint8_t> packet = receiver.packet();
      if (packet.size() != 638) return false;
      std::copy_n(&packet[126], 512, seen.universe(packet[114]).begin());
      if (packet[114] == 15 && seen.universes == wanted.universes) return true;
    }
  }

  WallPicture seen;
  UdpReceiver receiver;
};

class LampFeeds : public testing::Test {
 protected:
  /// A wall of 50 by 50 lamps on channels that count up, and a frame of noise.
  LampFeeds() {
    v.channelMap.redim(50, 50);
    v.frameM.redim(50, 50);
    std::int32_t code = 1;
    for (int col = 0; col < 50; ++col) {
      for (int row = 0; row < 50; ++row) {
        for (int component = 0; component < 3; ++component)
          v.channelMap.set(col, row, component, code++);
      }
    }
  }
  void paint(unsigned seed) {
    for (int col = 0; col < 50; ++col) {
      for (int row = 0; row < 50; ++row) {
        for (std::uint8_t& part : v.frameM.at(col, row))
          part = static_cast<std::uint8_t>((seed = seed * 1103515245 + 12345) >> 16);
      }
    }
  }
  /// Switches on an output to the wall, with these settings besides.
  void send(const std::string& settings = "") {
    feed.outputs
        .add(parseOutput("sacn:1-15@127.0.0.1:" + std::to_string(wall.receiver.port) + settings))
        .switchOn();
  }
  void pass() {
    feed.announce();
    feed.endOfPass(v);
  }
  /// What the lamps are to hold, worked out lamp by lamp.
  WallPicture wanted() const {
    WallPicture picture;
    for (int col = 0; col < v.frameM.cols(); ++col) {
      for (int row = 0; row < v.frameM.rows(); ++row) {
        for (std::size_t i = 0; i < 3; ++i) {
          const std::int32_t code = v.channelMap.at(col, row)[i];
          if (code >= 1 && code <= 8192)
            picture.universe((code - 1) / 512 + 1)[static_cast<std::size_t>((code - 1) % 512)] =
                v.frameM.at(col, row)[i];
        }
      }
    }
    return picture;
  }

  Wall wall;
  LampFeed feed{"korvane-test-feed"};
  HeadlessPlatform platform;
  Plugin plugin{platform};
  Variablen& v = plugin.engine.v;
};

TEST_F(LampFeeds, EveryLampOfFifteenUniversesHoldsTheMixedPictureByTheMap) {
  send(",rate=1000");
  for (unsigned picture = 1; picture <= 20; ++picture) {
    paint(picture);
    pass();
    ASSERT_TRUE(wall.shows(wanted())) << picture;
  }
}

TEST_F(LampFeeds, WithoutAnAnnouncedPassNothingIsTaken) {
  send();
  paint(1);
  feed.endOfPass(v);
  EXPECT_TRUE(wall.shows({})) << "dark";
  pass();
  EXPECT_TRUE(wall.shows(wanted()));
}

TEST_F(LampFeeds, AnotherMapIsFollowedAndNegativeCodesNameNoLamp) {
  send(",rate=1000");
  paint(1);
  pass();
  v.channelMap.set(0, 0, 0, -1);
  v.channelMap.set(0, 0, 1, -32768);
  v.channelMap.set(0, 0, 2, 9000);
  pass();
  EXPECT_TRUE(wall.shows(wanted()));
}

TEST_F(LampFeeds, LevelsActAtOnceOnWhatLeaves) {
  send(",rate=1000");
  paint(1);
  pass();
  const WallPicture lit = wanted();
  EXPECT_TRUE(wall.shows(lit));
  feed.setLevels({.master = 100, .blackout = true, .freeze = false});
  EXPECT_TRUE(wall.shows({})) << "dark";
  feed.setLevels({});
  EXPECT_TRUE(wall.shows(lit));
  feed.setLevels({.master = 100, .blackout = false, .freeze = true});
  paint(2);
  pass();
  EXPECT_EQ(feed.outputs.at(0).newest().universes[0], lit.universe(1)) << "held";
  feed.setLevels({.master = 100, .blackout = true, .freeze = true});
  EXPECT_EQ(feed.outputs.at(0).newest().universes[0], Slots{}) << "dark, though held";
  feed.setLevels({});
  EXPECT_TRUE(wall.shows(wanted()));
}

TEST_F(LampFeeds, ALampTestGoesPastLevelsAndLooksUntilItEnds) {
  OutputConfig config =
      parseOutput("sacn:1-15@127.0.0.1:" + std::to_string(wall.receiver.port) + ",rate=1000");
  config.look = {.gamma = 2.2, .balance = {50, 50, 50}};
  feed.outputs.add(config).switchOn();
  paint(1);
  pass();
  feed.setLevels({.master = 30, .blackout = true, .freeze = false});
  WallPicture test = wanted();
  test.universe(1).fill(0);
  test.universe(2)[7] = 200;
  feed.setTest(test);
  EXPECT_TRUE(wall.shows(test)) << "as it is, in a blackout too";
  paint(2);
  pass();
  feed.setLevels({.master = 40, .blackout = true, .freeze = false});
  EXPECT_EQ(feed.outputs.at(0).newest().universes[0], test.universe(1)) << "the test goes on";
  feed.setTest(std::nullopt);
  EXPECT_TRUE(wall.shows({})) << "the blackout again";
}

TEST_F(LampFeeds, NewsOfEachOutputAreToldOnce) {
  feed.outputs.add(parseOutput("sacn:4711%nosuchif")).switchOn();
  std::vector<std::string> told;
  while (told.empty()) told = feed.news();
  EXPECT_EQ(told, std::vector<std::string>{
                      "sACN universe 4711 to 239.255.18.103:5568 by nosuchif: No such device"});
  EXPECT_TRUE(feed.news().empty());
}

}  // namespace
}  // namespace korvane
