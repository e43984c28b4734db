#include "views/shared/machine/EventGate.h"

#include <gtest/gtest.h>

#include "platform/HeadlessPlatform.h"

namespace korvane {
namespace {

// An alarm that a test rings.
class TestAlarm : public Alarm {
 public:
  explicit TestAlarm(std::int64_t& wait) : wait_(wait) {}
  void in(std::int64_t milliseconds) override { wait_ = milliseconds; }
  void off() override { wait_ = -1; }

 private:
  std::int64_t& wait_;
};

class SharedGate : public testing::Test {
 protected:
  HeadlessPlatform platform;
  TimerQueue timers;
  Timer timer{timers, "timer"};
  std::int64_t wait = 0;  // until the alarm rings
  std::unique_ptr<EventGate> gate =
      std::make_unique<EventGate>(platform, timers, std::make_unique<TestAlarm>(wait));
};

TEST_F(SharedGate, SetsTheAlarmWheneverAnIntervalBeginsToCount) {
  EXPECT_EQ(wait, -1);
  timer.setInterval(60'000);
  timer.enable();  // by a call that does not pass the gate
  EXPECT_GT(wait, 50'000);
  EXPECT_LE(wait, 60'000);
  timer.setInterval(600'000);
  EXPECT_GT(wait, 500'000);
  gate->run([this] { timer.disable(); });
  gate->run([] {});
  EXPECT_EQ(wait, -1);
}

TEST_F(SharedGate, IsSetWithinAnEventThatGoesOn) {
  timer.setInterval(60'000);
  gate->run([this] {
    timer.enable();
    EXPECT_GT(wait, 50'000) << "a message box in this event would wait for the alarm";
  });
}

TEST_F(SharedGate, TakesWhatTicksDoNotForWhatTheNextEventDoes) {
  std::vector<std::string> order;
  timer.onTimer = [&] { order.push_back("tick"); };
  gate->afterTicks = [&] { order.push_back("after ticks"); };
  gate->afterEvent = [&] { order.push_back("after event"); };
  timer.setInterval(1);
  timer.enable();
  while (timers.clock() < timers.nextDue()) {
  }
  gate->run([&] {
    timer.disable();
    order.push_back("event");
  });
  EXPECT_EQ(order, (std::vector<std::string>{"tick", "after ticks", "event", "after event"}));
}

TEST_F(SharedGate, ReportsAFailureOnce) {
  EXPECT_FALSE(gate->run([] { throw Failure(kOverflow); }));
  EXPECT_EQ(platform.failures.size(), 1U);
  EXPECT_TRUE(gate->run([] {}));
}

TEST_F(SharedGate, LeavesNothingBehindInTheTimers) {
  gate = nullptr;
  EXPECT_EQ(timers.onCount, nullptr);
  EXPECT_EQ(timers.clock, nullptr);
}

}  // namespace
}  // namespace korvane
