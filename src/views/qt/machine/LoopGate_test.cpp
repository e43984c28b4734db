#include "views/qt/machine/LoopGate.h"

#include <gtest/gtest.h>

#include <QTest>

#include "platform/HeadlessPlatform.h"

namespace korvane::qt {
namespace {

class EventGates : public testing::Test {
 protected:
  HeadlessPlatform platform;
  TimerQueue timers;
  Timer timer{timers, "timer"};
  LoopGate gate{platform, timers};
  int ticks = 0;
};

TEST_F(EventGates, DriveTheTimers) {
  timer.setInterval(10);
  timer.onTimer = [this] {
    if (++ticks == 3) timer.disable();
  };
  gate.run([this] { timer.enable(); });
  EXPECT_TRUE(QTest::qWaitFor([this] { return ticks == 3; }, 2000));
  EXPECT_EQ(timers.nextDue(), TimerQueue::kNever);
}

TEST_F(EventGates, ReportTheFailureOfAnEventAndOfATickOnce) {
  EXPECT_FALSE(gate.run([] { throw Failure(kDivisionByZero); }));
  timer.setInterval(1);
  timer.onTimer = [this] {
    timer.disable();
    throw Failure(kOverflow);
  };
  gate.run([this] { timer.enable(); });
  EXPECT_TRUE(QTest::qWaitFor([this] { return platform.failures.size() == 2; }, 2000));
  EXPECT_EQ(platform.failures[1].number, kOverflow);
}

TEST_F(EventGates, GoOnTickingBehindAnEventThatWaits) {
  timer.setInterval(5);
  timer.onTimer = [this] { ++ticks; };
  gate.run([this] { timer.enable(); });
  gate.run([this] { EXPECT_TRUE(QTest::qWaitFor([this] { return ticks >= 3; }, 2000)); });
}

}  // namespace
}  // namespace korvane::qt
