#include "views/qt/machine/EventGate.h"

#include <gtest/gtest.h>

#include <QTest>

#include "platform/HeadlessPlatform.h"

namespace korvane {
namespace {

class EventGates : public testing::Test {
 protected:
  HeadlessPlatform platform;
  TimerQueue timers;
  Timer timer{timers, "timer"};
  EventGate gate{platform, timers};
  int ticks = 0;
};

TEST_F(EventGates, DriveTheTimers) {
  timer.setInterval(10);
  timer.onTimer = [this] {
    if (++ticks == 3) timer.disable();
  };
  gate.run([this] { timer.enable(); });
  EXPECT_TRUE(QTest::qWaitFor([this] { return ticks == 3; }, 2000));
  QTest::qWait(40);
  EXPECT_EQ(ticks, 3);
}

TEST_F(EventGates, CountAnIntervalFromTheEventThatStartsIt) {
  QTest::qSleep(60);
  gate.run([this] { timer.enable(); });
  EXPECT_GE(timers.now(), 60);
  EXPECT_EQ(timers.nextDue(), timers.now() + timer.interval());
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
}  // namespace korvane
