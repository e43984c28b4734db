#include "desk/wall/LampTest.h"

#include <gtest/gtest.h>

#include "desk/wall/WiringPlan.h"

namespace korvane {
namespace {

using What = LampTest::What;
using Light = LampTest::Light;
using Lamps = std::vector<LampAt>;

constexpr Rgb kRed = {255, 0, 0};
constexpr Rgb kBlack = {0, 0, 0};
constexpr Rgb kWhite = {255, 255, 255};

// 3 x 2 lamps as a snake, green first, two lamps a universe.
Patch smallWall() {
  return Patch(wire({.cols = 3,
                     .rows = 2,
                     .path = {.snake = true},
                     .order = ColorOrder::GRB,
                     .fill = UniverseFill::Count,
                     .lampsPerUniverse = 2}));
}

// The channels that hold 255, as "1.4"; everything else is 0.
std::string full(const WallPicture& picture) {
  std::string all;
  for (int universe = 1; universe <= kWallUniverses; ++universe) {
    for (int channel = 1; channel <= kUniverseChannels; ++channel) {
      const int value = picture.universe(universe)[static_cast<std::size_t>(channel) - 1];
      if (value == 0) continue;
      EXPECT_EQ(value, 255);
      all += (all.empty() ? "" : " ") + std::to_string(universe) + "." + std::to_string(channel);
    }
  }
  return all;
}

std::string lit(const LampTest& test, const Patch& patch = smallWall()) {
  return full(testPicture(test, patch));
}

TEST(LampTests, LightWhatIsChosenAndNothingElse) {
  EXPECT_EQ(lit({What::Channel, Light::White, 512 + 4}), "2.5");
  EXPECT_EQ(lit({What::Channel, Light::White, 99}), "1.100") << "a channel that no lamp has";
  EXPECT_EQ(lit({What::Lamp, Light::White, 3}), "2.4 2.5 2.6");
  EXPECT_EQ(lit({What::Row, Light::Red, 1}), "2.5 3.2 3.5");
  EXPECT_EQ(lit({What::Column, Light::White, 2}), "2.1 2.2 2.3 2.4 2.5 2.6");
  EXPECT_EQ(lit({What::Universe, Light::Blue, 2}), "3.3 3.6");
  EXPECT_EQ(lit({What::Wall, Light::Green, 0}), "1.1 1.4 2.1 2.4 3.1 3.4");
}

TEST(LampTests, TheSameLampsShineOnTheWireWithoutUniverses) {
  EXPECT_EQ(testPicture({What::Lamp, Light::Red, 3}, smallWall()).lamps,
            (std::vector<Rgb>{kBlack, kBlack, kBlack, kRed, kBlack, kBlack}));
  EXPECT_EQ(testPicture({What::Channel, Light::White, 1}, smallWall()).lamps,
            (std::vector<Rgb>{kRed, kBlack, kBlack, kBlack, kBlack, kBlack}));
  EXPECT_EQ(testPicture({What::Column, Light::White, 2}, smallWall()).lamps,
            (std::vector<Rgb>{kBlack, kBlack, kWhite, kWhite, kBlack, kBlack}));
}

TEST(LampTests, TellWhichLampsShine) {
  EXPECT_EQ(litLamps({What::Lamp, Light::Red, 3}, smallWall()), (Lamps{{2, 1}}));
  EXPECT_EQ(litLamps({What::Channel, Light::White, 516}, smallWall()), (Lamps{{2, 1}}));
  EXPECT_EQ(litLamps({What::Channel, Light::White, 99}, smallWall()), Lamps());
  EXPECT_EQ(litLamps({What::Universe, Light::Blue, 2}, smallWall()), (Lamps{{0, 1}, {1, 1}}));
  EXPECT_EQ(litLamps({What::Wall, Light::Green, 0}, smallWall()).size(), 6U);
  EXPECT_EQ(litColor({What::Channel, Light::White, 516}, smallWall()), kRed);
  EXPECT_EQ(litColor({What::Row, Light::InTurn, 0, 3}, smallWall()), kWhite);
}

TEST(LampTests, ColoursInTurnComeRedGreenBlueWhiteBeforeTheNextPlace) {
  const Patch patch = smallWall();
  LampTest test{What::Lamp, Light::InTurn};
  const std::vector<std::string> shown = {"1.2", "1.1", "1.3", "1.1 1.2 1.3", "1.5"};
  for (const std::string& channels : shown) {
    EXPECT_EQ(lit(test, patch), channels);
    test = stepped(test, patch);
  }
  test = stepped(stepped(test, patch, true), patch, true);
  EXPECT_EQ(lit(test, patch), "1.1 1.2 1.3");
}

TEST(LampTests, BehindTheLastOneComesTheFirst) {
  const Patch patch = smallWall();
  const std::pair<What, int> places[] = {{What::Channel, 3 * 512}, {What::Lamp, 6},
                                         {What::Row, 2},           {What::Column, 3},
                                         {What::Universe, 3},      {What::Wall, 1}};
  for (const auto& [what, count] : places) {
    EXPECT_EQ(placesOf(what, patch), count);
    LampTest test{what, Light::White};
    for (int i = 0; i < count; ++i) {
      EXPECT_EQ(test.at, i);
      test = stepped(test, patch);
    }
    EXPECT_EQ(test.at, 0);
    EXPECT_EQ(stepped(test, patch, true).at, count - 1);
  }
}

TEST(LampTests, ADarkLampOnTheSameChannelHidesNoLitOne) {
  ChannelMap map = wire({.cols = 2, .rows = 1});
  for (int component = 0; component < 3; ++component) map.set(1, 0, component, component + 1);
  const Patch patch(map);
  EXPECT_EQ(full(testPicture({What::Column, Light::White, 0}, patch)), "1.1 1.2 1.3");
  EXPECT_EQ(litLamps({What::Channel, Light::White, 0}, patch), (Lamps{{0, 0}, {1, 0}}));
}

TEST(LampTests, AWallWithoutLampsCanBeTestedToo) {
  for (const Patch& patch : {Patch(), Patch(wire({.cols = 1, .rows = 1, .first = {16, 511}}))}) {
    for (const What what :
         {What::Channel, What::Lamp, What::Row, What::Column, What::Universe, What::Wall}) {
      LampTest test{what, Light::InTurn};
      test = stepped(test, patch);
      EXPECT_EQ(lit(test, patch), what == What::Channel ? "1.2" : "");
      EXPECT_FALSE(describe(test, patch).empty());
    }
  }
}

TEST(LampTests, SayWhatIsLit) {
  const Patch patch = smallWall();
  EXPECT_EQ(describe({What::Lamp, Light::InTurn, 3, 1}, patch),
            "Lamp 4 of 6, green: column 3, row 2, universe 2, channels 4 to 6");
  EXPECT_EQ(describe({What::Channel, Light::White, 516}, patch),
            "Channel 5 of universe 2: red of lamp 4: column 3, row 2, universe 2, channels 4 to 6");
  EXPECT_EQ(describe({What::Channel, Light::White, 99}, patch),
            "Channel 100 of universe 1: no lamp has it");
  EXPECT_EQ(describe({What::Row, Light::White, 1}, patch), "Row 2 of 2, white");
  EXPECT_EQ(describe({What::Column, Light::Blue, 1}, patch), "Column 2 of 3, blue");
  EXPECT_EQ(describe({What::Universe, Light::Red, 0}, patch), "Universe 1 of 3, red");
  EXPECT_EQ(describe({What::Wall, Light::InTurn, 0, 0}, patch), "All lamps, red");
}

TEST(LampTests, SayWhereALampIs) {
  ChannelMap map = wire({.cols = 4, .rows = 1, .first = {16, 501}});
  map.set(0, 0, 1, 8191);  // its own order and gaps
  map.set(1, 0, 2, 9000);  // beyond
  for (int component = 0; component < 3; ++component) map.set(2, 0, component, 0);
  map.set(3, 0, 0, 0);
  const Patch patch(map);
  EXPECT_EQ(describe(LampAt{0, 0}, patch),
            "lamp 1: column 1, row 1, red 16.501, green 16.511, blue 16.503");
  EXPECT_EQ(describe(LampAt{1, 0}, patch),
            "lamp 2: column 2, row 1, red 16.504, green 16.505, blue beyond universe 16");
  EXPECT_EQ(describe(LampAt{2, 0}, patch), "lamp: column 3, row 1, no channels");
  EXPECT_EQ(describe(LampAt{3, 0}, patch),
            "lamp 3: column 4, row 1, red nowhere, green 16.511, blue 16.512");
}

}  // namespace
}  // namespace korvane
