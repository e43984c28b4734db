#include "desk/wall/WiringPlan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "desk/wall/TestWiring.h"

namespace korvane {
namespace {

using Codes = ChannelMap::Codes;
using Lamps = std::vector<LampAt>;

std::string textOf(const WiringPlan& plan) {
  const auto path = [](const WirePath& p) {
    return std::string("corner ") + std::to_string(p.start) + (p.columns ? " columns" : " rows") +
           (p.snake ? " snake" : " straight");
  };
  std::string text =
      std::to_string(plan.wallCols()) + " x " + std::to_string(plan.wallRows()) + " from " +
      std::to_string(plan.first.universe) + "." + std::to_string(plan.first.channel) + ", " +
      path(plan.path) + ", " + kColorOrderNames.at(static_cast<std::size_t>(plan.order)) +
      ", fill " + std::to_string(static_cast<int>(plan.fill)) + " of " +
      std::to_string(plan.lampsPerUniverse) + ", skipped " + std::to_string(plan.skipped);
  if (plan.panels)
    text += ", panels " + std::to_string(plan.panels->cols) + " x " +
            std::to_string(plan.panels->rows) + ", " + std::to_string(plan.panels->across) +
            " by " + std::to_string(plan.panels->down) + ", " + path(plan.panels->path) +
            ", turn " + std::to_string(static_cast<int>(plan.panels->turn));
  return text;
}

void expectAsModel(const WiringPlan& plan) {
  ASSERT_EQ(faultOf(plan), "") << textOf(plan);
  const ChannelMap map = wire(plan);
  ASSERT_EQ(map.codes().cols(), plan.wallCols());
  ASSERT_EQ(map.codes().rows(), plan.wallRows());
  const WiringModel model(plan);
  for (int col = 0; col < plan.wallCols(); ++col) {
    for (int row = 0; row < plan.wallRows(); ++row) {
      if (map.at(col, row) != model.codes(col, row))
        FAIL() << textOf(plan) << " at " << col << ", " << row;
    }
  }
}

// The lamps of the first line, and of the second.
std::vector<Lamps> firstLines(const WirePath& path) {
  const WireLines lines = layOut(path, 3, 2);
  return {lines.begin(), lines.begin() + 2};
}

TEST(WirePaths, RunLineByLineFromTheirCorner) {
  EXPECT_EQ(firstLines({}),
            (std::vector<Lamps>{{{0, 0}, {1, 0}, {2, 0}}, {{0, 1}, {1, 1}, {2, 1}}}));
  EXPECT_EQ(firstLines({.start = WirePath::kBottomRight}),
            (std::vector<Lamps>{{{2, 1}, {1, 1}, {0, 1}}, {{2, 0}, {1, 0}, {0, 0}}}));
  EXPECT_EQ(firstLines({.start = WirePath::kTopRight, .columns = true}),
            (std::vector<Lamps>{{{2, 0}, {2, 1}}, {{1, 0}, {1, 1}}}));
}

TEST(WirePaths, ASnakeRunsEverySecondLineBack) {
  EXPECT_EQ(firstLines({.snake = true}),
            (std::vector<Lamps>{{{0, 0}, {1, 0}, {2, 0}}, {{2, 1}, {1, 1}, {0, 1}}}));
  EXPECT_EQ(firstLines({.start = WirePath::kBottomLeft, .columns = true, .snake = true}),
            (std::vector<Lamps>{{{0, 1}, {0, 0}}, {{1, 0}, {1, 1}}}));
}

TEST(WiringPlans, TheColoursStandOnTheWireInTheirOrder) {
  const std::map<ColorOrder, Codes> orders = {
      {ColorOrder::RGB, {1, 2, 3}}, {ColorOrder::RBG, {1, 3, 2}}, {ColorOrder::GRB, {2, 1, 3}},
      {ColorOrder::GBR, {3, 1, 2}}, {ColorOrder::BRG, {2, 3, 1}}, {ColorOrder::BGR, {3, 2, 1}}};
  for (const auto& [order, codes] : orders)
    EXPECT_EQ(wire({.cols = 1, .rows = 1, .order = order}).at(0, 0), codes)
        << static_cast<int>(order);
}

TEST(WiringPlans, ALampNeverLiesInTwoUniverses) {
  const ChannelMap map = wire({.cols = 50, .rows = 5});
  EXPECT_EQ(map.at(19, 3), (Codes{508, 509, 510})) << "lamp 170";
  EXPECT_EQ(map.at(20, 3), (Codes{513, 514, 515})) << "511 and 512 stay unused";
}

TEST(WiringPlans, AFirstChannelLeavesFewerLampsToTheFirstUniverse) {
  const ChannelMap map = wire({.cols = 4, .rows = 1, .first = {3, 505}});
  EXPECT_EQ(map.at(0, 0)[0], 1024 + 505);
  EXPECT_EQ(map.at(1, 0)[0], 1024 + 508);
  EXPECT_EQ(map.at(2, 0)[0], 3 * 512 + 1);
  EXPECT_EQ(wire({.cols = 1, .rows = 1, .first = {1, 511}}).at(0, 0)[0], 513)
      << "there is no room for a lamp";
}

TEST(WiringPlans, AUniverseMayHaveANumberOfLamps) {
  const ChannelMap map =
      wire({.cols = 5, .rows = 1, .fill = UniverseFill::Count, .lampsPerUniverse = 2});
  const std::array<std::int32_t, 5> first = {1, 4, 513, 516, 1025};
  for (int col = 0; col < 5; ++col)
    EXPECT_EQ(map.at(col, 0)[0], first.at(static_cast<std::size_t>(col)));
}

TEST(WiringPlans, AUniverseMayHaveWholeLines) {
  const ChannelMap map = wire({.cols = 32, .rows = 6, .fill = UniverseFill::Lines});
  EXPECT_EQ(map.at(31, 4)[2], 480) << "five lines of 32";
  EXPECT_EQ(map.at(0, 5)[0], 513);
}

TEST(WiringPlans, WholeLinesBeginWhereThePersonSaidAndALongOneIsBroken) {
  const ChannelMap map =
      wire({.cols = 50, .rows = 2, .first = {1, 400}, .fill = UniverseFill::Lines});
  EXPECT_EQ(map.at(0, 0)[0], 400);
  EXPECT_EQ(map.at(37, 0)[0], 513) << "37 lamps fit behind channel 400";
  EXPECT_EQ(map.at(0, 1)[0], 513 + 13 * 3);
}

TEST(WiringPlans, LampsAtTheEndOfALineCanBeLeftUnused) {
  const ChannelMap map = wire({.cols = 2, .rows = 3, .path = {.snake = true}, .skipped = 3});
  EXPECT_EQ(map.at(0, 0)[0], 1);
  EXPECT_EQ(map.at(1, 0)[0], 4);
  EXPECT_EQ(map.at(1, 1)[0], 1 + 5 * 3);
  EXPECT_EQ(map.at(0, 2)[0], 1 + 10 * 3);
}

TEST(WiringPlans, PanelsAreChainedAndHungAsSaid) {
  // Two panels of 3 x 1 lamps, turned by 90 degrees: a wall of 2 x 3, each panel wired downwards.
  const ChannelMap turned =
      wire({.panels = PanelPlan{
                .cols = 3, .rows = 1, .across = 2, .down = 1, .turn = PanelPlan::Turn::Quarter}});
  EXPECT_EQ(turned.codes().cols(), 2);
  EXPECT_EQ(turned.codes().rows(), 3);
  EXPECT_EQ(turned.at(0, 0)[0], 1);
  EXPECT_EQ(turned.at(0, 2)[0], 7);
  EXPECT_EQ(turned.at(1, 0)[0], 10);
  // A chain that snakes through 2 x 2 panels whose lower line stands on its head.
  const ChannelMap snake = wire({.panels = PanelPlan{.cols = 2,
                                                     .rows = 1,
                                                     .across = 2,
                                                     .down = 2,
                                                     .path = {.snake = true},
                                                     .turn = PanelPlan::Turn::AlternateHalf}});
  EXPECT_EQ(snake.at(3, 0)[0], 10);
  EXPECT_EQ(snake.at(3, 1)[0], 13) << "the wire goes straight down";
  EXPECT_EQ(snake.at(0, 1)[0], 22);
}

TEST(WiringPlans, LampsWithoutRoomLieBeyondTheLastUniverse) {
  const ChannelMap map = wire({.cols = 1, .rows = 3, .first = {16, 507}});
  EXPECT_EQ(map.at(0, 1)[0], 8190);
  EXPECT_EQ(map.at(0, 2)[0], 8193);
  const Patch patch(map);
  EXPECT_EQ(patch.beyond(), (Lamps{LampAt{0, 2}}));
}

TEST(WiringPlans, SixteenUsualWiringsTimesSixOrdersAreTheModels) {
  for (int corner = 0; corner < 4; ++corner) {
    for (const bool columns : {false, true}) {
      for (const bool snake : {false, true}) {
        for (int order = 0; order < 6; ++order) {
          for (const auto& [cols, rows] :
               {std::pair{16, 9}, {9, 16}, {1, 1}, {1, 50}, {50, 1}, {50, 50}}) {
            expectAsModel({.cols = cols,
                           .rows = rows,
                           .path = {static_cast<WirePath::Corner>(corner), columns, snake},
                           .order = static_cast<ColorOrder>(order)});
          }
        }
      }
    }
  }
}

TEST(WiringPlans, AnyPlanIsTheModels) {
  std::mt19937 random(3);
  const auto pick = [&](int from, int to) {
    return std::uniform_int_distribution<int>(from, to)(random);
  };
  const auto path = [&] {
    return WirePath{static_cast<WirePath::Corner>(pick(0, 3)), pick(0, 1) == 1, pick(0, 1) == 1};
  };
  for (int round = 0; round < 400; ++round) {
    WiringPlan plan{.cols = pick(1, 50),
                    .rows = pick(1, 50),
                    .first = {pick(1, 16), pick(1, 512)},
                    .path = path(),
                    .order = static_cast<ColorOrder>(pick(0, 5)),
                    .fill = static_cast<UniverseFill>(pick(0, 2)),
                    .lampsPerUniverse = pick(1, 170),
                    .skipped = pick(0, 3) == 0 ? pick(1, 20) : 0};
    if (pick(0, 1) == 1) {
      plan.panels = {.cols = pick(1, 10),
                     .rows = pick(1, 10),
                     .across = pick(1, 5),
                     .down = pick(1, 5),
                     .path = path(),
                     .turn = static_cast<PanelPlan::Turn>(pick(0, 4))};
    }
    expectAsModel(plan);
    if (HasFatalFailure()) return;
  }
}

TEST(WiringPlans, APlanWithoutPanelsIsKnownFromItsMap) {
  int known = 0;
  for (int corner = 0; corner < 4; ++corner) {
    for (const bool columns : {false, true}) {
      for (const bool snake : {false, true}) {
        const WiringPlan plan{.cols = 16,
                              .rows = 12,
                              .first = {2, 10},
                              .path = {static_cast<WirePath::Corner>(corner), columns, snake},
                              .order = ColorOrder::GRB};
        EXPECT_EQ(planOf(wire(plan)), plan) << textOf(plan);
        ++known;
      }
    }
  }
  EXPECT_EQ(known, 16);
  const WiringPlan lines{.cols = 32, .rows = 6, .fill = UniverseFill::Lines};
  EXPECT_EQ(planOf(wire(lines)), lines);
  EXPECT_EQ(planOf(wire({.cols = 1, .rows = 1})), (WiringPlan{.cols = 1, .rows = 1}));
}

TEST(WiringPlans, AMapThatNobodyPlannedIsNotKnown) {
  ChannelMap map = wire({.cols = 4, .rows = 4});
  map.set(2, 2, 1, 400);
  EXPECT_FALSE(planOf(map));
  map.redim(4, 4);
  EXPECT_FALSE(planOf(map)) << "no channels";
  map.redim(51, 1);
  for (int col = 0; col < 51; ++col) map.set(col, 0, 0, col + 1);
  EXPECT_FALSE(planOf(map));
  EXPECT_FALSE(planOf(ChannelMap()));
}

TEST(WiringPlans, WhatCannotBeLaidIsSaidInWords) {
  EXPECT_EQ(faultOf({}), "");
  EXPECT_EQ(faultOf({.cols = 51, .rows = 2}),
            "A wall has 1 to 50 columns and rows; this one would have 51 by 2.");
  EXPECT_EQ(faultOf({.cols = 0, .rows = 2}),
            "A wall has 1 to 50 columns and rows; this one would have 0 by 2.");
  EXPECT_EQ(faultOf({.panels = PanelPlan{.cols = 20, .across = 3}}),
            "A wall has 1 to 50 columns and rows; this one would have 60 by 16.");
  EXPECT_EQ(faultOf({.panels = PanelPlan{.cols = 0}}),
            "A panel has 1 to 50 columns and rows, and a wall 1 to 50 panels across and down.");
  for (const WallChannel& first : {WallChannel{0, 1}, {17, 1}, {1, 0}, {1, 513}})
    EXPECT_EQ(faultOf({.first = first}),
              "The first lamp begins in universe 1 to 16 at channel 1 to 512.");
  EXPECT_EQ(faultOf({.lampsPerUniverse = 171}), "A universe has 1 to 170 lamps.");
  EXPECT_EQ(faultOf({.skipped = -1}), "0 to 170 lamps of a line can be left.");
}

}  // namespace
}  // namespace korvane
