#include "platform/WallClock.h"

#include <gtest/gtest.h>

#include <optional>

namespace korvane {
namespace {

class WallClocks : public testing::Test {
 protected:
  TimerQueue timers;
  Timer timer{timers, "timer"};
  TimerQueue::Gate gate = [](const std::function<void()>& event) { event(); };
};

TEST_F(WallClocks, AreTheTimersClockAsLongAsTheyLive) {
  std::optional<WallClock> clock(std::in_place, timers);
  ASSERT_NE(timers.clock, nullptr);
  EXPECT_GE(timers.clock(), 0);
  clock.reset();
  EXPECT_EQ(timers.clock, nullptr);
}

TEST_F(WallClocks, GoOnFromWhereTheTimeWasMoved) {
  timers.advanceTo(5000, gate);
  WallClock clock(timers);
  EXPECT_GE(timers.clock(), 5000);
  timers.advanceTo(900'000, gate);  // by a script
  EXPECT_GE(timers.clock(), 900'000);
  timer.setInterval(60'000);
  timer.enable();
  EXPECT_GT(clock.untilNext(), 50'000);
  EXPECT_LE(clock.untilNext(), 60'000);
}

TEST_F(WallClocks, TellOfEachPass) {
  int passes = 0;
  WallClock clock(timers, [&passes] { ++passes; });
  EXPECT_EQ(clock.untilNext(), -1);
  clock.pass(gate);
  EXPECT_EQ(passes, 1);
  int ticks = 0;
  timer.setInterval(1);
  timer.onTimer = [&] {
    if (++ticks == 3) timer.disable();
  };
  timer.enable();
  while (ticks < 3) clock.advance(1, gate);
  EXPECT_EQ(timers.nextDue(), TimerQueue::kNever);
}

}  // namespace
}  // namespace korvane
